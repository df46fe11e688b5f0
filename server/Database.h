#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace fiscarel::server {

/// What the database says when it does not work.
class DatabaseFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Bytes, as opposed to text.
struct Bytes {
    std::string_view bytes;
};

/// A prepared statement and the row it stands on. Columns and parameters in the order written.
class Statement {
  public:
    Statement(sqlite3* database, std::string_view sql);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void bind(int at, std::int64_t number);
    void bind(int at, std::string_view text);
    void bind(int at, Bytes bytes);
    void bind(int at, std::nullopt_t nothing);

    /// Goes to the next row; false after the last.
    bool next();
    std::int64_t number(int column) const;
    /// Text or bytes; empty for null.
    std::string text(int column) const;
    bool isNull(int column) const;

  private:
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
};

/// An open SQLite database: write-ahead log, every commit on the disk before it returns, deleted
/// content overwritten. One thread at a time. Every call throws `DatabaseFailure`.
class Database {
  public:
    explicit Database(const std::filesystem::path& file);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements without parameters.
    void run(const char* sql);
    /// Prepares a statement with its parameters; the rows come by `next`.
    template <class... Values>
    Statement query(std::string_view sql, const Values&... values) {
        Statement statement(database_, sql);
        int at = 0;
        (statement.bind(++at, values), ...);
        return statement;
    }
    /// Runs one statement without rows; how many rows it changed.
    template <class... Values>
    int change(std::string_view sql, const Values&... values) {
        query(sql, values...).next();
        return changedRows();
    }
    std::int64_t lastId() const;

  private:
    int changedRows() const;

    sqlite3* database_ = nullptr;
};

} // namespace fiscarel::server
