#pragma once

#include "ui/Dialogs.h"

#include <QList>
#include <QQueue>
#include <QString>
#include <functional>

namespace testsupport {

// Records every message and answers every question from a script. A question or input that the
// script did not foresee fails the running test.
class ScriptedDialogs : public ui::Dialogs {
public:
    struct Shown {
        enum class Kind { Message, Question, Input } kind;
        QString title;
        QString text;
        ui::Icon icon;
        bool defaultNo = false;
    };

    ScriptedDialogs();
    ~ScriptedDialogs() override;

    void answer(bool yes) { m_answers.enqueue(yes); }
    void type(const std::optional<QString>& text) { m_inputs.enqueue(text); }
    // Called as each dialog comes up, to look at the screens behind it at that moment.
    void watch(std::function<void(const Shown&)> watcher) { m_watch = std::move(watcher); }

    const QList<Shown>& shown() const { return m_shown; }
    QStringList texts() const;
    const Shown& last() const { return m_shown.last(); }
    void clear() { m_shown.clear(); }
    int pendingAnswers() const { return int(m_answers.size() + m_inputs.size()); }

    void message(const QString& title, const QString& text, ui::Icon icon) override;
    bool ask(const QString& title, const QString& text, ui::Icon icon, bool defaultNo) override;
    std::optional<QString> input(const QString& title, const QString& prompt, bool secret) override;

private:
    QList<Shown> m_shown;
    QQueue<bool> m_answers;
    QQueue<std::optional<QString>> m_inputs;
    std::function<void(const Shown&)> m_watch;
    ui::DialogsOverride m_override;
};

} // namespace testsupport
