#include "ui/FieldSet.h"

#include "rules/Filters.h"
#include "rules/Formats.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "store/SqlValues.h"
#include "store/TableCatalogue.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTime>
#include <stdexcept>

namespace ui {

namespace {

QString columnName(std::string_view column) {
    return QString::fromLatin1(column.data(), qsizetype(column.size()));
}

std::string_view listOf(const Field& field) {
    return field.codes.empty() ? field.column : field.codes;
}

bool isCombo(FieldKind kind) {
    return kind == FieldKind::Codes || kind == FieldKind::Dictionary;
}

bool isLineEdit(FieldKind kind) {
    return !isCombo(kind) && kind != FieldKind::Check && kind != FieldKind::Choice;
}

} // namespace

QString snapshotText(const QWidget* field) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(field))
        return edit->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(field))
        return combo->currentText();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(field))
        return text->toPlainText();
    if (const auto* check = qobject_cast<const QAbstractButton*>(field))
        return check->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    QString options;
    for (const QAbstractButton* option : field->findChildren<QAbstractButton*>())
        options += option->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
    return options;
}

QHash<QString, QString> codeLabels(std::string_view list) {
    QHash<QString, QString> labels;
    for (const store::Code& code : store::codeList(list))
        labels.insert(code.code.toString(), code.label);
    return labels;
}

FieldSet::FieldSet(std::string_view table, QWidget* owner)
    : m_table(table)
    , m_owner(owner) {}

int FieldSet::lengthOf(const Field& field) const {
    if (field.length > 0 || field.column.empty())
        return field.length;
    return store::table(m_table).column(field.column).length;
}

QWidget* FieldSet::add(Field field, QWidget* parent) {
    if (!parent)
        parent = m_owner;
    if (!field.column.empty())
        store::table(m_table).column(field.column); // an unknown column fails here, at once
    Entry e;
    e.widget = m_owner->findChild<QWidget*>(field.name);
    const int length = lengthOf(field);
    if (isLineEdit(field.kind)) {
        auto* edit = qobject_cast<QLineEdit*>(e.widget);
        if (!edit) {
            edit = lineEdit(field.name, parent);
            e.widget = edit;
        }
        switch (field.kind) {
        case FieldKind::Text:
            attachText(edit, field.letterCase);
            break;
        case FieldKind::Number:
            attachDigits(edit);
            break;
        case FieldKind::Decimal:
            attachDecimal(edit, field.commaLength, field.places);
            break;
        case FieldKind::Date:
            attachMask(edit, Mask::Date);
            break;
        case FieldKind::Time:
            attachMask(edit, Mask::Time);
            break;
        default:
            break;
        }
        if (length > 0 && field.kind != FieldKind::Date && field.kind != FieldKind::Time)
            edit->setMaxLength(length);
    } else if (isCombo(field.kind)) {
        auto* combo = qobject_cast<QComboBox*>(e.widget);
        if (!combo) {
            combo = comboBox(field.name, parent);
            e.widget = combo;
        }
        if (field.kind == FieldKind::Codes) {
            for (const store::Code& code : store::codeList(listOf(field)))
                combo->addItem(code.label, code.code);
            combo->setCurrentIndex(-1);
        }
    } else if (field.kind == FieldKind::Check) {
        if (!e.widget) {
            auto* box = new QCheckBox(field.label, parent);
            box->setObjectName(field.name);
            e.widget = box;
        }
    } else {
        // Option buttons in a row of their own, the container named as the field.
        if (!e.widget) {
            e.widget = new QWidget(parent);
            e.widget->setObjectName(field.name);
            auto* row = new QHBoxLayout(e.widget);
            row->setContentsMargins(0, 0, 0, 0);
            int index = 0;
            for (const store::Code& code : store::codeList(listOf(field))) {
                auto* option = new QRadioButton(code.label, e.widget);
                option->setObjectName(field.name + QLatin1Char('_') + QString::number(index++));
                row->addWidget(option);
            }
            row->addStretch(1);
        }
        e.options = e.widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        if (!field.label.isEmpty())
            e.widget->setAccessibleName(field.label);
    }
    if (!field.label.isEmpty() && field.kind != FieldKind::Check &&
        field.kind != FieldKind::Choice) {
        e.label = new QLabel(field.label, parent);
        e.label->setBuddy(e.widget);
    }
    e.field = std::move(field);
    m_entries.push_back(std::move(e));
    return m_entries.back().widget;
}

const FieldSet::Entry& FieldSet::entry(const QString& name) const {
    for (const Entry& e : m_entries) {
        if (e.field.name == name)
            return e;
    }
    throw std::out_of_range("no field " + name.toStdString());
}

