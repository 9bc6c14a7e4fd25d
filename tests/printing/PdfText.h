#pragma once

#include <QString>
#include <QStringList>

namespace testsupport {

// The text of every page of a PDF, read back with poppler; empty when the file isn't a PDF.
QStringList pdfPages(const QString& path);

// The layout name of the report a page belongs to, as "rpt04_tanqusubtr", known by the title
// in its band.
QString reportOfPage(const QString& pageText);

} // namespace testsupport
