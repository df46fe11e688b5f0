#include "reader/Barcodes.h"

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>
#include <leptonica/allheaders.h>

#include <QString>
#include <QVector>
#include <algorithm>
#include <cstdint>
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

/// The grey pixels byte by byte; Leptonica keeps them in words of the machine's order.
std::vector<std::uint8_t> bytesOf(const PixPtr& grey) {
    const int width = widthOf(grey);
    const int height = heightOf(grey);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width)
                                    * static_cast<std::size_t>(height));
    const int step = pixGetWpl(grey.get());
    auto to = bytes.begin();
    for (int y = 0; y < height; ++y) {
        const l_uint32* const line = pixGetData(grey.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < width; ++x) {
            *to++ = static_cast<std::uint8_t>(GET_DATA_BYTE(line, x));
        }
    }
    return bytes;
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

} // namespace

std::vector<FoundSymbol> findSymbols(const Picture& picture, Pass pass) {
    std::vector<FoundSymbol> found;
    if (!picture) {
        return found;
    }
    const std::vector<std::uint8_t> bytes = bytesOf(picture.grey);
    ZXing::DecodeHints hints;
    hints.setFormats(pass == Pass::pdf417
                         ? ZXing::BarcodeFormats(ZXing::BarcodeFormat::PDF417)
                         : ZXing::BarcodeFormat::QRCode | ZXing::BarcodeFormat::DataMatrix
                               | ZXing::BarcodeFormat::Code128);
    const ZXing::ImageView view(bytes.data(), widthOf(picture.grey), heightOf(picture.grey),
                                ZXing::ImageFormat::Lum);
    for (const ZXing::Result& result : ZXing::ReadBarcodes(view, hints)) {
        const auto symbology = symbologyOf(result.format());
        if (!result.isValid() || !symbology) {
            continue;
        }
        const auto& payload = result.bytes();
        found.push_back({.symbol = {.symbology = *symbology,
                                    .bytes = std::string(payload.begin(), payload.end()),
                                    .place = placeOf(picture.toPage, cornersOf(result.position())),
                                    .part = partOf(result)},
                         .text = QString::fromStdString(result.text()).toStdString()});
    }
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
