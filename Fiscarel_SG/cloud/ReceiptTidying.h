#pragma once

#include "Fiscarel_SG/cloud/CloudRecord.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace fiscarel {

/// A file on the server that belongs to no document goes after this many seconds; until then its
/// document may still turn up.
inline constexpr std::int64_t orphanSeconds = std::int64_t{7} * 86'400;

/// What there is of documents' files.
struct ReceiptsThere {
    ReceiptMap& map;
    CloudRecord& record;
    const std::set<std::string>& onServer;     ///< receipts
    std::function<bool(const Uuid&)> isNeeded; ///< whether any state has the document
};

struct ReceiptsToRemove {
    std::vector<std::string> receipts; ///< once the map is saved
    bool changesMap = false;
    bool changesRecord = false;
};

/// Takes the files out of the map that are to go: of documents that were deleted, at once, and of
/// those that nobody knows, left by machines that ended in the midst, after a week. They leave the
/// map first, so that no machine relies on them. A deletion is off when the document is back.
ReceiptsToRemove removeReceipts(const ReceiptsThere& there, Moment now);

} // namespace fiscarel
