// The one way a CNPJ, a CPF and a CEP are written out, on lists, mails and the memorial alike.
#include "rules/Formats.h"

#include <QTest>

class TestFormats : public QObject {
    Q_OBJECT

private slots:
    void numbersGetTheirLeadingZerosBack() {
        // Stored as numbers, they lose their leading zeros; the text puts them back.
        QCOMPARE(rules::cnpjText(1234567000189LL), QStringLiteral("01.234.567/0001-89"));
        QCOMPARE(rules::cnpjText(QStringLiteral("12345678000195")),
                 QStringLiteral("12.345.678/0001-95"));
        QCOMPARE(rules::cnpjText(1.2345678000195e13), QStringLiteral("12.345.678/0001-95"));
        QCOMPARE(rules::cepText(1310100), QStringLiteral("01310-100"));
        QCOMPARE(rules::cpfText(12345678909LL), QStringLiteral("123.456.789-09"));
    }

    void aCpfOrACnpjByItsLength() {
        QCOMPARE(rules::cpfCnpjText(2345678909LL), QStringLiteral("023.456.789-09"));
        QCOMPARE(rules::cpfCnpjText(12345678000195LL), QStringLiteral("12.345.678/0001-95"));
    }

    void nothingStoredIsNoNumber() {
        QCOMPARE(rules::cnpjText(QVariant()), QString());
        QCOMPARE(rules::cepText(QStringLiteral("  ")), QString());
        // More digits than the mask has places are shown as they are, never cut.
        QCOMPARE(rules::cepText(QStringLiteral("1234567890")), QStringLiteral("1234567890"));
    }
};

QTEST_GUILESS_MAIN(TestFormats)
#include "test_formats.moc"
