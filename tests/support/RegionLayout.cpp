#include "tests/support/RegionLayout.h"

namespace taxcore::testing {

std::string replaced(std::string text, const std::string& placeholder, const std::string& value) {
    const auto at = text.find(placeholder);
    return at == std::string::npos ? text : text.replace(at, placeholder.size(), value);
}

} // namespace taxcore::testing
