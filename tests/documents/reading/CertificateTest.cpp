#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

struct Boxes {
    const char* gross = "68’000.00";
    const char* social = "3’657.00";
    const char* fund = "6’500.00";
    const char* buyIn = "1’500.00";
    const char* net = "56’343.00";
};

/// The federal form with its boxes numbered and labelled in three languages.
DrawnPage form(const Boxes& boxes, bool isPension = false) {
    DrawnPage page(8);
    page.text(60, 20, isPension ? "A" : "A X").text(100, 20, "Lohnausweis Certificat de salaire");
    page.text(60, 36, isPension ? "B X" : "B").text(100, 36, "Rentenbescheinigung Attestation");
    page.text(60, 52, "C 756.1111.2222.33").text(200, 52, "16.03.1975");
    page.text(60, 68, "D 2024").text(160, 68, "E 01.01.2024").text(260, 68, "31.12.2024");
    page.text(320, 52, "F").text(340, 52, "X").text(360, 52, "Unentgeltliche Beförderung");
    page.text(320, 68, "G").text(360, 68, "Kantinenverpflegung Lunch-Checks");
    page.text(340, 120, "Rosa Keller").text(340, 131, "Weg 2").text(340, 142, "9000 St.Gallen");
    const auto box = [&](double y, const char* label, const char* amount) {
        page.text(60, y, label).right(540, y, amount);
    };
    box(260, "1. Lohn soweit nicht unter Ziffer 2-7 aufzuführen", "66’000.00");
    box(280, "7. Andere Leistungen Arbeitgeberanteil AHV/IV/EO/ALV", "1´021.30");
    box(300, "8. Bruttolohn total / Salaire brut total / Salario lordo totale", boxes.gross);
    box(314, "9. Beiträge AHV/IV/EO/ALV/NBUV - Cotisations AVS/AI/APG/AC/AANP", boxes.social);
    box(328, "10. Berufliche Vorsorge 10.1 Ordentliche Beiträge", boxes.fund);
    box(342, "10.2 Beiträge für den Einkauf - Cotisations pour le rachat", boxes.buyIn);
    box(356, "11. Nettolohn / Salaire net / Salario netto", boxes.net);
    box(370, "12. Quellensteuerabzug", "");
    box(400, "13.1.2 Übrige", "250.00");
    box(430, "13.2.2 Auto", "900.00");
    box(445, "13.2.3 Übrige", "600.00");
    box(500, "15. Bemerkungen Ohne Gewähr", "");
    page.text(60, 560, "Ort und Datum").text(340, 560, "UID: CHE-123.456.789");
    page.text(340, 572, "Muster AG").text(340, 584, "Tel: 071 123 45 67");
    return page;
}

TEST(SalaryForm, takesEachAmountFromTheRowOfItsBox) {
    const std::vector<std::string> amounts{
        "grossSalary=68000 high", "socialContributions=3657 high", "pensionContributions=6500 high",
        "pensionBuyIn=1500 high", "netSalaryOverride=56343 high"};
    for (const double degrees : {0.0, 2.0, -1.5}) {
        DrawnPage page = form({});
        const ScanResult result = degrees == 0 ? page.proposed() : page.scanned(degrees).proposed();
        EXPECT_EQ(result.proposedKind, Kind::lohnausweis);
        EXPECT_FALSE(result.kindIsCertain);
        auto values = valuesOf(result);
        ASSERT_GE(values.size(), 5U) << degrees;
        values.resize(5);
        EXPECT_EQ(values, amounts) << degrees;
        EXPECT_EQ(valueOf(result, "flatRateExpenses"), "850");
    }
    const ScanResult result = form({}).proposed();
    EXPECT_EQ(result.records[0].personName, "Rosa Keller");
    EXPECT_EQ(result.records[0].birthDate, taxcore::Date::of(1975, 3, 16));
    EXPECT_EQ(result.records[0].year, 2024);
    EXPECT_EQ(valueOf(result, "employer"), "Muster AG");
    EXPECT_EQ(valueOf(result, "periodTo"), "2024-12-31");
    EXPECT_EQ(valueOf(result, "fieldF"), "true");
    EXPECT_EQ(valueOf(result, "fieldG"), "");
}

TEST(SalaryForm, anEmptyBoxStaysEmpty) {
    const ScanResult result =
        form({.social = "", .fund = "", .buyIn = "", .net = "68’000.00"}).proposed();
    EXPECT_EQ(valueOf(result, "socialContributions"), "");
    EXPECT_EQ(valueOf(result, "pensionContributions"), "");
    EXPECT_EQ(valueOf(result, "pensionBuyIn"), "");
    EXPECT_EQ(valueOf(result, "netSalaryOverride"), "68000");
}

TEST(SalaryForm, amountsThatDoNotAddUpAreOfferedWithAWarning) {
    const ScanResult result = form({.net = "60’000.00"}).proposed();
    const Proposal* net = proposalOf(result, "netSalaryOverride");
    ASSERT_NE(net, nullptr);
    EXPECT_EQ(net->confidence, Proposal::Confidence::low);
    ASSERT_EQ(net->checks.size(), 1U);
    EXPECT_FALSE(net->checks[0].passed);
}

