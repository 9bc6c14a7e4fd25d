#pragma once

#include "ui/Sequence.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>

namespace store {
class Database;
}

namespace ui {

struct Session;

// A screen of the questionnaire that does its loading when it comes up rather than when it is
// built, so that whoever builds it can hand it what it must know first (the key of a row just
// inserted, say). The host calls enter() right after showing it.
class Screen : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    virtual void enter() {}
    // Whether leaving the screen now would lose what the user typed.
    virtual bool hasUnsavedInput() const { return false; }
};

// The frame in which the questionnaire's screens come up one at a time. The screens only ask it
// to put a screen up or to end the questionnaire; where the screens of the chain lie is the
// business of the Sequence and the ScreenRegistry.
class ScreenHost {
public:
    virtual ~ScreenHost() = default;

    virtual store::Database& database() = 0;
    virtual Session& session() = 0;

    // Puts `screen` up alone; the screen that was up is destroyed once control returns to the
    // event loop, so that a handler of the old screen may still finish.
    virtual void showScreen(QWidget* screen) = 0;
    // Ends the questionnaire: the frame closes and the main screen is in front again.
    virtual void leaveQuestionnaire() = 0;
};

// Builds the screen of one place of the chain (the place carries the stock-control role).
using ScreenFactory = std::function<QWidget*(ScreenHost& host, const Sequence::Place& place)>;

// The screens that exist, by the names of the chain. The Sequence passes over a name that has
// no factory, so the chain can be walked while screens are still being added.
class ScreenRegistry {
public:
    static ScreenRegistry& instance();

    void add(const QString& name, ScreenFactory factory);
    bool contains(const QString& name) const;
    QStringList names() const;
    // Null for a name without a factory.
    QWidget* create(const QString& name, ScreenHost& host, const Sequence::Place& place) const;
    // The test that the Sequence uses to pass over the screens not built.
    Sequence::IsBuilt isBuilt() const;

private:
    QHash<QString, ScreenFactory> m_factories;
};

// Shows the screen of `place` in `host`, or ends the questionnaire for the empty place. Returns
// the screen put up, or null.
QWidget* showPlace(ScreenHost& host, const Sequence::Place& place);

// Continuar and Voltar of a screen of the chain.
QWidget* showNext(ScreenHost& host, const Sequence::Place& from);
QWidget* showPrevious(ScreenHost& host, const Sequence::Place& from);

} // namespace ui
