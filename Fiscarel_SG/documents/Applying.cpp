#include "Fiscarel_SG/documents/Applying.h"

#include "Fiscarel_SG/documents/CaseItems.h"

#include <algorithm>
#include <map>
#include <utility>

namespace fiscarel {

using namespace taxcore;
using Kind = ProposedRecord::Kind;

namespace {

constexpr std::string_view withWithholding = "incomeWithWithholding";
constexpr std::string_view withoutWithholding = "incomeWithoutWithholding";

/// Whether the amounts of several documents come together in one field.
bool isSummed(Kind kind) { return !isListed(kind) || kind == Kind::child; }

/// Takes the values of a document over, one record after the other.
class Application {
  public:
    Application(const ApplyContext& context, const ApplyChoice& choice)
        : context_(context), choice_(choice), plan_{context.taxCase, {}, {}} {
        for (const StoredDocument& document : context.documents) {
            if (document.id != context.document.id && document.applied
                && document.year == context.taxCase.year) {
                addShares(*document.applied);
            }
        }
    }

    ApplyPlan run() {
        removeOtherForm();
        placeRecords();
        for (std::size_t i = 0; i < context_.scan.proposals.size(); ++i) {
            write(i);
        }
        withdrawFormerShares();
        leaveComputedNet();
        return std::move(plan_);
    }

  private:
    void addShares(const std::vector<AppliedValue>& applied) {
        for (const AppliedValue& value : applied) {
            const auto path = countedPath(context_.taxCase, value.path);
            const auto amount = Decimal::parse(value.value);
            if (path && amount) {
                shares_[*path] += *amount;
            }
        }
    }

    /// The entries of a statement go when its total is taken over, and the reverse.
    void removeOtherForm() {
        bool takesTotal = false;
        bool takesEntries = false;
        for (std::size_t i = 0; i < context_.scan.records.size(); ++i) {
            if (context_.scan.records[i].kind == Kind::security && choice_.records[i].isIncluded
                && isWanted(i)) {
                (isStatementTotal(context_.scan, i) ? takesTotal : takesEntries) = true;
            }
        }
        if (takesTotal == takesEntries) {
            return;
        }
        std::erase_if(plan_.taxCase.securities, [&](const SecurityEntry& entry) {
            return entry.documentID == context_.document.id
                   && (entry.kind == AssetKind::steuerauszug) != takesTotal && !isTarget(entry.id);
        });
    }

    bool isTarget(const Uuid& item) const {
        return std::ranges::any_of(choice_.records, [&](const RecordTarget& target) {
            return target.isIncluded && target.item == item;
        });
    }

    /// Finds each record its place in the case, making new items where they are wanted.
    void placeRecords() {
        for (std::size_t i = 0; i < context_.scan.records.size(); ++i) {
            const ProposedRecord& record = context_.scan.records[i];
            const RecordTarget& target = choice_.records[i];
            places_.push_back(target.isIncluded && isWanted(i) ? placeOf(
                                  plan_.taxCase, record.kind, target, context_.document.id)
                                                               : std::nullopt);
        }
    }

    bool isWanted(std::size_t record) const {
        for (std::size_t i = 0; i < context_.scan.proposals.size(); ++i) {
            if (choice_.values[i].isIncluded
                && static_cast<std::size_t>(context_.scan.proposals[i].recordIndex) == record) {
                return true;
            }
        }
        return false;
    }

