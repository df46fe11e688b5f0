#include "tests/engine/TipTables.h"

#include "tests/support/CheckRows.h"

namespace taxcore::testing {

namespace {

TaxCase laterHousehold() {
    TaxCase taxCase = spotlessHousehold();
    taxCase.year = 2026;
    return taxCase;
}

RealEstate house(bool flat, const Decimal& actual) {
    RealEstate home;
    home.taxValue = 500'000;
    home.imputedRentalValue = 20'000;
    home.useFlatRateMaintenance = flat;
    home.actualMaintenanceCosts = actual;
    return home;
}

RealEstate secondHome(const char* municipality) {
    RealEstate home = house(true, 0);
    home.municipality = municipality;
    home.isPrimaryResidence = false;
    return home;
}

SecurityEntry fund(AssetKind kind) {
    SecurityEntry entry;
    entry.kind = kind;
    entry.taxValue = 300'000;
    return entry;
}

void drive(TaxCase& c, int days) {
    c.deductions1.work.carKmOneWay = 20;
    c.deductions1.work.carWorkDays = days;
}

void eatOut(TaxCase& c) {
    c.deductions2.work.meals = MealSituation::auswaerts;
    c.deductions2.work.mealDays = 100;
}

std::vector<TipRow> stGallenPensionTipRows() {
    return {
        {"tipp-3a-1", "BVV 3 Art. 7", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; },
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; }},
        {"tipp-3a-einkauf-2", "BVV 3 Art. 7a", [](TaxCase& c) { c.deductions2.pillar3a = 7'258; },
         [](TaxCase& c) { c.deductions2.pillar3aBuyIn = 7'258; },
         [](TaxCase& c) { c.deductions2.pillar3a = 7'257; }, laterHousehold},
        {"tipp-pk-einkauf-1", "BVG Art. 79b", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.pensionBuyIn += 7'000; },
         [](TaxCase& c) {
             CapitalPayment& drawn = c.capitalPayments.emplace_back();
             drawn.kind = CapitalPayment::Kind::saeule2;
             drawn.amount = 50'000;
         }},
        // Contributions tell of a fund, whatever is ticked.
        {"tipp-3a-1", "BVV 3 Art. 7", [](TaxCase& c) { c.person1.hasPensionFund = false; },
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; },
         [](TaxCase& c) {
             c.person1.hasPensionFund = false;
             c.deductions1.pillar3a = 7'258;
         }},
        {"tipp-3a-1", "BVV 3 Art. 7",
         [](TaxCase& c) {
             c.person1.hasPensionFund = false;
             c.income1.salaries[0].pensionContributions = 0;
         },
         [](TaxCase& c) { c.deductions1.pillar3a = 84'240 * 2 / 10; },
         [](TaxCase& c) {
             c.person1.hasPensionFund = false;
             c.income1.salaries[0].pensionContributions = 0;
             c.deductions1.pillar3a = 84'240 * 2 / 10;
         }},
        // AHV contributions begin in the year of turning 18.
        {"tipp-3a-1", "BVV 3 Art. 7",
         [](TaxCase& c) { c.person1.birthDate = Date::of(2007, 12, 31); },
         [](TaxCase& c) { c.deductions1.pillar3a = 7'258; },
         [](TaxCase& c) { c.person1.birthDate = Date::of(2008, 1, 1); }},
    };
}

std::vector<TipRow> stGallenTipRows() {
    return {
        {"tipp-uebrige-berufskosten-1", "DBG Art. 26",
         [](TaxCase& c) { c.deductions1.work.actualOtherCosts = 5'000; },
         [](TaxCase& c) { c.deductions1.work.useActualOtherCosts = true; },
         [](TaxCase& c) { c.deductions1.work.actualOtherCosts = 300; }},
        {"tipp-uebrige-berufskosten-2", "BKV Art. 7",
         [](TaxCase& c) {
             c.deductions2.work.useActualOtherCosts = true;
             c.deductions2.work.actualOtherCosts = 100;
         },
         [](TaxCase& c) { c.deductions2.work.useActualOtherCosts = false; },
         [](TaxCase& c) {
             c.deductions2.work.useActualOtherCosts = true;
             c.deductions2.work.actualOtherCosts = 9'000;
         }},
        {"tipp-nebenerwerb-1", "BKV Art. 10",
         [](TaxCase& c) {
             SalaryCertificate& side = c.income1.salaries.emplace_back();
             side.isMainEmployment = false;
             side.grossSalary = 6'000;
             c.deductions1.work.sideJobActualCosts = 3'500;
         },
         [](TaxCase& c) { c.deductions1.work.sideJobUseActual = true; },
         [](TaxCase& c) {
             SalaryCertificate& side = c.income1.salaries.emplace_back();
             side.isMainEmployment = false;
             side.grossSalary = 6'000;
             c.deductions1.work.sideJobActualCosts = 700;
         }},
        {"tipp-auto-1", "BKV Art. 3",
         [](TaxCase& c) {
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         },
         [](TaxCase& c) { c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr"; },
         [](TaxCase& c) {
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
             c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr";
         }},
        // The car instead of the train: 5'600 francs instead of 1'000, not beside them.
        {"tipp-auto-1", "BKV Art. 3",
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 1'000;
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         },
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 0;
             c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr";
         },
         [](TaxCase& c) {
             c.deductions1.work.publicTransportCost = 5'600;
             c.deductions1.work.carKmOneWay = 20;
             c.deductions1.work.carWorkDays = 200;
         }},
        // Who has a room at the place of work drives home once a week.
        {"tipp-auto-1", "BKV Art. 3",
         [](TaxCase& c) {
             drive(c, 53);
             c.deductions1.work.weeklyStay = true;
             c.deductions1.work.weeklyStayMonths = 12;
         },
         [](TaxCase& c) { c.deductions1.work.carJustification = "Schichtbeginn um vier Uhr"; },
         [](TaxCase& c) {
             drive(c, 54);
             c.deductions1.work.weeklyStay = true;
             c.deductions1.work.weeklyStayMonths = 12;
         }},
        {"tipp-verpflegung-2", "BKV Art. 6", [](TaxCase&) {}, eatOut,
         [](TaxCase& c) { c.income2.salaries[0].fieldG = true; }},
        {"tipp-verpflegung-2", "BKV Art. 6", [](TaxCase&) {}, eatOut,
         [](TaxCase& c) { c.deductions2.work.meals = MealSituation::schicht; }},
        {"tipp-verpflegung-2", "BKV Art. 6", [](TaxCase&) {}, eatOut,
         [](TaxCase& c) { c.income2.salaries[0].isMainEmployment = false; }},
        {"tipp-verpflegung-2", "BKV Art. 6", [](TaxCase&) {}, eatOut,
         [](TaxCase& c) { c.deductions2.work.weeklyStay = true; }},
        {"tipp-arbeitsweg-2", "BKV Art. 5", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions2.work.useBicycle = true; },
         [](TaxCase& c) { c.deductions2.work.publicTransportCost = 1; }},
        {"tipp-unterhalt-1", "DBG Art. 32 Abs. 2",
         [](TaxCase& c) { c.realEstate.push_back(house(true, 9'000)); },
         [](TaxCase& c) { c.realEstate[0].useFlatRateMaintenance = false; },
         [](TaxCase& c) { c.realEstate.push_back(house(true, 2'800)); }},
        {"tipp-unterhalt-1", "SR 642.116 Art. 5 Abs. 3",
         [](TaxCase& c) {
             c.realEstate.push_back(house(false, 1'000));
             c.realEstate[0].use = PropertyUse::vermietet;
             c.realEstate[0].rentalIncome = 24'000;
         },
         [](TaxCase& c) { c.realEstate[0].useFlatRateMaintenance = true; },
         [](TaxCase& c) {
             c.realEstate.push_back(house(false, 4'800));
             c.realEstate[0].use = PropertyUse::vermietet;
             c.realEstate[0].rentalIncome = 24'000;
         }},
        {"tipp-hauptwohnsitz-2", "StG SG Art. 34 Abs. 3",
         [](TaxCase& c) {
             c.realEstate = {secondHome("Wil"), secondHome("St.Gallen"), secondHome("St.Gallen")};
             c.realEstate[2].use = PropertyUse::vermietet;
         },
         [](TaxCase& c) { c.realEstate[1].isPrimaryResidence = true; },
         [](TaxCase& c) {
             c.realEstate = {secondHome("Wil"), secondHome("St.Gallen"), secondHome("St.Gallen")};
         }},
        {"tipp-hauptwohnsitz-1", "DBG Art. 21",
         [](TaxCase& c) {
             c.realEstate = {secondHome("St.Gallen")};
             c.realEstate[0].use = PropertyUse::gemischt;
         },
         [](TaxCase& c) { c.realEstate[0].isPrimaryResidence = true; },
         [](TaxCase& c) {
             c.realEstate = {secondHome("St.Gallen"), secondHome("Wil")};
             c.realEstate[1].isPrimaryResidence = true;
         }},
        {"tipp-fremdverwaltung", "DBG Art. 32 Abs. 1",
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::wertschrift)); },
         [](TaxCase& c) { c.securities[1].managedByThirdParty = true; },
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::krypto)); }},
        {"tipp-fremdverwaltung", "StG SG Art. 44",
         [](TaxCase& c) { c.securities.push_back(fund(AssetKind::wertschrift)); },
         [](TaxCase& c) { c.securities[1].managedByThirdParty = true; },
         [](TaxCase& c) {
             c.securities.push_back(fund(AssetKind::wertschrift));
             c.householdDeductions.actualAssetManagementCosts = 5'000;
         }},
        {"tipp-verwaltungskosten", "DBG Art. 32 Abs. 1",
         [](TaxCase& c) {
             c.securities[0].managedByThirdParty = true;
             c.securities[0].taxValue = 500'000;
             c.householdDeductions.actualAssetManagementCosts = 200;
         },
         [](TaxCase& c) { c.householdDeductions.actualAssetManagementCosts.reset(); },
         [](TaxCase& c) {
             c.securities[0].managedByThirdParty = true;
             c.securities[0].taxValue = 500'000;
             c.householdDeductions.actualAssetManagementCosts = 1'000;
         }},
        {"tipp-fahrzeug-1", "StG SG Art. 53",
         [](TaxCase& c) {
             c.otherAssets = 400'000;
             Vehicle& car = c.vehicles.emplace_back();
             car.purchasePrice = 60'000;
             car.purchaseYear = 2022;
             car.taxValueOverride = 60'000;
         },
         [](TaxCase& c) { c.vehicles[0].taxValueOverride.reset(); },
         [](TaxCase& c) {
             c.otherAssets = 400'000;
             Vehicle& car = c.vehicles.emplace_back();
             car.purchasePrice = 60'000;
             car.purchaseYear = 2022;
             car.taxValueOverride = 24'000;
         }},
    };
}

std::vector<TipRow> stGallenFamilyTipRows() {
    return {
        {"tipp-weiterbildung-1", "DBG Art. 33 Abs. 1 Bst. j",
         [](TaxCase& c) { c.deductions1.furtherEducation = 300; },
         [](TaxCase& c) { c.deductions1.furtherEducationFlatRate = true; },
         [](TaxCase& c) { c.deductions1.furtherEducation = 400; }},
        {"tipp-spenden", "DBG Art. 33a",
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 99; },
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 1; },
         [](TaxCase& c) { c.householdDeductions.donations.emplace_back().amount = 100; }},
        {"tipp-mitarbeit", "DBG Art. 33 Abs. 2",
         [](TaxCase& c) {
             c.income1 = {};
             c.income1.selfEmployment = 90'000;
             c.income2 = {};
         },
         [](TaxCase& c) { c.householdDeductions.significantCooperation = true; },
         [](TaxCase& c) { c.income2 = {}; }},
        {"tipp-weiterbildung-1", "StG SG Art. 45", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.furtherEducationFlatRate = true; },
         [](TaxCase& c) { c.deductions1.furtherEducationFlatRate = true; }},
        {"tipp-weiterbildung-1", "StG SG Art. 45", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.furtherEducationFlatRate = true; },
         [](TaxCase& c) {
             c.income1 = {};
             c.income1.selfEmployment = 90'000;
         }},
        {"tipp-kinderbetreuung-1", "DBG Art. 33 Abs. 3",
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2011, 1, 2); },
         [](TaxCase& c) { c.children[0].childcareCosts = 1'000; },
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2011, 1, 1); }},
        {"tipp-kinderbetreuung-1", "DBG Art. 33 Abs. 3", [](TaxCase&) {},
         [](TaxCase& c) { c.children[0].childcareCosts = 1'000; },
         [](TaxCase& c) { c.income2 = {}; }},
        {"tipp-kinderbetreuung-1", "DBG Art. 33 Abs. 3", [](TaxCase&) {},
         [](TaxCase& c) { c.children[0].childcareCosts = 1'000; },
         [](TaxCase& c) { c.children[0].childcareCosts = 1; }},
        {"tipp-kinderbetreuung-1", "DBG Art. 33 Abs. 3", [](TaxCase&) {},
         [](TaxCase& c) { c.children[0].childcareCosts = 1'000; },
         [](TaxCase& c) { c.children[0].livesInHousehold = false; }},
        // The parents bear 3'200 francs themselves.
        {"tipp-ausbildung-1", "StG SG Art. 48",
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2009, 12, 31); },
         [](TaxCase& c) { c.children[0].educationCosts = 4'200; },
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2010, 1, 1); }},
        {"tipp-ausbildung-1", "StG SG Art. 48",
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2005, 3, 1);
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].scholarships = 2'000;
         },
         [](TaxCase& c) { c.children[0].educationCosts = 6'200; },
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2005, 3, 1);
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].educationCosts = 1;
         }},
    };
}

