#include "Fiscarel_SG/paper/BundleDocuments.h"

#include "Fiscarel_SG/paper/PdfFinish.h"
#include "Fiscarel_SG/store/DocumentFiles.h"
#include "Fiscarel_SG/store/PosixFiles.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <tl/expected.hpp>

#include <QBuffer>
#include <QImageReader>
#include <QPageSize>
#include <QPdfWriter>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

namespace fiscarel::paper {

namespace {

using Source = std::shared_ptr<QPDF>;
using Read = tl::expected<Source, std::string>;

/// A document that was taken.
struct Taken {
    const BundleItem* item = nullptr;
    std::string bytes; ///< libqpdf reads from them until the bundle is written
    Source pdf;
    std::size_t pages = 0;
};

Source sourceOf(const std::string& bytes) {
    auto pdf = std::make_shared<QPDF>();
    pdf->setSuppressWarnings(true);
    pdf->processMemoryFile("document", bytes.data(), bytes.size());
    return pdf;
}

constexpr double imageMargin = 28; ///< around an image on its page, points

/// Paints one image of a file on the page of a writer.
void paintImage(QPainter& painter, const QImage& image) {
    const QRectF room(imageMargin, imageMargin, pageWidth - 2 * imageMargin,
                      pageHeight - 2 * imageMargin);
    const QSizeF size = QSizeF(image.size()).scaled(room.size(), Qt::KeepAspectRatio);
    QRectF place(QPointF(), size);
    place.moveCenter(room.center());
    place.moveTop(room.top());
    painter.drawImage(place, image);
}

/// The next image of a file, upright, on white and not larger than paper can show.
std::optional<QImage> nextImage(QImageReader& reader) {
    constexpr double inchesHigh = pageHeight / 72;
    const int most = static_cast<int>(inchesHigh * imageResolution);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > most || size.height() > most)) {
        reader.setScaledSize(size.scaled(most, most, Qt::KeepAspectRatio));
    }
    QImage image = reader.read();
    if (image.isNull()) {
        return std::nullopt;
    }
    if (image.width() > most || image.height() > most) {
        image = image.scaled(most, most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    if (!image.hasAlphaChannel()) {
        return image;
    }
    QImage onWhite(image.size(), QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    QPainter(&onWhite).drawImage(0, 0, image);
    return onWhite;
}

/// The images of a file as pages of a PDF; empty when there is none that reads.
QByteArray imagePages(std::string& bytes) {
    constexpr int mostImages = 500;
    QByteArray content =
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer input(&content);
    QImageReader reader(&input);
    reader.setAutoTransform(true);
    QByteArray pdf;
    QBuffer output(&pdf);
    output.open(QIODevice::WriteOnly);
    QPdfWriter writer(&output);
    setPaper(writer);
    QPainter painter;
    for (int count = 0; count < mostImages && reader.canRead(); ++count) {
        const std::optional<QImage> image = nextImage(reader);
        if (!image) {
            break;
        }
        if (count == 0) {
            painter.begin(&writer);
            painter.scale(finePerPoint, finePerPoint);
        } else {
            writer.newPage();
        }
        paintImage(painter, *image);
    }
    if (!painter.isActive()) {
        return {};
    }
    painter.end();
    return pdf;
}

std::string quoted(const BundleItem& item) { return "«" + item.title + "»"; }

/// Opens a document whose bytes are in `taken`.
Read opened(Taken& taken) {
    const std::string name = quoted(*taken.item);
    // Some programs write a few bytes before the mark.
    constexpr std::size_t markWithin = 1024;
    if (std::string_view(taken.bytes).substr(0, markWithin).find("%PDF-") == std::string::npos) {
        const QByteArray pages = imagePages(taken.bytes);
        if (pages.isEmpty()) {
            return tl::unexpected(name + " ist weder ein PDF noch ein Bild, das sich lesen lässt.");
        }
        taken.bytes = pages.toStdString();
    }
    try {
        const Source pdf = sourceOf(taken.bytes);
        QPDFPageDocumentHelper helper(*pdf);
        taken.pages = helper.getAllPages().size();
        if (taken.pages == 0) {
            return tl::unexpected(name + " enthält keine Seiten.");
        }
        QPDFAcroFormDocumentHelper forms(*pdf);
        if (forms.hasAcroForm()) {
            forms.generateAppearancesIfNeeded();
            helper.flattenAnnotations(0, an_invisible | an_hidden);
        }
        return pdf;
    } catch (const QPDFExc& error) {
        return tl::unexpected(
            error.getErrorCode() == qpdf_e_password
                ? name
                      + " ist mit einem Passwort geschützt; bitte ohne Passwort speichern und neu "
                        "hinzufügen."
                : name + " ist beschädigt und lässt sich nicht lesen.");
    } catch (const std::exception&) {
        return tl::unexpected(name + " ist beschädigt und lässt sich nicht lesen.");
    }
}

tl::expected<Taken, std::string> take(const BundleItem& item) {
    Taken taken{.item = &item};
    auto bytes = PosixFiles().read(item.file, maxDocumentSize);
    if (!bytes) {
        return tl::unexpected(quoted(item) + ": " + bytes.error().reason());
    }
    // Kept where it does not move: libqpdf and short strings refer to it.
    taken.bytes = std::move(*bytes);
    return taken;
}

/// The pages before the documents: what there is and where, and what is missing.
PaperDocument contentsPages(const std::string& title,
                            const std::vector<std::unique_ptr<Taken>>& documents,
                            const std::vector<BundleFault>& faults, std::size_t ownPages) {
    using namespace outputs;
    ReportChapter chapter{.title = title, .anchor = "contents", .blocks = {}};
    chapter.blocks.emplace_back(ReportHeading{title, 1, "contents"});
    ReportTable list{.columns = {{"Nr.", ReportColumn::Kind::label},
                                 {"Beleg", ReportColumn::Kind::text},
                                 {"Seiten", ReportColumn::Kind::amount},
                                 {"ab Seite", ReportColumn::Kind::amount}},
                     .rows = {}};
    std::size_t page = ownPages + 1;
    for (std::size_t i = 0; i < documents.size(); ++i) {
        list.rows.push_back({.cells = {{std::to_string(i + 1)},
                                       {documents[i]->item->title},
                                       {std::to_string(documents[i]->pages)},
                                       {std::to_string(page)}}});
        page += documents[i]->pages;
    }
    chapter.blocks.emplace_back(std::move(list));
    if (!faults.empty()) {
        ReportTable missing{.columns = {{"Fehlt", ReportColumn::Kind::text}}, .rows = {}};
        for (const BundleFault& fault : faults) {
            missing.rows.push_back({.cells = {{fault.message}}});
        }
        chapter.blocks.emplace_back(std::move(missing));
    }
    return setOnPaper({.title = title, .pageHead = title, .pageFoot = {}, .chapters = {chapter}});
}

std::string merged(const std::string& title, const std::vector<std::unique_ptr<Taken>>& documents,
                   const std::vector<BundleFault>& faults) {
    const std::size_t ownPages = contentsPages(title, documents, faults, 0).pages.size();
    const PaperDocument contents = contentsPages(title, documents, faults, ownPages);
    const QByteArray front = plainPdf(contents);
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processMemoryFile("bundle", front.constData(), static_cast<std::size_t>(front.size()));
    QPDFPageDocumentHelper pages(pdf);
    std::vector<PaperEntry> outline{{contents.title, 1, {}}};
    int at = static_cast<int>(ownPages);
    for (const auto& document : documents) {
        outline.push_back({paperText(document->item->title), 1, {at, 0}});
        for (const QPDFPageObjectHelper& page :
             QPDFPageDocumentHelper(*document->pdf).getAllPages()) {
            pages.addPage(page, false);
            ++at;
        }
    }
    addDocumentData(pdf, contents.title, outline);
    return written(pdf);
}

/// Takes out the documents that cannot even be written alone.
void leaveOutBroken(std::vector<std::unique_ptr<Taken>>& documents,
                    const std::vector<BundleItem>& items, Bundle& bundle) {
    std::vector<std::unique_ptr<Taken>> sound;
    for (auto& document : documents) {
        std::vector<std::unique_ptr<Taken>> alone;
        alone.push_back(std::move(document));
        try {
            merged({}, alone, {});
            sound.push_back(std::move(alone.front()));
        } catch (const std::exception&) {
            const BundleItem& item = *alone.front()->item;
            bundle.faults.push_back(
                {static_cast<std::size_t>(&item - items.data()),
                 quoted(item) + " ist beschädigt und lässt sich nicht verbinden."});
        }
    }
    documents = std::move(sound);
}

} // namespace

Bundle bundleDocuments(const std::string& title, const std::vector<BundleItem>& items) {
    Bundle bundle;
    std::vector<std::unique_ptr<Taken>> documents;
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto read = take(items[i]);
        if (!read) {
            bundle.faults.push_back({i, read.error()});
            continue;
        }
        auto document = std::make_unique<Taken>(std::move(*read));
        auto pdf = opened(*document);
        if (!pdf) {
            bundle.faults.push_back({i, pdf.error()});
            continue;
        }
        document->pdf = std::move(*pdf);
        documents.push_back(std::move(document));
    }
    try {
        bundle.pdf = documents.empty() ? std::string() : merged(title, documents, bundle.faults);
    } catch (const std::exception&) {
        // One looked sound and is not: without it, the rest must not be lost.
        leaveOutBroken(documents, items, bundle);
        bundle.pdf = documents.empty() ? std::string() : merged(title, documents, bundle.faults);
    }
    for (const auto& document : documents) {
        bundle.pages += document->pages;
    }
    return bundle;
}

} // namespace fiscarel::paper
