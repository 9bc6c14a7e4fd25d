#include "shell/RegisterList.h"

#include "establishment/RegisterForm.h"
#include "rules/Formats.h"
#include "shell/Hooks.h"
#include "shell/QuestionnaireFrame.h"
#include "ui/BusyCursor.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/Session.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace shell {

namespace {

enum Column { Codigo, RazaoSocial, Cnpj, Data, Situacao, ColumnCount };

QPushButton* button(QWidget* parent, const char* name, const QString& caption) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setMinimumWidth(96);
    return b;
}

// The short cut of the list after a delete: only the first three statuses get their word.
QString shortCutWord(const QVariant& csitu) {
    bool ok = false;
    const int value = csitu.toInt(&ok);
    return ok && value >= 0 && value <= 2 ? statusWord(csitu) : csitu.toString();
}

} // namespace

RegisterList::RegisterList(QuestionnaireFrame& frame)
    : QWidget(nullptr)
    , m_frame(frame) {
    setObjectName(QStringLiteral("frmVOR"));
    setWindowTitle(QStringLiteral("Empreendimentos cadastrados"));

    auto* intro = new QLabel(
        QStringLiteral("Selecione o empreendimento e escolha Continuar para preencher o memorial, "
                       "ou Incluir para cadastrar um novo empreendimento."),
        this);
    intro->setWordWrap(true);

    auto* order = new QGroupBox(QStringLiteral("Ordenar por"), this);
    m_byName = new QRadioButton(QStringLiteral("Razão Social"), order);
    m_byName->setObjectName(QStringLiteral("Option1"));
    m_byCnpj = new QRadioButton(QStringLiteral("CNPJ"), order);
    m_byCnpj->setObjectName(QStringLiteral("Option2"));
    m_byName->setChecked(true);
    auto* orderLayout = new QHBoxLayout(order);
    orderLayout->addWidget(m_byName);
    orderLayout->addWidget(m_byCnpj);
    orderLayout->addStretch();

    m_grid = new QTableWidget(0, ColumnCount, this);
    m_grid->setObjectName(QStringLiteral("fgrVOR"));
    m_grid->setHorizontalHeaderLabels({QStringLiteral("Código"), QStringLiteral("Razão Social"),
                                       QStringLiteral("CNPJ"), QStringLiteral("Data"),
                                       QStringLiteral("Situação")});
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setAlternatingRowColors(true);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_grid->horizontalHeader()->setSectionResizeMode(RazaoSocial, QHeaderView::Stretch);
    m_grid->installEventFilter(this);

    m_continuar = button(this, "cmdContinuar", QStringLiteral("Continuar"));
    m_alterar = button(this, "cmdAlterar", QStringLiteral("Alterar"));
    m_incluir = button(this, "cmdIncluir", QStringLiteral("Incluir"));
    m_excluir = button(this, "cmdExcluir", QStringLiteral("Excluir"));
    m_exportar = button(this, "cmdExprt", QStringLiteral("Exportar"));
    m_imprimir = button(this, "cmdImprm", QStringLiteral("Imprimir"));
    m_voltar = button(this, "cmdVoltar", QStringLiteral("Voltar"));

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {m_continuar, m_alterar, m_incluir, m_excluir, m_exportar, m_imprimir})
        buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(m_voltar);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(intro);
    layout->addWidget(order);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);

    connect(m_byName, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            activate();
    });
    connect(m_byCnpj, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            activate();
    });
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, [this] { alterar(); });
    connect(m_grid, &QTableWidget::currentCellChanged, this,
            [this](int row) { m_frame.session().linhaLista = row + 1; });
    connect(m_continuar, &QPushButton::clicked, this, &RegisterList::continuar);
    connect(m_alterar, &QPushButton::clicked, this, &RegisterList::alterar);
    connect(m_incluir, &QPushButton::clicked, this, &RegisterList::incluir);
    connect(m_excluir, &QPushButton::clicked, this, &RegisterList::excluir);
    connect(m_exportar, &QPushButton::clicked, this, &RegisterList::exportar);
    connect(m_imprimir, &QPushButton::clicked, this, &RegisterList::imprimir);
    connect(m_voltar, &QPushButton::clicked, this, &RegisterList::voltar);
}

void RegisterList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    activate();
}

bool RegisterList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_grid && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (m_grid->rowCount() == 0)
                incluir();
            else
                alterar();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void RegisterList::fill(bool shortCut) {
    const QSignalBlocker blocker(m_grid);
    m_grid->setRowCount(0);
    ui::runGuarded([&] {
        const std::vector<RegisterRow> rows = listRegisters(
            m_frame.database(), m_byCnpj->isChecked() ? ListOrder::Cnpj : ListOrder::RazaoSocial);
        m_grid->setRowCount(int(rows.size()));
        for (int r = 0; r < int(rows.size()); ++r) {
            const RegisterRow& row = rows[std::size_t(r)];
            const QStringList cells = {row.code, row.razaoSocial, cnpjText(row.ccgc),
                                       row.acadst.isValid() ? rules::shortDate(row.acadst)
                                                            : QString(),
                                       shortCut ? shortCutWord(row.csitu) : statusWord(row.csitu)};
            for (int c = 0; c < ColumnCount; ++c)
                m_grid->setItem(r, c, new QTableWidgetItem(cells[c]));
        }
    });
}

