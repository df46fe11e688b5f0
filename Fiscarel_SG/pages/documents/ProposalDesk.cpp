#include "Fiscarel_SG/pages/documents/ProposalDesk.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/documents/CaseItems.h"
#include "Fiscarel_SG/documents/Likeness.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"
#include "TaxCore/review/Advisor.h"

#include <algorithm>

namespace fiscarel::pages {

using namespace taxcore;
using Outcome = PlannedValue::Outcome;

ProposalDesk::ProposalDesk(AppStore& store, StoredDocument document, const ScanResult& scan)
    : store_(store), document_(std::move(document)), scan_(scan),
      context_(pages::pageContext(store)), pages_(inputPages(context_)),
      // Outside Switzerland no interest has the Swiss tax withheld without the paper saying so.
      interestLimit_(context_.stGallen != nullptr
                         ? context_.stGallen->cantonalExtra.verrechnungssteuerFreigrenzeZins
                         : Decimal::largest()) {
    sortRecords();
    choice_ = suggestChoice(context());
    if (!restoreApplied()) {
        for (std::size_t i = 0; i < scan_.proposals.size(); ++i) {
            choice_.values[i].isIncluded = isTrusted(scan_.proposals[i]);
        }
        for (std::size_t i = 0; i < scan_.records.size(); ++i) {
            choice_.records[i].isIncluded =
                choice_.records[i].isIncluded && !isOfAnotherYear(static_cast<int>(i));
        }
    }
    plan();
}

const TaxCase& ProposalDesk::taxCase() const { return store_.current(); }

ApplyContext ProposalDesk::context() const {
    return {store_.current(), store_.documents(), document_, scan_, interestLimit_};
}

void ProposalDesk::sortRecords() {
    values_.resize(scan_.records.size());
    for (std::size_t i = 0; i < scan_.proposals.size(); ++i) {
        const auto record = static_cast<std::size_t>(scan_.proposals[i].recordIndex);
        if (record < values_.size()) {
            values_[record].push_back(static_cast<int>(i));
        }
    }
    for (std::size_t i = 0; i < scan_.records.size(); ++i) {
        if (scan_.records[i].kind == ProposedRecord::Kind::security) {
            (isStatementTotal(scan_, i) ? totals_ : entries_).insert(static_cast<int>(i));
        }
    }
}

bool ProposalDesk::restoreApplied() {
    if (!document_.applied) {
        return false;
    }
    ApplyChoice all = choice_;
    for (RecordTarget& target : all.records) {
        target.isIncluded = true;
    }
    const ApplyPlan whole = planApplying(context(), all);
    std::vector<AppliedValue> left = *document_.applied;
    std::set<int> restored; // records
    std::set<int> found;    // proposals
    ApplyChoice then = choice_;
    for (const PlannedValue& planned : whole.values) {
        const auto path = lastingPath(whole.taxCase, planned.path);
        const auto applied = std::ranges::find_if(
            left, [&](const AppliedValue& value) { return path && value.path == *path; });
        if (applied != left.end()) {
            then.values[at(planned.proposal)].value = applied->value;
            found.insert(planned.proposal);
            restored.insert(proposal(planned.proposal).recordIndex);
            left.erase(applied);
        }
    }
    for (const PlannedValue& planned : whole.values) {
        // Nothing was written for what the return computes; it had been ticked all the same.
        if (planned.outcome == Outcome::isComputed) {
            found.insert(planned.proposal);
        }
    }
    for (std::size_t i = 0; i < then.values.size(); ++i) {
        const int index = static_cast<int>(i);
        // What nothing was taken from before starts like that of a new document.
        then.values[i].isIncluded = restored.contains(proposal(index).recordIndex)
                                        ? found.contains(index)
                                        : isTrusted(proposal(index));
    }
    for (std::size_t i = 0; i < then.records.size(); ++i) {
        then.records[i].isIncluded = restored.contains(static_cast<int>(i));
    }
    if (restored.empty()) {
        return false;
    }
    choice_ = std::move(then);
    return true;
}

void ProposalDesk::plan() {
    plan_ = planApplying(context(), choice_);
    planned_.assign(scan_.proposals.size(), -1);
    for (std::size_t i = 0; i < plan_->values.size(); ++i) {
        planned_[at(plan_->values[i].proposal)] = static_cast<int>(i);
    }
    if (changed) {
        changed();
    }
}

void ProposalDesk::includeRecord(int record, bool included) {
    if (choice_.records[at(record)].isIncluded == included) {
        return;
    }
    choice_.records[at(record)].isIncluded = included;
    if (included && includedCount(record) == 0) { // nothing of it would come otherwise
        for (const int value : valuesOf(record)) {
            choice_.values[at(value)].isIncluded = isTrusted(proposal(value));
        }
    }
    plan();
}

void ProposalDesk::includeValue(int proposal, bool included) {
    ValueChoice& value = choice_.values[at(proposal)];
    if (value.isIncluded != included) {
        value.isIncluded = included;
        plan();
    }
}

void ProposalDesk::setValue(int proposal, const std::string& text) {
    unread_.erase(proposal);
    choice_.values[at(proposal)] = {!text.empty(), text};
    plan();
}

void ProposalDesk::setUnread(int proposal, bool unread) {
    if (unread != unread_.contains(proposal)) {
        if (unread) {
            unread_.insert(proposal);
            choice_.values[at(proposal)].isIncluded = true;
        } else {
            unread_.erase(proposal);
        }
        plan();
    }
}

void ProposalDesk::setPerson(int record, int person) {
    RecordTarget& target = choice_.records[at(record)];
    const auto kind = scan_.records[at(record)].kind;
    std::string name;
    for (const ItemOption& option : itemOptions(taxCase(), kind, target.person)) {
        if (option.id == target.item) {
            name = option.title;
        }
    }
    target.person = person;
    target.item.reset();
    for (const ItemOption& option : itemOptions(taxCase(), kind, person)) {
        const bool isNamed =
            alike(option.title, name) || std::ranges::any_of(valuesOf(record), [&](int value) {
                return alike(option.title, this->value(value).value);
            });
        if (!target.item && isNamed) {
            target.item = option.id;
        }
    }
    plan();
}

void ProposalDesk::setItem(int record, std::optional<Uuid> item) {
    RecordTarget& target = choice_.records[at(record)];
    target.item = item;
    target.isIncluded = target.isIncluded || target.item;
    plan();
}

void ProposalDesk::takeTotal(bool total) {
    for (const int record : totals_) {
        choice_.records[at(record)].isIncluded = total;
    }
    for (const int record : entries_) {
        choice_.records[at(record)].isIncluded = !total && !isOfAnotherYear(record);
    }
    plan();
}

void ProposalDesk::caseChanged() { plan(); }

bool ProposalDesk::isOfAnotherYear(int record) const {
    const auto& year = scan_.records[at(record)].year;
    return year && *year != taxCase().year;
}

bool ProposalDesk::takesTotal() const {
    return std::ranges::any_of(totals_, [&](int record) { return target(record).isIncluded; });
}

bool ProposalDesk::isSetAside(int record) const {
    return hasTotalAndEntries() && (takesTotal() ? entries_ : totals_).contains(record);
}

const PlannedValue* ProposalDesk::planned(int proposal) const {
    const int index = planned_[at(proposal)];
    return index >= 0 ? &plan_->values[at(index)] : nullptr;
}

/// In the plan, or where it would be if it were included.
std::string ProposalDesk::pathOf(int proposal) const {
    if (const PlannedValue* const value = planned(proposal); value && !value->path.empty()) {
        return value->path;
    }
    const Proposal& proposed = this->proposal(proposal);
    const auto kind = record(proposed.recordIndex).kind;
    TaxCase scratch = taxCase();
    RecordTarget where = target(proposed.recordIndex);
    where.person = std::max(where.person, 1); // both have the same fields
    const auto place = placeOf(scratch, kind, where, document_.id);
    // A child nobody has chosen yet is called like the first.
    return (place ? place->path : std::string("children[0]")) + "." + proposed.field;
}

std::optional<forms::BoundField> ProposalDesk::field(int proposal) const {
    return forms::fieldWithPath(pages_, pathOf(proposal));
}

std::optional<forms::Value> ProposalDesk::before(int proposal) const {
    const PlannedValue* const value = planned(proposal);
    if (value == nullptr || !value->before) {
        return std::nullopt;
    }
    // Items before it may go, so its position there can be another one.
    const auto path = countedPath(taxCase(), lastingPath(plan_->taxCase, value->path).value_or(""));
    const auto found = path ? forms::fieldWithPath(pages_, *path) : std::nullopt;
    return found ? std::optional(found->get(taxCase())) : std::nullopt;
}

const forms::BoundField* ProposalDesk::declaration(int proposal) const {
    const Proposal& proposed = this->proposal(proposal);
    const auto key = std::pair(record(proposed.recordIndex).kind, proposed.field);
    auto found = declarations_.find(key);
    if (found == declarations_.end()) {
        found = declarations_.emplace(key, field(proposal)).first;
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<ProposalDesk::Sum> ProposalDesk::sum(int proposal) const {
    const PlannedValue* const value = planned(proposal);
    const auto total = value ? Decimal::parse(value->after) : tl::unexpected(DecimalFault::syntax);
    if (value == nullptr || value->outcome != Outcome::added || !total) {
        return std::nullopt;
    }
    Sum sum{.documents = 1, .total = *total};
    for (const StoredDocument& other : store_.documents()) {
        const bool isPart =
            other.id != document_.id && other.year == taxCase().year && other.applied
            && std::ranges::any_of(*other.applied, [&](const AppliedValue& applied) {
                   return countedPath(plan_->taxCase, applied.path) == value->path;
               });
        sum.documents += isPart ? 1 : 0;
    }
    return sum;
}

bool ProposalDesk::isUnreadable(int proposal) const {
    const PlannedValue* const value = planned(proposal);
    return value != nullptr
           && (value->outcome == Outcome::unreadable || unread_.contains(proposal));
}

std::optional<int> ProposalDesk::rival(int record) const {
    const RecordTarget& own = target(record);
    for (std::size_t i = 0; i < scan_.records.size() && own.isIncluded && own.item; ++i) {
        const RecordTarget& other = choice_.records[i];
        if (static_cast<int>(i) != record && other.isIncluded && other.item == own.item
            && scan_.records[i].kind != ProposedRecord::Kind::child) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

int ProposalDesk::unreadableCount() const {
    return static_cast<int>(std::ranges::count_if(
        plan_->values, [&](const PlannedValue& value) { return isUnreadable(value.proposal); }));
}

int ProposalDesk::includedCount(int record) const {
    return static_cast<int>(std::ranges::count_if(
        valuesOf(record), [&](int proposal) { return value(proposal).isIncluded; }));
}

bool ProposalDesk::lacksPerson(int record) const {
    return target(record).isIncluded && target(record).person == 0 && includedCount(record) > 0;
}

bool ProposalDesk::isAmount(int proposal) const {
    const forms::BoundField* const field = declaration(proposal);
    return field != nullptr && field->editor == forms::Editor::amount;
}

bool ProposalDesk::lacksAmount(int record) const {
    const auto& values = valuesOf(record);
    const auto isTaken = [&](int index) {
        return isAmount(index) && value(index).isIncluded && !value(index).value.empty();
    };
    // An entry that is there already may be completed by other things than its amount.
    return target(record).isIncluded && !target(record).item && includedCount(record) > 0
           && std::ranges::any_of(values, [&](int index) { return isAmount(index); })
           && std::ranges::none_of(values, isTaken);
}

std::optional<int> ProposalDesk::firstThat(bool (ProposalDesk::*is)(int) const) const {
    for (std::size_t i = 0; i < scan_.records.size(); ++i) {
        if ((this->*is)(static_cast<int>(i))) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

std::optional<ProposalDesk::Effect> ProposalDesk::effect() const {
    const CaseCalculator* const calculator = store_.calculator();
    if (calculator == nullptr) {
        return std::nullopt;
    }
    return Effect{Advisor::totalTax(calculator->calculate(taxCase())),
                  Advisor::totalTax(calculator->calculate(plan_->taxCase))};
}

bool ProposalDesk::canApply() const {
    return unreadableCount() == 0 && document_.year == taxCase().year && !withoutPerson()
           && !withoutAmount() && (!plan_->values.empty() || document_.applied);
}

void ProposalDesk::apply() { store_.applyDocument(document_.id, plan_->taxCase, plan_->applied); }

} // namespace fiscarel::pages