std::vector<TipRow> liechtensteinTipRows() {
    return {
        {"tipp-li-pk-1", "SteG Art. 16", [](TaxCase&) {},
         // 18 % of 150'000 less 5 % that are paid already
         [](TaxCase& c) { c.deductions1.pensionBuyIn = 19'500; },
         [](TaxCase& c) { c.deductions2.pensionBuyIn = 19'500; }, spotlessLiechtenstein},
        {"tipp-li-versicherungen", "SteV Art. 16",
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 5'000; },
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 8'100; },
         [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 8'100; },
         spotlessLiechtenstein},
        {"tipp-li-spenden", "SteG Art. 16",
         [](TaxCase& c) {
             c.householdDeductions.donations.emplace_back().amount = 60;
             c.householdDeductions.donations.emplace_back().amount = 70;
         },
         [](TaxCase& c) {
             c.householdDeductions.donations.pop_back();
             c.householdDeductions.donations[0].amount = 130;
         },
         [](TaxCase& c) {
             c.householdDeductions.donations.emplace_back().amount = 60;
             c.householdDeductions.donations.emplace_back().amount = 39;
         },
         spotlessLiechtenstein},
        {"tipp-li-ausbildung-1", "SteG Art. 16",
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2007, 3, 1);
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].scholarships = 2'000;
         },
         [](TaxCase& c) { c.children[0].educationCosts = 3'000; },
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2007, 3, 1);
             c.children[0].education = ChildEducation::ausbildung;
             c.children[0].educationCosts = 100;
         },
         spotlessLiechtenstein},
        {"tipp-li-ausbildung-1", "SteG Art. 16",
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2009, 12, 31); },
         [](TaxCase& c) { c.children[0].educationCosts = 1'000; },
         [](TaxCase& c) { c.children[0].birthDate = Date::of(2010, 1, 1); }, spotlessLiechtenstein},
        // A grammar school begins earlier, and costs nothing.
        {"tipp-li-ausbildung-1", "SteG Art. 16",
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2009, 12, 31);
             c.children[0].education = ChildEducation::ausbildung;
         },
         [](TaxCase& c) { c.children[0].educationCosts = 1'000; },
         [](TaxCase& c) {
             c.children[0].birthDate = Date::of(2010, 1, 1);
             c.children[0].education = ChildEducation::ausbildung;
         },
         spotlessLiechtenstein},
        {"tipp-li-weiterbildung-2", "SteG Art. 16", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions2.furtherEducation = 1'000; },
         [](TaxCase& c) { c.deductions2.furtherEducation = 1; }, spotlessLiechtenstein},
        {"tipp-li-weiterbildung-1", "SteG Art. 16", [](TaxCase&) {},
         [](TaxCase& c) { c.deductions1.furtherEducation = 1'000; },
         [](TaxCase& c) {
             c.income1 = {};
             c.income1.ahvPension = 30'000;
         },
         spotlessLiechtenstein},
    };
}

} // namespace

std::vector<TipRow> tipRows() {
    return joined<TipRow>({stGallenPensionTipRows(), stGallenTipRows(), stGallenFamilyTipRows(),
                           liechtensteinTipRows()});
}

} // namespace taxcore::testing
