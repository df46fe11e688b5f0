#include "Fiscarel_SG/store/Settings.h"

#include <charconv>

namespace fiscarel {

std::optional<int> Settings::number(std::string_view key) const {
    const auto value = text(key);
    int number = 0;
    if (!value) {
        return std::nullopt;
    }
    const auto [end, status] =
        std::from_chars(value->data(), value->data() + value->size(), number);
    const bool whole = status == std::errc{} && end == value->data() + value->size();
    return whole ? std::optional(number) : std::nullopt;
}

void Settings::setNumber(std::string_view key, int value) { setText(key, std::to_string(value)); }

} // namespace fiscarel
