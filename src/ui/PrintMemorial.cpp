#include "ui/PrintMemorial.h"

#include "printing/Memorial.h"
#include "store/Failure.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace ui {

namespace {

// The hourglass for the length of a scope, lifted while a dialog waits for the user.
class Hourglass {
public:
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() {
        if (m_on)
            QApplication::restoreOverrideCursor();
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

    void lift() {
        if (m_on)
            QApplication::restoreOverrideCursor();
        m_on = false;
    }
    void drop() {
        if (!m_on)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        m_on = true;
    }

private:
    bool m_on = true;
};

const QString kSurveyQuestion =
    QStringLiteral("Data do Levantamento não está cadastrada!\n"
                   "Existem 2 alternativas:\n"
                   "1) Imprimir o Relatório sem constar a Data de Levantamento.\n"
                   "2) Inserir a data de levantamento, no Preenchimento do Memorial.\n"
                   "\n"
                   "Continuar a impressão?");

QPrinter& a4(QPrinter& printer) {
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setDocName(QStringLiteral("Caderno Vorel de Empreendimento"));
    return printer;
}

} // namespace

bool printMemorial(store::Database& db, const store::RegisterKey& key,
                   const MemorialOutput& output) {
    if (!dialogs().ask(kTitle, QStringLiteral("Confirma a Impressão do Memorial?"), Icon::Question,
                       false))
        return false;
    bool printed = false;
    runGuarded([&] {
        Hourglass hourglass;
        const QString kind = printing::reportKind(db);
        const QDate survey = printing::surveyDate(db, key);
        if (!survey.isValid()) {
            hourglass.lift();
            if (!dialogs().ask(QStringLiteral("Confirmação de Impressão"), kSurveyQuestion,
                               Icon::Question, false))
                return;
            hourglass.drop();
        }
        const printing::Memorial memorial(db, key, {kind, survey, QString()});
        hourglass.lift();
        if (!output(memorial))
            return;
        printed = true;
    });
    if (printed)
        dialogs().message(kTitle, QStringLiteral("Impressão Concluída"), Icon::Information);
    return printed;
}

bool printMemorial(store::Database& db, const store::RegisterKey& key, PrintDestination destination,
                   QWidget* parent) {
    return printMemorial(db, key, [&](const printing::Memorial& memorial) {
        QPrinter printer(QPrinter::HighResolution);
        a4(printer);
        if (destination == PrintDestination::Preview) {
            QPrintPreviewDialog preview(&printer, parent);
            preview.setWindowTitle(QStringLiteral("Memorial - Visualização"));
            QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, [&](QPrinter* target) {
                runGuarded([&] {
                    Hourglass hourglass;
                    memorial.print(*target);
                });
            });
            preview.exec();
            return true;
        }
        QPrintDialog dialog(&printer, parent);
        dialog.setWindowTitle(QStringLiteral("Imprimir Memorial"));
        if (dialog.exec() != QDialog::Accepted)
            return false;
        Hourglass hourglass;
        memorial.print(printer);
        return true;
    });
}

bool printProtocol(store::Database& db, const store::RegisterKey& key, const QDateTime& sent,
                   const QString& pdfPath, bool resent) {
    try {
        Hourglass hourglass;
        const QString moment = printing::protocolDateTime(sent);
        printing::writeProtocolPdf(db, key, moment, pdfPath, resent);
        const QPrinterInfo target = QPrinterInfo::defaultPrinter();
        if (!target.isNull()) {
            QPrinter printer(target, QPrinter::HighResolution);
            printing::printProtocol(db, key, moment, a4(printer), resent);
        }
        return true;
    } catch (const store::Failure& failure) {
        dialogs().message(
            kTitle,
            QStringLiteral("Durante a emissão ocorreu um erro com o seguinte código: ") +
                QString::number(failure.number()),
            Icon::Critical);
        return false;
    }
}

} // namespace ui
