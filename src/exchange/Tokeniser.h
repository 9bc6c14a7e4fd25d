#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class QIODevice;

// Reading exchange files back: lines, then fields. The limits here are part of the format and
// every reader shares them.
namespace exchange {

// The lines of Windows-1252 bytes, undecoded, empty ones included, by the rule of LineReader.
QList<QByteArray> splitRawLines(const QByteArray& bytes);

// Splits Windows-1252 bytes into lines. A line ends at a carriage return, or at a carriage
// return and line feed; neither belongs to the line, and a lone line feed is an ordinary
// character. Text behind the last line end is a last line of its own.
class LineReader {
public:
    explicit LineReader(QByteArray bytes);
    // Reads the whole device; throws nothing, an unreadable device gives no lines.
    static LineReader fromDevice(QIODevice& device);

    bool atEnd() const { return m_pos >= m_bytes.size(); }
    // The next line, decoded, empty ones included (the joiner copies them as they come).
    QString nextRawLine();
    // The next line that is not empty, or a null QString at the end; readers of records use
    // this, so an empty line is skipped and does not count.
    QString nextLine();
    // Number of lines returned by nextLine() so far.
    int lineCount() const { return m_count; }

private:
    QByteArray m_bytes;
    qsizetype m_pos = 0;
    int m_count = 0;
};

// The fields of one line, one at a time, in the manner of the program's readers:
// - a field ends at the separator "¬" or at the end of the line;
// - an empty field, and any field asked for behind the end of the line, is the text "Null";
// - a value reaches at most to character 1000 of the line; from there on each further field
//   takes a single character.
class FieldTokeniser {
public:
    static constexpr int kLimit = 1000;

    explicit FieldTokeniser(QString line = {})
        : m_line(std::move(line)) {}

    void reset(QString line) {
        m_line = std::move(line);
        m_pos = 0;
    }
    // Back to the first field of the same line.
    void rewind() { m_pos = 0; }

    QString next();
    // The next `count` fields.
    QStringList take(int count);

    // The 1-based position of the last character looked at; 0 before the first field.
    int position() const { return m_pos; }
    const QString& line() const { return m_line; }

private:
    QString m_line;
    int m_pos = 0;
};

// The text "Null" that the tokeniser returns for an empty field, and the word "Null" in a text
// field, both stand for a database Null.
bool isNullField(const QString& field);

} // namespace exchange
