#include "printing/Memorial.h"

#include "printing/Layout.h"
#include "printing/ReportHtml.h"
#include "rules/Formats.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSqlQuery>
#include <QTextDocument>
#include <memory>

namespace printing {

namespace {

// Pages are laid out at a fixed 96 dots per inch whatever the device, so that a printer and a
// PDF of the same paper get the same page breaks; the painter scales to the device.
constexpr double kLayoutDpi = 96.0;
constexpr double kMm = kLayoutDpi / 25.4;
constexpr double kBandHeight = 30 * kMm;
constexpr double kFooterHeight = 9 * kMm;
const QMarginsF kPageMargins(15, 12, 15, 12); // millimetres

QPaintDevice& layoutDevice() {
    static QImage image = [] {
        QImage i(1, 1, QImage::Format_RGB32);
        i.setDotsPerMeterX(qRound(kLayoutDpi / 0.0254));
        i.setDotsPerMeterY(qRound(kLayoutDpi / 0.0254));
        return i;
    }();
    return image;
}

QFont documentFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(8.5);
    // Shaping would join "fi" into one ligature glyph, and the text taken out of the PDF
    // would no longer read "Identificação".
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

const QString kStyle = QStringLiteral(
    "p { margin: 0; }"
    "p.h1 { font-size: 10pt; font-weight: bold; background-color: #dcdcdc;"
    " margin-top: 10px; margin-bottom: 4px; }"
    "p.h2 { font-size: 9pt; font-weight: bold; margin-top: 8px; margin-bottom: 3px; }"
    "p.h3 { font-size: 9pt; font-style: italic; margin-top: 6px; margin-bottom: 2px; }"
    "table { border-color: #8c8c8c; border-style: solid; border-collapse: collapse; }"
    "td.label { font-weight: bold; background-color: #f0f0f0; }"
    "th { font-weight: bold; background-color: #dcdcdc; text-align: left; }"
    "p.statement { font-size: 10pt; margin-top: 12px; margin-bottom: 12px; }"
    "td.band { border-width: 0; }");

std::unique_ptr<QTextDocument> newDocument(const QString& html, double width) {
    auto doc = std::make_unique<QTextDocument>();
    doc->documentLayout()->setPaintDevice(&layoutDevice());
    doc->setDefaultFont(documentFont());
    doc->setDefaultStyleSheet(kStyle);
    doc->setDocumentMargin(0);
    doc->setHtml(html);
    doc->setTextWidth(width);
    return doc;
}

void paintDocument(QPainter& painter, QTextDocument& doc, const QPointF& at, const QRectF& part) {
    painter.save();
    painter.translate(at.x(), at.y() - part.top());
    painter.setClipRect(part);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    doc.documentLayout()->draw(&painter, context);
    painter.restore();
}

QString escaped(const QString& text) {
    return text.toHtmlEscaped();
}

} // namespace

QString reportKind(store::Database& db) {
    const QVariant objective = db.scalar(QStringLiteral("SELECT IMOVMN FROM TB_VORpMOVMN"));
    if (!objective.isValid() || objective.isNull() || objective.toString() == QLatin1String("C"))
        return QStringLiteral("CADASTRO");
    return QStringLiteral("LICENCIAMENTO");
}

QDate surveyDate(store::Database& db, const store::RegisterKey& key) {
    const QVariant value =
        db.scalar(QStringLiteral("SELECT ALEVNT FROM TB_POSTO WHERE NMUNCP = ? AND NSEQNC = ?"),
                  {key.nmuncp, key.nseqnc});
    if (!value.isValid() || value.isNull())
        return {};
    return QDate::fromString(value.toString().left(10), Qt::ISODate);
}

QString protocolDateTime(const QDateTime& moment) {
    return moment.toString(QStringLiteral("dd/MM/yyyy HH:mm"));
}

Memorial::Memorial(store::Database& db, const store::RegisterKey& key, RunParameters parameters)
    : m_parameters(std::move(parameters)) {
    readBand(db, key);
    for (const ReportEntry& report : catalogue()) {
        if (probe(db, report, key))
            m_parts.push_back({&report, reportHtml(db, layout(report.id), key)});
    }
}

Memorial Memorial::protocol(store::Database& db, const store::RegisterKey& key,
                            RunParameters parameters) {
    Memorial memorial;
    memorial.m_parameters = std::move(parameters);
    memorial.readBand(db, key);
    const ReportEntry& report = protocolEntry();
    const QString statement =
        QStringLiteral("<p class=\"statement\">O Caderno Vorel de Empreendimento do "
                       "estabelecimento abaixo foi enviado à ZANTOR por correio eletrônico "
                       "em <b>%1</b>.</p>")
            .arg(escaped(memorial.m_parameters.dateTime));
    memorial.m_parts.push_back(
        {&report, statement + reportHtml(db, layout(report.id), key) +
                      QStringLiteral("<p class=\"statement\">Data/Hora do envio: %1</p>")
                          .arg(escaped(memorial.m_parameters.dateTime))});
    return memorial;
}

void Memorial::readBand(store::Database& db, const store::RegisterKey& key) {
    QSqlQuery query = db.run(
        QStringLiteral("SELECT DRAZAOSOCIL, CCGC FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
        {key.nmuncp, key.nseqnc});
    m_band.code = key.code();
    if (query.next()) {
        m_band.name = query.value(0).toString();
        Format cnpj;
        cnpj.kind = Format::Kind::Cnpj;
        m_band.cnpj = formatValue(db, cnpj, query.value(1), {});
    }
}

std::vector<std::string_view> Memorial::reports() const {
    std::vector<std::string_view> ids;
    for (const Part& part : m_parts)
        ids.push_back(part.entry->id);
    return ids;
}

QString Memorial::body(std::string_view id) const {
    for (const Part& part : m_parts) {
        if (part.entry->id == id)
            return part.html;
    }
    return {};
}

int Memorial::print(QPagedPaintDevice& device) const {
    device.setPageMargins(kPageMargins, QPageLayout::Millimeter);
    const double scaleX = device.logicalDpiX() / kLayoutDpi;
    const double scaleY = device.logicalDpiY() / kLayoutDpi;
    const double width = device.width() / scaleX;
    const double height = device.height() / scaleY;
    const double bodyHeight = height - kBandHeight - kFooterHeight;
    if (width < 50 * kMm || bodyHeight < 50 * kMm)
        throw store::Failure::other(482, QStringLiteral("Papel pequeno demais para o relatório."));

    // First every report is laid out, so that the total is known before the first page.
    struct Laid {
        const Part* part;
        std::unique_ptr<QTextDocument> band;
        std::unique_ptr<QTextDocument> body;
        int pages;
    };
    std::vector<Laid> laid;
    int total = 0;
    for (const Part& part : m_parts) {
        QString surveyLine;
        if (m_parameters.dateTime.isEmpty()) {
            surveyLine =
                QStringLiteral("Data do Levantamento: ") +
                (m_parameters.surveyDate.isValid() ? rules::shortDate(m_parameters.surveyDate)
                                                   : QString());
        }
        const QString band =
            QStringLiteral(
                "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"0\" border=\"0\">"
                "<tr><td class=\"band\"><span style=\"font-size:14pt; font-weight:bold\">ZANTOR"
                "</span></td><td class=\"band\" align=\"right\"><span style=\"font-size:12pt; "
                "font-weight:bold\">%1</span></td></tr>"
                "<tr><td class=\"band\">Caderno Vorel de Empreendimento - VOR</td>"
                "<td class=\"band\" align=\"right\">%2</td></tr></table>"
                "<hr/>"
                "<p><b>VOR:</b> %3 &nbsp;&nbsp; <b>Razão Social:</b> %4 &nbsp;&nbsp; "
                "<b>CNPJ:</b> %5</p>"
                "<p align=\"center\" style=\"font-size:11pt; font-weight:bold; "
                "background-color:#c8c8c8; margin-top:6px\">%6</p>")
                .arg(escaped(m_parameters.kind), escaped(surveyLine), escaped(m_band.code),
                     escaped(m_band.name), escaped(m_band.cnpj), escaped(part.entry->title));
        auto bandDoc = newDocument(band, width);
        auto body = newDocument(part.html, width);
        body->setPageSize(QSizeF(width, bodyHeight));
        const int pages = body->pageCount();
        total += pages;
        laid.push_back({&part, std::move(bandDoc), std::move(body), pages});
    }

    QPainter painter;
    if (!painter.begin(&device))
        throw store::Failure::other(482, QStringLiteral("Não foi possível iniciar a impressão."));
    painter.scale(scaleX, scaleY);
    int page = 0;
    for (const Laid& report : laid) {
        for (int i = 0; i < report.pages; ++i) {
            if (page > 0)
                device.newPage();
            ++page;
            paintDocument(painter, *report.band, {0, 0},
                          QRectF(0, 0, width, kBandHeight - 2 * kMm));
            paintDocument(painter, *report.body, {0, kBandHeight},
                          QRectF(0, i * bodyHeight, width, bodyHeight));
            const QString footer =
                QStringLiteral("<hr/><table width=\"100%\" cellspacing=\"0\" cellpadding=\"0\" "
                               "border=\"0\"><tr><td class=\"band\"><span style=\"font-size:7pt; "
                               "color:#606060\">%1</span></td><td class=\"band\" "
                               "align=\"right\">Página %2 de %3</td></tr></table>")
                    .arg(escaped(QString::fromUtf8(report.part->entry->id.data(),
                                                   qsizetype(report.part->entry->id.size()))))
                    .arg(page)
                    .arg(total);
            auto footerDoc = newDocument(footer, width);
            paintDocument(painter, *footerDoc, {0, height - kFooterHeight},
                          QRectF(0, 0, width, kFooterHeight));
        }
    }
    painter.end();
    return total;
}

int Memorial::writePdf(const QString& path) const {
    store::makePrivateFile(path);
    QPdfWriter writer(path);
    writer.setResolution(300);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setCreator(QStringLiteral("VOR"));
    writer.setTitle(QStringLiteral("Caderno Vorel de Empreendimento - %1").arg(m_band.code));
    const int pages = print(writer);
    // QPdfWriter reports no write error of its own; a file that did not appear is one.
    if (!QFileInfo::exists(path) || QFileInfo(path).size() == 0) {
        QFile::remove(path);
        throw store::Failure::other(75, QStringLiteral("Não foi possível gravar o arquivo %1.")
                                            .arg(QDir::toNativeSeparators(path)));
    }
    return pages;
}

namespace {
QString protocolKind(bool resent) {
    return resent ? QString() : QStringLiteral("CADASTRO");
}
} // namespace

int printProtocol(store::Database& db, const store::RegisterKey& key, const QString& dateTime,
                  QPagedPaintDevice& device, bool resent) {
    return Memorial::protocol(db, key, {protocolKind(resent), QDate(), dateTime}).print(device);
}

int writeProtocolPdf(store::Database& db, const store::RegisterKey& key, const QString& dateTime,
                     const QString& path, bool resent) {
    return Memorial::protocol(db, key, {protocolKind(resent), QDate(), dateTime}).writePdf(path);
}

} // namespace printing
