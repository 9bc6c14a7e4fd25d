#pragma once

#include "ui/Refusal.h"

#include <QString>

class QGridLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace ui {
class FieldSet;
}

// Small parts that the leak, protection, basin, movement and monitoring screens share.
namespace fuel {

// The words of the checks of leaving a date field: an empty `required` lets the field be empty.
struct DateWords {
    QString required; // no date typed
    QString wrong;    // no calendar date, a month above 12, a day above 31
    QString future;   // a date after today
};

// The checks of leaving a date field, in that order; the first refusal or nothing.
ui::Check checkDate(QLineEdit* field, const DateWords& words);

// A label for a field that the field set builds without one (a pair of options): attached as
// the buddy of the field's first button, so that it names the field.
QLabel* optionsLabel(const QString& caption, QWidget* options, QWidget* parent);

// Puts every field of `fields` whose objectName is in `names` into `grid`, one per row from `row`,
// label and field side by side at `column`.
void placeColumn(const ui::FieldSet& fields, QGridLayout* grid, int row, int column,
                 const QStringList& names);

} // namespace fuel
