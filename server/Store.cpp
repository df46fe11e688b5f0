#include "server/Store.h"

#include <cstdint>

namespace fiscarel::server {

namespace {

constexpr int newestSchema = 2;

/// Sizes stand before contents, so that adding them up reads no contents. Numbers of accounts and
/// sessions are never given twice.
constexpr const char* schema = R"(
CREATE TABLE account (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    email TEXT NOT NULL UNIQUE,
    since INTEGER NOT NULL,
    deletion TEXT,
    key_hash BLOB,
    wrapped_key TEXT
) STRICT;
CREATE TABLE session (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    account INTEGER NOT NULL REFERENCES account ON DELETE CASCADE,
    token_hash BLOB NOT NULL UNIQUE,
    device TEXT NOT NULL,
    since INTEGER NOT NULL,
    last_seen INTEGER NOT NULL
) STRICT;
CREATE INDEX session_of_account ON session (account);
CREATE TABLE block (
    account INTEGER NOT NULL REFERENCES account ON DELETE CASCADE,
    name TEXT NOT NULL,
    version INTEGER NOT NULL,
    size INTEGER NOT NULL,
    content TEXT NOT NULL,
    PRIMARY KEY (account, name)
) STRICT;
CREATE TABLE receipt (
    id TEXT PRIMARY KEY,
    account INTEGER NOT NULL REFERENCES account ON DELETE CASCADE,
    size INTEGER NOT NULL,
    hash BLOB NOT NULL,
    UNIQUE (account, hash)
) STRICT;
PRAGMA user_version = 1;
)";

/// Codes live for minutes: those of before are asked for once more.
constexpr const char* codesByClient = R"(
DROP TABLE IF EXISTS code;
CREATE TABLE code (
    email TEXT PRIMARY KEY,
    hash BLOB NOT NULL,
    client BLOB NOT NULL,
    expires INTEGER NOT NULL,
    tries INTEGER NOT NULL,
    others_tries INTEGER NOT NULL
) STRICT;
PRAGMA user_version = 2;
)";

} // namespace

Store::Store(const std::filesystem::path& file) : database_(file) {
    change([](Database& database) {
        const std::int64_t schemaThere = [&] { // a query still open would hold the tables
            auto version = database.query("PRAGMA user_version");
            version.next();
            return version.number(0);
        }();
        if (schemaThere > newestSchema) {
            throw DatabaseFailure("the database was written by a newer version of this server");
        }
        if (schemaThere == 0) {
            database.run(schema);
        }
        if (schemaThere < newestSchema) {
            database.run(codesByClient);
        }
    });
}

Store::Transaction::~Transaction() {
    if (!isDone_) {
        try {
            database_.run("ROLLBACK");
        } catch (const DatabaseFailure&) {
            // The database took it back by itself, which it does when the disk is full.
            isDone_ = true;
        }
    }
}

} // namespace fiscarel::server
