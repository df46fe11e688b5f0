#pragma once

#include <string_view>

namespace fiscarel::server {

/// Writes a line to standard error, where a service manager takes it. Callers name accounts by
/// number and hand over no addresses, tokens, codes or contents.
void logLine(std::string_view line);

} // namespace fiscarel::server
