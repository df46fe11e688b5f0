#include "Fiscarel_SG/pages/PaperPrinting.h"

#include <QPainter>
#include <QPrinter>
#include <algorithm>

namespace fiscarel::pages {

std::shared_ptr<QPrinter> printerFor(const paper::PaperDocument& document) {
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageSize(QPageSize(QPageSize::A4));
    printer->setFullPage(true);
    printer->setDocName(document.title);
    return printer;
}

std::optional<std::string> printPages(const paper::PaperDocument& document, QPrinter& printer) {
    constexpr double pointsPerInch = 72;
    QPainter painter;
    if (!painter.begin(&printer)) {
        return "Der Drucker nimmt nichts an.";
    }
    const int pages = static_cast<int>(document.pages.size());
    const int first = printer.fromPage() > 0 ? printer.fromPage() : 1;
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), pages) : pages;
    const double scale = printer.resolution() / pointsPerInch;
    for (int page = first; page <= last; ++page) {
        if (page > first && !printer.newPage()) {
            return "Der Drucker hat abgebrochen.";
        }
        painter.save();
        painter.scale(scale, scale);
        paper::paintPage(painter, document.pages[static_cast<std::size_t>(page) - 1]);
        painter.restore();
    }
    return painter.end() ? std::nullopt
                         : std::optional<std::string>("Der Drucker hat abgebrochen.");
}

} // namespace fiscarel::pages
