#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

/// A document, its kind, and what the first record must and must not hold.
struct Row {
    std::vector<Line> lines;
    Kind kind;
    std::vector<std::string> values; ///< "field=value confidence" that must be among the proposals
};

const std::vector<Row>& rows() {
    static const std::vector<Row> table{
        {{{"Vorsorgestiftung Muster"},
          {"Bescheinigung Vorsorgekonto 3a 2024"},
          {"Saldo per 01.01.2024", "24’369.65"},
          {"Einbezahlte Beiträge", "7’056.00"},
          {"Zins", "121.80"},
          {"Saldo per 31.12.2024", "31’547.45"}},
         Kind::saeule3a,
         {"pillar3a=7056 medium"}},
        {{{"Muster Metallbau AG, Vaduz"},
          {"Lohnausweis für die Landes- und Gemeindesteuern 2024"},
          {"Bruttolohn", "65’495.00"},
          {"AHV/IV/FAK und ALV", "4’715.00"},
          {"Pensionskasse", "4’912.00"},
          {"Nettolohn", "55’868.00"}},
         Kind::lohnausweis,
         {"grossSalary=65495 high"}},
        {{{"Fondation de prévoyance"},
          {"Attestation compte de prévoyance 3a 2022"},
          {"Solde au 01.01.2022", "50 162.20"},
          {"Cotisations versées", "7 056.00"}},
         Kind::saeule3a,
         {"pillar3a=7056 medium"}},
        {{{"Bescheinigung über Vorsorgebeiträge"},
          {"Form. 21 EDP dfi"},
          {"1 Bescheinigungsjahr 2023"},
          {"3 Anerkannte Vorsorgeform (Säule 3a): einbezahlte Beiträge"},
          {"4 2. Säule: ordentliche Beiträge"},
          {"5 2. Säule: Beiträge für den Einkauf", "9’000.00"}},
         Kind::pensionskasse,
         {"pensionBuyIn=9000 medium"}},
        {{{"Pensionskasse Muster"},
          {"Bescheinigung Einkauf in die Vorsorgeeinrichtung"},
          {"Maximal möglicher Einkauf", "120’000.00"},
          {"Geleisteter Einkauf 2024", "20’000.00"}},
         Kind::pensionskasse,
         {"pensionBuyIn=20000 medium"}},
        {{{"Krankenkasse Muster"},
          {"Prämienübersicht 2024"},
          {"Grundversicherung KVG", "4’918.80"},
          {"Zusatzversicherung VVG", "756.00"},
          {"Total Prämien", "5’674.80"},
          {"Prämienverbilligung", "1’200.00"},
          {"Netto zu Ihren Lasten", "4’474.80"}},
         Kind::krankenkasse,
         {"healthInsurancePremiums=5674.8 high", "premiumReduction=1200 high"}},
        {{{"Krankenkasse Muster"},
          {"Prämienübersicht 2024"},
          {"Total Prämien", "5’674.80"},
          {"Prämienverbilligung", "1’200.00"},
          {"Netto zu Ihren Lasten", "4’999.80"}},
         Kind::krankenkasse,
         {"healthInsurancePremiums=5674.8 low"}},
        {{{"Zahnarztpraxis Muster"},
          {"Honorarrechnung vom 14. Mai 2024"},
          {"Behandlung von Rosa Keller"},
          {"Zahnärztliche Leistungen (412 Taxpunkte zu 1.05)", "394.80"},
          {"Material", "29.25"},
          {"Total zu bezahlen", "424.05"}},
         Kind::arztrechnung,
         {"gross=424.05 high", "date=2024-05-14 medium"}},
        {{{"Stiftung Muster"},
          {"Spendenbestätigung 2024"},
          {"12.03.2024 Spende", "100.00"},
          {"18.11.2024 Spende", "250.00"},
          {"Total Ihrer Spenden", "350.00"}},
         Kind::spende,
         {"amount=350 high"}},
        {{{"Kita Muster"},
          {"Bestätigung Kinderbetreuung 2024"},
          {"Kosten nach Tarif", "12’377.65"},
          {"Beitrag der Gemeinde", "924.20"},
          {"Von den Eltern bezahlt", "11’453.45"}},
         Kind::kinderbetreuung,
         {"childcareCosts=11453.45 high"}},
        {{{"Schule Muster"},
          {"Rechnung Lehrgang Buchhaltung"},
          {"Kursgeld", "1’200.00"},
          {"Lehrmittel", "140.00"},
          {"Rechnungsbetrag", "1’340.00"}},
         Kind::weiterbildung,
         {"furtherEducation=1340 high"}},
        {{{"Muster Leben AG"},
          {"Lebensversicherung: Steuerwert per 31.12.2024"},
          {"Beginn", "01.03.2009"},
          {"Versicherungssumme", "217’000.00"},
          {"Rückkaufswert inkl. Überschuss", "71’610.07"}},
         Kind::versicherung,
         {"surrenderValue=71610.07 medium", "sumInsured=217000 medium", "startYear=2009 medium"}},
        {{{"Amt für Grundstückschätzung"},
          {"Schätzungsanzeige"},
          {"Politische Gemeinde Rorschach"},
          {"Grundstück Nr. 8855"},
          {"Verkehrswert (amtlicher Wert)", "668’000.00"},
          {"Mietwert pro Jahr", "16 700.00"},
          {"Neuwert", "733’000.00"}},
         Kind::liegenschaft,
         {"taxValue=668000 medium", "imputedRentalValue=16700 medium",
          "municipality=Rorschach medium", "parcelNumber=8855 medium"}},
        {{{"Pensionskasse Muster"},
          {"Rentenbescheinigung 2023"},
          {"Altersrente BVG", "46’030.20"},
          {"Total Rente", "46’030.20"}},
         Kind::pensionskasse,
         {"amount=46030.2 high"}},
    };
    return table;
}

