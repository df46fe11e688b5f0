#include "TaxCore/base/Utf8.h"

namespace taxcore {

std::size_t utf8Length(std::string_view text) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto tail = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0U) == 0x80U; };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return tail(1) ? 2 : 0;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const bool ok = tail(1) && tail(2) && (lead != 0xE0 || byte(1) >= 0xA0)
                        && (lead != 0xED || byte(1) <= 0x9F);
        return ok ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const bool ok = tail(1) && tail(2) && tail(3) && (lead != 0xF0 || byte(1) >= 0x90)
                        && (lead != 0xF4 || byte(1) <= 0x8F);
        return ok ? 4 : 0;
    }
    return 0;
}

} // namespace taxcore
