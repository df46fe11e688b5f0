#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

using testing::CheckRow;
using testing::spotlessLiechtenstein;

Date day(int year, int month, int dayOfMonth) { return Date::of(year, month, dayOfMonth).value(); }

SalaryCertificate& salary(TaxCase& c) { return c.income1.salaries[0]; }

/// The certificate of person 1 once more, with an identity of its own.
SalaryCertificate& secondSalary(TaxCase& c) {
    SalaryCertificate again = salary(c);
    again.id = Uuid::random();
    return c.income1.salaries.emplace_back(again);
}

void addPension(TaxCase& c, const Decimal& percent) {
    PensionIncome& pension = c.income2.pensions.emplace_back();
    pension.amount = 1'000;
    pension.taxablePercent = percent;
}

/// Somebody who earned `gross` without contributions at the age at the year's end.
std::function<void(TaxCase&)> earns(int age, int gross) {
    return [=](TaxCase& c) {
        c.person1.birthDate = day(2025 - age, 6, 1);
        salary(c).grossSalary = gross;
        salary(c).socialContributions = 0;
        salary(c).pensionContributions = 0;
    };
}

std::function<void(TaxCase&)> earnsWithoutFund(int age, int gross) {
    return [=](TaxCase& c) {
        earns(age, gross)(c);
        c.person1.hasPensionFund = false;
    };
}

