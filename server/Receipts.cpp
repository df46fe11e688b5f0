#include "server/Receipts.h"

#include "server/Accounts.h"
#include "server/Secrets.h"

#include <algorithm>
#include <set>

namespace fiscarel::server {

namespace {

constexpr std::size_t idBytes = 16;

} // namespace

std::vector<Receipt> Receipts::rowsOf(Database& database, std::int64_t account) {
    std::vector<Receipt> receipts;
    auto rows =
        database.query("SELECT id, size FROM receipt WHERE account = ? ORDER BY rowid", account);
    while (rows.next()) {
        receipts.push_back({rows.text(0), rows.number(1)});
    }
    return receipts;
}

std::vector<Receipt> Receipts::list(std::int64_t account) {
    auto receipts = store_.read([&](Database& database) { return rowsOf(database, account); });
    std::erase_if(receipts,
                  [&](const Receipt& receipt) { return !files_.has(receipt.id, receipt.size); });
    return receipts;
}

std::optional<Receipt> Receipts::same(Database& database, std::int64_t account,
                                      std::string_view hash) {
    auto row = database.query("SELECT id, size FROM receipt WHERE account = ? AND hash = ?",
                              account, Bytes{hash});
    return row.next() ? std::optional(Receipt{row.text(0), row.number(1)}) : std::nullopt;
}

bool Receipts::hasSpace(Database& database, std::int64_t account, std::size_t size) const {
    return usedSpace(database, account) + static_cast<std::int64_t>(size) <= mostAccountBytes_;
}

std::optional<Receipt> Receipts::keep(std::int64_t account, std::string_view sealed) {
    const std::string hash = sha256(sealed);
    bool fits = false;
    auto there = store_.read([&](Database& database) {
        fits = hasSpace(database, account, sealed.size());
        return same(database, account, hash);
    });
    if (there) {
        if (!files_.has(there->id, there->size)) {
            files_.write(there->id, sealed);
        }
        // It may have been deleted in between; then it is kept anew.
        there = store_.read([&](Database& database) { return same(database, account, hash); });
        if (there) {
            return there;
        }
    }
    if (!fits) {
        return std::nullopt;
    }
    const Receipt fresh{hexOf(randomBytes(idBytes)), static_cast<std::int64_t>(sealed.size())};
    files_.write(fresh.id, sealed);
    std::optional<Receipt> kept;
    try {
        kept = store_.change([&](Database& database) -> std::optional<Receipt> {
            if (auto other = same(database, account, hash)) {
                return other; // sent twice at the same time
            }
            if (!hasSpace(database, account, sealed.size())) {
                return std::nullopt;
            }
            database.change("INSERT INTO receipt (id, account, size, hash) VALUES (?, ?, ?, ?)",
                            std::string_view(fresh.id), account, fresh.size, Bytes{hash});
            return fresh;
        });
    } catch (...) {
        files_.remove(fresh.id);
        throw;
    }
    if (!kept || kept->id != fresh.id) {
        files_.remove(fresh.id);
    }
    return kept;
}

std::optional<std::string> Receipts::read(std::int64_t account, const std::string& id) {
    const auto size = store_.read([&](Database& database) -> std::optional<std::int64_t> {
        auto row = database.query("SELECT size FROM receipt WHERE account = ? AND id = ?", account,
                                  std::string_view(id));
        return row.next() ? std::optional(row.number(0)) : std::nullopt;
    });
    return size ? files_.read(id, *size) : std::nullopt;
}

void Receipts::remove(std::int64_t account, const std::string& id) {
    const int removed = store_.change([&](Database& database) {
        return database.change("DELETE FROM receipt WHERE account = ? AND id = ?", account,
                               std::string_view(id));
    });
    if (removed > 0) {
        files_.remove(id);
    }
}

void Receipts::removeAccount(std::int64_t account) {
    const auto receipts = store_.change([&](Database& database) {
        auto rows = rowsOf(database, account);
        server::removeAccount(database, account);
        return rows;
    });
    for (const Receipt& receipt : receipts) {
        files_.remove(receipt.id);
    }
}

std::size_t Receipts::removeLeftovers() {
    const auto known = store_.read([](Database& database) {
        std::set<std::string> ids;
        auto rows = database.query("SELECT id FROM receipt");
        while (rows.next()) {
            ids.insert(rows.text(0));
        }
        return ids;
    });
    std::size_t removed = 0;
    for (const std::string& id : files_.ids()) {
        if (!known.contains(id)) {
            files_.remove(id);
            ++removed;
        }
    }
    return removed;
}

} // namespace fiscarel::server
