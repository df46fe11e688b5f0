#include "Fiscarel_SG/documents/CaseItems.h"

#include "Fiscarel_SG/documents/Likeness.h"
#include "Fiscarel_SG/documents/PersonFit.h"
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
    if (person == 0 && isOfAdult(kind)) {
        return; // nobody's yet
    }
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
    if (target.person == 0 && isOfAdult(kind)) {
        return std::nullopt;
    }
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

bool isInRecord(const Proposal& proposal, std::size_t record) {
    return static_cast<std::size_t>(proposal.recordIndex) == record;
}

/// Whom a record went to when the document was applied: the person who has most of its values from
/// there; absent when neither has more. Values that were edited then count where those that were
/// not tell nobody, unless they are what another record states.
std::optional<int> appliedPerson(const ApplyContext& context, std::size_t index) {
    if (!context.document.applied) {
        return std::nullopt;
    }
    const Kind kind = context.scan.records[index].kind;
    const auto isAnothers = [&](const AppliedValue& one) {
        return std::ranges::any_of(context.scan.proposals, [&](const Proposal& other) {
            return !isInRecord(other, index) && one.path.ends_with("." + other.field)
                   && one.value == other.value;
        });
    };
    const auto count = [&](int person, bool asRead) {
        std::string own = fixedPath(kind, person) + ".";
        withList(context.taxCase, kind, person,
                 [&](const auto&, const std::string& path) { own = path + "["; });
        return std::ranges::count_if(context.scan.proposals, [&](const Proposal& proposal) {
            return isInRecord(proposal, index)
                   && std::ranges::any_of(*context.document.applied, [&](const AppliedValue& one) {
                          return one.path.starts_with(own)
                                 && one.path.ends_with("." + proposal.field)
                                 && (asRead ? one.value == proposal.value : !isAnothers(one));
                      });
        });
    };
    for (const bool asRead : {true, false}) {
        const auto first = count(1, asRead);
        const auto second = count(2, asRead);
        if (first != second) {
            return first > second ? 1 : 2;
        }
    }
    return std::nullopt;
}

/// Who has worked for the employer that a record names; absent when both or neither.
std::optional<int> employedPerson(const ApplyContext& context, std::size_t index) {
    const std::string employer = describe(context.scan, index).name;
    const auto isOf = [&](const Person& person, const PersonIncome& income) {
        return alike(person.employer, employer)
               || std::ranges::any_of(income.salaries, [&](const SalaryCertificate& salary) {
                      return alike(salary.employer, employer);
                  });
    };
    const TaxCase& taxCase = context.taxCase;
    const bool isFirst = isOf(taxCase.person1, taxCase.income1);
    const bool isSecond = isOf(taxCase.person2, taxCase.income2);
    return isFirst == isSecond ? std::nullopt : std::optional(isFirst ? 1 : 2);
}

/// Whose a record is by what it tells itself; 0: somebody's whom only the user can say; absent when
/// it tells nothing.
std::optional<int> toldPerson(const ApplyContext& context, std::size_t index) {
    if (const auto applied = appliedPerson(context, index)) {
        return applied;
    }
    switch (namedAdult(context.taxCase, context.scan.records[index])) {
    case NamedAdult::first:
        return 1;
    case NamedAdult::second:
        return 2;
    case NamedAdult::both:
    case NamedAdult::nobody:
    case NamedAdult::unknown:
        return 0;
    case NamedAdult::none:
        break;
    }
    return employedPerson(context, index);
}

/// The persons that records of adults most likely belong to, 0 where the user must say it. What
/// tells nobody is of the one the rest of the document is of, else of person 1. Records that name
/// different people never go to the same one.
std::vector<int> suggestPersons(const ApplyContext& context) {
    const auto& records = context.scan.records;
    std::vector<int> persons(records.size(), 1);
    if (!context.taxCase.isJoint()) {
        return persons;
    }
    std::vector<std::optional<int>> told(records.size());
    std::set<int> all;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!isOfAdult(records[i].kind)) {
            continue;
        }
        told[i] = toldPerson(context, i);
        for (std::size_t before = 0; before < i; ++before) {
            if (told[i] && told[before] == told[i]
                && nameDifferentPeople(records[i], records[before])) {
                told[i] = 0;
            }
        }
        if (told[i]) {
            all.insert(*told[i]);
        }
    }
    const int rest = all.size() == 1 ? *all.begin() : all.empty() ? 1 : 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (isOfAdult(records[i].kind)) {
            persons[i] = told[i].value_or(rest);
        }
    }
    return persons;
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
    const std::vector<int> persons = suggestPersons(context);
    for (std::size_t i = 0; i < context.scan.records.size(); ++i) {
        const ProposedRecord& record = context.scan.records[i];
        RecordTarget& target = choice.records.emplace_back();
        target.person = persons[i];
        target.item = suggestItem(context, i, target.person, taken);
        if (target.item && record.kind != Kind::child) {
            taken.insert(*target.item);
        }
        // Of one adult alone nobody can be asked whose it is, but whether it is theirs.
        const bool isStrangers = isOfAdult(record.kind) && !context.taxCase.isJoint()
                                 && !context.document.isApplied
                                 && namedAdult(context.taxCase, record) == NamedAdult::nobody;
        target.isIncluded = !isTotalBesideEntries(context.scan, i) && !isStrangers
                            && (!isListed(record.kind) || target.item || canBeNew(record.kind));
    }
    for (const Proposal& proposal : context.scan.proposals) {
        choice.values.push_back({true, proposal.value});
    }
    return choice;
}

} // namespace fiscarel
