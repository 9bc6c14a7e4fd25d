#pragma once

#include "ui/ScreenHost.h"

#include <QMainWindow>

class QLabel;
class QStackedWidget;

namespace store {
class Database;
}
namespace ui {
struct Session;
}

namespace shell {

// MDIForm1: the frame of the questionnaire. It holds one screen of the chain at a time; a
// screen opened from another one (the register form over the list) lies on top of it until it
// closes, and the one below comes back as it was. Closing the frame ends the questionnaire and
// the main screen is in front again.
class QuestionnaireFrame : public QMainWindow, public ui::ScreenHost {
    Q_OBJECT

public:
    QuestionnaireFrame(store::Database& db, ui::Session& session, QWidget* parent = nullptr);

    store::Database& database() override { return m_db; }
    ui::Session& session() override { return m_session; }

    // Shows the register list (frmVOR), alone in the frame.
    void showList();
    // Shows `screen` alone in the frame; the screens it replaces are destroyed.
    void showScreen(QWidget* screen) override;
    // Voltar of the list and Continuar of the last screen: the frame closes.
    void leaveQuestionnaire() override;
    // Shows `screen` over the current one.
    void openOver(QWidget* screen);
    // Destroys the screen on top; the one below is shown again (and so reloads itself).
    void closeTop();
    // The screen in front, or null.
    QWidget* currentScreen() const;
    // Whether the screens may go: true when none holds unsaved input, or when the user agrees
    // to abandon it.
    bool mayLeaveScreens();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void updateTitle();
    void backToList();

    store::Database& m_db;
    ui::Session& m_session;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_title = nullptr;
};

// Puts the shell's screens of the chain (the register list) into the screen registry.
void registerScreens();

} // namespace shell
