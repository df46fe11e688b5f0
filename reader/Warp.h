#pragma once

#include "reader/Picture.h"

namespace fiscarel::reader {

/// The picture of `width` by `height` pixels whose pixel p shows what stands at `source(p)`;
/// white beyond the edges. For 8 and 32 bits per pixel.
PixPtr warped(const PixPtr& pix, const Mapping& source, int width, int height);

} // namespace fiscarel::reader
