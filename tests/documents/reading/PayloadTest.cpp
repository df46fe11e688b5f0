#include "Fiscarel_SG/documents/Applying.h"
#include "Fiscarel_SG/documents/payload/PayloadXml.h"
#include "Fiscarel_SG/documents/payload/QrBill.h"
#include "tests/documents/reading/DrawnPage.h"
#include "tests/documents/reading/MadePayload.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

using namespace taxcore::literals;
using Kind = StoredDocument::Kind;

DrawnPage withSymbols(const std::vector<PageSymbol>& symbols) {
    DrawnPage page;
    for (const PageSymbol& symbol : symbols) {
        page.symbol(symbol);
    }
    return page;
}

TEST(CertificatePayload, fillsTheCertificateFromAnyNumberOfParts) {
    const std::vector<std::string> expected{"employer=Muster & Söhne AG high",
                                            "periodFrom=2024-01-01 high",
                                            "periodTo=2024-12-31 high",
                                            "grossSalary=68000 high",
                                            "socialContributions=3657 high",
                                            "pensionContributions=6500 high",
                                            "pensionBuyIn=1500 high",
                                            "netSalaryOverride=56343 high",
                                            "fieldG=true high",
                                            "flatRateExpenses=850 high",
                                            "remarks=Ohne Gewähr high"};
    for (const int count : {1, 2, 5}) {
        auto symbols = certificateSymbols(certificateXml(), count);
        std::ranges::reverse(symbols);
        const ScanResult result = withSymbols(symbols).proposed();
        EXPECT_EQ(valuesOf(result), expected) << count;
        EXPECT_EQ(result.proposedKind, Kind::lohnausweis);
        EXPECT_TRUE(result.kindIsCertain);
        ASSERT_EQ(result.records.size(), 1U);
        EXPECT_EQ(result.records[0].personName, "Rosa Keller");
        EXPECT_EQ(result.records[0].socialSecurityNumber, "756.1111.2222.33");
        EXPECT_EQ(result.records[0].year, 2024);
    }
}

TEST(CertificatePayload, keepsManyCertificatesOfAFileApart) {
    auto symbols = certificateSymbols(certificateXml(), 2, "aaaa");
    const auto second = certificateSymbols(pensionXml(), 2, "bbbb");
    symbols.insert(symbols.begin() + 1, second.begin(), second.end());
    const ScanResult result = withSymbols(symbols).proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "grossSalary", 0), "68000");
    EXPECT_EQ(result.records[1].kind, ProposedRecord::Kind::pension);
    EXPECT_EQ(valueOf(result, "amount", 1), "24000");
}

TEST(CertificatePayload, whatIsPrintedOtherwiseIsSaidWithBothAmounts) {
    DrawnPage page = withSymbols(certificateSymbols(certificateXml(), 1));
    page.line("Lohnausweis").line("8. Bruttolohn total / Rente", "86’000.00");
    page.line("9. Beiträge AHV/IV/EO/ALV/NBUV", "3’657.00").line("11. Nettolohn", "56’343.00");
    const ScanResult result = page.proposed();
    const Proposal* gross = proposalOf(result, "grossSalary");
    ASSERT_NE(gross, nullptr);
    EXPECT_EQ(gross->confidence, Proposal::Confidence::medium);
    EXPECT_TRUE(std::ranges::any_of(gross->checks, [](const ProposalCheck& check) {
        return !check.passed && check.text.find("68’000.00") != std::string::npos
               && check.text.find("86’000.00") != std::string::npos;
    }));
    EXPECT_EQ(proposalOf(result, "socialContributions")->confidence, Proposal::Confidence::high);
    EXPECT_TRUE(proposalOf(result, "socialContributions")->box.has_value());
}

TEST(CertificatePayload, doesNotAddUpIsSaid) {
    const ScanResult result =
        withSymbols(certificateSymbols(certificateXml("60000.00"), 1)).proposed();
    EXPECT_EQ(proposalOf(result, "netSalaryOverride")->confidence, Proposal::Confidence::medium);
}

