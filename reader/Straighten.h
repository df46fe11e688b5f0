#pragma once

#include "reader/Recognition.h"

namespace fiscarel::reader {

/// How a scan or photo becomes an upright page.
struct Upright {
    Mapping fromSource; ///< pixels of the source to pixels of the page
    int width = 0;      ///< of the page, pixels
    int height = 0;
    double dpi = 300;
    bool isUnchanged = true; ///< the source stands upright already, at a fit resolution
    bool isPhoto = false;    ///< paper was found on a background
};

/// Finds the paper of a photo, the orientation of the writing and the skew of its lines.
Upright findUpright(const Picture& source, bool mayBePhoto, Recognition& recognition);

/// The source as an upright page at about 300 dpi, on evenly bright paper. Its mapping leads to
/// points of that page.
Picture straightened(const Picture& source, const Upright& upright);

/// From the pixels of the upright page to those of the source.
Mapping wayBack(const Picture& source, const Upright& upright);

} // namespace fiscarel::reader
