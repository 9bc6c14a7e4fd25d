#include "ui/FormParts.h"

#include "store/Database.h"
#include "ui/FieldSupport.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>

namespace ui {

QLineEdit* lineEdit(const QString& name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    return edit;
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
