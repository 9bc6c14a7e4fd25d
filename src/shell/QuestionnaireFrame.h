#pragma once

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
class QuestionnaireFrame : public QMainWindow {
    Q_OBJECT

public:
    QuestionnaireFrame(store::Database& db, ui::Session& session, QWidget* parent = nullptr);

    store::Database& database() { return m_db; }
    ui::Session& session() { return m_session; }

    // Shows the register list (frmVOR), alone in the frame.
    void showList();
    // Shows `screen` alone in the frame; the screens it replaces are destroyed.
    void showScreen(QWidget* screen);
    // Shows `screen` over the current one.
    void openOver(QWidget* screen);
    // Destroys the screen on top; the one below is shown again (and so reloads itself).
    void closeTop();
    // The screen in front, or null.
    QWidget* currentScreen() const;

private:
    void updateTitle();

    store::Database& m_db;
    ui::Session& m_session;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_title = nullptr;
};

} // namespace shell
