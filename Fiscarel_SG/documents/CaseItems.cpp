#include "Fiscarel_SG/documents/CaseItems.h"

#include "Fiscarel_SG/documents/Likeness.h"
#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/store/ItemTitles.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <set>

namespace fiscarel {

using namespace taxcore;
using Kind = ProposedRecord::Kind;

namespace {

/// Calls `use(list, path)` with the list of the case that a kind of record stands in; not for kinds
/// that stand in none.
template <class Case, class Use>
void withList(Case& taxCase, Kind kind, int person, const Use& use) {
    auto& income = person == 2 ? taxCase.income2 : taxCase.income1;
    const std::string own = person == 2 ? "income2." : "income1.";
    auto& household = taxCase.householdDeductions;
    switch (kind) {
    case Kind::salaryCertificate:
        return use(income.salaries, own + "salaries");
    case Kind::pension:
        return use(income.pensions, own + "pensions");
    case Kind::child:
        return use(taxCase.children, "children");
    case Kind::medicalCost:
        return use(household.medicalCosts, "householdDeductions.medicalCosts");
    case Kind::donation:
        return use(household.donations, "householdDeductions.donations");
    case Kind::security:
        return use(taxCase.securities, "securities");
    case Kind::debt:
        return use(taxCase.debts, "debts");
    case Kind::insurancePolicy:
        return use(taxCase.insurances, "insurances");
    case Kind::realEstate:
        return use(taxCase.realEstate, "realEstate");
    case Kind::personIncome:
    case Kind::personDeductions:
    case Kind::householdDeductions:
        return;
    }
}

std::string fixedPath(Kind kind, int person) {
    const std::string number = person == 2 ? "2" : "1";
    return kind == Kind::personIncome       ? "income" + number
           : kind == Kind::personDeductions ? "deductions" + number
                                            : "householdDeductions";
}

/// What the document calls a record, for comparing with the items of the case.
struct Described {
    std::string name;
    std::string account;
};

Described describe(const ScanResult& scan, std::size_t record) {
    Described described{.name = sourceName(scan, record), .account = {}};
    for (const Proposal& proposal : scan.proposals) {
        if (static_cast<std::size_t>(proposal.recordIndex) != record) {
            continue;
        }
        if (proposal.field == "municipality") {
            described.name = proposal.value;
        } else if (proposal.field == "ibanOrValor") {
            described.account = compactIban(proposal.value);
        }
    }
    return described;
}

template <class T>
bool isLinkedTo(const T& item, const StoredDocument& document) {
    if constexpr (requires { item.documentID; }) {
        if (item.documentID == document.id) {
            return true;
        }
    }
    return document.applied
           && std::ranges::any_of(*document.applied, [&](const AppliedValue& value) {
                  return value.path.find(item.id.toString()) != std::string::npos;
              });
}

template <class T>
bool isTakenFromAnother(const T& item, const StoredDocument& document) {
    if constexpr (requires { item.documentID; }) {
        return item.documentID && item.documentID != document.id;
    }
    return false;
}

/// Whether an item is what the document describes, however it came into the case.
template <class T>
bool isDescribed(const T& item, const Described& described, const ProposedRecord& record) {
    if constexpr (std::is_same_v<T, Child>) {
        return isNamedIn(item.firstName, record.personName)
               && (!record.birthDate || !item.birthDate || record.birthDate == item.birthDate);
    } else if constexpr (std::is_same_v<T, SecurityEntry>) {
        return described.account.empty()
                   ? alike(item.institution, described.name) && item.ibanOrValor.empty()
                   : compactIban(item.ibanOrValor) == described.account;
    } else if constexpr (std::is_same_v<T, RealEstate>) {
        return alike(item.municipality, described.name);
    } else {
        return alike(titleOf(item), described.name);
    }
}

/// One bill or gift is one record, however often its issuer stands in the list.
template <class T>
constexpr bool isEachItsOwn = std::is_same_v<T, MedicalCost> || std::is_same_v<T, Donation>;

} // namespace

bool isOfAdult(Kind kind) {
    return kind == Kind::salaryCertificate || kind == Kind::pension || kind == Kind::personIncome
           || kind == Kind::personDeductions;
}

bool isListed(Kind kind) {
    return kind != Kind::personIncome && kind != Kind::personDeductions
           && kind != Kind::householdDeductions;
}

bool isStatementTotal(const ScanResult& scan, std::size_t record) {
    return scan.records[record].kind == Kind::security
           && std::ranges::any_of(scan.proposals, [&](const Proposal& proposal) {
                  return static_cast<std::size_t>(proposal.recordIndex) == record
                         && proposal.field == "kind"
                         && proposal.value == rawValue(AssetKind::steuerauszug);
              });
}

bool canBeNew(Kind kind) { return isListed(kind) && kind != Kind::child; }

std::vector<ItemOption> itemOptions(const TaxCase& taxCase, Kind kind, int person) {
    std::vector<ItemOption> options;
    withList(taxCase, kind, person, [&](const auto& list, const std::string&) {
        for (const auto& item : list) {
            options.push_back({item.id, titleOf(item)});
        }
    });
    return options;
}

std::string firstPlaceOf(ProposedRecord::Kind kind) {
    std::string place;
    const TaxCase taxCase;
    withList(taxCase, kind, 1,
             [&](const auto& /*list*/, const std::string& path) { place = path + "[0]"; });
    return place.empty() ? fixedPath(kind, 1) : place;
}

std::optional<ItemPlace> placeOf(TaxCase& taxCase, Kind kind, const RecordTarget& target,
                                 const Uuid& document) {
    if (!isListed(kind)) {
        return ItemPlace{fixedPath(kind, target.person), false};
    }
    std::optional<ItemPlace> place;
    withList(taxCase, kind, target.person, [&](auto& list, const std::string& path) {
        using Item = typename std::remove_cvref_t<decltype(list)>::value_type;
        auto found = target.item ? std::ranges::find(list, *target.item, &Item::id) : list.end();
        const bool isNew = !target.item && canBeNew(kind);
        if (isNew) {
            found = list.insert(list.end(), Item{});
        }
        if (found == list.end()) {
            return;
        }
        if constexpr (requires { found->documentID; }) {
            found->documentID = document;
        }
        place = ItemPlace{path + "[" + std::to_string(found - list.begin()) + "]", isNew};
    });
    return place;
}

namespace {

/// The person a record most likely belongs to.
int suggestPerson(const ApplyContext& context, std::size_t index) {
    const TaxCase& taxCase = context.taxCase;
    if (!taxCase.isJoint()) {
        return 1;
    }
    const ProposedRecord& record = context.scan.records[index];
    const auto fits = [&](const Person& person, const PersonIncome& income) {
        if (record.birthDate && person.birthDate) {
            return record.birthDate == person.birthDate ? 8 : -8;
        }
        if (!record.personName.empty()) {
            return (isNamedIn(person.firstName, record.personName) ? 4 : 0)
                   + (isNamedIn(person.lastName, record.personName) ? 1 : 0);
        }
        const std::string employer = describe(context.scan, index).name;
        return alike(person.employer, employer)
                       || std::ranges::any_of(income.salaries,
                                              [&](const SalaryCertificate& salary) {
                                                  return alike(salary.employer, employer);
                                              })
                   ? 2
                   : 0;
    };
    return fits(taxCase.person2, taxCase.income2) > fits(taxCase.person1, taxCase.income1) ? 2 : 1;
}

/// The item of the case a record most likely is, among those no other record has taken.
std::optional<Uuid> suggestItem(const ApplyContext& context, std::size_t index, int person,
                                const std::set<Uuid>& taken) {
    const ProposedRecord& record = context.scan.records[index];
    const Described described = describe(context.scan, index);
    std::optional<Uuid> suggested;
    withList(context.taxCase, record.kind, person, [&](const auto& list, const std::string&) {
        using Item = typename std::remove_cvref_t<decltype(list)>::value_type;
        // A total is no account, also where both came from the same statement.
        const auto isOfSort = [&](const Item& item) {
            if constexpr (std::is_same_v<Item, SecurityEntry>) {
                return (item.kind == AssetKind::steuerauszug)
                       == isStatementTotal(context.scan, index);
            }
            return true;
        };
        const auto search = [&](const auto& fits) {
            for (const Item& item : list) {
                if (!suggested && !taken.contains(item.id) && isOfSort(item) && fits(item)) {
                    suggested = item.id;
                }
            }
        };
        search([&](const Item& item) {
            return isLinkedTo(item, context.document) && isDescribed(item, described, record);
        });
        search([&](const Item& item) { return isLinkedTo(item, context.document); });
        search([&](const Item& item) {
            return !isEachItsOwn<Item> && !isTakenFromAnother(item, context.document)
                   && isDescribed(item, described, record);
        });
        if (std::is_same_v<Item, Child> && list.size() == 1 && record.personName.empty()) {
            suggested = list.front().id;
        }
    });
    return suggested;
}

/// Whether a record is the total of a statement whose entries stand beside it.
bool isTotalBesideEntries(const ScanResult& scan, std::size_t index) {
    if (!isStatementTotal(scan, index)) {
        return false;
    }
    for (std::size_t other = 0; other < scan.records.size(); ++other) {
        if (scan.records[other].kind == Kind::security && !isStatementTotal(scan, other)) {
            return true;
        }
    }
    return false;
}

} // namespace

ApplyChoice suggestChoice(const ApplyContext& context) {
    ApplyChoice choice;
    std::set<Uuid> taken;
    for (std::size_t i = 0; i < context.scan.records.size(); ++i) {
        const ProposedRecord& record = context.scan.records[i];
        RecordTarget& target = choice.records.emplace_back();
        target.person = isOfAdult(record.kind) ? suggestPerson(context, i) : 1;
        target.item = suggestItem(context, i, target.person, taken);
        if (target.item && record.kind != Kind::child) {
            taken.insert(*target.item);
        }
        target.isIncluded = !isTotalBesideEntries(context.scan, i)
                            && (!isListed(record.kind) || target.item || canBeNew(record.kind));
    }
    for (const Proposal& proposal : context.scan.proposals) {
        choice.values.push_back({true, proposal.value});
    }
    return choice;
}

} // namespace fiscarel
