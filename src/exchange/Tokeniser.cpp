#include "exchange/Tokeniser.h"

#include "exchange/Cp1252.h"
#include "exchange/Layout.h"

#include <QIODevice>
#include <algorithm>

namespace exchange {

QList<QByteArray> splitRawLines(const QByteArray& bytes) {
    QList<QByteArray> lines;
    qsizetype pos = 0;
    while (pos < bytes.size()) {
        qsizetype end = bytes.indexOf('\r', pos);
        if (end < 0) {
            lines << bytes.sliced(pos);
            break;
        }
        lines << bytes.sliced(pos, end - pos);
        pos = end + 1;
        if (pos < bytes.size() && bytes[pos] == '\n')
            ++pos;
    }
    return lines;
}

LineReader::LineReader(QByteArray bytes)
    : m_bytes(std::move(bytes)) {}

LineReader LineReader::fromDevice(QIODevice& device) {
    return LineReader(device.readAll());
}

QString LineReader::nextRawLine() {
    if (atEnd())
        return {};
    const qsizetype start = m_pos;
    qsizetype end = m_bytes.indexOf('\r', start);
    if (end < 0) {
        end = m_bytes.size();
        m_pos = end;
    } else {
        m_pos = end + 1;
        if (m_pos < m_bytes.size() && m_bytes[m_pos] == '\n')
            ++m_pos;
    }
    QString line = cp1252::decode(QByteArrayView(m_bytes).sliced(start, end - start)).text;
    if (line.isNull())
        line = QLatin1String(""); // an empty line is not the end
    return line;
}

QString LineReader::nextLine() {
    while (!atEnd()) {
        QString line = nextRawLine();
        if (!line.isEmpty()) {
            ++m_count;
            return line;
        }
    }
    return {};
}

QString FieldTokeniser::next() {
    const QString null = QStringLiteral("Null");
    const int length = int(m_line.size());
    ++m_pos;
    QString value;
    // Each pass looks at the character at the position; behind the end of the line there is
    // none, and the loop runs on, adding nothing, until the position passes the limit.
    while (true) {
        if (m_pos > length) {
            m_pos = std::max(m_pos + 1, kLimit + 1);
            if (value.isEmpty())
                value = null;
            break;
        }
        const QChar c = m_line[m_pos - 1];
        if (c == QChar(kSeparator))
            break;
        value += c;
        ++m_pos;
        if (m_pos > kLimit || value == QLatin1String("\r"))
            break;
    }
    if (value.isEmpty())
        value = null;
    return value;
}

QStringList FieldTokeniser::take(int count) {
    QStringList fields;
    fields.reserve(count);
    for (int i = 0; i < count; ++i)
        fields << next();
    return fields;
}

bool isNullField(const QString& field) {
    return field == QLatin1String("Null");
}

} // namespace exchange
