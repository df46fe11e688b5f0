#include "TaxCore/rulebook/Municipalities.h"

#include <algorithm>

namespace taxcore {

namespace {

/// Lower case of one byte of UTF-8 text, given the byte before it. Latin-1 letters (all that Swiss
/// place names use) are the lead byte C3 and a second byte, 80–9E upper, A0–BE lower case; 97 and
/// B7 are signs, not letters.
constexpr unsigned char lowered(unsigned char before, unsigned char byte) noexcept {
    if (byte >= 'A' && byte <= 'Z') {
        return static_cast<unsigned char>(byte + ('a' - 'A'));
    }
    if (before == 0xC3 && byte >= 0x80 && byte <= 0x9E && byte != 0x97) {
        return static_cast<unsigned char>(byte + 0x20);
    }
    return byte;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept {
    if (a.size() != b.size()) {
        return false;
    }
    unsigned char before = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto left = static_cast<unsigned char>(a[i]);
        const auto right = static_cast<unsigned char>(b[i]);
        if (left != right && lowered(before, left) != lowered(before, right)) {
            return false;
        }
        before = left;
    }
    return true;
}

} // namespace

const Parish* Municipality::parish(std::string_view wanted) const noexcept {
    const auto found = std::ranges::find(parishes, wanted, &Parish::name);
    return found == parishes.end() ? nullptr : &*found;
}

const Municipality* MunicipalityList::municipality(std::string_view named) const noexcept {
    const auto found = std::ranges::find_if(
        municipalities, [&](const Municipality& m) { return equalIgnoringCase(m.name, named); });
    return found == municipalities.end() ? nullptr : &*found;
}

} // namespace taxcore
