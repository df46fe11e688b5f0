#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

/// Words at a place; with `isRight` they end there.
struct Put {
    double x = 0;
    double y = 0;
    const char* words = "";
    bool isRight = false;
};

/// A page in a layout of its own and the amounts it states, each as "field=value".
struct Layout {
    const char* name;
    Kind kind;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< all amounts that may be proposed, in any order
};

constexpr bool right = true;

std::vector<Layout> placesOfLabels() {
    using enum Kind;
    return {
        {"labels above their amounts",
         lohnausweis,
         {{60, 60, "Scierie Muster SA"},
          {60, 90, "Certificat de salaire annuel 2024"},
          {60, 130, "Total brut"},
          {230, 130, "AVS, AC, AANP"},
          {400, 130, "Caisse de pension"},
          {60, 143, "68’000.00"},
          {230, 143, "4’350.00"},
          {400, 143, "3’650.00"},
          {60, 170, "Rachat LPP"},
          {230, 170, "Salaire net"},
          {230, 183, "60’000.00"}},
         {"grossSalary=68000", "socialContributions=4350", "pensionContributions=3650",
          "netSalaryOverride=60000"}},
        {"captions below their amounts",
         saeule3a,
         {{60, 60, "Vorsorgestiftung Muster"},
          {60, 90, "Bescheinigung Säule 3a 2024"},
          {60, 140, "CHF 6’000.00"},
          {300, 140, "CHF 41’230.00"},
          {60, 152, "Einbezahlte Beiträge"},
          {300, 152, "Saldo am 31.12.2024"}},
         {"pillar3a=6000"}},
        {"amounts before their labels, the sign apart",
         kinderbetreuung,
         {{60, 60, "Kita Muster"},
          {60, 90, "Betreuungskosten 2024"},
          {140, 130, "9’420.00", right},
          {180, 130, "Volltarif"},
          {80, 146, "–"},
          {140, 146, "1’000.00", right},
          {180, 146, "Beitrag der Gemeinde"},
          {140, 162, "8’420.00", right},
          {180, 162, "Fremdbetreuungskosten"}},
         {"childcareCosts=8420"}},
        {"labels beside each other, one column shorter",
         lohnausweis,
         {{60, 60, "Sägerei Muster AG"},
          {60, 90, "Lohnbestätigung 2024"},
          {60, 130, "Gehalt"},
          {240, 130, "65’000.00", right},
          {300, 130, "Sozialabzüge AHV/ALV/NBU"},
          {540, 130, "4’350.00", right},
          {60, 146, "Bonus"},
          {240, 146, "3’000.00", right},
          {300, 146, "2. Säule ordentlich"},
          {540, 146, "3’650.00", right},
          {300, 162, "Einkauf 2. Säule"},
          {60, 178, "Brutto"},
          {240, 178, "68’000.00", right},
          {300, 178, "Zusammen"},
          {540, 178, "8’000.00", right},
          {60, 200, "Netto"},
          {540, 200, "60’000.00", right}},
         {"grossSalary=68000", "socialContributions=4350", "pensionContributions=3650",
          "netSalaryOverride=60000"}},
        {"bare numbers beside each other, one of them by month",
         liegenschaft,
         {{60, 60, "Schätzungsamt Muster"},
          {60, 90, "Auszug aus dem Schätzungsregister"},
          {60, 130, "Steuerwert"},
          {240, 130, "712000", right},
          {300, 130, "Mietwert p. a."},
          {540, 130, "19080", right},
          {60, 146, "Landwert"},
          {240, 146, "198000", right},
          {300, 146, "Mietwert pro Monat"},
          {540, 146, "1590", right}},
         {"taxValue=712000", "imputedRentalValue=19080"}},
        {"a label of two lines",
         pensionskasse,
         {{60, 60, "Sammelstiftung Muster"},
          {60, 90, "Bescheinigung Einkauf 2024"},
          {60, 130, "Total der im Jahr 2024 geleisteten"},
          {60, 142, "freiwilligen Einkäufe"},
          {540, 142, "12’000.00", right},
          {60, 170, "Noch mögliche Einkaufssumme"},
          {540, 170, "48’000.00", right}},
         {"pensionBuyIn=12000"}},
    };
}

