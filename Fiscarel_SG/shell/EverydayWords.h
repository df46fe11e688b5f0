#pragma once

#include <string>
#include <string_view>

namespace fiscarel::shell {

/// What people call a field or a list in daily life, for searching; German, empty for most.
/// `path` is the field's, positions in lists do not matter.
std::string_view everydayWords(std::string_view path);

} // namespace fiscarel::shell
