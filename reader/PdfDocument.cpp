#include "reader/Document.h"
#include "reader/PageImages.h"

#include <leptonica/allheaders.h>
#include <poppler-qt6.h>

#include <QByteArray>
#include <QImage>
#include <QRegularExpression>
#include <QVariant>
#include <algorithm>
#include <cmath>

namespace fiscarel::reader {

namespace {

constexpr double pointsPerInch = 72;
constexpr double readingDpi = 300;
constexpr double longestSide = 20'000; // pixels

/// Poppler asks this between the steps of a page.
bool isOver(const QVariant& deadline) {
    return std::chrono::steady_clock::now().time_since_epoch().count() > deadline.toLongLong();
}

PixPtr greyOf(const QImage& image) {
    PixPtr pix(pixCreateNoInit(image.width(), image.height(), 8));
    if (!pix) {
        return nullptr;
    }
    const int step = pixGetWpl(pix.get());
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        l_uint32* const to = pixGetData(pix.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < width; ++x) {
            SET_DATA_BYTE(to, x, static_cast<l_uint8>(qGray(from[x])));
        }
    }
    return pix;
}

PixPtr colourOf(const QImage& image) {
    PixPtr pix(pixCreateNoInit(image.width(), image.height(), 32));
    if (!pix) {
        return nullptr;
    }
    const int step = pixGetWpl(pix.get());
    for (int y = 0; y < image.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        l_uint32* const to = pixGetData(pix.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < image.width(); ++x) {
            composeRGBPixel(qRed(from[x]), qGreen(from[x]), qBlue(from[x]), &to[x]);
        }
    }
    return pix;
}

/// Columns stand as far apart as on the page; two blanks part them as well. A single one would join
/// the numbers of neighbouring columns to a number with groups of three.
std::string withoutWideGaps(QString text) {
    static const QRegularExpression gap(QStringLiteral(" {3,}"));
    return text.replace(gap, QStringLiteral("  ")).toStdString();
}

class PdfDocument : public Document {
  public:
    PdfDocument(std::unique_ptr<Poppler::Document> document, std::string_view bytes,
                Deadline deadline)
        : document_(std::move(document)), images_(bytes),
          deadline_(static_cast<qlonglong>(deadline.time_since_epoch().count())) {
        document_->setRenderHint(Poppler::Document::TextAntialiasing);
        document_->setRenderHint(Poppler::Document::Antialiasing);
    }

    int pageCount() const override { return document_->numPages(); }

    PageSize size(int page) const override {
        const auto at = pageAt(page);
        const QSizeF size = at ? at->pageSizeF() : QSizeF();
        return {size.width(), size.height()};
    }

    PageText text(int page) const override {
        PageText found;
        const auto at = pageAt(page);
        if (!at) {
            return found;
        }
        const auto boxes = at->textList(Poppler::Page::Rotate0, isOver, deadline_);
        for (const auto& box : boxes) {
            const QString word = box->text().trimmed();
            if (word.isEmpty() || found.words.size() == bounds::wordsPerPage) {
                continue;
            }
            const QRectF place = box->boundingBox();
            found.words.push_back(
                {.text = word.toStdString(),
                 .place = {place.left(), place.top(), place.right(), place.bottom()}});
        }
        if (!found.words.empty()) {
            found.text = withoutWideGaps(at->text(QRectF()).left(qsizetype{1} << 20));
        }
        return found;
    }

    Picture picture(int page) const override {
        if (auto image = images_.pagePicture(page, size(page))) {
            return std::move(*image);
        }
        Picture picture;
        const PageSize points = size(page);
        picture.dpi = affordable(points, readingDpi);
        picture.grey = greyOf(rendered(page, picture.dpi));
        picture.toPage = Mapping::scaling(pointsPerInch / picture.dpi);
        return picture;
    }

    PixPtr preview(int page, int width) const override {
        const PageSize points = size(page);
        if (points.width <= 0) {
            return nullptr;
        }
        const QImage image =
            rendered(page, affordable(points, pointsPerInch * width / points.width));
        return image.isNull() ? nullptr : colourOf(image);
    }

    bool isScan(int page) const override { return images_.fillsPage(page, size(page)); }
    bool mayBePhoto(int page) const override { return isScan(page); }

  private:
    std::unique_ptr<Poppler::Page> pageAt(int page) const { return document_->page(page - 1); }

    /// The resolution wanted, or the highest at which the page keeps its bounds.
    static double affordable(const PageSize& points, double dpi) {
        if (points.width <= 0 || points.height <= 0) {
            return dpi;
        }
        const double area = points.width * points.height / (pointsPerInch * pointsPerInch);
        return std::min({dpi, std::sqrt(bounds::pagePixels / area),
                         longestSide * pointsPerInch / std::max(points.width, points.height)});
    }

    QImage rendered(int page, double dpi) const {
        const auto at = pageAt(page);
        if (!at || dpi <= 0) {
            return {};
        }
        const QImage image = at->renderToImage(dpi, dpi, -1, -1, -1, -1, Poppler::Page::Rotate0,
                                               nullptr, nullptr, isOver, deadline_);
        return image.isNull() ? image : image.convertToFormat(QImage::Format_RGB32);
    }

    std::unique_ptr<Poppler::Document> document_;
    PageImages images_;
    QVariant deadline_;
};

} // namespace

tl::expected<std::unique_ptr<Document>, Fault> openPdf(std::string_view bytes, Deadline deadline) {
    Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
    auto document = Poppler::Document::loadFromData(
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (document && document->isLocked()) {
        return tl::unexpected<Fault>("Diese Datei ist mit einem Passwort geschützt. Bitte ohne "
                                     "Passwort speichern und die neue Datei verwenden.");
    }
    if (!document || document->numPages() <= 0) {
        return tl::unexpected<Fault>("Dieses PDF ist beschädigt und lässt sich nicht öffnen.");
    }
    return std::make_unique<PdfDocument>(std::move(document), bytes, deadline);
}

} // namespace fiscarel::reader
