#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace ui {

// The questionnaire's fixed chain of screens. Every screen asks it for its neighbours; none
// names them itself. Two steps depend on the filling objective (a project, objective 2 to 4,
// has no equipment yet and jumps from the land use straight to the delivery declaration),
// and the stock-control screen serves both systems, in the role that brought the user there.
class Sequence {
public:
    enum class Role { None, Underground, Aboveground };

    struct Place {
        QString screen; // empty: out of the questionnaire, back to the main screen
        Role role = Role::None;
        friend bool operator==(const Place&, const Place&) = default;
    };

    using IsBuilt = std::function<bool(const QString& screen)>;

    // The 29 screens of the chain in their order, the register list first.
    static const QStringList& screens();

    // Where Continuar and Voltar lead from `from`. Screens that `isBuilt` denies are passed
    // over in the same direction; without `isBuilt` every screen counts as built.
    static Place next(const Place& from, int objetivo, const IsBuilt& isBuilt = {});
    static Place previous(const Place& from, int objetivo, const IsBuilt& isBuilt = {});
};

} // namespace ui
