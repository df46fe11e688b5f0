#include "reader/MatrixPlaces.h"

#include <leptonica/allheaders.h>

#include <algorithm>

namespace fiscarel::reader {

namespace {

constexpr int reduction = 4;
constexpr int smallestSide = 32; // pixels: 3 mm at 300 dpi
constexpr int largestSide = 1200;
constexpr double longestForm = 4.5; // the longest rectangle of the symbology is 4 to 1
constexpr double fullness = 0.8;    // of the block around it, once the gaps are closed
constexpr std::size_t mostPlaces = 60;

bool mayBe(int width, int height, int filled) {
    const int shorter = std::min(width, height) * reduction;
    const int longer = std::max(width, height) * reduction;
    return shorter >= smallestSide && longer <= largestSide && longer <= longestForm * shorter
           && filled >= fullness * width * height;
}

} // namespace

std::vector<PixelArea> matrixPlaces(const PixPtr& grey) {
    constexpr int threshold = 128;
    const PixPtr ink(pixThresholdToBinary(grey.get(), threshold));
    const PixPtr small(ink ? pixReduceRankBinaryCascade(ink.get(), 1, 1, 0, 0) : nullptr);
    const PixPtr closed(small ? pixCloseSafeBrick(nullptr, small.get(), 5, 5) : nullptr);
    std::vector<PixelArea> places;
    if (!closed) {
        return places;
    }
    Pixa* pieces = nullptr;
    Boxa* boxes = pixConnComp(closed.get(), &pieces, 8);
    for (int i = 0; pieces != nullptr && i < pixaGetCount(pieces) && places.size() < mostPlaces;
         ++i) {
        PixelArea place;
        boxaGetBoxGeometry(boxes, i, &place.left, &place.top, &place.width, &place.height);
        const PixPtr piece(pixaGetPix(pieces, i, L_CLONE));
        int filled = 0;
        pixCountPixels(piece.get(), &filled, nullptr);
        if (!mayBe(place.width, place.height, filled)) {
            continue;
        }
        const int margin = std::max(place.width, place.height) / 4 + 2;
        const int left = std::max(0, (place.left - margin) * reduction);
        const int top = std::max(0, (place.top - margin) * reduction);
        const int right = std::min(widthOf(grey), (place.left + place.width + margin) * reduction);
        const int bottom =
            std::min(heightOf(grey), (place.top + place.height + margin) * reduction);
        places.push_back({left, top, right - left, bottom - top});
    }
    boxaDestroy(&boxes);
    pixaDestroy(&pieces);
    return places;
}

} // namespace fiscarel::reader
