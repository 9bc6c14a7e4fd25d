#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

// Windows-1252, the code page of the exchange files. Our own table rather than the platform's
// converters: the same bytes on every machine, and a character that the code page cannot hold
// is reported, never turned silently into something else.
namespace exchange::cp1252 {

// The unicode character of each byte; for the five bytes that the code page leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) the control character of the same number. Every byte has a
// character and comes back from it.
char16_t toUnicode(unsigned char byte);

// The byte of a character, or -1 when the code page has none for it.
int fromUnicode(char32_t character);

struct EncodeResult {
    QByteArray bytes;
    // Index (in UTF-16 units) of the first character that could not be encoded, or -1.
    qsizetype firstUnmappable = -1;
    bool ok() const { return firstUnmappable < 0; }
};

// Encodes the whole text. Unmappable characters are left out of `bytes`, and the first of them
// is reported; callers decide whether that is a refusal.
EncodeResult encode(QStringView text);

struct DecodeResult {
    QString text;
};

DecodeResult decode(QByteArrayView bytes);

} // namespace exchange::cp1252
