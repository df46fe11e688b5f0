#pragma once

#include "TaxCore/result/Derivation.h"

/// The legal basis of every rule of the St.Gallen and federal calculation, by its name. Cantonal
/// provisions: Steuergesetz (StG, sGS 811.1) and Steuerverordnung (StV, sGS 811.11). Federal ones:
/// DBG (SR 642.11), Berufskostenverordnung (BKV, SR 642.118.1), BVV 3 (SR 831.461.3), VStG
/// (SR 642.21). Where only the article of a rule is certain, only the article is named.
namespace taxcore::law {

// Income
inline constexpr Law employment{"StG SG Art. 30", "DBG Art. 17 Abs. 1"};
inline constexpr Law selfEmployment{"StG SG Art. 31 Abs. 1", "DBG Art. 18 Abs. 1"};
inline constexpr Law boardFees{"StG SG Art. 30", "DBG Art. 17 Abs. 1"};
inline constexpr Law partnership{"StG SG Art. 31 Abs. 1", "DBG Art. 10 Abs. 1 und Art. 18"};
inline constexpr Law pensions{"StG SG Art. 35 Abs. 1", "DBG Art. 22"};
inline constexpr Law replacementIncome{"StG SG Art. 36", "DBG Art. 23 Bst. a"};
inline constexpr Law familyAllowances{"StG SG Art. 30", "DBG Art. 17 Abs. 1"};
inline constexpr Law securitiesIncome{"StG SG Art. 33 Abs. 1", "DBG Art. 20 Abs. 1"};
inline constexpr Law participations{"StG SG Art. 33 Abs. 1 Bst. c", "DBG Art. 20 Abs. 1bis"};
inline constexpr Law realEstateIncome{"StG SG Art. 34", "DBG Art. 21 Abs. 1"};
inline constexpr Law imputedRent{"StG SG Art. 34 Abs. 3", "DBG Art. 21 Abs. 1 Bst. b"};
inline constexpr Law unusedRooms{"StG SG Art. 34 Abs. 3", "DBG Art. 21 Abs. 2"};
inline constexpr Law maintenanceReceived{"StG SG Art. 36", "DBG Art. 23 Bst. f"};
inline constexpr Law undividedEstates{"StG SG Art. 29 Abs. 1", "DBG Art. 10 Abs. 1"};
inline constexpr Law otherIncome{"StG SG Art. 29 Abs. 1", "DBG Art. 16 Abs. 1"};
inline constexpr Law simplifiedSettlement{"", "DBG Art. 37a; BGSA (SR 822.41) Art. 2 und 3"};

// Work expenses
inline constexpr Law commute{"StG SG Art. 39 Abs. 1 Bst. a",
                             "DBG Art. 26 Abs. 1 Bst. a; BKV Art. 5"};
inline constexpr Law privateVehicle{"StG SG Art. 39 Abs. 1 Bst. a",
                                    "BKV Art. 3 und Art. 5 Abs. 2 Bst. b, Anhang"};
inline constexpr Law meals{"StG SG Art. 39 Abs. 1", "DBG Art. 26 Abs. 1 Bst. b; BKV Art. 6"};
inline constexpr Law otherWorkCosts{"StG SG Art. 39 Abs. 1",
                                    "DBG Art. 26 Abs. 1 Bst. c und Abs. 2; BKV Art. 7"};
inline constexpr Law weeklyStay{"StG SG Art. 39 Abs. 1", "BKV Art. 9"};
inline constexpr Law sideJob{"StG SG Art. 39 Abs. 1", "BKV Art. 10"};

// General deductions
inline constexpr Law debtInterest{"StG SG Art. 45 Abs. 1 Bst. a", "DBG Art. 33 Abs. 1 Bst. a"};
inline constexpr Law annuities{"StG SG Art. 45 Abs. 1 Bst. b", "DBG Art. 33 Abs. 1 Bst. b"};
inline constexpr Law maintenancePaid{"StG SG Art. 45 Abs. 1 Bst. c", "DBG Art. 33 Abs. 1 Bst. c"};
inline constexpr Law pillar2{"StG SG Art. 45 Abs. 1 Bst. d", "DBG Art. 33 Abs. 1 Bst. d"};
inline constexpr Law pillar3a{"StG SG Art. 45 Abs. 1 Bst. e",
                              "DBG Art. 33 Abs. 1 Bst. e; BVV 3 Art. 7 Abs. 1"};
inline constexpr Law pillar3aBuyIn{"StG SG Art. 45 Abs. 1 Bst. e",
                                   "DBG Art. 33 Abs. 1 Bst. e; BVV 3 Art. 7a"};
inline constexpr Law insurance{"StG SG Art. 45 Abs. 1 Bst. g",
                               "DBG Art. 33 Abs. 1 Bst. g und Abs. 1bis"};
inline constexpr Law realEstateCosts{"StG SG Art. 44 Abs. 2", "DBG Art. 32 Abs. 2"};
inline constexpr Law realEstateFlatRate{"StG SG Art. 44", "DBG Art. 32 Abs. 4"};
inline constexpr Law assetManagement{"StG SG Art. 44", "DBG Art. 32 Abs. 1"};
inline constexpr Law childcare{"StG SG Art. 45 Abs. 1 Bst. h", "DBG Art. 33 Abs. 3"};
inline constexpr Law furtherEducation{"StG SG Art. 45", "DBG Art. 33 Abs. 1 Bst. j"};
inline constexpr Law twoEarners{"StG SG Art. 45", "DBG Art. 33 Abs. 2"};
inline constexpr Law partyGifts{"StG SG Art. 45", "DBG Art. 33 Abs. 1 Bst. i"};

// Deductions from the net income, social deductions
inline constexpr Law medicalCosts{"StG SG Art. 46 Bst. a", "DBG Art. 33 Abs. 1 Bst. h"};
inline constexpr Law disabilityCosts{"StG SG Art. 46", "DBG Art. 33 Abs. 1 Bst. hbis"};
inline constexpr Law donations{"StG SG Art. 46 Bst. c", "DBG Art. 33a"};
inline constexpr Law childDeduction{"StG SG Art. 48 Abs. 1 Bst. a Ziff. 1 und 2",
                                    "DBG Art. 35 Abs. 1 Bst. a"};
inline constexpr Law childEducation{"StG SG Art. 48 Abs. 1 Bst. a Ziff. 3", ""};
inline constexpr Law supportDeduction{"", "DBG Art. 35 Abs. 1 Bst. b"};
inline constexpr Law marriedDeduction{"", "DBG Art. 35 Abs. 1 Bst. c"};

// Wealth
inline constexpr Law wealth{"StG SG Art. 53 und 54", ""};
inline constexpr Law realEstateValue{"StG SG Art. 57 Abs. 1", ""};
inline constexpr Law wealthAllowance{"StG SG Art. 64", ""};
inline constexpr Law wealthTax{"StG SG Art. 65", ""};

// Tariffs and the bill
inline constexpr Law incomeTariff{"StG SG Art. 50", "DBG Art. 36 Abs. 1, 2 und 2bis"};
inline constexpr Law cantonMultiplier{"StG SG Art. 1 Abs. 1 Bst. a", ""};
inline constexpr Law municipalityMultiplier{"StG SG Art. 2 Abs. 1 Bst. a", ""};
inline constexpr Law churchMultiplier{"StG SG Art. 3 Abs. 1; StV SG Art. 1 Abs. 1", ""};
inline constexpr Law mixedConfession{"StV SG Art. 2 Abs. 1", ""};
inline constexpr Law childReduction{"", "DBG Art. 36 Abs. 2bis"};
inline constexpr Law federalMinimum{"", "DBG Art. 36 Abs. 3"};
inline constexpr Law capitalPayments{"StG SG Art. 52", "DBG Art. 38"};
inline constexpr Law withholdingTax{"", "VStG Art. 13 Abs. 1 Bst. a und Art. 21 bis 23"};

} // namespace taxcore::law
