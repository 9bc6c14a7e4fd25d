#pragma once

#include "exchange/Mail.h"
#include "store/RegisterKey.h"

#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace store {
class Database;
}

// The export of one register as the user runs it: the export, its failure messages, the mail
// question, the send and the protocol. Both entries (the main screen and the register list)
// call runExportWithQuestions.
namespace ui {

// What the main screen shows while the export runs.
inline const QString kExportWaitText =
    QStringLiteral("Aguarde enquanto os dados são exportados...");

struct ExportRunOptions {
    // The progress bar: one step per table, one more for the mail step; `steps` is the total.
    std::function<void(int step, int steps)> progress;
    // The writing of the files is over, done or failed: the wait text goes before any message
    // or question comes up.
    std::function<void()> written;
    // Prints the protocol page after a send, when the objective wants one; empty: none.
    exchange::ProtocolPrinter printProtocol;
    // The mail settings; the program's own settings when empty.
    std::optional<exchange::MailSettings> mail;
    exchange::MailSender sender = exchange::sendMail;
};

struct ExportRunOutcome {
    bool exported = false; // the joined file is in place
    bool mailed = false;   // and was sent
    QString joinedPath;
};

// Runs the export of `key` into `directory`. Every failure is shown here, through dialogs():
// the file failures with the title "VOR" and a stop icon, the database ones through the error
// routine. Then asks whether to mail the file and, on Yes, sends it.
ExportRunOutcome runExportWithQuestions(store::Database& db, const store::RegisterKey& key,
                                        const QString& directory,
                                        const ExportRunOptions& options = {});

// The question of the register list before its export; true for Yes.
bool confirmExportTo(const QString& directory);

// The directory chooser of the register list's export; nothing when the user closes it.
std::optional<QString> chooseExportDirectory(QWidget* parent, const QString& start);

} // namespace ui