TEST(SalaryForm, saysTheSumThatProvesTheWage) {
    struct Row {
        Boxes boxes;
        const char* said;
    };
    const std::vector<Row> rows{
        {{}, "68’000.00 − 3’657.00 − 6’500.00 − 1’500.00 = 56’343.00, der Nettolohn"},
        {{.fund = "", .buyIn = "", .net = "64’343.00"},
         "68’000.00 − 3’657.00 = 64’343.00, der Nettolohn"},
        {{.social = "3’657.35", .fund = "", .buyIn = "", .net = "64’343"},
         "68’000.00 − 3’657.35 = 64’342.65, gerundet 64’343.00, der Nettolohn"},
        {{.net = "60’000.00"},
         "68’000.00 − 3’657.00 − 6’500.00 − 1’500.00 = 56’343.00, als Nettolohn steht aber "
         "60’000.00"},
        {{.social = "", .fund = "", .buyIn = "", .net = "68’000.00"},
         "Ohne Abzüge ist der Nettolohn der Bruttolohn: 68’000.00"},
    };
    for (const Row& row : rows) {
        const ScanResult result = form(row.boxes).proposed();
        const Proposal* gross = proposalOf(result, "grossSalary");
        ASSERT_NE(gross, nullptr) << row.said;
        ASSERT_EQ(gross->checks.size(), 1U) << row.said;
        EXPECT_EQ(gross->checks[0].text, row.said);
    }
}

TEST(Sums, areSaidWithTheirSummandsWhereThereAreFew) {
    EXPECT_EQ(partsText("Beträge darüber", {Decimal(1'200), Decimal(0), Decimal(-300)}, 900),
              "1’200.00 − 300.00 = 900.00, die Summe der Beträge darüber");
    EXPECT_EQ(partsText("Beträge darüber", std::vector<Decimal>(12, 100), 1'200),
              "Die 12 Beträge darüber ergeben zusammen 1’200.00");
    EXPECT_EQ(togetherText({Decimal(-20), Decimal(-30)}, -50), "−20.00 − 30.00 = −50.00, alle "
                                                               "zusammen");
}

TEST(SalaryForm, aPensionCertificateIsNoSalary) {
    const ScanResult result =
        form({.gross = "24’000.00", .social = "", .fund = "", .buyIn = "", .net = "24’000.00"},
             true)
            .proposed();
    ASSERT_EQ(result.records.size(), 1U);
    EXPECT_EQ(result.records[0].kind, ProposedRecord::Kind::pension);
    EXPECT_EQ(valuesOf(result)[0], "amount=24000 high");
    EXPECT_EQ(valueOf(result, "grossSalary"), "");
}

TEST(SalaryForm, thePrincipalityNumbersItsBoxesAnew) {
    DrawnPage page;
    page.line("FÜRSTENTUM LIECHTENSTEIN").line("Lohnausweis 2024");
    page.line("Arbeitnehmer/in Rosa Keller, Weg 2").line("Beschäftigt 01.07.2024 31.12.2024");
    page.line("1 Grundlohn", "66’000.00").line("2 Naturalbezüge");
    page.line("4 Bruttolohn total", "68’000.00")
        .line("5 Abzüglich Beiträge AHV/IV/FAK/ALV/NBU", "3’657.00");
    page.line("6 Abzüglich ordentliche Beiträge Pensionskasse", "6’500.00");
    page.line("7 Abzüglich Einkauf Pensionskasse").line("Rückzahlung eines Vorschusses", "120.00");
    page.line("8 Nettolohn", "57’843.00");
    const ScanResult result = page.proposed();
    EXPECT_EQ(valueOf(result, "grossSalary"), "68000");
    EXPECT_EQ(valueOf(result, "socialContributions"), "3657");
    EXPECT_EQ(valueOf(result, "pensionContributions"), "6500");
    EXPECT_EQ(valueOf(result, "pensionBuyIn"), "");
    EXPECT_EQ(valueOf(result, "netSalaryOverride"), "57843");
    EXPECT_EQ(valueOf(result, "employerInLiechtenstein"), "true");
}

TEST(SalaryForm, documentsThatOnlyMentionOneGiveNoSalary) {
    DrawnPage annex;
    annex.line("Beiblatt zum Lohnausweis").line("Mitarbeiterbeteiligung");
    annex.line("Aktien mit Sperrfrist", "12’000.00")
        .line("Bruttolohn total gemäss Lohnausweis", "68’000.00");
    annex.line("Beiträge AHV/IV/EO/ALV/NBUV", "3’657.00").line("Nettolohn", "64’343.00");
    DrawnPage taxReturn;
    taxReturn.line("Steuererklärung 2024").line("Einkünfte gemäss Lohnausweis");
    taxReturn.line("Bruttolohn total", "68’000.00").line("Nettolohn", "56’343.00");
    taxReturn.line("Total der Einkünfte", "56’343.00").line("Steuerbares Einkommen", "48’000.00");
    DrawnPage receipt;
    receipt.line("Markt am Platz").line("Kasse 4 Bon 2211").line("Brot", "4.50");
    receipt.line("MWST 2.6%", "0.11").line("Total CHF", "4.50").line("Rückgeld", "5.50");
    for (const DrawnPage& page : {annex, taxReturn, receipt}) {
        const ScanResult result = page.proposed();
        EXPECT_EQ(result.proposedKind, Kind::anderes) << page.page().words.front().text;
        EXPECT_TRUE(result.proposals.empty()) << page.page().words.front().text;
    }
}

} // namespace
} // namespace fiscarel
