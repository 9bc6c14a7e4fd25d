#include "fuel/FuelParts.h"

#include "ui/FieldSet.h"
#include "ui/FieldSupport.h"

#include <QAbstractButton>
#include <QDate>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace fuel {

ui::Check checkDate(QLineEdit* field, const DateWords& words) {
    if (ui::clipText(field).isEmpty()) {
        if (words.required.isEmpty())
            return {};
        return ui::Refusal{field, words.required};
    }
    if (ui::wrongDate(field))
        return ui::Refusal{field, words.wrong};
    if (ui::dateOf(field) > QDate::currentDate())
        return ui::Refusal{field, words.future};
    return {};
}

QLabel* optionsLabel(const QString& caption, QWidget* options, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    const auto buttons = options->findChildren<QAbstractButton*>();
    label->setBuddy(buttons.isEmpty() ? options : buttons.first());
    return label;
}

void placeColumn(const ui::FieldSet& fields, QGridLayout* grid, int row, int column,
                 const QStringList& names) {
    for (const QString& name : names)
        fields.place(grid, row++, column, name);
}

} // namespace fuel
