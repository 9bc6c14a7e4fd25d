#include "rules/NumberPattern.h"

#include <QTest>

class TestNumberPattern : public QObject {
    Q_OBJECT

private slots:
    void formatDigits_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text");
        QTest::newRow("CEP") << QVariant(5459900) << "00000-000"
                             << "05459-900";
        QTest::newRow("CEP of the capital's centre") << QVariant(1204000) << "00000-000"
                                                     << "01204-000";
        QTest::newRow("DDD") << QVariant(11) << "000"
                             << "011";
        QTest::newRow("eight-digit phone") << QVariant(30301000) << "###0-0000"
                                           << "3030-1000";
        QTest::newRow("seven-digit phone") << QVariant(2451234) << "###0-0000"
                                           << "245-1234";
        QTest::newRow("short number keeps the dash") << QVariant(5) << "###0-0000"
                                                     << "0-0005";
        QTest::newRow("nine-digit mobile overflows to the front")
            << QVariant(912345678) << "###0-0000"
            << "91234-5678";
        QTest::newRow("Null is empty, not zeros") << QVariant() << "###0-0000"
                                                  << "";
        QTest::newRow("Null read from a number column")
            << QVariant(QMetaType::fromType<int>()) << "00000-000"
            << "";
        QTest::newRow("text that is no number") << QVariant("abc") << "000"
                                                << "";
        QTest::newRow("number as text") << QVariant("13024040") << "00000-000"
                                        << "13024-040";
    }

    void formatDigits() {
        QFETCH(QVariant, value);
        QFETCH(QString, pattern);
        QFETCH(QString, text);
        QCOMPARE(rules::formatDigits(value, pattern), text);
    }
};

QTEST_GUILESS_MAIN(TestNumberPattern)
#include "test_number_pattern.moc"
