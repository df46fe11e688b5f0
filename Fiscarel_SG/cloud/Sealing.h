#pragma once

#include "Fiscarel_SG/CloudCrypto.h"

#include <string>
#include <string_view>

namespace fiscarel {

/// Sealed bytes as the text that blocks and wrapped keys are on the server (base 64).
std::string sealedText(const CloudCrypto::Bytes& sealed);
/// The bytes of such a text; `damaged` for any other text.
tl::expected<CloudCrypto::Bytes, CloudCrypto::Failure> sealedBytes(std::string_view text);

/// Seals and opens a block. Large ones take a while: off the window's thread.
std::string sealBlock(std::string_view plain, const Secret& key, std::string_view blockKey);
tl::expected<std::string, CloudCrypto::Failure>
openBlock(std::string_view sealed, const Secret& key, std::string_view blockKey);

/// SHA-256 as 64 hexadecimal digits.
std::string sha256(std::string_view bytes);

} // namespace fiscarel
