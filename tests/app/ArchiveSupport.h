#pragma once

#include "Fiscarel_SG/store/Archive.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::testing {

/// The files of a folder by name, hidden ones as well.
using Contents = std::map<std::string, std::string>;
Contents contentsOf(const std::filesystem::path& folder);

/// Bytes that do not pack, always the same ones.
std::string noise(std::size_t size);

/// A state of one case whose documents have these files.
PersistedState stateWith(const std::vector<std::string>& fileNames);

struct RawEntry {
    std::string name;
    std::string bytes;
    bool isDeflated = false;
    std::uint32_t mode = 0100600; ///< of the file, with its kind
};
/// A ZIP file of these entries, whatever their names are.
std::string zipOf(const std::vector<RawEntry>& entries);

/// Replaces every occurrence; both are equally long.
std::string patched(std::string bytes, std::string_view from, std::string_view to);
/// Sets two bytes at an offset from the start of every local header, and at one of every entry of
/// the table.
std::string patchedHeaders(std::string bytes, std::size_t local, std::size_t central,
                           std::uint16_t value);
/// A number as a ZIP file has it.
std::string littleEndian(std::uint64_t value, std::size_t bytes);

} // namespace fiscarel::testing
