#include "Fiscarel_SG/CloudCrypto.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/kdf.h>
#include <openssl/rand.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <utility>

namespace fiscarel {

namespace {

using Bytes = CloudCrypto::Bytes;

/// Without letters that look like digits or like each other.
constexpr std::string_view alphabet = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr std::size_t recoveryLength = 32;
constexpr std::size_t checkLength = 2; ///< of it, at the end
constexpr std::size_t groupLength = 4;

/// The library fails here only when memory or randomness does; there is nothing to be sealed then.
void must(bool worked) {
    if (!worked) {
        throw std::runtime_error("encryption is not available");
    }
}

int length(std::size_t size) {
    must(size <= 0x7fff'ffff);
    return static_cast<int>(size);
}

const std::uint8_t* octets(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

struct FreeCipher {
    void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); }
};
using Cipher = std::unique_ptr<EVP_CIPHER_CTX, FreeCipher>;

struct FreeDerivation {
    void operator()(EVP_PKEY_CTX* context) const { EVP_PKEY_CTX_free(context); }
};

/// Ten bits over the random part, as two letters.
std::string checkOf(std::string_view randomPart) {
    std::array<std::uint8_t, 32> digest{};
    must(EVP_Digest(randomPart.data(), randomPart.size(), digest.data(), nullptr, EVP_sha256(),
                    nullptr)
         == 1);
    return {alphabet[digest[0] % alphabet.size()], alphabet[digest[1] % alphabet.size()]};
}

std::string nameOfWrappedKey(std::string_view email) {
    std::string name = "llave:";
    for (const char letter : email) {
        name += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return name;
}

/// The key under which the household's key is sealed. The recovery key is random enough that no
/// slow derivation is needed.
Secret wrappingKey(const std::string& recoveryKey, std::string_view name) {
    return CloudCrypto::derive({octets(recoveryKey), recoveryKey.size()}, "fiscarel-sg", name,
                               CloudCrypto::keySize);
}

} // namespace

Secret& Secret::operator=(Secret&& other) noexcept {
    if (this != &other) {
        wipe();
        bytes_ = std::move(other.bytes_);
    }
    return *this;
}

Secret::~Secret() { wipe(); }

void Secret::wipe() noexcept { OPENSSL_cleanse(bytes_.data(), bytes_.size()); }

bool Secret::operator==(const Secret& other) const noexcept {
    return bytes_.size() == other.bytes_.size()
           && CRYPTO_memcmp(bytes_.data(), other.bytes_.data(), bytes_.size()) == 0;
}

std::string_view CloudCrypto::message(Failure failure) {
    switch (failure) {
    case Failure::recoveryFormat:
        return "Der Wiederherstellungsschlüssel hat 32 Zeichen (Buchstaben und Ziffern). Bitte "
               "prüfen.";
    case Failure::wrongRecovery:
        return "Dieser Wiederherstellungsschlüssel passt nicht zu Ihrem Cloud-Konto.";
    case Failure::damaged:
        break;
    }
    return "Daten aus der Cloud konnten nicht entschlüsselt werden.";
}

Secret CloudCrypto::newKey() {
    Secret key(keySize);
    must(RAND_priv_bytes(key.bytes().data(), length(keySize)) == 1);
    return key;
}

Bytes CloudCrypto::seal(std::span<const std::uint8_t> data, const Secret& key,
                        std::string_view name) {
    must(key.bytes().size() == keySize);
    Bytes sealed(nonceSize + data.size() + tagSize);
    std::uint8_t* const cipherText = sealed.data() + nonceSize;
    must(RAND_bytes(sealed.data(), length(nonceSize)) == 1);
    const Cipher cipher(EVP_CIPHER_CTX_new());
    int written = 0;
    must(cipher != nullptr
         && EVP_EncryptInit_ex(cipher.get(), EVP_aes_256_gcm(), nullptr, key.bytes().data(),
                               sealed.data())
                == 1
         && EVP_EncryptUpdate(cipher.get(), nullptr, &written, octets(name), length(name.size()))
                == 1
         && EVP_EncryptUpdate(cipher.get(), cipherText, &written, data.data(), length(data.size()))
                == 1
         && EVP_EncryptFinal_ex(cipher.get(), cipherText + written, &written) == 1
         && EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_GET_TAG, length(tagSize),
                                cipherText + data.size())
                == 1);
    return sealed;
}

tl::expected<Bytes, CloudCrypto::Failure>
CloudCrypto::open(std::span<const std::uint8_t> sealed, const Secret& key, std::string_view name) {
    const auto damaged = tl::unexpected(Failure::damaged);
    if (sealed.size() < nonceSize + tagSize || key.bytes().size() != keySize) {
        return damaged;
    }
    const auto cipherText = sealed.subspan(nonceSize, sealed.size() - nonceSize - tagSize);
    Bytes tag(sealed.end() - static_cast<std::ptrdiff_t>(tagSize), sealed.end());
    Bytes data(cipherText.size());
    const Cipher cipher(EVP_CIPHER_CTX_new());
    int written = 0;
    const bool opened =
        cipher != nullptr
        && EVP_DecryptInit_ex(cipher.get(), EVP_aes_256_gcm(), nullptr, key.bytes().data(),
                              sealed.data())
               == 1
        && EVP_DecryptUpdate(cipher.get(), nullptr, &written, octets(name), length(name.size()))
               == 1
        && EVP_DecryptUpdate(cipher.get(), data.data(), &written, cipherText.data(),
                             length(cipherText.size()))
               == 1
        && EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_SET_TAG, length(tagSize), tag.data()) == 1
        && EVP_DecryptFinal_ex(cipher.get(), data.data() + written, &written) == 1;
    if (!opened) {
        OPENSSL_cleanse(data.data(), data.size()); // not authenticated: nobody may see it
        return damaged;
    }
    return data;
}

