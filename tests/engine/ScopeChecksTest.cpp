#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

using testing::CheckRow;
using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;

Date day(int year, int month, int dayOfMonth) { return Date::of(year, month, dayOfMonth).value(); }

void employ(TaxCase& c, const Date& from, const Date& to) {
    for (PersonIncome* income : {&c.income1, &c.income2}) {
        income->salaries[0].periodFrom = from;
        income->salaries[0].periodTo = to;
    }
}

void own(TaxCase& c, const char* canton) {
    RealEstate& property = c.realEstate.emplace_back();
    property.description = "Ferienhaus";
    property.canton = canton;
    property.taxValue = 200'000;
    property.isPrimaryResidence = false;
}

std::vector<CheckRow> rows() {
    return {
        {"nicht-berechnet-unterjaehrig",
         [](TaxCase& c) { employ(c, day(2025, 2, 1), day(2025, 12, 31)); },
         [](TaxCase& c) { employ(c, day(2025, 1, 31), day(2025, 12, 31)); }},
        {"nicht-berechnet-unterjaehrig",
         [](TaxCase& c) { employ(c, day(2025, 1, 1), day(2025, 11, 30)); },
         [](TaxCase& c) { // the other one's salary fills the gap
             c.income1.salaries[0].periodTo = day(2025, 11, 30);
         }},
        {"nicht-berechnet-unterjaehrig",
         [](TaxCase& c) { employ(c, day(2025, 1, 1), day(2025, 11, 30)); },
         [](TaxCase& c) {
             employ(c, day(2025, 1, 1), day(2025, 11, 30));
             c.income2.unemployment = 3'000;
         }},
        {"nicht-berechnet-liegenschaft-1", [](TaxCase& c) { own(c, "GR"); },
         [](TaxCase& c) { own(c, "sg"); }},
        {"nicht-berechnet-liegenschaft-2",
         [](TaxCase& c) {
             own(c, "FL");
             own(c, "ZH");
         },
         [](TaxCase& c) {
             own(c, "FL");
             own(c, "LI");
         },
         spotlessLiechtenstein},
        {"nicht-berechnet-arbeitgeber-li-2",
         [](TaxCase& c) { c.income2.salaries[0].employerInLiechtenstein = true; },
         [](TaxCase& c) { c.income2.salaries[0].employerInLiechtenstein = false; }},
        {"nicht-berechnet-quellensteuer-1-1",
         [](TaxCase& c) { c.income1.salaries[0].remarks = "Abzug Quellensteuer 1'200"; },
         [](TaxCase& c) { c.income1.salaries[0].remarks = "Mitarbeiteraktien"; }},
        {"nicht-berechnet-steueranrechnung-1",
         [](TaxCase& c) { c.securities[0].description = "Dividenden USA, DA-1"; },
         [](TaxCase& c) { c.securities[0].description = "Dividenden"; }},
        {"nicht-berechnet-steueranrechnung-1",
         [](TaxCase& c) { c.securities[0].institution = "Depot (Steuerrückbehalt)"; },
         [](TaxCase& c) {
             c.securities[0].institution = "Depot (Steuerrückbehalt)";
             c.securities[0].code = AssetCode::business;
         }},
    };
}

TEST(ScopeChecks, speakUp) {
    testing::expectAllChecks({"ScopeChecks.cpp"}, rows(),
                             {"beleg-offen", "beleg-anderes-jahr", "nicht-berechnet-umzug",
                              "nicht-berechnet-zivilstand"});
}

TEST(ScopeChecks, tellOfDocumentsLeftAside) {
    const auto notices = testing::reviewed(spotlessHousehold(), {},
                                           {{"Lohnausweis", 2025, true},
                                            {"Spende", 2025, false},
                                            {"Bankauszug", 2024, true},
                                            {"", 2026, false},
                                            {"ohne Jahr", 0, true}});
    ASSERT_EQ(notices.size(), 3U);
    EXPECT_EQ(notices[0].id, "beleg-offen-2");
    EXPECT_NE(notices[0].message.find("«Spende»"), std::string::npos);
    EXPECT_EQ(notices[1].id, "beleg-anderes-jahr-3");
    EXPECT_NE(notices[1].message.find("2024"), std::string::npos);
    EXPECT_EQ(notices[2].id, "beleg-anderes-jahr-4");
    for (const Notice& notice : notices) {
        EXPECT_EQ(notice.level, Notice::Level::warning);
        EXPECT_EQ(notice.area, "documents");
    }
}

TEST(ScopeChecks, waitForTheYearToEndBeforeTheyMissSalaries) {
    TaxCase taxCase = spotlessHousehold();
    employ(taxCase, day(2025, 1, 1), day(2025, 6, 30));
    const auto calculator = CaseCalculator::forCase(taxCase).value();
    const TaxResult result = calculator.calculate(taxCase);
    EXPECT_TRUE(Checks::of({calculator, taxCase, result, day(2025, 12, 31)}).empty());
    EXPECT_EQ(Checks::of({calculator, taxCase, result, day(2026, 1, 1)}).size(), 1U);
}

TEST(ScopeChecks, compareWithTheYearBefore) {
    const TaxCase now = spotlessHousehold();
    TaxCase before = now;
    before.year = 2024;
    before.civilStatus = CivilStatus::eingetragenePartnerschaft;
    EXPECT_TRUE(testing::reviewed(now, {&before}).empty());
    before.civilStatus = CivilStatus::ledig;
    before.region = TaxRegion::liechtenstein;
    const auto notices = testing::reviewed(now, {&before});
    ASSERT_EQ(notices.size(), 2U);
    EXPECT_EQ(notices[0].id, "nicht-berechnet-umzug");
    EXPECT_EQ(notices[1].id, "nicht-berechnet-zivilstand");
    before.year = 2023;
    EXPECT_TRUE(testing::reviewed(now, {&before}).empty());
}

TEST(ScopeChecks, listWhatIsNotComputed) {
    for (const TaxRegion region : allValues<TaxRegion>()) {
        const auto sentences = Checks::notComputed(region);
        EXPECT_GE(sentences.size(), 5U);
        for (const std::string& sentence : sentences) {
            EXPECT_TRUE(sentence.ends_with('.')) << sentence;
            EXPECT_EQ(std::ranges::count(sentences, sentence), 1) << sentence;
        }
    }
}

} // namespace

std::vector<testing::CheckRow> testing::scopeRows() { return rows(); }

} // namespace taxcore
