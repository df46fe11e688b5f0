// The calculation of Liechtenstein piece by piece; whole households stand in tests/cases/li.

#include "TaxCore/liechtenstein/LiechtensteinCalculator.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <string>
#include <utility>

namespace taxcore {
namespace {

LiechtensteinCalculator calculator(int year = 2025) {
    return LiechtensteinCalculator(testing::shippedLIRules(year));
}

/// The rules of 2025 with a change.
template <class Change>
LiechtensteinCalculator changed(const Change& change) {
    auto rules = std::make_shared<LIRules>(*testing::shippedLIRules(2025));
    change(*rules);
    return LiechtensteinCalculator(rules);
}

TaxCase single(const Decimal& salary, int year = 2025) {
    TaxCase taxCase{.year = year};
    taxCase.region = TaxRegion::liechtenstein;
    taxCase.municipality = "Vaduz";
    taxCase.civilStatus = CivilStatus::ledig;
    taxCase.income1.salaries.emplace_back().grossSalary = salary;
    return taxCase;
}

LICommute abroad(const Decimal& kilometres, int days, const Decimal& reimbursed = 0) {
    LICommute commute;
    commute.mode = LICommute::Mode::ausland;
    commute.kmPerDay = kilometres;
    commute.workDays = days;
    commute.reimbursed = reimbursed;
    return commute;
}

LICommute inland(std::string from, std::string to, int days = 220, const Decimal& reimbursed = 0) {
    LICommute commute;
    commute.from = std::move(from);
    commute.to = std::move(to);
    commute.workDays = days;
    commute.reimbursed = reimbursed;
    return commute;
}

std::string noteOf(const TaxResult& result, std::string_view code) {
    const TaxLine* line = result.line(code);
    return line == nullptr ? "no line" : line->note.value_or("no note");
}

std::string labelOf(const TaxResult& result, std::string_view code) {
    const TaxLine* line = result.line(code);
    return line == nullptr ? "no line" : line->label;
}

const Notice* noticeOf(const TaxResult& result, std::string_view id) {
    const auto found = std::ranges::find(result.notices, id, &Notice::id);
    return found == result.notices.end() ? nullptr : &*found;
}

TEST(LiechtensteinWork, paysTheWayByKilometreOrByTheTableOfFares) {
    struct Row {
        LICommute commute;
        Decimal francs;
    };
    int number = 0;
    for (const Row& row : {
             Row{abroad(60, 220), 6'280}, // 10'000 × 0.50 + 3'200 × 0.40
             Row{abroad(50, 200), 5'000}, // 10'000 km to the kilometre
             Row{abroad(50.05_dec, 200), 5'004},
             Row{abroad(200, 220), 18'600},
             Row{abroad(200.5_dec, 221), 18'600}, // 200 km on 220 days at most
             Row{abroad(1, 1), 1},                // 0.50, away from zero
             Row{abroad(1, 1, 0.1_dec), 0},
             Row{abroad(60, 220, 6'279.5_dec), 1},
             Row{abroad(60, 220, 6'280), 0},
             Row{abroad(60, 220, 9'000), 0},
             Row{abroad(60, 0), 0},
             Row{abroad(60, -1), 0},
             Row{abroad(60, INT_MIN), 0},
             Row{abroad(60, INT_MAX), 6'280},
             Row{inland("Vaduz", "Balzers"), 1'880},
             Row{inland("Vaduz", "Balzers", 250), 1'880},
             Row{inland("Vaduz", "Balzers", 110), 940},
             Row{inland("Vaduz", "Balzers", 1), 9}, // 8.545
             Row{inland("Vaduz", "Balzers", 220, 379.6_dec), 1'500},
             Row{inland("Vaduz", "Balzers", 220, 1'881), 0},
             Row{inland("Vaduz", "Balzers", -5), 0},
             Row{inland("Vaduz", "Vaduz"), 0},
             Row{inland("Vaduz", "Sargans"), 0},
             Row{inland("Sargans", "Vaduz", 220, 500), 0}, // never below 0
             Row{inland("", ""), 0},
         }) {
        EXPECT_EQ(calculator().commute(row.commute), row.francs) << "row " << number;
        ++number;
    }
    LICommute both = inland("Vaduz", "Balzers", 100);
    both.kmPerDay = 10;
    EXPECT_EQ(calculator().commute(both), 855) << "inland the kilometres do not count"; // 854.55
    both.mode = LICommute::Mode::ausland;
    EXPECT_EQ(calculator().commute(both), 500) << "abroad the places do not count";
}

TEST(LiechtensteinWork, paysMealsByTheDayUpToAMaximum) {
    for (const auto& [days, francs] :
         {std::pair(INT_MIN, 0), std::pair(-1, 0), std::pair(0, 0), std::pair(1, 5),
          std::pair(219, 1'095), std::pair(220, 1'100), std::pair(221, 1'100),
          std::pair(INT_MAX, 1'100)}) {
        LICommute commute;
        commute.mealDays = days;
        EXPECT_EQ(calculator().meals(commute), francs) << days;
    }
}

TEST(LiechtensteinWork, costsAtLeastTheFlatRateButNotMoreThanTheSalary) {
    const auto withMeals = [](LICommute commute, int days) {
        commute.mealDays = days;
        return commute;
    };
    struct Row {
        const char* what;
        Decimal salary;
        LICommute way;
        std::array<Decimal, 3> parts; ///< way, meals, rest of the flat rate
    };
    for (const Row& row : {
             Row{"no salary", 0, withMeals(abroad(30, 220), 100), {0, 0, 0}},
             Row{"a salary paid back", -5, withMeals(abroad(30, 220), 100), {0, 0, 0}},
             Row{"a small salary", 1'000, LICommute(), {0, 0, 1'000}},
             Row{"the flat rate alone", 50'000, LICommute(), {0, 0, 1'600}},
             Row{"a salary of the flat rate", 1'600, LICommute(), {0, 0, 1'600}},
             Row{"less than the flat rate",
                 50'000,
                 withMeals(abroad(2, 220), 10),
                 {220, 50, 1'330}},
             Row{"less than a small salary", 300, withMeals(abroad(2, 220), 10), {220, 50, 30}},
             Row{"as much as the flat rate", 50'000, abroad(60, 220, 4'680), {1'600, 0, 0}},
             Row{"more than the flat rate",
                 50'000,
                 withMeals(abroad(60, 220), 99),
                 {6'280, 495, 0}},
             Row{"more than the salary", 1'000, abroad(60, 220), {6'280, 0, 0}},
         }) {
        SCOPED_TRACE(row.what);
        const auto costs = calculator().workCosts(row.salary, row.way);
        WorkExpenseBreakdown expected;
        expected.commute = row.parts[0];
        expected.meals = row.parts[1];
        expected.other = row.parts[2];
        EXPECT_EQ(costs.breakdown, expected);
        EXPECT_EQ(costs.total, row.parts[0] + row.parts[1] + row.parts[2]);
    }
}

TEST(LiechtensteinWork, remarksOnTheFareTableExactlyWhereItWasUsed) {
    const std::string used =
        "Fahrkosten Inland berechnet; bitte mit der amtlichen Tabelle vergleichen";
    LICommute crossing = inland("Vaduz", "Balzers");
    crossing.mode = LICommute::Mode::ausland;
    struct Row {
        const char* what;
        CivilStatus status;
        std::array<int, 2> salaries;
        std::array<LICommute, 2> ways;
        std::string note;
    };
    const LICommute table = inland("Vaduz", "Balzers");
    const LICommute none;
    const auto ledig = CivilStatus::ledig;
    const auto verheiratet = CivilStatus::verheiratet;
    for (const Row& row : {
             Row{"within the table", ledig, {50'000, 0}, {table, none}, used},
             Row{"paid by the employer",
                 ledig,
                 {50'000, 0},
                 {inland("Vaduz", "Balzers", 220, 9'000), none},
                 used},
             Row{"within a place", ledig, {50'000, 0}, {inland("Vaduz", "Vaduz"), none}, used},
             Row{"no way", ledig, {50'000, 0}, {none, none}, "no note"},
             Row{"out of the table",
                 ledig,
                 {50'000, 0},
                 {inland("Vaduz", "Chur"), none},
                 "no note"},
             Row{"abroad", ledig, {50'000, 0}, {crossing, none}, "no note"},
             Row{"only a spouse who is none", ledig, {50'000, 50'000}, {none, table}, "no note"},
             Row{"the second one", verheiratet, {50'000, 50'000}, {none, table}, used},
             Row{"without a salary", verheiratet, {50'000, 0}, {none, table}, "no note"},
             Row{"nobody with a salary", verheiratet, {0, 0}, {table, table}, "no line"},
         }) {
        TaxCase taxCase = single(row.salaries[0]);
        taxCase.civilStatus = row.status;
        taxCase.income2.salaries.emplace_back().grossSalary = row.salaries[1];
        LIExtras extras;
        extras.commute1 = row.ways[0];
        extras.commute2 = row.ways[1];
        taxCase.setLiExtras(extras);
        EXPECT_EQ(noteOf(calculator().calculate(taxCase), "580"), row.note) << row.what;
    }
}

TEST(LiechtensteinWealth, valuesAVehicleByItsAge) {
    struct Row {
        Decimal price;
        std::optional<int> bought;
        std::optional<Decimal> entered;
        int year;
        Decimal value;
    };
    const std::optional<int> unknown;
    const std::optional<Decimal> none;
    for (const Row& row : {
             Row{40'000, 2023, none, 2025, 16'900}, // 40'000 × 0.65 × 0.65
             Row{40'000, 2024, none, 2025, 26'000},
             Row{40'000, 2025, none, 2025, 40'000},
             Row{40'000, 2026, none, 2025, 40'000},
             Row{40'000, unknown, none, 2025, 40'000},
             Row{10'002, 2022, none, 2025, 2'747}, // 2'746.799
             Row{10, 2024, none, 2025, 7},         // 6.50, away from zero
             Row{99.5_dec, 2025, none, 2025, 100}, // no age, but whole francs
             Row{40'000, 2023, 12'345.65_dec, 2025, 12'345.65_dec},
             Row{40'000, 2023, 0, 2025, 0},
             Row{40'000, INT_MIN, none, 2025, 0},
             Row{40'000, INT_MAX, none, 2025, 40'000},
             Row{40'000, INT_MIN, none, INT_MAX, 0},
             Row{40'000, INT_MAX, none, INT_MIN, 40'000},
             Row{40'000, 0, none, INT_MIN, 40'000},
         }) {
        Vehicle vehicle;
        vehicle.purchasePrice = row.price;
        vehicle.purchaseYear = row.bought;
        vehicle.taxValueOverride = row.entered;
        EXPECT_EQ(calculator().vehicleValue(vehicle, row.year), row.value)
            << row.price << " of " << row.bought.value_or(0) << " in " << row.year;
    }
}

TEST(LiechtensteinWealth, countsAShareOfFullHundredsAsEarned) {
    struct Row {
        Decimal percent;
        Decimal cash;
        Decimal debt;
        Decimal earned;
        std::string label;
    };
    for (const Row& row : {
             Row{4, 123'456, 0, 4'936, "Sollertrag: 4 % von CHF 123’456"}, // of 123'400
             Row{4, 123'499.99_dec, 0, 4'936, "Sollertrag: 4 % von CHF 123’500"},
             Row{4, 200'000.5_dec, 100'000.6_dec, 3'996, "Sollertrag: 4 % von CHF 100’000"},
             Row{4, 100, 0, 4, "Sollertrag: 4 % von CHF 100"},
             Row{4, 99.99_dec, 0, 0, "Sollertrag: 4 % von CHF 100"},
             Row{4, 0, 0, 0, "Sollertrag: 4 % von CHF 0"},
             Row{4, 0, 51'900, 0, "Sollertrag: 4 % von CHF -51’900"},
             Row{4.5_dec, 100, 0, 5, "Sollertrag: 4 % von CHF 100"}, // 4.50, away from zero
         }) {
        const auto rules = changed([&](LIRules& r) { r.sollertragProzent = row.percent; });
        TaxCase taxCase = single(0);
        taxCase.cash = row.cash;
        taxCase.debts.emplace_back().amount = row.debt;
        const TaxResult result = rules.calculate(taxCase);
        EXPECT_EQ(result.value("885"), row.earned) << row.cash;
        EXPECT_EQ(result.value("570"), row.earned) << row.cash;
        EXPECT_EQ(labelOf(result, "885"), row.label);
        EXPECT_EQ(noteOf(result, "885"), "Das Vermögen wird nicht separat besteuert: 4 % davon "
                                         "zählen als Erwerb (Ziffer 14.6).");
    }
}

TEST(LiechtensteinTax, belongsToTheStepWhoseBoundIsReached) {
    using enum LITariffKind;
    struct Row {
        LITariffKind kind;
        Decimal income;
        Decimal tax;
    };
    for (const Row& row : {
             Row{alleinstehend, -50'000, 0},
             Row{alleinstehend, 0, 0},
             Row{alleinstehend, 15'855, 0},
             Row{alleinstehend, 15'910, 0.1_dec}, // 159.10 − 159
             Row{alleinstehend, 21'140, 52.4_dec},
             Row{alleinstehend, 21'150, 53.5_dec}, // 3 % − 581
             Row{alleinstehend, 105'700, 3'541},
             Row{alleinstehend, 105'710, 3'541.6_dec}, // 6 % − 2'801
             Row{alleinstehend, 211'400, 10'464},
             Row{alleinstehend, 211'410, 10'464.8_dec}, // the open step
             Row{alleinerziehend, 63'420, 1'030.6_dec},
             Row{alleinerziehend, 63'430, 1'031.2_dec},
             Row{verheiratet, 42'280, 105.8_dec},
             Row{verheiratet, 42'290, 105.7_dec}, // 3 % − 1'163: the deductions are whole francs
             Row{verheiratet, 422'800, 20'929},
         }) {
        EXPECT_EQ(calculator().landessteuer(row.income, row.kind), row.tax)
            << rawValue(row.kind) << " " << row.income;
    }
    const auto closed = changed([](LIRules& r) { r.tarif.alleinstehend.pop_back(); });
    const auto empty = changed([](LIRules& r) { r.tarif.alleinstehend.clear(); });
    EXPECT_EQ(closed.landessteuer(211'400, alleinstehend), 10'464);
    EXPECT_EQ(closed.landessteuer(211'400.05_dec, alleinstehend), 0) << "no step reaches so far";
    EXPECT_EQ(empty.landessteuer(50'000, alleinstehend), 0);
    EXPECT_EQ(closed.calculate(single(500'000)).bill.total(), 0);
}

TEST(LiechtensteinTax, takesTheTariffOfTheHousehold) {
    using enum CivilStatus;
    for (const CivilStatus status : allValues<CivilStatus>()) {
        const bool couple = status == verheiratet || status == eingetragenePartnerschaft;
        TaxCase taxCase = single(0);
        taxCase.civilStatus = status;
        const auto kind = [&] { return LiechtensteinCalculator::tariffKind(taxCase); };
        const auto expect = [&](LITariffKind otherwise, const char* what) {
            EXPECT_EQ(kind(), couple ? LITariffKind::verheiratet : otherwise)
                << rawValue(status) << ", " << what;
        };
        expect(LITariffKind::alleinstehend, "no child");
        Child& child = taxCase.children.emplace_back();
        child.education = ChildEducation::keine;
        expect(LITariffKind::alleinstehend, "a child that earns");
        child.education = ChildEducation::ausbildung;
        expect(LITariffKind::alleinerziehend, "a child in education");
        child.birthDate = Date::parse("2025-12-31").value();
        expect(LITariffKind::alleinerziehend, "a child born on the last day");
        child.birthDate = Date::parse("2026-01-01").value();
        expect(LITariffKind::alleinstehend, "a child not born yet");
    }
}

TEST(LiechtensteinTax, addsTheSurchargeOfEachMunicipality) {
    for (const int year : RuleBook::supportedYears) {
        const auto& municipalities = calculator(year).rules().gemeinden;
        ASSERT_EQ(municipalities.size(), 11U);
        for (const LIRules::Gemeinde& municipality : municipalities) {
            SCOPED_TRACE(municipality.name + " " + std::to_string(year));
            TaxCase taxCase = single(80'000, year);
            taxCase.municipality = municipality.name;
            const TaxResult result = calculator(year).calculate(taxCase);
            const Decimal national = 2'176; // 5 % of 78'400 less 1'744
            const Decimal surcharge = municipality.zuschlag == 160 ? 3'481.6_dec : 3'264_dec;
            EXPECT_EQ(result.value("660"), national);
            EXPECT_EQ(result.value("670"), surcharge);
            EXPECT_EQ(result.value("680"), national + surcharge);
            EXPECT_EQ(result.bill.cantonIncome, national);
            EXPECT_EQ(result.bill.municipalityIncome, surcharge);
            EXPECT_EQ(result.bill.municipalityRate, municipality.zuschlag);
            EXPECT_EQ(result.bill.total(), national + surcharge);
            EXPECT_EQ(noticeOf(result, "li-gemeinde"), nullptr);
            EXPECT_EQ(noticeOf(result, "li-vorlaeufig") != nullptr, year == 2026);
        }
    }
}

TEST(LiechtensteinTax, countsAFullSurchargeWhereTheMunicipalityIsUnknown) {
    for (const char* name : {"", "Vaduz ", "vaduz", "Sevelen"}) {
        TaxCase taxCase = single(80'000);
        taxCase.municipality = name;
        const TaxResult result = calculator().calculate(taxCase);
        EXPECT_EQ(result.bill.municipalityRate, 150) << name;
        EXPECT_EQ(result.value("670"), 3'264) << name;
        const Notice* notice = noticeOf(result, "li-gemeinde");
        ASSERT_NE(notice, nullptr) << name;
        EXPECT_EQ(notice->level, Notice::Level::error) << name;
    }
}

/// A taxable total that the deductions exceed is 0, others are cut to full tens.
TEST(LiechtensteinTax, cutsTheTaxableTotal) {
    for (const auto& [salary, taxable] :
         {std::pair(1'600_dec, 0), std::pair(1'609.95_dec, 0), std::pair(1'610_dec, 10),
          std::pair(51'609.99_dec, 50'000), std::pair(51'610_dec, 50'010)}) {
        const TaxResult result = calculator().calculate(single(salary));
        EXPECT_EQ(result.value("650"), taxable) << salary;
        EXPECT_EQ(result.bill.taxableIncomeCanton, taxable) << salary;
    }
    TaxCase loss = single(0);
    loss.income1.selfEmployment = -20'000;
    const TaxResult result = calculator().calculate(loss);
    EXPECT_EQ(result.value("650"), 0);
    EXPECT_EQ(result.bill.simpleIncomeRatePercent, 0);
}

TEST(LiechtensteinInsurance, cutsThePensionFundToAShareOfTheEarnings) {
    struct Row {
        const char* what;
        Decimal paid;
        Decimal privatelyPaid;
        Decimal fees;
        Decimal selfEmployment;
        Decimal deduction;
        std::optional<std::string> message;
    };
    const std::string text = "Abziehbar sind höchstens 18 % des Erwerbs (CHF ";
    for (const Row& row : {
             Row{"below", 17'999.95_dec, 0, 0, 0, 17'999.95_dec, {}},
             Row{"exactly", 10'000, 8'000, 0, 0, 18'000, {}},
             Row{"above", 18'000, 0.05_dec, 0, 0, 18'000, text + "18’000)."},
             Row{"board fees count", 18'900, 0, 5'000, 0, 18'900, {}},
             Row{"self-employment counts", 20'000, 0, 0, 10'000, 19'800, text + "19’800)."},
             Row{"a loss counts", 18'000, 0, 0, -50'000, 9'000, text + "9’000)."},
             Row{"nothing earned", 1'000, 0, 0, -100'000, 0, text + "0)."},
             Row{"a loss above the salary", 1'000, 0, 0, -150'000, 0, text + "0)."},
             Row{"a loss, nothing paid", 0, 0, 0, -150'000, 0, {}},
         }) {
        SCOPED_TRACE(row.what);
        TaxCase taxCase = single(100'000);
        taxCase.income1.salaries[0].pensionContributions = row.paid;
        taxCase.deductions1.pensionBuyIn = row.privatelyPaid;
        taxCase.income1.boardFees = row.fees;
        taxCase.income1.selfEmployment = row.selfEmployment;
        const TaxResult result = calculator().calculate(taxCase);
        EXPECT_EQ(result.value("590"), row.deduction);
        const Notice* notice = noticeOf(result, "li-pk-max");
        ASSERT_EQ(notice != nullptr, row.message.has_value());
        if (notice != nullptr) {
            EXPECT_EQ(notice->message, *row.message);
        }
    }
}

/// The allowance of the household limits what is paid; children count by their age.
TEST(LiechtensteinInsurance, tellsItsPartsInTheNote) {
    TaxCase taxCase = single(100'000);
    SalaryCertificate& salary = taxCase.income1.salaries[0];
    salary.socialContributions = 6'400.5_dec;
    salary.pensionContributions = 5'000;
    taxCase.householdDeductions.healthInsurancePremiums = 4'000;
    taxCase.householdDeductions.premiumReduction = 1'234.4_dec;
    const auto note = [&] { return noteOf(calculator().calculate(taxCase), "590"); };
    EXPECT_EQ(note(), "AHV/IV/FAK/ALV/NBU CHF 6’401 · Pensionskasse CHF 5’000 · private "
                      "Versicherungen CHF 2’766");
    salary.pensionContributions = 50'000;
    taxCase.householdDeductions.lifeInsurancePremiums = 90'000;
    EXPECT_EQ(note(), "AHV/IV/FAK/ALV/NBU CHF 6’401 · Pensionskasse CHF 18’000 · private "
                      "Versicherungen CHF 3’700");
    const auto child = [&](const char* born) {
        Child& added = taxCase.children.emplace_back();
        added.education = ChildEducation::ausbildung;
        if (born != nullptr) {
            added.birthDate = Date::parse(born).value();
        }
    };
    struct Row {
        const char* born;
        int allowance;
    };
    for (const Row& row :
         {Row{nullptr, 700}, Row{"2025-06-01", 700}, Row{"2009-01-01", 700},
          Row{"2008-12-31", 1'600}, Row{"2005-01-01", 1'600}, Row{"2004-12-31", 2'200}}) {
        taxCase.children.clear();
        child(row.born);
        EXPECT_EQ(calculator().calculate(taxCase).insurance.canton->deduction(),
                  3'700 + row.allowance)
            << row.allowance;
    }
}

/// Gifts are measured on the total income; a loss leaves nothing to give from.
TEST(LiechtensteinDeductions, capGiftsOnTheTotalIncome) {
    struct Row {
        Decimal income;
        Decimal gift;
        Decimal deduction;
    };
    for (const Row& row : {Row{50'000, 99.99_dec, 0}, Row{50'000, 100, 100},
                           Row{50'000, 5'000, 5'000}, Row{50'000, 5'000.05_dec, 5'000},
                           Row{0, 500, 0}, Row{-1'000, 500, 0}, Row{-1'000, 0, 0}}) {
        TaxCase taxCase = single(0);
        taxCase.income1.selfEmployment = row.income;
        taxCase.householdDeductions.donations.emplace_back().amount = row.gift;
        EXPECT_EQ(calculator().calculate(taxCase).value("620"), row.deduction) << row.gift;
    }
}

TEST(LiechtensteinLabels, nameChildrenAndPersons) {
    TaxCase taxCase = single(50'000);
    taxCase.civilStatus = CivilStatus::verheiratet;
    taxCase.income1.boardFees = taxCase.income2.boardFees = 1'000;
    taxCase.income1.partnership = taxCase.income2.selfEmployment = 2'000;
    taxCase.income2.salaries.emplace_back().grossSalary = 1;
    taxCase.person1.firstName = "Anna";
    taxCase.person1.lastName = "Muster";
    taxCase.person2.lastName = "Beispiel";
    for (const ChildEducation education : allValues<ChildEducation>()) {
        taxCase.children.emplace_back().education = education;
    }
    const TaxResult result = calculator().calculate(taxCase);
    for (const auto& [code, label] :
         {std::pair("500", "Erwerb gemäss Lohnausweis (brutto) – Anna Muster"),
          std::pair("505", "Erwerb gemäss Lohnausweis (brutto) – Beispiel"),
          std::pair("510", "Organentschädigungen – Anna Muster"),
          std::pair("515", "Organentschädigungen – Beispiel"),
          std::pair("520", "Erwerb aus selbständiger Tätigkeit – Anna Muster"),
          std::pair("525", "Erwerb aus selbständiger Tätigkeit – Beispiel"),
          std::pair("600", "Kinderabzug (3 × CHF 12’700)")}) {
        EXPECT_EQ(labelOf(result, code), label);
    }
    EXPECT_EQ(result.value("600"), 38'100);
    const auto cheaper = changed([](LIRules& r) { r.kinderabzug = 100; }).calculate(taxCase);
    EXPECT_EQ(labelOf(cheaper, "600"), "Kinderabzug (3 × CHF 12’700)") << "a fixed text";
    EXPECT_EQ(cheaper.value("600"), 300);
}

} // namespace
} // namespace taxcore
