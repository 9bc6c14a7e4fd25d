// The exchange text format: code page, values, records and the tokeniser that reads them back.
#include "exchange/Cp1252.h"
#include "exchange/Layout.h"
#include "exchange/Record.h"
#include "exchange/Tokeniser.h"

#include <QTest>

using namespace exchange;

namespace {

const QString kSep = QString(QChar(kSeparator));

QVariantList row(std::initializer_list<QVariant> values) {
    return QVariantList(values);
}

} // namespace

class TestFormat : public QObject {
    Q_OBJECT

private slots:
    // Every byte reads as a character that is written back as the same byte: what a file
    // holds survives the import and the next export. The five bytes the code page leaves
    // undefined read as the control character of their own number.
    void codecMapsEveryByteBothWays() {
        for (int b = 0; b < 256; ++b) {
            const char16_t c = cp1252::toUnicode(static_cast<unsigned char>(b));
            QCOMPARE(cp1252::fromUnicode(c), b);
        }
        const QByteArray undefined("\x81\x8d\x8f\x90\x9d");
        QCOMPARE(cp1252::decode(undefined).text, QStringLiteral("\u0081\u008d\u008f\u0090\u009d"));
        QCOMPARE(cp1252::encode(cp1252::decode(undefined).text).bytes, undefined);
    }

