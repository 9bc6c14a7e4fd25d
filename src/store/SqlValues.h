#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

// How values of the catalogue's types go into a bound parameter and come back: dates as
// yyyy-MM-dd, dates with a time as yyyy-MM-dd HH:mm:ss, an empty optional value as Null.
namespace store {

inline const QString kDateFormat = QStringLiteral("yyyy-MM-dd");
inline const QString kDateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

inline QVariant nullValue() {
    return QVariant(QMetaType::fromType<QString>());
}

// Text that is empty after trimming goes in as Null.
inline QVariant textValue(const QString& text) {
    return text.trimmed().isEmpty() ? nullValue() : QVariant(text);
}

inline QVariant dateValue(const QDate& date) {
    return date.isValid() ? QVariant(date.toString(kDateFormat)) : nullValue();
}

inline QVariant dateTimeValue(const QDateTime& when) {
    return when.isValid() ? QVariant(when.toString(kDateTimeFormat)) : nullValue();
}

inline QDate readDate(const QVariant& value) {
    if (value.isNull())
        return {};
    return QDate::fromString(value.toString().left(10), kDateFormat);
}

} // namespace store