    void write(std::size_t index) {
        const Proposal& proposal = context_.scan.proposals[index];
        const auto record = static_cast<std::size_t>(proposal.recordIndex);
        if (record >= places_.size() || !places_[record] || !choice_.values[index].isIncluded) {
            return;
        }
        const ItemPlace& place = *places_[record];
        const std::string& text = choice_.values[index].value;
        PlannedValue planned{.proposal = static_cast<int>(index),
                             .path = place.path + "." + std::string(fieldOf(index))};
        const auto now = valueAt(plan_.taxCase, planned.path);
        // Items may have moved up, so they are found by identity.
        planned.before =
            place.isNew
                ? std::nullopt
                : valueAt(context_.taxCase, lastingPath(plan_.taxCase, planned.path).value_or(""));
        std::string whole = text;
        const auto amount = Decimal::parse(text);
        if (isSummed(context_.scan.records[record].kind) && amount && now
            && (*now == "null" || Decimal::parse(*now))) {
            Decimal& sum = shares_[planned.path];
            planned.outcome =
                sum == 0 ? PlannedValue::Outcome::written : PlannedValue::Outcome::added;
            sum += *amount;
            whole = sum.toString();
        }
        if (setValueAt(plan_.taxCase, planned.path, whole)) {
            planned.after = valueAt(plan_.taxCase, planned.path).value_or("");
            plan_.applied.push_back({.path = lastingPath(plan_.taxCase, planned.path).value(),
                                     .value = text,
                                     .page = proposal.page,
                                     .box = proposal.box});
        } else {
            planned.path.clear();
            planned.outcome = PlannedValue::Outcome::unreadable;
        }
        plan_.values.push_back(std::move(planned));
    }

    /// The field a proposal is written to: interest above the limit has had withholding tax taken
    /// off, also when the paper does not say so.
    std::string_view fieldOf(std::size_t index) const {
        const Proposal& proposal = context_.scan.proposals[index];
        if (proposal.field != withoutWithholding || proposal.witness == Proposal::Witness::payload
            || context_.scan.records[static_cast<std::size_t>(proposal.recordIndex)].kind
                   != Kind::security) {
            return proposal.field;
        }
        const bool isSplit =
            std::ranges::any_of(context_.scan.proposals, [&](const Proposal& other) {
                return other.recordIndex == proposal.recordIndex && other.field == withWithholding;
            });
        const auto amount = Decimal::parse(choice_.values[index].value);
        return !isSplit && amount && *amount > context_.interestLimit ? withWithholding
                                                                      : withoutWithholding;
    }

    /// Takes the document's share out of sums it was applied to before and is no longer, unless
    /// they have been changed by hand.
    void withdrawFormerShares() {
        for (const AppliedValue& former :
             context_.document.applied.value_or(std::vector<AppliedValue>())) {
            const auto path = countedPath(plan_.taxCase, former.path);
            const auto share = Decimal::parse(former.value);
            const bool isWrittenAgain = std::ranges::any_of(
                plan_.values, [&](const PlannedValue& value) { return value.path == path; });
            if (!path || !share || isWrittenAgain
                || (path->find('[') != std::string::npos && !path->starts_with("children["))) {
                continue;
            }
            const Decimal others = shares_[*path];
            if (valueAt(plan_.taxCase, *path) == (others + *share).toString()) {
                setValueAt(plan_.taxCase, *path, others.toString());
            }
        }
    }

    /// Box 11 replaces the computed net salary only where it differs.
    void leaveComputedNet() {
        for (PlannedValue& planned : plan_.values) {
            if (!planned.path.ends_with(".netSalaryOverride")) {
                continue;
            }
            for (auto* const income : {&plan_.taxCase.income1, &plan_.taxCase.income2}) {
                for (SalaryCertificate& salary : income->salaries) {
                    const auto path =
                        lastingPath(plan_.taxCase, planned.path).value_or(std::string());
                    if (path.find(salary.id.toString()) != std::string::npos) {
                        dropComputed(salary, planned, path);
                    }
                }
            }
        }
    }

    void dropComputed(SalaryCertificate& salary, PlannedValue& planned, const std::string& path) {
        const auto stated = std::exchange(salary.netSalaryOverride, std::nullopt);
        if (stated != salary.netSalary()) {
            salary.netSalaryOverride = stated;
            return;
        }
        planned.outcome = PlannedValue::Outcome::isComputed;
        std::erase_if(plan_.applied, [&](const AppliedValue& value) { return value.path == path; });
    }

    const ApplyContext& context_;
    const ApplyChoice& choice_;
    ApplyPlan plan_;
    std::vector<std::optional<ItemPlace>> places_;
    std::map<std::string, Decimal> shares_; ///< sums over documents, by path
};

} // namespace

ApplyPlan planApplying(const ApplyContext& context, const ApplyChoice& choice) {
    return Application(context, choice).run();
}

} // namespace fiscarel
