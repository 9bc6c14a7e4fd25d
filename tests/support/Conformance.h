#pragma once

#include "store/TableCatalogue.h"
#include "ui/FieldSet.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

// Checks that hold for every declared field set, whatever its screen: what a screen declares is
// what it stores and what the catalogue carries. Each check reports through QTest; a caller
// goes on only while QTest::currentTestFailed() is false.
namespace testsupport {

// A value that a field of its kind accepts: a digit, a date, the first item of a list.
inline void fillGeneric(const ui::FieldSet& set, const ui::Field& field) {
    QWidget* widget = set.widget(field.name);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        if (combo->count() > 0)
            combo->setCurrentIndex(combo->count() - 1);
        return;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setChecked(true);
        return;
    }
    if (field.kind == ui::FieldKind::Choice) {
        const auto options = widget->findChildren<QAbstractButton*>();
        if (!options.isEmpty())
            options.last()->setChecked(true);
        return;
    }
    auto* edit = qobject_cast<QLineEdit*>(widget);
    QVERIFY2(edit, qPrintable(field.name));
    switch (field.kind) {
    case ui::FieldKind::Date:
        edit->setText(QStringLiteral("05/03/2020"));
        break;
    case ui::FieldKind::Time:
        edit->setText(QStringLiteral("07:45"));
        break;
    case ui::FieldKind::Decimal:
        edit->setText(QStringLiteral("2,5"));
        break;
    case ui::FieldKind::Number:
        edit->setText(QStringLiteral("7"));
        break;
    default:
        edit->setText(QStringLiteral("A"));
        break;
    }
}

// Every stored field names a column of the set's table; a text field takes no more characters
// than the catalogue carries (the export would refuse the rest); every field has a name that a
// screen reader can speak.
inline void checkDeclarations(const ui::FieldSet& set) {
    const store::Table& table = store::table(set.table());
    for (const ui::Field* field : set.fields()) {
        const QByteArray name = field->name.toLatin1();
        QWidget* widget = set.widget(field->name);
        QVERIFY2(widget && widget->objectName() == field->name, name.constData());
        if (!field->label.isEmpty() && set.label(field->name))
            QCOMPARE(set.label(field->name)->buddy(), widget);
        if (field->column.empty())
            continue;
        QVERIFY2(table.indexOf(field->column) >= 0, name.constData());
        const int carried = table.column(field->column).length;
        if (const auto* edit = qobject_cast<const QLineEdit*>(widget);
            edit && field->kind == ui::FieldKind::Text && carried > 0)
            QVERIFY2(edit->maxLength() <= carried, name.constData());
    }
}

// What the fields hold comes back the same after it went to the row and back.
inline void checkRoundTrip(const ui::FieldSet& set) {
    for (const ui::Field* field : set.fields()) {
        fillGeneric(set, *field);
        if (QTest::currentTestFailed())
            return;
    }
    const store::Row written = set.values();
    set.clear();
    set.load(written);
    const store::Row read = set.values();
    for (auto it = written.cbegin(); it != written.cend(); ++it)
        QVERIFY2(
            read.value(it.key()).toString() == it.value().toString(),
            qPrintable(
                QStringLiteral("%1.%2: %3 came back as %4")
                    .arg(QString::fromLatin1(set.table().data(), qsizetype(set.table().size())),
                         it.key(), it.value().toString(), read.value(it.key()).toString())));
}

// An empty form is refused field by field in the order of the declaration.
inline void checkRequiredOrder(const ui::FieldSet& set) {
    set.clear();
    qsizetype last = -1;
    for (int step = 0; step < 100; ++step) {
        const ui::Check refused = set.validate();
        if (!refused)
            return;
        const QList<const ui::Field*> fields = set.fields();
        qsizetype at = -1;
        for (qsizetype i = 0; i < fields.size(); ++i) {
            if (fields.at(i)->name == refused->field ||
                refused->field.startsWith(fields.at(i)->name + QLatin1Char('_')))
                at = i;
        }
        // A refusal of the field's own further checks ends what a generic value can pass.
        if (at < 0 || fields.at(at)->required != refused->message)
            return;
        QVERIFY2(at > last, qPrintable(refused->message));
        last = at;
        fillGeneric(set, *fields.at(at));
        // A list with nothing to choose (no battery yet, say) ends the walk here.
        if (set.isEmpty(fields.at(at)->name))
            return;
    }
}

} // namespace testsupport
