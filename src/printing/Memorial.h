#pragma once

#include "printing/Catalogue.h"
#include "store/RegisterKey.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <vector>

class QPagedPaintDevice;

namespace store {
class Database;
}

// The printed memorial of a register: every report whose probe finds data, laid out once,
// numbered "Página N de M" over the whole chain, and painted on a printer or into a PDF.
namespace printing {

// What the title band of every page shows besides the register.
struct RunParameters {
    QString kind;     // "CADASTRO" or "LICENCIAMENTO"
    QDate surveyDate; // the survey date, or null when the user prints without it
    QString dateTime; // the protocol's moment, "dd/MM/yyyy HH:mm"; empty in the memorial
};

// "CADASTRO" when the database's filling objective is "C" or none was chosen, otherwise
// "LICENCIAMENTO".
QString reportKind(store::Database& db);

// ALEVNT of the register, or a null date when it is missing.
QDate surveyDate(store::Database& db, const store::RegisterKey& key);

// The moment as the protocol shows it: "dd/MM/yyyy HH:mm".
QString protocolDateTime(const QDateTime& moment);

class Memorial {
public:
    // Runs the probes of the catalogue and reads the data of every report that prints.
    Memorial(store::Database& db, const store::RegisterKey& key, RunParameters parameters);
    // The protocol alone, a one-report document of its own.
    static Memorial protocol(store::Database& db, const store::RegisterKey& key,
                             RunParameters parameters);

    // The layouts that print, in order.
    std::vector<std::string_view> reports() const;
    // The body of a report that prints, as the rich text laid out below its band; empty for a
    // report that does not print.
    QString body(std::string_view id) const;

    // Lays every report out on the paper of `device` and paints the whole chain with
    // continuous page numbers. Returns the number of pages. Throws store::Failure when the
    // device cannot be painted on.
    int print(QPagedPaintDevice& device) const;

    // Prints into a PDF file on A4 paper; returns the number of pages.
    int writePdf(const QString& path) const;

private:
    struct Part {
        const ReportEntry* entry;
        QString html;
    };
    struct Band {
        QString code;
        QString name;
        QString cnpj;
    };
    Memorial() = default;
    void readBand(store::Database& db, const store::RegisterKey& key);

    RunParameters m_parameters;
    Band m_band;
    std::vector<Part> m_parts;
};

// The receipt of an export, printed on `device`; returns the number of pages. Its band says
// "CADASTRO", the only objective that gets a receipt, but stays blank for a resend.
int printProtocol(store::Database& db, const store::RegisterKey& key, const QString& dateTime,
                  QPagedPaintDevice& device, bool resent = false);

// The receipt of an export as a PDF file; returns the number of pages. Throws store::Failure
// when the file cannot be written.
int writeProtocolPdf(store::Database& db, const store::RegisterKey& key, const QString& dateTime,
                     const QString& path, bool resent = false);

} // namespace printing
