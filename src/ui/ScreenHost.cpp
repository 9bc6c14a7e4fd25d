#include "ui/ScreenHost.h"

#include "ui/Session.h"

namespace ui {

ScreenRegistry& ScreenRegistry::instance() {
    static ScreenRegistry registry;
    return registry;
}

void ScreenRegistry::add(const QString& name, ScreenFactory factory) {
    m_factories.insert(name, std::move(factory));
}

bool ScreenRegistry::contains(const QString& name) const {
    return m_factories.contains(name);
}

QStringList ScreenRegistry::names() const {
    QStringList names = m_factories.keys();
    names.sort();
    return names;
}

QWidget* ScreenRegistry::create(const QString& name, ScreenHost& host,
                                const Sequence::Place& place) const {
    const auto it = m_factories.constFind(name);
    return it == m_factories.constEnd() ? nullptr : (*it)(host, place);
}

Sequence::IsBuilt ScreenRegistry::isBuilt() const {
    return [this](const QString& name) { return contains(name); };
}

QWidget* showPlace(ScreenHost& host, const Sequence::Place& place) {
    QWidget* screen = place.screen.isEmpty()
                          ? nullptr
                          : ScreenRegistry::instance().create(place.screen, host, place);
    if (!screen) {
        host.leaveQuestionnaire();
        return nullptr;
    }
    host.showScreen(screen);
    if (auto* s = qobject_cast<Screen*>(screen))
        s->enter();
    return screen;
}

QWidget* showNext(ScreenHost& host, const Sequence::Place& from) {
    const ScreenRegistry& registry = ScreenRegistry::instance();
    return showPlace(host, Sequence::next(from, host.session().objective(), registry.isBuilt()));
}

QWidget* showPrevious(ScreenHost& host, const Sequence::Place& from) {
    const ScreenRegistry& registry = ScreenRegistry::instance();
    return showPlace(host,
                     Sequence::previous(from, host.session().objective(), registry.isBuilt()));
}

} // namespace ui
