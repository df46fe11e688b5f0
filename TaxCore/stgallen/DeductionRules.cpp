#include "TaxCore/stgallen/DeductionRules.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"

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

namespace {

/// Whether the person pays into pillar 2 or 3a, by the amounts entered.
bool paysIntoPension(const PersonIncome& income, const PersonDeductions& deductions) {
    const bool throughSalary = std::ranges::any_of(income.salaries, [](const auto& certificate) {
        return certificate.pensionContributions > 0 || certificate.pensionBuyIn > 0;
    });
    return throughSalary || deductions.pensionBuyIn > 0 || deductions.pillar3a > 0
           || deductions.pillar3aBuyIn > 0;
}

} // namespace

InsuranceCeiling insuranceCeiling(const TaxCase& taxCase) {
    const bool joint = taxCase.isJoint();
    const bool pays = paysIntoPension(taxCase.income1, taxCase.deductions1)
                      || (joint && paysIntoPension(taxCase.income2, taxCase.deductions2));
    return {.joint = joint,
            .withoutPension = !pays,
            .children = deductibleChildCount(taxCase),
            .supported = taxCase.householdDeductions.supportedPersons};
}

Decimal VersicherungParams::*InsuranceCeiling::base() const noexcept {
    return joint ? &VersicherungParams::gemeinsam : &VersicherungParams::alleinstehend;
}

Decimal VersicherungParams::*InsuranceCeiling::supplement() const noexcept {
    return joint ? &VersicherungParams::zuschlagOhneVorsorgeGemeinsam
                 : &VersicherungParams::zuschlagOhneVorsorgeAlleinstehend;
}

Decimal InsuranceCeiling::amount(const VersicherungParams& params) const {
    const Decimal start = params.*base();
    return start + (withoutPension ? params.*supplement() : Decimal(0)) + params.proKind * children
           + params.proUnterstuetztePerson * supported;
}

Decimal assetManagementFlatRate(const Decimal& managedValue, const DeductionParams& params) {
    return std::min(managedValue * params.verwaltungskostenPromille / 1000,
                    params.verwaltungskostenMax);
}

bool isWithinChildcareAge(const Child& child, int year, const DeductionParams& params) noexcept {
    const auto firstDay = Date::of(year, 1, 1);
    return !child.birthDate || !firstDay
           || completedYears(*child.birthDate, *firstDay) < params.kinderbetreuungAltersgrenze;
}

Decimal childcare(const Child& child, int year, const DeductionParams& params) {
    if (!isWithinChildcareAge(child, year, params) || !isBornBy(child, year)) {
        return 0;
    }
    const Decimal meals =
        params.kinderbetreuungVerpflegungKuerzungProTag * child.childcareDaysWithMealsIncluded;
    return std::min(notBelowZero(child.childcareCosts - meals), params.kinderbetreuungMax);
}

bool usesFurtherEducationFlatRate(const PersonDeductions& deductions,
                                  const DeductionParams& params) noexcept {
    return deductions.furtherEducationFlatRate && params.weiterbildungPauschal > 0;
}

Decimal furtherEducation(const PersonDeductions& deductions, const DeductionParams& params) {
    if (usesFurtherEducationFlatRate(deductions, params)) {
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

bool hasUniformChildDeduction(const DeductionParams& params) noexcept {
    return params.kinderabzugEinheitlich > 0;
}

Decimal childDeduction(const Child& child, const DeductionParams& params) {
    if (hasUniformChildDeduction(params)) {
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
