#include "exchange/Cp1252.h"

#include <array>

namespace exchange::cp1252 {

namespace {

// 0x80..0x9F; every other byte is the unicode character of the same number. The five bytes
// that the code page leaves undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control
// character of their own number, as Windows itself reads them, so that whatever a file holds
// is written back byte for byte.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98-9F
};

constexpr std::array<char16_t, 256> makeTable() {
    std::array<char16_t, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[std::size_t(i)] = char16_t(i);
    for (int i = 0; i < 32; ++i)
        table[std::size_t(0x80 + i)] = kHigh[std::size_t(i)];
    return table;
}

constexpr std::array<char16_t, 256> kTable = makeTable();

} // namespace

char16_t toUnicode(unsigned char byte) {
    return kTable[byte];
}

int fromUnicode(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return int(character);
    for (int i = 0; i < 32; ++i) {
        if (kHigh[std::size_t(i)] == character)
            return 0x80 + i;
    }
    return -1;
}

EncodeResult encode(QStringView text) {
    EncodeResult result;
    result.bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t c = text[i].unicode();
        const qsizetype at = i;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        const int byte = fromUnicode(c);
        if (byte < 0) {
            if (result.firstUnmappable < 0)
                result.firstUnmappable = at;
            continue;
        }
        result.bytes.append(char(byte));
    }
    return result;
}

DecodeResult decode(QByteArrayView bytes) {
    DecodeResult result;
    result.text.resize(bytes.size());
    QChar* out = result.text.data();
    for (qsizetype i = 0; i < bytes.size(); ++i)
        out[i] = QChar(kTable[static_cast<unsigned char>(bytes[i])]);
    return result;
}

} // namespace exchange::cp1252