TEST(KindMappers, findTheAmountsOfEveryKind) {
    for (const Row& row : rows()) {
        const ScanResult result = proposedFrom(row.lines);
        const std::string name = row.lines[1].label;
        EXPECT_EQ(result.proposedKind, row.kind) << name;
        EXPECT_FALSE(result.kindIsCertain) << name;
        const auto values = allValuesOf(result);
        for (const std::string& value : row.values) {
            EXPECT_NE(std::ranges::find(values, value), values.end())
                << name << ": " << value << " not in " << testing::PrintToString(values);
        }
    }
}

TEST(KindMappers, offerNothingFromAnEmptyCell) {
    for (const Row& row : rows()) {
        DrawnPage page;
        for (const Line& line : row.lines) {
            page.line(line.label);
        }
        for (const Proposal& proposal : page.proposed().proposals) {
            EXPECT_TRUE(proposal.value.find_first_of("0123456789") == std::string::npos
                        || proposal.field == "date" || proposal.field == "parcelNumber")
                << row.lines[1].label << ": " << proposal.field << " " << proposal.value;
        }
    }
}

TEST(KindMappers, offerNothingFromPapersThatCertifyNothing) {
    const std::vector<std::vector<Line>> papers{
        {{"Muster Bank AG"},
         {"Zahlungsplan 2025"},
         {"Hypothek 12.345, Zins 31.03.2025", "1’350.00"},
         {"Schuld per 31.12.2025", "400’000.00"}},
        {{"Muster Bank AG"},
         {"Kontoauszug, Saldobestätigung per 30. Juni 2024"},
         {"Saldo am 30.06.2024", "37’560.05"},
         {"Dies ist kein Steuerausweis."}},
        {{"Muster Kredit AG"},
         {"2. Mahnung zu Ihrer Kreditrate"},
         {"Restschuld Ihres Kredits", "12’160.95"},
         {"Verzugszins", "21.75"}},
        {{"Muster Finanz AG"},
         {"Leasing: Jahresübersicht 2024"},
         {"Leasingraten, darin Zins", "450.60"},
         {"Restwert per 31.12.2024", "23’421.40"}},
    };
    for (const auto& lines : papers) {
        const ScanResult result = proposedFrom(lines);
        EXPECT_EQ(result.proposedKind, Kind::anderes) << lines[1].label;
        EXPECT_TRUE(result.proposals.empty()) << lines[1].label;
    }
}

TEST(KindMappers, readAccountsOfManagers) {
    DrawnPage page;
    page.line("Hausverwaltung Muster AG").line("Mietzinsabrechnung 2024, Hafengasse 12");
    const std::vector<std::vector<const char*>> rows{
        {"Wohnung", "Mietzins netto", "Nebenkosten", "Einnahmen"},
        {"EG links", "26’880.00", "2’040.00", "28’920.00"},
        {"EG rechts", "15’720.00", "2’760.00", "18’480.00"},
        {"Eingegangene Mieten", "42’600.00", "4’800.00", "47’400.00"}};
    double y = 140;
    for (const auto& row : rows) {
        page.text(60, y, row[0]).right(300, y, row[1]).right(420, y, row[2]).right(540, y, row[3]);
        y += 16;
    }
    page.text(60, y, "Liegenschaftsunterhalt, abziehbar").right(540, y, "5’008.00");
    const ScanResult result = page.proposed();
    EXPECT_EQ(result.proposedKind, Kind::liegenschaft);
    EXPECT_EQ(valueOf(result, "rentalIncome"), "42600");
    EXPECT_EQ(valueOf(result, "actualMaintenanceCosts"), "5008");
}

TEST(KindMappers, aTextWithoutPlacesIsTrustedLess) {
    DocumentReading reading{.text = "Krankenkasse Muster\nPrämienübersicht 2024\n"
                                    "Total Prämien    5’674.80\n"};
    ScanResult result;
    propose(reading, result);
    EXPECT_EQ(valueOf(result, "healthInsurancePremiums"), "5674.8");
    const Proposal* found = proposalOf(result, "healthInsurancePremiums");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->witness, Proposal::Witness::text);
    EXPECT_NE(found->confidence, Proposal::Confidence::high);
    EXPECT_FALSE(found->box);
}

} // namespace
} // namespace fiscarel
