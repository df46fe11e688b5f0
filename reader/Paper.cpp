#include "reader/Paper.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace fiscarel::reader {

namespace {

constexpr int workingSide = 800; // pixels

double areaOf(const Corners& corners) {
    double twice = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& a = corners[i];
        const Point& b = corners[(i + 1) % corners.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return std::abs(twice) / 2;
}

/// The largest piece of what is set, its holes filled; `area` in pixels.
PixPtr largestPiece(const PixPtr& mask, int& area) {
    Pixa* pieces = nullptr;
    Boxa* boxes = pixConnComp(mask.get(), &pieces, 4);
    PixPtr best;
    Box* place = nullptr;
    area = 0;
    for (int i = 0; pieces != nullptr && i < pixaGetCount(pieces); ++i) {
        int width = 0;
        int height = 0;
        pixaGetPixDimensions(pieces, i, &width, &height, nullptr);
        if (std::int64_t{width} * height <= area) {
            continue;
        }
        PixPtr piece(pixaGetPix(pieces, i, L_CLONE));
        int count = 0;
        pixCountPixels(piece.get(), &count, nullptr);
        if (count > area) {
            area = count;
            best = std::move(piece);
            boxDestroy(&place);
            place = boxaGetBox(boxes, i, L_COPY);
        }
    }
    PixPtr whole;
    if (best && place != nullptr) {
        int x = 0;
        int y = 0;
        boxGetGeometry(place, &x, &y, nullptr, nullptr);
        const PixPtr filled(pixHolesByFilling(best.get(), 8));
        whole.reset(pixCreate(widthOf(mask), heightOf(mask), 1));
        pixRasterop(whole.get(), x, y, widthOf(best), heightOf(best), PIX_SRC, best.get(), 0, 0);
        if (filled) {
            pixRasterop(whole.get(), x, y, widthOf(filled), heightOf(filled), PIX_PAINT,
                        filled.get(), 0, 0);
        }
        pixCountPixels(whole.get(), &area, nullptr);
    }
    boxDestroy(&place);
    boxaDestroy(&boxes);
    pixaDestroy(&pieces);
    return whole;
}

/// The points of a shape that lie farthest in the four diagonal directions.
Corners farthest(const PixPtr& shape) {
    const double width = widthOf(shape);
    const double height = heightOf(shape);
    Corners corners{Point{width, height}, Point{0, height}, Point{0, 0}, Point{width, 0}};
    const auto take = [&](double x, double y) {
        const auto pick = [&](std::size_t i, double dx, double dy) {
            if (dx * x + dy * y > dx * corners[i].x + dy * corners[i].y) {
                corners[i] = {x, y};
            }
        };
        pick(0, -1, -1);
        pick(1, 1, -1);
        pick(2, 1, 1);
        pick(3, -1, 1);
    };
    const int step = pixGetWpl(shape.get());
    for (int y = 0; y < heightOf(shape); ++y) {
        const l_uint32* const line = pixGetData(shape.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < widthOf(shape); ++x) {
            if (GET_DATA_BIT(line, x)) {
                take(x, y);
            }
        }
    }
    return corners;
}

/// Of how many of the four edges of the picture at least most is not paper.
int freeEdges(const PixPtr& paper) {
    constexpr double most = 0.7;
    constexpr int rim = 4;
    const int width = widthOf(paper);
    const int height = heightOf(paper);
    int count = 0;
    for (const auto& [x, y, w, h] : {std::array{0, 0, width, rim},
                                     {0, height - rim, width, rim},
                                     {0, 0, rim, height},
                                     {width - rim, 0, rim, height}}) {
        Box* box = boxCreate(x, y, w, h);
        const PixPtr edge(pixClipRectangle(paper.get(), box, nullptr));
        boxDestroy(&box);
        int set = 0;
        if (edge) {
            pixCountPixels(edge.get(), &set, nullptr);
        }
        count += set < (1 - most) * w * h ? 1 : 0;
    }
    return count;
}

} // namespace

std::optional<Corners> findPaper(const PixPtr& grey) {
    constexpr double smallest = 0.2; // of the picture
    constexpr double largest = 0.97;
    constexpr double fullness = 0.9; // of the corners' quadrangle
    const int longest = std::max(widthOf(grey), heightOf(grey));
    if (longest < workingSide / 2) {
        return std::nullopt;
    }
    const auto factor = static_cast<float>(workingSide) / static_cast<float>(longest);
    const PixPtr small(pixScale(grey.get(), factor, factor));
    // Closing with a bright brush lets the writing vanish from the paper.
    const PixPtr blank(small ? pixCloseGray(small.get(), 15, 15) : nullptr);
    Pix* dark = nullptr;
    if (!blank
        || pixOtsuAdaptiveThreshold(blank.get(), widthOf(blank), heightOf(blank), 0, 0, 0.1F,
                                    nullptr, &dark)
               != 0) {
        return std::nullopt;
    }
    const PixPtr background(dark);
    const PixPtr bright(pixInvert(nullptr, background.get()));
    int area = 0;
    const PixPtr paper = largestPiece(bright, area);
    if (!paper) {
        return std::nullopt;
    }
    const double whole = double{1} * widthOf(paper) * heightOf(paper);
    const Corners corners = farthest(paper);
    const double quadrangle = areaOf(corners);
    if (quadrangle < smallest * whole || quadrangle > largest * whole
        || area < fullness * quadrangle || freeEdges(paper) < 3) {
        return std::nullopt;
    }
    Corners scaled = corners;
    for (Point& corner : scaled) {
        corner = {corner.x / double{factor}, corner.y / double{factor}};
    }
    return scaled;
}

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
