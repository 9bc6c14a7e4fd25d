#include "support/ScriptedDialogs.h"
#include "ui/FieldBehaviour.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

namespace {

// A window with the field under test and a neighbour to move the focus to.
struct Form {
    QWidget window;
    QLineEdit* field = new QLineEdit(&window);
    QLineEdit* next = new QLineEdit(&window);

    Form() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(next);
        window.show();
        window.activateWindow();
    }
    bool ready() { return QTest::qWaitForWindowActive(&window); }
    void enter() { field->setFocus(Qt::TabFocusReason); }
    void leave() { next->setFocus(Qt::TabFocusReason); }
    // keyClicks knows the keys of ASCII and Latin-1 signs; other letters arrive as the text
    // of a key press, as an input method delivers them.
    void type(const QString& keys) {
        enter();
        for (const QChar c : keys) {
            if (c.unicode() < 128 || c == QChar(0xAC)) {
                QTest::keyClicks(field, QString(c));
            } else {
                QTest::sendKeyEvent(QTest::Press, field, Qt::Key_unknown, QString(c),
                                    Qt::NoModifier);
                QTest::sendKeyEvent(QTest::Release, field, Qt::Key_unknown, QString(c),
                                    Qt::NoModifier);
            }
        }
    }
    void paste(const QString& text) {
        enter();
        QGuiApplication::clipboard()->setText(text);
        field->paste();
    }
};

} // namespace

