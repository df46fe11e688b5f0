#include "Fiscarel_SG/DocumentScanner.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace fiscarel {
namespace {

using namespace taxcore::literals;
using Kind = StoredDocument::Kind;
using Target = ExtractedField::Target;

TEST(DocumentScanner, findsTheAmountsOfALine) {
    struct Row {
        const char* line;
        std::vector<Decimal> amounts;
    };
    const std::vector<Row> rows{
        {"", {}},
        {"kein Betrag", {}},
        {"1’234.50", {1234.50_dec}},
        {"1'234.50 und 1`234,50", {1234.50_dec, 1234.50_dec}},
        {"12 345.–", {12345}},
        {"120.- 80,–", {120, 80}},
        {"3,5", {3, 5}},
        {"1’234’567", {1'234'567}},
        {"1’23", {1, 23}},
        {"12’3456", {12, 3456}},
        {"1234.567", {1234}},
        {"per 31.12.2025", {31.12_dec}},
        {"756.1234.5678.97", {756}},
        {"Fr. 0.05", {0.05_dec}},
        {"-45.20", {45.20_dec}},
        {"٣٤ 7", {7}},
        {"99999999999999999999999999999999999999999999999999 8", {8}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DocumentScanner::amounts(row.line), row.amounts) << row.line;
    }
    EXPECT_EQ(DocumentScanner::amounts(std::string(200'000, '7') + " 5").back(), 5)
        << "an endless number costs time in proportion";
    EXPECT_EQ(DocumentScanner::amounts("\xFF\xC3 12.00"), std::vector<Decimal>{12});
}

TEST(DocumentScanner, theFirstRuleThatHoldsDecides) {
    struct Row {
        const char* text;
        std::vector<std::string> barcodes;
        Kind kind;
    };
    const std::vector<std::string> symbol{"QRCode:SPC", "PDF417:0000"};
    const std::vector<Row> rows{
        {"", {}, Kind::anderes},
        {"LOHNAUSWEIS mit Spende", {}, Kind::lohnausweis},
        {"Rentenbescheinigung der Kita", {}, Kind::lohnausweis},
        {"CERTIFICAT DE SALAIRE", {}, Kind::lohnausweis},
        {"RELEVÉ FISCAL", {}, Kind::steuerauszug},
        {"Steuerausweis", symbol, Kind::steuerauszug},
        {"Steuerausweis", {"QRCode:SPC"}, Kind::anderes},
        {"Quittung", symbol, Kind::anderes},
        {"SÄULE 3A", {}, Kind::saeule3a},
        {"Sa\u0308ule 3a", {}, Kind::saeule3a},
        {"Einkauf in die Pensionskasse", {}, Kind::pensionskasse},
        {"Einkauf im Laden", {}, Kind::anderes},
        {"Steuerbestätigung Ihrer Versicherung", {}, Kind::krankenkasse},
        {"Steuerbestätigung", {}, Kind::anderes},
        {"Helsana: Ihre Police", {}, Kind::versicherung},
        {"Helsana: Ihre Prämie", {}, Kind::krankenkasse},
        {"css Prämie", {}, Kind::krankenkasse},
        {"css: Prämie", {}, Kind::anderes},
        {"Vielen Dank für Ihre Spende an die Kita", {}, Kind::spende},
        {"sporthort", {}, Kind::kinderbetreuung},
        {"Zinsausweis der Praxis", {}, Kind::bankauszug},
        {"Praxis für Lehrgang", {}, Kind::arztrechnung},
        {"Kursgeld, Police", {}, Kind::weiterbildung},
        {"Rückkaufswert am Grundstück", {}, Kind::versicherung},
        {"Schätzung", {}, Kind::liegenschaft},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DocumentScanner::classify(row.text, row.barcodes), row.kind) << row.text;
    }
}

TEST(DocumentScanner, takesTheAmountsOfAKindByTheirLabels) {
    using Fields = std::map<Target, Decimal>;
    struct Row {
        Kind kind;
        const char* text;
        Fields fields;
    };
    const std::vector<Row> rows{
        {Kind::lohnausweis,
         "8. Bruttolohn total / Salaire brut total 82’400\nBeiträge AHV/IV/EO/ALV/NBUV\n5’274.00\n"
         "ordentliche Beiträge 4’120.\nBeiträge für den Einkauf 2’500\nNettolohn 71’006",
         // The form's own number stands before the label, and these rules cannot tell.
         {{Target::grossSalary, 8},
          {Target::socialContributions, 5'274},
          {Target::pensionContributions, 4'120},
          {Target::pensionBuyIn, 2'500},
          {Target::netSalary, 71'006}}},
        {Kind::saeule3a, "Total 7’056.00", {{Target::pillar3a, 7'056}}},
        {Kind::saeule3a, "Total 45’000.00\nkeine", {}},
        {Kind::saeule3a, "Total 36’288.00\nTotal 36’287.95", {{Target::pillar3a, 36'287.95_dec}}},
        {Kind::arztrechnung, "Total 2024 1’250.–", {{Target::medical, 1'250}}},
        {Kind::arztrechnung, "Total\n2035 1990\nBetrag 88.50", {{Target::medical, 88.50_dec}}},
        {Kind::arztrechnung, "Total 2024.50", {{Target::medical, 2024.50_dec}}},
        {Kind::arztrechnung, "Total 0.80\n0.95\nTotal", {}},
        {Kind::arztrechnung, "Total\n\n \n77.00", {{Target::medical, 77}}},
        {Kind::bankauszug,
         "SALDO 1’000.50\nBruttozins 3.40",
         {{Target::accountBalance, 1'000.50_dec}, {Target::accountInterest, 3.40_dec}}},
        {Kind::krankenkasse, "Total Prämien 60’000", {}},
        {Kind::krankenkasse, "Bezahlte Prämien 4’980.60", {{Target::healthPremiums, 4'980.60_dec}}},
        {Kind::spende, "CHF 300", {{Target::donation, 300}}},
        {Kind::kinderbetreuung, "Betreuung Juni 900", {{Target::childcare, 900}}},
        {Kind::weiterbildung, "Kursgeld 50’000\nBetrag 1", {{Target::education, 1}}},
        {Kind::pensionskasse, "Einkauf 25’000", {{Target::pensionBuyInDirect, 25'000}}},
        {Kind::versicherung, "Total 900", {}},
        {Kind::anderes, "Total 900", {}},
    };
    for (const Row& row : rows) {
        const std::vector<std::string> lines = DocumentScanner::read(row.text, {}).lines;
        Fields found;
        for (const ExtractedField& field : DocumentScanner::extract(row.kind, lines)) {
            EXPECT_FALSE(field.label.empty());
            EXPECT_TRUE(found.emplace(field.target, field.value).second) << row.text;
        }
        EXPECT_EQ(found, row.fields) << row.text;
    }
}

TEST(DocumentScanner, readsLinesIssuerAndFields) {
    const ScanResult result =
        DocumentScanner::read("  KK \n\n\tMuster Kasse, Krankenversicherung \r\nPrämien 2025 "
                              "3’600.00\n",
                              {"QRCode:SPC"});
    EXPECT_EQ(result.lines, (std::vector<std::string>{"KK", "Muster Kasse, Krankenversicherung",
                                                      "Prämien 2025 3’600.00"}));
    EXPECT_EQ(result.issuer, "Muster Kasse, Krankenversicherung");
    EXPECT_EQ(result.kind, Kind::krankenkasse);
    ASSERT_EQ(result.fields.size(), 1U);
    EXPECT_EQ(result.fields[0], (ExtractedField{Target::healthPremiums, "Prämien (Total)", 3'600}));

    const std::string sixty(60, 'x');
    const std::string marks = "e\u0301e\u0301e\u0301";
    EXPECT_EQ(DocumentScanner::read(sixty + "\n" + marks + "\nvier", {}).issuer, "vier")
        << "60 letters are too many, three with marks too few";
    const ScanResult nothing = DocumentScanner::read("", {});
    EXPECT_EQ(nothing, ScanResult{});
}

} // namespace
} // namespace fiscarel
