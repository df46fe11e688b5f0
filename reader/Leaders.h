#pragma once

#include "reader/Picture.h"

namespace fiscarel::reader {

/// Wipes the rows of dots that lead from a label to its amount: recognition takes them for letters
/// and then loses words on either side. 8 bits per pixel; the picture is changed in place.
void wipeLeaders(Picture& page);

} // namespace fiscarel::reader
