#include "Fiscarel_SG/cloud/CloudKeychain.h"

#include <libsecret/secret.h>

#include <memory>

namespace fiscarel {

namespace {

constexpr const char* service = "ch.fiscarel.fiscarel-sg.cloud";
constexpr const char* itemLabel = "Fiscarel SG Cloud";

const SecretSchema& schema() {
    static const SecretSchema made = [] {
        SecretSchema described{};
        described.name = service;
        described.flags = SECRET_SCHEMA_NONE;
        described.attributes[0] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
        described.attributes[1] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
        return described;
    }();
    return made;
}

struct FreeValue {
    void operator()(SecretValue* value) const { secret_value_unref(value); }
};
using Value = std::unique_ptr<SecretValue, FreeValue>;

struct FreeTable {
    void operator()(GHashTable* table) const { g_hash_table_unref(table); }
};
using Attributes = std::unique_ptr<GHashTable, FreeTable>;

struct FreeObject {
    void operator()(void* object) const { g_object_unref(object); }
};

/// The name of an item; the texts are the caller's and must live as long.
Attributes attributesOf(const std::string& account) {
    return Attributes(secret_attributes_build(&schema(), "service", service, "account",
                                              account.c_str(), nullptr));
}

void freeError(GError* error) {
    if (error != nullptr) {
        g_error_free(error);
    }
}

} // namespace

std::optional<std::string> CloudKeychain::token() {
    const auto secret = read(sessionAccount);
    if (!secret || secret->bytes().empty()) {
        return std::nullopt;
    }
    return std::string(secret->bytes().begin(), secret->bytes().end());
}

void CloudKeychain::setToken(const std::optional<std::string>& token) {
    if (token) {
        write(sessionAccount,
              {reinterpret_cast<const std::uint8_t*>(token->data()), token->size()});
    } else {
        erase(sessionAccount);
    }
}

std::optional<Secret> SystemKeychain::read(std::string_view account) {
    const std::string name(account);
    GError* error = nullptr;
    const Value value(
        secret_password_lookupv_binary_sync(&schema(), attributesOf(name).get(), nullptr, &error));
    freeError(error);
    if (value == nullptr) {
        return std::nullopt;
    }
    gsize size = 0;
    const gchar* const bytes = secret_value_get(value.get(), &size);
    return Secret({reinterpret_cast<const std::uint8_t*>(bytes), size});
}

void SystemKeychain::write(std::string_view account, std::span<const std::uint8_t> data) {
    erase(account);
    const std::string name(account);
    const Value value(secret_value_new(reinterpret_cast<const gchar*>(data.data()),
                                       static_cast<gssize>(data.size()),
                                       "application/octet-stream"));
    GError* error = nullptr;
    secret_password_storev_binary_sync(&schema(), attributesOf(name).get(),
                                       SECRET_COLLECTION_DEFAULT, itemLabel, value.get(), nullptr,
                                       &error);
    freeError(error);
}

void SystemKeychain::erase(std::string_view account) {
    const std::string name(account);
    GError* error = nullptr;
    secret_password_clearv_sync(&schema(), attributesOf(name).get(), nullptr, &error);
    freeError(error);
}

bool SystemKeychain::isAvailable() {
    GError* error = nullptr;
    const std::unique_ptr<SecretService, FreeObject> found(
        secret_service_get_sync(SECRET_SERVICE_OPEN_SESSION, nullptr, &error));
    freeError(error);
    return found != nullptr;
}

} // namespace fiscarel
