#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

using testing::CheckRow;
using testing::spotlessLiechtenstein;

WorkExpenses& work(TaxCase& c) { return c.deductions1.work; }

void drive(TaxCase& c, const Decimal& kilometres, int days, const char* reason = "Schichtarbeit") {
    work(c).carKmOneWay = kilometres;
    work(c).carWorkDays = days;
    work(c).carJustification = reason;
}

void eatOut(TaxCase& c, MealSituation situation, int days) {
    work(c).meals = situation;
    work(c).mealDays = days;
}

void addSideJob(TaxCase& c) {
    SalaryCertificate& side = c.income1.salaries.emplace_back();
    side.employer = "Turnverein";
    side.isMainEmployment = false;
    side.grossSalary = 2'000;
}

std::vector<CheckRow> commuteRows() {
    return {
        {"arbeitsweg-begruendung-1", [](TaxCase& c) { drive(c, 20, 200, " "); },
         [](TaxCase& c) { drive(c, 20, 200, "Schicht"); }},
        {"arbeitsweg-unvollstaendig-1", [](TaxCase& c) { drive(c, 20, 0); },
         [](TaxCase& c) {
             drive(c, 20, 0);
             work(c).publicTransportCost = 800;
         }},
        {"arbeitsweg-unvollstaendig-1", [](TaxCase& c) { drive(c, 0, 200); }, [](TaxCase&) {}},
        {"arbeitsweg-feld-f-1",
         [](TaxCase& c) {
             drive(c, 20, 200, "");
             c.income1.salaries[0].fieldF = true;
         },
         [](TaxCase& c) { c.income1.salaries[0].fieldF = true; }},
        {"arbeitsweg-tage-1", [](TaxCase& c) { drive(c, 20, 221); },
         [](TaxCase& c) { drive(c, 20, 220); }},
        {"arbeitsweg-kilometer-1", [](TaxCase& c) { drive(c, 151, 200); },
         [](TaxCase& c) { drive(c, 150, 200); }},
        {"arbeitsweg-fahrten-1",
         [](TaxCase& c) {
             drive(c, 5, 200);
             work(c).carTripsPerDay = 5;
         },
         [](TaxCase& c) {
             drive(c, 5, 200);
             work(c).carTripsPerDay = 4;
         }},
        {"arbeitsweg-oev-und-auto-1",
         [](TaxCase& c) {
             drive(c, 20, 200);
             work(c).publicTransportCost = 800;
         },
         [](TaxCase& c) {
             drive(c, 20, 200);
             work(c).useBicycle = true;
         }},
    };
}

