#pragma once

#include "server/Database.h"

#include <filesystem>
#include <mutex>
#include <utility>

namespace fiscarel::server {

/// The database of a server with its schema. Any thread may call; what is done within one call is
/// one transaction, whole or not at all, and on the disk when the call returns. Throws
/// `DatabaseFailure`.
class Store {
  public:
    /// Opens the database, makes it where there is none, and refuses one of a newer schema.
    explicit Store(const std::filesystem::path& file);

    /// Calls `work(database)` and keeps what it changed unless it throws.
    template <class Work>
    auto change(Work&& work) {
        const std::lock_guard lock(mutex_);
        Transaction transaction(database_);
        if constexpr (std::is_void_v<decltype(work(database_))>) {
            work(database_);
            transaction.commit();
        } else {
            auto result = work(database_);
            transaction.commit();
            return result;
        }
    }
    /// The same for work that only looks.
    template <class Work>
    auto read(Work&& work) {
        const std::lock_guard lock(mutex_);
        return work(database_);
    }

  private:
    class Transaction {
      public:
        explicit Transaction(Database& database) : database_(database) {
            database_.run("BEGIN IMMEDIATE");
        }
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void commit() {
            database_.run("COMMIT");
            isDone_ = true;
        }

      private:
        Database& database_;
        bool isDone_ = false;
    };

    Database database_;
    std::mutex mutex_;
};

} // namespace fiscarel::server