class TestFieldBehaviour : public QObject {
    Q_OBJECT

private slots:
    void freeText_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("quote becomes grave accent") << "D'AVILA"
                                                    << "D`AVILA";
        QTest::newRow("separator never enters") << "A¬B"
                                                << "AB";
        QTest::newRow("accents pass") << "São João"
                                      << "São João";
    }

    void freeText() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        Form form;
        QVERIFY(form.ready());
        ui::attachText(form.field);
        form.type(typed);
        QCOMPARE(form.field->text(), shown);
    }

    void pasteIntoFreeText_data() {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("shown");
        QTest::newRow("separator") << "RUA¬A"
                                   << "RUAA";
        QTest::newRow("line break") << "RUA A\nN 5"
                                    << "RUA A N 5";
        QTest::newRow("CR LF") << "RUA A\r\nN 5"
                               << "RUA A N 5";
        QTest::newRow("quote, as typed") << "D'AVILA"
                                         << "D`AVILA";
        QTest::newRow("tab") << "RUA A\tN 5"
                             << "RUA A N 5";
    }

    void pasteIntoFreeText() {
        QFETCH(QString, pasted);
        QFETCH(QString, shown);
        Form form;
        QVERIFY(form.ready());
        ui::attachText(form.field);
        form.type("X");
        form.paste(pasted);
        QCOMPARE(form.field->text(), "X" + shown);
        QCOMPARE(form.field->cursorPosition(), form.field->text().size());
    }

    void everyFieldOfAScreenIsGuarded() {
        Form form;
        QVERIFY(form.ready());
        auto* combo = new QComboBox(&form.window);
        combo->setEditable(true);
        ui::guardLines(&form.window);
        form.type("A¬B");
        QCOMPARE(form.field->text(), QStringLiteral("AB"));
        form.paste("\nC¬\n");
        QCOMPARE(form.field->text(), QStringLiteral("AB C "));
        // No quote filter on a field that only has the guard.
        form.next->setFocus();
        QTest::keyClicks(form.next, "D'A");
        QCOMPARE(form.next->text(), QStringLiteral("D'A"));
        QGuiApplication::clipboard()->setText("X¬Y\nZ");
        combo->lineEdit()->paste();
        QCOMPARE(combo->currentText(), QStringLiteral("XY Z"));
    }

    void upperCaseOnLeaving() {
        Form form;
        QVERIFY(form.ready());
        ui::attachText(form.field, ui::Case::Upper);
        form.type("rua são joão");
        QCOMPARE(form.field->text(), QStringLiteral("rua são joão"));
        form.leave();
        QCOMPARE(form.field->text(), QStringLiteral("RUA SÃO JOÃO"));
    }

    void digits() {
        Form form;
        QVERIFY(form.ready());
        ui::attachDigits(form.field);
        form.type("12a3-4 ¬5");
        QCOMPARE(form.field->text(), QStringLiteral("12345"));
        QTest::keyClick(form.field, Qt::Key_Backspace);
        QCOMPARE(form.field->text(), QStringLiteral("1234"));
        form.paste("9.876-5\n");
        QCOMPARE(form.field->text(), QStringLiteral("123498765"));
    }

    void decimalComma() {
        testsupport::ScriptedDialogs dialogs;
        Form form;
        QVERIFY(form.ready());
        form.field->setMaxLength(8);
        ui::attachDecimal(form.field, 15, 2);

        form.type(",");
        QCOMPARE(form.field->text(), QString()); // a comma first is swallowed
        QTest::keyClicks(form.field, ",");
        QCOMPARE(form.field->text(), QString());

        QTest::keyClicks(form.field, "1234a.");
        QCOMPARE(form.field->text(), QStringLiteral("1234"));
        QTest::keyClicks(form.field, ",5,");
        QCOMPARE(form.field->text(), QStringLiteral("1234,5")); // no second comma
        QCOMPARE(form.field->maxLength(), 15);                  // the comma widened the field
        QVERIFY(dialogs.shown().isEmpty());

        QTest::keyClicks(form.field, "67");
        QCOMPARE(form.field->text(), QStringLiteral("1234,56"));
        QCOMPARE(dialogs.texts(), QStringList{"Digitar apenas 2 casas decimais"});
        QCOMPARE(dialogs.last().icon, ui::Icon::Critical);
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
    }

    void decimalPaste() {
        testsupport::ScriptedDialogs dialogs;
        Form form;
        QVERIFY(form.ready());
        form.field->setMaxLength(15);
        ui::attachDecimal(form.field, 15, 2);
        form.paste("1.234,5678");
        QCOMPARE(form.field->text(), QStringLiteral("1234,56"));
        QCOMPARE(dialogs.texts(), QStringList{"Digitar apenas 2 casas decimais"});
    }

    // A screen that words the refusal of a third decimal its own way.
    void decimalWithItsOwnMessage() {
        testsupport::ScriptedDialogs dialogs;
        Form form;
        QVERIFY(form.ready());
        form.field->setMaxLength(15);
        ui::attachDecimal(form.field, 15, 2, "Apenas 2 casas decimais serão consideradas");
        form.type("12,345");
        QCOMPARE(form.field->text(), QStringLiteral("12,34"));
        QCOMPARE(dialogs.texts(), QStringList{"Apenas 2 casas decimais serão consideradas"});
    }

    void displayMask() {
        Form form;
        QVERIFY(form.ready());
        ui::attachDigits(form.field);
        ui::attachDisplayMask(form.field, "@@.@@@.@@@/@@@@-@@");
        form.type("11222333000181999");
        QCOMPARE(form.field->text(), QStringLiteral("11222333000181")); // no more than the places
        form.leave();
        QCOMPARE(form.field->text(), QStringLiteral("11.222.333/0001-81"));
        QCOMPARE(form.field->maxLength(), 18);
        form.enter();
        QCOMPARE(form.field->text(), QStringLiteral("11222333000181"));
        QTest::keyClick(form.field, Qt::Key_End);
        QTest::keyClick(form.field, Qt::Key_Backspace);
        QTest::keyClick(form.field, Qt::Key_Backspace);
        form.leave();
        // A short value fills the places from the right.
        QCOMPARE(form.field->text(), QStringLiteral(".112.223/3300-01"));
    }

    void masks_data() {
        QTest::addColumn<int>("mask");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("clip");
        using M = ui::Mask;
        QTest::newRow("CEP") << int(M::Cep) << "12345678"
                             << "12345-678"
                             << "12345678";
        QTest::newRow("CEP, letters refused") << int(M::Cep) << "12a34"
                                              << "1234_-___"
                                              << "1234";
        QTest::newRow("CEP, empty") << int(M::Cep) << ""
                                    << "_____-___"
                                    << "";
        QTest::newRow("telephone") << int(M::Telephone) << "32145678"
                                   << "3214-5678"
                                   << "32145678";
        QTest::newRow("telephone, part") << int(M::Telephone) << "321"
                                         << "321_-____"
                                         << "321";
        QTest::newRow("date") << int(M::Date) << "15032024"
                              << "15/03/2024"
                              << "15032024";
        QTest::newRow("date, empty") << int(M::Date) << ""
                                     << "__/__/____"
                                     << "";
        QTest::newRow("time") << int(M::Time) << "0930"
                              << "09:30"
                              << "0930";
        QTest::newRow("time, separator refused") << int(M::Time) << "¬1"
                                                 << "1_:__"
                                                 << "1";
    }

    void masks() {
        QFETCH(int, mask);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(QString, clip);
        Form form;
        QVERIFY(form.ready());
        ui::attachMask(form.field, ui::Mask(mask));
        form.type(typed);
        QCOMPARE(form.field->displayText(), shown);
        QCOMPARE(ui::clipText(form.field), clip);

        // Off and on again: the same characters come back into the places.
        form.field->clear();
        QCOMPARE(ui::clipText(form.field), QString());
        ui::setClipText(form.field, clip);
        QCOMPARE(form.field->displayText(), shown);
        QCOMPARE(ui::clipText(form.field), clip);
    }

    void maskedEntryStartsAtTheFirstPlace() {
        Form form;
        QVERIFY(form.ready());
        ui::attachMask(form.field, ui::Mask::Date);
        form.leave();
        form.field->setCursorPosition(6);
        form.enter();
        QTest::qWait(1);
        QTest::keyClicks(form.field, "01022024");
        QCOMPARE(form.field->text(), QStringLiteral("01/02/2024"));
    }

    void unmaskedClipText() {
        QLineEdit edit;
        ui::setClipText(&edit, "abc");
        QCOMPARE(ui::clipText(&edit), QStringLiteral("abc"));
    }
};

QTEST_MAIN(TestFieldBehaviour)
#include "test_field_behaviour.moc"
