#pragma once

#include "support/FakeHost.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ScreenHost.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

namespace testsupport {

// Drives the screens of the questionnaire as a user would, one test at a time: a scratch
// database in a host with register 100/1 open, scripted dialogs, and the small moves of the
// user (type and leave, choose, click, pick a grid row) on whatever screen is up.
class ScreenDriver {
protected:
    std::unique_ptr<TestEnvironment> m_env;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<ScriptedDialogs> m_dialogs;

    // For a test's init(): a fresh database and session.
    void start() {
        m_env = std::make_unique<TestEnvironment>();
        m_host = std::make_unique<FakeHost>(m_env->newDatabasePath());
        ui::Session& s = m_host->session();
        s.nmuncp = 100;
        s.nseqnc = 1;
        s.ainfrm = QDate(2024, 1, 10);
        s.razaoSocial = QStringLiteral("AUTO POSTO TESTE LTDA");
        s.objetivo = 0;
        m_dialogs = std::make_unique<ScriptedDialogs>();
    }
    // For a test's cleanup(): the screens go before their database.
    void stop() {
        m_dialogs.reset();
        m_host.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_env.reset();
    }

    store::Database& db() { return m_host->database(); }

    QWidget* screen() {
        QWidget* s = m_host->current();
        if (!s)
            qFatal("no screen up");
        return s;
    }
    template <typename T> T* find(const QString& name) {
        T* w = screen()->findChild<T*>(name);
        if (!w)
            qFatal("no %s on %s", qPrintable(name), qPrintable(screen()->objectName()));
        return w;
    }
    QPushButton* button(const QString& name) { return find<QPushButton>(name); }
    void click(const QString& name) {
        QPushButton* b = button(name);
        QVERIFY2(b->isEnabled(), qPrintable(name + " is disabled"));
        b->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // Types into a field and leaves it, as the user's Tab would.
    void type(const QString& name, const QString& text) {
        auto* edit = find<QLineEdit>(name);
        edit->setFocus(Qt::TabFocusReason);
        edit->setText(text);
        leave(edit);
    }
    void choose(const QString& name, const QString& text) {
        auto* combo = find<QComboBox>(name);
        combo->setFocus(Qt::TabFocusReason);
        const int index = combo->findText(text);
        QVERIFY2(index >= 0, qPrintable(text + " is not in " + name));
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        leave(combo);
    }
    void leave(QWidget* field) {
        if (field->hasFocus())
            field->clearFocus();
    }
    QStringList items(const QString& name) {
        QStringList texts;
        auto* combo = find<QComboBox>(name);
        for (int i = 0; i < combo->count(); ++i)
            texts << combo->itemText(i);
        return texts;
    }
    void selectLevel(int level) {
        find<QRadioButton>(QStringLiteral("optOperacao_%1").arg(level))->click();
    }
    // Rows count from 1, as the grid's own rows below its heading.
    void selectRow(const QString& grid, int row) {
        auto* g = find<QTableWidget>(grid);
        g->setCurrentCell(row - 1, 0);
        emit g->cellClicked(row - 1, 0);
    }
    int dataRows(const QString& grid) { return find<QTableWidget>(grid)->rowCount(); }
    QStringList column(const QString& grid, int c) {
        QStringList cells;
        auto* g = find<QTableWidget>(grid);
        for (int r = 0; r < g->rowCount(); ++r)
            cells << g->item(r, c)->text();
        return cells;
    }
    QStringList headings(const QString& grid) {
        QStringList texts;
        auto* g = find<QTableWidget>(grid);
        for (int c = 0; c < g->columnCount(); ++c)
            texts << g->horizontalHeaderItem(c)->text();
        return texts;
    }
    int count(const QString& sql) { return db().scalar(sql).toInt(); }

    // Every message shown so far as "icon: text".
    QStringList messages() {
        QStringList shown;
        for (const auto& s : m_dialogs->shown())
            shown << iconName(s.icon) + QStringLiteral(": ") + s.text;
        return shown;
    }
    static QString iconName(ui::Icon icon) {
        switch (icon) {
        case ui::Icon::Critical:
            return QStringLiteral("critical");
        case ui::Icon::Information:
            return QStringLiteral("information");
        case ui::Icon::Question:
            return QStringLiteral("question");
        default:
            return QStringLiteral("other");
        }
    }
};

} // namespace testsupport