std::vector<Layout> columnsAndTimes() {
    using enum Kind;
    return {
        {"columns of the old and the new value",
         liegenschaft,
         {{60, 60, "Grundbuchamt Muster"},
          {60, 90, "Revisionsschätzung"},
          {400, 130, "bisher", right},
          {540, 130, "neu", right},
          {60, 146, "Verkehrswert"},
          {400, 146, "1 610 000", right},
          {540, 146, "2 013 000", right},
          {60, 162, "Mietwert im Jahr"},
          {400, 162, "56 300", right},
          {540, 162, "70 440", right}},
         {"taxValue=2013000", "imputedRentalValue=70440"}},
        {"headings that stand too near to each other",
         bankauszug,
         {{60, 60, "Regionalbank Muster"},
          {60, 90, "Vermögens- und Ertragsausweis 2024"},
          {60, 130, "Produkt"},
          {250, 130, "Zinsertrag CHF VSt. 35% Kontoguthaben CHF"},
          {60, 146, "Alltagskonto"},
          {317, 146, "240.00", right},
          {357, 146, "84.00", right},
          {442, 146, "8’780.70", right},
          {60, 162, "Sparkonto"},
          {317, 162, "88.75", right},
          {442, 162, "72’042.25", right},
          {60, 178, "Zusammen"},
          {317, 178, "328.75", right},
          {357, 178, "84.00", right},
          {442, 178, "80’822.95", right}},
         {"taxValue=8780.7", "incomeWithWithholding=240", "taxValue=72042.25",
          "incomeWithoutWithholding=88.75"}},
        {"accounts named in each row",
         bankauszug,
         {{60, 60, "Cassa Muster"},
          {60, 90, "Certificato di capitale e interessi 2024"},
          {60, 120, "Conto quotidiano CH93 0076 2011 6238 5295 7"},
          {60, 136, "Conto gioventù CH56 0483 5012 3456 7800 9"},
          {60, 160, "Conto quotidiano – Interessi lordi"},
          {540, 160, "21.00", right},
          {60, 176, "Conto gioventù – Interessi lordi"},
          {540, 176, "12.50", right},
          {60, 192, "Conto quotidiano – Avere 31.12.2024"},
          {540, 192, "2’897.94", right},
          {60, 208, "Conto gioventù – Avere 31.12.2024"},
          {540, 208, "13’335.30", right}},
         {"taxValue=2897.94", "incomeWithoutWithholding=21", "taxValue=13335.3",
          "incomeWithoutWithholding=12.5"}},
        {"accounts beside each other",
         bankauszug,
         {{60, 60, "Volksbank Muster"},
          {60, 90, "Zins- und Saldobescheinigung 2024"},
          {300, 120, "Sparkonto"},
          {450, 120, "Jugendkonto"},
          {60, 136, "Saldo 31.12.2024"},
          {345, 136, "5’000.00", right},
          {505, 136, "7’000.00", right},
          {60, 152, "Bruttozins"},
          {345, 152, "5.00", right},
          {505, 152, "7.00", right}},
         {"taxValue=5000", "incomeWithoutWithholding=5", "taxValue=7000",
          "incomeWithoutWithholding=7"}},
        {"years below each other",
         saeule3a,
         {{60, 60, "Vorsorgestiftung Muster"},
          {60, 90, "Bescheinigung Säule 3a"},
          {60, 120, "Jahr"},
          {300, 120, "Einzahlung", right},
          {540, 120, "Saldo", right},
          {60, 136, "2023"},
          {300, 136, "6’883.00", right},
          {540, 136, "30’000.00", right},
          {60, 152, "2024"},
          {300, 152, "7’056.00", right},
          {540, 152, "37’200.00", right}},
         {"pillar3a=7056"}},
        {"a debt on the first and the last day",
         bankauszug,
         {{60, 60, "Banque Muster"},
          {60, 90, "Intérêts de la dette 2024"},
          {60, 130, "30 juin 2024"},
          {540, 130, "1’935.45", right},
          {60, 146, "31 décembre 2024"},
          {540, 146, "1’935.45", right},
          {60, 162, "Intérêts de la dette 2024"},
          {540, 162, "3’870.90", right},
          {60, 178, "Solde du prêt 1 janvier 2024"},
          {540, 178, "212’500.00", right},
          {60, 194, "Amortissement"},
          {540, 194, "-5’500.00", right},
          {60, 210, "Solde du prêt 31 décembre 2024"},
          {540, 210, "207’000.00", right}},
         {"amount=207000", "interest=3870.9"}},
        {"pensions of a family, the amounts above their words",
         pensionskasse,
         {{60, 60, "Pensionskasse Muster"},
          {60, 90, "Leistungen 2024 / Prestations 2024"},
          {60, 130, "SFr. 32 911.20"},
          {60, 146, "Invalidenrente, 12 × 2 742.60"},
          {60, 190, "SFr. 6 582.00"},
          {60, 206, "Kinderrente Ursula, 12 × 548.50"},
          {60, 250, "SFr. 6 582.00"},
          {60, 266, "Kinderrente Beat, 12 × 548.50"},
          {60, 310, "Renten / Rentes 2024"},
          {540, 310, "SFr. 46 075.20", right},
          {60, 326, "Deckungskapital / Capital de couverture"},
          {540, 326, "SFr. 185 827.45", right}},
         {"amount=46075.2"}},
        {"parts of a pension by month and year",
         pensionskasse,
         {{60, 60, "Pensionskasse Muster"},
          {60, 90, "Ausweis über bezogene Renten 2024"},
          {60, 130, "Leistung"},
          {300, 130, "monatlich", right},
          {400, 130, "Anzahl", right},
          {540, 130, "Total CHF", right},
          {60, 146, "Altersrente"},
          {300, 146, "1’500.00", right},
          {400, 146, "12", right},
          {540, 146, "18’000.00", right},
          {60, 162, "Teuerungszulage"},
          {300, 162, "50.00", right},
          {400, 162, "12", right},
          {540, 162, "600.00", right},
          {60, 178, "Steuerbarer Betrag"},
          {540, 178, "18’600.00", right}},
         {"amount=18600"}},
    };
}

