#include "rules/CheckDigits.h"

#include <QTest>

class TestCheckDigits : public QObject {
    Q_OBJECT

private slots:
    void validaCgcCpf_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valid");

        // Real numbers, checked against the published rule.
        QTest::newRow("CNPJ 11.222.333/0001-81") << "11222333000181" << true;
        QTest::newRow("CNPJ 11.444.777/0001-61") << "11444777000161" << true;
        QTest::newRow("CNPJ 33.000.167/0001-01") << "33000167000101" << true;
        QTest::newRow("CNPJ 60.746.948/0001-12") << "60746948000112" << true;
        QTest::newRow("CPF 529.982.247-25") << "52998224725" << true;
        QTest::newRow("CPF 111.444.777-35") << "11144477735" << true;
        QTest::newRow("CPF 123.456.789-09") << "12345678909" << true;
        QTest::newRow("CPF 390.533.447-05") << "39053344705" << true;

        QTest::newRow("CNPJ, wrong last digit") << "11222333000182" << false;
        QTest::newRow("CNPJ, wrong first check digit") << "11444777000171" << false;
        QTest::newRow("CPF, wrong last digit") << "52998224724" << false;
        QTest::newRow("CPF, wrong first check digit") << "11144477745" << false;
        QTest::newRow("CPF, two digits swapped") << "52989224725" << false;

        // No list of refused numbers.
        QTest::newRow("all zeros, CNPJ") << "00000000000000" << true;
        QTest::newRow("all zeros, CPF") << "00000000000" << true;
        QTest::newRow("one repeated digit, CPF") << "11111111111" << true;
        QTest::newRow("empty text goes the CPF way") << "" << true;

        // 12 and 13 characters go the CNPJ way, the missing places counting as zeros.
        QTest::newRow("12 characters, CNPJ way") << "222333000165" << true;
        QTest::newRow("13 characters, CNPJ way") << "0222333000165" << true;
        QTest::newRow("12 characters, wrong as a CNPJ") << "052998224725" << false;
        // Blanks around do not count towards the length.
        QTest::newRow("CPF behind a blank") << " 52998224725" << true;

        // Anything but a digit counts as 0.
        QTest::newRow("last letter judged as 0, CPF") << "1000000028A" << true;
        QTest::newRow("last letter judged as 0, CNPJ") << "1122233300182X" << true;
        QTest::newRow("letter where a 0 does not fit") << "5299822472A" << false;
        QTest::newRow("letter in the middle") << "529X8224725" << false;
        // The punctuated form is not what the callers pass: its marks count as zeros.
        QTest::newRow("punctuated CNPJ") << "11.222.333/0001-81" << false;

        // The eighth digit of a CNPJ root is not checked on its own: a number whose old
        // module-10 digit would be wrong still passes when its check digits fit.
        QTest::newRow("eighth digit not enforced") << "11222334000126" << true;
    }

    void validaCgcCpf() {
        QFETCH(QString, texto);
        QFETCH(bool, valid);
        QCOMPARE(rules::validaCgcCpf(texto), valid);
    }
};

QTEST_GUILESS_MAIN(TestCheckDigits)
#include "test_check_digits.moc"
