#pragma once

#include <string>
#include <string_view>

namespace fiscarel::cli {

/// A text of unknown origin as one line that a terminal shows and does not obey: line feeds,
/// carriage returns and tabs become blanks; other control characters (C0, DEL, C1), characters that
/// break lines or turn the direction of writing, byte order marks and bytes that are no UTF-8
/// become U+FFFD.
std::string printable(std::string_view text);

} // namespace fiscarel::cli
