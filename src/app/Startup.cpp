#include "app/Startup.h"

#include "ui/Dialogs.h"

namespace app {

void reportIncoming(IncomingOutcome outcome, const QString& databasePath) {
    const QString incoming = incomingDatabasePath(databasePath);
    switch (outcome) {
    case IncomingOutcome::Nothing:
    case IncomingOutcome::MovedInto:
        return;
    case IncomingOutcome::BothKept:
        ui::dialogs().message(
            ui::kTitle,
            QStringLiteral("Há um banco de dados novo aguardando em:\n%1\n\nO banco em uso (%2) "
                           "guarda os seus cadastros e continua sendo usado. Uma versão "
                           "posterior do VOR transferirá os cadastros para o banco novo; até "
                           "lá, os dois arquivos ficam como estão.")
                .arg(incoming, databasePath),
            ui::Icon::Information);
        return;
    case IncomingOutcome::MoveFailed:
        ui::dialogs().message(
            ui::kTitle,
            QStringLiteral("Não foi possível mover o banco de dados novo de\n%1\npara\n%2\n\nO "
                           "arquivo continua onde estava.")
                .arg(incoming, databasePath),
            ui::Icon::Warning);
        return;
    }
}

} // namespace app
