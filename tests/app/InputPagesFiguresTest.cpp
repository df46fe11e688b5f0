// What the pages of the family, of income and of work tell beside the entries.

#include "Fiscarel_SG/pages/InputPages.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "tests/support/InputPages.h"
#include "tests/support/InputPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace fiscarel::pages {
namespace {

using namespace taxcore;
using forms::Card;
using forms::FieldsCard;
using forms::ListCard;
using forms::Page;
using testing::contextOf;
using testing::salariedCouple;

template <class Kind>
const Kind* cardOf(const Page& page, std::size_t section, std::string_view title) {
    for (const Card& card : page.sections[section].cards) {
        if (const auto* found = std::get_if<Kind>(&card); found != nullptr && found->title == title)
            return found;
    }
    return nullptr;
}

/// The figures of a card of the first person's work expenses.
std::vector<std::string> workFigures(const TaxCase& taxCase, std::string_view title) {
    const Page page = workPage(contextOf(taxCase.taxRegion(), taxCase.year));
    return fiscarel::testing::figuresOf(
        *cardOf<FieldsCard>(page, 0, title), taxCase,
        CaseCalculator::forCase(taxCase).value().calculate(taxCase));
}

using Told = std::vector<std::string>;

TEST(InputPagesFigures, tellWhatOfTheWayToWorkCounts) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    WorkExpenses& work = taxCase.deductions1.work;
    EXPECT_EQ(workFigures(taxCase, "1. Arbeitsweg"), Told{"Abzug Arbeitsweg: –"});

    work.publicTransportCost = 3'000;
    EXPECT_EQ(workFigures(taxCase, "1. Arbeitsweg"), Told{"Abzug Arbeitsweg: 3’000"});
    work.publicTransportCost = 5'000;
    EXPECT_EQ(
        workFigures(taxCase, "1. Arbeitsweg"),
        Told{"Abzug Arbeitsweg: Kanton 5’000 · Bund 3’300 (Beim Bund gekürzt auf Fr. 3’300 (Kosten "
             "5’000))"});

    // 2 × 30 km on 220 days at 70 Rappen are 9'240.
    work.publicTransportCost = 0;
    work.carKmOneWay = 30;
    work.carWorkDays = 230;
    EXPECT_EQ(workFigures(taxCase, "1. Arbeitsweg"),
              Told{"Abzug Arbeitsweg: 0 (Ohne Begründung zählt das Auto nicht.)"});
    work.carJustification = "Kein öffentliches Verkehrsmittel";
    EXPECT_EQ(
        workFigures(taxCase, "1. Arbeitsweg"),
        Told{"Abzug Arbeitsweg: Kanton 8’000 · Bund 3’300 (Gekürzt auf Fr. 8’000, Bund auf Fr. "
             "3’300 (Kosten 9’240))"});

    taxCase.income1.salaries[0].fieldF = true;
    EXPECT_EQ(workFigures(taxCase, "1. Arbeitsweg"),
              Told{"Abzug Arbeitsweg: 0 (Feld F im Lohnausweis ist angekreuzt – kein Abzug für den "
                   "Arbeitsweg.)"});
}

TEST(InputPagesFigures, tellWhatOfTheOtherWorkExpensesCounts) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    WorkExpenses& work = taxCase.deductions1.work;
    work.meals = MealSituation::auswaerts;
    work.mealDays = 218; // 3'270 francs
    EXPECT_EQ(workFigures(taxCase, "2. Verpflegung"),
              Told{"Abzug Verpflegung: 3’200 (Gekürzt auf Fr. 3’200 im Jahr.)"});
    work.mealDays = 100;
    EXPECT_EQ(workFigures(taxCase, "2. Verpflegung"), Told{"Abzug Verpflegung: 1’500"});
    taxCase.income1.salaries[0].fieldG = true;
    EXPECT_EQ(workFigures(taxCase, "2. Verpflegung"),
              Told{"Abzug Verpflegung: 750 (Feld G im Lohnausweis ist angekreuzt – es gilt der "
                   "verbilligte Ansatz.)"});

    // 10 % and 3 % of 90'000, between their bounds.
    EXPECT_EQ(workFigures(taxCase, "3. Übrige Berufskosten"),
              Told{"Abzug übrige Berufskosten: Kanton 2’400 · Bund 2’700"});
    EXPECT_EQ(workFigures(taxCase, "Total Berufskosten"),
              Told{"Abzug total: Kanton 3’150 · Bund 3’450"});
    taxCase.income1.salaries[0].flatRateExpenses = 1'200;
    EXPECT_EQ(workFigures(taxCase, "3. Übrige Berufskosten"),
              Told{"Abzug übrige Berufskosten: 0 (Der Arbeitgeber zahlt pauschale Spesen – die "
                   "Pauschale entfällt.)"});

    work.weeklyStay = true;
    work.weeklyStayMonths = 6;
    work.weeklyStayRoomPerMonth = 950;
    EXPECT_EQ(workFigures(taxCase, "Wochenaufenthalt"),
              Told{"Abzug Wochenaufenthalt: 4’800 (Das Zimmer zählt mit Fr. 800 pro Monat.)"});
}

