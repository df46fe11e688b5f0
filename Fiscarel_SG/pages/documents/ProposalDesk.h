#pragma once

#include "Fiscarel_SG/documents/Applying.h"
#include "Fiscarel_SG/forms/Page.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// What the user decides about a document, and what would come of it in the current case. Knows no
/// widgets. Records and proposals are named by their index.
class ProposalDesk {
  public:
    /// What everything included would change, francs: the bill and the tax on capital payments.
    struct Effect {
        Decimal before;
        Decimal after;
    };
    /// The document's share in a sum over several documents.
    struct Sum {
        int documents = 0; ///< with this one
        Decimal total;     ///< francs
    };

    /// Begins with what is most likely right, without unsure values and without records of another
    /// year; for a document that was applied, with what was taken over. `store` and `scan` must
    /// outlive it.
    ProposalDesk(AppStore& store, StoredDocument document, const ScanResult& scan);

    const StoredDocument& document() const noexcept { return document_; }
    const ScanResult& scan() const noexcept { return scan_; }
    const ApplyChoice& choice() const noexcept { return choice_; }
    const taxcore::TaxCase& taxCase() const;
    const std::vector<forms::Page>& pages() const noexcept { return pages_; }
    const forms::PageContext& pageContext() const noexcept { return context_; }
    AppStore& store() const noexcept { return store_; }

    /// Called whenever something is decided otherwise.
    std::function<void()> changed;

    // Decisions.

    void includeRecord(int record, bool included);
    void includeValue(int proposal, bool included);
    /// Sets a value's text, and includes it unless it is empty.
    void setValue(int proposal, const std::string& text);
    /// What stands in a value's field can, or cannot, be read.
    void setUnread(int proposal, bool unread);
    /// Another person; its item is the one with the same name there, or a new one.
    void setPerson(int record, int person);
    void setItem(int record, std::optional<Uuid> item);
    /// Of a statement: its total as one entry, or its entries one by one.
    void takeTotal(bool total);
    /// The case was changed elsewhere.
    void caseChanged();

    // What there is to decide about.

    /// The proposals of a record, in their order.
    const std::vector<int>& valuesOf(int record) const {
        return values_[static_cast<std::size_t>(record)];
    }
    const ProposedRecord& record(int index) const {
        return scan_.records[static_cast<std::size_t>(index)];
    }
    const Proposal& proposal(int index) const {
        return scan_.proposals[static_cast<std::size_t>(index)];
    }
    const RecordTarget& target(int record) const {
        return choice_.records[static_cast<std::size_t>(record)];
    }
    const ValueChoice& value(int proposal) const {
        return choice_.values[static_cast<std::size_t>(proposal)];
    }
    bool isOfAnotherYear(int record) const;
    /// Whether the document states a total beside the entries that it is made of.
    bool hasTotalAndEntries() const noexcept { return !totals_.empty() && !entries_.empty(); }
    bool takesTotal() const;
    /// Whether a record is no choice now: a total while the entries are taken, or the reverse.
    bool isSetAside(int record) const;

    // What would come of it.

    /// Null for a value that is left out.
    const PlannedValue* planned(int proposal) const;
    /// The field that a value goes to, as the pages declare it; absent when no page has it.
    std::optional<forms::BoundField> field(int proposal) const;
    /// What stands in the case where a value is planned; absent in a new record.
    std::optional<forms::Value> before(int proposal) const;
    /// The field of `field` as to what does not change with the target: label and kind of editor.
    const forms::BoundField* declaration(int proposal) const;
    std::optional<Sum> sum(int proposal) const;
    bool isUnreadable(int proposal) const;
    /// Another record that goes to the same item of a list, except a child, who has many documents.
    std::optional<int> rival(int record) const;
    int unreadableCount() const;
    /// Whether what is ticked of a record is an adult's whom nobody has chosen yet.
    bool lacksPerson(int record) const;
    /// Whether a new entry would come without any of the amounts that the document states for it.
    bool lacksAmount(int record) const;
    /// The first record of that sort.
    std::optional<int> withoutPerson() const { return firstThat(&ProposalDesk::lacksPerson); }
    std::optional<int> withoutAmount() const { return firstThat(&ProposalDesk::lacksAmount); }
    bool isAmount(int proposal) const;
    int includedCount(int record) const;
    /// Absent without rules.
    std::optional<Effect> effect() const;
    /// Whether there is something to take over, or something taken over to be taken back.
    bool canApply() const;
    /// In one step that can be undone.
    void apply();

  private:
    std::size_t at(int index) const { return static_cast<std::size_t>(index); }
    ApplyContext context() const;
    void sortRecords();
    /// Ticks what was taken over from the document before; false when nothing of it is there.
    bool restoreApplied();
    void plan();
    std::optional<int> firstThat(bool (ProposalDesk::*is)(int) const) const;
    std::string pathOf(int proposal) const;

    AppStore& store_;
    const StoredDocument document_;
    const ScanResult& scan_;
    const forms::PageContext context_;
    const std::vector<forms::Page> pages_;
    Decimal interestLimit_;
    std::vector<std::vector<int>> values_; ///< proposals by record
    std::set<int> totals_;                 ///< records that are totals of a statement
    std::set<int> entries_;                ///< records that such totals are made of
    std::set<int> unread_;
    ApplyChoice choice_;
    std::optional<ApplyPlan> plan_;
    std::vector<int> planned_; ///< index in the plan by proposal; -1: none
    mutable std::map<std::pair<ProposedRecord::Kind, std::string>, std::optional<forms::BoundField>>
        declarations_;
};

} // namespace fiscarel::pages
