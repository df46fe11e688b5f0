#include "server/Database.h"

#include <sqlite3.h>

#include <utility>

namespace fiscarel::server {

namespace {

void require(bool holds, sqlite3* database) {
    if (!holds) {
        throw DatabaseFailure(database == nullptr ? "no memory" : sqlite3_errmsg(database));
    }
}

} // namespace

Statement::Statement(sqlite3* database, std::string_view sql) : database_(database) {
    require(
        sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement_, nullptr)
            == SQLITE_OK,
        database);
}

Statement::~Statement() { sqlite3_finalize(statement_); }

Statement::Statement(Statement&& other) noexcept
    : database_(other.database_), statement_(std::exchange(other.statement_, nullptr)) {}

void Statement::bind(int at, std::int64_t number) {
    require(sqlite3_bind_int64(statement_, at, number) == SQLITE_OK, database_);
}

void Statement::bind(int at, std::string_view text) {
    require(
        sqlite3_bind_text64(statement_, at, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8)
            == SQLITE_OK,
        database_);
}

void Statement::bind(int at, Bytes bytes) {
    require(sqlite3_bind_blob64(statement_, at, bytes.bytes.data(), bytes.bytes.size(),
                                SQLITE_TRANSIENT)
                == SQLITE_OK,
            database_);
}

void Statement::bind(int at, std::nullopt_t) {
    require(sqlite3_bind_null(statement_, at) == SQLITE_OK, database_);
}

bool Statement::next() {
    const int status = sqlite3_step(statement_);
    require(status == SQLITE_ROW || status == SQLITE_DONE, database_);
    return status == SQLITE_ROW;
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::string Statement::text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    return bytes == nullptr ? std::string() : std::string(bytes, size);
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

Database::Database(const std::filesystem::path& file) {
    const int status =
        sqlite3_open_v2(file.c_str(), &database_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        require(status == SQLITE_OK, database_);
        // An order to delete an account may come from a second process.
        sqlite3_busy_timeout(database_, 10'000);
        run("PRAGMA journal_mode = WAL;"
            "PRAGMA synchronous = FULL;"
            "PRAGMA foreign_keys = ON;"
            "PRAGMA secure_delete = ON;"
            "PRAGMA journal_size_limit = 67108864;");
    } catch (...) {
        sqlite3_close(database_);
        throw;
    }
}

Database::~Database() { sqlite3_close(database_); }

void Database::run(const char* sql) {
    require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database_);
}

std::int64_t Database::lastId() const { return sqlite3_last_insert_rowid(database_); }

int Database::changedRows() const { return sqlite3_changes(database_); }

} // namespace fiscarel::server
