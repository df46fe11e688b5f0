#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace fiscarel {

/// Larger documents are not imported, bytes.
inline constexpr std::uint64_t maxDocumentSize = std::uint64_t{200} << 20U;

/// Whether a byte is a control character of ASCII.
constexpr bool isControl(char c) noexcept {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20U || code == 0x7FU;
}

/// Whether a text is the name of a file as documents have it: within its folder, not hidden,
/// without control characters and not longer than file systems allow. Others only stand in states
/// that somebody else made.
bool isPlainFileName(std::string_view name) noexcept;

/// A name that no other document has, for a copy of the user's file `name`: a fresh UUID before
/// the name, which is cut where it is too long; what is no UTF-8 or no character becomes "_". The
/// UUID of a name that was made here before is replaced.
std::string freshDocumentName(const std::filesystem::path& name);

} // namespace fiscarel
