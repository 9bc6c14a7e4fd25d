#include "PdfText.h"

#include <QRegularExpression>
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
    static const QRegularExpression id(QStringLiteral("rpt\\d\\d_[\\w]+"),
                                       QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = id.match(pageText);
    return match.hasMatch() ? match.captured() : QString();
}

} // namespace testsupport