std::vector<CheckRow> otherRows() {
    return {
        {"berufskosten-ohne-lohn-1",
         [](TaxCase& c) {
             work(c).publicTransportCost = 800;
             c.income1.salaries.clear();
         },
         [](TaxCase& c) { c.income1.salaries.clear(); }},
        {"verpflegung-feld-g-1",
         [](TaxCase& c) {
             eatOut(c, MealSituation::auswaerts, 100);
             c.income1.salaries[0].fieldG = true;
         },
         [](TaxCase& c) {
             eatOut(c, MealSituation::schicht, 100);
             c.income1.salaries[0].fieldG = true;
         }},
        {"verpflegung-unvollstaendig-1", [](TaxCase& c) { eatOut(c, MealSituation::auswaerts, 0); },
         [](TaxCase& c) { eatOut(c, MealSituation::auswaerts, 1); }},
        {"verpflegung-unvollstaendig-1", [](TaxCase& c) { eatOut(c, MealSituation::keine, 1); },
         [](TaxCase& c) { eatOut(c, MealSituation::keine, 0); }},
        {"verpflegung-tage-1", [](TaxCase& c) { eatOut(c, MealSituation::schicht, 221); },
         [](TaxCase& c) { eatOut(c, MealSituation::schicht, 220); }},
        {"uebrige-kosten-nicht-gewaehlt-1",
         // the canton's flat rate at its most; 3% of the salary are less
         [](TaxCase& c) { work(c).actualOtherCosts = 2'401; },
         [](TaxCase& c) { work(c).actualOtherCosts = 2'400; }},
        {"uebrige-kosten-nicht-gewaehlt-1", [](TaxCase& c) { work(c).actualOtherCosts = 9'000; },
         [](TaxCase& c) {
             work(c).actualOtherCosts = 9'000;
             work(c).useActualOtherCosts = true;
         }},
        {"uebrige-kosten-nicht-gewaehlt-1", // more than the canton's, less than the federation's
         [](TaxCase& c) {
             c.income1.salaries[0].grossSalary = 200'000;
             work(c).actualOtherCosts = 4'001;
         },
         [](TaxCase& c) {
             c.income1.salaries[0].grossSalary = 200'000;
             work(c).actualOtherCosts = 4'000;
         }},
        {"uebrige-kosten-nicht-gewaehlt-1", // no flat rate beside the employer's
         [](TaxCase& c) {
             work(c).actualOtherCosts = 1;
             c.income1.salaries[0].flatRateExpenses = 3'000;
         },
         [](TaxCase& c) {
             work(c).actualOtherCosts = 9'000;
             c.income1.salaries[0].isMainEmployment = false;
         }},
        {"uebrige-kosten-pauschalspesen-1",
         [](TaxCase& c) { c.income1.salaries[0].flatRateExpenses = 3'000; },
         [](TaxCase& c) {
             c.income1.salaries[0].flatRateExpenses = 3'000;
             work(c).useActualOtherCosts = true;
         }},
        {"wochenaufenthalt-monate-1",
         [](TaxCase& c) {
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 13;
         },
         [](TaxCase& c) {
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 12;
         }},
        {"wochenaufenthalt-leer-1", [](TaxCase& c) { work(c).weeklyStay = true; },
         [](TaxCase& c) {
             work(c).weeklyStay = true;
             work(c).weeklyStayDays = 1;
         }},
        {"wochenaufenthalt-leer-1",
         [](TaxCase& c) {
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 3;
         },
         [](TaxCase& c) {
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 3;
             work(c).weeklyStayRoomPerMonth = 600;
         }},
        {"wochenaufenthalt-arbeitsweg-1",
         [](TaxCase& c) {
             drive(c, 80, 54);
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 12;
         },
         [](TaxCase& c) {
             drive(c, 80, 53);
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 12;
         }},
        {"wochenaufenthalt-arbeitsweg-1", // half the year's days and the weekly journeys
         [](TaxCase& c) {
             drive(c, 80, 164);
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 6;
         },
         [](TaxCase& c) {
             drive(c, 80, 163);
             work(c).weeklyStay = true;
             work(c).weeklyStayMonths = 6;
         }},
        {"nebenerwerb-fehlt-1", [](TaxCase& c) { work(c).sideJobActualCosts = 900; },
         [](TaxCase& c) {
             work(c).sideJobActualCosts = 900;
             addSideJob(c);
         }},
        {"nebenerwerb-nicht-gewaehlt-1",
         [](TaxCase& c) {
             work(c).sideJobActualCosts = 801;
             addSideJob(c);
         },
         [](TaxCase& c) {
             work(c).sideJobActualCosts = 800;
             addSideJob(c);
         }},
        {"nebenerwerb-nicht-gewaehlt-1",
         [](TaxCase& c) {
             work(c).sideJobActualCosts = 900;
             addSideJob(c);
         },
         [](TaxCase& c) {
             work(c).sideJobActualCosts = 900;
             work(c).sideJobUseActual = true;
             addSideJob(c);
         }},
    };
}

void goAbroad(TaxCase& c, const Decimal& kilometres) {
    c.li->commute2.mode = LICommute::Mode::ausland;
    c.li->commute2.kmPerDay = kilometres;
}

void goInland(TaxCase& c, const char* from, const char* to) {
    c.li->commute1.from = from;
    c.li->commute1.to = to;
}

std::vector<CheckRow> liechtensteinRows() {
    return {
        {"berufskosten-ohne-lohn-2",
         [](TaxCase& c) {
             goAbroad(c, 30);
             c.income2.salaries.clear();
         },
         [](TaxCase& c) { c.income2.salaries.clear(); }, spotlessLiechtenstein},
        {"li-ort-unbekannt-1", [](TaxCase& c) { goInland(c, "Sargans", "Vaduz"); },
         [](TaxCase& c) { goInland(c, "Balzers", "Vaduz"); }, spotlessLiechtenstein},
        {"li-ort-unbekannt-1", [](TaxCase& c) { goInland(c, "Balzers", ""); },
         [](TaxCase& c) { goInland(c, "", " "); }, spotlessLiechtenstein},
        {"li-fahrkosten-tabelle", [](TaxCase& c) { goInland(c, "Balzers", "Vaduz"); },
         [](TaxCase& c) { goInland(c, "Balzers", "Bern"); }, spotlessLiechtenstein},
        {"li-kilometer-fehlen-2", [](TaxCase& c) { goAbroad(c, 0); },
         [](TaxCase& c) { goAbroad(c, 1); }, spotlessLiechtenstein},
        {"li-kilometer-2", [](TaxCase& c) { goAbroad(c, 201); },
         [](TaxCase& c) { goAbroad(c, 200); }, spotlessLiechtenstein},
        {"li-arbeitstage-1", [](TaxCase& c) { c.li->commute1.workDays = 221; },
         [](TaxCase& c) { c.li->commute1.workDays = 220; }, spotlessLiechtenstein},
        {"li-verpflegung-tage-1", [](TaxCase& c) { c.li->commute1.mealDays = 221; },
         [](TaxCase& c) { c.li->commute1.mealDays = 220; }, spotlessLiechtenstein},
        {"li-arbeitsort-2",
         [](TaxCase& c) {
             goAbroad(c, 30);
             c.income2.salaries[0].employerInLiechtenstein = true;
         },
         [](TaxCase& c) { goAbroad(c, 30); }, spotlessLiechtenstein},
        {"li-arbeitsort-1",
         [](TaxCase& c) {
             goInland(c, "Balzers", "Vaduz");
             c.income1.salaries[0].employerInLiechtenstein = false;
         },
         [](TaxCase& c) { c.income1.salaries[0].employerInLiechtenstein = false; },
         spotlessLiechtenstein},
    };
}

std::vector<CheckRow> allRows() {
    return testing::joined<CheckRow>({commuteRows(), otherRows(), liechtensteinRows()});
}

TEST(WorkChecks, speakUp) {
    testing::expectAllChecks({"WorkChecks.cpp", "LiechtensteinWorkChecks.cpp"}, allRows());
}

TEST(WorkChecks, leadToThePlaceThatIsNotInTheTable) {
    TaxCase taxCase = spotlessLiechtenstein();
    goInland(taxCase, "Balzers", "Bern");
    EXPECT_EQ(testing::reviewed(taxCase).at(0).path, "li.commute1.to");
    goInland(taxCase, "Bern", "Balzers");
    EXPECT_EQ(testing::reviewed(taxCase).at(0).path, "li.commute1.from");
    taxCase.li.reset();
    EXPECT_EQ(testing::reviewedIds(taxCase), std::set<std::string>{});
}

TEST(WorkChecks, adviseKilometresOnlyForAPlaceOfWorkThatIsNotInTheTable) {
    TaxCase taxCase = spotlessLiechtenstein();
    const auto advisesAbroad = [&](const char* from, const char* to) {
        goInland(taxCase, from, to);
        return testing::reviewed(taxCase).at(0).message.find("«Arbeitsort im Ausland»")
               != std::string::npos;
    };
    EXPECT_TRUE(advisesAbroad("Balzers", "Bern"));
    EXPECT_TRUE(advisesAbroad("Balzers", ""));
    EXPECT_FALSE(advisesAbroad("Bern", "Balzers"));
}

} // namespace

std::vector<testing::CheckRow> testing::workRows() { return allRows(); }

} // namespace taxcore
