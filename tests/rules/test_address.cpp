#include "rules/Address.h"

#include <QTest>

class TestAddress : public QObject {
    Q_OBJECT

private slots:
    void patterns() {
        const rules::CepPatterns p = rules::cepPatterns("12345678");
        QCOMPARE(p.fourAndStar, QStringLiteral("1234*"));
        QCOMPARE(p.threeAndStars, QStringLiteral("123**"));
        QCOMPARE(p.five, QStringLiteral("12345"));
    }

    void consistecep100_data() {
        QTest::addColumn<QString>("nMuncp");
        QTest::addColumn<QString>("nSeqnc");
        QTest::addColumn<int>("regional");
        QTest::addColumn<QString>("result");
        QTest::newRow("32000 lies in no block") << "100"
                                                << "32000" << 29 << "";
        QTest::newRow("32001, office 45") << "100"
                                          << "32001" << 45 << "";
        QTest::newRow("32001, another office") << "100"
                                               << "32001" << 29 << "sim";
        QTest::newRow("42000 belongs to the first block") << "100"
                                                          << "42000" << 29 << "sim";
        QTest::newRow("42000, office 45") << "100"
                                          << "42000" << 45 << "";
        QTest::newRow("42001 belongs to 29") << "100"
                                             << "42001" << 29 << "";
        QTest::newRow("99999 belongs to 45") << "100"
                                             << "99999" << 45 << "";
        QTest::newRow("99000 belongs to 33") << "100"
                                             << "99000" << 33 << "";
        QTest::newRow("96500 belongs to 29") << "100"
                                             << "96500" << 30 << "sim";
        QTest::newRow("97500 belongs to 30") << "100"
                                             << "97500" << 30 << "";
        QTest::newRow("52000 belongs to 29") << "100"
                                             << "52000" << 29 << "";
        QTest::newRow("shared block, 16") << "100"
                                          << "55000" << 16 << "";
        QTest::newRow("shared block, 31") << "100"
                                          << "62000" << 31 << "";
        QTest::newRow("shared block, 29") << "100"
                                          << "55000" << 29 << "sim";
        QTest::newRow("62001 belongs to 33") << "100"
                                             << "62001" << 45 << "sim";
        QTest::newRow("82000 belongs to 30") << "100"
                                             << "82000" << 30 << "";
        QTest::newRow("82001 lies in no block") << "100"
                                                << "82001" << 1 << "";
        QTest::newRow("ordinary number") << "100"
                                         << "17" << 45 << "";
        QTest::newRow("empty number") << "100"
                                      << "" << 45 << "";
        QTest::newRow("only the first five characters") << "100"
                                                        << "420001" << 45 << "";
        QTest::newRow("another municipality is not checked") << "101"
                                                             << "42000" << 29 << "";
        QTest::newRow("capital written with zeros") << "0100"
                                                    << "42000" << 29 << "sim";
    }

    void consistecep100() {
        QFETCH(QString, nMuncp);
        QFETCH(QString, nSeqnc);
        QFETCH(int, regional);
        QFETCH(QString, result);
        QCOMPARE(rules::consistecep100(nMuncp, nSeqnc, regional), result);
    }

    void lengths() {
        QVERIFY(rules::cepCompleto("12345-678"));
        QVERIFY(rules::cepCompleto("12345678"));
        QVERIFY(!rules::cepCompleto("12345-67_"));
        QVERIFY(!rules::cepCompleto(" 1234567"));
        QVERIFY(!rules::cepCompleto("123456789"));

        QVERIFY(rules::telefoneIncompleto(""));
        QVERIFY(rules::telefoneIncompleto("123456"));
        QVERIFY(!rules::telefoneIncompleto("1234567"));
        QVERIFY(!rules::faxIncompleto(""));
        QVERIFY(rules::faxIncompleto("123456"));
        QVERIFY(!rules::faxIncompleto("12345678"));
    }

    void ddd_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("incorrect");
        QTest::addColumn<QString>("shown");
        QTest::newRow("two digits") << "11" << false << "011";
        QTest::newRow("with its zero") << "011" << false << "011";
        QTest::newRow("four digits") << "0019" << false << "019";
        QTest::newRow("one digit") << "1" << true << "001";
        QTest::newRow("below the lowest") << "09" << true << "009";
        QTest::newRow("the lowest") << "10" << false << "010";
        QTest::newRow("empty") << "" << false << "";
    }

    void ddd() {
        QFETCH(QString, text);
        QFETCH(bool, incorrect);
        QFETCH(QString, shown);
        QCOMPARE(rules::dddIncorreto(text), incorrect);
        QCOMPARE(rules::formataDdd(text), shown);
    }

    void stateOfMunicipality() {
        QCOMPARE(rules::ufDoMunicipio(100, QString()), QStringLiteral("SP"));
        QCOMPARE(rules::ufDoMunicipio(744, QStringLiteral("X")), QStringLiteral("SP"));
        QCOMPARE(rules::ufDoMunicipio(11, QStringLiteral("MG")), QStringLiteral("MG"));
        QVERIFY(rules::isEstado(26));
        QVERIFY(!rules::isEstado(100));
    }
};

QTEST_GUILESS_MAIN(TestAddress)
#include "test_address.moc"
