#pragma once

#include <tl/expected.hpp>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Secret bytes: not copied by accident, and wiped when they go.
class Secret {
  public:
    Secret() = default;
    /// Takes over a copy of the bytes; the original is the caller's to wipe.
    explicit Secret(std::span<const std::uint8_t> bytes) : bytes_(bytes.begin(), bytes.end()) {}
    explicit Secret(std::size_t size) : bytes_(size) {}
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    Secret(Secret&& other) noexcept : bytes_(std::move(other.bytes_)) {}
    Secret& operator=(Secret&& other) noexcept;
    ~Secret();

    std::span<const std::uint8_t> bytes() const noexcept { return bytes_; }
    std::span<std::uint8_t> bytes() noexcept { return bytes_; }
    /// Takes the same time wherever the bytes differ.
    bool operator==(const Secret& other) const noexcept;

  private:
    void wipe() noexcept;
    std::vector<std::uint8_t> bytes_;
};

/// Seals what leaves the machine. A sealed text is nonce (12 bytes), ciphertext, tag (16 bytes) of
/// AES-256-GCM; it opens only with the key and under the name it was sealed for. Stateless, and
/// callable from any thread.
class CloudCrypto {
  public:
    using Bytes = std::vector<std::uint8_t>;

    enum class Failure {
        recoveryFormat, ///< what was typed is no recovery key
        wrongRecovery,  ///< a recovery key, but of another account
        damaged         ///< wrong key or name, or changed or cut bytes
    };
    /// A German sentence.
    static std::string_view message(Failure failure);

    static constexpr std::size_t keySize = 32;
    static constexpr std::size_t nonceSize = 12;
    static constexpr std::size_t tagSize = 16;

    /// A new random key for everything of a household.
    static Secret newKey();
    /// Seals under a fresh random nonce: the same data gives another text each time. `key` has
    /// `keySize` bytes.
    static Bytes seal(std::span<const std::uint8_t> data, const Secret& key, std::string_view name);
    /// The whole data or `damaged`, never a part.
    static tl::expected<Bytes, Failure> open(std::span<const std::uint8_t> sealed,
                                             const Secret& key, std::string_view name);

    /// A new recovery key, grouped for reading: eight groups of four letters and digits of an
    /// alphabet without look-alikes. 150 random bits, and ten that make a typing error noticeable.
    static std::string newRecoveryKey();
    /// A typed recovery key as its 32 characters. Blanks, hyphens and small letters are fine, and
    /// O, I and L are read as the digits they look like; else `recoveryFormat`.
    static tl::expected<std::string, Failure> parseRecoveryKey(std::string_view typed);

    /// The household's key sealed for the server, which opens with the recovery key and under the
    /// account's e-mail address alone, however that is capitalised.
    static tl::expected<Bytes, Failure> wrap(const Secret& key, std::string_view recoveryKey,
                                             std::string_view email);
    /// `recoveryFormat`, or `wrongRecovery` when the recovery key does not open it.
    static tl::expected<Secret, Failure> unwrap(std::span<const std::uint8_t> wrapped,
                                                std::string_view recoveryKey,
                                                std::string_view email);

    /// HKDF-SHA256 (RFC 5869): `size` bytes from a key, at most 8,160.
    static Secret derive(std::span<const std::uint8_t> key, std::string_view salt,
                         std::string_view info, std::size_t size);
};

} // namespace fiscarel
