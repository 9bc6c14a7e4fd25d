#include "ui/FormParts.h"

#include "store/Database.h"
#include "ui/FieldSet.h"
#include "ui/FieldSupport.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>

namespace ui {

QLineEdit* lineEdit(const QString& name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    return edit;
}

QPushButton* editButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setFocusPolicy(Qt::TabFocus);
    return b;
}

QComboBox* comboBox(const QString& name, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    return combo;
}

void fixedList(QComboBox* combo, const QList<std::pair<QString, QVariant>>& items) {
    for (const auto& [text, code] : items)
        combo->addItem(text, code);
    combo->setCurrentIndex(-1);
}

void databaseList(store::Database& db, QComboBox* combo, const QString& sql,
                  const QVariantList& values) {
    combo->clear();
    QSqlQuery rows = db.run(sql, values);
    while (rows.next())
        combo->addItem(rows.value(1).toString(), rows.value(0));
    combo->setCurrentIndex(-1);
}

QWidget* keyBox(const QString& name, QWidget* field, QWidget* parent) {
    auto* box = new QWidget(parent);
    box->setObjectName(name);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    field->setParent(box);
    layout->addWidget(field);
    layout->addStretch(1);
    return box;
}

void addField(QGridLayout* grid, int row, int column, const QString& label, QWidget* field,
              QWidget* parent) {
    grid->addWidget(new QLabel(label, parent), row, column);
    grid->addWidget(field, row, column + 1);
}

QVariant dateValue(const QLineEdit* field) {
    return clipText(field).isEmpty() ? QVariant() : QVariant(dateOf(field).toString(Qt::ISODate));
}

Check IntegrityReport::leaveCheck(QWidget* field) const {

    const QDate today = QDate::currentDate();
    if (field == installed) {
        if (clipText(installed).isEmpty())
            return Refusal{installed,
                           QStringLiteral("Preenchimento Obrigatório da Data da Instalação.")};
        if (wrongDate(installed))
            return Refusal{installed,
                           QStringLiteral("Preenchimento Incorreto da Data da Instalação")};
        if (dateOf(installed) > today)
            return Refusal{installed, QStringLiteral("Data de Instalação não deve ser maior que "
                                                     "a Data Atual.")};
    } else if (field == date && date->isEnabled()) {
        if (clipText(date).isEmpty())
            return Refusal{date, QStringLiteral("Preenchimento Obrigatório da Data do Último "
                                                "Laudo de Integridade.")};
        if (wrongDate(date))
            return Refusal{date, QStringLiteral("Preenchimento Incorreto da Data do Último Laudo "
                                                "de Integridade")};
        // The order of the two dates is compared only while the installation field holds no
        // text at all, which a masked field never does: the order is not enforced.
        if (installed->text().isEmpty() && dateOf(date) < dateOf(installed))
            return Refusal{date, QStringLiteral("Data do Último Laudo de Integridade Deve Ser "
                                                "Maior ou Igual a Data de Instalação.")};
        if (dateOf(date) > today)
            return Refusal{date, QStringLiteral("Data do Último Laudo de Integridade não deve ser "
                                                "maior que a Data Atual.")};
    } else if (field == condition) {
        conditionChosen();
    }
    return {};
}

void IntegrityReport::conditionChosen() const {
    if (chosenCode(condition).toString() == QLatin1String("R")) {
        date->setEnabled(true);
        date->setFocus(Qt::OtherFocusReason);
        return;
    }
    clearMasked(date);
    next->setFocus(Qt::OtherFocusReason);
    date->setEnabled(false);
}

QWidget* IntegrityReport::declare(FieldSet& set, QWidget* parent, const QString& frameTitle,
                                  const QString& dateLabel) {
    auto* box = new QGroupBox(frameTitle, parent);
    set.add({.name = "cmbitesteestnq",
             .label = "Laudo de Integridade",
             .kind = FieldKind::Codes,
             .column = "ITESTEESTNQ",
             .required = "Preenchimento Obrigatório da condição do Último Laudo de Integridade",
             .leave = [this] { return leaveCheck(condition); }},
            box);
    set.add({.name = "mskATESTEESTNQ",
             .label = dateLabel,
             .kind = FieldKind::Date,
             .column = "ATESTEESTNQ",
             .required = "Preenchimento Obrigatório da Data do Último Laudo de Integridade",
             .applies = [this] { return date->isEnabled(); },
             .leave = [this] { return leaveCheck(date); }},
            box);
    condition = set.combo(QStringLiteral("cmbitesteestnq"));
    date = set.edit(QStringLiteral("mskATESTEESTNQ"));
    date->setMaximumWidth(100);
    // The frame's caption and the condition's own words name it: its label stays unseen.
    set.label(QStringLiteral("cmbitesteestnq"))->hide();
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(condition);
    layout->addWidget(set.label(QStringLiteral("mskATESTEESTNQ")));
    layout->addWidget(date);
    layout->addStretch(1);
    QObject::connect(condition, &QComboBox::activated, box, [this] { conditionChosen(); });
    return box;
}

void IntegrityReport::showStored(const store::Row& row, bool changing) const {
    if (!row.value(QStringLiteral("ATESTEESTNQ")).isNull()) {
        chooseCode(condition, QStringLiteral("R"));
        return;
    }
    const bool notMade = row.value(QStringLiteral("ITESTEESTNQ")).toString() == QLatin1String("NR");
    chooseCode(condition, notMade ? QStringLiteral("NR") : QStringLiteral("ND"));
    if (changing)
        date->setEnabled(false);
}

} // namespace ui
