#include "rules/Filters.h"

#include <QDate>
#include <QTest>

namespace {

// Puts other separators in force for one test and the Brazilian ones back afterwards.
struct SeparatorsInForce {
    explicit SeparatorsInForce(rules::NumberSeparators s) { rules::setNumberSeparators(s); }
    ~SeparatorsInForce() { rules::setNumberSeparators(rules::kBrazilianSeparators); }
};

} // namespace

class TestFilters : public QObject {
    Q_OBJECT

private slots:
    void keyFilters() {
        using namespace rules;
        QCOMPARE(filtroAspas(u'\''), u'`');
        QCOMPARE(filtroAspas(u'a'), u'a');
        QCOMPARE(filtroAspas(u'"'), u'"');
        for (KeyCode k : {u'0', u'5', u'9', kBackspace, kEnter})
            QCOMPARE(filtroDigitos(k), k);
        for (KeyCode k : {u'a', u' ', u',', u'-', u'/', u'\'', char16_t(0xAC)})
            QCOMPARE(filtroDigitos(k), kSwallowed);
    }

    void filtroDecimal_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QChar>("key");
        QTest::addColumn<bool>("passes");
        QTest::newRow("digit") << "12" << QChar(u'3') << true;
        QTest::newRow("backspace") << "12" << QChar(8) << true;
        QTest::newRow("comma after digits") << "12" << QChar(u',') << true;
        QTest::newRow("comma in an empty field") << "" << QChar(u',') << false;
        QTest::newRow("second comma") << "12,5" << QChar(u',') << false;
        QTest::newRow("point") << "12" << QChar(u'.') << false;
        QTest::newRow("letter") << "12" << QChar(u'a') << false;
        QTest::newRow("Enter is not a decimal key") << "12" << QChar(13) << false;
    }

    void filtroDecimal() {
        QFETCH(QString, text);
        QFETCH(QChar, key);
        QFETCH(bool, passes);
        QCOMPARE(rules::filtroDecimal(text, key.unicode()),
                 passes ? key.unicode() : rules::kSwallowed);
    }

    void upperCase_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("upper");
        QTest::newRow("accents") << "rua são joão, 12"
                                 << "RUA SÃO JOÃO, 12";
        QTest::newRow("blank stays as it is") << "   "
                                              << "   ";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("micro sign keeps its form") << "5 µg"
                                                   << "5 µG";
        QTest::newRow("y diaeresis") << "ÿ"
                                     << "Ÿ";
    }

    void upperCase() {
        QFETCH(QString, text);
        QFETCH(QString, upper);
        QCOMPARE(rules::maiusculas(text), upper);
    }

    void decimalPlaces() {
        QCOMPARE(rules::excessoCasas("12,34", 2), 0);
        QCOMPARE(rules::excessoCasas("12,345", 2), 1);
        QCOMPARE(rules::excessoCasas("12345", 2), 0);
        QCOMPARE(rules::excessoCasas("1,2345", 2), 2);
        QCOMPARE(rules::casasDecimaisMessage(2), QStringLiteral("Digitar apenas 2 casas decimais"));
    }

    void counting() {
        QCOMPARE(rules::contaSeparadores("1.234.567,89"), 3);
        QCOMPARE(rules::contaSeparadores("123"), 0);
        QCOMPARE(rules::contaPontoBarra("11.222.333/0001-81"), 3);
        QCOMPARE(rules::contaPontoBarra("11222333000181"), 0);
        QCOMPARE(rules::semEspacos(" 11 222 333 "), QStringLiteral("11222333"));
        QVERIFY(rules::semEspacos(QString()).isNull());
        QVERIFY(!rules::semEspacos(QStringLiteral("")).isNull());
    }

    void masks_data() {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("masked");
        QTest::addColumn<QString>("unmasked");
        QTest::newRow("CNPJ") << "@@.@@@.@@@/@@@@-@@"
                              << "11222333000181"
                              << "11.222.333/0001-81"
                              << "11222333000181";
        QTest::newRow("activity code") << "@@.@@.@@-@"
                                       << "1234567"
                                       << "12.34.56-7"
                                       << "1234567";
        QTest::newRow("telephone") << "@@@@-@@@@"
                                   << "32145678"
                                   << "3214-5678"
                                   << "32145678";
        // A short value fills from the right: the left places stay blank and are trimmed.
        QTest::newRow("short telephone") << "@@@@-@@@@"
                                         << "2145678"
                                         << "214-5678"
                                         << "2145678";
        QTest::newRow("only places") << "@@@@@"
                                     << "abc"
                                     << "abc"
                                     << "abc";
        QTest::newRow("empty") << "@@@@-@@@@"
                               << ""
                               << ""
                               << "";
    }

    void masks() {
        QFETCH(QString, mask);
        QFETCH(QString, typed);
        QFETCH(QString, masked);
        QFETCH(QString, unmasked);
        QCOMPARE(rules::poeMascara(typed, mask), masked);
        QCOMPARE(rules::tiraMascara(masked, mask), unmasked);
        QVERIFY(masked.size() <= rules::mascaraComprimento(mask));
    }

    void maskKeepsExtraCharacters() {
        // More characters than places: none is lost, the extra ones stand in front.
        QCOMPARE(rules::poeMascara("123456", "@@-@@"), QStringLiteral("1234-56"));
        QCOMPARE(rules::mascaraPosicoes("@@.@@@.@@@/@@@@-@@"), 14);
        QCOMPARE(rules::mascaraComprimento("@@.@@@.@@@/@@@@-@@"), 18);
    }

    void numeroParaSql_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("bound");
        const QVariant null = QVariant(QMetaType::fromType<double>());
        QTest::newRow("thousands point and decimal comma")
            << QVariant("1.234,56") << "1234.56" << QVariant(1234.56);
        QTest::newRow("millions") << QVariant("1.234.567,8") << "1234567.8" << QVariant(1234567.8);
        QTest::newRow("no separators") << QVariant("250") << "250" << QVariant(250.0);
        QTest::newRow("trailing comma") << QVariant("12,") << "12." << QVariant(12.0);
        QTest::newRow("only the first comma turns")
            << QVariant("1,2,3") << "1.2,3" << QVariant("1.2,3");
        QTest::newRow("a number") << QVariant(1234.5) << "1234.5" << QVariant(1234.5);
        QTest::newRow("an integer") << QVariant(42) << "42" << QVariant(42.0);
        QTest::newRow("null") << QVariant() << "" << null;
        // A Null read from the database carries its column's type: no zero may come of it.
        QTest::newRow("typed null integer") << QVariant(QMetaType::fromType<int>()) << "" << null;
        QTest::newRow("typed null long")
            << QVariant(QMetaType::fromType<qlonglong>()) << "" << null;
        QTest::newRow("typed null double") << null << "" << null;
        QTest::newRow("empty text") << QVariant("") << "" << null;
        QTest::newRow("a date") << QVariant(QDate(2024, 3, 15)) << "" << null;
        QTest::newRow("not a number keeps the text") << QVariant("abc") << "abc" << QVariant("abc");
    }

    void numeroParaSql() {
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        QFETCH(QVariant, bound);
        QCOMPARE(rules::numeroParaSqlTexto(value), text);
        const QVariant result = rules::numeroParaSql(value);
        QCOMPARE(result.isNull(), bound.isNull());
        QCOMPARE(result.typeId(), bound.typeId());
        if (!bound.isNull())
            QCOMPARE(result, bound);
    }

    void separatorsComeFromOnePlace() {
        QCOMPARE(rules::numberSeparators().decimal, QChar(u','));
        QCOMPARE(rules::numberSeparators().thousands, QChar(u'.'));
        {
            // Without settings both separators are "&": nothing is replaced, and a typed
            // comma never makes a number.
            SeparatorsInForce none({QChar(u'&'), QChar(u'&')});
            QCOMPARE(rules::numeroParaSqlTexto(QVariant("1.234,56")), QStringLiteral("1.234,56"));
            QCOMPARE(rules::filtroDecimal("12", rules::kComma), rules::kSwallowed);
            QCOMPARE(rules::excessoCasas("1,2345", 2), 0);
        }
        {
            SeparatorsInForce english({QChar(u'.'), QChar(u',')});
            QCOMPARE(rules::numeroParaSqlTexto(QVariant("1,234.56")), QStringLiteral("1234.56"));
        }
        QCOMPARE(rules::numeroParaSqlTexto(QVariant("1.234,56")), QStringLiteral("1234.56"));
    }

    void numeric() {
        QVERIFY(rules::isNumeric("12,"));
        QVERIFY(rules::isNumeric("1.234,5"));
        QVERIFY(rules::isNumeric("-3"));
        QVERIFY(!rules::isNumeric(","));
        QVERIFY(!rules::isNumeric("12,,"));
        QVERIFY(!rules::isNumeric(""));
        QVERIFY(!rules::isNumeric("1a"));
    }

    void val() {
        QCOMPARE(rules::val("00123"), 123.0);
        QCOMPARE(rules::val("12ab"), 12.0);
        QCOMPARE(rules::val(""), 0.0);
        QCOMPARE(rules::val(" 1 2 "), 12.0);
        QCOMPARE(rules::val("abc"), 0.0);
        QCOMPARE(rules::val("-4.5x"), -4.5);
    }

    void oneLine_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cleaned");
        QTest::newRow("separator") << "A¬B"
                                   << "AB";
        QTest::newRow("line feed") << "RUA A\nN 5"
                                   << "RUA A N 5";
        QTest::newRow("CR LF is one break") << "RUA A\r\nN 5"
                                            << "RUA A N 5";
        QTest::newRow("unicode line separator") << QString("A") + QChar(0x2028) + "B"
                                                << "A B";
        QTest::newRow("quote stays") << "D'AVILA"
                                     << "D'AVILA";
        QTest::newRow("tab is a blank") << "A\tB"
                                        << "A B";
        QTest::newRow("tabs of a pasted table") << "POSTO\t\tRUA A\r\n"
                                                << "POSTO  RUA A ";
    }

    void oneLine() {
        QFETCH(QString, text);
        QFETCH(QString, cleaned);
        QCOMPARE(rules::limpaLinha(text), cleaned);
        for (const QChar c : cleaned)
            QVERIFY(rules::cabeNaLinha(c));
    }
};

QTEST_GUILESS_MAIN(TestFilters)
#include "test_filters.moc"
