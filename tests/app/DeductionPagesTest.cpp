// The pages of pensions, further deductions and wealth: their texts and fields.

#include "TaxCore/review/Checks.h"
#include "tests/support/DeductionDesk.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>

namespace fiscarel {
namespace {

using namespace testing;
using forms::Value;

/// Every text of the pages, one a line.
std::string textsOf(const PageContext& context) {
    std::string all;
    for (const std::string& text :
         testing::textsOf(pagesOf(context), testing::fullCase(2025, context.region))) {
        all += text + "\n";
    }
    return all;
}

// Texts.

TEST(DeductionPageTexts, takeTheirFiguresFromTheRules) {
    const std::string texts = textsOf(contextOf(stGallen));
    for (const char* wanted : {
             "Mit Pensionskasse sind höchstens Fr. 7’258 in die Säule 3a abziehbar. Ohne "
             "Pensionskasse 20% des Erwerbseinkommens, höchstens Fr. 36’288.",
             "Leer lassen für die Pauschale von 2‰ des durch Banken verwalteten "
             "Wertschriftenvermögens (max. Fr. 6’000).",
             "Spenden an steuerbefreite gemeinnützige Organisationen in der Schweiz sind ab Fr. "
             "100 pro Jahr abziehbar, höchstens 20% des Nettoeinkommens.",
             "Pauschale lebensnotwendige Diät Fr. 2’500 (z.B. Zöliakie)",
             "Wenn die Rechnung das Essen nicht separat ausweist, werden Fr. 8 pro Tag abgezogen.",
             "Spalte «mit VSt»: Erträge, von denen 35% Verrechnungssteuer abgezogen wurde (Zinsen "
             "über Fr. 200",
             "Fr. 26’700 beim Kanton und Fr. 25’800 beim Bund",
             "(Kanton 2%, Bund 5% des Nettoeinkommens)",
         }) {
        EXPECT_NE(texts.find(wanted), std::string::npos) << wanted;
    }
    const std::string abroad = textsOf(contextOf(liechtenstein));
    for (const char* wanted :
         {"18% des Erwerbseinkommens", "Fr. 52’800 für Verheiratete und Fr. 26’400",
          "Fr. 6’300 pro Person", "ab Fr. 100, alle zusammen bis 10% des Erwerbs", "um 35%"}) {
        EXPECT_NE(abroad.find(wanted), std::string::npos) << wanted;
    }
}

/// Limits and rates come from the rules: without them none is told, and changed rules change the
/// texts.
TEST(DeductionPageTexts, typeNoFigureThemselves) {
    const std::regex figure("Fr\\. [0-9’.]+|[0-9.]+[%‰]");
    for (const TaxRegion region : {stGallen, liechtenstein}) {
        std::string texts = textsOf({.year = 2025, .region = region});
        // The labels of the register codes are no limits.
        texts = std::regex_replace(texts, std::regex("ab 10%"), "gross");
        std::smatch match;
        EXPECT_FALSE(std::regex_search(texts, match, figure)) << match.str();
        EXPECT_EQ(texts.find("  "), std::string::npos);
    }
    RuleBook changed = *contextOf(stGallen).stGallen;
    changed.cantonal.saeule3a.mitPensionskasse = 9'111;
    changed.federal.kinderbetreuungMax = 9'222;
    changed.cantonalExtra.liegenschaften.pauschalabzugSatz = 0.11_dec;
    changed.cantonalExtra.fahrzeugAbschreibungProJahr = 0.12_dec;
    changed.cantonal.versicherungen.proKind = 9'333;
    changed.federal.privateSchuldzinsenZuschlag = 9'444;
    const std::string texts = textsOf({.year = 2025, .region = stGallen, .stGallen = &changed});
    for (const char* wanted :
         {"Fr. 9’111", "Fr. 9’222", "11%", "12%", "Fr. 9’333", "Fr. 9’444 beim Bund"}) {
        EXPECT_NE(texts.find(wanted), std::string::npos) << wanted;
    }
}

TEST(DeductionPageTexts, fitTheLawOfLiechtenstein) {
    const std::string texts = textsOf(contextOf(liechtenstein));
    for (const char* swiss : {"31. Dezember", "Verrechnungssteuer", "Private Schuldzinsen", "Bund",
                              "SVA", "Selbstbehalt übersteigt", "Eigenmietwert"}) {
        EXPECT_EQ(texts.find(swiss), std::string::npos) << swiss;
    }
}

// Fields.

struct Entry {
    TaxRegion region;
    const char* path;
    Value value;
};

TEST(DeductionPageFields, setWhatTheyGet) {
    const std::vector<Entry> entries{
        {stGallen, "person2.hasPensionFund", false},
        {stGallen, "deductions2.pillar3a", Decimal(7'000)},
        {stGallen, "deductions1.furtherEducationFlatRate", true},
        {stGallen, "householdDeductions.supportedPersons", 2},
        {stGallen, "householdDeductions.actualAssetManagementCosts", Decimal(0)},
        {stGallen, "householdDeductions.actualAssetManagementCosts", Value{}},
        {stGallen, "householdDeductions.medicalCosts[0].date", Date::of(2025, 3, 1).value()},
        {stGallen, "householdDeductions.donations[0].isPoliticalParty", true},
        {stGallen, "children[0].childcareDaysWithMealsIncluded", 120},
        {stGallen, "capitalPayments[0].kind", std::string("saeule2")},
        {stGallen, "securities[0].code", std::string("BP")},
        {stGallen, "securities[0].quantity", Value{}},
        {stGallen, "vehicles[0].purchaseYear", 2021},
        {stGallen, "realEstate[0].use", std::string("gemischt")},
        {liechtenstein, "li.householdGoods", Decimal(40'000)},
        {liechtenstein, "li.useRealEstateFromList", false},
    };
    for (const Entry& entry : entries) {
        Desk desk(testing::fullCase(2025, entry.region));
        const auto field = desk.field(entry.path);
        ASSERT_TRUE(field) << entry.path;
        field->set(desk.taxCase, entry.value);
        EXPECT_EQ(field->get(desk.taxCase), entry.value) << entry.path;
    }
}

/// The extras of Liechtenstein come into being with the first entry.
TEST(DeductionPageFields, writeIntoExtrasThatAreAbsent) {
    Desk desk(couple(liechtenstein));
    ASSERT_FALSE(desk.taxCase.li);
    const auto field = desk.field("li.householdGoods");
    ASSERT_TRUE(field);
    EXPECT_EQ(field->get(desk.taxCase), Value(Decimal(0)));
    field->set(desk.taxCase, Decimal(9'000));
    ASSERT_TRUE(desk.taxCase.li);
    EXPECT_EQ(desk.taxCase.li->householdGoods, 9'000);
}

struct Visibility {
    const char* what;
    TaxRegion region;
    std::function<void(TaxCase&)> prepare;
    const char* path;
    bool shown;
};

std::function<void(TaxCase&)> property(std::function<void(RealEstate&)> change) {
    return [change = std::move(change)](TaxCase& taxCase) {
        change(taxCase.realEstate.emplace_back());
    };
}

std::function<void(TaxCase&)> childBorn(int year, int costs = 0) {
    return [=](TaxCase& taxCase) {
        Child& child = taxCase.children.emplace_back();
        child.birthDate = Date::of(year, 6, 1);
        child.childcareCosts = costs;
    };
}

TEST(DeductionPageFields, areShownWhenTheyMatter) {
    const auto nothing = [](TaxCase&) {};
    const auto let = property([](RealEstate& p) { p.use = PropertyUse::vermietet; });
    const auto holiday = property([](RealEstate& p) { p.isPrimaryResidence = false; });
    const auto home = property([](RealEstate&) {});
    const std::vector<Visibility> rows{
        {"3a", stGallen, nothing, "deductions1.pillar3a", true},
        {"3a abroad", liechtenstein, nothing, "deductions1.pillar3a", false},
        {"3a abroad, left over", liechtenstein, [](TaxCase& t) { t.deductions1.pillar3a = 5'000; },
         "deductions1.pillar3a", true},
        {"3a buy-in before 2026", stGallen, nothing, "deductions1.pillar3aBuyIn", false},
        {"3a buy-in before 2026, entered", stGallen,
         [](TaxCase& t) { t.deductions1.pillar3aBuyIn = 1; }, "deductions1.pillar3aBuyIn", true},
        {"3a buy-in", stGallen, [](TaxCase& t) { t.year = 2026; }, "deductions1.pillar3aBuyIn",
         true},
        {"pension fund abroad", liechtenstein, nothing, "deductions1.pensionBuyIn", true},
        {"diet abroad", liechtenstein, nothing, "householdDeductions.dietFlatRate", false},
        {"cooperation of one", stGallen, [](TaxCase& t) { t.civilStatus = CivilStatus::ledig; },
         "householdDeductions.significantCooperation", false},
        {"cooperation", stGallen, nothing, "householdDeductions.significantCooperation", true},
        {"childcare", stGallen, childBorn(2015), "children[0].childcareCosts", true},
        {"childcare too old", stGallen, childBorn(2008), "children[0].childcareCosts", false},
        {"childcare too old, entered", stGallen, childBorn(2008, 100), "children[0].childcareCosts",
         true},
        {"childcare abroad", liechtenstein, childBorn(2015), "children[0].childcareCosts", false},
        {"rent of the home", stGallen, home, "realEstate[0].rentalIncome", false},
        {"rent of the home, entered", stGallen,
         property([](RealEstate& p) { p.rentalIncome = 900; }), "realEstate[0].rentalIncome", true},
        {"rent", stGallen, let, "realEstate[0].rentalIncome", true},
        {"rental value of a let one", stGallen, let, "realEstate[0].imputedRentalValue", false},
        {"unused rooms at home", stGallen, home, "realEstate[0].unusedRooms", true},
        {"unused rooms on holiday", stGallen, holiday, "realEstate[0].unusedRooms", false},
        {"unused rooms of a let one", stGallen, let, "realEstate[0].unusedRooms", false},
        {"costs at the flat rate", stGallen, home, "realEstate[0].actualMaintenanceCosts", false},
        {"costs", stGallen, property([](RealEstate& p) { p.useFlatRateMaintenance = false; }),
         "realEstate[0].actualMaintenanceCosts", true},
        {"share of the second", stGallen, home, "realEstate[0].sharePerson2", true},
        {"share without a second", stGallen,
         [&](TaxCase& t) {
             home(t);
             t.civilStatus = CivilStatus::geschieden;
         },
         "realEstate[0].sharePerson2", false},
    };
    for (const Visibility& row : rows) {
        TaxCase taxCase = couple(row.region);
        row.prepare(taxCase);
        EXPECT_EQ(Desk(taxCase).isShown(row.path), row.shown) << row.what;
    }
}

/// The second person's section comes and goes with the civil status, and so do empty cards.
TEST(DeductionPageFields, sectionsAndCardsFollowTheHousehold) {
    for (const auto& [status, shown] :
         {std::pair(CivilStatus::ledig, false), std::pair(CivilStatus::verheiratet, true)}) {
        TaxCase taxCase = couple();
        taxCase.civilStatus = status;
        taxCase.person2.firstName = "Anna";
        const Page page = pages::pensionPage(contextOf(stGallen));
        const auto& second = page.sections.at(1);
        EXPECT_EQ(second.title(taxCase), "Anna");
        EXPECT_EQ(second.shown(taxCase), shown);
        EXPECT_EQ(page.sections.at(0).title(taxCase), "Person 1");
    }
    const Page page = pages::pensionPage(contextOf(liechtenstein));
    const auto& pillar3a = std::get<forms::FieldsCard>(page.sections.at(0).cards.at(1));
    EXPECT_FALSE(pillar3a.shown(couple(liechtenstein)));
}

/// What the review says of an entry leads to the page it stands on, and finds it there.
TEST(DeductionPageFields, standWhereNoticesLead) {
    int told = 0;
    for (const TaxRegion region : {stGallen, liechtenstein}) {
        const Desk desk(testing::fullCase(2025, region));
        const auto calculator = CaseCalculator::forCase(desk.taxCase).value();
        for (const Page& page : desk.pages) {
            for (const BoundField& field : testing::fieldsOf(page, desk.taxCase)) {
                for (const Value& odd : {Value(-1), Value(Decimal(-1)), Value(Decimal(9'000'000)),
                                         Value(1), Value(true)}) {
                    TaxCase taxCase = desk.taxCase;
                    field.set(taxCase, odd);
                    const TaxResult result = calculator.calculate(taxCase);
                    for (const Notice& notice : Checks::of({.calculator = calculator,
                                                .taxCase = taxCase,
                                                .result = result,
                                                .today = Date::of(2026, 3, 1).value()})) {
                        if (notice.path == field.path) {
                            ++told;
                            EXPECT_EQ(notice.area, page.id) << notice.id;
                            EXPECT_TRUE(field.shown(taxCase)) << notice.id;
                        }
                    }
                }
            }
        }
    }
    EXPECT_GT(told, 40);
}

} // namespace
} // namespace fiscarel
