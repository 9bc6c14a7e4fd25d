#include "shell/ObjectiveDialog.h"

#include "shell/Objective.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/Session.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace shell {

ObjectiveDialog::ObjectiveDialog(store::Database& db, ui::Session& session, QWidget* parent)
    : QDialog(parent)
    , m_db(db)
    , m_session(session) {
    setObjectName(QStringLiteral("frmVORp"));
    setWindowTitle(QStringLiteral("Selecione o objetivo para este preenchimento"));

    auto* box = new QGroupBox(QStringLiteral("Objetivo do preenchimento"), this);
    auto* boxLayout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(this);
    const std::array<std::pair<const char*, QString>, 5> options = {{
        {"optCadst", QStringLiteral("Cadastro")},
        {"optLF", QStringLiteral("Licença de Funcionamento")},
        {"optLP", QStringLiteral("Licença Prévia")},
        {"optLI", QStringLiteral("Licença de Instalação")},
        {"optLPLI", QStringLiteral("Licença Prévia e de Instalação")},
    }};
    for (std::size_t i = 0; i < options.size(); ++i) {
        auto* option = new QRadioButton(options[i].second, box);
        option->setObjectName(QString::fromLatin1(options[i].first));
        group->addButton(option, int(i));
        boxLayout->addWidget(option);
        m_options[i] = option;
    }

    m_alterar = new QPushButton(QStringLiteral("&Alterar"), this);
    m_alterar->setObjectName(QStringLiteral("cmdAltrr"));
    m_continuar = new QPushButton(QStringLiteral("&Continuar"), this);
    m_continuar->setObjectName(QStringLiteral("cmdContnr"));
    m_continuar->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_alterar);
    buttons->addWidget(m_continuar);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(m_alterar, &QPushButton::clicked, this, &ObjectiveDialog::alterar);
    connect(m_continuar, &QPushButton::clicked, this, &ObjectiveDialog::continuar);
    load();
}

void ObjectiveDialog::load() {
    for (QRadioButton* option : m_options)
        option->setEnabled(false);
    ui::runGuarded([&] {
        const std::optional<QString> stored = storedObjectiveCode(m_db);
        m_options[ui::Session::Cadastro]->setEnabled(true);
        const std::optional<int> objective = stored ? objectiveFromCode(*stored) : std::nullopt;
        if (objective && *objective != ui::Session::Cadastro) {
            m_options[std::size_t(*objective)]->setEnabled(true);
            m_options[std::size_t(*objective)]->setChecked(true);
            m_options[ui::Session::Cadastro]->setEnabled(false);
        } else if (objective) {
            // A database filled for Cadastro shows its choice, so that Continuar without a
            // change writes nothing.
            m_options[ui::Session::Cadastro]->setChecked(true);
        }
    });
    m_snapshot = snapshot();
}

void ObjectiveDialog::alterar() {
    for (QRadioButton* option : m_options)
        option->setEnabled(true);
    m_alterar->setEnabled(false);
}

int ObjectiveDialog::chosen() const {
    for (std::size_t i = 0; i < m_options.size(); ++i) {
        if (m_options[i]->isChecked())
            return int(i);
    }
    return -1;
}

QString ObjectiveDialog::snapshot() const {
    QString text;
    for (const QRadioButton* option : m_options)
        text += option->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
    return text;
}

void ObjectiveDialog::continuar() {
    const int objective = chosen();
    if (objective < 0) {
        ui::dialogs().message(QStringLiteral("Aviso"), QStringLiteral("Selecione uma das opções"),
                              ui::Icon::None);
        return;
    }
    m_session.objetivo = objective;
    if (snapshot() != m_snapshot) {
        if (!ui::runGuarded([&] { gravaMovmn(m_db, objective); }))
            return;
    }
    accept();
}

} // namespace shell