TEST(InputPagesFigures, tellTheCostsOfLiechtenstein) {
    TaxCase taxCase = salariedCouple(TaxRegion::liechtenstein);
    EXPECT_EQ(workFigures(taxCase, "Arbeitsweg"), Told{"Fahrkosten: –"});
    EXPECT_EQ(workFigures(taxCase, "Gewinnungskosten"),
              (Told{"Ergänzung bis zur Pauschale: 1’600", "Abzug total: 1’600"}));

    LICommute& commute = taxCase.li.emplace().commute1;
    commute.from = "Vaduz";
    commute.to = "Balzers";
    EXPECT_EQ(
        workFigures(taxCase, "Arbeitsweg"),
        Told{"Fahrkosten: 1’880 (Fahrkosten Inland berechnet; bitte mit der amtlichen Tabelle "
             "vergleichen)"});
    commute.to = "Chur";
    EXPECT_EQ(workFigures(taxCase, "Arbeitsweg"),
              Told{"Fahrkosten: 0 (Die Strecke steht nicht in der Tabelle – keine Fahrkosten.)"});

    commute.mode = LICommute::Mode::ausland;
    commute.kmPerDay = 40; // 8'800 km at 50 Rappen
    commute.mealDays = 230;
    EXPECT_EQ(workFigures(taxCase, "Arbeitsweg"), Told{"Fahrkosten: 4’400"});
    EXPECT_EQ(workFigures(taxCase, "Verpflegung"),
              Told{"Verpflegung: 1’100 (Gekürzt auf Fr. 1’100 im Jahr.)"});
    EXPECT_EQ(workFigures(taxCase, "Gewinnungskosten"),
              (Told{"Ergänzung bis zur Pauschale: –", "Abzug total: 5’500"}));
}

TEST(InputPagesFigures, nameTheMultipliersOfTheResidence) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    const Page page = familyPage(contextOf(TaxRegion::stGallen));
    const auto* card = cardOf<FieldsCard>(page, 0, "Haushalt und Wohnort");
    const auto figuresOf = [&] {
        return card->figures(taxCase, CaseCalculator::forCase(taxCase).value().calculate(taxCase));
    };
    ASSERT_EQ(figuresOf().size(), 3U);
    EXPECT_EQ(figuresOf()[1].text, "105%");

    taxCase.person1.firstName = "Anna";
    taxCase.person1.confession = Confession::christkatholisch;
    ASSERT_EQ(figuresOf().size(), 4U);
    EXPECT_EQ(figuresOf()[3].note, "Der halbe Steuerfuss: Nur Anna bezahlt Kirchensteuer.");
    taxCase.person2.confession = Confession::christkatholisch;
    EXPECT_EQ(figuresOf()[3].note, "");

    taxCase.municipality = "Nirgendwo";
    EXPECT_EQ(figuresOf()[1].text, forms::noFigure);
    EXPECT_EQ(figuresOf().size(), 4U) << "nothing moves while one types the name";
}

/// The field of a page at a path of the case.
forms::BoundField fieldAt(const Page& page, const TaxCase& taxCase, std::string_view path) {
    const auto fields = fiscarel::testing::fieldsOf(page, taxCase);
    const auto found = std::ranges::find(fields, path, &forms::BoundField::path);
    return found != fields.end() ? *found : forms::BoundField{};
}

TEST(InputPagesNotes, tellWhatCountsOfTheRentalValue) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    RealEstate& home = taxCase.realEstate.emplace_back();
    home.imputedRentalValue = 18'900;
    const Page page = wealthPage(contextOf(TaxRegion::stGallen));
    const auto note = fieldAt(page, taxCase, "realEstate[0].imputedRentalValue").note;
    EXPECT_EQ(note(taxCase), "Es zählen 18’900 − 30% = 13’230.");
    home.rooms = 4;
    home.unusedRooms = 3;
    EXPECT_EQ(note(taxCase), "Es zählen 18’900 − 30% − unbenutzte Zimmer = 6’615.");
    home.isPrimaryResidence = false;
    EXPECT_EQ(note(taxCase), "") << "a holiday home counts whole";
}

