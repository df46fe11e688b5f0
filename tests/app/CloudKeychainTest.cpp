#include "Fiscarel_SG/cloud/CloudKeychain.h"

#include <gtest/gtest.h>
#include <libsecret/secret.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

// Runs in a session of its own with a real keyring (tests/support/with-keyring.sh).

namespace fiscarel {
namespace {

std::vector<std::uint8_t> bytesOf(const std::optional<Secret>& secret) {
    return secret ? std::vector<std::uint8_t>(secret->bytes().begin(), secret->bytes().end())
                  : std::vector<std::uint8_t>{};
}

/// How many items the keyring holds for an account.
guint itemsOf(const char* account) {
    GHashTable* const attributes = g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free);
    g_hash_table_insert(attributes, g_strdup("service"), g_strdup("ch.fiscarel.fiscarel-sg.cloud"));
    g_hash_table_insert(attributes, g_strdup("account"), g_strdup(account));
    GList* const items = secret_service_search_sync(nullptr, nullptr, attributes, SECRET_SEARCH_ALL,
                                                    nullptr, nullptr);
    const guint count = g_list_length(items);
    g_list_free_full(items, g_object_unref);
    g_hash_table_unref(attributes);
    return count;
}

/// Whether this is the process that another test of this program began.
constexpr const char* stepName = "FISCAREL_KEYRING_STEP";
bool isSecondProcess() { return std::getenv(stepName) != nullptr; }

/// Runs one of these tests again in a process of its own.
int runAgain(std::string filter) {
    std::string program = "/proc/self/exe";
    filter.insert(0, "--gtest_filter=CloudKeychain.");
    std::array<char*, 3> arguments{program.data(), filter.data(), nullptr};
    pid_t child = 0;
    int status = -1;
    ::setenv(stepName, "1", 1);
    if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) == 0) {
        ::waitpid(child, &status, 0);
    }
    ::unsetenv(stepName);
    return status;
}

TEST(CloudKeychain, keepsItemsByAccountInTheRealKeyring) {
    SystemKeychain keychain;
    ASSERT_TRUE(keychain.isAvailable());
    const std::vector<std::uint8_t> key{0, 1, 255, 0, 7};
    keychain.write(CloudKeychain::dataKeyAccount, key);
    EXPECT_EQ(bytesOf(keychain.read(CloudKeychain::dataKeyAccount)), key);
    EXPECT_FALSE(keychain.read("anderes"));

    EXPECT_FALSE(keychain.token());
    keychain.setToken("erste");
    keychain.setToken("zweite");
    EXPECT_EQ(keychain.token(), "zweite");
    EXPECT_EQ(itemsOf("sitzung"), 1U);
    keychain.setToken(std::nullopt);
    EXPECT_FALSE(keychain.token());
    EXPECT_EQ(itemsOf("sitzung"), 0U);
    EXPECT_EQ(bytesOf(keychain.read(CloudKeychain::dataKeyAccount)), key);
    keychain.erase(CloudKeychain::dataKeyAccount);
    keychain.erase(CloudKeychain::dataKeyAccount);
    EXPECT_FALSE(keychain.read(CloudKeychain::dataKeyAccount));
}

TEST(CloudKeychain, whatIsKeptSurvivesTheProgram) {
    SystemKeychain keychain;
    ASSERT_TRUE(keychain.isAvailable());
    if (isSecondProcess()) {
        EXPECT_EQ(keychain.token(), "bleibt");
        keychain.setToken("gesehen");
        return;
    }
    keychain.setToken("bleibt");
    EXPECT_EQ(runAgain("whatIsKeptSurvivesTheProgram"), 0);
    EXPECT_EQ(keychain.token(), "gesehen");
    keychain.setToken(std::nullopt);
}

/// The library keeps its connection, so only a new process can be without one.
TEST(CloudKeychain, aMachineWithoutAKeyringIsNoticed) {
    if (!isSecondProcess()) {
        const std::string address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
        ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
        EXPECT_EQ(runAgain("aMachineWithoutAKeyringIsNoticed"), 0);
        ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        return;
    }
    SystemKeychain keychain;
    EXPECT_FALSE(keychain.isAvailable());
    keychain.setToken("x");
    EXPECT_FALSE(keychain.token());
    keychain.erase("sitzung");
}

} // namespace
} // namespace fiscarel
