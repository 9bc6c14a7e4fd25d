#pragma once

#include "store/RegisterKey.h"

#include <QDateTime>
#include <QString>
#include <functional>

class QWidget;

namespace printing {
class Memorial;
}
namespace store {
class Database;
}

// The print run of a register's memorial and the printing of the export's protocol, with their
// questions, the hourglass and the closing message.
namespace ui {

enum class PrintDestination {
    Printer, // the system's print dialog, which also offers printing into a PDF file
    Preview, // a preview window, from which the user may print
};

// What the run does with the laid out memorial: true when it went out, false when the user
// gave up in a dialog of the destination.
using MemorialOutput = std::function<bool(const printing::Memorial&)>;

// The whole run: "Confirma a Impressão do Memorial?", the question on a missing survey date,
// the memorial handed to `output`, then "Impressão Concluída". Failures go through the error
// routine. Returns true when the memorial went out.
bool printMemorial(store::Database& db, const store::RegisterKey& key,
                   const MemorialOutput& output);

// The same run to a destination of the screen's choice.
bool printMemorial(store::Database& db, const store::RegisterKey& key, PrintDestination destination,
                   QWidget* parent);

// The receipt of an export: written as a PDF at `pdfPath` and sent to the default printer when
// the machine has one, with the moment of `sent`. A failure shows "Durante a emissão ocorreu
// um erro com o seguinte código: " and its number. Returns true when nothing failed.
bool printProtocol(store::Database& db, const store::RegisterKey& key, const QDateTime& sent,
                   const QString& pdfPath, bool resent = false);

} // namespace ui
