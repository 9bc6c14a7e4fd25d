#include "printing/ReportHtml.h"

#include "rules/Formats.h"
#include "store/Database.h"
#include "store/TableCatalogue.h"

#include <QDate>
#include <QLocale>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QTime>
#include <algorithm>

namespace printing {

namespace {

using Kind = Format::Kind;

QString q(std::string_view name) {
    return QString::fromLatin1(name.data(), qsizetype(name.size()));
}

const QLocale& brazil() {
    static const QLocale locale(QLocale::Portuguese, QLocale::Brazil);
    return locale;
}

bool isEmpty(const QVariant& value) {
    return !value.isValid() || value.isNull() || value.toString().trimmed().isEmpty();
}

QString plain(const QVariant& value) {
    if (value.typeId() == QMetaType::Double)
        return brazil().toString(value.toDouble(), 'f', QLocale::FloatingPointShortest);
    return value.toString();
}

QString lookup(store::Database& db, const Format& format, const QVariant& value,
               const QVariantHash& row) {
    const store::Table& table = store::table(format.table);
    QStringList where;
    QVariantList values;
    for (const auto& [column, rowColumn] : format.keys) {
        where << QStringLiteral("\"%1\" = ?").arg(table.column(column).qname());
        values << (rowColumn.empty() ? value : row.value(q(rowColumn)));
    }
    const QVariant text = db.scalar(QStringLiteral("SELECT \"%1\" FROM \"%2\" WHERE %3 LIMIT 1")
                                        .arg(table.column(format.text).qname(), table.qname(),
                                             where.join(QStringLiteral(" AND "))),
                                    values);
    // A code that the dictionary lost still shows as stored rather than vanish.
    return text.isValid() && !text.isNull() ? text.toString() : plain(value);
}

QString phoneNumber(const QString& number) {
    if (number.size() < 5)
        return number;
    return number.left(number.size() - 4) + QLatin1Char('-') + number.right(4);
}

std::vector<QVariantHash> readRows(store::Database& db, const Section& section,
                                   const store::RegisterKey& key, const QVariantHash* parent) {
    std::vector<Condition> conditions = section.conditions;
    if (parent) {
        for (std::string_view column : section.link)
            conditions.push_back({column, Condition::Op::Equal, parent->value(q(column))});
    }
    QVariantList values = {key.nmuncp, key.nseqnc};
    QString sql = QStringLiteral("SELECT * FROM \"%1\" %2")
                      .arg(q(section.table), whereClause(section.table, conditions, values));
    if (!section.orderBy.empty()) {
        const store::Table& table = store::table(section.table);
        QStringList order;
        for (std::string_view column : section.orderBy)
            order << QStringLiteral("\"%1\"").arg(table.column(column).qname());
        sql += QStringLiteral(" ORDER BY ") + order.join(QStringLiteral(", "));
    }
    QSqlQuery query = db.run(sql, values);
    std::vector<QVariantHash> rows;
    while (query.next()) {
        const QSqlRecord record = query.record();
        QVariantHash row;
        for (int i = 0; i < record.count(); ++i)
            row.insert(record.fieldName(i).toUpper(), record.value(i));
        rows.push_back(std::move(row));
    }
    return rows;
}

QString cell(store::Database& db, const Field& field, const QVariantHash& row) {
    return formatValue(db, field.format, row.value(q(field.column)), row).toHtmlEscaped();
}

void writeSection(store::Database& db, const Section& section, const store::RegisterKey& key,
                  const QVariantHash* parent, int depth, QString& html);

void writeForm(store::Database& db, const Section& section, const store::RegisterKey& key,
               const std::vector<QVariantHash>& rows, int depth, QString& html) {
    int ordinal = 0;
    for (const QVariantHash& row : rows) {
        ++ordinal;
        QString heading = section.heading;
        if (!section.numberColumn.empty())
            heading += QLatin1Char(' ') + plain(row.value(q(section.numberColumn)));
        else if (rows.size() > 1)
            heading += QLatin1Char(' ') + QString::number(ordinal);
        html += QStringLiteral("<p class=\"h%1\">%2</p>").arg(depth).arg(heading.toHtmlEscaped());
        html += QStringLiteral("<table class=\"form\" width=\"100%\" cellspacing=\"0\" "
                               "cellpadding=\"3\" border=\"1\">");
        const std::vector<Field>& fields = section.fields;
        for (std::size_t i = 0; i < fields.size(); i += 2) {
            html += QStringLiteral("<tr>");
            for (std::size_t j = i; j < i + 2; ++j) {
                if (j < fields.size()) {
                    html += QStringLiteral("<td class=\"label\" width=\"22%\">%1</td>"
                                           "<td width=\"28%\">%2</td>")
                                .arg(fields[j].label.toHtmlEscaped(), cell(db, fields[j], row));
                } else {
                    html += QStringLiteral("<td class=\"label\" width=\"22%\"></td>"
                                           "<td width=\"28%\"></td>");
                }
            }
            html += QStringLiteral("</tr>");
        }
        html += QStringLiteral("</table>");
        for (const Section& child : section.children)
            writeSection(db, child, key, &row, depth + 1, html);
    }
}

void writeTable(store::Database& db, const Section& section, const std::vector<QVariantHash>& rows,
                int depth, QString& html) {
    html +=
        QStringLiteral("<p class=\"h%1\">%2</p>").arg(depth).arg(section.heading.toHtmlEscaped());
    // Columns share the width by their headings' longest words, so that no heading has to
    // break inside a word; wide tables take a smaller type.
    std::vector<int> weights;
    int sum = 0;
    for (const Field& field : section.fields) {
        qsizetype longest = 0;
        for (const QString& word : field.label.split(QLatin1Char(' ')))
            longest = std::max(longest, word.size());
        weights.push_back(int(std::max<qsizetype>(longest + 2, 11)));
        sum += weights.back();
    }
    const bool wide = section.fields.size() > 6;
    html += QStringLiteral("<table class=\"list\" width=\"100%\" cellspacing=\"0\" "
                           "cellpadding=\"%1\" border=\"1\"%2><thead><tr>")
                .arg(wide ? 2 : 3)
                .arg(wide ? QStringLiteral(" style=\"font-size:7pt\"") : QString());
    int given = 0;
    for (std::size_t i = 0; i < section.fields.size(); ++i) {
        const int percent = i + 1 < section.fields.size() ? 100 * weights[i] / sum : 100 - given;
        given += percent;
        html += QStringLiteral("<th width=\"%1%\">%2</th>")
                    .arg(percent)
                    .arg(section.fields[i].label.toHtmlEscaped());
    }
    html += QStringLiteral("</tr></thead><tbody>");
    for (const QVariantHash& row : rows) {
        html += QStringLiteral("<tr>");
        for (const Field& field : section.fields) {
            const bool number = field.format.kind == Format::Kind::Decimal;
            html += QStringLiteral("<td%1>%2</td>")
                        .arg(number ? QStringLiteral(" align=\"right\"") : QString(),
                             cell(db, field, row));
        }
        html += QStringLiteral("</tr>");
    }
    html += QStringLiteral("</tbody></table>");
}

void writeSection(store::Database& db, const Section& section, const store::RegisterKey& key,
                  const QVariantHash* parent, int depth, QString& html) {
    const std::vector<QVariantHash> rows = readRows(db, section, key, parent);
    if (rows.empty())
        return;
    if (section.kind == Section::Kind::Form)
        writeForm(db, section, key, rows, depth, html);
    else
        writeTable(db, section, rows, depth, html);
}

} // namespace

QString formatValue(store::Database& db, const Format& format, const QVariant& value,
                    const QVariantHash& row) {
    switch (format.kind) {
    case Kind::YesNo:
        if (isEmpty(value))
            return {};
        return value.toLongLong() != 0 ? QStringLiteral("Sim") : QStringLiteral("Não");
    case Kind::Ticked:
        return isEmpty(value) ? QStringLiteral("Não") : QStringLiteral("Sim");
    default:
        break;
    }
    if (isEmpty(value))
        return {};
    switch (format.kind) {
    case Kind::Plain:
        return plain(value);
    case Kind::Date: {
        const QString text = value.toString();
        const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
        return date.isValid() ? rules::shortDate(date) : text;
    }
    case Kind::Time: {
        const QString text = value.toString();
        QTime time = QTime::fromString(text, QStringLiteral("HH:mm:ss"));
        if (!time.isValid())
            time = QTime::fromString(text, QStringLiteral("HH:mm"));
        return time.isValid() ? time.toString(QStringLiteral("HH:mm")) : text;
    }
    case Kind::Decimal: {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok)
            return value.toString();
        return format.places < 0 ? brazil().toString(number, 'f', QLocale::FloatingPointShortest)
                                 : brazil().toString(number, 'f', format.places);
    }
    case Kind::Map: {
        const QString code = plain(value).trimmed();
        for (const auto& [stored, label] : format.labels) {
            if (stored == code)
                return label;
        }
        return format.otherwise.isEmpty() ? code : format.otherwise;
    }
    case Kind::Lookup:
        if (!format.extra.empty() && !isEmpty(row.value(q(format.extra))))
            return row.value(q(format.extra)).toString();
        return lookup(db, format, value, row);
    case Kind::ZeroBlank:
        return value.toLongLong() == 0 ? QString() : plain(value);
    case Kind::Cep:
        return rules::cepText(value);
    case Kind::Cnpj:
        return rules::cnpjText(value);
    case Kind::CpfCnpj:
        return rules::cpfCnpjText(value);
    case Kind::Phone: {
        const QString number = phoneNumber(rules::digitsOf(value));
        const QVariant area = format.extra.empty() ? QVariant() : row.value(q(format.extra));
        if (isEmpty(area) || area.toLongLong() == 0)
            return number;
        return QStringLiteral("(%1) %2").arg(
            rules::digitsOf(area).rightJustified(3, QLatin1Char('0')), number);
    }
    case Kind::Mask:
        return rules::maskDigits(format.mask, rules::digitsOf(value));
    case Kind::YesNo:
    case Kind::Ticked:
        break;
    }
    return plain(value);
}

QString reportHtml(store::Database& db, const Layout& layout, const store::RegisterKey& key) {
    QString html;
    for (const Section& section : layout.sections)
        writeSection(db, section, key, nullptr, 1, html);
    if (html.isEmpty())
        html = QStringLiteral("<p>Nenhuma informação cadastrada.</p>");
    return html;
}

} // namespace printing
