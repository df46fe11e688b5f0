#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>

namespace fiscarel {

/// The SHA-256 of a file's content, 64 hexadecimal digits; absent when it does not read or the stop
/// is asked. Reads the whole file: not for the main thread.
std::optional<std::string> contentHash(const std::filesystem::path& file,
                                       const std::stop_token& stop = {});

} // namespace fiscarel
