#pragma once

#include <string_view>

namespace fiscarel::reader {

/// How a camera was held, 1 to 8 as Exif counts (1: upright), from a JPEG, PNG, WebP or TIFF file;
/// 1 where nothing is told.
int exifOrientation(std::string_view file);

} // namespace fiscarel::reader
