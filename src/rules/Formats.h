#pragma once

#include <QDate>
#include <QString>

// The program formats for Brazil whatever the machine's locale.
namespace rules {

// The short date of every screen, report and exchange file.
inline const QString kShortDateFormat = QStringLiteral("dd/MM/yyyy");

QString shortDate(const QDate& date);

} // namespace rules
