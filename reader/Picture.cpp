#include "reader/Picture.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fiscarel::reader {

void PixFree::operator()(Pix* pix) const noexcept { pixDestroy(&pix); }

Mapping Mapping::scaling(double factor) {
    Mapping mapping;
    mapping.rows_ = {factor, 0, 0, 0, factor, 0, 0, 0, 1};
    return mapping;
}

Mapping Mapping::shift(double x, double y) {
    Mapping mapping;
    mapping.rows_ = {1, 0, x, 0, 1, y, 0, 0, 1};
    return mapping;
}

Mapping Mapping::rotation(double radians, Point centre) {
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    Mapping mapping;
    mapping.rows_ = {c, -s, centre.x - c * centre.x + s * centre.y,
                     s, c,  centre.y - s * centre.x - c * centre.y,
                     0, 0,  1};
    return mapping;
}

namespace {

using Equations = std::array<std::array<double, 9>, 8>;

/// Solves eight equations; false when they have no single solution.
bool solve(Equations& rows) {
    constexpr double tiny = 1e-9;
    for (std::size_t column = 0; column < rows.size(); ++column) {
        std::size_t best = column;
        for (std::size_t row = column + 1; row < rows.size(); ++row) {
            if (std::abs(rows[row][column]) > std::abs(rows[best][column])) {
                best = row;
            }
        }
        if (std::abs(rows[best][column]) < tiny) {
            return false;
        }
        std::swap(rows[column], rows[best]);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const double factor = rows[row][column] / rows[column][column];
            for (std::size_t k = column; row != column && k < rows[row].size(); ++k) {
                rows[row][k] -= factor * rows[column][k];
            }
        }
    }
    return true;
}

} // namespace

Mapping Mapping::between(const Corners& from, const Corners& to) {
    Equations rows{};
    for (std::size_t i = 0; i < from.size(); ++i) {
        const auto [x, y] = from[i];
        const auto [u, v] = to[i];
        rows[2 * i] = {x, y, 1, 0, 0, 0, -u * x, -u * y, u};
        rows[2 * i + 1] = {0, 0, 0, x, y, 1, -v * x, -v * y, v};
    }
    Mapping mapping;
    if (solve(rows)) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            mapping.rows_[i] = rows[i][8] / rows[i][i];
        }
    }
    return mapping;
}

Point Mapping::operator()(Point p) const {
    const double w = rows_[6] * p.x + rows_[7] * p.y + rows_[8];
    const double divisor = w == 0 ? 1 : w;
    return {(rows_[0] * p.x + rows_[1] * p.y + rows_[2]) / divisor,
            (rows_[3] * p.x + rows_[4] * p.y + rows_[5]) / divisor};
}

Mapping Mapping::after(const Mapping& first) const {
    Mapping both;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            double sum = 0;
            for (std::size_t k = 0; k < 3; ++k) {
                sum += rows_[row * 3 + k] * first.rows_[k * 3 + column];
            }
            both.rows_[row * 3 + column] = sum;
        }
    }
    return both;
}

int widthOf(const PixPtr& pix) { return pix ? pixGetWidth(pix.get()) : 0; }
int heightOf(const PixPtr& pix) { return pix ? pixGetHeight(pix.get()) : 0; }

PixPtr shared(const PixPtr& pix) { return PixPtr(pix ? pixClone(pix.get()) : nullptr); }

PixPtr greyOf(PixPtr pix) {
    if (!pix) {
        return nullptr;
    }
    if (pixGetDepth(pix.get()) == 32 && pixGetSpp(pix.get()) == 4) {
        pix.reset(pixRemoveAlpha(pix.get()));
    }
    return PixPtr(pix ? pixConvertTo8(pix.get(), 0) : nullptr);
}

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

PagePlace placeOf(const Mapping& mapping, const Corners& corners) {
    const Point first = mapping(corners[0]);
    PagePlace place{first.x, first.y, first.x, first.y};
    for (const Point& corner : corners) {
        const Point at = mapping(corner);
        place.left = std::min(place.left, at.x);
        place.top = std::min(place.top, at.y);
        place.right = std::max(place.right, at.x);
        place.bottom = std::max(place.bottom, at.y);
    }
    return place;
}

} // namespace fiscarel::reader
