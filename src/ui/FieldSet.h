#pragma once

#include "store/RowWriter.h"
#include "ui/FieldBehaviour.h"
#include "ui/Refusal.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>
#include <functional>
#include <string_view>
#include <vector>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace store {
class Database;
}

namespace ui {

// What a field holds and how it is typed, shown and stored.
enum class FieldKind {
    Text,       // free text, upper case on leaving unless told otherwise
    Number,     // digits only; stored as a whole number, Null when empty
    Decimal,    // digits and the decimal comma; stored with a point
    Date,       // "__/__/____", stored yyyy-MM-dd
    Time,       // "__:__", stored HH:mm:ss
    Codes,      // a combo over a fixed code list of store/CodeLists
    Dictionary, // a combo over the rows of a dictionary query: code, caption
    Check,      // a check box: the list's first code when ticked, its second when not
    Choice,     // option buttons, one per code of the list, named <name>_<index>
};

// One field of a screen, declared once: from this the field set builds the widget, takes the
// length from the catalogue's column, loads and reads the stored value, composes the change
// snapshot and runs the required-field refusal in the order of declaration.
struct Field {
    QString name = {};  // objectName, as the screens have always named it
    QString label = {}; // caption of the label attached as the field's buddy
    FieldKind kind = FieldKind::Text;
    std::string_view column = {};  // column of the set's table; empty for a field not stored
    QString required = {};         // refusal when the field is empty; empty for optional
    std::string_view codes = {};   // code list (Codes, Check, Choice); the column's by default
    QString dictionary = {};       // "Select code, caption From ..." for Dictionary
    int length = 0;                // typing limit; 0 takes the catalogue's length
    int places = 2;                // decimals of a Decimal field
    int commaLength = 15;          // the typing limit of a Decimal field once it has a comma
    Case letterCase = Case::Upper; // Text fields
    // Whether the field takes part in the validation now; by default, while it is shown.
    std::function<bool()> applies = {};
    // The field's further checks in the validation, run once it passed its required test.
    std::function<Check()> check = {};
    // The checks of leaving the field; may act on other fields.
    std::function<Check()> leave = {};
};

// The declared fields of one block of a screen over one table of the catalogue.
class FieldSet {
public:
    // `owner` is the screen: its widgets are found under it, and it is the parent of the labels.
    FieldSet(std::string_view table, QWidget* owner);

    // Declares a field. An existing widget of that objectName under the screen is taken (a
    // screen may build a field its own way), otherwise one is built under `parent`.
    QWidget* add(Field field, QWidget* parent = nullptr);

    std::string_view table() const { return m_table; }
    const Field& field(const QString& name) const;
    QWidget* widget(const QString& name) const;
    QLineEdit* edit(const QString& name) const;
    QComboBox* combo(const QString& name) const;
    QLabel* label(const QString& name) const;
    // The widgets in the order of declaration.
    QList<QWidget*> widgets() const;
    bool contains(const QWidget* widget) const;

    // Puts the field's label at (row, column) of `grid` and the field beside it.
    void place(QGridLayout* grid, int row, int column, const QString& name, int span = 1) const;

    // Fills the dictionary combos from the database; every combo is left without a choice. A
    // dictionary field without a query is filled by its screen (its list depends on the row).
    void loadLists(store::Database& db) const;

    // Shows a stored row: each field with a column of the row takes its value.
    void load(const store::Row& row) const;
    // Shows one stored value in a field.
    void setValue(const QString& name, const QVariant& stored) const;
    // The value of a field as stored (codes from the item data, never from the caption).
    QVariant value(const QString& name) const;
    // The stored fields, column to value; `only` restricts them to those names.
    store::Row values(const QStringList& only = {}) const;
    // Whether the field holds nothing: no text, no digit of a mask, no choice.
    bool isEmpty(const QString& name) const;
    // Empties every field.
    void clear() const;

    // The text that tells whether anything was changed: the fields shown, in order.
    QString snapshot() const;
    QList<QWidget*> shownWidgets() const;

    // The required-field refusals and the fields' own checks, in declaration order.
    Check validate() const;
    // The leaving check of the field that `widget` is, or nothing.
    Check leave(const QWidget* widget) const;

private:
    struct Entry {
        Field field;
        QWidget* widget = nullptr;
        QLabel* label = nullptr;
        QList<QWidget*> options; // the option buttons of a Choice
    };
    const Entry& entry(const QString& name) const;
    const Entry* entryOf(const QWidget* widget) const;
    bool applies(const Entry& e) const;
    int lengthOf(const Field& field) const;

    std::string_view m_table;
    QWidget* m_owner;
    std::vector<Entry> m_entries;
};

// The text of a field as the change snapshot sees it.
QString snapshotText(const QWidget* field);

// Stored code to caption of a code list, as a grid column shows its codes.
QHash<QString, QString> codeLabels(std::string_view list);

} // namespace ui
