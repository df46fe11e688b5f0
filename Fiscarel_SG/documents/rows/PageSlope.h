#pragma once

#include "Fiscarel_SG/documents/PageReading.h"

namespace fiscarel {

/// How much the text lines of a page fall per unit to the right (tangent of the angle), from
/// neighbouring words, and then the angle near it under which words gather best on common lines. 0
/// when no angle is clearly better.
double slopeOfLines(const PageReading& page);

} // namespace fiscarel
