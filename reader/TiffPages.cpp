#include "TiffPages.h"

#include <cstdint>
#include <unordered_set>

namespace fiscarel::reader {

namespace {

/// An unsigned number in the file's order of bytes; 0 outside of it.
std::size_t numberAt(std::string_view bytes, std::size_t at, std::size_t size, bool isBigEndian) {
    if (at > bytes.size() || size > bytes.size() - at) {
        return 0;
    }
    std::size_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t from = isBigEndian ? i : size - 1 - i;
        number = number << 8U | static_cast<std::uint8_t>(bytes[at + from]);
    }
    return number;
}

} // namespace

std::vector<std::size_t> tiffPages(std::string_view bytes) {
    constexpr std::size_t entrySize = 12;
    if (!bytes.starts_with("II*") && !bytes.starts_with("MM")) {
        return {};
    }
    const bool isBigEndian = bytes.starts_with("MM");
    std::vector<std::size_t> pages;
    std::unordered_set<std::size_t> seen;
    std::size_t at = numberAt(bytes, 4, 4, isBigEndian);
    while (at != 0 && seen.insert(at).second) {
        const std::size_t entries = numberAt(bytes, at, 2, isBigEndian);
        const std::size_t end = at + 2 + entries * entrySize;
        if (entries == 0 || end > bytes.size()) {
            break;
        }
        pages.push_back(at);
        at = numberAt(bytes, end, 4, isBigEndian);
    }
    return pages;
}

} // namespace fiscarel::reader
