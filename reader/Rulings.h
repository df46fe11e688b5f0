#pragma once

#include "reader/Picture.h"

namespace fiscarel::reader {

/// Wipes the lines between the rows and columns of a table and around boxes: recognition takes
/// them away with the full stops that stand near, or takes them for letters. 8 bits per pixel; the
/// picture is changed in place.
void wipeRulings(Picture& picture);

} // namespace fiscarel::reader
