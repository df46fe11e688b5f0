#pragma once

#include "reader/Picture.h"

#include <vector>

namespace fiscarel::reader {

/// A rectangle of pixels.
struct PixelArea {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// Where a DataMatrix may stand on a picture of 8-bit grey: dense dark blocks, each with its quiet
/// zone. The decoder itself only looks at the middle of a picture.
std::vector<PixelArea> matrixPlaces(const PixPtr& grey);

} // namespace fiscarel::reader
