// The pages of the family, of income and of work: when their fields are shown and what their texts
// say.

#include "Fiscarel_SG/pages/InputPages.h"

#include "TaxCore/demo/DemoData.h"
#include "tests/support/InputPages.h"
#include "tests/support/InputPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <set>

namespace fiscarel::pages {
namespace {

using namespace taxcore;
using fiscarel::testing::fieldsOf;
using fiscarel::testing::forEachCard;
using fiscarel::testing::holds;
using fiscarel::testing::shownOf;
using fiscarel::testing::textsOf;
using forms::BoundField;
using forms::Card;
using forms::Editor;
using forms::FieldsCard;
using forms::Figure;
using forms::ListCard;
using forms::Page;
using forms::PageContext;
using forms::Section;
using forms::Value;
using testing::contextOf;
using testing::salariedCouple;

std::vector<Page> pagesOf(const PageContext& context) {
    return {familyPage(context), incomePage(context), workPage(context)};
}

/// A couple with an item in every list of the pages.
TaxCase household(TaxRegion region) {
    TaxCase taxCase = DemoData::household(region, 2025);
    for (PersonIncome* income : {&taxCase.income1, &taxCase.income2}) {
        income->pensions.emplace_back();
    }
    taxCase.setLiExtras(taxCase.liExtras());
    return taxCase;
}

/// Whether the field of this path, its card and its section are shown, to be edited; absent when no
/// page has it.
std::optional<bool> isShown(const std::vector<Page>& pages, const TaxCase& taxCase,
                            std::string_view path) {
    std::optional<bool> found;
    forEachCard(pages, [&](const Section& section, const Card& card) {
        for (const BoundField& field : fieldsOf(card, taxCase)) {
            if (field.path == path) {
                found = holds(section.shown, taxCase) && holds(shownOf(card), taxCase)
                        && holds(field.shown, taxCase) && holds(field.usable, taxCase);
            }
        }
    });
    return found;
}

class EveryRegion : public ::testing::TestWithParam<TaxRegion> {};
INSTANTIATE_TEST_SUITE_P(InputPages, EveryRegion,
                         ::testing::Values(TaxRegion::stGallen, TaxRegion::liechtenstein),
                         [](const auto& region) {
                             return region.param == TaxRegion::stGallen ? "StGallen"
                                                                        : "Liechtenstein";
                         });

TEST_P(EveryRegion, anEmptyCaseShowsPagesWithoutAResult) {
    for (const CivilStatus status : {CivilStatus::verheiratet, CivilStatus::ledig}) {
        const TaxCase taxCase{.year = 2025, .civilStatus = status, .region = GetParam()};
        for (const bool withRules : {true, false}) {
            const PageContext context =
                withRules ? contextOf(GetParam()) : PageContext{.year = 2025, .region = GetParam()};
            forEachCard(pagesOf(context), [&](const Section&, const Card& card) {
                std::visit(
                    [&](const auto& any) {
                        if (any.figures) {
                            for (const Figure& figure : any.figures(taxCase, TaxResult{})) {
                                EXPECT_FALSE(figure.label.empty() || figure.text.empty());
                            }
                        }
                    },
                    card);
            });
        }
    }
}

// Shown

struct Situation {
    const char* name;
    TaxRegion region;
    std::function<void(TaxCase&)> change;
    std::vector<std::string_view> shown;
    std::vector<std::string_view> hidden;
};
void PrintTo(const Situation& situation, std::ostream* out) { *out << situation.name; }

std::vector<Situation> situations() {
    constexpr TaxRegion sg = TaxRegion::stGallen;
    constexpr TaxRegion li = TaxRegion::liechtenstein;
    return {
        {"couple",
         sg,
         [](TaxCase&) {},
         {"person2.firstName", "income2.boardFees", "income2.salaries[0].fieldF",
          "deductions2.work.publicTransportCost", "deductions1.work.weeklyStay"},
         {"parish", "deductions1.work.bicycleCost", "deductions1.work.carWorkDays",
          "deductions1.work.carJustification", "deductions1.work.mealDays",
          "deductions1.work.actualOtherCosts", "deductions1.work.weeklyStayMonths",
          "deductions1.work.sideJobUseActual", "householdIncome.otherIncomeDescription"}},
        {"single",
         sg,
         [](TaxCase& c) { c.civilStatus = CivilStatus::geschieden; },
         {"person1.firstName", "income1.boardFees", "deductions1.work.meals"},
         {"person2.firstName", "income2.boardFees", "income2.salaries[0].grossSalary",
          "deductions2.work.meals"}},
        {"noSalary",
         sg,
         [](TaxCase& c) { c.income2.salaries.clear(); },
         {"deductions1.work.meals"},
         {"deductions2.work.meals", "deductions2.work.publicTransportCost"}},
        {"costsWithoutSalary",
         sg,
         [](TaxCase& c) {
             c.income1.salaries.clear();
             c.deductions1.work.mealDays = 90;
         },
         {"deductions1.work.meals", "deductions1.work.mealDays"},
         {}},
        {"drive",
         sg,
         [](TaxCase& c) { c.deductions1.work.carKmOneWay = 12; },
         {"deductions1.work.carTripsPerDay", "deductions1.work.carWorkDays",
          "deductions1.work.carIsMotorbike", "deductions1.work.carJustification"},
         {"deductions2.work.carJustification"}},
        {"chosen",
         sg,
         [](TaxCase& c) {
             WorkExpenses& work = c.deductions1.work;
             work.useBicycle = work.weeklyStay = work.useActualOtherCosts = true;
             work.meals = MealSituation::schicht;
             c.income1.salaries.emplace_back().isMainEmployment = false;
             c.householdIncome.otherIncome = 300;
         },
         {"deductions1.work.bicycleCost", "deductions1.work.weeklyStayRoomPerMonth",
          "deductions1.work.weeklyStayMealsReduced", "deductions1.work.actualOtherCosts",
          "deductions1.work.mealDays", "deductions1.work.sideJobUseActual",
          "householdIncome.otherIncomeDescription"},
         {"deductions1.work.sideJobActualCosts"}},
        {"churchOfTheSecondPerson",
         sg,
         [](TaxCase& c) { c.person2.confession = Confession::evangelischReformiert; },
         {"parish"},
         {}},
        {"churchOfSomebodyWhoDoesNotCount",
         sg,
         [](TaxCase& c) {
             c.person2.confession = Confession::evangelischReformiert;
             c.civilStatus = CivilStatus::ledig;
         },
         {},
         {"parish"}},
        {"students",
         sg,
         [](TaxCase& c) {
             c.children.resize(2);
             c.children[0].education = ChildEducation::vorschule;
             c.children[1].education = ChildEducation::ausbildung;
         },
         {"children[1].school", "children[1].educationUntil", "children[0].education"},
         {"children[0].school", "children[0].educationUntil"}},
        {"selfEmployed",
         sg,
         [](TaxCase& c) { c.person1.employment = EmploymentKind::selbstaendig; },
         {"person2.employer"},
         {"person1.employer"}},
        {"inland",
         li,
         [](TaxCase&) {},
         {"li.commute1.mode", "li.commute1.from", "li.commute2.to", "li.commute1.workDays",
          "li.commute1.reimbursed", "li.commute1.mealDays",
          "income1.salaries[0].employerInLiechtenstein"},
         {"li.commute1.kmPerDay", "parish", "person1.confession",
          "income1.salaries[0].netSalaryOverride", "income1.salaries[0].fieldF",
          "householdIncome.familyAllowancesDirect", "householdIncome.simplifiedSettlementIncome"}},
        {"abroad",
         li,
         [](TaxCase& c) { c.li.emplace().commute1.mode = LICommute::Mode::ausland; },
         {"li.commute1.kmPerDay", "li.commute2.from"},
         {"li.commute1.from", "li.commute1.to", "li.commute2.kmPerDay"}},
        {"leftovers",
         li,
         [](TaxCase& c) {
             c.parish = "Buchs";
             c.income1.salaries[0].netSalaryOverride = 0;
             c.householdIncome.familyAllowancesDirect = 2'400;
         },
         {"parish", "income1.salaries[0].netSalaryOverride",
          "householdIncome.familyAllowancesDirect"},
         {"income2.salaries[0].netSalaryOverride"}},
    };
}

class Shown : public ::testing::TestWithParam<Situation> {};
INSTANTIATE_TEST_SUITE_P(InputPages, Shown, ::testing::ValuesIn(situations()),
                         [](const auto& situation) { return situation.param.name; });

TEST_P(Shown, fieldsThatMakeSense) {
    const Situation& situation = GetParam();
    TaxCase taxCase = salariedCouple(situation.region);
    situation.change(taxCase);
    const auto pages = pagesOf(contextOf(situation.region));
    for (const std::string_view path : situation.shown) {
        EXPECT_EQ(isShown(pages, taxCase, path), true) << path;
    }
    for (const std::string_view path : situation.hidden) {
        EXPECT_EQ(isShown(pages, taxCase, path), false) << path;
    }
}

// Texts

bool says(const std::vector<std::string>& texts, std::string_view wanted) {
    return std::ranges::any_of(
        texts, [&](const std::string& text) { return text.find(wanted) != std::string::npos; });
}

TEST_P(EveryRegion, noAmountIsToldWithoutRules) {
    const PageContext context{.year = 2025, .region = GetParam()};
    EXPECT_FALSE(says(textsOf(pagesOf(context), household(GetParam())), "Fr. "));
}

TEST(InputPagesTexts, tellTheFiguresOfTheYear) {
    const auto stGallen =
        textsOf(pagesOf(contextOf(TaxRegion::stGallen)), household(TaxRegion::stGallen));
    for (const char* wanted :
         {"Kinderabzug Kanton: Fr. 7’600 (noch nicht schulpflichtig) bzw. Fr. 10’800 "
          "(Kindergarten, Schule, Ausbildung). Bund: Fr. 6’800 pro Kind und Fr. 263 Abzug vom "
          "Steuerbetrag.",
          "Vermögen: Fr. 20’000 pro minderjähriges Kind.", "Auswärts essen (Fr. 15 pro Tag)",
          "Kantine / Lunch-Checks (Fr. 7.50 pro Tag)", "Schicht- oder Nachtarbeit (Fr. 15 pro Tag)",
          "Kanton: Fr. 700 plus 10% des Nettolohns, höchstens Fr. 2’400 · Bund: 3% des Nettolohns, "
          "mindestens Fr. 2’000, höchstens Fr. 4’000",
          "Zimmer pro Monat (Fr. 500 bis 800)", "Fahrkosten max. Fr. 3’300",
          "Velo / E-Bike / Kleinmotorrad (bis Fr. 700)",
          "Nur Tage im Betrieb – an Home-Office-Tagen entstehen keine Mehrkosten. Höchstens 220 "
          "Tage.",
          "Nebenerwerb: tatsächliche Kosten statt Pauschale (20%)",
          "Das Auto zählt mit 70 Rappen, das Motorrad mit 40 Rappen pro Kilometer."}) {
        EXPECT_TRUE(says(stGallen, wanted)) << wanted;
    }
    const auto liechtenstein =
        textsOf(pagesOf(contextOf(TaxRegion::liechtenstein)), household(TaxRegion::liechtenstein));
    for (const char* wanted :
         {"Kinderabzug: Fr. 12’700 pro Kind.", "Fr. 5 pro Tag, im Jahr höchstens Fr. 1’100.",
          "50 Rappen pro Kilometer", "höchstens 200 km pro Tag", "Höchstens 220 Tage.",
          "Pauschale von Fr. 1’600 pro Person", "Davon sind 70% frei"}) {
        EXPECT_TRUE(says(liechtenstein, wanted)) << wanted;
    }
}

/// No amount of the rules is typed in: each one that changes changes a text.
TEST(InputPagesTexts, followEveryAmountOfTheWorkExpenses) {
    const TaxCase taxCase = household(TaxRegion::stGallen);
    const RuleBook& rules = *contextOf(TaxRegion::stGallen).stGallen;
    const auto before = textsOf(pagesOf(contextOf(TaxRegion::stGallen)), taxCase);
    boost::mp11::mp_for_each<Fields<BerufskostenParams>>([&](auto field) {
        RuleBook changed = rules;
        for (DeductionParams* params : {&changed.cantonal, &changed.federal}) {
            params->berufskosten.*field.pointer += 1;
        }
        const PageContext context{.year = 2025, .stGallen = &changed};
        EXPECT_NE(textsOf(pagesOf(context), taxCase), before) << field.name;
    });
}

} // namespace
} // namespace fiscarel::pages
