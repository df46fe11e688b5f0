#pragma once

#include "Fiscarel_SG/documents/PageReading.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

struct Pix;

namespace fiscarel::reader {

struct PixFree {
    void operator()(Pix* pix) const noexcept;
};
using PixPtr = std::unique_ptr<Pix, PixFree>;

struct Point {
    double x = 0;
    double y = 0;
};

using Corners = std::array<Point, 4>; ///< upper left, upper right, lower right, lower left

/// A projective mapping of the plane.
class Mapping {
  public:
    Mapping() = default;
    static Mapping scaling(double factor);
    static Mapping shift(double x, double y);
    /// Turns around a point by `radians`, clockwise as seen with y downwards.
    static Mapping rotation(double radians, Point centre);
    /// The mapping that takes each corner to its partner; none when three lie on a line.
    static Mapping between(const Corners& from, const Corners& to);

    Point operator()(Point point) const;
    /// First `first`, then this.
    Mapping after(const Mapping& first) const;

  private:
    std::array<double, 9> rows_{1, 0, 0, 0, 1, 0, 0, 0, 1};
};

/// A page as grey pixels, and where these stand on the page.
struct Picture {
    PixPtr grey; ///< 8 bits per pixel; null when there is no picture
    double dpi = 300;
    Mapping toPage; ///< pixels to points of the page

    explicit operator bool() const { return grey != nullptr; }
};

int widthOf(const PixPtr& pix);
int heightOf(const PixPtr& pix);

/// A copy that shares the pixels.
PixPtr shared(const PixPtr& pix);

/// 8-bit grey of any picture, on white where it is transparent; null on failure.
PixPtr greyOf(PixPtr pix);

/// Grey pixels byte by byte, row by row; Leptonica keeps them in words of the machine's order. The
/// picture must not be null and have 8 bits per pixel.
std::vector<std::uint8_t> bytesOf(const PixPtr& grey);

/// The upright rectangle around mapped corners.
PagePlace placeOf(const Mapping& mapping, const Corners& corners);

} // namespace fiscarel::reader
