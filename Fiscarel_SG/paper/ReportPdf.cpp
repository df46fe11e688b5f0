#include "Fiscarel_SG/paper/ReportPdf.h"

#include "Fiscarel_SG/paper/PdfFinish.h"

#include <qpdf/QPDF.hh>

#include <exception>

namespace fiscarel::paper {

tl::expected<std::string, std::string> reportPdf(const PaperDocument& document) {
    try {
        const QByteArray plain = plainPdf(document);
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processMemoryFile("report", plain.constData(), static_cast<std::size_t>(plain.size()));
        addDocumentData(pdf, document.title, document.outline);
        addLinks(pdf, document, 0);
        return written(pdf);
    } catch (const std::exception& error) {
        return tl::unexpected("Das PDF lässt sich nicht erstellen: " + std::string(error.what()));
    }
}

} // namespace fiscarel::paper