TEST(CertificatePayload, nothingIsProposedFromWhatIsMissingOrDamaged) {
    const auto whole = certificateSymbols(certificateXml(), 3);
    const auto proposals = [](const std::vector<PageSymbol>& symbols) {
        return withSymbols(symbols).proposed().proposals.size();
    };
    ASSERT_GT(proposals(whole), 0U);
    EXPECT_EQ(proposals({whole[0], whole[2]}), 0U) << "a part is missing";
    for (std::size_t at = 14; at < whole[1].bytes.size() - 3; at += 7) {
        auto damaged = whole;
        damaged[1].bytes[at] = static_cast<char>(damaged[1].bytes[at] ^ 0x55);
        EXPECT_EQ(proposals(damaged), 0U) << at;
    }
    auto counted = whole;
    for (PageSymbol& symbol : counted) {
        symbol.bytes[13] = 65; // more parts than are joined
    }
    EXPECT_EQ(proposals(counted), 0U);
}

TEST(StatementPayload, proposesEveryEntryAndTheTotalAsTheOtherChoice) {
    auto symbols = statementSymbols(statementXml(), 3);
    std::ranges::reverse(symbols);
    const ScanResult result = withSymbols(symbols).proposed();
    EXPECT_EQ(result.proposedKind, Kind::steuerauszug);
    EXPECT_TRUE(result.kindIsCertain);
    ASSERT_EQ(result.records.size(), 5U);
    EXPECT_EQ(valueOf(result, "ibanOrValor", 0), "CH9300762011623852957");
    EXPECT_EQ(valueOf(result, "taxValue", 0), "17000.06");
    EXPECT_EQ(valueOf(result, "incomeWithWithholding", 0), "100");
    EXPECT_EQ(valueOf(result, "incomeWithoutWithholding", 0), "22.94");
    EXPECT_EQ(valueOf(result, "quantity", 1), "200");
    EXPECT_EQ(valueOf(result, "taxValue", 1), "22350.96") << "summed and rounded";
    EXPECT_EQ(valueOf(result, "incomeWithoutWithholding", 1), "114.51");
    EXPECT_EQ(valueOf(result, "kind", 2), "steuerauszug");
    EXPECT_EQ(valueOf(result, "taxValue", 2), "39351.02");
    EXPECT_TRUE(isStatementTotal(result, 2));
    EXPECT_FALSE(result.records[2].advice.empty());
    EXPECT_EQ(valueOf(result, "amount", 3), "500");
    EXPECT_EQ(valueOf(result, "interest", 3), "12");
    EXPECT_EQ(valueOf(result, "actualAssetManagementCosts", 4), "80.5");
    EXPECT_EQ(proposalOf(result, "taxValue", 2)->confidence, Proposal::Confidence::high);
}

TEST(StatementPayload, entriesThatMissTheTotalLowerIt) {
    const ScanResult result = withSymbols(statementSymbols(statementXml("40000.00"), 1)).proposed();
    EXPECT_EQ(proposalOf(result, "taxValue", 2)->confidence, Proposal::Confidence::medium);
    EXPECT_EQ(proposalOf(result, "taxValue", 0)->confidence, Proposal::Confidence::high);
}

TEST(StatementPayload, aNameOfControlCharactersIsNone) {
    std::string xml = statementXml();
    for (const std::string_view name : {"Muster N", "Sparkonto", "Kredit"}) {
        xml.replace(xml.find(name), name.size(), "&#x7F;");
    }
    const ScanResult result = withSymbols(statementSymbols(xml, 1)).proposed();
    EXPECT_GT(result.proposals.size(), 10U);
    EXPECT_TRUE(std::ranges::none_of(result.proposals,
                                     [](const Proposal& one) { return one.value.empty(); }));
}

TEST(StatementPayload, thePageMarkNamesTheKindWithoutAnyData) {
    PageSymbol mark{.symbology = PageSymbol::Symbology::code128, .bytes = "1962219334001002"};
    ScanResult result = withSymbols({mark}).proposed();
    EXPECT_EQ(result.proposedKind, Kind::steuerauszug);
    EXPECT_TRUE(result.kindIsCertain);
    EXPECT_TRUE(result.proposals.empty());
    mark.bytes = "196221933400100X";
    EXPECT_FALSE(withSymbols({mark}).proposed().kindIsCertain);
}

