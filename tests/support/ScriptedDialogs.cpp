#include "support/ScriptedDialogs.h"

#include <QTest>

namespace testsupport {

ScriptedDialogs::ScriptedDialogs()
    : m_override(*this) {}

ScriptedDialogs::~ScriptedDialogs() = default;

QStringList ScriptedDialogs::texts() const {
    QStringList result;
    for (const Shown& s : m_shown)
        result << s.text;
    return result;
}

void ScriptedDialogs::message(const QString& title, const QString& text, ui::Icon icon) {
    m_shown.append({Shown::Kind::Message, title, text, icon});
    if (m_watch)
        m_watch(m_shown.last());
}

bool ScriptedDialogs::ask(const QString& title, const QString& text, ui::Icon icon,
                          bool defaultNo) {
    m_shown.append({Shown::Kind::Question, title, text, icon, defaultNo});
    if (m_watch)
        m_watch(m_shown.last());
    if (m_answers.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("unscripted question: ") + text), __FILE__,
                     __LINE__);
        return false;
    }
    return m_answers.dequeue();
}

std::optional<QString> ScriptedDialogs::input(const QString& title, const QString& prompt,
                                              bool /*secret*/) {
    m_shown.append({Shown::Kind::Input, title, prompt, ui::Icon::None});
    if (m_watch)
        m_watch(m_shown.last());
    if (m_inputs.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("unscripted input: ") + prompt), __FILE__, __LINE__);
        return std::nullopt;
    }
    return m_inputs.dequeue();
}

} // namespace testsupport
