#include "server/Accounts.h"

#include "server/Secrets.h"

namespace fiscarel::server {

namespace {

Account accountIn(const Statement& row) {
    return {.id = row.number(0),
            .email = row.text(1),
            .hasKey = row.number(2) != 0,
            .deletion = row.isNull(3) ? std::nullopt : std::optional(row.text(3))};
}

} // namespace

std::pair<Account, bool> accountFor(Database& database, std::string_view email, Moment now) {
    auto found = database.query(
        "SELECT id, email, wrapped_key IS NOT NULL, deletion FROM account WHERE email = ?", email);
    if (found.next()) {
        return {accountIn(found), false};
    }
    database.change("INSERT INTO account (email, since) VALUES (?, ?)", email, now.seconds);
    return {{.id = database.lastId(), .email = std::string(email)}, true};
}

std::optional<Account> accountOf(Database& database, std::int64_t id) {
    auto found = database.query(
        "SELECT id, email, wrapped_key IS NOT NULL, deletion FROM account WHERE id = ?", id);
    return found.next() ? std::optional(accountIn(found)) : std::nullopt;
}

std::int64_t usedSpace(Database& database, std::int64_t account) {
    auto sum = database.query("SELECT (SELECT coalesce(sum(size), 0) FROM block WHERE account = ?1)"
                              " + (SELECT coalesce(sum(size), 0) FROM receipt WHERE account = ?1)",
                              account);
    sum.next();
    return sum.number(0);
}

WrappedKey wrappedKeyOf(Database& database, std::int64_t account) {
    auto row = database.query("SELECT wrapped_key, key_hash FROM account WHERE id = ?"
                              " AND wrapped_key IS NOT NULL",
                              account);
    if (!row.next()) {
        return {};
    }
    std::string key = row.text(0);
    if (sha256(key) != row.text(1)) {
        return {.key = std::nullopt, .isUnreadable = true};
    }
    return {.key = std::move(key)};
}

bool storeWrappedKey(Database& database, std::int64_t account, std::string_view key,
                     const std::optional<std::string>& previous) {
    const WrappedKey stored = wrappedKeyOf(database, account);
    if (stored.key == key) {
        return true; // the answer to the first time may have been lost
    }
    if (stored.key != previous) {
        return false;
    }
    return database.change("UPDATE account SET wrapped_key = ?, key_hash = ? WHERE id = ?", key,
                           Bytes{sha256(key)}, account)
           == 1;
}

bool planDeletion(Database& database, std::string_view email,
                  const std::optional<std::string>& day) {
    constexpr std::string_view sql = "UPDATE account SET deletion = ? WHERE email = ?";
    return (day ? database.change(sql, std::string_view(*day), email)
                : database.change(sql, std::nullopt, email))
           == 1;
}

std::vector<std::int64_t> dueAccounts(Database& database, std::string_view today) {
    std::vector<std::int64_t> due;
    auto rows = database.query("SELECT id FROM account WHERE deletion <= ?", today);
    while (rows.next()) {
        due.push_back(rows.number(0));
    }
    return due;
}

void removeAccount(Database& database, std::int64_t id) {
    database.change("DELETE FROM code WHERE email = (SELECT email FROM account WHERE id = ?)", id);
    database.change("DELETE FROM account WHERE id = ?", id);
}

std::string dayOf(Moment moment) { return moment.toString().substr(0, 10); }

} // namespace fiscarel::server