    void codecEncodes_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("firstUnmappable");
        QTest::newRow("separator") << QStringLiteral("a¬b")
                                   << QByteArray("a\xac"
                                                 "b")
                                   << -1;
        QTest::newRow("accents") << QStringLiteral("ção") << QByteArray("\xe7\xe3o") << -1;
        QTest::newRow("euro and quotes")
            << QStringLiteral("€“”") << QByteArray("\x80\x93\x94") << -1;
        QTest::newRow("the C1 control of the euro's byte is not cp1252")
            << QStringLiteral("x\u0080") << QByteArray("x") << 1;
        QTest::newRow("greek") << QStringLiteral("aΩb") << QByteArray("ab") << 1;
        QTest::newRow("emoji as one character") << QStringLiteral("😀z") << QByteArray("z") << 0;
    }
    void codecEncodes() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QFETCH(int, firstUnmappable);
        const cp1252::EncodeResult r = cp1252::encode(text);
        QCOMPARE(r.bytes, bytes);
        QCOMPARE(int(r.firstUnmappable), firstUnmappable);
        if (r.ok())
            QCOMPARE(cp1252::decode(r.bytes).text, text);
    }

    void valuesAsABrazilianMachineWritesThem_data() {
        using store::ColumnType;
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("text");
        QTest::newRow("null") << QVariant() << int(ColumnType::Text) << "Null";
        QTest::newRow("null number")
            << QVariant(QMetaType(QMetaType::LongLong)) << int(ColumnType::Number) << "Null";
        QTest::newRow("date") << QVariant("2003-03-14") << int(ColumnType::Date) << "14/03/2003";
        QTest::newRow("time") << QVariant("06:05:00") << int(ColumnType::Time) << "06:05:00";
        QTest::newRow("time without seconds")
            << QVariant("22:30") << int(ColumnType::Time) << "22:30:00";
        QTest::newRow("moment") << QVariant("2003-03-14 10:20:30") << int(ColumnType::DateTime)
                                << "14/03/2003 10:20:30";
        QTest::newRow("moment at midnight")
            << QVariant("2003-03-14 00:00:00") << int(ColumnType::DateTime) << "14/03/2003";
        QTest::newRow("decimal") << QVariant(1200.5) << int(ColumnType::Decimal) << "1200,5";
        QTest::newRow("whole decimal") << QVariant(350.0) << int(ColumnType::Decimal) << "350";
        QTest::newRow("fraction") << QVariant(0.25) << int(ColumnType::Decimal) << "0,25";
        QTest::newRow("negative") << QVariant(-47.0625) << int(ColumnType::Decimal) << "-47,0625";
        QTest::newRow("no thousands")
            << QVariant(1234567.1) << int(ColumnType::Decimal) << "1234567,1";
        QTest::newRow("shortest") << QVariant(0.1 + 0.2) << int(ColumnType::Decimal)
                                  << "0,30000000000000004";
        QTest::newRow("big number")
            << QVariant(qlonglong(12345678000195)) << int(ColumnType::Number) << "12345678000195";
        QTest::newRow("yes") << QVariant(-1) << int(ColumnType::Number) << "-1";
        QTest::newRow("truth value") << QVariant(true) << int(ColumnType::Number) << "-1";
        QTest::newRow("text kept")
            << QVariant(" 'a' \"b\" ") << int(ColumnType::Text) << " 'a' \"b\" ";
        QTest::newRow("crlf") << QVariant("a\r\nb") << int(ColumnType::Text) << "a b";
        QTest::newRow("lone cr and lf") << QVariant("a\rb\nc") << int(ColumnType::Text) << "a b c";
        QTest::newRow("two breaks") << QVariant("a\n\nb") << int(ColumnType::Text) << "a  b";
        QTest::newRow("separator") << QVariant("a¬b") << int(ColumnType::Text) << "a b";
        QTest::newRow("a date that is none")
            << QVariant("amanhã") << int(ColumnType::Date) << "amanhã";
    }
    void valuesAsABrazilianMachineWritesThem() {
        QFETCH(QVariant, value);
        QFETCH(int, type);
        QFETCH(QString, text);
        QCOMPARE(valueText(value, store::ColumnType(type)), text);
    }

    void recordsFollowTheirTablesRules_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<QString>("record");
        QTest::newRow("worked example, row 1")
            << "TB_POSTOCOMRCSERVC" << row({100, 3, "2003-03-14", 2, QVariant()})
            << "100¬3¬14/03/2003¬2¬Null";
        QTest::newRow("worked example, movement")
            << "TB_POSTOMOVMN" << row({100, 3, "2003-03-14", 101, 1, QVariant(), 1200.5, 1})
            << "100¬3¬14/03/2003¬101¬1¬Null¬1200,5¬1";
        QTest::newRow("trimmed, empty text is nothing")
            << "TB_POSTOCOMRCSERVC" << row({100, 3, "2003-03-14", 2, "  "})
            << "100¬3¬14/03/2003¬2¬";
        QTest::newRow("trailing separator")
            << "TB_POSTOAREATROCAOLEO" << row({1, 2, "2003-03-14", 0, -1, 0, 0, 0, 0})
            << "1¬2¬14/03/2003¬0¬-1¬0¬0¬0¬0¬";
        QTest::newRow("one blank kept")
            << "TB_POSTOBALNCHIDRC" << row({1, 2, "2003-03-14", "R", 1, " ", 10.5, QVariant()})
            << "1¬2¬14/03/2003¬R¬1¬ ¬10,5¬Null";
        QTest::newRow("two blanks trimmed")
            << "TB_POSTOBALNCHIDRC" << row({1, 2, "2003-03-14", "R", 1, "  ", 10.5, QVariant()})
            << "1¬2¬14/03/2003¬R¬1¬¬10,5¬Null";
        QTest::newRow("other blank columns trimmed")
            << "TB_POSTOBALNCHIDRC" << row({1, 2, "2003-03-14", " ", 1, " x ", 10.5, QVariant()})
            << "1¬2¬14/03/2003¬¬1¬x¬10,5¬Null";
        QTest::newRow("effluent with a point")
            << "TB_POSTOEFLNTLIQDO" << row({1, 2, "2003-03-14", "L", 1234.5, 2, 3})
            << "1¬2¬14/03/2003¬L¬1234.5¬2¬3";
        QTest::newRow("effluent null")
            << "TB_POSTOEFLNTLIQDO" << row({1, 2, "2003-03-14", "L", QVariant(), 2, 3})
            << "1¬2¬14/03/2003¬L¬Null¬2¬3";
        const QVariantList posto =
            row({1, 2, "2003-03-14", "U",        "B", "1", "2", 3,   1.5,          2.0,         3.0,
                 4, 5, "06:00:00",   "22:00:00", 16,  30,  360, "R", "1998-01-05", "2003-02-28"});
        QTest::newRow("station with ALEVNT")
            << "TB_POSTO" << posto
            << "1¬2¬14/03/2003¬U¬B¬1¬2¬3¬1,5¬2¬3¬4¬5¬06:00:00¬22:00:00¬16¬30¬360¬R¬05/01/1998¬"
               "28/02/2003";
        QTest::newRow("missing values are Null")
            << "TB_POSTOBACIARESRV" << row({1, 2}) << "1¬2¬Null¬Null¬Null¬Null";
    }
    void recordsFollowTheirTablesRules() {
        QFETCH(QString, table);
        QFETCH(QVariantList, values);
        QFETCH(QString, record);
        const TableLayout& l = layout(table.toStdString());
        QCOMPARE(recordText(l, values), record);
    }

    void recordEndsAndBytes() {
        const TableLayout& l = layout("SUGESTOES");
        QCOMPARE(l.perTableEnd, RecordEnd::CrCrLf);
        QCOMPARE(layout("EMPRS").perTableEnd, RecordEnd::Cr);
        QCOMPARE(recordBytes(l, row({100, 3, "Posto", "Mais prazo", 1}), l.perTableEnd),
                 QByteArray("100\xac"
                            "3\xacPosto\xacMais prazo\xac"
                            "1\r\r\n"));
    }

    void aCharacterOutsideTheCodePageIsRefusedByName() {
        const TableLayout& l = layout("TB_POSTOCOMRCSERVC");
        try {
            recordBytes(l, row({100, 3, "2003-03-14", 9, "Loja 😀"}), RecordEnd::Cr);
            QFAIL("no refusal");
        } catch (const UnencodableText& e) {
            QCOMPARE(e.table(), QStringLiteral("TB_POSTOCOMRCSERVC"));
            QCOMPARE(e.column(), QStringLiteral("DCOMRCSERVC"));
            QCOMPARE(e.character(), QStringLiteral("😀"));
            QVERIFY(e.message().contains(QStringLiteral("DCOMRCSERVC")));
        }
    }

    void layoutsMatchTheReaders() {
        // The field counts of the readers of the joined file, table by table.
        const QList<QPair<const char*, int>> readers = {
            {"EMPRS", 29},
            {"TB_POSTO", 21},
            {"TB_POSTORESPN", 19},
            {"TB_POSTOCONTT", 20},
            {"TB_POSTODISTRFORNC", 18},
            {"TB_POSTOCOMRCSERVC", 5},
            {"TB_POSTOUSOOCUPCSOLO", 4},
            {"TB_POSTOTANQU", 21},
            {"TB_POSTOTANQUPROPR", 18},
            {"TB_POSTOTANQUCOMPR", 11},
            {"TB_POSTOBOMBA", 15},
            {"TB_POSTOBOMBAPROPR", 18},
            {"TB_POSTOBOMBATANQU", 9},
            {"TB_POSTOCONTRESTQU", 13},
            {"TB_POSTOVAZMN", 13},
            {"TB_POSTOBACIA", 8},
            {"TB_POSTOBACIARESRV", 6},
            {"TB_POSTOMOVMN", 8},
            {"TB_POSTOAREAABAST", 13},
            {"TB_POSTOAREADESCARGA", 10},
            {"TB_POSTOAREALAVAGEM", 14},
            {"TB_POSTOAREATROCAOLEO", 9},
            {"TB_POSTOBALNCHIDRC", 8},
            {"TB_POSTOPREVNACIDN", 19},
            {"TB_POSTOEFLNTLIQDO", 7},
            {"TB_POSTOGASBATRI", 9},
            {"TB_POSTOGASBATRIPROPR", 17},
            {"TB_POSTOGASBOMBA", 10},
            {"TB_POSTOGASBOMBABATRI", 6},
            {"TB_POSTOGASBOMBAPROPR", 17},
            {"TB_POSTOGASCOMPR", 9},
            {"TB_POSTOGASCOMPRBATRI", 6},
            {"TB_POSTOGASCOMPRPROPR", 17},
            {"TB_POSTOMONTRAMBNT", 8},
            {"TB_POSTOPREVNEMISSAR", 6},
            {"TB_POSTOPREVNVAZMN", 5},
            {"TB_POSTORESDU", 9},
            {"TB_POSTORUIDO", 9},
            {"TB_POSTOENTRG", 8},
            {"SUGESTOES", 5},
        };
        QStringList sections;
        for (const TableLayout* l : joinedSections()) {
            if (l->sectionHeaderRead)
                sections << l->qname();
        }
        QStringList expected;
        for (const auto& [name, fields] : readers) {
            expected << QString::fromLatin1(name);
            QCOMPARE(layout(name).sectionReaderFields, fields);
        }
        QCOMPARE(sections, expected);
        QCOMPARE(joinedSections().size(), std::size_t(41));
        QCOMPARE(layout("TB_POSTOAREADESCARGA").exportFields, 11);
        // The readers pair TB_POSTOTANQU's fields with every one of its columns.
        const TableLayout& tanks = layout("TB_POSTOTANQU");
        QCOMPARE(int(tanks.readerInsertColumns.size()) + 3, tanks.sectionReaderFields);
        for (std::string_view c : tanks.readerInsertColumns)
            QVERIFY(tanks.table->indexOf(c) >= 3);
    }

    void fileNames() {
        QCOMPARE(fileKey(QVariant(qlonglong(12345678000195))), QStringLiteral("12345678000195"));
        QCOMPARE(fileKey(QVariant(qlonglong(45678000195))), QStringLiteral("00045678000195"));
        QCOMPARE(fileKey(QVariant()), QStringLiteral("00000000000000"));
        QCOMPARE(perTableFileName(QStringLiteral("TB_POSTO"), QStringLiteral("00045678000195")),
                 QStringLiteral("TB_POSTO_00045678000195.TXT"));
        QCOMPARE(joinedFileName(QStringLiteral("12345678000195")),
                 QStringLiteral("REUNIDO_12345678000195.TXT"));
    }

    void linesEndAtCrOrCrLf() {
        LineReader raw(QByteArray("a\rb\r\r\nc\r\nd\ne"));
        QStringList lines;
        while (!raw.atEnd())
            lines << raw.nextRawLine();
        QCOMPARE(lines, (QStringList{"a", "b", "", "c", "d\ne"}));

        LineReader records(QByteArray("\r\nx\xac"
                                      "1\r\r\n\r\ny\r"));
        QCOMPARE(records.nextLine(), QStringLiteral("x¬1"));
        QCOMPARE(records.nextLine(), QStringLiteral("y"));
        QVERIFY(records.nextLine().isNull());
        QCOMPARE(records.lineCount(), 2);
    }

    void tokeniser_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("asked");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("plain") << "100¬3¬Oficina" << 3 << QStringList{"100", "3", "Oficina"};
        QTest::newRow("empty field is Null") << "a¬¬c" << 3 << QStringList{"a", "Null", "c"};
        QTest::newRow("empty first and last") << "¬b¬" << 3 << QStringList{"Null", "b", "Null"};
        QTest::newRow("short row reads Null")
            << "a¬b" << 4 << QStringList{"a", "b", "Null", "Null"};
        QTest::newRow("long row loses its tail") << "a¬b¬c¬d" << 2 << QStringList{"a", "b"};
        QTest::newRow("the word Null") << "Null¬x" << 2 << QStringList{"Null", "x"};
        QTest::newRow("blank kept") << "a¬ ¬c" << 3 << QStringList{"a", " ", "c"};
        const QString at1000 = QString(998, QLatin1Char('x')) + kSep + QStringLiteral("abc");
        QTest::newRow("a value stops at character 1000")
            << at1000 << 4 << QStringList{QString(998, QLatin1Char('x')), "a", "c", "Null"};
        const QString longValue = QString(1005, QLatin1Char('y')) + kSep + QStringLiteral("z");
        QTest::newRow("beyond 1000 one character each")
            << longValue
            << 5
            // characters 1001, 1003 and 1005 are passed over as if they were separators
            << QStringList{QString(1000, QLatin1Char('y')), "y", "y", "Null", "z"};
        const QString sepAfter =
            QString(1000, QLatin1Char('y')) + kSep + kSep + QStringLiteral("q");
        QTest::newRow("a separator right behind the limit")
            << sepAfter << 3 << QStringList{QString(1000, QLatin1Char('y')), "Null", "q"};
    }
    void tokeniser() {
        QFETCH(QString, line);
        QFETCH(int, asked);
        QFETCH(QStringList, fields);
        FieldTokeniser t(line);
        QCOMPARE(t.take(asked), fields);
        t.rewind();
        QCOMPARE(t.next(), fields.first());
    }

    void writtenRecordsReadBack() {
        const TableLayout& l = layout("TB_POSTORUIDO");
        const QVariantList values =
            row({100, 3, "2003-03-14", "C", "Ruído\r\nalto ¬ ", 85.5, "07:00", "19:00:00", ""});
        LineReader reader(recordBytes(l, values, RecordEnd::Cr) +
                          recordBytes(l, values, RecordEnd::Cr));
        for (int i = 0; i < 2; ++i) {
            FieldTokeniser t(reader.nextLine());
            QCOMPARE(t.take(10), (QStringList{"100", "3", "14/03/2003", "C", "Ruído alto", "85,5",
                                              "07:00:00", "19:00:00", "Null", "Null"}));
        }
        QVERIFY(reader.nextLine().isNull());
    }
};

QTEST_GUILESS_MAIN(TestFormat)
#include "test_format.moc"
