#include "Fiscarel_SG/outputs/EntrySources.h"

#include "Fiscarel_SG/store/DocumentLinks.h"
#include "Fiscarel_SG/store/ItemTitles.h"

#include <algorithm>
#include <iterator>

namespace fiscarel::outputs {

namespace {

using namespace taxcore;

std::string joined(const std::string& first, const std::string& second) {
    return first + (first.empty() || second.empty() ? "" : ", ") + second;
}

/// The person whose record a path begins with, 1 or 2; 0 for the household's.
std::size_t personOf(std::string_view path) {
    const std::string_view first = path.substr(0, path.find_first_of(".["));
    return first.ends_with('1') ? 1 : (first.ends_with('2') ? 2 : 0);
}

} // namespace

template <class Record>
void EntrySources::addItems(const std::string& list, const std::vector<Record>& records) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        Item item{titleOf(records[i]), std::nullopt};
        if constexpr (requires { records[i].documentID; }) {
            item.document = records[i].documentID;
        }
        items_.emplace(list + "[" + std::to_string(i) + "]", std::move(item));
    }
}

void EntrySources::addPerson(int number, const PersonIncome& income) {
    const std::string record = "income" + std::to_string(number);
    addItems(record + ".salaries", income.salaries);
    addItems(record + ".pensions", income.pensions);
}

void EntrySources::addHousehold(const TaxCase& taxCase) {
    const HouseholdDeductions& deductions = taxCase.householdDeductions;
    addItems("children", taxCase.children);
    addItems("securities", taxCase.securities);
    addItems("insurances", taxCase.insurances);
    addItems("vehicles", taxCase.vehicles);
    addItems("realEstate", taxCase.realEstate);
    addItems("debts", taxCase.debts);
    addItems("capitalPayments", taxCase.capitalPayments);
    addItems("householdDeductions.medicalCosts", deductions.medicalCosts);
    addItems("householdDeductions.donations", deductions.donations);
}

EntrySources::EntrySources(const TaxCase& taxCase, const std::vector<StoredDocument>& documents) {
    std::ranges::copy_if(
        documents, std::back_inserter(documents_),
        [&](const StoredDocument& document) { return document.year == taxCase.year; });
    addPerson(1, taxCase.income1);
    addPerson(2, taxCase.income2);
    addHousehold(taxCase);
    if (taxCase.isJoint()) {
        persons_ = {taxCase.person1.displayName(), taxCase.person2.displayName()};
    }
    int number = 0;
    for (const StoredDocument& document : documents_) {
        ++number;
        for (const std::string& path : appliedPaths(taxCase, document)) {
            applied_[path].insert(number);
        }
    }
}

const EntrySources::Item* EntrySources::itemAt(std::string_view path) const {
    const auto found = items_.find(path.substr(0, path.rfind(']') + 1));
    return found == items_.end() ? nullptr : &found->second;
}

std::string EntrySources::ownerOf(std::string_view path) const {
    const std::size_t person = personOf(path);
    const Item* const item = itemAt(path);
    return joined(person > 0 && person <= persons_.size() ? persons_[person - 1] : std::string(),
                  item != nullptr ? item->name : std::string());
}

std::set<int> EntrySources::documentsOf(std::string_view path) const {
    std::set<int> numbers;
    if (const auto found = applied_.find(path); found != applied_.end()) {
        numbers = found->second;
    }
    const Item* const item = itemAt(path);
    if (const int number = item != nullptr ? numberOf(item->document) : 0; number > 0) {
        numbers.insert(number);
    }
    return numbers;
}

std::set<int> EntrySources::documentsOf(const Derivation& derivation) const {
    std::set<int> numbers;
    for (const DerivationStep& step : derivation.steps) {
        if (step.path) {
            numbers.merge(documentsOf(*step.path));
        }
    }
    return numbers;
}

int EntrySources::numberOf(const std::optional<Uuid>& document) const {
    const auto found =
        document ? std::ranges::find(documents_, *document, &StoredDocument::id) : documents_.end();
    return found == documents_.end() ? 0 : static_cast<int>(found - documents_.begin()) + 1;
}

std::string numberList(const std::set<int>& numbers) {
    std::string text;
    for (const int number : numbers) {
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    }
    return text;
}

} // namespace fiscarel::outputs
