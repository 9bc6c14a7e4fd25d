#include "ui/MaintenanceScreen.h"

#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/HeaderBand.h"
#include "ui/Session.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

namespace {

QPushButton* button(const QString& name, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    // A click leaves the field where it is, so that cmdOk runs the field's own checks first,
    // as leaving it would.
    b->setFocusPolicy(Qt::TabFocus);
    return b;
}

QString fieldText(const QWidget* field) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(field))
        return edit->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(field))
        return combo->currentText();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(field))
        return text->toPlainText();
    if (const auto* check = qobject_cast<const QAbstractButton*>(field))
        return check->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    return {};
}

} // namespace

MaintenanceScreen::MaintenanceScreen(ScreenHost& host, QString listName,
                                     QList<Operation> operations, QWidget* parent)
    : Screen(parent)
    , m_host(host)
    , m_listName(std::move(listName))
    , m_operations(std::move(operations)) {
    auto* layout = new QVBoxLayout(this);
    m_header = new HeaderBand(this);
    layout->addWidget(m_header);
    m_body = new QVBoxLayout;
    layout->addLayout(m_body, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    m_ok = button(QStringLiteral("cmdOk"), QStringLiteral("&Ok"), this);
    m_cancelar = button(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"), this);
    m_fechar = button(QStringLiteral("cmdFechar"), QStringLiteral("&Fechar"), this);
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancelar);
    buttons->addWidget(m_fechar);
    layout->addLayout(buttons);

    connect(m_ok, &QPushButton::clicked, this, &MaintenanceScreen::ok);
    connect(m_cancelar, &QPushButton::clicked, this, &MaintenanceScreen::cancel);
    connect(m_fechar, &QPushButton::clicked, this, &MaintenanceScreen::cancel);
}

Session& MaintenanceScreen::session() const {
    return m_host.session();
}

store::Database& MaintenanceScreen::database() const {
    return m_host.database();
}

void MaintenanceScreen::start(const QString& operation, const ListSelection& rows, bool forced) {
    for (const Operation& op : std::as_const(m_operations)) {
        if (op.name == operation)
            m_operation = op;
    }
    m_rows = rows;
    m_forced = forced;
    m_header->fill(session());
    runGuarded([&] {
        prepare();
        copyFromList(rows);
    });
}

void MaintenanceScreen::enter() {
    for (QWidget* field : watchedFields())
        field->installEventFilter(this);
    QWidget* first = nullptr;
    runGuarded([&] { first = arrangePanels(); });
    if (first)
        first->setFocus(Qt::OtherFocusReason);
    m_retratoInicial = composeSnapshot();
    m_retratoAtual = m_retratoInicial;
    m_ok->setEnabled(!m_operation.tracksChanges);
    m_cancelar->setEnabled(false);
    m_fechar->setEnabled(true);
    if (m_forced)
        m_fechar->setEnabled(!countedChain() && chainMayClose(m_rows));
}

Check MaintenanceScreen::leaveCheck(QWidget* /*field*/) {
    return {};
}

bool MaintenanceScreen::chainMayClose(const ListSelection& /*rows*/) const {
    return false;
}

QList<QWidget*> MaintenanceScreen::watchedFields() const {
    QList<QWidget*> fields;
    for (QWidget* w : findChildren<QWidget*>()) {
        if (m_header->isAncestorOf(w))
            continue;
        if (qobject_cast<QLineEdit*>(w) && qobject_cast<QComboBox*>(w->parentWidget()))
            continue; // the edit inside an editable combo box: the box is the field
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
            qobject_cast<QPlainTextEdit*>(w))
            fields << w;
    }
    return fields;
}

QString MaintenanceScreen::composeSnapshot() const {
    QString snapshot;
    for (const QWidget* field : snapshotFields())
        snapshot += fieldText(field);
    return snapshot;
}

void MaintenanceScreen::verifyChange() {
    if (!m_operation.tracksChanges)
        return;
    m_retratoAtual = composeSnapshot();
    const bool changed = m_retratoAtual != m_retratoInicial;
    m_ok->setEnabled(changed);
    m_cancelar->setEnabled(changed);
    m_fechar->setEnabled(!changed);
}

bool MaintenanceScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && !m_inLeaveCheck) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // The window losing the focus to a message box or a popup is no leaving of the field.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            auto* field = static_cast<QWidget*>(watched);
            m_inLeaveCheck = true;
            Check refused;
            const bool ran = runGuarded([&] { refused = leaveCheck(field); });
            if (refused)
                showRefusal(*refused);
            else if (ran)
                verifyChange();
            m_inLeaveCheck = false;
        }
    }
    return Screen::eventFilter(watched, event);
}

bool MaintenanceScreen::leaveFocusedField() {
    QWidget* field = focusWidget();
    if (field && qobject_cast<QComboBox*>(field->parentWidget()))
        field = field->parentWidget();
    if (!field || !watchedFields().contains(field))
        return true;
    m_inLeaveCheck = true;
    Check refused;
    const bool ran = runGuarded([&] { refused = leaveCheck(field); });
    if (refused)
        showRefusal(*refused);
    else if (ran)
        verifyChange();
    m_inLeaveCheck = false;
    return ran && !refused;
}

void MaintenanceScreen::ok() {
    if (!leaveFocusedField())
        return;
    Check refused;
    if (!runGuarded([&] { refused = validate(); }))
        return;
    if (refused) {
        showRefusal(*refused);
        return;
    }
    bool written = false;
    {
        BusyCursor busy;
        // Either every statement of the operation lasts or none: a failure leaves the scope
        // with the transaction open, which rolls it back, and the fields keep what was typed.
        written = runGuarded([&] {
            store::Transaction transaction(database());
            write(database());
            transaction.commit();
        });
    }
    if (!written)
        return;
    dialogs().message(kTitle,
                      m_operation.insert ? QStringLiteral("Incluído com Sucesso")
                                         : QStringLiteral("Alterado com Sucesso"),
                      Icon::Information);

    const QString key = newKey();
    if (m_operation.level == 0) {
        const int due = childrenDue();
        if (due > 0)
            session().pendentes = due;
        backToList(key, due > 0);
    } else if (m_operation.insert && countedChain()) {
        session().pendentes -= 1;
        backToList(key, session().pendentes != 0);
    } else {
        backToList(key, m_operation.insert && m_forced);
    }
}

void MaintenanceScreen::cancel() {
    BusyCursor busy;
    backToList(QString(), false);
}

void MaintenanceScreen::backToList(const QString& newKey, bool chain) {
    QWidget* screen =
        ScreenRegistry::instance().create(m_listName, m_host, Sequence::Place{m_listName});
    auto* list = qobject_cast<ListScreen*>(screen);
    if (!list) {
        delete screen;
        m_host.leaveQuestionnaire();
        return;
    }
    list->setNewKeys(m_operation.level == 0 ? newKey : QString(),
                     m_operation.level == 1 ? newKey : QString());
    m_host.showScreen(list);
    list->enter();
    if (chain)
        list->forceDetailInsert();
}

} // namespace ui
