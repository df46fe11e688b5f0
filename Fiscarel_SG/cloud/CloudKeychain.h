#pragma once

#include "Fiscarel_SG/CloudCrypto.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace fiscarel {

/// Where session token and keys are kept between two runs. Items are named by an account; nothing
/// is said of what fails: what cannot be read is absent, what cannot be kept is forgotten.
class CloudKeychain {
  public:
    static constexpr std::string_view sessionAccount = "sitzung";
    static constexpr std::string_view dataKeyAccount = "llave-datos";
    static constexpr std::string_view lastStateAccount = "ultimo-estado";

    CloudKeychain() = default;
    CloudKeychain(const CloudKeychain&) = delete;
    CloudKeychain& operator=(const CloudKeychain&) = delete;
    CloudKeychain(CloudKeychain&&) = delete;
    CloudKeychain& operator=(CloudKeychain&&) = delete;
    virtual ~CloudKeychain() = default;

    virtual std::optional<Secret> read(std::string_view account) = 0;
    /// Replaces what was kept under the account.
    virtual void write(std::string_view account, std::span<const std::uint8_t> data) = 0;
    virtual void erase(std::string_view account) = 0;
    /// Whether anything can be kept. Without, the program works on this machine alone.
    virtual bool isAvailable() = 0;

    /// The session's token; absent when nobody is signed in.
    std::optional<std::string> token();
    /// An absent token erases the item.
    void setToken(const std::optional<std::string>& token);
};

/// The keyring of the desktop, through the Secret Service. Calls wait for its answer, and for the
/// user where the keyring is locked.
class SystemKeychain final : public CloudKeychain {
  public:
    std::optional<Secret> read(std::string_view account) override;
    void write(std::string_view account, std::span<const std::uint8_t> data) override;
    void erase(std::string_view account) override;
    bool isAvailable() override;
};

} // namespace fiscarel