const FieldSet::Entry* FieldSet::entryOf(const QWidget* widget) const {
    for (const Entry& e : m_entries) {
        if (e.widget == widget || e.options.contains(widget))
            return &e;
    }
    return nullptr;
}

const Field& FieldSet::field(const QString& name) const {
    return entry(name).field;
}

QWidget* FieldSet::widget(const QString& name) const {
    return entry(name).widget;
}

QLineEdit* FieldSet::edit(const QString& name) const {
    return qobject_cast<QLineEdit*>(widget(name));
}

QComboBox* FieldSet::combo(const QString& name) const {
    return qobject_cast<QComboBox*>(widget(name));
}

QLabel* FieldSet::label(const QString& name) const {
    return entry(name).label;
}

QList<QWidget*> FieldSet::widgets() const {
    QList<QWidget*> all;
    for (const Entry& e : m_entries)
        all << e.widget;
    return all;
}

bool FieldSet::contains(const QWidget* widget) const {
    return entryOf(widget) != nullptr;
}

void FieldSet::place(QGridLayout* grid, int row, int column, const QString& name, int span) const {
    const Entry& e = entry(name);
    if (e.label)
        grid->addWidget(e.label, row, column);
    // A key field sits in a box of its own, which is what goes into the grid.
    QWidget* shown = e.widget;
    if (shown->parentWidget() &&
        shown->parentWidget()->objectName().startsWith(QLatin1String("pic")))
        shown = shown->parentWidget();
    grid->addWidget(shown, row, column + 1, 1, span);
}

void FieldSet::loadLists(store::Database& db) const {
    for (const Entry& e : m_entries) {
        if (e.field.kind == FieldKind::Dictionary && !e.field.dictionary.isEmpty())
            databaseList(db, qobject_cast<QComboBox*>(e.widget), e.field.dictionary);
    }
}

void FieldSet::load(const store::Row& row) const {
    for (const Entry& e : m_entries) {
        if (e.field.column.empty())
            continue;
        const QString column = columnName(e.field.column);
        if (row.contains(column))
            setValue(e.field.name, row.value(column));
    }
}

void FieldSet::setValue(const QString& name, const QVariant& stored) const {
    const Entry& e = entry(name);
    auto* edit = qobject_cast<QLineEdit*>(e.widget);
    switch (e.field.kind) {
    case FieldKind::Text: {
        const QString text = stored.toString();
        // A stored text longer than the field types is shown whole, never cut.
        if (edit->maxLength() < text.size())
            edit->setMaxLength(int(text.size()));
        edit->setText(text);
        break;
    }
    case FieldKind::Number: {
        const QString text = stored.isNull() ? QString() : QString::number(stored.toLongLong());
        if (edit->maxLength() < text.size())
            edit->setMaxLength(int(text.size()));
        edit->setText(text);
        break;
    }
    case FieldKind::Decimal:
        // Shown with the decimal comma in which it is typed.
        edit->setText(stored.isNull()
                          ? QString()
                          : stored.toString().replace(QLatin1Char('.'), QLatin1Char(',')));
        break;
    case FieldKind::Date:
        setDate(edit, store::readDate(stored));
        break;
    case FieldKind::Time: {
        const QTime time = QTime::fromString(stored.toString().left(5), QStringLiteral("HH:mm"));
        if (time.isValid())
            edit->setText(time.toString(QStringLiteral("HH:mm")));
        else
            clearMasked(edit);
        break;
    }
    case FieldKind::Codes:
    case FieldKind::Dictionary: {
        auto* combo = qobject_cast<QComboBox*>(e.widget);
        int index = -1;
        for (int i = 0; i < combo->count() && !stored.isNull(); ++i) {
            if (combo->itemData(i).toString() == stored.toString())
                index = i;
        }
        combo->setCurrentIndex(index);
        break;
    }
    case FieldKind::Check: {
        const store::CodeList* codes =
            store::hasCodeList(listOf(e.field)) ? &store::codeList(listOf(e.field)) : nullptr;
        const bool ticked =
            codes ? stored.toString() == codes->front().code.toString() : stored.toLongLong() != 0;
        qobject_cast<QAbstractButton*>(e.widget)->setChecked(ticked);
        break;
    }
    case FieldKind::Choice: {
        const store::CodeList& codes = store::codeList(listOf(e.field));
        for (std::size_t i = 0; i < codes.size() && i < std::size_t(e.options.size()); ++i) {
            if (!stored.isNull() && codes[i].code.toString() == stored.toString())
                qobject_cast<QAbstractButton*>(e.options.at(qsizetype(i)))->setChecked(true);
        }
        break;
    }
    }
}

