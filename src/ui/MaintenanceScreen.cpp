#include "ui/MaintenanceScreen.h"

#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/FormParts.h"
#include "ui/HeaderBand.h"
#include "ui/Session.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

MaintenanceScreen::MaintenanceScreen(ScreenHost& host, QString listName,
                                     QList<Operation> operations, QWidget* parent)
    : EditScreen(host.database(), host.session(), parent)
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
    m_ok = editButton(QStringLiteral("cmdOk"), QStringLiteral("&Ok"), this);
    m_cancelar = editButton(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"), this);
    m_fechar = editButton(QStringLiteral("cmdFechar"), QStringLiteral("&Fechar"), this);
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancelar);
    buttons->addWidget(m_fechar);
    layout->addLayout(buttons);

    connect(m_ok, &QPushButton::clicked, this, &MaintenanceScreen::ok);
    connect(m_cancelar, &QPushButton::clicked, this, &MaintenanceScreen::cancel);
    connect(m_fechar, &QPushButton::clicked, this, &MaintenanceScreen::cancel);
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
    watchFields();
    QWidget* first = nullptr;
    runGuarded([&] { first = arrangePanels(); });
    if (first)
        first->setFocus(Qt::OtherFocusReason);
    takeSnapshot();
    m_ok->setEnabled(!m_operation.tracksChanges);
    m_cancelar->setEnabled(false);
    m_fechar->setEnabled(true);
    if (m_forced)
        m_fechar->setEnabled(!countedChain() && chainMayClose(m_rows));
}

bool MaintenanceScreen::chainMayClose(const ListSelection& /*rows*/) const {
    return false;
}

bool MaintenanceScreen::outsideFields(const QWidget* widget) const {
    return m_header->isAncestorOf(widget);
}

void MaintenanceScreen::changeShown(bool changed) {
    m_ok->setEnabled(changed);
    m_cancelar->setEnabled(changed);
    m_fechar->setEnabled(!changed);
}

void MaintenanceScreen::ok() {
    if (!save())
        return;
    dialogs().message(kTitle, savedMessage(), Icon::Information);

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

QString MaintenanceScreen::savedMessage() const {
    return m_operation.insert ? QStringLiteral("Incluído com Sucesso")
                              : QStringLiteral("Alterado com Sucesso");
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
