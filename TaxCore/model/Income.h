#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// One salary certificate, box by box ("Ziffer") as on the official form; francs.
struct SalaryCertificate {
    Uuid id = Uuid::random();
    std::string employer;
    bool isMainEmployment = true;
    std::optional<Date> periodFrom;
    std::optional<Date> periodTo;
    Decimal grossSalary;          ///< box 8
    Decimal socialContributions;  ///< box 9
    Decimal pensionContributions; ///< box 10.1
    Decimal pensionBuyIn;         ///< box 10.2
    /// Box 11 as typed; replaces the computed net salary, also when it is 0.
    std::optional<Decimal> netSalaryOverride;
    bool fieldF = false;      ///< box F: free transport to work
    bool fieldG = false;      ///< box G: canteen or lunch vouchers
    Decimal flatRateExpenses; ///< boxes 13.1.2 and 13.2.3
    std::string remarks;      ///< box 15
    std::optional<Uuid> documentID;
    std::optional<bool> employerInLiechtenstein;

    /// Box 11: the override, else boxes 8 − 9 − 10.1 − 10.2, never below 0. The buy-in of box 10.2
    /// is thereby already deducted.
    Decimal netSalary() const;

    /// False when not stated.
    bool isLiechtensteinEmployer() const { return employerInLiechtenstein.value_or(false); }

    bool operator==(const SalaryCertificate&) const = default;
};
TAXCORE_RECORD(SalaryCertificate, id, employer, isMainEmployment, periodFrom, periodTo, grossSalary,
               socialContributions, pensionContributions, pensionBuyIn, netSalaryOverride, fieldF,
               fieldG, flatRateExpenses, remarks, documentID, employerInLiechtenstein);

/// One pension or annuity.
struct PensionIncome {
    Uuid id = Uuid::random();
    std::string label;
    Decimal amount;               ///< francs a year
    Decimal taxablePercent = 100; ///< percent of `amount` that is taxed

    bool operator==(const PensionIncome&) const = default;
};
TAXCORE_RECORD(PensionIncome, id, label, amount, taxablePercent);

/// Income of one adult, francs a year.
struct PersonIncome {
    std::vector<SalaryCertificate> salaries;
    Decimal boardFees;
    Decimal selfEmployment;
    Decimal partnership;
    Decimal ahvPension; ///< first pillar: old age and disability
    std::vector<PensionIncome> pensions;
    Decimal dailyAllowances; ///< sickness, accident, maternity
    Decimal unemployment;

    bool operator==(const PersonIncome&) const = default;
};
TAXCORE_RECORD(PersonIncome, salaries, boardFees, selfEmployment, partnership, ahvPension, pensions,
               dailyAllowances, unemployment);

/// Income not tied to one person, francs a year.
struct HouseholdIncome {
    Decimal familyAllowancesDirect; ///< paid directly, not through the salary
    Decimal alimonyReceivedSelf;
    Decimal alimonyReceivedChildren;
    Decimal undividedEstates;
    Decimal otherIncome;
    std::string otherIncomeDescription;
    Decimal qualifiedParticipationIncome; ///< from holdings of at least 10 %, before relief
    Decimal simplifiedSettlementIncome;   ///< taxed already in the simplified procedure

    bool operator==(const HouseholdIncome&) const = default;
};
TAXCORE_RECORD(HouseholdIncome, familyAllowancesDirect, alimonyReceivedSelf,
               alimonyReceivedChildren, undividedEstates, otherIncome, otherIncomeDescription,
               qualifiedParticipationIncome, simplifiedSettlementIncome);

} // namespace taxcore
