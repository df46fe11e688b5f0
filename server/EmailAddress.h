#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fiscarel::server {

/// An e-mail address as accounts are named: without blanks around it, in lower case. Absent for
/// what is none (no "@", no dot behind it, characters other than the usual ones, more than 254).
std::optional<std::string> emailAddressOf(std::string_view typed);

/// The name of a device as it is kept: one line, no characters that show as none or turn the
/// direction, at most 64 characters.
std::string deviceNameOf(std::string_view typed);

} // namespace fiscarel::server
