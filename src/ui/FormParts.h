#pragma once

#include "store/RowWriter.h"
#include "ui/Refusal.h"

#include <QList>
#include <QString>
#include <QVariant>
#include <utility>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QWidget;

namespace store {
class Database;
}

// The building blocks of the screens' forms.
namespace ui {

class FieldSet;

QLineEdit* lineEdit(const QString& name, QWidget* parent);
// A button of an edit screen (cmdOk, cmdCancelar, ...). A click leaves the field where it is,
// so that Ok runs the field's own checks first, as leaving it would.
QPushButton* editButton(const QString& name, const QString& caption, QWidget* parent);
QComboBox* comboBox(const QString& name, QWidget* parent);

// A fixed list: the texts shown, the codes stored as the items' data.
void fixedList(QComboBox* combo, const QList<std::pair<QString, QVariant>>& items);
// A list from the database: column 1 the text shown, column 0 the code as the item's data.
void databaseList(store::Database& db, QComboBox* combo, const QString& sql,
                  const QVariantList& values = {});

// A field inside a frame of its own (picNTANQU, picNBOMBA): the frame is what freezes the key.
QWidget* keyBox(const QString& name, QWidget* field, QWidget* parent);
// A label and its field side by side in a grid.
void addField(QGridLayout* grid, int row, int column, const QString& label, QWidget* field,
              QWidget* parent);

// The date of a date field as stored, or Null for an empty field.
QVariant dateValue(const QLineEdit* field);

// The installation date and the integrity report of a piece of equipment: the report's
// condition (cmbitesteestnq) and its date, which only a report made has.
struct IntegrityReport {
    QLineEdit* installed = nullptr; // mskAINSTL
    QComboBox* condition = nullptr; // cmbitesteestnq
    QLineEdit* date = nullptr;      // mskATESTEESTNQ
    QWidget* next = nullptr;        // where the focus goes when the report has no date

    // The checks of leaving one of the three fields; the first refusal or nothing.
    Check leaveCheck(QWidget* field) const;
    // A report made opens its date; any other condition empties the date and closes it.
    void conditionChosen() const;
    // Declares the report's condition (cmbitesteestnq) and date (mskATESTEESTNQ) in `set`, bound
    // to this report, and returns the frame that holds them.
    QWidget* declare(FieldSet& set, QWidget* parent, const QString& frameTitle,
                     const QString& dateLabel);
    // Shows the condition of a stored row (its date is loaded with the row): a report with a
    // date was made, whatever its stored condition says; without a date it is "Não Realizado"
    // only when stored so, and on a change its date stays closed.
    void showStored(const store::Row& row, bool changing) const;
};

} // namespace ui
