#pragma once

#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Assets.h"
#include "TaxCore/model/Deductions.h"
#include "TaxCore/model/Income.h"
#include "TaxCore/model/Person.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/FieldPath.h"

#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

// Sums over lists of the case that tell what they are made of.

/// Calls `use(item, index)` for each item of a list; the index is what its path needs.
template <class T, class Use>
void forEachItem(const std::vector<T>& items, Use&& use) {
    int index = 0;
    for (const T& item : items) {
        use(item, index);
        ++index;
    }
}

/// How a derivation names a child: "Kind Aline", without a first name "Kind".
inline std::string childLabel(const Child& child) {
    return child.firstName.empty() ? "Kind" : "Kind " + child.firstName;
}

/// The sum of one amount over the items that count, each told as an input. `path` is that of the
/// amount, still without an index.
template <class Draft, class T, class Counts>
Decimal sumOf(Draft& why, std::string_view text, const std::vector<T>& items, Decimal T::*amount,
              const FieldPath& path, const Counts& counts) {
    Decimal sum;
    forEachItem(items, [&](const T& item, int index) {
        if (counts(item)) {
            sum += item.*amount;
            why.input(text, item.*amount, path.at(index));
        }
    });
    return sum;
}

/// The same over all items.
template <class Draft, class T>
Decimal sumOf(Draft& why, std::string_view text, const std::vector<T>& items, Decimal T::*amount,
              const FieldPath& path) {
    return sumOf(why, text, items, amount, path, [](const T&) { return true; });
}

/// Insurance premiums less the reduction received, not below 0.
template <class Draft>
Decimal premiumsPaid(Draft& why, const HouseholdDeductions& deductions) {
    const auto tell = [&](std::string_view text, const Decimal& amount, std::string_view field) {
        if (!amount.isZero()) {
            why.input(text, amount, FieldPath("householdDeductions", field));
        }
    };
    tell("Krankenversicherung", deductions.healthInsurancePremiums, "healthInsurancePremiums");
    tell("Unfallversicherung", deductions.accidentInsurancePremiums, "accidentInsurancePremiums");
    tell("Lebensversicherung", deductions.lifeInsurancePremiums, "lifeInsurancePremiums");
    tell("− individuelle Prämienverbilligung", deductions.premiumReduction, "premiumReduction");
    return notBelowZero(deductions.healthInsurancePremiums + deductions.accidentInsurancePremiums
                        + deductions.lifeInsurancePremiums - deductions.premiumReduction);
}

/// The taxable part of one person's pensions.
template <class Draft>
Decimal taxablePensions(Draft& why, int person, const PersonIncome& income) {
    Decimal taxable;
    forEachItem(income.pensions, [&](const PensionIncome& pension, int index) {
        const auto path = [&](std::string_view field) {
            return FieldPath("income", "pensions", field).of(person).at(index);
        };
        why.input("Rente im Jahr", pension.amount, path("amount"));
        why.input("davon steuerbar", pension.taxablePercent, path("taxablePercent"), Unit::percent);
        taxable += pension.amount * pension.taxablePercent / 100;
    });
    return taxable;
}

/// Tells how the value of a vehicle came about; `depreciation` tells the region's rule of it. An
/// override stands as it was entered.
template <class Draft, class Depreciation>
void explainVehicle(Draft& why, const Vehicle& vehicle, int index, const Decimal& worth,
                    const Depreciation& depreciation) {
    const auto path = [&](std::string_view field) {
        return FieldPath("vehicles", field).at(index);
    };
    if (vehicle.taxValueOverride) {
        why.input("Steuerwert wie eingetragen", worth, path("taxValueOverride"));
        return;
    }
    why.input("Kaufpreis", vehicle.purchasePrice, path("purchasePrice"));
    if (vehicle.purchaseYear) {
        why.input("Kaufjahr", *vehicle.purchaseYear, path("purchaseYear"), Unit::number);
    }
    depreciation();
    why.rounding("Auf ganze Franken");
    why.step("Zeitwert", both(worth));
}

/// What the household paid itself of the medical bills that count.
template <class Draft, class Counts>
Decimal selfPaidBills(Draft& why, const HouseholdDeductions& deductions, const Counts& counts) {
    Decimal sum;
    forEachItem(deductions.medicalCosts, [&](const MedicalCost& bill, int index) {
        if (!counts(bill)) {
            return;
        }
        sum += bill.selfPaid();
        const auto path = [&](std::string_view field) {
            return FieldPath("householdDeductions", "medicalCosts", field).at(index);
        };
        why.input("Rechnung", bill.gross, path("gross"));
        if (!bill.reimbursed.isZero()) {
            why.input("− Rückvergütung", bill.reimbursed, path("reimbursed"));
        }
    });
    return sum;
}

} // namespace taxcore
