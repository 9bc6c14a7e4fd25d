#include "store/ReferenceData.h"

#include "store/Database.h"
#include "store/Failure.h"
#include "store/TableCatalogue.h"

#include <QFile>
#include <QSqlError>

namespace store {

QList<QStringList> parseCsv(const QByteArray& utf8) {
    const QString text = QString::fromUtf8(utf8);
    QList<QStringList> rows;
    QStringList row;
    QString field;
    bool quoted = false;
    bool fieldStarted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == u'"' && i + 1 < text.size() && text.at(i + 1) == u'"') {
                field += u'"';
                ++i;
            } else if (c == u'"') {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == u'"') {
            quoted = true;
            fieldStarted = true;
        } else if (c == u',') {
            row << field;
            field.clear();
            fieldStarted = true;
        } else if (c == u'\n' || c == u'\r') {
            if (fieldStarted || !field.isEmpty()) {
                row << field;
                rows << row;
            }
            row.clear();
            field.clear();
            fieldStarted = false;
            if (c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n')
                ++i;
        } else {
            field += c;
            fieldStarted = true;
        }
    }
    if (fieldStarted || !field.isEmpty()) {
        row << field;
        rows << row;
    }
    return rows;
}

namespace {

QVariant typedValue(const Column& column, const QString& text) {
    if (text.isEmpty())
        return QVariant();
    switch (column.type) {
    case ColumnType::Number:
        return text.toLongLong();
    case ColumnType::Decimal:
        return text.toDouble();
    default:
        return text;
    }
}

void loadTable(Database& db, const Table& table) {
    const QString resource = QStringLiteral(":/data/%1.csv").arg(table.qname());
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure::other(53, QStringLiteral("Arquivo não encontrado: ") + resource);
    const QList<QStringList> rows = parseCsv(file.readAll());
    if (rows.isEmpty())
        return;
    const QStringList& header = rows.first();
    std::vector<const Column*> columns;
    QStringList placeholders;
    for (const QString& name : header) {
        const int index = table.indexOf(name.toStdString());
        if (index < 0)
            throw Failure::other(3265, resource + QStringLiteral(": coluna desconhecida ") + name);
        columns.push_back(&table.columns[std::size_t(index)]);
        placeholders << QStringLiteral("?");
    }
    const QString sql = QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
                            .arg(table.qname(), header.join(QStringLiteral(", ")),
                                 placeholders.join(QStringLiteral(", ")));
    QSqlQuery insert(db.handle());
    if (!insert.prepare(sql))
        throw Failure::fromSql(insert.lastError(), sql);
    for (qsizetype r = 1; r < rows.size(); ++r) {
        const QStringList& fields = rows.at(r);
        for (std::size_t c = 0; c < columns.size(); ++c)
            insert.bindValue(int(c), typedValue(*columns[c], fields.value(qsizetype(c))));
        if (!insert.exec())
            throw Failure::fromSql(insert.lastError(), sql);
    }
}

} // namespace

void loadReferenceData(Database& db) {
    for (const Table& t : allTables()) {
        if (t.role == TableRole::Reference || t.role == TableRole::Dictionary)
            loadTable(db, t);
    }
}

} // namespace store
