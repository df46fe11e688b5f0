#pragma once

#include "reader/Picture.h"

#include <tl/expected.hpp>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::reader {

/// When the work must be over.
using Deadline = std::chrono::steady_clock::time_point;

/// One German sentence for the user.
using Fault = std::string;

/// The text layer of a page.
struct PageText {
    std::string text; ///< lines separated by line feeds
    std::vector<PageWord> words;
};

/// Width and height of a page in points.
struct PageSize {
    double width = 0;
    double height = 0;
};

/// A document whose pages can be looked at. Pages are numbered from 1. Each thread opens its own.
class Document {
  public:
    Document() = default;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    virtual ~Document() = default;

    virtual int pageCount() const = 0;
    virtual PageSize size(int page) const = 0;
    virtual PageText text(int page) const = 0;
    /// The page as it is shown, for barcodes and recognition: at 300 dpi unless it is very large;
    /// no picture when the page cannot be drawn.
    virtual Picture picture(int page) const = 0;
    /// The same in colour and `width` pixels wide; null when the page cannot be drawn.
    virtual PixPtr preview(int page, int width) const = 0;
    /// Whether the page may be a scan or photo, that is, may stand askew.
    virtual bool isScan(int page) const = 0;
    /// Whether the page may come from a camera: then the paper may be a part of it only.
    virtual bool mayBePhoto(int page) const = 0;
};

/// Opens a document by what it holds, whatever its name. `bytes` outlives it.
tl::expected<std::unique_ptr<Document>, Fault> openDocument(std::string_view bytes,
                                                            Deadline deadline);

// The kinds of documents, for `openDocument`.
tl::expected<std::unique_ptr<Document>, Fault> openPdf(std::string_view bytes, Deadline deadline);
tl::expected<std::unique_ptr<Document>, Fault> openImage(std::string_view bytes);

namespace bounds {
inline constexpr double pixels = 100e6;    ///< of an image file
inline constexpr double pagePixels = 36e6; ///< of a page drawn
inline constexpr int textPages = 200;      ///< whose text layer is read
inline constexpr int barcodePages = 100;   ///< that are searched for barcodes
inline constexpr int literalPages = 6;     ///< of which the plain rules know
inline constexpr int recognisedPages = 24; ///< at most
inline constexpr std::size_t wordsPerPage = 20'000;
inline constexpr std::size_t textBytes = std::size_t{4} << 20U;
} // namespace bounds

} // namespace fiscarel::reader
