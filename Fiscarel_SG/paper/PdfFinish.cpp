#include "Fiscarel_SG/paper/PdfFinish.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <QBuffer>
#include <QMarginsF>
#include <QPageSize>
#include <QPdfWriter>
#include <algorithm>
#include <memory>

namespace fiscarel::paper {

namespace {

using Handle = QPDFObjectHandle;

Handle unicode(const QString& text) { return Handle::newUnicodeString(text.toStdString()); }

double heightOf(QPDFPageObjectHelper page) {
    Handle box = page.getAttribute("/MediaBox", false);
    return box.isRectangle() ? box.getArrayAsRectangle().ury : pageHeight;
}

/// Where an entry leads: the page, scrolled to a height.
Handle destination(const std::vector<QPDFPageObjectHelper>& pages, const PaperPlace& place) {
    constexpr double above = 12; // what is sought does not stick to the edge of the window
    const auto at =
        static_cast<std::size_t>(std::clamp(place.page, 0, static_cast<int>(pages.size()) - 1));
    QPDFPageObjectHelper page = pages[at];
    return Handle::newArray({page.getObjectHandle(), Handle::newName("/XYZ"), Handle::newNull(),
                             Handle::newReal(heightOf(page) - std::max(0.0, place.y - above), 2),
                             Handle::newNull()});
}

/// Hangs the entries from `next` on that stand below `level` under a parent; how many there are.
int hang(QPDF& pdf, Handle parent, const std::vector<PaperEntry>& entries, std::size_t& next,
         int level, const std::vector<QPDFPageObjectHelper>& pages) {
    Handle before = Handle::newNull();
    int count = 0;
    while (next < entries.size() && entries[next].level > level) {
        const PaperEntry& entry = entries[next++];
        Handle item = pdf.makeIndirectObject(Handle::newDictionary());
        item.replaceKey("/Title", unicode(entry.title));
        item.replaceKey("/Parent", parent);
        item.replaceKey("/Dest", destination(pages, entry.place));
        if (before.isNull()) {
            parent.replaceKey("/First", item);
        } else {
            before.replaceKey("/Next", item);
            item.replaceKey("/Prev", before);
        }
        parent.replaceKey("/Last", item);
        const int within = hang(pdf, item, entries, next, entry.level, pages);
        if (within > 0) {
            item.replaceKey("/Count", Handle::newInteger(-within)); // folded at first
        }
        before = item;
        ++count;
    }
    return count;
}

} // namespace

void addDocumentData(QPDF& pdf, const QString& title, const std::vector<PaperEntry>& outline) {
    Handle root = pdf.getRoot();
    root.replaceKey("/Lang", Handle::newString("de-CH"));
    Handle preferences = Handle::newDictionary();
    preferences.replaceKey("/DisplayDocTitle", Handle::newBool(true));
    root.replaceKey("/ViewerPreferences", preferences);
    Handle trailer = pdf.getTrailer();
    if (!trailer.getKey("/Info").isDictionary()) {
        trailer.replaceKey("/Info", pdf.makeIndirectObject(Handle::newDictionary()));
    }
    trailer.getKey("/Info").replaceKey("/Title", unicode(title));
    const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
    if (outline.empty() || pages.empty()) {
        return;
    }
    Handle outlines = pdf.makeIndirectObject(Handle::newDictionary());
    outlines.replaceKey("/Type", Handle::newName("/Outlines"));
    std::size_t next = 0;
    const int count = hang(pdf, outlines, outline, next, 0, pages);
    outlines.replaceKey("/Count", Handle::newInteger(count));
    root.replaceKey("/Outlines", outlines);
    root.replaceKey("/PageMode", Handle::newName("/UseOutlines"));
}

void addLinks(QPDF& pdf, const PaperDocument& document, int firstPage) {
    const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        QPDFPageObjectHelper page = pages.at(i + static_cast<std::size_t>(firstPage));
        const double height = heightOf(page);
        Handle annotations = Handle::newArray();
        for (const PaperLink& link : document.pages[i].links) {
            PaperPlace place = document.places.at(link.target);
            place.page += firstPage;
            Handle annotation = Handle::newDictionary();
            annotation.replaceKey("/Type", Handle::newName("/Annot"));
            annotation.replaceKey("/Subtype", Handle::newName("/Link"));
            annotation.replaceKey(
                "/Rect", Handle::newFromRectangle({link.rect.left(), height - link.rect.bottom(),
                                                   link.rect.right(), height - link.rect.top()}));
            annotation.replaceKey("/Border", Handle::parse("[0 0 0]"));
            annotation.replaceKey("/Dest", destination(pages, place));
            annotations.appendItem(pdf.makeIndirectObject(annotation));
        }
        if (annotations.getArrayNItems() > 0) {
            page.getObjectHandle().replaceKey("/Annots", annotations);
        }
    }
}

std::string written(QPDF& pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setStreamDataMode(qpdf_s_compress);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    const unsigned char* const bytes = buffer->getBuffer();
    return {bytes, bytes + buffer->getSize()};
}

void setPaper(QPdfWriter& writer) {
    constexpr int pointsPerInch = 72;
    writer.setResolution(pointsPerInch * finePerPoint);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
}

QByteArray plainPdf(const PaperDocument& document) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    setPaper(writer);
    writer.setTitle(document.title);
    writer.setCreator(QStringLiteral("Fiscarel SG"));
    QPainter painter(&writer);
    painter.scale(finePerPoint, finePerPoint);
    for (const PaperPage& page : document.pages) {
        if (&page != &document.pages.front()) {
            writer.newPage();
        }
        paintPage(painter, page);
    }
    painter.end();
    return bytes;
}

} // namespace fiscarel::paper
