#pragma once

#include "server/Database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace fiscarel::server {

/// A sealed block of an account; versions count from 1.
struct Block {
    std::int64_t version = 0;
    std::string content;
};

struct BlockSaving {
    enum class Kind {
        saved,
        conflict, ///< it is based on another version than the one stored
        noSpace
    };
    Kind kind = Kind::saved;
    std::int64_t version = 0; ///< the one stored now, 0 for none
};

/// Blocks an account may have.
inline constexpr int mostBlocks = 16;

/// Whether a block may have that name: 1 to 64 letters, digits, ".", "_" and "-".
bool isBlockName(std::string_view name);
std::optional<Block> blockOf(Database& database, std::int64_t account, std::string_view name);
/// Saves a block based on a version, 0 for the first, as the next one. Only within a transaction
/// that writes; nobody else may come between.
BlockSaving saveBlock(Database& database, std::int64_t account, std::string_view name,
                      const Block& block, std::int64_t mostAccountBytes);

} // namespace fiscarel::server
