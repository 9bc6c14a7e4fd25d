#pragma once

#include "store/Database.h"
#include "ui/ScreenHost.h"
#include "ui/Session.h"

#include <QPointer>
#include <QTest>

namespace testsupport {

// A frame for the questionnaire's screens in tests: shows one screen at a time at the size of
// the smallest screen the program supports, and records the way out.
class FakeHost : public ui::ScreenHost {
public:
    explicit FakeHost(const QString& databasePath)
        : m_db(databasePath) {}
    ~FakeHost() override { delete m_current.data(); }

    store::Database& database() override { return m_db; }
    ui::Session& session() override { return m_session; }

    void showScreen(QWidget* screen) override {
        QPointer<QWidget> old = m_current;
        if (old)
            old->hide();
        m_current = screen;
        screen->resize(1024, 768);
        screen->show();
        screen->activateWindow();
        // The checks of leaving a field need the focus events of an active window.
        if (!QTest::qWaitForWindowActive(screen, 2000))
            qWarning("the screen did not become active");
        // Only now: the wait deletes what is marked for deletion, and the old screen may be in
        // the middle of the handler that put this one up (a double click in its grid, say).
        if (old)
            old->deleteLater();
    }
    void leaveQuestionnaire() override {
        if (m_current) {
            m_current->hide();
            m_current->deleteLater();
        }
        m_current = nullptr;
        m_left = true;
    }

    QWidget* current() const { return m_current; }
    template <typename T> T* current() const { return qobject_cast<T*>(m_current.data()); }
    bool left() const { return m_left; }

private:
    store::Database m_db;
    ui::Session m_session;
    QPointer<QWidget> m_current;
    bool m_left = false;
};

} // namespace testsupport
