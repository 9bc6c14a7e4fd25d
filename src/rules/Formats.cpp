#include "rules/Formats.h"

namespace rules {

QString shortDate(const QDate& date) {
    return date.toString(kShortDateFormat);
}

} // namespace rules
