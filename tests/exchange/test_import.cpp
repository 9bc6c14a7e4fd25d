// The agency's import: the driver's checks and refusals, the readers of the joined file, the
// backup and the wipe.
#include "exchange/Cp1252.h"
#include "exchange/Exporter.h"
#include "exchange/Tokeniser.h"
#include "support/ImportFixture.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <QTest>

using namespace exchange;
using testsupport::emprsRow;
using testsupport::ImportBatch;
using testsupport::line;

namespace {

const QString kCnpjA = QStringLiteral("12345678000195");
const QString kCnpjB = QStringLiteral("11222333000181");
const QString kCnpjC = QStringLiteral("44556677000186");

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString joined(const QString& key) {
    return joinedFileName(key);
}

// A register of the CNPJ with a row in two small tables.
QStringList smallRegister(const QString& nmuncp, const QString& nseqnc, const QString& ccgc) {
    return {QStringLiteral("[EMPRS]"),
            emprsRow(nmuncp, nseqnc, QStringLiteral("Posto ") + ccgc, ccgc),
            QStringLiteral("[TB_POSTOCOMRCSERVC]"),
            line({nmuncp, nseqnc, QStringLiteral("01/01/1999"), QStringLiteral("9"),
                  QStringLiteral("Oficina")})};
}

} // namespace

class TestImport : public QObject {
    Q_OBJECT

private slots:
    // A register exported by the export reads back into an equal register: exporting it again
    // gives the same file, but for SSEMPAVMN, which the readers never take.
    void roundTripOverEveryTable() {
        testsupport::TestEnvironment env;
        store::Database station(env.newDatabasePath(QStringLiteral("posto.db")));
        testsupport::loadFixture(station, QStringLiteral("full_register.sql"));
        // No screen fills TB_POSTOGASVAZMN and the readers know no section of it: its rows
        // would be read as rows of the section before (see aSectionOutOfOrder...).
        station.run(QStringLiteral("DELETE FROM TB_POSTOGASVAZMN"));
        ImportBatch agency;
        const ExportResult sent = Exporter(station).run({100, 3}, agency.directory());
        const QByteArray original = readAll(sent.joinedPath);

        const Importer::Summary summary = agency.run();
        QCOMPARE(agency.refusals(), QStringList());
        QCOMPARE(summary.existing, 1);
        QCOMPARE(summary.imported, 1);

        const QString again = env.path(QStringLiteral("de-novo"));
        QDir().mkpath(again);
        const QByteArray reexported =
            readAll(Exporter(agency.db()).run({100, 3}, again).joinedPath);
        QByteArray expected = original;
        const QByteArray descarga = "[TB_POSTOAREADESCARGA]\r\n100\xAC"
                                    "3\xAC"
                                    "14/03/2003\xAC-1\xAC"
                                    "0\xAC"
                                    "0\xAC"
                                    "0\xAC"
                                    "0\xAC-1\xAC"
                                    "0\xAC";
        QVERIFY(expected.contains(descarga + "1\r\n"));
        expected.replace(descarga + "1\r\n", descarga + "Null\r\n");
        // An empty text is written as nothing and read back as Null.
        const QByteArray emptyMail = "33334444\xACNull\xAC\r\n";
        QVERIFY(expected.contains(emptyMail));
        expected.replace(emptyMail, "33334444\xACNull\xACNull\r\n");
        QCOMPARE(reexported, expected);

        // Every table of the register has its rows; the values have their types back.
        for (const TableLayout* l : joinedSections()) {
            const QString sql =
                QStringLiteral("SELECT COUNT(*) FROM \"%1\" WHERE NMUNCP = 100 AND NSEQNC = 3")
                    .arg(l->qname());
            QCOMPARE(agency.value(sql).toInt(), station.scalar(sql).toInt());
        }
        QCOMPARE(agency
                     .value(QStringLiteral("SELECT typeof(QEFLNTLIQDO) || ' ' || QEFLNTLIQDO "
                                           "FROM TB_POSTOEFLNTLIQDO"))
                     .toString(),
                 QStringLiteral("real 1234.5"));
        QCOMPARE(agency.value(QStringLiteral("SELECT QLATTD FROM EMPRS")).toDouble(), -22.9);
        QCOMPARE(agency.value(QStringLiteral("SELECT ALEVNT FROM TB_POSTO")).toString(),
                 QStringLiteral("2003-02-28"));
        QCOMPARE(agency.value(QStringLiteral("SELECT HTERMNFUNCM FROM TB_POSTO")).toString(),
                 QStringLiteral("22:30:00"));
        QCOMPARE(agency.value(QStringLiteral("SELECT typeof(CCGC) FROM EMPRS")).toString(),
                 QStringLiteral("integer"));
        // The objective is the agency's own: the import leaves it.
        QCOMPARE(agency.count(QStringLiteral("TB_VORpMOVMN")), 0);
    }

