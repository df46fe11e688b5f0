#pragma once

#include "Fiscarel_SG/paper/PaperDocument.h"

#include <QByteArray>
#include <string>

class QPDF;
class QPdfWriter;

namespace fiscarel::paper {

// What a PDF file needs beside its pages. These functions throw what libqpdf throws.

/// Title (also in the title bar of readers), language of the texts (Swiss German) and the outline,
/// which readers then show.
void addDocumentData(QPDF& pdf, const QString& title, const std::vector<PaperEntry>& outline);
/// The links of set pages; page i of the document is page `firstPage` + i of the file.
void addLinks(QPDF& pdf, const PaperDocument& document, int firstPage);
/// The file, made small.
std::string written(QPDF& pdf);

/// A4 without margins, in `finePerPoint` parts of a point.
void setPaper(QPdfWriter& writer);
/// The pages as a PDF file that lacks all of this yet; fonts are embedded with the letters used.
QByteArray plainPdf(const PaperDocument& document);

} // namespace fiscarel::paper
