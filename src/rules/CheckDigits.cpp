#include "rules/CheckDigits.h"

#include "rules/Filters.h"

#include <array>

namespace rules {

namespace {

constexpr int kPlaces = 14;

// The modulus-11 digit of the company number: 0 for a remainder below 2, otherwise 11 less it.
int cnpjDigit(int sum) {
    const int r = sum % 11;
    return r < 2 ? 0 : 11 - r;
}

// The modulus-11 digit of the person number: a remainder of 10 counts as 0.
int cpfDigit(int sum) {
    const int r = sum % 11;
    return r > 9 ? r - 10 : r;
}

} // namespace

bool validaCgcCpf(const QString& texto) {
    // The text right-aligned in 14 places, blanks on the left; a longer text is not cut, and
    // only its first 14 characters are read.
    const QString field = texto.rightJustified(kPlaces, QLatin1Char(' '));
    std::array<int, kPlaces + 1> a{}; // a[1] .. a[14]; a[0] unused
    for (int i = 1; i <= kPlaces; ++i) {
        const QChar c = field.at(i - 1);
        a[std::size_t(i)] = (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ? c.digitValue() : 0;
    }
    const auto A = [&a](int i) { return a[std::size_t(i)]; };

    if (trimSpaces(texto).size() > 11) {
        // The eighth digit of the root is deliberately not checked on its own.
        const int first =
            cnpjDigit(5 * A(1) + 4 * A(2) + 3 * A(3) + 2 * A(4) + 9 * A(5) + 8 * A(6) + 7 * A(7) +
                      6 * A(8) + 5 * A(9) + 4 * A(10) + 3 * A(11) + 2 * A(12));
        if (first != A(13))
            return false;
        const int second =
            cnpjDigit(6 * A(1) + 5 * A(2) + 4 * A(3) + 3 * A(4) + 2 * A(5) + 9 * A(6) + 8 * A(7) +
                      7 * A(8) + 6 * A(9) + 5 * A(10) + 4 * A(11) + 3 * A(12) + 2 * A(13));
        return second == A(14);
    }

    // The eleven digits of a CPF lie in places 4 to 14.
    int sum = 0;
    for (int i = 4; i <= 12; ++i)
        sum += (i - 3) * A(i);
    const int first = cpfDigit(sum);
    if (first != A(13))
        return false;
    sum = 0;
    for (int i = 5; i <= 12; ++i)
        sum += (i - 4) * A(i);
    sum += 9 * first;
    return cpfDigit(sum) == A(14);
}

} // namespace rules
