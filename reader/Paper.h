#pragma once

#include "reader/Picture.h"

#include <optional>

namespace fiscarel::reader {

/// The corners of a sheet of paper that lies on something darker, in pixels of an 8-bit picture;
/// none when the paper reaches beyond the picture, or there is no such sheet.
std::optional<Corners> findPaper(const PixPtr& grey);

/// The picture of `width` by `height` pixels whose pixel p shows what stands at `source(p)`;
/// white beyond the edges. For 8 and 32 bits per pixel.
PixPtr warped(const PixPtr& pix, const Mapping& source, int width, int height);

} // namespace fiscarel::reader
