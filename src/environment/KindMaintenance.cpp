#include "environment/KindMaintenance.h"

#include "environment/FieldRules.h"
#include "environment/KindFamily.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <algorithm>

namespace environment {

namespace {

QList<ui::Operation> operationsOf(const KindFamily& family) {
    return {
        {family.insertOperation, 0, true, true},
        {family.alterOperation, 0, false, true},
    };
}

// A field as wide as what it takes, so that no screen grows past its frame: a line edit by its
// length, a combo by its texts up to a limit (its list opens wide enough for the longest).
void fitWidth(QWidget* field) {
    const int character = field->fontMetrics().averageCharWidth();
    if (auto* edit = qobject_cast<QLineEdit*>(field)) {
        const int places = edit->inputMask().isEmpty() ? std::min(edit->maxLength(), 50)
                                                       : int(edit->displayText().size()) + 1;
        edit->setFixedWidth(character * std::max(places, 4) + 16);
    } else if (auto* combo = qobject_cast<QComboBox*>(field)) {
        int longest = 0;
        for (int i = 0; i < combo->count(); ++i)
            longest = std::max(longest, int(combo->itemText(i).size()));
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        // A dictionary list is filled later, and its texts are long.
        combo->setMinimumContentsLength(std::clamp(longest == 0 ? 40 : longest, 12, 48));
        combo->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
}

QString columnName(std::string_view column) {
    return QString::fromLatin1(column.data(), qsizetype(column.size()));
}

} // namespace

KindMaintenance::KindMaintenance(ui::ScreenHost& host, const KindFamily& family, QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName, operationsOf(family), parent)
    , m_family(family)
    , m_fields(family.table, this) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.maintenanceCaption);

    m_frame = new QGroupBox(family.frameTitle, this);
    m_frame->setObjectName(QStringLiteral("fraDados"));
    // Declared in the order of the checks: the kind and whether the register has it, the
    // family's fields, then the description of "Outros".
    m_kind = qobject_cast<QComboBox*>(m_fields.add({.name = family.kindField,
                                                    .label = family.kindLabel,
                                                    .kind = ui::FieldKind::Codes,
                                                    .column = family.kindColumn,
                                                    .required = family.kindRequired,
                                                    .codes = family.kindList,
                                                    .check = [this] { return kindTaken(); }},
                                                   m_frame));
    QList<QWidget*> order{m_kind};
    if (family.hasOther()) {
        // Built now, so that it follows the kind on the screen; checked last.
        m_other = ui::lineEdit(family.otherField, m_frame);
        order << m_other;
    }
    for (const KindField& declared : family.fields) {
        ui::Field field = declared.field;
        switch (declared.rule) {
        case KindField::Rule::Quantity:
            field.leave = [this, name = field.name] { return leaveQuantity(m_fields.edit(name)); };
            field.check = field.leave;
            break;
        case KindField::Rule::Count:
            field.leave = [this, name = field.name] { return leaveCount(m_fields.edit(name)); };
            break;
        case KindField::Rule::Hour:
            field.leave = [this, name = field.name] { return leaveHour(m_fields.edit(name)); };
            field.check = field.leave;
            break;
        case KindField::Rule::None:
            break;
        }
        QWidget* widget = m_fields.add(field, m_frame);
        if (declared.rule == KindField::Rule::Quantity)
            quantityField(m_fields.edit(field.name));
        order << widget;
    }
    if (family.hasOther()) {
        m_fields.add({.name = family.otherField,
                      .label = family.otherLabel,
                      .column = family.otherColumn,
                      .required = family.otherRequired,
                      .length = family.otherLength,
                      .applies = [this] { return m_other->isEnabled(); }},
                     m_frame);
    }

    auto* grid = new QGridLayout(m_frame);
    int row = 0;
    m_fields.place(grid, row, 0, family.kindField);
    if (family.hasOther())
        m_fields.place(grid, ++row, 0, family.otherField);
    for (const KindField& declared : family.fields)
        m_fields.place(grid, ++row, 0, declared.field.name);
    grid->setColumnStretch(2, 1);
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
    for (QWidget* field : std::as_const(order))
        fitWidth(field);
    m_frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(m_frame);
    body()->addStretch(1);

    connect(m_kind, &QComboBox::currentIndexChanged, this, &KindMaintenance::kindChosen);
}

QString KindMaintenance::kindColumn() const {
    return columnName(m_family.kindColumn);
}

QVariant KindMaintenance::kind() const {
    return m_fields.value(m_family.kindField);
}

void KindMaintenance::prepare() {
    m_fields.loadLists(database());
}

void KindMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (inserting())
        return;
    store::Row key = session().keyRow();
    key.insert(kindColumn(), rows.mainStored.value(0));
    const std::optional<store::Row> stored = store::readRow(database(), m_family.table, key);
    if (!stored)
        return;
    m_fields.load(*stored);
    for (const KindField& declared : m_family.fields) {
        const QVariant value = stored->value(columnName(declared.field.column));
        QComboBox* combo = m_fields.combo(declared.field.name);
        if (declared.keepsUnlisted && combo && combo->currentIndex() < 0 && !value.isNull()) {
            combo->addItem(value.toString(), value);
            combo->setCurrentIndex(combo->count() - 1);
        }
    }
}

QWidget* KindMaintenance::arrangePanels() {
    m_kind->setEnabled(inserting());
    kindChosen();
    if (inserting())
        return m_kind;
    return m_fields.widget(m_family.fields.front().field.name);
}

void KindMaintenance::kindChosen() {
    if (m_other)
        m_other->setEnabled(kind().toString() == kOtherKind);
}

QList<QWidget*> KindMaintenance::snapshotFields() const {
    QList<QWidget*> fields = m_fields.shownWidgets();
    if (m_other && !m_family.otherInSnapshot)
        fields.removeAll(m_other);
    return fields;
}

ui::Check KindMaintenance::kindTaken() {
    if (!inserting())
        return {};
    store::Row key = session().keyRow();
    key.insert(kindColumn(), kind());
    if (store::rowExists(database(), m_family.table, key))
        return ui::Refusal{m_kind, m_family.kindTaken};
    return {};
}

ui::Check KindMaintenance::validate() {
    return m_fields.validate();
}

ui::Check KindMaintenance::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

void KindMaintenance::write(store::Database& db) {
    store::Row values = m_fields.values();
    // Only "Outros" keeps a description; the other kinds store the empty text.
    if (m_other && kind().toString() != kOtherKind)
        values.insert(columnName(m_family.otherColumn), QString(QLatin1String("")));
    if (inserting()) {
        store::Row row = session().newRow();
        row.insert(values);
        store::insertRow(db, m_family.table, row);
        return;
    }
    store::Row key = session().keyRow();
    key.insert(kindColumn(), kind());
    values.remove(kindColumn());
    store::updateRow(db, m_family.table, key, values);
}

QString KindMaintenance::newKey() const {
    return store::labelOf(m_family.kindList, kind());
}

} // namespace environment
