#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

TEST(AccountStatement, readsOneAccountWithItsWithholdingTax) {
    DrawnPage page;
    page.line("Bank Muster AG").line("Zins- und Saldobestätigung per 31.12.2024");
    page.line("Sparkonto IBAN CH93 0076 2011 6238 5295 7");
    page.line("Saldo per 01.01.2024", "10’000.00").line("Saldo per 31.12.2024", "27’717.65");
    page.line("Bruttozins 2024", "549.90")
        .line("Verrechnungssteuer 35%", "192.47")
        .line("Nettozins", "357.43");
    const ScanResult result = page.proposed();
    EXPECT_EQ(result.proposedKind, Kind::bankauszug);
    EXPECT_EQ(valuesOf(result),
              (std::vector<std::string>{
                  "kind=konto medium", "ibanOrValor=CH9300762011623852957 high",
                  "institution=Bank Muster AG medium", "description=Sparkonto medium",
                  "taxValue=27717.65 medium", "incomeWithWithholding=549.9 high"}));
}

TEST(AccountStatement, theAccountInTheContactLineIsTheBanksOwn) {
    DrawnPage page;
    page.line("Bank Muster AG").line("Zins- und Saldobestätigung per 31.12.2024");
    page.line("Sparkonto Nr. 4711").line("Saldo per 31.12.2024", "27’717.65");
    page.text(60, 815, "Bank Muster AG | Tel. 071 123 45 67 | IBAN CH93 0076 2011 6238 5295 7");
    const ScanResult result = page.proposed();
    EXPECT_EQ(valueOf(result, "taxValue"), "27717.65");
    EXPECT_EQ(valueOf(result, "ibanOrValor"), "");
}

TEST(AccountStatement, aTaxThatDoesNotFitTheInterestWarns) {
    DrawnPage page;
    page.line("Bank Muster AG").line("Zinsausweis 2024").line("Saldo per 31.12.2024", "27’717.65");
    page.line("Bruttozins 2024", "549.90").line("Verrechnungssteuer 35%", "129.47");
    const ScanResult result = page.proposed();
    EXPECT_EQ(proposalOf(result, "incomeWithWithholding")->confidence, Proposal::Confidence::low);
}

TEST(AccountStatement, readsATableOfAccounts) {
    DrawnPage page;
    page.text(60, 60, "Bank Muster AG").text(60, 90, "Zinsausweis 2024");
    page.text(60, 120, "Konto")
        .right(320, 120, "Saldo 31.12.")
        .right(430, 120, "Zinsertrag brutto")
        .right(540, 120, "Verr.-Steuer");
    page.text(60, 140, "Privatkonto").right(320, 140, "82’754.13").right(430, 140, "53.55");
    page.text(60, 155, "CH93 0076 2011 6238 5295 7");
    page.text(60, 175, "Sparkonto Plus")
        .right(320, 175, "1’500.05")
        .right(430, 175, "1’193.40")
        .right(540, 175, "417.69");
    page.text(60, 190, "CH56 0483 5012 3456 7800 9");
    page.text(60, 215, "Total CHF")
        .right(320, 215, "84’254.18")
        .right(430, 215, "1’246.95")
        .right(540, 215, "417.69");
    page.text(60, 260, "Am Schalter von 08.00 bis 17.30 Uhr");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "ibanOrValor", 0), "CH9300762011623852957");
    EXPECT_EQ(valueOf(result, "taxValue", 0), "82754.13");
    EXPECT_EQ(valueOf(result, "incomeWithoutWithholding", 0), "53.55");
    EXPECT_EQ(valueOf(result, "ibanOrValor", 1), "CH5604835012345678009");
    EXPECT_EQ(valueOf(result, "incomeWithWithholding", 1), "1193.4");
}

TEST(AccountStatement, aMortgageIsADebt) {
    DrawnPage page;
    page.line("Bank Muster AG").line("Zins- und Kapitalbestätigung Hypothek");
    page.line("Festhypothek Nr. 978.623, Zinssatz 1.85%").line("31.03.2024 90", "4’640.60");
    page.line("Bezahlte Schuldzinsen 2024", "18’562.50")
        .line("Schuld per 31.12.2024", "742’500.00");
    page.line("Amortisation im Jahr 2024", "5’000.00");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 1U);
    EXPECT_EQ(result.records[0].kind, ProposedRecord::Kind::debt);
    EXPECT_EQ(valueOf(result, "amount"), "742500");
    EXPECT_EQ(valueOf(result, "interest"), "18562.5");
}

TEST(AccountStatement, recognisedInterestIsFoundByWhatTheTaxLeaves) {
    DrawnPage page;
    page.line("Bank Muster AG").line("Zins- und Saldobestätigung per 31.12.2024");
    page.line("Saldo per 31.12.2024", "37’302.50").line("BFURLOZ ZO ARIANO", "631.90");
    page.line("NGMMECHA UCK", "221.17").line("LIRA IONI", "410.73");
    EXPECT_EQ(valueOf(page.scanned(0.5).proposed(), "incomeWithWithholding"), "631.9");
}

TEST(AccountWording, accountsAndLoansShareATable) {
    DrawnPage page;
    page.text(60, 60, "Regionalbank Muster").text(60, 90, "Vermögensausweis 31.12.2024");
    page.text(60, 120, "Produkt").right(330, 120, "Saldo per").right(440, 120, "Zins");
    page.right(540, 120, "Verr.-Steuer").right(330, 132, "31.12.2024").right(440, 132, "brutto");
    page.text(60, 150, "Sparkonto 12.345-6")
        .right(330, 150, "20’500.00")
        .right(440, 150, "300.00")
        .right(540, 150, "105.00");
    page.text(60, 170, "Hypothek 77.001-2")
        .right(330, 170, "-400’000.00")
        .right(440, 170, "6’120.00");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "taxValue", 0), "20500");
    EXPECT_EQ(valueOf(result, "incomeWithWithholding", 0), "300");
    EXPECT_EQ(result.records[1].kind, ProposedRecord::Kind::debt);
    EXPECT_EQ(valueOf(result, "amount", 1), "400000");
    EXPECT_EQ(valueOf(result, "interest", 1), "6120");
}

TEST(AccountWording, accountsWithoutIbanEachHaveTheirBlock) {
    DrawnPage page;
    page.line("Regionalbank Muster").line("Bestätigung Zinsen und Salden 2024");
    page.line("Privatkonto Nr. 12.345.678").line("Guthaben am 31.12.2024", "1’200.00");
    page.line("Sparkonto Nr. 98.765.432").line("Guthaben am 31.12.2024", "9’900.00");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "taxValue", 0), "1200");
    EXPECT_EQ(valueOf(result, "taxValue", 1), "9900");
}

} // namespace
} // namespace fiscarel