std::vector<CheckRow> contributionRows() {
    return {
        {"lohn-ahv-fehlt-1-1", earns(40, 2'501), earns(40, 2'500)},
        {"lohn-ahv-fehlt-1-1", earns(18, 20'000), earns(17, 20'000)},
        {"lohn-ahv-fehlt-1-1", earns(65, 16'801), earns(65, 16'800)},
        {"lohn-ahv-fehlt-1-1", earns(64, 16'800),
         [](TaxCase& c) { // the net salary typed from the certificate
             earns(64, 16'800)(c);
             salary(c).netSalaryOverride = 15'000;
         }},
        {"lohn-bvg-fehlt-1-1", earns(40, 22'681), earns(40, 22'680)},
        {"lohn-bvg-fehlt-1-1", earns(25, 30'000), earns(24, 30'000)},
        {"lohn-bvg-fehlt-1-1", earns(64, 30'000), earns(65, 30'000)},
        // A fund that is not ticked may be forgotten as well.
        {"lohn-bvg-fehlt-1-1", earnsWithoutFund(40, 22'681), earnsWithoutFund(40, 22'680)},
        {"lohn-bvg-fehlt-1-1", earns(40, 22'681), earnsWithoutFund(40, 22'681),
         spotlessLiechtenstein},
        {"lohn-bvg-fehlt-1-2", [](TaxCase& c) { secondSalary(c).pensionContributions = 0; },
         [](TaxCase& c) {
             secondSalary(c).pensionContributions = 0;
             c.income1.salaries[1].isMainEmployment = false;
         }},
        // Liechtenstein deducts what stands in the boxes, whatever the net salary.
        {"lohn-ahv-fehlt-1-1",
         [](TaxCase& c) {
             salary(c).socialContributions = 0;
             salary(c).netSalaryOverride = 85'500;
         },
         [](TaxCase&) {}, testing::spotlessLiechtenstein},
    };
}

std::vector<CheckRow> certificateRows() {
    return {
        {"lohn-arbeitgeber-fehlt-2-1", [](TaxCase& c) { c.income2.salaries[0].employer = " "; },
         [](TaxCase& c) {
             c.income2.salaries[0].employer = "";
             c.civilStatus = CivilStatus::ledig;
         }},
        {"lohn-periode-fehlt-1-1", [](TaxCase& c) { salary(c).periodTo.reset(); },
         [](TaxCase& c) {
             salary(c).periodTo.reset();
             salary(c).isMainEmployment = false;
         }},
        {"lohn-periode-verkehrt-1-1",
         [](TaxCase& c) {
             salary(c).periodFrom = day(2025, 6, 2);
             salary(c).periodTo = day(2025, 6, 1);
         },
         [](TaxCase& c) { salary(c).periodFrom = salary(c).periodTo = day(2025, 6, 1); }},
        {"lohn-periode-jahr-1-1", [](TaxCase& c) { salary(c).periodFrom = day(2024, 12, 31); },
         [](TaxCase& c) { salary(c).periodFrom = day(2025, 1, 1); }},
        {"lohn-periode-jahr-1-1", [](TaxCase& c) { salary(c).periodTo = day(2026, 1, 1); },
         [](TaxCase& c) { salary(c).periodTo = day(2025, 12, 31); }},
        // Anna's boxes give 90'000 − 5'760 − 4'500.
        {"lohn-netto-weicht-ab-1-1", [](TaxCase& c) { salary(c).netSalaryOverride = 79'743; },
         [](TaxCase& c) { salary(c).netSalaryOverride = 79'742; }},
        {"lohn-netto-weicht-ab-1-1", [](TaxCase& c) { salary(c).netSalaryOverride = 79'737; },
         [](TaxCase& c) { salary(c).netSalaryOverride = 79'738; }},
        {"lohn-netto-weicht-ab-1-1",
         [](TaxCase& c) {
             salary(c).pensionBuyIn = 3;
             salary(c).netSalaryOverride = 79'740;
         },
         [](TaxCase& c) {
             salary(c).pensionBuyIn = 3;
             salary(c).netSalaryOverride = 79'737;
         }},
        {"lohn-brutto-fehlt-1-1", [](TaxCase& c) { salary(c).grossSalary = 0; },
         [](TaxCase& c) { salary(c).grossSalary = 1; }},
        {"lohn-brutto-fehlt-1-1",
         [](TaxCase& c) { c.income1.salaries[0] = {.employer = "Muster AG"}; },
         [](TaxCase& c) { c.income1.salaries[0] = {.employer = "Muster AG", .grossSalary = 1}; }},
        {"lohn-brutto-fehlt-1-1",
         [](TaxCase& c) {
             c.income1.salaries[0] = {.employer = "Muster AG", .netSalaryOverride = 1};
         },
         [](TaxCase& c) {
             c.income1.salaries[0] = {.employer = "Muster AG", .netSalaryOverride = 0};
         }},
        {"lohn-doppelt-1-2", [](TaxCase& c) { secondSalary(c); },
         [](TaxCase& c) { secondSalary(c).grossSalary += 1; }},
        {"lohn-doppelt-2-1",
         [](TaxCase& c) {
             c.income2.salaries[0] = salary(c);
             c.income2.salaries[0].id = Uuid::random();
         },
         [](TaxCase& c) {
             c.income2.salaries[0] = salary(c);
             c.income2.salaries[0].id = Uuid::random();
             c.civilStatus = CivilStatus::ledig;
         }},
        {"lohn-ueberschneidung-1-2",
         [](TaxCase& c) {
             salary(c).periodTo = day(2025, 6, 30);
             secondSalary(c).periodFrom = day(2025, 6, 30);
             c.income1.salaries[1].periodTo = day(2025, 12, 31);
         },
         [](TaxCase& c) {
             salary(c).periodTo = day(2025, 6, 30);
             secondSalary(c).periodFrom = day(2025, 7, 1);
             c.income1.salaries[1].periodTo = day(2025, 12, 31);
         }},
        {"lohn-ueberschneidung-1-2", [](TaxCase& c) { secondSalary(c).grossSalary = 10'000; },
         [](TaxCase& c) {
             secondSalary(c).grossSalary = 10'000;
             c.income1.salaries[1].isMainEmployment = false;
         }},
    };
}

std::vector<CheckRow> personRows() {
    return {
        {"erwerb-nicht-erwerbstaetig-1",
         [](TaxCase& c) { c.person1.employment = EmploymentKind::nichtErwerbstaetig; },
         [](TaxCase& c) {
             c.person1.employment = EmploymentKind::nichtErwerbstaetig;
             c.income1.salaries.clear();
         }},
        {"erwerb-ohne-lohn-2", [](TaxCase& c) { c.income2 = {}; },
         [](TaxCase& c) {
             c.income2 = {};
             c.income2.unemployment = 1;
         }},
        {"erwerb-ohne-lohn-2", [](TaxCase& c) { c.income2 = {}; },
         [](TaxCase& c) {
             c.income2 = {};
             c.person2.employment = EmploymentKind::nichtErwerbstaetig;
         }},
        {"erwerb-selbstaendig-1",
         [](TaxCase& c) { c.person1.employment = EmploymentKind::selbstaendig; },
         [](TaxCase& c) {
             c.person1.employment = EmploymentKind::selbstaendig;
             c.income1.selfEmployment = -1;
         }},
        {"haupterwerb-fehlt-1", [](TaxCase& c) { salary(c).isMainEmployment = false; },
         [](TaxCase& c) { secondSalary(c).isMainEmployment = false; }},
        {"rente-prozent-2-2",
         [](TaxCase& c) {
             addPension(c, 40);
             addPension(c, 101);
         },
         [](TaxCase& c) {
             addPension(c, 0);
             addPension(c, 100);
         }},
        {"rente-prozent-2-1", [](TaxCase& c) { addPension(c, -1); },
         [](TaxCase& c) { addPension(c, 22); }},
        {"ahv-rente-alter-1",
         [](TaxCase& c) {
             c.person1.birthDate = day(2008, 1, 1);
             c.income1.ahvPension = 100;
         },
         [](TaxCase& c) {
             c.person1.birthDate = day(2007, 12, 31);
             c.income1.ahvPension = 100;
         }},
        {"ahv-rente-fehlt-2", [](TaxCase& c) { c.person2.birthDate = day(1959, 12, 31); },
         [](TaxCase& c) { c.person2.birthDate = day(1960, 1, 1); }},
        {"ahv-rente-fehlt-2", [](TaxCase& c) { c.person2.birthDate = day(1950, 1, 1); },
         [](TaxCase& c) {
             c.person2.birthDate = day(1950, 1, 1);
             addPension(c, 100);
             c.income2.pensions[0].label = "AHV-Rente";
         }},
        {"familienzulagen-ohne-kinder",
         [](TaxCase& c) {
             c.householdIncome.familyAllowancesDirect = 2'760;
             c.children.clear();
         },
         [](TaxCase& c) { c.householdIncome.familyAllowancesDirect = 2'760; }},
        {"kinderunterhalt-ohne-kinder",
         [](TaxCase& c) {
             c.householdIncome.alimonyReceivedChildren = 6'000;
             c.children[0].birthDate = day(2026, 1, 1);
         },
         [](TaxCase& c) {
             c.householdIncome.alimonyReceivedChildren = 6'000;
             c.children[0].birthDate = day(2025, 12, 31);
         }},
        {"uebrige-einkuenfte-bezeichnung", [](TaxCase& c) { c.householdIncome.otherIncome = 480; },
         [](TaxCase& c) {
             c.householdIncome.otherIncome = 480;
             c.householdIncome.otherIncomeDescription = "Preisgeld";
         }},
    };
}

std::vector<CheckRow> allRows() {
    return testing::joined<CheckRow>({contributionRows(), certificateRows(), personRows()});
}

TEST(IncomeChecks, speakUp) {
    testing::expectAllChecks({"IncomeChecks.cpp", "SalaryChecks.cpp"}, allRows());
}

TEST(IncomeChecks, tellOfOneFaultOnce) {
    TaxCase netOnly = testing::spotlessHousehold();
    salary(netOnly).socialContributions = 0;
    salary(netOnly).pensionContributions = 0;
    salary(netOnly).netSalaryOverride = 80'000;
    EXPECT_EQ(testing::reviewedIds(netOnly), std::set<std::string>{"lohn-netto-weicht-ab-1-1"});
    TaxCase twice = testing::spotlessHousehold();
    secondSalary(twice);
    EXPECT_EQ(testing::reviewedIds(twice), std::set<std::string>{"lohn-doppelt-1-2"});
}

} // namespace

std::vector<testing::CheckRow> testing::incomeRows() { return allRows(); }

} // namespace taxcore
