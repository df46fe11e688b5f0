#pragma once

#include "reader/Picture.h"

#include <optional>

namespace fiscarel::reader {

/// The corners of a sheet of paper that lies on something darker, in pixels of an 8-bit picture;
/// none when the paper reaches beyond the picture, or there is no such sheet.
std::optional<Corners> findPaper(const PixPtr& grey);

} // namespace fiscarel::reader
