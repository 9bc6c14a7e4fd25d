// The memorial as the agency reads it: which reports print, in what order, with what page line.
#include "PdfText.h"
#include "RegisterFixture.h"
#include "printing/Catalogue.h"
#include "printing/Memorial.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "support/TestEnvironment.h"

#include <QTest>
#include <functional>

using testsupport::fillRegister;
using testsupport::insertEstablishment;
using testsupport::insertRow;

namespace {

const store::RegisterKey kKey{100, 7};

QStringList catalogueIds() {
    QStringList ids;
    for (const printing::ReportEntry& e : printing::catalogue())
        ids << QString::fromUtf8(e.id.data(), qsizetype(e.id.size()));
    return ids;
}

QStringList idsOf(const printing::Memorial& memorial) {
    QStringList ids;
    for (std::string_view id : memorial.reports())
        ids << QString::fromUtf8(id.data(), qsizetype(id.size()));
    return ids;
}

// The layout name of each page, and the page line of each page, read back from the PDF.
struct Printed {
    QStringList reports;
    QStringList pageLines;
    QStringList texts;
};

Printed readBack(const QString& path) {
    Printed printed;
    printed.texts = testsupport::pdfPages(path);
    static const QRegularExpression line(QStringLiteral("Página \\d+ de \\d+"));
    for (const QString& text : printed.texts) {
        printed.reports << testsupport::reportOfPage(text);
        printed.pageLines << line.match(text).captured();
    }
    return printed;
}

// The first page (from 1) on which each report appears, in the order of the document.
QList<QPair<QString, int>> firstPages(const Printed& printed) {
    QList<QPair<QString, int>> starts;
    for (int i = 0; i < printed.reports.size(); ++i) {
        if (i == 0 || printed.reports[i] != printed.reports[i - 1])
            starts << qMakePair(printed.reports[i], i + 1);
    }
    return starts;
}

using Setup = std::function<void(store::Database&)>;

} // namespace

Q_DECLARE_METATYPE(Setup)

class TestPrinting : public QObject {
    Q_OBJECT

private slots:
    void registerWithoutSatelliteRowsPrintsTheIdentificationAlone() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        insertEstablishment(db, kKey);
        const printing::Memorial memorial(db, kKey, {QStringLiteral("CADASTRO"), {}, {}});
        QCOMPARE(idsOf(memorial), QStringList{QStringLiteral("rpt01_ident")});

