#pragma once

#include <QString>
#include <optional>

namespace store {

// The highest NSEQNC: the code carries it in four digits. A new number goes from 1 up to here.
inline constexpr int kLastSequence = 9999;

class Database;

// The number of a new register: one above the last number given (or above the highest in use,
// should a register have come with a higher one), kept as given within the caller's
// transaction. Throws store::Failure past kLastSequence.
int takeSequence(Database& db);

// NMUNCP and NSEQNC: the key of one register in every register table.
struct RegisterKey {
    int nmuncp = 0;
    int nseqnc = 0;

    // The code that screens and the command line show: NMUNCP as "000", NSEQNC as "0000".
    QString code() const {
        return QStringLiteral("%1%2")
            .arg(nmuncp, 3, 10, QLatin1Char('0'))
            .arg(nseqnc, 4, 10, QLatin1Char('0'));
    }

    // Reads a code back: all digits, the last four being NSEQNC. Nothing for anything else.
    static std::optional<RegisterKey> fromCode(const QString& code) {
        if (code.size() < 5)
            return std::nullopt;
        for (QChar c : code) {
            if (!c.isDigit())
                return std::nullopt;
        }
        return RegisterKey{code.left(code.size() - 4).toInt(), code.right(4).toInt()};
    }

    friend bool operator==(const RegisterKey&, const RegisterKey&) = default;
};

} // namespace store
