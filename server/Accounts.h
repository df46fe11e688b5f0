#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "server/Database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel::server {

struct Account {
    std::int64_t id = 0;
    std::string email;
    bool hasKey = false;
    std::optional<std::string> deletion; ///< the day on which it goes, "2026-03-01", UTC
};

/// The wrapped data key of an account, as its machines made it.
struct WrappedKey {
    std::optional<std::string> key;
    bool isUnreadable = false; ///< there is one, but it is not what was stored
};

/// The account of an address, made now where there is none; the second says whether it was.
std::pair<Account, bool> accountFor(Database& database, std::string_view email, Moment now);
/// Absent when it was removed.
std::optional<Account> accountOf(Database& database, std::int64_t id);
/// Bytes of the blocks and documents of an account.
std::int64_t usedSpace(Database& database, std::int64_t account);

WrappedKey wrappedKeyOf(Database& database, std::int64_t account);
/// Stores a wrapped key in the place of `previous`; without it only where there is none that
/// reads. The key that is stored already may be stored again. False: another one is there.
bool storeWrappedKey(Database& database, std::int64_t account, std::string_view key,
                     const std::optional<std::string>& previous);

/// Plans the deletion of an account for a day, or takes it back; false when there is no account of
/// that address.
bool planDeletion(Database& database, std::string_view email,
                  const std::optional<std::string>& day);
/// Accounts whose day has come.
std::vector<std::int64_t> dueAccounts(Database& database, std::string_view today);
void removeAccount(Database& database, std::int64_t id);

/// The day of an instant in UTC, "2026-03-01".
std::string dayOf(Moment moment);

} // namespace fiscarel::server
