#include "reader/Document.h"
#include "reader/Exif.h"
#include "reader/HeifImage.h"
#include "reader/TiffPages.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace fiscarel::reader {

namespace {

constexpr double pointsPerInch = 72;

struct ImageFile {
    std::string_view bytes;
    int format = IFF_UNKNOWN; ///< of Leptonica; `IFF_UNKNOWN` for HEIF
    int orientation = 1;
    std::vector<std::size_t> tiffPages; ///< where each page of a TIFF is told

    bool isTiff() const { return L_FORMAT_IS_TIFF(format); }
    int pageCount() const { return isTiff() ? static_cast<int>(tiffPages.size()) : 1; }
};

const l_uint8* data(std::string_view bytes) {
    return reinterpret_cast<const l_uint8*>(bytes.data());
}

bool isTooLarge(double width, double height) { return width * height > bounds::pixels; }

/// Pixels of a page as stored.
struct StoredSize {
    int width = 0;
    int height = 0;
};

std::optional<StoredSize> storedSize(const ImageFile& file, int page) {
    StoredSize size;
    int format = 0;
    const bool failed =
        file.isTiff()
            ? readHeaderMemTiff(data(file.bytes), file.bytes.size(), page - 1, &size.width,
                                &size.height, nullptr, nullptr, nullptr, nullptr, &format)
                  != 0
            : pixReadHeaderMem(data(file.bytes), file.bytes.size(), &format, &size.width,
                               &size.height, nullptr, nullptr, nullptr)
                  != 0;
    return failed ? std::nullopt : std::optional(size);
}

/// Turns and mirrors a picture as the camera tells.
PixPtr upright(PixPtr pix, int orientation) {
    if (!pix || orientation == 1) {
        return pix;
    }
    constexpr std::array<int, 9> quarterTurns{0, 0, 0, 2, 2, 1, 1, 3, 3};
    const auto at = static_cast<std::size_t>(orientation);
    const bool isMirrored =
        orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
    if (isMirrored) {
        pix.reset(pixFlipLR(nullptr, pix.get()));
    }
    // Those that are mirrored and lie on their side turn the other way after the mirror.
    const int turns = orientation == 5 ? 3 : orientation == 7 ? 1 : quarterTurns[at];
    return PixPtr(pix && turns != 0 ? pixRotateOrth(pix.get(), turns) : pix.release());
}

PixPtr decode(const ImageFile& file, int page) {
    if (file.format == IFF_UNKNOWN) {
        return decodeHeif(file.bytes);
    }
    if (!file.isTiff()) {
        return PixPtr(pixReadMem(data(file.bytes), file.bytes.size()));
    }
    if (page > file.pageCount()) {
        return nullptr;
    }
    if (page > bounds::textPages) { // of the others the size is known
        const auto size = storedSize(file, page);
        if (!size || isTooLarge(size->width, size->height)) {
            return nullptr;
        }
    }
    std::size_t offset = page == 1 ? 0 : file.tiffPages[static_cast<std::size_t>(page - 1)];
    return PixPtr(pixReadMemFromMultipageTiff(data(file.bytes), file.bytes.size(), &offset));
}

/// The resolution of a page: as told when that is believable, else as if it were a sheet of A4.
double dpiOf(const PixPtr& pix) {
    constexpr double longSide = 297 / 25.4;
    constexpr double largestSheet = 24;
    constexpr double smallestSheet = 2;
    const double longest = std::max(widthOf(pix), heightOf(pix));
    const double told = pixGetXRes(pix.get());
    const bool isBelievable = told >= 100 && told <= 1200 && longest / told <= largestSheet
                              && longest / told >= smallestSheet;
    return isBelievable ? told : longest / longSide;
}

class ImageDocument : public Document {
  public:
    explicit ImageDocument(ImageFile file) : file_(std::move(file)) {}

    int pageCount() const override { return file_.pageCount(); }

    PageSize size(int page) const override {
        const PixPtr& pix = colour(page);
        if (!pix) {
            return {};
        }
        const double dpi = dpiOf(pix);
        return {widthOf(pix) * pointsPerInch / dpi, heightOf(pix) * pointsPerInch / dpi};
    }

