// Windows-1252 both ways: any bytes decode to a text that encodes back to the same bytes; any
// text encodes to the bytes of the characters the code page holds, and names the first it
// does not.
#include "Check.h"
#include "exchange/Cp1252.h"

#include <cstddef>
#include <cstdint>

using namespace exchange;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const cp1252::DecodeResult decoded = cp1252::decode(bytes);
    FUZZ_CHECK(decoded.text.size() == bytes.size());
    const cp1252::EncodeResult again = cp1252::encode(decoded.text);
    FUZZ_CHECK(again.ok());
    FUZZ_CHECK(again.bytes == bytes);

    // The same input as UTF-16 units, surrogates alone or in pairs among them.
    const QString text(reinterpret_cast<const QChar*>(data), qsizetype(size / 2));
    const cp1252::EncodeResult encoded = cp1252::encode(text);
    FUZZ_CHECK(encoded.bytes.size() <= text.size());
    if (encoded.ok()) {
        FUZZ_CHECK(encoded.bytes.size() == text.size());
        FUZZ_CHECK(cp1252::decode(encoded.bytes).text == text);
    } else {
        const qsizetype at = encoded.firstUnmappable;
        FUZZ_CHECK(at >= 0 && at < text.size());
        // Everything before it was written.
        FUZZ_CHECK(cp1252::encode(text.left(at)).ok());
        FUZZ_CHECK(encoded.bytes.startsWith(cp1252::encode(text.left(at)).bytes));
        const char32_t c =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()
                ? QChar::surrogateToUcs4(text[at], text[at + 1])
                : char32_t(text[at].unicode());
        FUZZ_CHECK(cp1252::fromUnicode(c) < 0);
    }
    return 0;
}
