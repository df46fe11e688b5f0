#include "server/Blocks.h"

#include "server/Accounts.h"

#include <algorithm>

namespace fiscarel::server {

bool isBlockName(std::string_view name) {
    return !name.empty() && name.size() <= 64 && std::ranges::all_of(name, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
               || c == '.' || c == '_' || c == '-';
    });
}

std::optional<Block> blockOf(Database& database, std::int64_t account, std::string_view name) {
    auto row = database.query("SELECT version, content FROM block WHERE account = ? AND name = ?",
                              account, name);
    return row.next() ? std::optional(Block{row.number(0), row.text(1)}) : std::nullopt;
}

BlockSaving saveBlock(Database& database, std::int64_t account, std::string_view name,
                      const Block& block, std::int64_t mostAccountBytes) {
    using Kind = BlockSaving::Kind;
    auto row = database.query("SELECT version, size FROM block WHERE account = ? AND name = ?",
                              account, name);
    const bool isThere = row.next();
    const std::int64_t version = isThere ? row.number(0) : 0;
    const std::int64_t oldSize = isThere ? row.number(1) : 0;
    if (block.version != version) {
        return {Kind::conflict, version};
    }
    auto count = database.query("SELECT count(*) FROM block WHERE account = ?", account);
    count.next();
    const auto size = static_cast<std::int64_t>(block.content.size());
    if (usedSpace(database, account) - oldSize + size > mostAccountBytes
        || (!isThere && count.number(0) >= mostBlocks)) {
        return {Kind::noSpace, version};
    }
    database.change("INSERT OR REPLACE INTO block (account, name, version, size, content)"
                    " VALUES (?, ?, ?, ?, ?)",
                    account, name, version + 1, size, std::string_view(block.content));
    return {Kind::saved, version + 1};
}

} // namespace fiscarel::server
