#include "TaxCore/stgallen/DeductionRules.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/stgallen/Household.h"

#include <algorithm>

namespace taxcore {

Decimal taxedRentalValue(const RealEstate& property,
                         const CantonExtraParams::Liegenschaften& params) {
    if (property.use == PropertyUse::vermietet) {
        return 0;
    }
    if (!property.isPrimaryResidence) {
        return property.imputedRentalValue;
    }
    const Decimal reduced = property.imputedRentalValue * (1 - params.eigenmietwertReduktion);
    if (property.rooms <= 0 || property.unusedRooms <= 0) {
        return reduced;
    }
    // Multiplied before dividing: a share such as one third must leave no trace in an even amount.
    const Decimal rooms = Decimal(property.rooms) + 2;
    return reduced * (rooms - std::min(property.unusedRooms, property.rooms)) / rooms;
}

Decimal maintenanceCosts(const RealEstate& property,
                         const CantonExtraParams::Liegenschaften& params) {
    if (!property.useFlatRateMaintenance) {
        return property.actualMaintenanceCosts;
    }
    return params.pauschalabzugSatz * (taxedRentalValue(property, params) + property.rentalIncome);
}

Decimal pillar3aMaximum(bool hasPensionFund, const Decimal& base, const Saeule3aParams& params) {
    if (hasPensionFund) {
        return params.mitPensionskasse;
    }
    return notBelowZero(std::min(params.ohnePensionskasseSatz * base, params.ohnePensionskasseMax));
}

bool paysIntoPension(const PersonIncome& income, const PersonDeductions& deductions) {
    const bool throughSalary = std::ranges::any_of(income.salaries, [](const auto& certificate) {
        return certificate.pensionContributions > 0 || certificate.pensionBuyIn > 0;
    });
    return throughSalary || deductions.pensionBuyIn > 0 || deductions.pillar3a > 0
           || deductions.pillar3aBuyIn > 0;
}

Decimal insuranceMax(const TaxCase& taxCase, const VersicherungParams& params) {
    const bool joint = taxCase.isJoint();
    Decimal maximum = joint ? params.gemeinsam : params.alleinstehend;
    const bool pays = paysIntoPension(taxCase.income1, taxCase.deductions1)
                      || (joint && paysIntoPension(taxCase.income2, taxCase.deductions2));
    if (!pays) {
        maximum +=
            joint ? params.zuschlagOhneVorsorgeGemeinsam : params.zuschlagOhneVorsorgeAlleinstehend;
    }
    maximum += params.proKind * deductibleChildCount(taxCase);
    maximum += params.proUnterstuetztePerson * taxCase.householdDeductions.supportedPersons;
    return maximum;
}

Decimal assetManagementFlatRate(const Decimal& managedValue, const DeductionParams& params) {
    return std::min(managedValue * params.verwaltungskostenPromille / 1000,
                    params.verwaltungskostenMax);
}

Decimal childcare(const Child& child, int year, const DeductionParams& params) {
    const auto firstDay = Date::of(year, 1, 1);
    const bool tooOld =
        child.birthDate && firstDay
        && completedYears(*child.birthDate, *firstDay) >= params.kinderbetreuungAltersgrenze;
    if (tooOld || !isBornBy(child, year)) {
        return 0;
    }
    const Decimal meals =
        params.kinderbetreuungVerpflegungKuerzungProTag * child.childcareDaysWithMealsIncluded;
    return std::min(notBelowZero(child.childcareCosts - meals), params.kinderbetreuungMax);
}

Decimal furtherEducation(const PersonDeductions& deductions, const DeductionParams& params) {
    if (deductions.furtherEducationFlatRate && params.weiterbildungPauschal > 0) {
        return params.weiterbildungPauschal;
    }
    return std::min(deductions.furtherEducation, params.weiterbildungMax);
}

Decimal twoEarnerDeduction(const Decimal& lowerBase, const ZweiverdienerParams& params) {
    const Decimal amount =
        params.art == ZweiverdienerArt::betrag
            ? params.betrag
            : std::max(params.min, std::min(params.satz * lowerBase, params.max));
    return std::min(amount, lowerBase);
}

Decimal partyGiftMaximum(const TaxCase& taxCase, const DeductionParams& params) {
    return taxCase.isJoint() ? params.parteispendenGemeinsam : params.parteispendenAlleinstehend;
}

Decimal giftDeduction(const Decimal& gifts, const Decimal& net, const DeductionParams& params) {
    if (gifts < params.freiwilligeZuwendungenMin) {
        return 0;
    }
    return std::min(gifts, params.freiwilligeZuwendungenMaxSatz * net);
}

Decimal childDeduction(const Child& child, const DeductionParams& params) {
    if (params.kinderabzugEinheitlich > 0) {
        return params.kinderabzugEinheitlich;
    }
    return child.education == ChildEducation::vorschule ? params.kinderabzugVorschule
                                                        : params.kinderabzugAusbildung;
}

Decimal childEducationCosts(const Child& child, const DeductionParams& params) {
    const Decimal borne =
        child.educationCosts - child.scholarships - params.ausbildungskostenSelbstbehalt;
    return std::min(notBelowZero(borne), params.ausbildungskostenMax);
}

Decimal vehicleValue(const Vehicle& vehicle, int year, const Decimal& yearlyShare) {
    if (vehicle.taxValueOverride) {
        return *vehicle.taxValueOverride;
    }
    const Decimal age = notBelowZero(Decimal(year) - vehicle.purchaseYear.value_or(year));
    return toWholeFrancs(notBelowZero(vehicle.purchasePrice * (1 - yearlyShare * age)));
}

bool hasWealthAllowance(const Child& child, int year) noexcept {
    if (!child.birthDate) {
        return isDeductible(child, year);
    }
    const auto lastDay = Date::of(year, 12, 31);
    return isBornBy(child, year) && lastDay && completedYears(*child.birthDate, *lastDay) < 18;
}

} // namespace taxcore
