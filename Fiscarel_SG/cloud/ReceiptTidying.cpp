#include "Fiscarel_SG/cloud/ReceiptTidying.h"

#include <algorithm>

namespace fiscarel {

namespace {

class ReceiptTidying {
  public:
    ReceiptTidying(const ReceiptsThere& there, Moment now) : there_(there), now_(now) {}

    ReceiptsToRemove run() && {
        const CloudRecord before = there_.record;
        deletions();
        orphans();
        removing_.changesRecord = there_.record != before;
        return std::move(removing_);
    }

  private:
    void deletions() {
        auto& deletions = there_.record.deletions;
        std::erase_if(deletions,
                      [&](const CloudRecord::Deletion& deletion) { return isBack(deletion); });
        for (CloudRecord::Deletion& deletion : deletions) {
            if (const ReceiptEntry* const entry = there_.map.of(deletion.document)) {
                deletion.entry = *entry;
                takeOut([&](const ReceiptEntry& one) { return one.document == deletion.document; });
            }
        }
        std::erase_if(deletions, [&](const CloudRecord::Deletion& deletion) {
            return !deletion.entry || !there_.onServer.contains(deletion.entry->receipt);
        });
        for (const CloudRecord::Deletion& deletion : deletions) {
            removing_.receipts.push_back(deletion.entry->receipt);
        }
    }

    /// Whether the document of a deletion is there again; its file is, too, if it still lies there.
    bool isBack(const CloudRecord::Deletion& deletion) {
        if (!there_.isNeeded(deletion.document)) {
            return false;
        }
        if (deletion.entry && there_.onServer.contains(deletion.entry->receipt)
            && there_.map.of(deletion.document) == nullptr) {
            there_.map.receipts.push_back(*deletion.entry);
            removing_.changesMap = true;
        }
        return true;
    }

    void orphans() {
        std::set<std::string> named(removing_.receipts.begin(), removing_.receipts.end());
        for (const ReceiptEntry& entry : there_.map.receipts) {
            if (there_.isNeeded(entry.document)) {
                named.insert(entry.receipt);
            }
        }
        auto& orphans = there_.record.orphans;
        std::erase_if(orphans, [&](const CloudRecord::Orphan& orphan) {
            return named.contains(orphan.receipt) || !there_.onServer.contains(orphan.receipt);
        });
        for (const std::string& receipt : there_.onServer) {
            if (!named.contains(receipt)) {
                orphan(receipt);
            }
        }
    }

    void orphan(const std::string& receipt) {
        auto& orphans = there_.record.orphans;
        const auto seen = std::ranges::find(orphans, receipt, &CloudRecord::Orphan::receipt);
        const bool isOld =
            seen != orphans.end() && now_.seconds - seen->seen.seconds >= orphanSeconds;
        if (isOld || there_.record.startsAnew) {
            removing_.receipts.push_back(receipt);
            takeOut([&](const ReceiptEntry& entry) { return entry.receipt == receipt; });
        } else if (seen == orphans.end()) {
            orphans.push_back({receipt, now_});
        }
    }

    template <class Which>
    void takeOut(Which which) {
        removing_.changesMap =
            std::erase_if(there_.map.receipts, which) > 0 || removing_.changesMap;
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