std::vector<Layout> peopleAndTraps() {
    using enum Kind;
    return {
        {"children in rows",
         kinderbetreuung,
         {{60, 60, "Kita Muster"},
          {60, 90, "Elternbeiträge 2024"},
          {60, 120, "Kind"},
          {300, 120, "Geburtsdatum"},
          {540, 120, "Betreuungskosten", right},
          {60, 136, "Nadja Keller-Muster"},
          {300, 136, "22. Dezember 2018"},
          {540, 136, "2’548.65", right},
          {60, 152, "Roman Keller-Muster"},
          {300, 152, "28. April 2020"},
          {540, 152, "10’262.–", right},
          {60, 168, "Total Familie"},
          {540, 168, "12’810.65", right}},
         {"childcareCosts=2548.65", "childcareCosts=10262"}},
        {"spouses over columns",
         saeule3a,
         {{60, 60, "Vorsorgestiftung Muster"},
          {60, 90, "Bescheinigung Säule 3a 2024 für Anna Muster und Beat Muster"},
          {300, 130, "Anna Muster"},
          {450, 130, "Beat Muster"},
          {60, 146, "Einbezahlte Beiträge"},
          {360, 146, "6’000.00", right},
          {510, 146, "3’400.00", right},
          {60, 162, "Saldo am 31.12.2024"},
          {360, 162, "21’000.00", right},
          {510, 162, "17’400.00", right}},
         {"pillar3a=6000", "pillar3a=3400"}},
        {"children in rows with meals beside",
         kinderbetreuung,
         {{60, 60, "Asilo Muster"},
          {60, 90, "Attestazione spese di custodia 2024"},
          {60, 120, "Bambino"},
          {200, 120, "Nato il"},
          {400, 120, "Rette", right},
          {540, 120, "Pasti", right},
          {60, 136, "Luca Rossi"},
          {200, 136, "01.02.2020"},
          {400, 136, "3’000.00", right},
          {540, 136, "400.00", right},
          {60, 152, "Anna Rossi"},
          {200, 152, "05.06.2022"},
          {400, 152, "2’000.00", right},
          {540, 152, "300.00", right},
          {60, 168, "Totale"},
          {400, 168, "5’000.00", right},
          {540, 168, "700.00", right}},
         {"childcareCosts=3000", "childcareCosts=2000"}},
        {"children in blocks with one total",
         kinderbetreuung,
         {{60, 60, "Kita Muster"},
          {60, 90, "Jahresabrechnung 2024"},
          {60, 120, "Max Graf, geb. 01.02.2020"},
          {60, 136, "Betreuung"},
          {540, 136, "3’000.00", right},
          {60, 160, "Lea Graf, geb. 03.04.2021"},
          {60, 176, "Betreuung"},
          {540, 176, "2’500.00", right},
          {60, 200, "Gesamt"},
          {540, 200, "5’500.00", right}},
         {"childcareCosts=3000", "childcareCosts=2500"}},
        {"premiums of a family by law",
         krankenkasse,
         {{60, 60, "Gesundheitskasse Muster"},
          {60, 90, "Prämienausweis 2024"},
          {300, 120, "KVG", right},
          {420, 120, "VVG", right},
          {540, 120, "Total", right},
          {60, 136, "Anna Graf"},
          {300, 136, "4’000.00", right},
          {420, 136, "800.00", right},
          {540, 136, "4’800.00", right},
          {60, 152, "Max Graf"},
          {300, 152, "1’500.00", right},
          {420, 152, "200.00", right},
          {540, 152, "1’700.00", right},
          {60, 168, "Total"},
          {300, 168, "5’500.00", right},
          {420, 168, "1’000.00", right},
          {540, 168, "6’500.00", right}},
         {"healthInsurancePremiums=6500"}},
        {"contributions of a wage one by one",
         lohnausweis,
         {{60, 60, "Muster GmbH"},
          {60, 90, "Jahreslohnausweis 2024"},
          {60, 130, "Bruttolohn"},
          {540, 130, "80’000.00", right},
          {60, 146, "AHV/IV/EO 5.3 %"},
          {540, 146, "4’240.00", right},
          {60, 162, "ALV 1.1 %"},
          {540, 162, "880.00", right},
          {60, 178, "Pensionskasse"},
          {540, 178, "5’000.00", right},
          {60, 194, "Nettolohn"},
          {540, 194, "69’880.00", right}},
         {"grossSalary=80000", "socialContributions=5120", "pensionContributions=5000",
          "netSalaryOverride=69880"}},
        {"what a course costs when it is not attended",
         weiterbildung,
         {{60, 60, "Höhere Fachschule Muster"},
          {60, 90, "Kontoauszug Lehrgang Buchhaltung"},
          {60, 120, "Bezahlte Raten"},
          {540, 120, "2’901.75", right},
          {60, 136, "Noch offen 2025"},
          {540, 136, "1’022.25", right},
          {60, 152, "Gesamtpreis"},
          {540, 152, "3’924.00", right},
          {60, 180, "Abmeldung nach Kursbeginn: CHF 320.00. Ab 2025 gilt ein Mindestbetrag von"},
          {60, 192, "CHF 80.00."}},
         {"furtherEducation=2901.75"}},
        {"a premium that remains is no cost of illness",
         krankenkasse,
         {{60, 60, "Cassa malati Muster"},
          {60, 90, "Conferma dei premi 2024"},
          {60, 130, "Premio totale"},
          {540, 130, "4’235.40", right},
          {60, 146, "Sussidio cantonale"},
          {540, 146, "-448.90", right},
          {60, 162, "A suo carico"},
          {540, 162, "3’786.50", right}},
         {"healthInsurancePremiums=4235.4", "premiumReduction=448.9"}},
        {"a bill of which a part was paid before",
         arztrechnung,
         {{60, 60, "Optik Muster"},
          {60, 90, "Rechnung für Patientin Anna Graf"},
          {60, 120, "Brillenglas"},
          {540, 120, "250.00", right},
          {60, 136, "Fassung"},
          {540, 136, "246.35", right},
          {60, 152, "Total Leistungen"},
          {540, 152, "496.35", right},
          {60, 168, "Bereits bezahlt"},
          {540, 168, "-170.00", right},
          {60, 184, "Noch offen"},
          {540, 184, "326.35", right}},
         {"gross=496.35"}},
        {"an amount that goes over two lines",
         bankauszug,
         {{60, 60, "Sparkasse Muster"},
          {60, 90, "Zinsbestätigung Baukredit 87-1252370"},
          {60, 120, "Wir bescheinigen Ihnen Schuldzinsen von CHF 8’527.20. Die Schuld betrug am"},
          {413, 120, "31.12.2024 CHF 627"},
          {60, 132, "500.00."}},
         {"amount=627500", "interest=8527.2"}},
        {"a letter with several amounts in a sentence",
         liegenschaft,
         {{60, 60, "Schätzungsamt Muster"},
          {60, 90, "Schätzung Grundstück Nr. 4705"},
          {60, 120,
           "Die Kommission hat den Verkehrswert auf CHF 1’136’000.00 und den Mietwert auf CHF"},
          {60, 132, "30’600.00 festgelegt. Die Kosten der Schätzung betragen CHF 510.00."}},
         {"taxValue=1136000", "imputedRentalValue=30600"}},
    };
}