    // The five bytes that Windows-1252 leaves undefined come back byte for byte: a register
    // that holds them can be exported again.
    void everyByteOfATextSurvivesTheRoundTrip() {
        ImportBatch batch;
        QByteArray file =
            "[EMPRS]\r\n" +
            exchange::cp1252::encode(emprsRow(QStringLiteral("100"), QStringLiteral("3"),
                                              QStringLiteral("POSTO @"), kCnpjA))
                .bytes +
            "\r\n";
        file.replace('@', QByteArray("\x81\x8d\x8f\x90\x9d"));
        batch.writeBytes(joined(kCnpjA), file);
        batch.run();
        QCOMPARE(batch.refusals(), QStringList());

        testsupport::TestEnvironment env;
        const QString again = env.path(QStringLiteral("de-novo"));
        QDir().mkpath(again);
        const ExportResult sent = Exporter(batch.db()).run({100, 3}, again);
        QVERIFY(readAll(sent.joinedPath).contains("\xACPOSTO \x81\x8d\x8f\x90\x9d\xAC"));
    }

    void theWipeEmptiesEveryRegisterTableAndKeepsTheRest() {
        ImportBatch batch;
        testsupport::loadFixture(batch.db(), QStringLiteral("full_register.sql"));
        const int municipalities = batch.count(QStringLiteral("MUNCP"));
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("200"), QStringLiteral("1"), kCnpjB));
        batch.run();
        for (std::string_view table : store::registerDeleteOrder()) {
            const QString name = QString::fromLatin1(table.data(), qsizetype(table.size()));
            const int expected =
                name == QLatin1String("EMPRS") || name == QLatin1String("TB_POSTOCOMRCSERVC") ? 1
                                                                                              : 0;
            QCOMPARE(batch.count(name), expected);
        }
        QCOMPARE(batch.count(QStringLiteral("TB_VORpMOVMN")), 1);
        QCOMPARE(batch.count(QStringLiteral("MUNCP")), municipalities);
    }

    void theDatabaseIsBackedUpBeforeTheWipe() {
        ImportBatch batch;
        testsupport::loadFixture(batch.db(), QStringLiteral("full_register.sql"));
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("200"), QStringLiteral("1"), kCnpjB));
        const Importer::Summary summary = batch.run();

        const QFileInfo backup(summary.backupPath);
        QCOMPARE(backup.absolutePath(),
                 QFileInfo(batch.databasePath()).absolutePath() + QStringLiteral("/backups"));
        QVERIFY2(QRegularExpression(QStringLiteral("^VOR-POSTO-\\d{8}-\\d{6}\\.db$"))
                     .match(backup.fileName())
                     .hasMatch(),
                 qPrintable(backup.fileName()));
        store::Database copy(summary.backupPath);
        QCOMPARE(copy.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 2);
        QCOMPARE(copy.scalar(QStringLiteral("SELECT COUNT(*) FROM TB_POSTOTANQU")).toInt(), 1);
        QCOMPARE(batch.count(QStringLiteral("EMPRS")), 1);
    }

    void eachRefusalWordForWord() {
        ImportBatch batch;
        // In the order of the directory listing: capitals first.
        batch.write(
            QStringLiteral("A_CORROMPIDO.txt"),
            {QStringLiteral("[EMPRS]"), emprsRow(QStringLiteral("100"), QStringLiteral("Null"),
                                                 QStringLiteral("Posto Sem Sequência"), kCnpjC)});
        batch.write(QStringLiteral("B_CNPJ.txt"),
                    {QStringLiteral("[EMPRS]"),
                     emprsRow(QStringLiteral("100"), QStringLiteral("5"),
                              QStringLiteral("Posto Errado"), QStringLiteral("12345678000100"))});
        batch.writeBytes(QStringLiteral("C_VAZIO.txt"), QByteArray());
        batch.write(QStringLiteral("D_SO_CABECALHO.txt"), {QStringLiteral("[EMPRS]")});
        batch.write(joined(kCnpjA),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjA));
        batch.write(QStringLiteral("REUNIDO_99999999999999.TXT"),
                    smallRegister(QStringLiteral("300"), QStringLiteral("1"), kCnpjB));
        batch.write(QStringLiteral("copia.txt"),
                    smallRegister(QStringLiteral("400"), QStringLiteral("1"), kCnpjA));
        batch.write(QStringLiteral("notas.doc"), {QStringLiteral("não é do lote")});

        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(),
                 QStringList({
                     QStringLiteral("O Arquivo A_CORROMPIDO.txt possui dados que não podem ser "
                                    "importados por este sistema, possivelmente podem estar "
                                    "corrompidos."),
                     QStringLiteral("O Arquivo B_CNPJ.txt possui o CNPJ inválido, não poderá "
                                    "ser importado"),
                     QStringLiteral("O Arquivo C_VAZIO.txt está vazio."),
                     QStringLiteral("O Arquivo D_SO_CABECALHO.txt está vazio."),
                     QStringLiteral("Arquivo REUNIDO_99999999999999.TXT com CNPJ "
                                    "11222333000181 não pode ser importado"),
                     QStringLiteral("Empresa Posto 12345678000195 com CNPJ 12345678000195 já "
                                    "cadastrada."),
                 }));
        QCOMPARE(summary.existing, 7);
        QCOMPARE(summary.imported, 1);
        QCOMPARE(batch.count(QStringLiteral("EMPRS")), 1);
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 1);
        // The source files are only read.
        QCOMPARE(Importer::batchFiles(batch.directory()).size(), 7);
    }

    // A company without CNPJ carries the placeholder; its key is the middle of the file name.
    void thePlaceholderCnpjTakesItsKeyFromTheFileName() {
        ImportBatch batch;
        batch.write(QStringLiteral("REUNIDO_00000000000042.TXT"),
                    smallRegister(QStringLiteral("100"), QStringLiteral("1"),
                                  QStringLiteral("12345678901230")));
        batch.write(QStringLiteral("REUNIDO_00000000000043.TXT"),
                    smallRegister(QStringLiteral("100"), QStringLiteral("2"),
                                  QStringLiteral("12345678901230")));
        // Under a name that is not REUNIDO_<key>.TXT the readers cannot find it, yet the
        // placeholder's file counts as handled.
        batch.write(QStringLiteral("sem_nome.txt"),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"),
                                  QStringLiteral("12345678901230")));
        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(), QStringList{QStringLiteral(
                                       "Arquivo sem_nome.txt com CNPJ  não pode ser importado")});
        QCOMPARE(summary.imported, 3);
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT group_concat(NSEQNC || ':' || CCGC) FROM "
                                           "(SELECT * FROM EMPRS ORDER BY NSEQNC)"))
                     .toString(),
                 QStringLiteral("1:12345678901230,2:12345678901230"));
    }

    // A pair taken by an earlier file: the whole register moves past the table's highest
    // sequence, whatever the municipality.
    void aTakenPairIsRenumberedPastTheTablesMaximum() {
        ImportBatch batch;
        batch.write(joined(kCnpjA),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjA));
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("700"), QStringLiteral("7"), kCnpjB));
        batch.write(joined(kCnpjC),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjC));
        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(summary.imported, 3);
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT NMUNCP || '/' || NSEQNC FROM EMPRS WHERE "
                                           "CCGC = ?"),
                            {kCnpjC.toLongLong()})
                     .toString(),
                 QStringLiteral("100/8"));
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT COUNT(*) FROM TB_POSTOCOMRCSERVC WHERE "
                                           "NMUNCP = 100 AND NSEQNC = 8"))
                     .toInt(),
                 1);
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 3);
    }

    // A register number stays within the four digits of the code: past 9999 a register gets
    // the lowest number no register uses, and with none left its file is refused.
    void aNewNumberStaysWithinTheCodesFourDigits() {
        ImportBatch batch;
        // In the order of the directory: B first.
        batch.write(joined(kCnpjA),
                    smallRegister(QStringLiteral("100"), QStringLiteral("9999"), kCnpjA));
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("100"), QStringLiteral("9999"), kCnpjB));
        // A number the code cannot show is no number of the station's own either.
        batch.write(joined(kCnpjC),
                    smallRegister(QStringLiteral("200"), QStringLiteral("32767"), kCnpjC));
        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(summary.imported, 3);
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT group_concat(NMUNCP || '/' || NSEQNC || '/' || "
                                           "CCGC) FROM (SELECT * FROM EMPRS ORDER BY CCGC)"))
                     .toString(),
                 QStringLiteral("100/9999/11222333000181,100/1/12345678000195,"
                                "200/2/44556677000186"));
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT group_concat(NSEQNC) FROM (SELECT * FROM "
                                           "TB_POSTOCOMRCSERVC ORDER BY NSEQNC)"))
                     .toString(),
                 QStringLiteral("1,2,9999"));

        // Every number in use: the file cannot be given one.
        batch.db().run(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                                      "FROM n WHERE i < 9999) INSERT OR IGNORE INTO EMPRS "
                                      "(NMUNCP, NSEQNC, CCGC) SELECT 300, i, i FROM n"));
        const QString full = QStringLiteral("REUNIDO_33000167000101.TXT");
        batch.write(full, smallRegister(QStringLiteral("300"), QStringLiteral("5"),
                                        QStringLiteral("33000167000101")));
        QStringList refusals;
        Importer importer(batch.db());
        importer.setRefusal([&](const QString& message) { refusals << message; });
        QCOMPARE(importer.importFile(batch.directory(), full), Importer::FileOutcome::Refused);
        QCOMPARE(refusals, QStringList{QStringLiteral(
                               "O Arquivo REUNIDO_33000167000101.TXT não pode ser importado: "
                               "todos os números de posto, de 1 a 9999, já estão em uso.")});
        QCOMPARE(batch.count(QStringLiteral("EMPRS")), 9999 + 3);
    }

    void rowsTakeTheDriversKeyAndTheCreationDate() {
        ImportBatch batch;
        batch.write(
            joined(kCnpjA),
            {QStringLiteral("[EMPRS]"),
             emprsRow(QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("Posto"), kCnpjA,
                      QStringLiteral("02/05/2004")),
             // Too few fields: the rest is Null.
             QStringLiteral("[TB_POSTOCONTT]"),
             line({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                   QStringLiteral("Maria")}),
             QStringLiteral("[TB_POSTOCOMRCSERVC]"),
             line({QStringLiteral("999"), QStringLiteral("888"), QStringLiteral("31/12/1990"),
                   QStringLiteral("9"), QStringLiteral("Oficina")}),
             // A repeated key is dropped without a word: the first row wins.
             line({QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("Null"),
                   QStringLiteral("9"), QStringLiteral("Outra")}),
             // The suggestion goes under the file's own register.
             QStringLiteral("[SUGESTOES]"),
             line({QStringLiteral("555"), QStringLiteral("5"), QStringLiteral("Posto"),
                   QStringLiteral("Sugestão"), QStringLiteral("1")})});
        batch.run();
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT NMUNCP || '/' || NSEQNC || '/' || AINFRM || "
                                           "'/' || DCOMRCSERVC FROM TB_POSTOCOMRCSERVC"))
                     .toString(),
                 QStringLiteral("100/3/2004-05-02/Oficina"));
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 1);
        QSqlQuery contact = batch.db().run(QStringLiteral("SELECT * FROM TB_POSTOCONTT"));
        QVERIFY(contact.next());
        QCOMPARE(contact.value(QStringLiteral("DNOMEROTNR")).toString(), QStringLiteral("Maria"));
        for (int i = 4; i < 20; ++i)
            QVERIFY2(contact.value(i).isNull(), qPrintable(QString::number(i)));
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT NMUNCP || '/' || NSEQNC || '/' || SUGESTAO "
                                           "FROM SUGESTOES"))
                     .toString(),
                 QStringLiteral("100/3/Sugestão"));
    }

    // A header out of the order of the sections is not one: it and the rows behind it are
    // rows of the section in hand. A key column Null finds no row, so each such row goes in.
    void aSectionOutOfOrderIsReadAsRowsOfTheOneBefore() {
        ImportBatch batch;
        batch.write(
            joined(kCnpjA),
            {QStringLiteral("[EMPRS]"),
             emprsRow(QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("Posto"), kCnpjA),
             QStringLiteral("[TB_POSTOUSOOCUPCSOLO]"),
             line({QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("14/03/2003"),
                   QStringLiteral("1")}),
             QStringLiteral("[TB_POSTOCOMRCSERVC]"),
             line({QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("14/03/2003"),
                   QStringLiteral("9"), QStringLiteral("Oficina")}),
             QStringLiteral("[TB_POSTOGASVAZMN]"), QStringLiteral("[EMPRS]")});
        batch.run();
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 0);
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT group_concat(ifnull(NUSOOCUPCSOLO, 'Null')) "
                                           "FROM (SELECT * FROM TB_POSTOUSOOCUPCSOLO ORDER "
                                           "BY rowid)"))
                     .toString(),
                 QStringLiteral("1,Null,9,Null,Null"));
    }

    // A value reaches at most to character 1000 of its line.
    void aValueStopsAtTheThousandthCharacter() {
        ImportBatch batch;
        const QString head =
            line({QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("14/03/2003"),
                  QStringLiteral("S"), QStringLiteral("1"), QStringLiteral("Dono"),
                  QStringLiteral("Null"), QStringLiteral("Null"), QStringLiteral("Null"),
                  QStringLiteral("Null"), QStringLiteral("Null"), QStringLiteral("Null"),
                  QStringLiteral("Null"), QStringLiteral("Null"), QStringLiteral("Null"),
                  QStringLiteral("Null"), QStringLiteral("Null")}) +
            QChar(kSeparator);
        batch.write(
            joined(kCnpjA),
            {QStringLiteral("[EMPRS]"),
             emprsRow(QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("Posto"), kCnpjA),
             QStringLiteral("[TB_POSTOTANQUPROPR]"), head + QString(1200, u'm')});
        batch.run();
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(
            batch.value(QStringLiteral("SELECT length(DEMAIL) FROM TB_POSTOTANQUPROPR")).toInt(),
            1000 - int(head.size()));
    }

    // Blank lines before the register's line, as a transfer in text mode leaves them (every
    // line end doubled), are passed over: the register is read, never counted with nothing
    // stored.
    void blankLinesBeforeTheRegisterArePassedOver() {
        ImportBatch batch;
        QStringList lines = smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjA);
        lines.prepend(QString());
        lines.prepend(QString());
        batch.write(joined(kCnpjA), lines);
        QByteArray doubled;
        for (const QString& l : smallRegister(QStringLiteral("200"), QStringLiteral("4"), kCnpjB))
            doubled += l.toLatin1() + "\r\r\n";
        batch.writeBytes(joined(kCnpjB), doubled);
        batch.writeBytes(QStringLiteral("so_linhas_em_branco.txt"), "\r\n\r\r\n\r\n");
        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(),
                 QStringList{emptyFileText(QStringLiteral("so_linhas_em_branco.txt"))});
        QCOMPARE(summary.imported, 2);
        QCOMPARE(batch
                     .value(QStringLiteral("SELECT group_concat(NMUNCP || '/' || NSEQNC) FROM "
                                           "(SELECT * FROM EMPRS ORDER BY NMUNCP)"))
                     .toString(),
                 QStringLiteral("100/3,200/4"));
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 2);
    }

    // A file is imported whole or not at all, and the batch goes on.
    void aFailureInsideAFileLeavesNothingOfIt() {
        ImportBatch batch;
        QStringList bad = smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjA);
        bad << QStringLiteral("[TB_POSTOMOVMN]")
            << line({QStringLiteral("100"), QStringLiteral("3"), QStringLiteral("14/03/2003"),
                     QStringLiteral("101"), QStringLiteral("1"), QStringLiteral("Null"),
                     QStringLiteral("mil litros"), QStringLiteral("1")});
        batch.write(joined(kCnpjA), bad);
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjB));
        const Importer::Summary summary = batch.run();
        QCOMPARE(batch.refusals(), QStringList{corruptFileText(joined(kCnpjA))});
        QCOMPARE(summary.imported, 1);
        QCOMPARE(batch.value(QStringLiteral("SELECT group_concat(CCGC) FROM EMPRS")).toString(),
                 kCnpjB);
        // Its pair was free again for the next file.
        QCOMPARE(batch.value(QStringLiteral("SELECT NSEQNC FROM EMPRS")).toInt(), 3);
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 1);
    }

    // A full disk ends the batch with the driver's message: the files before it stay, nothing
    // of the file in hand is kept, and no later file is tried.
    void aFullDiskEndsTheBatch() {
        ImportBatch batch;
        batch.write(joined(kCnpjB),
                    smallRegister(QStringLiteral("100"), QStringLiteral("1"), kCnpjB));
        QStringList big = smallRegister(QStringLiteral("100"), QStringLiteral("2"), kCnpjA);
        for (int i = 10; i < 3000; ++i)
            big << line({QStringLiteral("100"), QStringLiteral("2"), QStringLiteral("14/03/2003"),
                         QString::number(i), QStringLiteral("Loja de conveniência %1").arg(i)});
        batch.write(joined(kCnpjA), big);
        batch.write(joined(kCnpjC),
                    smallRegister(QStringLiteral("100"), QStringLiteral("3"), kCnpjC));
        // The database may not grow: as on a disk without room, the engine reports it full.
        batch.db().run(QStringLiteral("PRAGMA max_page_count = %1")
                           .arg(batch.value(QStringLiteral("PRAGMA page_count")).toInt()));
        try {
            batch.run();
            QFAIL("the batch went on past a full disk");
        } catch (const Importer::Stopped& stopped) {
            QCOMPARE(stopped.message(),
                     QStringLiteral("Espaço na unidade especificada como destino é insuficiente."));
        }
        QCOMPARE(batch.refusals(), QStringList());
        QCOMPARE(batch.value(QStringLiteral("SELECT group_concat(CCGC) FROM EMPRS")).toString(),
                 kCnpjB);
        QCOMPARE(batch.count(QStringLiteral("TB_POSTOCOMRCSERVC")), 1);
    }

    void decimalsAndDates_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("pointDecimal");
        QTest::addColumn<QVariant>("value");
        using store::ColumnType;
        QTest::newRow("decimal comma")
            << "1.234,5" << int(ColumnType::Decimal) << false << QVariant(1234.5);
        QTest::newRow("point read as thousands")
            << "1234.5" << int(ColumnType::Decimal) << false << QVariant(12345.0);
        QTest::newRow("point as decimal point")
            << "1234.5" << int(ColumnType::Decimal) << true << QVariant(1234.5);
        QTest::newRow("negative") << "-47,0625" << int(ColumnType::Decimal) << false
                                  << QVariant(-47.0625);
        QTest::newRow("whole number")
            << "15000" << int(ColumnType::Number) << false << QVariant(qlonglong(15000));
        QTest::newRow("date") << "05/01/1998" << int(ColumnType::Date) << false
                              << QVariant(QStringLiteral("1998-01-05"));
        QTest::newRow("moment") << "14/03/2003 10:00:00" << int(ColumnType::DateTime) << false
                                << QVariant(QStringLiteral("2003-03-14 10:00:00"));
        QTest::newRow("time") << "22:30" << int(ColumnType::Time) << false
                              << QVariant(QStringLiteral("22:30:00"));
        QTest::newRow("the word Null") << "Null" << int(ColumnType::Text) << false << QVariant();
        QTest::newRow("not a date") << "31/02/2003" << int(ColumnType::Date) << false
                                    << QVariant(QStringLiteral("unreadable"));
        QTest::newRow("not a number")
            << "S" << int(ColumnType::Number) << false << QVariant(QStringLiteral("unreadable"));
    }

    void decimalsAndDates() {
        QFETCH(QString, field);
        QFETCH(int, type);
        QFETCH(bool, pointDecimal);
        QFETCH(QVariant, value);
        const store::Column column{"X", store::ColumnType(type), 0};
        try {
            const QVariant read = fieldValue(field, column, pointDecimal, QStringLiteral("T"));
            if (!value.isValid()) {
                QVERIFY(read.isNull());
                return;
            }
            QCOMPARE(read.toString(), value.toString());
        } catch (const UnreadableField& unreadable) {
            QCOMPARE(value.toString(), QStringLiteral("unreadable"));
            QCOMPARE(unreadable.field(), field);
        }
    }
};

QTEST_MAIN(TestImport)
#include "test_import.moc"
