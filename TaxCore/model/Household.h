#pragma once

#include "TaxCore/model/TaxCase.h"

namespace taxcore {

// Who and what of a case counts in a tax year. Where this and the properties of `TaxCase` part (a
// child born after the year's end), the calculation goes by what stands here.

/// Age on 31 December of the year.
int ageAtEndOf(Date birth, int year) noexcept;

/// The stage of education usual at the end of the year: kindergarten begins in the August after
/// the fourth birthday (born by 31 July), school lasts eleven years, training counts up to the year
/// of the 25th birthday. Without a birth date `schule`.
ChildEducation usualEducation(const std::optional<Date>& birth, int year) noexcept;

/// Whether the child was born by the end of the year; one born later counts nowhere in that year.
/// A missing birth date counts as born. StG SG Art. 48 Abs. 2, DBG Art. 35 Abs. 2
bool isBornBy(const Child& child, int year) noexcept;

/// Whether the child gives child deductions in the year: born by its end and in some stage of
/// education.
bool isDeductible(const Child& child, int year) noexcept;

/// How many children give child deductions in the year of the case.
int deductibleChildCount(const TaxCase& taxCase) noexcept;

/// The tariff of the household, looking only at children that count in the year.
/// StG SG Art. 50 Abs. 3, DBG Art. 36 Abs. 2 and 2bis
TariffKind tariffOf(const TaxCase& taxCase) noexcept;
/// The same for Liechtenstein: registered partners count as married. SteG Art. 19 Abs. 1
LITariffKind liTariffOf(const TaxCase& taxCase) noexcept;

/// Whether an asset is the household's: person 2's own things are not, unless taxed jointly.
/// StG SG Art. 20, DBG Art. 9
bool belongsToHousehold(const SecurityEntry& entry, const TaxCase& taxCase) noexcept;

/// Whether an entry of the register belongs to the business rather than to private wealth.
bool isBusinessAsset(const SecurityEntry& entry) noexcept;

/// Whether the entry counts as private income and wealth of the household.
bool isPrivateAsset(const SecurityEntry& entry, const TaxCase& taxCase) noexcept;

/// Whether a property lies in the canton of St.Gallen: "SG" or "St.Gallen" in any letter case; an
/// empty canton counts as at home.
bool isInStGallen(const RealEstate& property);

/// Whether the property stands in Liechtenstein, by its canton code.
bool isInLiechtenstein(const RealEstate& property) noexcept;

/// Both gross incomes of a register entry, francs.
Decimal grossIncome(const SecurityEntry& entry);

} // namespace taxcore
