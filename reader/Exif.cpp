#include "reader/Exif.h"

#include <cstddef>
#include <cstdint>

namespace fiscarel::reader {

namespace {

constexpr int upright = 1;

/// Reads numbers from bytes in either order; 0 beyond the end.
struct Bytes {
    std::string_view text;
    bool littleEndian = false;

    std::uint32_t number(std::size_t at, std::size_t size) const {
        std::uint32_t value = 0;
        if (at > text.size() || text.size() - at < size) {
            return 0;
        }
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t from = littleEndian ? at + size - 1 - i : at + i;
            value = value << 8U | static_cast<unsigned char>(text[from]);
        }
        return value;
    }
};

/// The orientation in the first directory of TIFF data.
int tiffOrientation(std::string_view tiff) {
    constexpr std::uint32_t orientationTag = 0x0112;
    constexpr std::size_t entrySize = 12;
    if (!tiff.starts_with("II") && !tiff.starts_with("MM")) {
        return upright;
    }
    const Bytes bytes{tiff, tiff.starts_with("II")};
    const std::size_t directory = bytes.number(4, 4);
    const std::size_t count = bytes.number(directory, 2);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = directory + 2 + i * entrySize;
        if (bytes.number(entry, 2) == orientationTag) {
            const auto value = static_cast<int>(bytes.number(entry + 8, 2));
            return value >= 1 && value <= 8 ? value : upright;
        }
    }
    return upright;
}

int jpegOrientation(std::string_view file) {
    constexpr std::uint32_t app1 = 0xFFE1;
    constexpr std::uint32_t startOfScan = 0xFFDA;
    constexpr std::string_view mark("Exif\0\0", 6);
    const Bytes bytes{file};
    std::size_t at = 2;
    while (at + 4 <= file.size()) {
        const std::uint32_t marker = bytes.number(at, 2);
        const std::size_t size = bytes.number(at + 2, 2);
        if (marker >> 8U != 0xFF || marker == startOfScan || size < 2) {
            break;
        }
        const std::string_view segment = file.substr(at + 4, size - 2);
        if (marker == app1 && segment.starts_with(mark)) {
            return tiffOrientation(segment.substr(mark.size()));
        }
        at += 2 + size;
    }
    return upright;
}

/// Chunks of a PNG (size first) or WebP (name first, padded to even sizes).
int chunkOrientation(std::string_view file, std::size_t first, bool isWebp, std::string_view name) {
    const Bytes bytes{file, isWebp};
    std::size_t at = first;
    while (at + 8 <= file.size()) {
        const std::size_t size = bytes.number(isWebp ? at + 4 : at, 4);
        if (file.substr(isWebp ? at : at + 4, 4) == name) {
            std::string_view data = file.substr(at + 8, size);
            if (constexpr std::string_view mark("Exif\0\0", 6); data.starts_with(mark)) {
                data.remove_prefix(mark.size());
            }
            return tiffOrientation(data);
        }
        at += isWebp ? 8 + size + size % 2 : 12 + size;
    }
    return upright;
}

} // namespace

int exifOrientation(std::string_view file) {
    if (file.starts_with("\xFF\xD8")) {
        return jpegOrientation(file);
    }
    if (file.starts_with("\x89PNG")) {
        return chunkOrientation(file, 8, false, "eXIf");
    }
    if (file.starts_with("RIFF")) {
        return chunkOrientation(file, 12, true, "EXIF");
    }
    return tiffOrientation(file);
}

} // namespace fiscarel::reader
