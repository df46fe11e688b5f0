#include "server/Store.h"

namespace fiscarel::server {

namespace {

constexpr int newestSchema = 1;

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
CREATE TABLE code (
    email TEXT PRIMARY KEY,
    hash BLOB NOT NULL,
    expires INTEGER NOT NULL,
    tries INTEGER NOT NULL
) STRICT;
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

} // namespace

Store::Store(const std::filesystem::path& file) : database_(file) {
    change([](Database& database) {
        auto version = database.query("PRAGMA user_version");
        version.next();
        if (version.number(0) > newestSchema) {
            throw DatabaseFailure("the database was written by a newer version of this server");
        }
        if (version.number(0) == 0) {
            database.run(schema);
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
