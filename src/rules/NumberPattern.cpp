#include "rules/NumberPattern.h"

namespace rules {

QString formatDigits(const QVariant& value, const QString& pattern) {
    if (value.isNull())
        return QString();
    bool ok = false;
    const qlonglong number = value.toLongLong(&ok);
    if (!ok || number < 0)
        return ok ? QString::number(number) : QString();

    const QString digits = QString::number(number);
    qsizetype next = digits.size() - 1; // digits are placed from the right
    QString result;
    for (qsizetype i = pattern.size() - 1; i >= 0; --i) {
        const QChar p = pattern.at(i);
        if (p == u'0') {
            result.prepend(next >= 0 ? digits.at(next--) : QChar(u'0'));
        } else if (p == u'#') {
            if (next >= 0)
                result.prepend(digits.at(next--));
        } else {
            // A literal between digits that are all left out is dropped with them.
            bool digitsFollowOnTheLeft = next >= 0;
            for (qsizetype j = i - 1; j >= 0 && !digitsFollowOnTheLeft; --j)
                digitsFollowOnTheLeft = pattern.at(j) == u'0';
            if (digitsFollowOnTheLeft)
                result.prepend(p);
        }
    }
    if (next >= 0)
        result.prepend(digits.left(next + 1));
    return result;
}

} // namespace rules
