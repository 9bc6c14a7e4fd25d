// Any bytes read as the lines of an exchange file: the reader comes to an end, and its lines
// are exactly the bytes between the line ends, decoded.
#include "Check.h"
#include "exchange/Cp1252.h"
#include "exchange/Tokeniser.h"

#include <cstddef>
#include <cstdint>

using namespace exchange;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const QList<QByteArray> split = splitRawLines(bytes);

    LineReader raw(bytes);
    qsizetype n = 0;
    while (!raw.atEnd()) {
        const QString line = raw.nextRawLine();
        FUZZ_CHECK(!line.isNull());
        FUZZ_CHECK(n < split.size());
        FUZZ_CHECK(line == cp1252::decode(split[n]).text);
        FUZZ_CHECK(!line.contains(QLatin1Char('\r')));
        ++n;
    }
    FUZZ_CHECK(n == split.size());
    FUZZ_CHECK(raw.nextRawLine().isNull());

    // The readers of records see the lines that are not empty, and count them.
    int nonEmpty = 0;
    for (const QByteArray& line : split)
        nonEmpty += line.isEmpty() ? 0 : 1;
    LineReader lines(bytes);
    int count = 0;
    for (QString line = lines.nextLine(); !line.isNull(); line = lines.nextLine()) {
        FUZZ_CHECK(!line.isEmpty());
        ++count;
    }
    FUZZ_CHECK(count == nonEmpty);
    FUZZ_CHECK(lines.lineCount() == count);
    return 0;
}
