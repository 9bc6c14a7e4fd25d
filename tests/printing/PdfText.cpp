#include "PdfText.h"

#include "printing/Catalogue.h"

#include <memory>
#include <poppler-qt6.h>

namespace testsupport {

QStringList pdfPages(const QString& path) {
    QStringList pages;
    const std::unique_ptr<Poppler::Document> doc = Poppler::Document::load(path);
    if (!doc || doc->isLocked())
        return pages;
    for (int i = 0; i < doc->numPages(); ++i) {
        const std::unique_ptr<Poppler::Page> page = doc->page(i);
        pages << (page ? page->text(QRectF()) : QString());
    }
    return pages;
}

QString reportOfPage(const QString& pageText) {
    // The page carries no layout name: the report is the one whose title stands on a line of
    // its own in the band.
    const QStringList lines = pageText.split(QLatin1Char('\n'));
    auto id = [](const printing::ReportEntry& e) {
        return QString::fromUtf8(e.id.data(), qsizetype(e.id.size()));
    };
    for (const QString& line : lines) {
        const QString text = line.simplified();
        for (const printing::ReportEntry& e : printing::catalogue()) {
            if (text == e.title.simplified())
                return id(e);
        }
        if (text == printing::protocolEntry().title.simplified())
            return id(printing::protocolEntry());
    }
    return {};
}

} // namespace testsupport
