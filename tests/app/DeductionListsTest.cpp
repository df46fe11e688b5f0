// The pages of pensions, further deductions and wealth: their figures and lists.

#include "TaxCore/demo/DemoData.h"
#include "tests/support/DeductionDesk.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using namespace testing;

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += text + "\n";
    }
    return all;
}

// Figures.

TEST(DeductionPageFigures, tellTheMaximumOfPillar3aAndWhatIsLeft) {
    TaxCase taxCase = couple();
    taxCase.deductions1.pillar3a = 5'000;
    const Desk within(taxCase);
    EXPECT_TRUE(within.hasFigure("Höchstbetrag: 7’258 (mit Pensionskasse)"))
        << joined(within.figures());
    EXPECT_TRUE(within.hasFigure("Noch möglich: 2’258"));
    EXPECT_TRUE(within.hasFigure("Abzug Säule 3a: 5’000"));
    EXPECT_TRUE(within.hasFigure(
        "Höchstbetrag: 0 (Ohne AHV-pflichtiges Erwerbseinkommen gibt es keinen Abzug.)"));

    taxCase.deductions1.pillar3a = 20'000;
    const Desk above(taxCase);
    EXPECT_TRUE(above.hasFigure("Noch möglich: 0"));
    EXPECT_TRUE(above.hasFigure("Abzug Säule 3a: 7’258 (gekürzt, eingetragen sind 20’000)"));

    taxCase.person1.hasPensionFund = false;
    const Desk large(taxCase);
    EXPECT_TRUE(large.hasFigure("Höchstbetrag: 18’000 (ohne Pensionskasse)"))
        << joined(large.figures());
}

TEST(DeductionPageFigures, showCantonAndFederationWhereTheyDiffer) {
    TaxCase taxCase = couple();
    taxCase.householdDeductions.healthInsurancePremiums = 9'000;
    taxCase.householdDeductions.supportedPersons = 1;
    taxCase.householdDeductions.medicalCosts.emplace_back().gross = 3'000;
    taxCase.householdDeductions.donations.emplace_back().amount = 60;
    Donation& gift = taxCase.householdDeductions.donations.emplace_back();
    gift.amount = 15'000;
    gift.isPoliticalParty = true;
    taxCase.deductions2.furtherEducationFlatRate = true;
    taxCase.capitalPayments.emplace_back().amount = 50'000;
    const Desk desk(taxCase);
    for (const char* wanted : {
             "Prämien und Sparzinsen: 9’000",
             "Höchstbetrag: Kanton 7’900 · Bund 6’250",
             "Abziehbar: Kanton 7’900 · Bund 6’250",
             "Krankheits- und Unfallkosten: 3’000",
             "Spenden abziehbar: 0 (gekürzt, eingetragen sind 60)",
             "Parteispenden abziehbar: Kanton 15’000 · Bund 10’600 (gekürzt, eingetragen sind "
             "15’000)",
             "Abzug für unterstützte Personen: Kanton 0 · Bund 6’800",
             "Abzug: Kanton 400 · Bund 0",
         }) {
        EXPECT_TRUE(desk.hasFigure(wanted)) << wanted << " in\n" << joined(desk.figures());
    }
    const std::string all = joined(desk.figures());
    for (const char* label : {"Steuer auf Kapitalleistungen: ", "Direkte Bundessteuer: "}) {
        EXPECT_NE(all.find(label), std::string::npos) << all;
    }
}

TEST(DeductionPageFigures, valueVehiclesByTheRulesOfTheRegion) {
    for (const auto& [region, worth] :
         {std::pair(stGallen, "VW: 12’000"), std::pair(liechtenstein, "VW: 8’450")}) {
        TaxCase taxCase = couple(region);
        Vehicle& car = taxCase.vehicles.emplace_back();
        car.description = "VW";
        car.purchasePrice = 20'000;
        car.purchaseYear = 2023;
        Desk desk(taxCase);
        EXPECT_TRUE(desk.hasFigure(worth)) << joined(desk.figures());
        const std::string amount = desk.list("vehicles").summary(taxCase, 0).amount;
        EXPECT_EQ("VW: " + amount, worth);
        desk.taxCase.vehicles.front().taxValueOverride = 500;
        EXPECT_TRUE(desk.hasFigure("VW: 500 (wie eingetragen)"));
    }
}

TEST(DeductionPageFigures, capDebtInterestOnBothPages) {
    TaxCase taxCase = couple();
    taxCase.debts.emplace_back().interest = 80'000;
    const auto all = Desk(taxCase).figures();
    EXPECT_EQ(std::ranges::count(
                  all, "Abziehbare Schuldzinsen: 50’000 (gekürzt, eingetragen sind 80’000)"),
              2)
        << joined(all);
}

/// No figure hangs on an entry or a rule that is not there.
TEST(DeductionPageFigures, standWithoutRulesAndEntries) {
    for (const TaxRegion region : {stGallen, liechtenstein}) {
        for (TaxCase taxCase :
             {couple(region), testing::fullCase(2025, region), DemoData::household(region, 2025)}) {
            Desk desk(taxCase);
            desk.pages = pagesOf({.year = 2025, .region = region});
            for (const std::string& figure : desk.figures()) {
                EXPECT_FALSE(figure.starts_with(":")) << figure;
            }
        }
    }
}

// Lists.

