#pragma once

#include "server/ReceiptFiles.h"
#include "server/Store.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::server {

/// A sealed document of an account.
struct Receipt {
    std::string id;
    std::int64_t size = 0; ///< bytes
};

/// The sealed documents of all accounts: a row each, written once the file is on the disk and
/// removed before the file goes. Every call names the account; those of others are not there.
class Receipts {
  public:
    Receipts(Store& store, ReceiptFiles& files, std::int64_t mostAccountBytes)
        : store_(store), files_(files), mostAccountBytes_(mostAccountBytes) {}

    /// Those whose file is there whole.
    std::vector<Receipt> list(std::int64_t account);
    /// Keeps a document; one of the same content answers with the one that is there, whose file is
    /// written anew if need be. Absent when the account has no space. Throws when the disk fails.
    std::optional<Receipt> keep(std::int64_t account, std::string_view sealed);
    std::optional<std::string> read(std::int64_t account, const std::string& id);
    void remove(std::int64_t account, const std::string& id);

    /// Removes an account with all it has.
    void removeAccount(std::int64_t account);
    /// Removes the files that no row names; how many.
    std::size_t removeLeftovers();

  private:
    static std::optional<Receipt> same(Database& database, std::int64_t account,
                                       std::string_view hash);
    static std::vector<Receipt> rowsOf(Database& database, std::int64_t account);
    bool hasSpace(Database& database, std::int64_t account, std::size_t size) const;

    Store& store_;
    ReceiptFiles& files_;
    std::int64_t mostAccountBytes_;
};

} // namespace fiscarel::server
