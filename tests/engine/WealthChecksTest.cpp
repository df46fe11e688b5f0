#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using enum Notice::Level;

TaxCase unmarried() {
    TaxCase taxCase = spotlessHousehold();
    taxCase.civilStatus = CivilStatus::geschieden;
    return taxCase;
}

/// With a home in order.
TaxCase owners() {
    TaxCase taxCase = spotlessHousehold();
    RealEstate& home = taxCase.realEstate.emplace_back();
    home.description = "Haus";
    home.municipality = "St.Gallen";
    home.taxValue = 500'000;
    home.imputedRentalValue = 18'000;
    home.rooms = 5;
    return taxCase;
}

TaxCase liechtensteinOwners() {
    TaxCase taxCase = spotlessLiechtenstein();
    RealEstate& home = taxCase.realEstate.emplace_back();
    home.municipality = "Vaduz";
    home.canton = "FL";
    home.taxValue = 500'000;
    return taxCase;
}

/// With a debt, a car and an insurance in order.
TaxCase possessors() {
    TaxCase taxCase = spotlessHousehold();
    Debt& debt = taxCase.debts.emplace_back();
    debt.creditor = "Bank";
    debt.amount = 50'000;
    debt.interest = 700;
    Vehicle& car = taxCase.vehicles.emplace_back();
    car.description = "Kombi";
    car.purchasePrice = 20'000;
    car.purchaseYear = 2024;
    InsurancePolicy& policy = taxCase.insurances.emplace_back();
    policy.company = "Leben";
    policy.startYear = 2020;
    policy.endYear = 2030;
    policy.surrenderValue = 8'000;
    return taxCase;
}

/// A second line in the register.
SecurityEntry& add(TaxCase& c, AssetKind kind, const Decimal& value, const char* number = "") {
    SecurityEntry& entry = c.securities.emplace_back();
    entry.kind = kind;
    entry.institution = "Bank";
    entry.taxValue = value;
    entry.ibanOrValor = number;
    return entry;
}

/// Shares of a property, in percent, in a household of its own.
void own(RealEstate& property, int share1, int share2, CivilStatus& status) {
    property.sharePerson1 = share1;
    property.sharePerson2 = share2;
    status = CivilStatus::geschieden;
}