TEST(DeductionPageLists, addRemoveDuplicateAndMove) {
    Desk desk(couple());
    const auto& debts = desk.list("debts");
    TaxCase& taxCase = desk.taxCase;
    debts.add(taxCase);
    debts.add(taxCase);
    ASSERT_EQ(debts.size(taxCase), 2U);
    debts.fields(0).front().set(taxCase, std::string("Bank"));
    debts.duplicate(taxCase, 0);
    ASSERT_EQ(debts.size(taxCase), 3U);
    EXPECT_EQ(taxCase.debts[1].creditor, "Bank");
    EXPECT_NE(debts.id(taxCase, 0), debts.id(taxCase, 1));
    const Uuid last = debts.id(taxCase, 2);
    debts.move(taxCase, 2, 0);
    EXPECT_EQ(debts.id(taxCase, 0), last);
    debts.remove(taxCase, 1);
    ASSERT_EQ(debts.size(taxCase), 2U);
    EXPECT_EQ(taxCase.debts[1].creditor, "Bank");
    debts.remove(taxCase, 7);
    EXPECT_EQ(debts.size(taxCase), 2U);
}

TEST(DeductionPageLists, takeOverLastYearWithFreshIdentities) {
    for (const char* path : {"securities", "insurances", "vehicles", "realEstate", "debts"}) {
        const TaxCase old = testing::fullCase(2024, stGallen);
        Desk desk(couple());
        const auto& list = desk.list(path);
        EXPECT_TRUE(list.offersLastYear) << path;
        list.takeOver(desk.taxCase, old);
        ASSERT_EQ(list.size(desk.taxCase), 1U) << path;
        EXPECT_NE(list.id(desk.taxCase, 0), list.id(old, 0)) << path;
    }
    TaxCase old = testing::fullCase(2024, stGallen);
    Desk desk(couple());
    desk.list("securities").takeOver(desk.taxCase, old);
    EXPECT_FALSE(desk.taxCase.securities.front().documentID);
}

TEST(DeductionPageLists, childrenComeAndGoOnTheFamilyPage) {
    const Desk desk(testing::fullCase(2025, stGallen));
    const auto& children = desk.list("children");
    EXPECT_FALSE(children.add || children.remove || children.duplicate || children.move
                 || children.takeOver);
    EXPECT_NE(children.emptyText.find("«Familie»"), std::string::npos);
    EXPECT_EQ(children.size(desk.taxCase), 1U);
}

TEST(DeductionPageLists, propertiesOfLiechtensteinBeginThere) {
    for (const auto& [region, canton] :
         {std::pair(stGallen, "SG"), std::pair(liechtenstein, "FL")}) {
        Desk desk(couple(region));
        desk.list("realEstate").add(desk.taxCase);
        EXPECT_EQ(desk.taxCase.realEstate.at(0).canton, canton);
    }
}

TEST(DeductionPageLists, propertiesOfAHouseholdOfOneBelongToThatPerson) {
    TaxCase single = couple();
    single.civilStatus = CivilStatus::ledig;
    for (const auto& [household, share] : {std::pair(couple(), 50), std::pair(single, 100)}) {
        Desk desk(household);
        desk.list("realEstate").add(desk.taxCase);
        EXPECT_EQ(desk.taxCase.realEstate.at(0).sharePerson1, share);
        EXPECT_EQ(desk.taxCase.realEstate.at(0).sharePerson2, 100 - share);
    }
}

TEST(DeductionPageLists, tellTheirTotals) {
    Desk desk(couple());
    SecurityEntry& entry = desk.taxCase.securities.emplace_back();
    entry.taxValue = 120'000;
    entry.incomeWithWithholding = 1'000;
    entry.incomeWithoutWithholding = 50;
    MedicalCost& bill = desk.taxCase.householdDeductions.medicalCosts.emplace_back();
    bill.gross = 100;
    bill.reimbursed = 300;
    desk.taxCase.householdDeductions.medicalCosts.emplace_back().gross = 1'000;
    Debt& debt = desk.taxCase.debts.emplace_back();
    debt.amount = 500'000;
    debt.interest = 7'500;
    EXPECT_EQ(desk.list("debts").total(desk.taxCase), "Schulden 500’000 · Zinsen 7’500");
    const auto sumOf = [&](const char* list, const char* label) {
        const forms::ListCard& card = desk.list(list);
        const auto columns = card.fields(0);
        const auto at = std::ranges::find(columns, label, &forms::BoundField::label);
        return card.sums(desk.taxCase).at(static_cast<std::size_t>(at - columns.begin()));
    };
    EXPECT_EQ(sumOf("securities", "Steuerwert"), Decimal(120'000));
    EXPECT_EQ(sumOf("securities", "Ertrag mit VSt"), Decimal(1'000));
    EXPECT_EQ(sumOf("securities", "Ertrag ohne VSt"), Decimal(50));
    EXPECT_EQ(sumOf("securities", "Anzahl"), std::nullopt);
    EXPECT_EQ(sumOf("householdDeductions.medicalCosts", "Rechnung"), Decimal(1'100));
    EXPECT_EQ(sumOf("householdDeductions.medicalCosts", "Zurückerstattet"), Decimal(300));
    for (const char* table :
         {"securities", "householdDeductions.medicalCosts", "householdDeductions.donations"}) {
        EXPECT_TRUE(desk.list(table).isTable) << table;
    }
}

} // namespace
} // namespace fiscarel
