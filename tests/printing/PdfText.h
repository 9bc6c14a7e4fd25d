#pragma once

#include <QString>
#include <QStringList>

namespace testsupport {

// The text of every page of a PDF, read back with poppler; empty when the file isn't a PDF.
QStringList pdfPages(const QString& path);

// The layout name that the footer of a page carries, as "rpt04_tanqusubtr".
QString reportOfPage(const QString& pageText);

} // namespace testsupport
