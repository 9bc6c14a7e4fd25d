#include "shell/SuggestionsPanel.h"

#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSqlQuery>
#include <QTextCursor>
#include <QVBoxLayout>
#include <algorithm>

namespace shell {

namespace {

const QString kFind =
    QStringLiteral("SELECT SUGESTAO FROM SUGESTOES WHERE NMUNCP = ? AND NSEQNC = ?");

void done(const QString& text) {
    ui::dialogs().message(ui::kTitle, text, ui::Icon::Information);
}

} // namespace

SuggestionsPanel::SuggestionsPanel(store::Database& db, QWidget* parent)
    : QFrame(parent)
    , m_db(db)
    , m_text(new QPlainTextEdit(this))
    , m_insert(new QPushButton(QStringLiteral("Gravar"), this))
    , m_delete(new QPushButton(QStringLiteral("Excluir/Limpar"), this))
    , m_back(new QPushButton(QStringLiteral("Tela Principal"), this)) {
    setObjectName(QStringLiteral("PnAviso(1)"));
    setFrameShape(QFrame::StyledPanel);
    auto* label =
        new QLabel(QStringLiteral("Este espaço é reservado para seu(s) comentário(s) sobre a "
                                  "aplicabilidade e eficiência deste sistema. Contamos com sua "
                                  "colaboração!"),
                   this);
    label->setObjectName(QStringLiteral("Label1"));
    label->setWordWrap(true);
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setTabChangesFocus(true);
    m_insert->setObjectName(QStringLiteral("cmdInsere"));
    m_delete->setObjectName(QStringLiteral("cmdExcluir"));
    m_back->setObjectName(QStringLiteral("cmdTelaPrincipal"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_insert);
    buttons->addWidget(m_delete);
    buttons->addWidget(m_back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_text);
    layout->addLayout(buttons);

    connect(m_text, &QPlainTextEdit::textChanged, this, &SuggestionsPanel::keepWithinLimits);
    connect(m_insert, &QPushButton::clicked, this, &SuggestionsPanel::save);
    connect(m_delete, &QPushButton::clicked, this, &SuggestionsPanel::remove);
    connect(m_back, &QPushButton::clicked, this, &SuggestionsPanel::close);
    hide();
}

void SuggestionsPanel::openFor(const store::RegisterKey& key) {
    m_key = key;
    m_codSugestao = 1;
    std::optional<QString> stored;
    if (!ui::runGuarded([&] { stored = storedSuggestion(); }))
        return;
    m_text->setPlainText(stored.value_or(QString()));
    m_text->setEnabled(true);
    m_insert->setEnabled(true);
    m_back->setEnabled(true);
    m_delete->setEnabled(stored.has_value());
    show();
    m_text->setFocus();
}

std::optional<QString> SuggestionsPanel::storedSuggestion() {
    QSqlQuery row = m_db.run(kFind, {m_key.nmuncp, m_key.nseqnc});
    if (!row.next())
        return std::nullopt;
    return row.value(0).toString();
}

void SuggestionsPanel::save() {
    const QString text = m_text->toPlainText();
    ui::runGuarded([&] {
        if (storedSuggestion())
            change(text);
        else
            insert(text);
    });
}

void SuggestionsPanel::insert(const QString& text) {
    if (text.trimmed().isEmpty()) {
        ui::dialogs().message(ui::kTitle, QStringLiteral("O campo não pode estar em branco."),
                              ui::Icon::Critical);
        return;
    }
    if (storedSuggestion()) {
        ui::dialogs().message(ui::kTitle, QStringLiteral("Sugestão já cadastrada"),
                              ui::Icon::Critical);
        return;
    }
    const QVariant companyName =
        m_db.scalar(QStringLiteral("SELECT DRAZAOSOCIL FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                    {m_key.nmuncp, m_key.nseqnc});
    m_db.run(QStringLiteral("INSERT INTO SUGESTOES (NMUNCP, NSEQNC, DRAZAOSOCIL, SUGESTAO, COD) "
                            "VALUES (?, ?, ?, ?, ?)"),
             {m_key.nmuncp, m_key.nseqnc, companyName, text, m_codSugestao});
    done(QStringLiteral("Sua sugestão foi cadastrada com Sucesso."));
    m_text->clear();
}

void SuggestionsPanel::change(const QString& text) {
    if (text.trimmed().isEmpty()) {
        ui::dialogs().message(ui::kTitle, QStringLiteral("O campo não pode estar em branco."),
                              ui::Icon::Critical);
        return;
    }
    m_db.run(QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = ? WHERE NMUNCP = ? AND NSEQNC = ?"),
             {text, m_key.nmuncp, m_key.nseqnc});
    done(QStringLiteral("Sua sugestão foi alterada com Sucesso."));
    m_text->clear();
}

void SuggestionsPanel::remove() {
    const bool removed = ui::runGuarded([&] {
        m_db.run(QStringLiteral("DELETE FROM SUGESTOES WHERE NMUNCP = ? AND NSEQNC = ?"),
                 {m_key.nmuncp, m_key.nseqnc});
    });
    if (!removed)
        return;
    done(QStringLiteral("Sua sugestão foi excluída com Sucesso."));
    m_text->clear();
}

void SuggestionsPanel::close() {
    m_codSugestao = 0;
    hide();
    emit backToMainScreen();
}

void SuggestionsPanel::keepWithinLimits() {
    // The exchange separator may not enter the text, and the exchange line has a limit.
    QString text = m_text->toPlainText();
    const qsizetype before = text.size();
    text.remove(QChar(0x00AC));
    if (text.size() > kMaxLength)
        text.truncate(kMaxLength);
    if (text.size() == before)
        return;
    const QSignalBlocker blocker(m_text);
    QTextCursor cursor = m_text->textCursor();
    const int position = std::min(cursor.position(), int(text.size()));
    m_text->setPlainText(text);
    cursor = m_text->textCursor();
    cursor.setPosition(position);
    m_text->setTextCursor(cursor);
}

} // namespace shell
