#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

using testing::spotlessLiechtenstein;
using enum Notice::Level;

void give(TaxCase& c, const char* recipient, bool toParty = false, int year = 2025) {
    Donation& donation = c.householdDeductions.donations.emplace_back();
    donation.recipient = recipient;
    donation.amount = 200;
    donation.isPoliticalParty = toParty;
    donation.date = Date::of(year, 12, 31);
}

MedicalCost& bill(TaxCase& c, int year) {
    MedicalCost& cost = c.householdDeductions.medicalCosts.emplace_back();
    cost.provider = "Zahnarzt";
    cost.gross = 300;
    cost.date = Date::of(year, 1, 1);
    return cost;
}

/// A child with childcare costs that is born on a day.
void care(TaxCase& c, int year, int month, int day) {
    c.children[0].birthDate = Date::of(year, month, day);
    c.children[0].childcareCosts = 3'000;
}

std::vector<testing::LevelledRow> childRows() {
    return {
        {warning,
         {"kinderbetreuung-alter-1", [](TaxCase& c) { care(c, 2011, 1, 1); },
          [](TaxCase& c) { care(c, 2011, 1, 2); }}},
        {info,
         {"kinderbetreuung-geburtstag-1", [](TaxCase& c) { care(c, 2011, 12, 31); },
          [](TaxCase& c) { care(c, 2012, 1, 1); }}},
        {warning,
         {"kinderbetreuung-tage-1",
          [](TaxCase& c) {
              c.children[0].childcareCosts = 9'000;
              c.children[0].childcareDaysWithMealsIncluded = 367;
          },
          [](TaxCase& c) {
              c.children[0].childcareCosts = 9'000;
              c.children[0].childcareDaysWithMealsIncluded = 366;
          }}},
        {warning,
         {"kinderbetreuung-ohne-kosten-1",
          [](TaxCase& c) { c.children[0].childcareDaysWithMealsIncluded = 1; },
          [](TaxCase& c) {
              c.children[0].childcareDaysWithMealsIncluded = 1;
              c.children[0].childcareCosts = 40;
          }}},
        {warning,
         {"kinderbetreuung-ohne-erwerb-2",
          [](TaxCase& c) {
              care(c, 2020, 3, 1);
              c.income2 = {};
          },
          [](TaxCase& c) {
              care(c, 2020, 3, 1);
              c.income2 = {};
              c.income2.dailyAllowances = 1;
          }}},
        {warning,
         {"kinderbetreuung-ohne-erwerb-1",
          [](TaxCase& c) {
              care(c, 2020, 3, 1);
              c.civilStatus = CivilStatus::geschieden;
              c.income1 = {};
              c.income1.ahvPension = 20'000;
          },
          [](TaxCase& c) { // a loss is work too, and the former spouse does not count
              care(c, 2020, 3, 1);
              c.civilStatus = CivilStatus::geschieden;
              c.income1 = {};
              c.income1.selfEmployment = -1;
              c.income2 = {};
          }}},
        {warning,
         {"kinderbetreuung-ohne-erwerb-2",
          [](TaxCase& c) {
              care(c, 2011, 1, 2);
              c.income2 = {};
          },
          [](TaxCase& c) { // there is no deduction anyway
              care(c, 2011, 1, 1);
              c.income2 = {};
          }}},
        {warning,
         {"ausbildungskosten-ohne-ausbildung-1",
          [](TaxCase& c) {
              c.children[0].education = ChildEducation::keine;
              c.children[0].educationCosts = 5'000;
          },
          [](TaxCase& c) { c.children[0].educationCosts = 5'000; }}},
        {warning,
         {"stipendien-ueber-kosten-1", [](TaxCase& c) { c.children[0].scholarships = 1; },
          [](TaxCase& c) {
              c.children[0].scholarships = 1;
              c.children[0].educationCosts = 1;
          },
          spotlessLiechtenstein}},
    };
}

std::vector<testing::LevelledRow> giftAndBillRows() {
    return {
        {warning,
         {"spende-an-partei-1", [](TaxCase& c) { give(c, "SP Stadt St.Gallen"); },
          [](TaxCase& c) { give(c, "SP Stadt St.Gallen", true); }}},
        {warning,
         {"spende-anderes-jahr-2",
          [](TaxCase& c) {
              give(c, "Bergrettung");
              give(c, "Hilfswerk", false, 2026);
          },
          [](TaxCase& c) {
              give(c, "Hilfswerk", false, 2024);
              give(c, "Bergrettung");
          }}},
        {warning,
         {"rechnung-anderes-jahr-1", [](TaxCase& c) { bill(c, 2024); },
          [](TaxCase& c) { bill(c, 2025); }, spotlessLiechtenstein}},
        {warning,
         {"rechnung-rueckverguetung-1", [](TaxCase& c) { bill(c, 2025).reimbursed = 301; },
          [](TaxCase& c) { bill(c, 2025).reimbursed = 300; }}},
        {warning,
         {"behinderung-doppelt",
          [](TaxCase& c) {
              bill(c, 2025).isDisabilityRelated = true;
              c.householdDeductions.disabilityFlatRate = 2'500;
          },
          [](TaxCase& c) {
              bill(c, 2025);
              c.householdDeductions.disabilityFlatRate = 2'500;
          }}},
    };
}

std::vector<testing::LevelledRow> householdRows() {
    return {
        {warning,
         {"unterhalt-erhalten-gemeinsam",
          [](TaxCase& c) { c.householdIncome.alimonyReceivedSelf = 1'000; },
          [](TaxCase& c) { c.householdIncome.alimonyReceivedChildren = 1'000; },
          spotlessLiechtenstein}},
        {info,
         {"unterhalt-bezahlt-gemeinsam",
          [](TaxCase& c) { c.householdDeductions.alimonyPaidPartner = 1'000; },
          [](TaxCase& c) {
              c.householdDeductions.alimonyPaidPartner = 1'000;
              c.civilStatus = CivilStatus::geschieden;
          }}},
        {warning,
         {"weiterbildung-pauschale-1",
          [](TaxCase& c) {
              c.deductions1.furtherEducationFlatRate = true;
              c.deductions1.furtherEducation = 401;
          },
          [](TaxCase& c) {
              c.deductions1.furtherEducationFlatRate = true;
              c.deductions1.furtherEducation = 400;
          }}},
        {warning,
         {"weiterbildung-ohne-erwerb-1",
          [](TaxCase& c) {
              c.deductions1.furtherEducationFlatRate = true;
              c.income1 = {};
              c.income1.ahvPension = 28'000;
          },
          [](TaxCase& c) {
              c.deductions1.furtherEducationFlatRate = true;
              c.income1 = {};
              c.income1.unemployment = 28'000;
          }}},
        {warning,
         {"unterstuetzte-personen", [](TaxCase& c) { c.householdDeductions.supportedPersons = 11; },
          [](TaxCase& c) { c.householdDeductions.supportedPersons = 10; }}},
        {warning,
         {"uebrige-abzuege-beschreibung",
          [](TaxCase& c) { c.householdDeductions.otherDeductions = 500; },
          [](TaxCase& c) {
              c.householdDeductions.otherDeductions = 500;
              c.householdDeductions.otherDeductionsDescription = "Konzessionen";
          }}},
        {warning,
         {"mitarbeit-alleinstehend",
          [](TaxCase& c) {
              c.householdDeductions.significantCooperation = true;
              c.civilStatus = CivilStatus::ledig;
          },
          [](TaxCase& c) { c.householdDeductions.significantCooperation = true; }}},
        {info,
         {"li-ohne-wirkung", [](TaxCase& c) { c.householdDeductions.dietFlatRate = true; },
          [](TaxCase& c) { c.householdDeductions.lifeInsurancePremiums = 300; },
          spotlessLiechtenstein}},
    };
}

std::vector<testing::LevelledRow> allRows() {
    return testing::joined<testing::LevelledRow>({childRows(), giftAndBillRows(), householdRows()});
}

TEST(OtherChecks, speakUp) { testing::expectAllChecks({"OtherChecks.cpp"}, allRows()); }

TEST(OtherChecks, recogniseParties) {
    struct Recipient {
        const char* name;
        bool isSwissParty;
        bool isLiechtensteinParty;
    };
    for (const auto& [name, swiss, liechtenstein] : {
             // Known names stand anywhere, in any spelling of their letters.
             Recipient{"svp", true, false},
             {"SVP des Kantons St.Gallen", true, false},
             {"Spende FDP.Die Liberalen", true, false},
             {"JUSO", true, false},
             {"Grünliberale Partei", true, true},
             {"GRÜNLIBERALE St.Gallen", true, false},
             {"Gruenliberale Wil", true, false},
             {"Jungfreisinnige Rheintal", true, false},
             {"Junge SVP", true, false},
             {"EVP", true, false},
             {"Sozialdemokratische Partei der Schweiz", true, true},
             {"Ortspartei Sevelen", true, true},
             {"Eidgenössisch-Demokratische Union", true, false},
             {"Freie Liste", false, true},
             {"Vaterländische Union, Ortsgruppe Balzers", false, true},
             {"VATERLÄNDISCHE UNION", false, true},
             {"Fortschrittliche Bürgerpartei", true, true},
             {"fbp Gamprin", false, true},
             {"DpL", false, true},
             {"Demokraten pro Liechtenstein", false, true},
             // Short ones stand alone or beside a place.
             {"SP", true, false},
             {"SP Stadt St.Gallen", true, false},
             {"sp buchs", true, false},
             {"SP Schweiz", true, false},
             {"SP Frauen Kanton St.Gallen", true, false},
             {"jf sg", true, false},
             {"Die Mitte", true, false},
             {"Die Mitte Werdenberg", true, false},
             {"«Die Mitte»", true, false},
             {"Mitte SG", true, false},
             {"Junge Mitte", true, false},
             {"Grüne", true, false},
             {"GRÜNE Schweiz", true, false},
             {"Gru\u0308ne St.Gallen", true, false},
             {"Die Grünen", true, false},
             {"Junge Grüne", true, false},
             {"EDU Toggenburg", true, false},
             {"PdA", true, false},
             {"VU", false, true},
             {"VU Balzers", false, true},
             {"FL", false, true},
             {"FL Triesenberg", false, true},
             // What only looks like a party.
             {"", false, false},
             {"Grünes Kreuz", false, false},
             {"Verein grüne Wiese", false, false},
             {"Grüne Oase Wil", false, false},
             {"Verein Die Mitte der Welt", false, false},
             {"Spitex Region Mitte", false, false},
             {"Mitte des Lebens", false, false},
             {"Rotes Kreuz FL", false, false},
             {"SP Unihockey", false, false},
             {"Edu Stiftung", false, false},
             {"SPITEX Buchs", false, false},
             {"Hospiz VU-Haus", false, false},
             {"Unparteiische Hilfe", false, false},
             {"Gegenpartei", false, false},
             {"Frauenhaus St.Gallen", false, false},
             {"Stiftung Freier Wille", false, false},
         }) {
        for (const bool inLiechtenstein : {false, true}) {
            TaxCase taxCase =
                inLiechtenstein ? spotlessLiechtenstein() : testing::spotlessHousehold();
            give(taxCase, name);
            EXPECT_EQ(testing::reviewedIds(taxCase).contains("spende-an-partei-1"),
                      inLiechtenstein ? liechtenstein : swiss)
                << name << ", Liechtenstein: " << inLiechtenstein;
        }
    }
}

TEST(OtherChecks, leaveOutChildrenNotYetBorn) {
    TaxCase taxCase = testing::spotlessHousehold();
    care(taxCase, 2026, 1, 1);
    const auto ids = testing::reviewedIds(taxCase);
    EXPECT_FALSE(ids.contains("kinderbetreuung-alter-1"));
    EXPECT_FALSE(ids.contains("kinderbetreuung-geburtstag-1"));
}

} // namespace

std::vector<testing::CheckRow> testing::otherPageRows() {
    return testing::withoutLevels(allRows());
}

} // namespace taxcore