ScanResult proposedFor(const Layout& layout) {
    DrawnPage page;
    for (const Put& put : layout.puts) {
        put.isRight ? page.right(put.x, put.y, put.words) : page.text(put.x, put.y, put.words);
    }
    return page.proposed();
}

TEST(Layout, amountsFindTheirLabelsHoweverAPageIsSet) {
    std::vector<Layout> layouts = placesOfLabels();
    for (const auto& part : {columnsAndTimes(), peopleAndTraps()}) {
        layouts.insert(layouts.end(), part.begin(), part.end());
    }
    for (const Layout& layout : layouts) {
        const ScanResult result = proposedFor(layout);
        EXPECT_EQ(result.proposedKind, layout.kind) << layout.name;
        std::vector<std::string> values;
        for (const Proposal& one : result.proposals) {
            if (one.value.find_first_not_of("0123456789.") == std::string::npos) {
                values.push_back(one.field + '=' + one.value);
            }
        }
        std::vector<std::string> wanted = layout.wanted;
        std::ranges::sort(values);
        std::ranges::sort(wanted);
        std::erase_if(values, [](const std::string& one) { return one.starts_with("parcel"); });
        EXPECT_EQ(values, wanted) << layout.name;
    }
}

TEST(Layout, papersThatOnlyLookLikeOneGiveNothing) {
    using Lines = std::vector<std::pair<const char*, const char*>>;
    const std::vector<Lines> papers{
        {{"Muster AG", ""},
         {"Lohnabrechnung März 2024", ""},
         {"Monatslohn", "6’000.00"},
         {"Bruttolohn", "6’000.00"},
         {"AHV/IV/EO/ALV", "-384.00"},
         {"Pensionskasse", "-416.00"},
         {"Nettolohn", "5’200.00"}},
        {{"Kartencenter Muster", ""},
         {"Kreditkartenabrechnung", ""},
         {"Saldo letzte Rechnung", "500.00"},
         {"Einkäufe", "320.00"}},
        {{"Muster Versicherungen", ""},
         {"Hausratversicherung, Police 4711", ""},
         {"Versicherungssumme", "80’000.00"},
         {"Jahresprämie", "240.00"}},
        {{"Bank Muster", ""},
         {"Hypothekarofferte", ""},
         {"Kredit", "500’000.00"},
         {"Zins 1.9 % p.a.", "9’500.00"}},
        {{"Gemeinde Muster, Steueramt", ""},
         {"Steuerrechnung 2024", ""},
         {"Staats- und Gemeindesteuer", "8’400.00"},
         {"Total zu bezahlen", "8’400.00"}},
    };
    for (const Lines& lines : papers) {
        DrawnPage page;
        for (const auto& [label, amount] : lines) {
            page.line(label, amount);
        }
        EXPECT_TRUE(page.proposed().proposals.empty()) << lines[1].first;
    }
}

TEST(Layout, placesTellWhereAnAmountReallyStands) {
    const ScanResult result = proposedFor(placesOfLabels().front());
    const Proposal* fund = proposalOf(result, "pensionContributions");
    ASSERT_NE(fund, nullptr);
    ASSERT_TRUE(fund->box);
    EXPECT_EQ(fund->box->x, Decimal(672) / 1000); // 400 of 595 points
}

} // namespace
} // namespace fiscarel
