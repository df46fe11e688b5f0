#include "Fiscarel_SG/cloud/ReceiptTidying.h"

#include <algorithm>

namespace fiscarel {

namespace {

class ReceiptTidying {
  public:
    ReceiptTidying(const ReceiptsThere& there, Moment now) : there_(there), now_(now) {}

    ReceiptsToRemove run() && {
        const auto before = there_.record.orphans;
        std::set<std::string> needed;
        for (const ReceiptEntry& entry : there_.map.receipts) {
            if (there_.isNeeded(entry.document)) {
                needed.insert(entry.receipt);
            }
        }
        std::erase_if(there_.record.orphans, [&](const CloudRecord::Orphan& orphan) {
            return needed.contains(orphan.receipt) || !there_.onServer.contains(orphan.receipt);
        });
        for (const std::string& receipt : there_.onServer) {
            if (!needed.contains(receipt)) {
                orphan(receipt);
            }
        }
        removing_.changesRecord = there_.record.orphans != before;
        return std::move(removing_);
    }

  private:
    void orphan(const std::string& receipt) {
        auto& orphans = there_.record.orphans;
        const auto seen = std::ranges::find(orphans, receipt, &CloudRecord::Orphan::receipt);
        const bool isDue = seen != orphans.end()
                           && (there_.isFull || now_.seconds - seen->seen.seconds >= orphanSeconds);
        if (isDue || there_.record.startsAnew) {
            removing_.receipts.push_back(receipt);
            removing_.changesMap =
                std::erase_if(there_.map.receipts,
                              [&](const ReceiptEntry& entry) { return entry.receipt == receipt; })
                    > 0
                || removing_.changesMap;
        } else if (seen == orphans.end()) {
            orphans.push_back({receipt, now_});
        }
    }

    const ReceiptsThere& there_;
    const Moment now_;
    ReceiptsToRemove removing_;
};

} // namespace

ReceiptsToRemove removeReceipts(const ReceiptsThere& there, Moment now) {
    return ReceiptTidying(there, now).run();
}

} // namespace fiscarel