TEST(InputPagesRecords, beginWithWhatIsKnown) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    taxCase.municipality = "Wil";
    taxCase.person1.lastName = "Keller";
    taxCase.person2.lastName = "Meier";
    taxCase.person1.employer = "Muster AG";
    taxCase.income1.salaries.clear();
    const auto context = contextOf(TaxRegion::stGallen);
    const auto children = *cardOf<ListCard>(familyPage(context), 3, "Kinder");
    const auto salaries = *cardOf<ListCard>(incomePage(context), 0, "Lohnausweise");
    const auto properties = *cardOf<ListCard>(wealthPage(context), 1, "Liegenschaften");
    children.add(taxCase);
    EXPECT_EQ(taxCase.children.back().lastName, "") << "it could be either name";
    taxCase.person2.lastName = "Keller";
    children.add(taxCase);
    EXPECT_EQ(taxCase.children.back().lastName, "Keller");
    salaries.add(taxCase);
    salaries.add(taxCase);
    EXPECT_EQ(taxCase.income1.salaries[0].employer, "Muster AG");
    EXPECT_EQ(taxCase.income1.salaries[1].employer, "") << "the second is of another employer";
    properties.add(taxCase);
    EXPECT_EQ(taxCase.realEstate.back().municipality, "Wil");
}

TEST(InputPagesRecords, educationFollowsTheBirthDateUntilItIsChosen) {
    TaxCase taxCase = salariedCouple(TaxRegion::stGallen);
    Child& child = taxCase.children.emplace_back();
    const auto birth =
        fieldAt(familyPage(contextOf(TaxRegion::stGallen)), taxCase, "children[0].birthDate");
    const auto bornIn = [&](int year) {
        birth.set(taxCase, *Date::of(year, 3, 1));
        return child.education;
    };
    EXPECT_EQ(bornIn(2024), ChildEducation::vorschule);
    EXPECT_EQ(bornIn(2015), ChildEducation::schule);
    EXPECT_EQ(bornIn(2007), ChildEducation::ausbildung);
    child.education = ChildEducation::keine;
    EXPECT_EQ(bornIn(2015), ChildEducation::keine) << "chosen";
}

TEST(InputPagesRows, sumUpCertificatesAndPensions) {
    SalaryCertificate salary;
    salary.grossSalary = 80'000;
    salary.socialContributions = 5'000;
    salary.pensionContributions = 4'000;
    const auto day = [](int year, int month, int at) { return Date::of(year, month, at); };
    struct Row {
        std::function<void(SalaryCertificate&)> change;
        std::string title;
        std::string detail;
    };
    const std::vector<Row> rows{
        {[](SalaryCertificate&) {}, "Lohnausweis", "Haupterwerb"},
        {[&](SalaryCertificate& s) {
             s.employer = "Muster AG";
             s.periodFrom = day(2025, 1, 1);
             s.periodTo = day(2025, 12, 31);
         },
         "Muster AG", "Haupterwerb, 1.1. – 31.12."},
        {[&](SalaryCertificate& s) {
             s.isMainEmployment = false;
             s.periodFrom = day(2024, 7, 1);
             s.periodTo = day(2025, 6, 30);
         },
         "Lohnausweis", "Nebenerwerb, 1.7.2024 – 30.6.2025"},
        {[&](SalaryCertificate& s) { s.periodFrom = day(2025, 3, 1); }, "Lohnausweis",
         "Haupterwerb, ab 1.3."},
        {[&](SalaryCertificate& s) { s.periodTo = day(2025, 9, 30); }, "Lohnausweis",
         "Haupterwerb, bis 30.9."},
    };
    TaxCase taxCase{.year = 2025};
    for (const Row& row : rows) {
        row.change(taxCase.income2.salaries.emplace_back(salary));
    }
    const Page page = incomePage(contextOf(TaxRegion::stGallen));
    const auto* salaries = cardOf<ListCard>(page, 1, "Lohnausweise");
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const forms::RowSummary summary = salaries->summary(taxCase, at);
        EXPECT_EQ(summary.title, rows[at].title);
        EXPECT_EQ(summary.detail, rows[at].detail);
        EXPECT_EQ(summary.amount, "71’000");
    }
    EXPECT_EQ(salaries->total(taxCase), "Total Nettolohn 355’000");
    const Page abroad = incomePage(contextOf(TaxRegion::liechtenstein));
    EXPECT_EQ(cardOf<ListCard>(abroad, 1, "Lohnausweise")->total(taxCase),
              "Total Bruttolohn 400’000");

    taxCase.income1.pensions.push_back({.label = "Leibrente", .amount = 5'000});
    taxCase.income1.pensions.push_back({.amount = 10'000, .taxablePercent = 40});
    const auto* pensions = cardOf<ListCard>(page, 0, "Weitere Renten und Pensionen");
    EXPECT_EQ(pensions->summary(taxCase, 0).title, "Leibrente");
    EXPECT_EQ(pensions->summary(taxCase, 1).detail, "40% steuerbar");
    EXPECT_EQ(pensions->total(taxCase), "Total steuerbar 9’000");
}

} // namespace
} // namespace fiscarel::pages