QVariant FieldSet::value(const QString& name) const {
    const Entry& e = entry(name);
    const auto* edit = qobject_cast<const QLineEdit*>(e.widget);
    switch (e.field.kind) {
    case FieldKind::Text:
        return store::textValue(edit->text());
    case FieldKind::Number:
        return edit->text().isEmpty() ? QVariant() : QVariant(edit->text().toLongLong());
    case FieldKind::Decimal:
        return edit->text().isEmpty() ? QVariant() : rules::numeroParaSql(edit->text());
    case FieldKind::Date:
        return dateValue(edit);
    case FieldKind::Time:
        return clipText(edit).isEmpty() ? QVariant()
                                        : QVariant(edit->text() + QStringLiteral(":00"));
    case FieldKind::Codes:
    case FieldKind::Dictionary:
        return chosenCode(qobject_cast<const QComboBox*>(e.widget));
    case FieldKind::Check: {
        const bool ticked = qobject_cast<const QAbstractButton*>(e.widget)->isChecked();
        if (!store::hasCodeList(listOf(e.field)))
            return ticked ? 1 : 0;
        const store::CodeList& codes = store::codeList(listOf(e.field));
        return ticked ? codes.front().code : codes.back().code;
    }
    case FieldKind::Choice: {
        const store::CodeList& codes = store::codeList(listOf(e.field));
        for (std::size_t i = 0; i < codes.size() && i < std::size_t(e.options.size()); ++i) {
            if (qobject_cast<const QAbstractButton*>(e.options.at(qsizetype(i)))->isChecked())
                return codes[i].code;
        }
        return {};
    }
    }
    return {};
}

store::Row FieldSet::values(const QStringList& only) const {
    store::Row row;
    for (const Entry& e : m_entries) {
        if (e.field.column.empty() || (!only.isEmpty() && !only.contains(e.field.name)))
            continue;
        row.insert(columnName(e.field.column), value(e.field.name));
    }
    return row;
}

bool FieldSet::isEmpty(const QString& name) const {
    const Entry& e = entry(name);
    switch (e.field.kind) {
    case FieldKind::Date:
    case FieldKind::Time:
        return clipText(qobject_cast<const QLineEdit*>(e.widget)).isEmpty();
    case FieldKind::Codes:
    case FieldKind::Dictionary:
        return qobject_cast<const QComboBox*>(e.widget)->currentText().isEmpty();
    case FieldKind::Check:
        return false;
    case FieldKind::Choice:
        return value(name).isNull();
    default:
        return qobject_cast<const QLineEdit*>(e.widget)->text().isEmpty();
    }
}

void FieldSet::clear() const {
    for (const Entry& e : m_entries) {
        if (auto* edit = qobject_cast<QLineEdit*>(e.widget))
            clearMasked(edit);
        else if (auto* combo = qobject_cast<QComboBox*>(e.widget))
            combo->setCurrentIndex(-1);
        else if (auto* button = qobject_cast<QAbstractButton*>(e.widget))
            button->setChecked(false);
        for (QWidget* option : e.options) {
            auto* button = qobject_cast<QAbstractButton*>(option);
            // Option buttons of one group clear only with the group's exclusivity off.
            const bool exclusive = button->autoExclusive();
            button->setAutoExclusive(false);
            button->setChecked(false);
            button->setAutoExclusive(exclusive);
        }
    }
}

bool FieldSet::applies(const Entry& e) const {
    if (e.field.applies)
        return e.field.applies();
    return e.widget->isVisibleTo(m_owner);
}

QList<QWidget*> FieldSet::shownWidgets() const {
    QList<QWidget*> shown;
    for (const Entry& e : m_entries) {
        if (e.widget->isVisibleTo(m_owner))
            shown << e.widget;
    }
    return shown;
}

QString FieldSet::snapshot() const {
    QString text;
    for (const QWidget* w : shownWidgets())
        text += snapshotText(w);
    return text;
}

Check FieldSet::validate() const {
    for (const Entry& e : m_entries) {
        if (!applies(e))
            continue;
        if (!e.field.required.isEmpty() && isEmpty(e.field.name))
            return Refusal{e.options.isEmpty() ? e.widget : e.options.first(), e.field.required};
        if (e.field.check) {
            if (Check refused = e.field.check())
                return refused;
        }
    }
    return {};
}

Check FieldSet::leave(const QWidget* widget) const {
    const Entry* e = entryOf(widget);
    if (!e || !e->field.leave)
        return {};
    return e->field.leave();
}

} // namespace ui
