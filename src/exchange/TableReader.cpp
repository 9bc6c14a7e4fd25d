#include "exchange/TableReader.h"

#include "store/Database.h"
#include "store/Failure.h"
#include "store/SqlValues.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QSqlError>
#include <QStringList>
#include <QTime>

namespace exchange {

namespace {

using store::ColumnType;

QString quoted(std::string_view name) {
    return QLatin1Char('"') + QString::fromLatin1(name.data(), qsizetype(name.size())) +
           QLatin1Char('"');
}

QDate readDate(const QString& text) {
    QDate date = QDate::fromString(text, QStringLiteral("dd/MM/yyyy"));
    if (!date.isValid())
        date = QDate::fromString(text, QStringLiteral("d/M/yyyy"));
    return date;
}

QTime readTime(const QString& text) {
    for (const char* format : {"HH:mm:ss", "HH:mm", "H:mm:ss", "H:mm"}) {
        const QTime time = QTime::fromString(text, QLatin1String(format));
        if (time.isValid())
            return time;
    }
    return {};
}

void prepare(QSqlQuery& query, const QString& sql) {
    if (!query.prepare(sql))
        throw store::Failure::fromSql(query.lastError(), sql);
}

void execute(QSqlQuery& query) {
    if (!query.exec())
        throw store::Failure::fromSql(query.lastError(), query.lastQuery());
}

} // namespace

UnreadableField::UnreadableField(QString table, QString column, QString field)
    : std::runtime_error("unreadable field")
    , m_table(std::move(table))
    , m_column(std::move(column))
    , m_field(std::move(field)) {}

QVariant normalisedDecimal(const QString& field) {
    if (isNullField(field))
        return {};
    QString text = field;
    text.remove(QLatin1Char('.'));
    const qsizetype comma = text.indexOf(QLatin1Char(','));
    if (comma >= 0)
        text[comma] = QLatin1Char('.');
    bool ok = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &ok);
    return ok ? QVariant(value) : QVariant();
}

QVariant fieldValue(const QString& field, const store::Column& column, bool pointDecimal,
                    const QString& table) {
    if (isNullField(field))
        return store::nullValue();
    const auto unreadable = [&] { return UnreadableField(table, column.qname(), field); };
    switch (column.type) {
    case ColumnType::Text:
        return field;
    case ColumnType::Number: {
        bool ok = false;
        const qlonglong whole = field.trimmed().toLongLong(&ok);
        if (ok)
            return whole;
        // A number column that holds a fraction keeps it.
        const QVariant fraction = normalisedDecimal(field);
        if (!fraction.isValid())
            throw unreadable();
        return fraction;
    }
    case ColumnType::Decimal: {
        if (pointDecimal) {
            bool ok = false;
            const double value = QLocale::c().toDouble(field.trimmed(), &ok);
            if (ok)
                return value;
        }
        const QVariant value = normalisedDecimal(field);
        if (!value.isValid())
            throw unreadable();
        return value;
    }
    case ColumnType::Date: {
        const QDate date = readDate(field.trimmed());
        if (!date.isValid())
            throw unreadable();
        return store::dateValue(date);
    }
    case ColumnType::DateTime: {
        const QString text = field.trimmed();
        const qsizetype blank = text.indexOf(QLatin1Char(' '));
        const QDate date = readDate(blank < 0 ? text : text.left(blank));
        const QTime time = blank < 0 ? QTime(0, 0) : readTime(text.mid(blank + 1).trimmed());
        if (!date.isValid() || !time.isValid())
            throw unreadable();
        return store::dateTimeValue(QDateTime(date, time));
    }
    case ColumnType::Time: {
        const QTime time = readTime(field.trimmed());
        if (!time.isValid())
            throw unreadable();
        return time.toString(QStringLiteral("HH:mm:ss"));
    }
    }
    throw unreadable();
}

TableReader::TableReader(store::Database& db, const TableLayout& layout)
    : m_layout(layout)
    , m_fields(layout.sectionReaderFields)
    , m_lookup(db.handle())
    , m_insert(db.handle()) {
    const store::Table& t = *layout.table;
    for (std::string_view k : t.key)
        m_keyColumns.push_back(t.indexOf(k));

    // The INSERT names the columns of the fields read, in the layout's order where it has one.
    std::vector<int> order;
    const int keyed = t.role == store::TableRole::Register ? 3 : 0;
    if (!layout.readerInsertColumns.empty()) {
        for (int i = 0; i < keyed; ++i)
            order.push_back(i);
        for (std::string_view c : layout.readerInsertColumns)
            order.push_back(t.indexOf(c));
    } else {
        for (int i = 0; i < m_fields; ++i)
            order.push_back(i);
    }
    m_insertColumns = order;

    QStringList where;
    for (int k : m_keyColumns)
        where << quoted(t.columns[std::size_t(k)].name) + QStringLiteral(" = ?");
    QString lookup = QStringLiteral("SELECT 1 FROM ") + quoted(t.name);
    if (!where.isEmpty())
        lookup += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    prepare(m_lookup, lookup + QStringLiteral(" LIMIT 1"));

    QStringList columns;
    QStringList marks;
    for (int c : m_insertColumns) {
        columns << quoted(t.columns[std::size_t(c)].name);
        marks << QStringLiteral("?");
    }
    prepare(m_insert,
            QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                .arg(quoted(t.name), columns.join(QLatin1Char(',')), marks.join(QLatin1Char(','))));
}

bool TableReader::readRow(FieldTokeniser& fields, const QString& firstField,
                          const RowContext& context) {
    const store::Table& t = *m_layout.table;
    const QString table = t.qname();
    const bool isRegister = t.role == store::TableRole::Register;
    std::vector<QVariant> values(t.columns.size(), store::nullValue());

    for (int i = 0; i < m_fields; ++i) {
        const QString field = i == 0 ? firstField : fields.next();
        const store::Column& column = t.columns[std::size_t(i)];
        // The register's key comes from the driver, never from the row.
        if (isRegister && i < 2)
            continue;
        if (isRegister && i == 2 && column.name == "AINFRM") {
            values[2] = context.ainfrm.isValid() ? context.ainfrm : store::nullValue();
            continue;
        }
        values[std::size_t(i)] =
            fieldValue(field, column, column.name == m_layout.pointDecimalColumn, table);
    }
    if (isRegister) {
        values[0] = context.nmuncp;
        values[1] = context.nseqnc;
    }

    for (std::size_t k = 0; k < m_keyColumns.size(); ++k)
        m_lookup.bindValue(int(k), values[std::size_t(m_keyColumns[k])]);
    execute(m_lookup);
    const bool present = m_lookup.next();
    m_lookup.finish();
    if (present)
        return false;

    for (std::size_t c = 0; c < m_insertColumns.size(); ++c)
        m_insert.bindValue(int(c), values[std::size_t(m_insertColumns[c])]);
    execute(m_insert);
    return true;
}

Readers::Readers(store::Database& db)
    : m_db(db) {}

Readers::~Readers() = default;

TableReader& Readers::of(const TableLayout& layout) {
    auto& reader = m_readers[&layout];
    if (!reader)
        reader = std::make_unique<TableReader>(m_db, layout);
    return *reader;
}

} // namespace exchange
