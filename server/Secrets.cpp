#include "server/Secrets.h"

#include "Fiscarel_SG/store/PosixFiles.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace fiscarel::server {

namespace {

constexpr std::size_t secretSize = 32;

unsigned char* raw(std::string& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }
const unsigned char* raw(std::string_view bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

} // namespace

std::string randomBytes(std::size_t count) {
    std::string bytes(count, '\0');
    if (RAND_bytes(raw(bytes), static_cast<int>(count)) != 1) {
        throw std::runtime_error("the system gives no random bytes");
    }
    return bytes;
}

std::string randomDigits() {
    constexpr std::uint32_t codes = 1'000'000;
    // What is left over at the end would make small codes likelier.
    constexpr std::uint32_t usable = std::numeric_limits<std::uint32_t>::max() / codes * codes;
    std::uint32_t drawn = usable;
    while (drawn >= usable) {
        drawn = 0;
        for (const char byte : randomBytes(sizeof drawn)) {
            drawn = drawn << 8U | static_cast<unsigned char>(byte);
        }
    }
    return std::to_string(codes + drawn % codes).substr(1);
}

std::string hexOf(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) >> 4U];
        text += digits[static_cast<unsigned char>(byte) & 0xFU];
    }
    return text;
}

std::string sha256(std::string_view bytes) {
    std::string hash(secretSize, '\0');
    unsigned int size = 0;
    if (EVP_Digest(bytes.data(), bytes.size(), raw(hash), &size, EVP_sha256(), nullptr) != 1) {
        throw std::runtime_error("SHA-256 failed");
    }
    return hash;
}

std::string keyedHash(std::string_view key, std::string_view message) {
    std::string hash(secretSize, '\0');
    unsigned int size = 0;
    if (HMAC(EVP_sha256(), key.data(), static_cast<int>(key.size()), raw(message), message.size(),
             raw(hash), &size)
        == nullptr) {
        throw std::runtime_error("HMAC failed");
    }
    return hash;
}

bool equalInConstantTime(std::string_view one, std::string_view other) {
    return one.size() == other.size() && CRYPTO_memcmp(one.data(), other.data(), one.size()) == 0;
}

std::string secretIn(const std::filesystem::path& file) {
    PosixFiles files;
    const auto kept = files.read(file, secretSize);
    if (kept && kept->size() == secretSize) {
        return *kept;
    }
    if (!kept && !kept.error().isMissing()) {
        throw std::runtime_error("the secret in the data folder cannot be read");
    }
    std::string secret = randomBytes(secretSize);
    if (!files.write(file, secret)) {
        throw std::runtime_error("the data folder cannot be written");
    }
    return secret;
}

} // namespace fiscarel::server
