#include "reader/Warp.h"

#include <leptonica/allheaders.h>

#include <cstddef>

namespace fiscarel::reader {

namespace {

/// Mixes the four pixels around a point; `channel` in bits from the right.
int mixed(const std::array<l_uint32, 4>& pixels, double right, double below, unsigned channel) {
    const auto value = [&](std::size_t i) {
        return static_cast<double>(pixels[i] >> channel & 0xFFU);
    };
    const double upper = value(0) * (1 - right) + value(1) * right;
    const double lower = value(2) * (1 - right) + value(3) * right;
    return static_cast<int>(upper * (1 - below) + lower * below + 0.5);
}

} // namespace

PixPtr warped(const PixPtr& pix, const Mapping& source, int width, int height) {
    const bool isGrey = pix && pixGetDepth(pix.get()) == 8;
    PixPtr result(pix ? pixCreateNoInit(width, height, isGrey ? 8 : 32) : nullptr);
    if (!result) {
        return nullptr;
    }
    pixSetAll(result.get());
    const int right = widthOf(pix) - 1;
    const int bottom = heightOf(pix) - 1;
    const std::ptrdiff_t step = pixGetWpl(pix.get());
    const l_uint32* const from = pixGetData(pix.get());
    const auto pixel = [&](int x, int y) -> l_uint32 {
        const l_uint32* const line = from + step * y;
        return isGrey ? GET_DATA_BYTE(line, x) : line[x];
    };
    for (int y = 0; y < height; ++y) {
        l_uint32* const to = pixGetData(result.get()) + std::ptrdiff_t{pixGetWpl(result.get())} * y;
        for (int x = 0; x < width; ++x) {
            const Point at = source({x + 0.5, y + 0.5});
            const double atX = at.x - 0.5;
            const double atY = at.y - 0.5;
            if (!(atX >= 0 && atY >= 0 && atX < right && atY < bottom)) {
                continue;
            }
            const int left = static_cast<int>(atX);
            const int top = static_cast<int>(atY);
            const std::array<l_uint32, 4> around{pixel(left, top), pixel(left + 1, top),
                                                 pixel(left, top + 1), pixel(left + 1, top + 1)};
            const double dx = atX - left;
            const double dy = atY - top;
            if (isGrey) {
                SET_DATA_BYTE(to, x, static_cast<l_uint8>(mixed(around, dx, dy, 0)));
            } else {
                composeRGBPixel(mixed(around, dx, dy, 24), mixed(around, dx, dy, 16),
                                mixed(around, dx, dy, 8), &to[x]);
            }
        }
    }
    return result;
}

} // namespace fiscarel::reader