std::string CloudCrypto::newRecoveryKey() {
    Secret random(recoveryLength - checkLength);
    must(RAND_priv_bytes(random.bytes().data(), length(random.bytes().size())) == 1);
    std::string key;
    for (const std::uint8_t byte : random.bytes()) {
        key += alphabet[byte % alphabet.size()]; // 256 is a multiple of 32: no letter is likelier
    }
    key += checkOf(key);
    std::string grouped;
    for (std::size_t at = 0; at < key.size(); at += groupLength) {
        grouped += (at == 0 ? "" : "-") + key.substr(at, groupLength);
    }
    return grouped;
}

tl::expected<std::string, CloudCrypto::Failure>
CloudCrypto::parseRecoveryKey(std::string_view typed) {
    std::string key;
    for (char letter : typed) {
        if (letter == ' ' || letter == '-' || letter == '\n' || letter == '\r' || letter == '\t') {
            continue;
        }
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        letter = letter == 'O' ? '0' : letter == 'I' || letter == 'L' ? '1' : letter;
        if (alphabet.find(letter) == std::string_view::npos) {
            return tl::unexpected(Failure::recoveryFormat);
        }
        key += letter;
    }
    if (key.size() != recoveryLength
        || checkOf(key.substr(0, recoveryLength - checkLength))
               != key.substr(recoveryLength - checkLength)) {
        return tl::unexpected(Failure::recoveryFormat);
    }
    return key;
}

tl::expected<Bytes, CloudCrypto::Failure>
CloudCrypto::wrap(const Secret& key, std::string_view recoveryKey, std::string_view email) {
    const std::string name = nameOfWrappedKey(email);
    return parseRecoveryKey(recoveryKey).map([&](const std::string& recovery) {
        return seal(key.bytes(), wrappingKey(recovery, name), name);
    });
}

tl::expected<Secret, CloudCrypto::Failure>
CloudCrypto::unwrap(std::span<const std::uint8_t> wrapped, std::string_view recoveryKey,
                    std::string_view email) {
    const std::string name = nameOfWrappedKey(email);
    const auto recovery = parseRecoveryKey(recoveryKey);
    if (!recovery) {
        return tl::unexpected(recovery.error());
    }
    auto opened = open(wrapped, wrappingKey(*recovery, name), name);
    if (!opened || opened->size() != keySize) {
        return tl::unexpected(Failure::wrongRecovery);
    }
    Secret key(*opened);
    OPENSSL_cleanse(opened->data(), opened->size());
    return key;
}

Secret CloudCrypto::derive(std::span<const std::uint8_t> key, std::string_view salt,
                           std::string_view info, std::size_t size) {
    Secret derived(size);
    const std::unique_ptr<EVP_PKEY_CTX, FreeDerivation> context(
        EVP_PKEY_CTX_new_id(EVP_PKEY_HKDF, nullptr));
    std::size_t written = size;
    must(context != nullptr && EVP_PKEY_derive_init(context.get()) == 1
         && EVP_PKEY_CTX_set_hkdf_md(context.get(), EVP_sha256()) == 1
         && EVP_PKEY_CTX_set1_hkdf_salt(context.get(), octets(salt), length(salt.size())) == 1
         && EVP_PKEY_CTX_set1_hkdf_key(context.get(), key.data(), length(key.size())) == 1
         && EVP_PKEY_CTX_add1_hkdf_info(context.get(), octets(info), length(info.size())) == 1
         && EVP_PKEY_derive(context.get(), derived.bytes().data(), &written) == 1
         && written == size);
    return derived;
}

} // namespace fiscarel
