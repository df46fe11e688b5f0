#pragma once

#include "TaxCore/base/Json.h"
#include "TaxCore/model/Assets.h"
#include "TaxCore/model/Deductions.h"
#include "TaxCore/model/Income.h"
#include "TaxCore/model/LIExtras.h"
#include "TaxCore/model/Person.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// The complete input of one household and tax year. A plain value: calculators read it and never
/// change it; it never holds a result. `TaxCase{.year = 2025}` is a new case with its initial
/// values.
struct TaxCase {
    int year = 0;                         ///< the year whose income is declared
    std::string municipality = "Sevelen"; ///< of residence on 31 December
    std::optional<std::string> parish;    ///< absent: none chosen
    std::string registerNumber;
    CivilStatus civilStatus = CivilStatus::verheiratet; ///< on 31 December
    Person person1;
    Person person2; ///< kept, but ignored unless the household is joint
    std::vector<Child> children;
    PersonIncome income1;
    PersonIncome income2;
    HouseholdIncome householdIncome;
    PersonDeductions deductions1;
    PersonDeductions deductions2;
    HouseholdDeductions householdDeductions;
    std::vector<SecurityEntry> securities;
    Decimal cash; ///< cash and precious metals, francs
    std::vector<InsurancePolicy> insurances;
    std::vector<Vehicle> vehicles;
    Decimal undividedEstatesWealth; ///< share of undivided estates, francs
    Decimal otherAssets;
    std::string otherAssetsDescription;
    std::vector<RealEstate> realEstate;
    Decimal businessAssets; ///< of the self-employed, francs
    std::vector<Debt> debts;
    std::vector<CapitalPayment> capitalPayments;
    std::string iban;                ///< account for refunds
    std::optional<TaxRegion> region; ///< absent: St.Gallen
    std::optional<LIExtras> li;      ///< absent: defaults

    bool isJoint() const noexcept { return taxcore::isJoint(civilStatus); }

    /// Person 1, and person 2 in a joint household.
    std::vector<std::reference_wrapper<const Person>> persons() const;

    // The household as it is entered. A calculation for a year goes by `Household.h`, which leaves
    // out a child born only after that year; for all others both agree.

    /// The children in a stage of education other than `keine`, in list order; `livesInHousehold`
    /// does not matter.
    std::vector<std::reference_wrapper<const Child>> deductibleChildren() const;

    /// Not joint, with at least one deductible child.
    bool isSingleParent() const noexcept;

    /// `joint` for joint households and single parents. StG SG Art. 50, DBG Art. 36 Abs. 2 and 2bis
    TariffKind tariffKind() const noexcept;

    TaxRegion taxRegion() const noexcept { return region.value_or(TaxRegion::stGallen); }

    /// The Liechtenstein inputs, or their defaults when there are none.
    LIExtras liExtras() const { return li.value_or(LIExtras{}); }
    void setLiExtras(LIExtras extras) { li = std::move(extras); }

    bool operator==(const TaxCase&) const = default;
};
TAXCORE_RECORD(TaxCase, year, municipality, parish, registerNumber, civilStatus, person1, person2,
               children, income1, income2, householdIncome, deductions1, deductions2,
               householdDeductions, securities, cash, insurances, vehicles, undividedEstatesWealth,
               otherAssets, otherAssetsDescription, realEstate, businessAssets, debts,
               capitalPayments, iban, region, li);

extern template tl::expected<TaxCase, JsonError> fromJson<TaxCase>(std::string_view, JsonGaps);
extern template tl::expected<void, JsonError> patchFromJson<TaxCase>(TaxCase&, std::string_view);
extern template std::string toJson<TaxCase>(const TaxCase&, JsonStyle);

/// One field that differs between two cases.
struct FieldChange {
    std::string path; ///< "income1.salaries[0].grossSalary"; list positions are those after
    std::optional<std::string> before; ///< JSON text; absent when the item or value is new
    std::optional<std::string> after;  ///< JSON text; absent when it is gone

    bool operator==(const FieldChange&) const = default;
};

/// Every field that differs, in declaration order. Items of lists are matched by their identity, so
/// that inserting one is one change; an item that moved without changing is none.
std::vector<FieldChange> diff(const TaxCase& before, const TaxCase& after);

/// Makes in `target` the change that leads from one case to another, field by field, items of lists
/// by their identity. False, with the target unchanged, when a field concerned no longer holds what
/// it held in `from`.
bool rebase(const TaxCase& from, const TaxCase& to, TaxCase& target);

// Paths name items of lists by position, "debts[0].amount", or by identity, "debts[<UUID>].amount",
// which stays right when items come, go or move.

/// The value at a field path as JSON text; absent when the path leads nowhere.
std::optional<std::string> valueAt(const TaxCase& taxCase, std::string_view path);

/// Writes the field at a path: amounts and numbers with a point and without grouping, dates as
/// 2025-12-31, "true" and "false", enumerations by their raw text. False, with the case unchanged,
/// when the path leads to no such field or the text is no value of it.
bool setValueAt(TaxCase& taxCase, std::string_view path, std::string_view text);

/// A path with items named by their identity; absent when it leads nowhere.
std::optional<std::string> lastingPath(const TaxCase& taxCase, std::string_view path);
/// A path with items named by their position; absent when it leads nowhere.
std::optional<std::string> countedPath(const TaxCase& taxCase, std::string_view path);

} // namespace taxcore