TEST(PayloadXml, refusesWhatIsMadeToDoHarm) {
    EXPECT_FALSE(PayloadXml::parse("<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>"));
    std::string deep;
    for (int i = 0; i < 5'000; ++i) {
        deep += "<a>";
    }
    EXPECT_FALSE(PayloadXml::parse(deep));
    std::string many = "<a>";
    for (int i = 0; i < 200'000; ++i) {
        many += "<b/>";
    }
    EXPECT_FALSE(PayloadXml::parse(many + "</a>"));
    EXPECT_FALSE(PayloadXml::parse(""));
    EXPECT_FALSE(PayloadXml::parse("<a"));
    EXPECT_TRUE(PayloadXml::parse("<a b=\"x > y\"><!-- <<< --><![CDATA[<<<]]></a>"));
    EXPECT_FALSE(unpackZlib(packed(std::string(mostPayloadBytes + 1, 'x')))) << "8 MiB at most";
    EXPECT_TRUE(unpackZlib(packed(std::string(mostPayloadBytes, 'x'))));
    const std::string whole = packed("ein Text, der lang genug ist, um geteilt zu werden");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(unpackZlib(whole.substr(0, size))) << size;
    }
}

TEST(QrBill, readsWhatBillersPrint) {
    for (const char* end : {"\n", "\r\n", " \n"}) {
        const auto bill = parseQrBill(
            billText(" 512.70", end, "//S1/10/47\\/11/11/240131/32/8.1:100;2.6:200/40/2:10;0:30"));
        ASSERT_TRUE(bill) << end;
        EXPECT_EQ(bill->payee, "Praxis Muster");
        EXPECT_EQ(bill->payeeTown, "St.Gallen");
        EXPECT_EQ(bill->amount, 512.70_dec);
        EXPECT_EQ(bill->iban, "CH9300762011623852957");
        EXPECT_EQ(bill->reference, "210000000003139471430009017");
        EXPECT_EQ(bill->invoiceNumber, "47/11");
        EXPECT_EQ(bill->date, taxcore::Date::of(2024, 1, 31));
        EXPECT_EQ(bill->totalByTax, 313.30_dec);
        EXPECT_EQ(bill->discountPercent, 2);
    }
    EXPECT_FALSE(parseQrBill(billText(""))->amount);
    EXPECT_FALSE(parseQrBill(billText("0.00"))->amount);
    EXPECT_FALSE(parseQrBill(billText("-5.00")));
    EXPECT_FALSE(parseQrBill(billText("viel")));
    EXPECT_FALSE(parseQrBill("SPC\n0200\n1\n"));
    EXPECT_FALSE(parseQrBill("https://example.invalid/SPC"));
}

TEST(QrBill, becomesAMedicalCostWithAWordOfCaution) {
    DrawnPage page;
    page.line("Praxis Dr. med. Muster").line("Rechnung für die Behandlung");
    page.line("Patient Rosa Keller").line("TARMED Konsultation", "500.00");
    page.line("Rechnungsbetrag", "512.70").symbol(qrSymbol(billText("512.70")));
    const ScanResult result = page.proposed();
    EXPECT_EQ(result.proposedKind, Kind::arztrechnung);
    ASSERT_EQ(result.records.size(), 1U);
    EXPECT_EQ(result.records[0].kind, ProposedRecord::Kind::medicalCost);
    EXPECT_NE(result.records[0].advice.find("kein Beweis"), std::string::npos);
    EXPECT_EQ(valuesOf(result)[0], "gross=512.7 high");
    EXPECT_EQ(valueOf(result, "provider"), "Praxis Muster");

    DrawnPage other;
    other.line("Praxis Dr. med. Muster").line("Rechnung für die Behandlung");
    other.line("Patient Rosa Keller").line("TARMED Konsultation", "500.00");
    other.line("Rechnungsbetrag", "521.70").symbol(qrSymbol(billText("512.70")));
    const ScanResult differing = other.proposed();
    EXPECT_EQ(valuesOf(differing)[0], "gross=512.7 medium");
}

} // namespace
} // namespace fiscarel
