#include "shell/QuestionnaireFrame.h"

#include "shell/RegisterList.h"

#include "ui/Dialogs.h"
#include "ui/Session.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace shell {

QuestionnaireFrame::QuestionnaireFrame(store::Database& db, ui::Session& session, QWidget* parent)
    : QMainWindow(parent)
    , m_db(db)
    , m_session(session) {
    setObjectName(QStringLiteral("MDIForm1"));
    setWindowTitle(QStringLiteral("Caderno Vorel de Empreendimento - [VOR]"));
    setAttribute(Qt::WA_DeleteOnClose);

    QAction* arquivo = menuBar()->addAction(QStringLiteral("&Arquivo"));
    arquivo->setObjectName(QStringLiteral("zMenuArquivo"));
    QAction* sair = menuBar()->addAction(QStringLiteral("&Sair"));
    sair->setObjectName(QStringLiteral("zMenuSair"));
    connect(arquivo, &QAction::triggered, this, &QuestionnaireFrame::backToList);
    connect(sair, &QAction::triggered, this, &QWidget::close);

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_title = new QLabel(central);
    m_title->setObjectName(QStringLiteral("screenTitle"));
    m_title->setStyleSheet(QStringLiteral(
        "QLabel { background: #1f3f66; color: white; font-weight: bold; padding: 6px 12px; }"));
    m_stack = new QStackedWidget(central);
    layout->addWidget(m_title);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    connect(m_stack, &QStackedWidget::currentChanged, this, &QuestionnaireFrame::updateTitle);
    resize(1000, 700);
}

void QuestionnaireFrame::showList() {
    showScreen(new RegisterList(*this));
}

void QuestionnaireFrame::backToList() {
    if (!mayLeaveScreens())
        return;
    // A forced chain left here is over: no children are due any more.
    m_session.pendentes = 0;
    showList();
}

bool QuestionnaireFrame::mayLeaveScreens() {
    bool unsaved = false;
    for (int i = 0; i < m_stack->count(); ++i) {
        if (const auto* screen = qobject_cast<const ui::Screen*>(m_stack->widget(i)))
            unsaved = unsaved || screen->hasUnsavedInput();
    }
    return !unsaved || ui::dialogs().ask(ui::kTitle,
                                         QStringLiteral("Os dados digitados nesta tela ainda não "
                                                        "foram gravados. Deseja abandoná-los?"),
                                         ui::Icon::Question, true);
}

void QuestionnaireFrame::closeEvent(QCloseEvent* event) {
    if (!mayLeaveScreens()) {
        event->ignore();
        return;
    }
    m_session.pendentes = 0;
    QMainWindow::closeEvent(event);
}

void QuestionnaireFrame::showScreen(QWidget* screen) {
    while (m_stack->count() > 0) {
        QWidget* old = m_stack->widget(m_stack->count() - 1);
        m_stack->removeWidget(old);
        old->deleteLater();
    }
    m_stack->addWidget(screen);
    m_stack->setCurrentWidget(screen);
    updateTitle();
}

void QuestionnaireFrame::openOver(QWidget* screen) {
    m_stack->addWidget(screen);
    m_stack->setCurrentWidget(screen);
    updateTitle();
}

void QuestionnaireFrame::closeTop() {
    if (m_stack->count() == 0)
        return;
    QWidget* top = m_stack->widget(m_stack->count() - 1);
    m_stack->removeWidget(top);
    top->deleteLater();
    if (m_stack->count() > 0)
        m_stack->setCurrentIndex(m_stack->count() - 1);
    updateTitle();
}

void QuestionnaireFrame::leaveQuestionnaire() {
    close();
}

void registerScreens() {
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmVOR"), [](ui::ScreenHost& host, const ui::Sequence::Place&) -> QWidget* {
            auto* frame = dynamic_cast<QuestionnaireFrame*>(&host);
            return frame ? new RegisterList(*frame) : nullptr;
        });
}

QWidget* QuestionnaireFrame::currentScreen() const {
    return m_stack->currentWidget();
}

void QuestionnaireFrame::updateTitle() {
    const QWidget* screen = m_stack->currentWidget();
    m_title->setText(screen ? screen->windowTitle() : QString());
}

} // namespace shell
