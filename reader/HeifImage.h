#pragma once

#include "reader/Document.h"

namespace fiscarel::reader {

/// Whether a file is a HEIF container: a photo of a telephone.
bool isHeif(std::string_view file);

/// Width and height in pixels as the header tells.
tl::expected<PageSize, Fault> heifSize(std::string_view file);

/// The main picture, upright, in colour; null when it cannot be decoded.
PixPtr decodeHeif(std::string_view file);

} // namespace fiscarel::reader
