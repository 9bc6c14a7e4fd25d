#include "gas/GasFields.h"

#include "store/CodeLists.h"
#include "ui/FieldSupport.h"

#include <QDate>
#include <QLineEdit>

namespace gas {

namespace {

const QString kInstalledRequired =
    QStringLiteral("Preenchimento Obrigatório da Data da Instalação");

// The date of a date field that holds a whole one; invalid otherwise.
QDate filledDate(const QLineEdit* field) {
    return ui::clipText(field).isEmpty() ? QDate() : ui::dateOf(field);
}

} // namespace

ui::Field installationDate(const ui::FieldSet* set, QString orderMessage) {
    return {
        .name = QStringLiteral("mskAINSTL"),
        .label = QStringLiteral("Data da Instalação"),
        .kind = ui::FieldKind::Date,
        .column = "AINSTL",
        .required = kInstalledRequired,
        .check = [set]() -> ui::Check {
            QLineEdit* field = set->edit(QStringLiteral("mskAINSTL"));
            if (ui::clipText(field).size() != 8)
                return ui::Refusal{field, kInstalledRequired};
            return {};
        },
        .leave = [set, orderMessage]() -> ui::Check {
            QLineEdit* field = set->edit(QStringLiteral("mskAINSTL"));
            if (ui::clipText(field).isEmpty())
                return ui::Refusal{field, kInstalledRequired + QLatin1Char('.')};
            if (ui::wrongDate(field))
                return ui::Refusal{field,
                                   QStringLiteral("Preenchimento Incorreto da Data da Instalação")};
            const QDate installed = ui::dateOf(field);
            if (installed > QDate::currentDate())
                return ui::Refusal{field, QStringLiteral("Data de Instalação não deve ser maior "
                                                         "que a Data Atual.")};
            const QDate maintained = filledDate(set->edit(QStringLiteral("mskAMANTN")));
            if (maintained.isValid() && maintained < installed)
                return ui::Refusal{field, orderMessage};
            return {};
        },
    };
}

ui::Field maintenanceDate(const ui::FieldSet* set) {
    return {
        .name = QStringLiteral("mskAMANTN"),
        .label = QStringLiteral("Data da Última Manutenção"),
        .kind = ui::FieldKind::Date,
        .column = "AMANTNULTMA",
        .check = [set]() -> ui::Check {
            QLineEdit* field = set->edit(QStringLiteral("mskAMANTN"));
            const qsizetype digits = ui::clipText(field).size();
            if (digits != 0 && digits != 8)
                return ui::Refusal{field, QStringLiteral("Preenchimento Incompleto da Data da "
                                                         "Última Manutenção")};
            return {};
        },
        .leave = [set]() -> ui::Check {
            QLineEdit* field = set->edit(QStringLiteral("mskAMANTN"));
            if (ui::clipText(field).isEmpty())
                return ui::Refusal{field, QStringLiteral("Preenchimento Obrigatório da Data da "
                                                         "Última Manutenção.")};
            if (ui::wrongDate(field))
                return ui::Refusal{
                    field, QStringLiteral("Preenchimento Incorreto da Data da Última Manutenção")};
            const QDate maintained = ui::dateOf(field);
            const QDate installed = filledDate(set->edit(QStringLiteral("mskAINSTL")));
            if (installed.isValid() && maintained < installed)
                return ui::Refusal{field, QStringLiteral("Data da Última Manutenção Deve Ser Maior "
                                                         "ou Igual a Data de Instalação.")};
            if (maintained > QDate::currentDate())
                return ui::Refusal{field, QStringLiteral("Data da Última Manutenção não deve ser "
                                                         "maior que a Data Atual.")};
            return {};
        },
    };
}

ui::Field ownerKind() {
    return {.name = QStringLiteral("cmbIPROPR"),
            .label = QStringLiteral("Proprietário"),
            .kind = ui::FieldKind::Codes,
            .column = "IPROPR",
            .required = QStringLiteral("Preenchimento Obrigatório do Tipo do Proprietário")};
}

ui::Field situation(QString required) {
    return {.name = QStringLiteral("cmbISITCA"),
            .label = QStringLiteral("Situação"),
            .kind = ui::FieldKind::Codes,
            .column = "ISITCA",
            .required = std::move(required)};
}

QString shownAs(std::string_view column, std::string_view list, QVariantList& values) {
    const store::CodeList& codes = store::codeList(list);
    const QString name = nameOf(column);
    QString sql = QStringLiteral("Case");
    for (std::size_t i = 0; i + 1 < codes.size(); ++i) {
        sql += QStringLiteral(" When ") + name + QStringLiteral(" = ? Then ?");
        values << codes[i].code << codes[i].label;
    }
    sql += QStringLiteral(" Else ? End");
    values << codes.back().label;
    return sql;
}

} // namespace gas
