#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace fiscarel::reader {

/// Where in a TIFF file the directories of its pages stand, in their order. Ends where the chain
/// of directories leaves the file or comes back to one before; empty for what is no TIFF.
std::vector<std::size_t> tiffPages(std::string_view bytes);

} // namespace fiscarel::reader
