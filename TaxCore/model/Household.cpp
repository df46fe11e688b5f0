#include "TaxCore/model/Household.h"

#include "TaxCore/base/Text.h"

#include <algorithm>

namespace taxcore {

int ageAtEndOf(Date birth, int year) noexcept { return year - birth.year(); }

ChildEducation usualEducation(const std::optional<Date>& birth, int year) noexcept {
    constexpr int kindergartenAge = 4;
    constexpr int lastMonthOfIntake = 7;
    constexpr int schoolYears = 11;
    constexpr int trainingUntilAge = 25;
    if (!birth) {
        return ChildEducation::schule;
    }
    const int begins =
        birth->year() + kindergartenAge + (birth->month() > lastMonthOfIntake ? 1 : 0);
    if (year < begins) {
        return ChildEducation::vorschule;
    }
    if (year < begins + schoolYears) {
        return ChildEducation::schule;
    }
    return year <= birth->year() + trainingUntilAge ? ChildEducation::ausbildung
                                                    : ChildEducation::keine;
}

bool isBornBy(const Child& child, int year) noexcept {
    return !child.birthDate || child.birthDate->year() <= year;
}

bool isDeductible(const Child& child, int year) noexcept {
    return child.education != ChildEducation::keine && isBornBy(child, year);
}

int deductibleChildCount(const TaxCase& taxCase) noexcept {
    return static_cast<int>(std::ranges::count_if(
        taxCase.children, [&](const Child& child) { return isDeductible(child, taxCase.year); }));
}

TariffKind tariffOf(const TaxCase& taxCase) noexcept {
    return taxCase.isJoint() || deductibleChildCount(taxCase) > 0 ? TariffKind::joint
                                                                  : TariffKind::single;
}

LITariffKind liTariffOf(const TaxCase& taxCase) noexcept {
    if (taxCase.isJoint()) {
        return LITariffKind::verheiratet;
    }
    return deductibleChildCount(taxCase) > 0 ? LITariffKind::alleinerziehend
                                             : LITariffKind::alleinstehend;
}

bool belongsToHousehold(const SecurityEntry& entry, const TaxCase& taxCase) noexcept {
    return taxCase.isJoint() || entry.owner != Owner::person2;
}

bool isBusinessAsset(const SecurityEntry& entry) noexcept {
    return entry.code == AssetCode::business || entry.code == AssetCode::businessParticipation;
}

bool isPrivateAsset(const SecurityEntry& entry, const TaxCase& taxCase) noexcept {
    return belongsToHousehold(entry, taxCase) && !isBusinessAsset(entry);
}

bool isInStGallen(const RealEstate& property) {
    std::string letters = lowerAscii(property.canton);
    std::erase_if(letters, [](char c) { return c == ' ' || c == '.'; });
    return letters.empty() || letters == "sg" || letters == "stgallen";
}

bool isInLiechtenstein(const RealEstate& property) noexcept {
    return property.canton == "FL" || property.canton == "LI";
}

Decimal grossIncome(const SecurityEntry& entry) {
    return entry.incomeWithWithholding + entry.incomeWithoutWithholding;
}

} // namespace taxcore
