#pragma once

#include "Fiscarel_SG/store/Archive.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What writing and reading an archive share.
namespace fiscarel::archive {

inline constexpr std::string_view stateEntry = "daten.json";
inline constexpr std::string_view documentsPrefix = "Belege/";

tl::unexpected<ArchiveFault> fault(std::string message);
tl::unexpected<ArchiveFault> fault(const FileError& error);
tl::unexpected<ArchiveFault> stopped();

/// "200 MB", small sizes with a digit more: "0.4 MB"; rounded up.
std::string megabytes(std::uint64_t bytes);

/// The sentence that refuses so many documents of so many bytes together; absent when they fit.
std::optional<std::string> tooMuch(std::size_t count, std::uint64_t bytes);

} // namespace fiscarel::archive