        const QString pdf = env.path(QStringLiteral("alone.pdf"));
        QCOMPARE(memorial.writePdf(pdf), 1);
        const Printed printed = readBack(pdf);
        QCOMPARE(printed.texts.size(), 1);
        QCOMPARE(printed.pageLines, QStringList{QStringLiteral("Página 1 de 1")});
        QCOMPARE(printed.reports, QStringList{QStringLiteral("rpt01_ident")});
        // No ligature: the words come back out of the PDF as they went in.
        QVERIFY(printed.texts[0].contains(QStringLiteral("Identificação do Empreendimento")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("CADASTRO")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("11.222.333/0001-81")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("1000007")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("15/03/2024")));
    }

    void filledRegisterPrintsAllReportsInOrderWithContinuousPages() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        fillRegister(db, kKey);
        db.run(QStringLiteral("INSERT INTO TB_VORpMOVMN (IMOVMN) VALUES ('LF')"));
        const printing::Memorial memorial(
            db, kKey, {printing::reportKind(db), printing::surveyDate(db, kKey), {}});
        QCOMPARE(idsOf(memorial), catalogueIds());

        const QString pdf = qEnvironmentVariableIsEmpty("VOR_SAMPLE_PDF")
                                ? env.path(QStringLiteral("full.pdf"))
                                : qEnvironmentVariable("VOR_SAMPLE_PDF");
        const int pages = memorial.writePdf(pdf);
        const Printed printed = readBack(pdf);
        QCOMPARE(printed.texts.size(), pages);
        QStringList expectedLines;
        for (int page = 1; page <= pages; ++page)
            expectedLines << QStringLiteral("Página %1 de %2").arg(page).arg(pages);
        QCOMPARE(printed.pageLines, expectedLines);

        QStringList order;
        for (const auto& start : firstPages(printed))
            order << start.first;
        QCOMPARE(order, catalogueIds());
        QVERIFY(printed.texts[0].contains(QStringLiteral("LICENCIAMENTO")));
    }

    void aLongReportPushesTheNextReportsFirstPage() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        fillRegister(db, kKey, 8);
        const printing::Memorial memorial(db, kKey, {QStringLiteral("CADASTRO"), {}, {}});
        const QString pdf = env.path(QStringLiteral("long.pdf"));
        const int pages = memorial.writePdf(pdf);
        const Printed printed = readBack(pdf);
        const QList<QPair<QString, int>> starts = firstPages(printed);
        QCOMPARE(starts.value(0), qMakePair(QStringLiteral("rpt01_ident"), 1));
        QCOMPARE(starts.value(1), qMakePair(QStringLiteral("rpt03_distrfornc"), 2));
        // The distributors take two pages, so the general characteristics begin on page 4 and
        // say so, as does every page up to the last.
        QCOMPARE(starts.value(2), qMakePair(QStringLiteral("rpt02_carct"), 4));
        QCOMPARE(printed.pageLines.value(3), QStringLiteral("Página 4 de %1").arg(pages));
        QCOMPARE(printed.pageLines.value(2), QStringLiteral("Página 3 de %1").arg(pages));
    }

    void aFirstReportOfTwoPagesNumbersTheNextOneThree() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        fillRegister(db, kKey);
        // An activity described at length takes the identification over a second page.
        QStringList words;
        for (int i = 0; i < 160; ++i)
            words << QStringLiteral("COMERCIO%1").arg(i);
        db.run(QStringLiteral("UPDATE EMPRS SET DATIVD = ?"), {words.join(QLatin1Char(' '))});
        const printing::Memorial memorial(db, kKey, {QStringLiteral("CADASTRO"), {}, {}});
        const QString pdf = env.path(QStringLiteral("first-long.pdf"));
        const int pages = memorial.writePdf(pdf);
        const Printed printed = readBack(pdf);
        const QList<QPair<QString, int>> starts = firstPages(printed);
        QCOMPARE(starts.value(0), qMakePair(QStringLiteral("rpt01_ident"), 1));
        QCOMPARE(starts.value(1).second, 3);
        QCOMPARE(printed.pageLines.value(1), QStringLiteral("Página 2 de %1").arg(pages));
        QCOMPARE(printed.pageLines.value(2), QStringLiteral("Página 3 de %1").arg(pages));
    }

    void aLongTableRepeatsItsHeadingOnEveryPage() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        insertEstablishment(db, kKey);
        for (int i = 1; i <= 90; ++i) {
            insertRow(db, "TB_POSTOMOVMN",
                      {{"NMUNCP", kKey.nmuncp},
                       {"NSEQNC", kKey.nseqnc},
                       {"NCOMBS", 101},
                       {"NSEQNCCOMBS", i},
                       {"QCOMBS", 1000 + i},
                       {"CUNIDDMEDDA", 2310}});
        }
        const printing::Memorial memorial(db, kKey, {QStringLiteral("CADASTRO"), {}, {}});
        const QString pdf = qEnvironmentVariableIsEmpty("VOR_SAMPLE_TABLE_PDF")
                                ? env.path(QStringLiteral("table.pdf"))
                                : qEnvironmentVariable("VOR_SAMPLE_TABLE_PDF");
        const int pages = memorial.writePdf(pdf);
        QVERIFY(pages >= 3);
        const Printed printed = readBack(pdf);
        for (int page = 1; page < pages; ++page) {
            QCOMPARE(printed.reports[page], QStringLiteral("rpt25_movmnmensalmedia"));
            QVERIFY2(printed.texts[page].contains(QStringLiteral("Produto - Outros")),
                     qPrintable(QStringLiteral("page %1 lacks the heading").arg(page + 1)));
        }
        // Every row is there once, across the pages.
        const QString all = printed.texts.join(QLatin1Char('\n'));
        QCOMPARE(all.count(QStringLiteral("Gasolina Comum")), 90);
        QVERIFY(all.contains(QStringLiteral("1.090,00")));
    }

    void probes_data() {
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<QString>("report");
        QTest::addColumn<bool>("prints");

        const Setup filled = [](store::Database& db) { fillRegister(db, kKey); };
        const Setup bare = [](store::Database& db) { insertEstablishment(db, kKey); };
        auto then = [](Setup first, QString sql) -> Setup {
            return [first, sql](store::Database& db) {
                first(db);
                db.run(sql, {kKey.nmuncp, kKey.nseqnc});
            };
        };
        auto withRow = [bare](const char* table) -> Setup {
            return [bare, table](store::Database& db) {
                bare(db);
                insertRow(db, table,
                          {{"NMUNCP", kKey.nmuncp}, {"NSEQNC", kKey.nseqnc}, {"SCONCR", -1}});
            };
        };

        QTest::newRow("opening hour set") << filled << "rpt02_carct" << true;
        QTest::newRow("opening hour Null")
            << then(filled,
                    QStringLiteral(
                        "UPDATE TB_POSTO SET HINICIFUNCM = NULL WHERE NMUNCP = ? AND NSEQNC = ?"))
            << "rpt02_carct" << false;
        QTest::newRow("first underground tank protected")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET SSISTMPROTC = NULL WHERE "
                                           "NTANQU = 2 AND NMUNCP = ? AND NSEQNC = ?"))
            << "rpt16_protccatdc" << true;
        // What was typed for any tank is printed, not only the first tank's.
        QTest::newRow("only a later underground tank protected")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET SSISTMPROTC = NULL WHERE "
                                           "NTANQU = 1 AND ITANQU = 'S' AND NMUNCP = ? AND "
                                           "NSEQNC = ?"))
            << "rpt16_protccatdc" << true;
        QTest::newRow("no underground tank protected")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET SSISTMPROTC = NULL WHERE "
                                           "ITANQU = 'S' AND NMUNCP = ? AND NSEQNC = ?"))
            << "rpt16_protccatdc" << false;
        QTest::newRow("protection answered No still prints")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET SSISTMPROTC = 'N' WHERE "
                                           "NMUNCP = ? AND NSEQNC = ?"))
            << "rpt16_protccatdc" << true;
        QTest::newRow("no service area") << bare << "rpt26_areasserv" << false;
        QTest::newRow("operating area")
            << withRow("TB_POSTOAREAABAST") << "rpt26_areasserv" << true;
        QTest::newRow("unloading area only")
            << withRow("TB_POSTOAREADESCARGA") << "rpt26_areasserv" << true;
        QTest::newRow("washing area only")
            << withRow("TB_POSTOAREALAVAGEM") << "rpt26_areasserv" << true;
        QTest::newRow("oil change area only")
            << withRow("TB_POSTOAREATROCAOLEO") << "rpt26_areasserv" << true;
        QTest::newRow("tanks of others only, own report")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET IPROPR = 'O' WHERE "
                                           "NMUNCP = ? AND NSEQNC = ?"))
            << "rpt04_tanqusubtr" << false;
        QTest::newRow("tanks of others only, others' report")
            << then(filled, QStringLiteral("UPDATE TB_POSTOTANQU SET IPROPR = 'O' WHERE "
                                           "NMUNCP = ? AND NSEQNC = ?"))
            << "rpt06_tanqusubtrpropr" << true;
        QTest::newRow("aboveground stock control is not the underground one")
            << then(filled, QStringLiteral("DELETE FROM TB_POSTOCONTRESTQU WHERE ITANQU = 'S' "
                                           "AND NMUNCP = ? AND NSEQNC = ?"))
            << "rpt12_contrestqusubtr" << false;
        QTest::newRow("gas compressors of the distributor") << filled << "rpt21_compr" << true;
        QTest::newRow("another register's rows do not count")
            << then(bare, QStringLiteral("INSERT INTO TB_POSTORUIDO (NMUNCP, NSEQNC, IFONTE) "
                                         "VALUES (?, ? + 1, 'A')"))
            << "rpt35_ruidos" << false;
    }

    void probes() {
        QFETCH(Setup, setup);
        QFETCH(QString, report);
        QFETCH(bool, prints);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        setup(db);
        QCOMPARE(printing::probe(db, printing::entry(report.toStdString()), kKey), prints);
    }

    void values_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        using K = printing::Format::Kind;
        QTest::newRow("date") << int(K::Date) << QVariant("2024-03-05") << "05/03/2024";
        QTest::newRow("date that is no date") << int(K::Date) << QVariant("ontem") << "ontem";
        QTest::newRow("time") << int(K::Time) << QVariant("06:30:00") << "06:30";
        QTest::newRow("decimal") << int(K::Decimal) << QVariant(1234.5) << "1.234,50";
        QTest::newRow("decimal Null") << int(K::Decimal) << QVariant() << "";
        QTest::newRow("flag true as stored") << int(K::YesNo) << QVariant(-1) << "Sim";
        QTest::newRow("flag true as one") << int(K::YesNo) << QVariant(1) << "Sim";
        QTest::newRow("flag false") << int(K::YesNo) << QVariant(0) << "Não";
        QTest::newRow("ticked box") << int(K::Ticked) << QVariant("R") << "Sim";
        QTest::newRow("unticked box") << int(K::Ticked) << QVariant() << "Não";
        QTest::newRow("cnpj without leading zero")
            << int(K::Cnpj) << QVariant(1222333000181LL) << "01.222.333/0001-81";
        QTest::newRow("cpf") << int(K::CpfCnpj) << QVariant(12345678909LL) << "123.456.789-09";
        QTest::newRow("cep") << int(K::Cep) << QVariant(1310100) << "01310-100";
        QTest::newRow("zero means none") << int(K::ZeroBlank) << QVariant(0) << "";
        QTest::newRow("phone") << int(K::Phone) << QVariant(32145678) << "(011) 3214-5678";
    }

    void values() {
        QFETCH(int, kind);
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        printing::Format format;
        format.kind = printing::Format::Kind(kind);
        format.extra = "NDDD";
        QCOMPARE(printing::formatValue(db, format, value, {{QStringLiteral("NDDD"), 11}}), shown);
    }

    void codesShowAsTheirWordsAndUnknownCodesAsStored() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        printing::Format fuel;
        fuel.kind = printing::Format::Kind::Lookup;
        fuel.table = "DICNRCOMBS";
        fuel.text = "DCOMBS";
        fuel.keys = {{"NCOMBS", {}}};
        QCOMPARE(printing::formatValue(db, fuel, 101, {}), QStringLiteral("Gasolina Comum"));
        QCOMPARE(printing::formatValue(db, fuel, 999, {}), QStringLiteral("999"));
        printing::Format owner;
        owner.kind = printing::Format::Kind::Map;
        owner.labels = {{QStringLiteral("P"), QStringLiteral("Proprietário")}};
        QCOMPARE(printing::formatValue(db, owner, QStringLiteral("P"), {}),
                 QStringLiteral("Proprietário"));
        QCOMPARE(printing::formatValue(db, owner, QStringLiteral("X"), {}), QStringLiteral("X"));
    }

    void protocolIsOnePageWithTheMomentOfSending() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        fillRegister(db, kKey);
        const QString pdf = qEnvironmentVariableIsEmpty("VOR_SAMPLE_PROTOCOL_PDF")
                                ? env.path(QStringLiteral("protocolo.pdf"))
                                : qEnvironmentVariable("VOR_SAMPLE_PROTOCOL_PDF");
        const QString moment =
            printing::protocolDateTime(QDateTime(QDate(2024, 4, 2), QTime(9, 5, 31)));
        QCOMPARE(moment, QStringLiteral("02/04/2024 09:05"));
        QCOMPARE(printing::writeProtocolPdf(db, kKey, moment, pdf), 1);
        const Printed printed = readBack(pdf);
        QCOMPARE(printed.reports, QStringList{QStringLiteral("rpt36_protocolo")});
        QCOMPARE(printed.pageLines, QStringList{QStringLiteral("Página 1 de 1")});
        QVERIFY(printed.texts[0].contains(QStringLiteral("02/04/2024 09:05")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("BOA VIAGEM LTDA")));
        QVERIFY(printed.texts[0].contains(QStringLiteral("CADASTRO")));
        // The receipt of a resend leaves the kind blank.
        QCOMPARE(printing::writeProtocolPdf(db, kKey, moment, pdf, true), 1);
        QVERIFY(!readBack(pdf).texts[0].contains(QStringLiteral("CADASTRO")));
    }

    void unwritablePdfIsAFailureNotASilentLoss() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        insertEstablishment(db, kKey);
        const printing::Memorial memorial(db, kKey, {QStringLiteral("CADASTRO"), {}, {}});
        bool failed = false;
        try {
            memorial.writePdf(env.path(QStringLiteral("no/such/dir/x.pdf")));
        } catch (const store::Failure&) {
            failed = true;
        }
        QVERIFY(failed);
    }
};

QTEST_MAIN(TestPrinting)
#include "test_printing.moc"
