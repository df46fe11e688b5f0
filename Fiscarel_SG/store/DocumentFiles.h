#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace fiscarel {

/// Larger documents are not imported, bytes.
inline constexpr std::uint64_t maxDocumentSize = std::uint64_t{200} << 20U;

/// A name with `instead` in the place of every control character of ASCII and of every byte that is
/// no UTF-8.
std::string cleaned(std::string_view name, char instead);

/// Cuts a text in UTF-8 to at most so many bytes, without leaving half a character.
void cutTo(std::string& text, std::size_t mostBytes);

/// Whether a text is the name of a file as documents have it: within its folder, not hidden,
/// without control characters and not longer than file systems allow. Others only stand in states
/// that somebody else made.
bool isPlainFileName(std::string_view name) noexcept;

/// A name that no other document has, for a copy of the user's file `name`: a fresh UUID before
/// the name, which is cut where it is too long; what is no UTF-8 or no character becomes "_". The
/// UUID of a name that was made here before is replaced.
std::string freshDocumentName(const std::filesystem::path& name);

/// Whether a document is still called like the file it came from, which was stored as `fileName`.
bool isTitleOfFile(const std::string& title, const std::string& fileName);

} // namespace fiscarel
