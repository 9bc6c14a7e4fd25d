// Any line split into fields: every field comes to an end, holds no separator and is never
// empty; within the limit of the line the fields are the line's own, "Null" for an empty one.
#include "Check.h"
#include "exchange/Layout.h"
#include "exchange/Tokeniser.h"

#include <cstddef>
#include <cstdint>

using namespace exchange;

namespace {

void checkLine(const QString& line) {
    const QChar separator(kSeparator);
    FieldTokeniser fields(line);
    // Every field takes at least one position, so that many reach the end of any line; a few
    // more are asked for behind it.
    const int asked = int(line.size()) + 3;
    QStringList taken;
    for (int i = 0; i < asked; ++i) {
        const int before = fields.position();
        const QString field = fields.next();
        FUZZ_CHECK(!field.isEmpty());
        FUZZ_CHECK(!field.contains(separator));
        FUZZ_CHECK(field.size() <= FieldTokeniser::kLimit);
        FUZZ_CHECK(fields.position() > before);
        taken << field;
    }
    FUZZ_CHECK(isNullField(taken.last()));

    if (line.size() <= FieldTokeniser::kLimit) {
        QStringList expected = line.split(separator);
        for (QString& field : expected) {
            if (field.isEmpty())
                field = QStringLiteral("Null");
        }
        for (qsizetype i = 0; i < expected.size(); ++i)
            FUZZ_CHECK(taken[i] == expected[i]);
        for (qsizetype i = expected.size(); i < taken.size(); ++i)
            FUZZ_CHECK(isNullField(taken[i]));
    }

    fields.rewind();
    FUZZ_CHECK(fields.take(2) == taken.mid(0, 2));
}

} // namespace

// The lines as the reader hands them to the tokeniser: never with a carriage return inside.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LineReader lines(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    for (QString line = lines.nextLine(); !line.isNull(); line = lines.nextLine())
        checkLine(line);
    return 0;
}
