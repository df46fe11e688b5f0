#pragma once

#include "Fiscarel_SG/cloud/CloudRecord.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace fiscarel {

/// A file on the server that belongs to no document goes after this many seconds; until then its
/// document may turn up, or come back because another machine had changed it.
inline constexpr std::int64_t orphanSeconds = std::int64_t{30} * 86'400;

/// What there is of documents' files.
struct ReceiptsThere {
    ReceiptMap& map;
    CloudRecord& record;
    const std::set<std::string>& onServer;     ///< receipts
    std::function<bool(const Uuid&)> isNeeded; ///< whether any state has the document
    bool isFull = false;                       ///< the server has no more room
};

struct ReceiptsToRemove {
    std::vector<std::string> receipts; ///< once the map is saved
    bool changesMap = false;
    bool changesRecord = false;
};

/// Takes the files out of the map that are to go: those no state needs, of documents that were
/// deleted or left by machines that ended in the midst, once they have been seen so for long
/// enough. Where the server is full those go that were seen so by an earlier call, and all at once
/// where the user begins anew. They leave the map first, so that no machine relies on them.
ReceiptsToRemove removeReceipts(const ReceiptsThere& there, Moment now);

} // namespace fiscarel
