#pragma once

#include "ui/FieldSet.h"

#include <QString>
#include <QVariantList>
#include <string_view>

// What the screens of the vehicle gas equipment (storage batteries, dispensers, compressors)
// have in common.
namespace gas {

// The caption of every screen of the vehicle gas equipment.
inline const QString kCaption =
    QStringLiteral("Sistema de Armazenamento de Combustível - Gás Natural Veicular");

// A name of the catalogue (table or column) as the statements and rows spell it.
inline QString nameOf(std::string_view name) {
    return QString::fromLatin1(name.data(), qsizetype(name.size()));
}

// mskAINSTL: required, of eight digits at Ok; on leaving, a real date, not in the future, and
// not after the last maintenance, which `orderMessage` refuses.
ui::Field installationDate(const ui::FieldSet* set, QString orderMessage);
// mskAMANTN: optional, but a date begun must be complete at Ok; on leaving, a real date, not
// before the installation and not in the future.
ui::Field maintenanceDate(const ui::FieldSet* set);
// cmbIPROPR: who owns the equipment; "Outros" opens the owner panel.
ui::Field ownerKind();
// cmbISITCA: in use or out of use; `required` is the screen's own refusal.
ui::Field situation(QString required);

// A column shown by the caption of its code in the list `list`: every code but the last by its
// caption, and anything else by the last caption, as "Outros" and "Desativado" are shown. The
// captions are bound: they are appended to `values` in the order of the text's marks.
QString shownAs(std::string_view column, std::string_view list, QVariantList& values);

} // namespace gas