    PageText text(int /*page*/) const override { return {}; }

    Picture picture(int page) const override {
        const PixPtr& pix = colour(page);
        if (!pix) {
            return {};
        }
        Picture picture{.grey = greyOf(shared(pix)), .dpi = dpiOf(pix)};
        const double pixels = double{1} * widthOf(pix) * heightOf(pix);
        if (pixels > bounds::pagePixels && picture) {
            const double factor = std::sqrt(bounds::pagePixels / pixels);
            picture.grey.reset(pixScale(picture.grey.get(), static_cast<float>(factor),
                                        static_cast<float>(factor)));
            picture.dpi *= factor;
        }
        picture.toPage = Mapping::scaling(pointsPerInch / picture.dpi);
        return picture;
    }

    PixPtr preview(int page, int width) const override {
        PixPtr pix = shared(colour(page));
        if (!pix || widthOf(pix) == 0) {
            return nullptr;
        }
        if (pixGetDepth(pix.get()) != 32) {
            pix.reset(pixConvertTo32(pix.get()));
        }
        const float factor = static_cast<float>(width) / static_cast<float>(widthOf(pix));
        return PixPtr(pix ? pixScale(pix.get(), factor, factor) : nullptr);
    }

    bool isScan(int /*page*/) const override { return true; }
    bool mayBePhoto(int) const override { return !file_.isTiff(); }

  private:
    /// The picture of a page, upright; the last one is kept.
    const PixPtr& colour(int page) const {
        if (page != page_) {
            page_ = page;
            colour_ = upright(decode(file_, page), file_.orientation);
        }
        return colour_;
    }

    ImageFile file_;
    mutable int page_ = 0;
    mutable PixPtr colour_;
};

Fault damaged() { return "Dieses Bild ist beschädigt und lässt sich nicht öffnen."; }

Fault tooLarge() {
    return "Dieses Bild ist zu gross: Es hat mehr als 100 Millionen Bildpunkte. Bitte kleiner "
           "speichern und die neue Datei verwenden.";
}

tl::expected<void, Fault> checkSizes(const ImageFile& file) {
    for (int page = 1; page <= std::min(file.pageCount(), bounds::textPages); ++page) {
        const auto size = storedSize(file, page);
        if (!size && page == 1) {
            return tl::unexpected(damaged());
        }
        if (size && isTooLarge(size->width, size->height)) {
            return tl::unexpected(tooLarge());
        }
    }
    return {};
}

} // namespace

tl::expected<std::unique_ptr<Document>, Fault> openImage(std::string_view bytes) {
    ImageFile file{.bytes = bytes};
    if (isHeif(bytes)) {
        const auto size = heifSize(bytes);
        if (!size) {
            return tl::unexpected(size.error());
        }
        if (isTooLarge(size->width, size->height)) {
            return tl::unexpected(tooLarge());
        }
    } else {
        findFileFormatBuffer(data(bytes), &file.format);
        const bool isKnown = file.format == IFF_PNG || file.format == IFF_JFIF_JPEG
                             || file.format == IFF_WEBP || file.isTiff();
        if (!isKnown) {
            return tl::unexpected<Fault>(
                "Dieses Dateiformat ist unbekannt. Möglich sind PDF, JPEG, "
                "PNG, TIFF, WebP und HEIC.");
        }
        file.orientation = exifOrientation(bytes);
        if (file.isTiff()) {
            file.tiffPages = tiffPages(bytes);
        }
        if (const auto checked = checkSizes(file); !checked) {
            return tl::unexpected(checked.error());
        }
    }
    auto document = std::make_unique<ImageDocument>(std::move(file));
    if (document->size(1).width <= 0) {
        return tl::unexpected(damaged());
    }
    return document;
}

tl::expected<std::unique_ptr<Document>, Fault> openDocument(std::string_view bytes,
                                                            Deadline deadline) {
    constexpr std::size_t headerWithin = 1024; // where readers of PDF files look for it
    if (bytes.substr(0, headerWithin).find("%PDF-") != std::string_view::npos) {
        return openPdf(bytes, deadline);
    }
    return openImage(bytes);
}

} // namespace fiscarel::reader
