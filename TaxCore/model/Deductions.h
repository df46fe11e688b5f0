#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// Situation over midday.
enum class MealSituation { keine, auswaerts, verbilligt, schicht };

template <>
struct EnumTable<MealSituation> {
    using enum MealSituation;
    static constexpr std::array rows{
        EnumRow{keine, "keine", "Heimkehr möglich – kein Abzug"},
        EnumRow{auswaerts, "auswaerts", "Auswärts essen"},
        EnumRow{verbilligt, "verbilligt", "Kantine / Lunch-Checks"},
        EnumRow{schicht, "schicht", "Schicht- oder Nachtarbeit"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(MealSituation);

/// How somebody travels to work: a choice the pages offer. The record keeps the decisions in the
/// amounts and flags of `WorkExpenses`.
enum class CommuteVehicle { keine, oev, velo, auto_, motorrad };

template <>
struct EnumTable<CommuteVehicle> {
    using enum CommuteVehicle;
    static constexpr std::array rows{
        EnumRow{keine, "keine", "kein Arbeitsweg"},
        EnumRow{oev, "oev", "öffentlicher Verkehr"},
        EnumRow{velo, "velo", "Velo / E-Bike / Kleinmotorrad"},
        EnumRow{auto_, "auto", "Auto"},
        EnumRow{motorrad, "motorrad", "Motorrad"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(CommuteVehicle);

/// What one person declares as professional costs; francs.
struct WorkExpenses {
    Decimal publicTransportCost; ///< a year
    bool useBicycle = false;
    Decimal bicycleCost = 700; ///< counts only with `useBicycle`
    Decimal carKmOneWay;       ///< kilometres
    Decimal carTripsPerDay = 2;
    int carWorkDays = 0;
    bool carIsMotorbike = false;
    std::string carJustification; ///< why public transport cannot be used
    MealSituation meals = MealSituation::keine;
    int mealDays = 0;
    bool useActualOtherCosts = false;
    Decimal actualOtherCosts;
    bool weeklyStay = false;
    int weeklyStayMonths = 0;
    Decimal weeklyStayRoomPerMonth;
    int weeklyStayDays = 0;
    bool weeklyStayMealsReduced = false;
    bool sideJobUseActual = false;
    Decimal sideJobActualCosts;

    bool operator==(const WorkExpenses&) const = default;
};
TAXCORE_RECORD(WorkExpenses, publicTransportCost, useBicycle, bicycleCost, carKmOneWay,
               carTripsPerDay, carWorkDays, carIsMotorbike, carJustification, meals, mealDays,
               useActualOtherCosts, actualOtherCosts, weeklyStay, weeklyStayMonths,
               weeklyStayRoomPerMonth, weeklyStayDays, weeklyStayMealsReduced, sideJobUseActual,
               sideJobActualCosts);

/// Deductions of one adult; francs a year.
struct PersonDeductions {
    WorkExpenses work;
    Decimal pillar3a;
    Decimal pillar3aBuyIn; ///< retroactive
    Decimal pensionBuyIn;  ///< paid privately, not through the salary
    Decimal furtherEducation;
    bool furtherEducationFlatRate = false;

    bool operator==(const PersonDeductions&) const = default;
};
TAXCORE_RECORD(PersonDeductions, work, pillar3a, pillar3aBuyIn, pensionBuyIn, furtherEducation,
               furtherEducationFlatRate);

/// One bill of illness, accident or disability costs; francs.
struct MedicalCost {
    Uuid id = Uuid::random();
    std::optional<Date> date;
    std::string provider;
    Decimal gross;      ///< invoiced
    Decimal reimbursed; ///< paid back by the insurer
    bool isDisabilityRelated = false;
    std::optional<Uuid> documentID;

    /// `gross − reimbursed`, never below 0.
    Decimal selfPaid() const;

    bool operator==(const MedicalCost&) const = default;
};
TAXCORE_RECORD(MedicalCost, id, date, provider, gross, reimbursed, isDisabilityRelated, documentID);

/// One voluntary gift, to a charity or to a political party; francs.
struct Donation {
    Uuid id = Uuid::random();
    std::optional<Date> date;
    std::string recipient;
    Decimal amount;
    bool isPoliticalParty = false;
    std::optional<Uuid> documentID;

    bool operator==(const Donation&) const = default;
};
TAXCORE_RECORD(Donation, id, date, recipient, amount, isPoliticalParty, documentID);

/// Deductions of the household; francs a year.
struct HouseholdDeductions {
    Decimal healthInsurancePremiums;
    Decimal accidentInsurancePremiums;
    Decimal lifeInsurancePremiums;
    Decimal premiumReduction; ///< individual premium reduction received
    Decimal alimonyPaidPartner;
    Decimal alimonyPaidChildren;
    Decimal annuityPayments;
    std::optional<Decimal> actualAssetManagementCosts; ///< absent: the flat rate applies
    Decimal otherDeductions;
    std::string otherDeductionsDescription;
    bool significantCooperation = false; ///< one spouse works considerably in the other's business
    std::vector<MedicalCost> medicalCosts;
    bool dietFlatRate = false;
    Decimal disabilityFlatRate;
    std::vector<Donation> donations;
    int supportedPersons = 0;

    bool operator==(const HouseholdDeductions&) const = default;
};
TAXCORE_RECORD(HouseholdDeductions, healthInsurancePremiums, accidentInsurancePremiums,
               lifeInsurancePremiums, premiumReduction, alimonyPaidPartner, alimonyPaidChildren,
               annuityPayments, actualAssetManagementCosts, otherDeductions,
               otherDeductionsDescription, significantCooperation, medicalCosts, dietFlatRate,
               disabilityFlatRate, donations, supportedPersons);

} // namespace taxcore