void RegisterList::enableButtons() {
    const bool any = m_grid->rowCount() > 0;
    for (QPushButton* b : {m_continuar, m_alterar, m_excluir, m_imprimir, m_exportar})
        b->setEnabled(any);
    m_incluir->setEnabled(true);
    if (!any)
        m_incluir->setFocus();
}

void RegisterList::activate() {
    ui::Session& session = m_frame.session();
    fill(false);
    enableButtons();
    session.primeiraVez = false;
    const int count = m_grid->rowCount();
    if (count == 0)
        return;
    if (session.chaveNova.isEmpty()) {
        const int row = std::clamp(session.linhaLista, 1, count);
        selectRow(row - 1);
    } else {
        int found = 0;
        for (int r = 0; r < count; ++r) {
            if (m_grid->item(r, Codigo)->text() == session.chaveNova) {
                found = r;
                break;
            }
        }
        selectRow(found);
        session.chaveNova.clear();
    }
    m_grid->setFocus();
}

void RegisterList::selectRow(int row) {
    if (row < 0 || row >= m_grid->rowCount())
        return;
    m_grid->setCurrentCell(row, Codigo);
    m_grid->selectRow(row);
    m_grid->scrollToItem(m_grid->item(row, Codigo), QAbstractItemView::PositionAtTop);
}

int RegisterList::selectedRow() const {
    const QList<QTableWidgetSelectionRange> ranges = m_grid->selectedRanges();
    return ranges.isEmpty() ? -1 : ranges.first().topRow();
}

std::optional<store::RegisterKey> RegisterList::selectedKey() const {
    const int row = selectedRow();
    if (row < 0)
        return std::nullopt;
    return store::RegisterKey::fromCode(m_grid->item(row, Codigo)->text());
}

// Makes the register of `row` the session's register, as Continuar and Alterar do.
void RegisterList::takeSelected(int row) {
    ui::Session& session = m_frame.session();
    if (const auto key = store::RegisterKey::fromCode(m_grid->item(row, Codigo)->text()))
        session.setKey(*key);
    session.razaoSocial = m_grid->item(row, RazaoSocial)->text().trimmed();
    session.ainfrm = QDate::fromString(m_grid->item(row, Data)->text(), rules::kShortDateFormat);
    session.linhaLista = row + 1;
}

void RegisterList::continuar() {
    const int row = selectedRow();
    if (row < 0)
        return;
    ui::Session& session = m_frame.session();
    takeSelected(row);
    session.operacao = ui::kAlterar;
    session.marcaContinuar = QStringLiteral("M");
    hooks().continueChain(m_frame, session);
}

void RegisterList::alterar() {
    const int row = selectedRow();
    if (row < 0)
        return;
    ui::Session& session = m_frame.session();
    takeSelected(row);
    session.operacao = ui::kAlterar;
    session.primeiraVez = false;
    openRegisterForm(QStringLiteral(" - Alteração"));
}

void RegisterList::incluir() {
    ui::Session& session = m_frame.session();
    session.operacao = ui::kIncluir;
    session.linhaLista = std::max(selectedRow(), 0) + 1;
    openRegisterForm(QStringLiteral(" - Inclusão"));
}

void RegisterList::openRegisterForm(const QString& captionSuffix) {
    auto* form = new establishment::RegisterForm(m_frame.database(), m_frame.session());
    form->setWindowTitle(form->windowTitle() + captionSuffix);
    connect(form, &establishment::RegisterForm::closed, &m_frame, &QuestionnaireFrame::closeTop);
    m_frame.openOver(form);
}

void RegisterList::excluir() {
    const int row = selectedRow();
    const std::optional<store::RegisterKey> key = selectedKey();
    if (!key)
        return;
    if (!ui::dialogs().ask(ui::kTitle, QStringLiteral("Confirma a Exclusão ?"), ui::Icon::Question,
                           true))
        return;
    if (!ui::runGuarded([&] { excluirDados(m_frame.database(), *key); }))
        return;
    fill(true);
    enableButtons();
    selectRow(std::max(row - 1, 0));
}

void RegisterList::exportar() {
    if (const auto key = selectedKey()) {
        m_frame.session().origemSelecao = 1;
        hooks().exportRegister(m_frame, m_frame.session(), *key);
    }
}

void RegisterList::imprimir() {
    if (const auto key = selectedKey()) {
        m_frame.session().origemSelecao = 1;
        hooks().printRegister(m_frame, m_frame.session(), *key);
    }
}

void RegisterList::voltar() {
    m_frame.close();
    ui::restoreNormalCursor();
}

} // namespace shell