std::vector<testing::LevelledRow> accountRows() {
    return {
        {warning,
         {"zins-ohne-verrechnungssteuer-1",
          [](TaxCase& c) { c.securities[0].incomeWithoutWithholding = 201; },
          [](TaxCase& c) { c.securities[0].incomeWithoutWithholding = 200; }}},
        {info,
         {"ertrag-fehlt-2", [](TaxCase& c) { add(c, AssetKind::wertschrift, 20'001); },
          [](TaxCase& c) { add(c, AssetKind::wertschrift, 20'000); }}},
        {info,
         {"ertrag-ohne-wert-1", [](TaxCase& c) { c.securities[0].taxValue = 0; },
          [](TaxCase& c) { c.securities[0].taxValue = 1; }, spotlessLiechtenstein}},
        {warning,
         {"wertschrift-nicht-gemeinsam-1",
          [](TaxCase& c) { c.securities[0].owner = Owner::person2; },
          [](TaxCase& c) { c.securities[0].owner = Owner::person1; }, unmarried}},
        {warning,
         {"iban-pruefziffer-1",
          [](TaxCase& c) { c.securities[0].ibanOrValor = "CH93 0076 2011 6238 5295 8"; },
          [](TaxCase& c) { c.securities[0].ibanOrValor = "CH93 0076 2011 6238 5295 7"; }}},
        {info,
         {"fremdwaehrung-umrechnen-1",
          [](TaxCase& c) { c.securities[0].description = "Konto (EUR)"; },
          [](TaxCase& c) { c.securities[0].description = "Aktien EUROPA"; }}},
        {warning,
         {"krypto-ohne-wert-2", [](TaxCase& c) { add(c, AssetKind::krypto, 0).quantity = 1; },
          [](TaxCase& c) { add(c, AssetKind::krypto, 1).quantity = 1; }, spotlessLiechtenstein}},
        {warning,
         {"eintrag-doppelt-2",
          [](TaxCase& c) {
              c.securities[0].ibanOrValor = "CH9300762011623852957";
              add(c, AssetKind::konto, 100, "ch93 0076 2011 6238 5295 7");
          },
          [](TaxCase& c) {
              c.securities[0].ibanOrValor = "1213853";
              add(c, AssetKind::wertschrift, 100, "1213853");
          }}},
        {warning,
         {"geschaeftsvermoegen-fehlt",
          [](TaxCase& c) { c.securities[0].code = AssetCode::businessParticipation; },
          [](TaxCase& c) {
              c.securities[0].code = AssetCode::businessParticipation;
              c.businessAssets = 20'000;
          }}},
        {info,
         {"selbstaendig-ohne-geschaeftsvermoegen",
          [](TaxCase& c) { c.income2.selfEmployment = 5'000; },
          [](TaxCase& c) {
              c.income2.selfEmployment = 5'000;
              c.civilStatus = CivilStatus::ledig;
          }}},
    };
}

std::vector<testing::LevelledRow> propertyRows() {
    return {
        {warning,
         {"liegenschaft-ohne-steuerwert-1", [](TaxCase& c) { c.realEstate[0].taxValue = 0; },
          [](TaxCase& c) { c.realEstate[0].taxValue = 1; }, liechtensteinOwners}},
        {warning,
         {"eigenmietwert-fehlt-1", [](TaxCase& c) { c.realEstate[0].imputedRentalValue = 0; },
          [](TaxCase& c) {
              c.realEstate[0].imputedRentalValue = 0;
              c.realEstate[0].use = PropertyUse::vermietet;
          },
          owners}},
        {warning,
         {"miete-selbstbewohnt-1", [](TaxCase& c) { c.realEstate[0].rentalIncome = 6'000; },
          [](TaxCase& c) {
              c.realEstate[0].rentalIncome = 6'000;
              c.realEstate[0].use = PropertyUse::gemischt;
          },
          owners}},
        {warning,
         {"miete-fehlt-1", [](TaxCase& c) { c.realEstate[0].use = PropertyUse::vermietet; },
          [](TaxCase& c) {
              c.realEstate[0].use = PropertyUse::vermietet;
              c.realEstate[0].rentalIncome = 1;
          },
          owners}},
        {warning,
         {"zimmer-unbenutzt-1", [](TaxCase& c) { c.realEstate[0].unusedRooms = 5; },
          [](TaxCase& c) { c.realEstate[0].unusedRooms = 4; }, owners}},
        {warning,
         {"eigentumsanteile-summe-1", [](TaxCase& c) { c.realEstate[0].sharePerson1 = 51; },
          [](TaxCase& c) {
              c.realEstate[0].sharePerson1 = 51;
              c.realEstate[0].sharePerson2 = 49;
          },
          liechtensteinOwners}},
        {warning,
         {"liegenschaft-nicht-gemeinsam-1",
          [](TaxCase& c) { own(c.realEstate[0], 0, 100, c.civilStatus); },
          [](TaxCase& c) { own(c.realEstate[0], 1, 99, c.civilStatus); }, owners}},
        {warning,
         {"liegenschaft-nicht-gemeinsam-1",
          [](TaxCase& c) { own(c.realEstate[0], 0, 100, c.civilStatus); },
          [](TaxCase& c) {
              own(c.realEstate[0], 0, 100, c.civilStatus);
              c.li->useRealEstateFromList = false;
          },
          liechtensteinOwners}},
        {warning,
         {"hauptwohnsitz-gemeinde-1", [](TaxCase& c) { c.realEstate[0].municipality = "Wil"; },
          [](TaxCase& c) { c.realEstate[0].municipality = "ST.GALLEN"; }, owners}},
        {warning,
         {"hauptwohnsitz-mehrfach", [](TaxCase& c) { c.realEstate.push_back(c.realEstate[0]); },
          [](TaxCase& c) {
              c.realEstate.push_back(c.realEstate[0]);
              c.realEstate[1].isPrimaryResidence = false;
          },
          owners}},
        {warning,
         {"li-liegenschaft-ausland-1", [](TaxCase& c) { c.realEstate[0].canton = "SG"; },
          [](TaxCase& c) {
              c.realEstate[0].canton = "SG";
              c.realEstate[0].municipality = "Buchs";
          },
          liechtensteinOwners}},
        {warning,
         {"li-liegenschaft-ausland-2", [](TaxCase& c) { c.realEstate.emplace_back(); },
          [](TaxCase& c) { c.realEstate.emplace_back().canton = "AT"; }, liechtensteinOwners}},
        {warning,
         {"li-liegenschaften-ausgeschaltet",
          [](TaxCase& c) { c.li->useRealEstateFromList = false; },
          [](TaxCase& c) {
              c.li->useRealEstateFromList = false;
              c.realEstate[0].canton = "AT";
          },
          liechtensteinOwners}},
    };
}

std::vector<testing::LevelledRow> possessionRows() {
    return {
        {warning,
         {"schuld-ohne-zins-1", [](TaxCase& c) { c.debts[0].interest = 0; },
          [](TaxCase& c) {
              c.debts[0].interest = 0;
              c.debts[0].isBusiness = true;
          },
          possessors}},
        {info,
         {"zins-ohne-schuld-1", [](TaxCase& c) { c.debts[0].amount = 0; },
          [](TaxCase& c) { c.debts[0].amount = 1; }, possessors}},
        {warning,
         {"schuldzins-hoch-1", [](TaxCase& c) { c.debts[0].interest = 5'001; },
          [](TaxCase& c) { c.debts[0].interest = 5'000; }, possessors}},
        {warning,
         {"fahrzeug-ohne-preis-1", [](TaxCase& c) { c.vehicles[0].purchasePrice = 0; },
          [](TaxCase& c) {
              c.vehicles[0].purchasePrice = 0;
              c.vehicles[0].taxValueOverride = 0;
          },
          possessors}},
        {info,
         {"fahrzeug-ohne-kaufjahr-1", [](TaxCase& c) { c.vehicles[0].purchaseYear.reset(); },
          [](TaxCase& c) { c.vehicles[0].purchaseYear = 1950; }, possessors}},
        {warning,
         {"fahrzeug-kaufjahr-1", [](TaxCase& c) { c.vehicles[0].purchaseYear = 2026; },
          [](TaxCase& c) { c.vehicles[0].purchaseYear = 2025; }, possessors}},
        {warning,
         {"fahrzeug-kaufjahr-1", [](TaxCase& c) { c.vehicles[0].purchaseYear = 1949; },
          [](TaxCase& c) { c.vehicles[0].purchaseYear = 1950; }, possessors}},
        {warning,
         {"versicherung-abgelaufen-1", [](TaxCase& c) { c.insurances[0].endYear = 2024; },
          [](TaxCase& c) { c.insurances[0].endYear = 2025; }, possessors}},
        {warning,
         {"versicherung-beginn-1", [](TaxCase& c) { c.insurances[0].startYear = 2026; },
          [](TaxCase& c) { c.insurances[0].startYear = 2025; }, possessors}},
    };
}

std::vector<testing::LevelledRow> allRows() {
    return testing::joined<testing::LevelledRow>({accountRows(), propertyRows(), possessionRows()});
}

TEST(WealthChecks, speakUp) {
    testing::expectAllChecks({"SecurityChecks.cpp", "WealthChecks.cpp"}, allRows());
}

TEST(WealthChecks, findNothingInPossessionsInOrder) {
    const std::set<std::string> imputedRent{"eigenmietwert-bund"};
    EXPECT_EQ(testing::reviewedIds(owners()), imputedRent);
    EXPECT_EQ(testing::reviewedIds(possessors()), std::set<std::string>{});
    EXPECT_EQ(testing::reviewedIds(liechtensteinOwners()), std::set<std::string>{});
}

TEST(WealthChecks, knowAForeignAccountByItsNumber) {
    for (const auto& [number, isSwiss] : {std::pair("", true),
                                          {"CH93 0076 2011 6238 5295 7", true},
                                          {"LI21 0881 0000 2324 013A A", false},
                                          {"DE89 3704 0044 0532 0130 00", false}}) {
        TaxCase taxCase = spotlessHousehold();
        taxCase.securities[0].ibanOrValor = number;
        taxCase.securities[0].incomeWithoutWithholding = 500;
        EXPECT_EQ(testing::reviewedIds(taxCase).contains("zins-ohne-verrechnungssteuer-1"), isSwiss)
            << number;
    }
}

} // namespace

std::vector<testing::CheckRow> testing::wealthRows() { return testing::withoutLevels(allRows()); }

} // namespace taxcore
