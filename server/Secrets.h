#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace fiscarel::server {

/// Bytes nobody can guess. Throws when the system has none to give.
std::string randomBytes(std::size_t count);
/// Six decimal digits, each of the million equally likely.
std::string randomDigits();

/// Two lower-case digits a byte.
std::string hexOf(std::string_view bytes);
/// The SHA-256 of bytes, 32 bytes.
std::string sha256(std::string_view bytes);
/// HMAC-SHA256, 32 bytes.
std::string keyedHash(std::string_view key, std::string_view message);
/// Takes as long for every difference of texts equally long.
bool equalInConstantTime(std::string_view one, std::string_view other);

/// The 32 secret bytes kept in a file that only this user reads; made where there is none. Throws
/// when they can neither be read nor kept.
std::string secretIn(const std::filesystem::path& file);

} // namespace fiscarel::server
