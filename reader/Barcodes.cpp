#include "reader/Barcodes.h"

#include "reader/MatrixPlaces.h"

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>
#include <leptonica/allheaders.h>

#include <QString>
#include <QVector>
#include <algorithm>
#include <cstdint>
#include <future>
#include <optional>

namespace fiscarel::reader {

namespace {

using Symbology = PageSymbol::Symbology;

std::optional<Symbology> symbologyOf(ZXing::BarcodeFormat format) {
    switch (format) {
    case ZXing::BarcodeFormat::QRCode:
        return Symbology::qr;
    case ZXing::BarcodeFormat::PDF417:
        return Symbology::pdf417;
    case ZXing::BarcodeFormat::DataMatrix:
        return Symbology::dataMatrix;
    case ZXing::BarcodeFormat::Code128:
        return Symbology::code128;
    default:
        return std::nullopt;
    }
}

Corners cornersOf(const ZXing::Position& position) {
    const auto point = [](const ZXing::PointI& at) {
        return Point{static_cast<double>(at.x), static_cast<double>(at.y)};
    };
    return {point(position.topLeft()), point(position.topRight()), point(position.bottomRight()),
            point(position.bottomLeft())};
}

std::optional<PageSymbol::Part> partOf(const ZXing::Result& result) {
    if (!result.isPartOfSequence()) {
        return std::nullopt;
    }
    PageSymbol::Part part{.index = result.sequenceIndex(), .message = result.sequenceId()};
    if (result.sequenceSize() > 0) {
        part.count = result.sequenceSize();
    }
    return part;
}

/// The barcodes within an area of a picture whose grey values are `bytes`.
std::vector<FoundSymbol> searchArea(const Picture& picture, const std::vector<std::uint8_t>& bytes,
                                    const PixelArea& area, ZXing::BarcodeFormats formats) {
    std::vector<FoundSymbol> found;
    const int row = widthOf(picture.grey);
    const std::ptrdiff_t first = std::ptrdiff_t{area.top} * row + area.left;
    const ZXing::ImageView view(bytes.data() + first, area.width, area.height,
                                ZXing::ImageFormat::Lum, row);
    const Mapping toPage = picture.toPage.after(
        Mapping::shift(static_cast<double>(area.left), static_cast<double>(area.top)));
    for (const ZXing::Result& result :
         ZXing::ReadBarcodes(view, ZXing::DecodeHints().setFormats(formats))) {
        const auto symbology = symbologyOf(result.format());
        if (!result.isValid() || !symbology) {
            continue;
        }
        const auto& payload = result.bytes();
        found.push_back({.symbol = {.symbology = *symbology,
                                    .bytes = std::string(payload.begin(), payload.end()),
                                    .place = placeOf(toPage, cornersOf(result.position())),
                                    .part = partOf(result)},
                         .text = QString::fromStdString(result.text()).toStdString()});
    }
    return found;
}

} // namespace

std::vector<FoundSymbol> findSymbols(const Picture& picture, bool sideBySide) {
    if (!picture) {
        return {};
    }
    const std::vector<std::uint8_t> bytes = bytesOf(picture.grey);
    const PixelArea whole{0, 0, widthOf(picture.grey), heightOf(picture.grey)};
    const auto searched = [&](const PixelArea& area, ZXing::BarcodeFormats formats) {
        return searchArea(picture, bytes, area, formats);
    };
    auto pdf417 = std::async(sideBySide ? std::launch::async : std::launch::deferred,
                             [&] { return searched(whole, ZXing::BarcodeFormat::PDF417); });
    std::vector<FoundSymbol> others =
        searched(whole, ZXing::BarcodeFormat::QRCode | ZXing::BarcodeFormat::Code128);
    for (const PixelArea& area : matrixPlaces(picture.grey)) {
        addNew(others, searched(area, ZXing::BarcodeFormat::DataMatrix));
    }
    std::vector<FoundSymbol> found = pdf417.get();
    addNew(found, std::move(others));
    return found;
}

void addNew(std::vector<FoundSymbol>& symbols, std::vector<FoundSymbol> found) {
    for (FoundSymbol& one : found) {
        const bool known = std::ranges::any_of(symbols, [&](const FoundSymbol& other) {
            return other.symbol.symbology == one.symbol.symbology
                   && other.symbol.bytes == one.symbol.bytes;
        });
        if (!known) {
            symbols.push_back(std::move(one));
        }
    }
}

std::string shortText(const FoundSymbol& symbol) {
    constexpr qsizetype longest = 40;
    const auto name = [&]() -> std::string {
        switch (symbol.symbol.symbology) {
        case Symbology::qr:
            return "QR:";
        case Symbology::pdf417:
            return "PDF417:";
        case Symbology::dataMatrix:
            return "DataMatrix:";
        case Symbology::code128:
            break;
        }
        return "CODE128:";
    };
    const auto characters =
        QString::fromStdString(symbol.text)
            .toUcs4()
            .first(std::min(longest, QString::fromStdString(symbol.text).toUcs4().size()));
    return name()
           + QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()),
                               characters.size())
                 .toStdString();
}

} // namespace fiscarel::reader
