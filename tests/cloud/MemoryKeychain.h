#pragma once

#include "Fiscarel_SG/cloud/CloudKeychain.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// A keyring that goes with the test.
class MemoryKeychain final : public CloudKeychain {
  public:
    std::map<std::string, std::vector<std::uint8_t>, std::less<>> items;
    bool isThere = true;

    std::optional<Secret> read(std::string_view account) override {
        const auto found = items.find(account);
        return found == items.end() ? std::nullopt : std::optional(Secret(found->second));
    }
    void write(std::string_view account, std::span<const std::uint8_t> data) override {
        items[std::string(account)] = {data.begin(), data.end()};
    }
    void erase(std::string_view account) override { items.erase(std::string(account)); }
    bool isAvailable() override { return isThere; }
};

} // namespace fiscarel::testing
