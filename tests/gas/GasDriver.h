#pragma once

#include "PdfText.h"
#include "RegisterFixture.h"
#include "exchange/Cp1252.h"
#include "exchange/Exporter.h"
#include "gas/GasScreens.h"
#include "printing/Memorial.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace testsupport {

// The screens of the vehicle gas equipment driven as a user would, with the rows they stand on
// seeded through the catalogue.
class GasDriver : protected ScreenDriver {
protected:
    // Material codes of the dictionary's line materials.
    static constexpr int kGalvanizado = 11; // "Aço Galvanizado"
    static constexpr int kCobre = 15;       // "Cobre"

    void openList(const QString& name) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }
    // The screen as it shows at the smallest size the program supports.
    void shot(const QString& name) {
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        saveScreenshot(*screen(), name);
    }

    void seedBattery(int nbatri, const QString& ipropr = QStringLiteral("P")) {
        seedRow(db(), "TB_POSTOGASBATRI",
                onRegister({{"NBATRI", nbatri},
                            {"AINSTL", "2010-05-04"},
                            {"QCILND", 8},
                            {"IPROPR", ipropr},
                            {"ISITCA", "A"}}));
    }
    void seedEquipment(std::string_view table, const QString& column, int number) {
        seedRow(db(), table,
                onRegister({{column, number},
                            {"NIDENT", "EQUIPAMENTO"},
                            {"AINSTL", "2011-01-02"},
                            {"IPROPR", "D"},
                            {"ISITCA", "A"}}));
    }
    void seedLink(std::string_view table, const QString& column, int number, int nbatri,
                  int nmatrl = kGalvanizado) {
        seedRow(db(), table,
                onRegister({{column, number}, {"NBATRI", nbatri}, {"NMATRL", nmatrl}}));
    }
    void seedOwner(std::string_view table, const QString& column, int number) {
        seedRow(db(), table,
                onRegister({{column, number},
                            {"DRAZAOSOCIL", "DONO SA"},
                            {"DCONTT", "JOSE"},
                            {"DLOGRD", "RUA A"},
                            {"NLOGRD", 10},
                            {"CCEP", 1310100},
                            {"NMUNCPDISTRFORNC", 100},
                            {"NDDD", 11},
                            {"NTELFN", 33334444}}));
    }

    // Fills the open owner panel with a company of the capital.
    void fillOwner(const QString& company) {
        type(QStringLiteral("txtDRAZAOSOCIL"), company);
        type(QStringLiteral("txtDCONTT"), QStringLiteral("MARIA"));
        type(QStringLiteral("txtDLOGRD"), QStringLiteral("RUA B"));
        type(QStringLiteral("txtNLOGRD"), QStringLiteral("45"));
        type(QStringLiteral("txtCCEP"), QStringLiteral("01310-100"));
        choose(QStringLiteral("cmbNMUNCP"), QStringLiteral("SÃO PAULO"));
        type(QStringLiteral("txtNDDD"), QStringLiteral("11"));
        type(QStringLiteral("txtNTELFN"), QStringLiteral("55556666"));
    }

    // The row of `table` keyed by the register and `where`, column to value; empty when none.
    QVariantMap stored(std::string_view table, store::Row where) {
        return store::readRow(db(), table, onRegister(std::move(where))).value_or(QVariantMap());
    }

    // The register's joined exchange file, decoded, and its memorial's text.
    QString exported() {
        insertEstablishment(db(), {100, 1});
        QTemporaryDir dir;
        const exchange::ExportResult result = exchange::Exporter(db()).run({100, 1}, dir.path());
        QFile file(result.joinedPath);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return exchange::cp1252::decode(file.readAll()).text;
    }
    QString printed() {
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("memorial.pdf"));
        printing::Memorial(db(), {100, 1}, {QStringLiteral("CADASTRO"), {}, {}}).writePdf(pdf);
        return pdfPages(pdf).join(QLatin1Char('\n'));
    }
};

} // namespace testsupport
