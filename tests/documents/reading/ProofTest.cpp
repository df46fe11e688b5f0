// What makes an amount sure, and what only seems to: sums, counts, years, nothing added to nothing.

#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

struct Paper {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< amounts, "field=value confidence", of all records
};

/// The proposals of all records that are amounts or numbers of things.
std::vector<std::string> amountsOf(const std::vector<Put>& puts) {
    return allValuesOf(proposedFrom(puts),
                       {"kind", "institution", "description", "childcareProvider", "recipient",
                        "label", "employer", "creditor", "date"});
}

std::vector<Paper> falseProofs() {
    return {
        {"the year is no sum of two children's costs",
         {{60, 40, "Kindertagesstätte Sonnenblume"},
          {60, 130, "Bestätigung der Kinderbetreuungskosten 2024"},
          {60, 160, "Lea Muster, geb. 12.03.2019"},
          {540, 160, "1’100.00", right},
          {60, 176, "Noah Muster, geb. 05.06.2021"},
          {540, 176, "924.00", right}},
         {"childcareCosts=1100 medium", "childcareCosts=924 medium"}},
        {"a house number is no sum, what a place costs once is no care",
         {{60, 40, "Kindertagesstätte Sonnenblume"},
          {300, 60, "Lindenweg 12"},
          {60, 130, "Bescheinigung Kinderbetreuung 2024"},
          {60, 160, "Kind"},
          {400, 160, "Anmeldegebühr", right},
          {540, 160, "Betreuung", right},
          {60, 176, "Lea Muster"},
          {400, 176, "6.00", right},
          {540, 176, "2’400.00", right},
          {60, 192, "Tim Muster"},
          {400, 192, "6.00", right},
          {540, 192, "2’100.00", right}},
         {"childcareCosts=2400 medium", "childcareCosts=2100 medium"}},
        {"dates beside a policy's number are no further policies",
         {{60, 40, "Muster Lebensversicherung AG"},
          {60, 130, "Steuerwert Ihrer gemischten Lebensversicherung"},
          {60, 150, "Police 4.211.605"},
          {180, 150, "Beginn 01.07.2009"},
          {300, 150, "Ablauf 30.06.2031"},
          {400, 170, "31.12.2023", right},
          {540, 170, "31.12.2024", right},
          {60, 190, "Rückkaufswert inkl. Überschuss (Steuerwert)"},
          {400, 190, "34’702.85", right},
          {540, 190, "37’363.36", right}},
         {"surrenderValue=37363.36 medium", "startYear=2009 medium", "endYear=2031 medium",
          "company=Muster Lebensversicherung AG medium"}},
        {"children are no months",
         {{60, 40, "Pensionskasse Muster"},
          {60, 120, "Rentenbescheinigung 2024"},
          {60, 150, "Kinderrente für 2 Kinder"},
          {540, 150, "500.00", right},
          {60, 166, "Altersrente"},
          {540, 166, "1’000.00", right},
          {60, 182, "Überbrückung"},
          {540, 182, "2’340.00", right}},
         {"amount=1000 low"}},
        {"a franc apart is not equal where centimes are printed",
         {{60, 40, "Lohnausweis"},
          {60, 60, "Jahr 2024"},
          {60, 200, "8. Bruttolohn total / Rente"},
          {540, 200, "60’000.00", right},
          {60, 220, "9. Beiträge AHV/IV/EO/ALV/NBUV"},
          {540, 220, "3’900.00", right},
          {60, 240, "11. Nettolohn / Rente"},
          {540, 240, "56’099.05", right}},
         {"grossSalary=60000 low", "socialContributions=3900 low",
          "netSalaryOverride=56099.05 low"}},
        {"nothing and an amount are no sum",
         {{60, 40, "Stiftung Muster"},
          {60, 120, "Spendenbestätigung 2024"},
          {60, 150, "Patenschaft"},
          {540, 150, "0.00", right},
          {60, 166, "Spende"},
          {540, 166, "500.00", right},
          {60, 182, "Total"},
          {540, 182, "500.00", right}},
         {"amount=500 low"}},
        {"digits behind a whole security number are not its own",
         {{60, 40, "Musterbank AG"},
          {60, 60, "Steuerauszug Depot 2024 Wertschriften"},
          {60, 100, "Muster Holding AG"},
          {60, 112, "Valor 1213860 70 Stk. zu CHF 100.00"},
          {60, 124, "Steuerwert"},
          {300, 124, "CHF 7’000.00"},
          {60, 160, "Beispiel Foods AG"},
          {60, 172, "Valor 1 313 860 50 Stk. zu CHF 100.00"},
          {60, 184, "Steuerwert"},
          {300, 184, "CHF 5’000.00"}},
         {"ibanOrValor=1213860 medium", "quantity=70 high", "taxValue=7000 high",
          "ibanOrValor=1313860 medium", "quantity=50 high", "taxValue=5000 high"}},
        {"one income is no sum of incomes, and tells nothing sure of the tax",
         {{60, 40, "Musterbank AG"},
          {60, 120, "Depotauszug per 31.12.2024"},
          {60, 150, "ISIN"},
          {160, 150, "Bezeichnung"},
          {300, 150, "Stück", right},
          {370, 150, "Kurs", right},
          {460, 150, "Steuerwert", right},
          {540, 150, "Ertrag", right},
          {60, 166, "CH0012138605"},
          {160, 166, "Muster Holding"},
          {300, 166, "70", right},
          {370, 166, "100.00", right},
          {460, 166, "7’000.00", right},
          {540, 166, "210.00", right},
          {60, 182, "US0378331005"},
          {160, 182, "Beispiel Inc"},
          {300, 182, "50", right},
          {370, 182, "100.00", right},
          {460, 182, "5’000.00", right},
          {540, 182, "90.00", right}},
         {"ibanOrValor=CH0012138605 medium", "quantity=70 low", "taxValue=7000 medium",
          "incomeWithWithholding=210 low", "ibanOrValor=US0378331005 medium", "quantity=50 low",
          "taxValue=5000 medium", "incomeWithoutWithholding=90 low"}},
        {"a certificate with a minus is a cancelled one",
         {{60, 40, "Lohnausweis"},
          {60, 60, "Jahr 2024"},
          {60, 200, "8. Bruttolohn total / Rente"},
          {540, 200, "-80’000.00", right},
          {60, 220, "9. Beiträge AHV/IV/EO/ALV/NBUV"},
          {540, 220, "10’000.00", right},
          {60, 240, "11. Nettolohn / Rente"},
          {540, 240, "70’000.00", right}},
         {"grossSalary=-80000 low", "socialContributions=10000 low",
          "netSalaryOverride=70000 low"}},
    };
}

TEST(Proofs, onlyWhatProvesMakesSure) {
    for (const Paper& paper : falseProofs()) {
        EXPECT_EQ(amountsOf(paper.puts), paper.wanted) << paper.name;
    }
}

std::vector<Paper> mixedPapers() {
    return {
        {"accounts and loans beside a table of securities",
         {{60, 40, "Banco Muster SA"},
          {60, 60, "Estratto fiscale 2024, valori in franchi"},
          {60, 100, "A Averi in conto"},
          {60, 116, "Genere"},
          {160, 116, "IBAN"},
          {360, 116, "Saldo 31.12.", right},
          {450, 116, "Interesse lordo", right},
          {540, 116, "Imposta preventiva", right},
          {60, 130, "Conto deposito"},
          {160, 130, "CH93 0076 2011 6238 5295 7"},
          {360, 130, "66’325.92", right},
          {450, 130, "462.62", right},
          {540, 130, "161.92", right},
          {60, 160, "B Titoli in custodia"},
          {60, 176, "Designazione"},
          {200, 176, "ISIN"},
          {340, 176, "Pezzi", right},
          {390, 176, "Corso", right},
          {470, 176, "Valore 31.12.", right},
          {540, 176, "Reddito lordo", right},
          {60, 190, "Azioni Funivie"},
          {200, 190, "CH0012138605"},
          {340, 190, "61.00", right},
          {390, 190, "141.47", right},
          {470, 190, "8’629.67", right},
          {60, 204, "Fondo Franco"},
          {200, 204, "CH0044328745"},
          {340, 204, "332.00", right},
          {390, 204, "112.02", right},
          {470, 204, "37’190.64", right},
          {60, 218, "Totale B"},
          {470, 218, "45’820.31", right},
          {60, 250, "C Debiti"},
          {60, 266, "Genere"},
          {200, 266, "Numero"},
          {440, 266, "Debito 31.12.", right},
          {540, 266, "Interessi pagati", right},
          {60, 280, "Ipoteca fissa"},
          {200, 280, "0381-774211-49"},
          {440, 280, "301’000.00", right},
          {540, 280, "4’364.50", right},
          {60, 294, "Anticipo fisso"},
          {200, 294, "0381-774212-23"},
          {440, 294, "34’000.00", right},
          {540, 294, "1’088.00", right},
          {60, 308, "Totale C"},
          {440, 308, "335’000.00", right},
          {540, 308, "5’452.50", right}},
         {"ibanOrValor=CH0012138605 medium", "quantity=61 high", "taxValue=8629.67 high",
          "ibanOrValor=CH0044328745 medium", "quantity=332 high", "taxValue=37190.64 high",
          "ibanOrValor=CH9300762011623852957 high", "taxValue=66325.92 low",
          "incomeWithWithholding=462.62 high", "amount=301000 high", "interest=4364.5 high",
          "amount=34000 high", "interest=1088 high"}},
        {"what is owed at the year's beginning is not what is left",
         {{60, 40, "Ipotecaria Muster SA"},
          {60, 60, "Attestazione degli interessi passivi 2024"},
          {60, 100, "Prestito ipotecario"},
          {230, 100, "Debito", right},
          {320, 100, "Ammortamento", right},
          {430, 100, "Debito residuo", right},
          {540, 100, "Interessi addebitati", right},
          {230, 111, "01.01.2024", right},
          {320, 111, "nell'anno", right},
          {430, 111, "31.12.2024", right},
          {540, 111, "01.01.–31.12.2024", right},
          {60, 130, "Tranche 1"},
          {230, 130, "237’000.00", right},
          {320, 130, "4’000.00", right},
          {430, 130, "233’000.00", right},
          {540, 130, "3’172.50", right},
          {60, 146, "Tranche 2"},
          {230, 146, "261’000.00", right},
          {320, 146, "0.00", right},
          {430, 146, "261’000.00", right},
          {540, 146, "4’698.00", right},
          {60, 162, "Totale"},
          {230, 162, "498’000.00", right},
          {320, 162, "4’000.00", right},
          {430, 162, "494’000.00", right},
          {540, 162, "7’870.50", right}},
         {"amount=233000 high", "interest=3172.5 high", "amount=261000 high",
          "interest=4698 high"}},
        {"income by labels that tell of the tax",
         {{60, 40, "Bank Muster AG"},
          {60, 60, "Kundenbeleg 2024"},
          {60, 100, "Sparkonto"},
          {60, 116, "IBAN CH93 0076 2011 6238 5295 7"},
          {60, 132, "Vermögen 31.12.2024"},
          {540, 132, "48’828.10", right},
          {60, 148, "Bruttoertrag mit Verrechnungssteuer"},
          {540, 148, "316.41", right},
          {60, 164, "Verrechnungssteuer 35 %"},
          {540, 164, "110.74", right}},
         {"ibanOrValor=CH9300762011623852957 high", "taxValue=48828.1 medium",
          "incomeWithWithholding=316.41 high"}},
        {"meals that are not deductible are no costs of care",
         {{60, 40, "Nido d’infanzia Lucciole"},
          {60, 60, "Dichiarazione delle rette pagate nel 2024"},
          {60, 100, "Bambino: Noa Menghini"},
          {60, 116, "94 giornate di accudimento"},
          {540, 116, "5’828.00", right},
          {60, 132, "pasti (non deducibili)"},
          {540, 132, "846.00", right},
          {60, 148, "totale fatturato"},
          {540, 148, "6’674.00", right},
          {60, 180, "Bambino: Elia Menghini"},
          {60, 196, "117 giornate di accudimento"},
          {540, 196, "7’254.00", right},
          {60, 212, "pasti (non deducibili)"},
          {540, 212, "1’053.00", right},
          {60, 228, "totale fatturato"},
          {540, 228, "8’307.00", right},
          {60, 260, "Pagato dalla famiglia nel 2024, tutto compreso"},
          {540, 260, "14’981.00", right}},
         {"childcareCosts=5828 medium", "childcareCosts=7254 medium"}},
        {"a private loan in prose",
         {{60, 40, "Anna Muster"},
          {60, 60, "Bestätigung Privatdarlehen"},
          {60, 100, "Ich bestätige, Herrn Kurt Muster ein Darlehen von ursprünglich Fr. 43’000.–"},
          {60, 114,
           "gewährt zu haben. Das Darlehen betrug am 31. Dezember 2024 noch Fr. 33’000.–."},
          {60, 142, "Für das Jahr 2024 habe ich die Zinsen, das heisst Fr. 495.–, erhalten."}},
         {"amount=33000 medium", "interest=495 medium"}},
    };
}

TEST(Proofs, eachPartOfAPaperGivesItsOwn) {
    for (const Paper& paper : mixedPapers()) {
        EXPECT_EQ(amountsOf(paper.puts), paper.wanted) << paper.name;
    }
}

TEST(Proofs, tablesWithoutRoomForARowEndNothing) {
    // A number in the first row under no heading, policies whose amounts stand in no column, and
    // amounts with more than one pair of centimes in a column.
    std::vector<Put> account{{40, 40, "CH9300762011623852957"},
                             {230, 40, "Aktiven"},
                             {330, 40, "Passiven"},
                             {440, 40, "Aufwand"}};
    DrawnPage pairs(0.2);
    pairs.text(40, 40, "Kontoauszug Bank Saldo 2024");
    for (int row = 0; row < 8; ++row) {
        const double y = 56 + 14 * row;
        account.push_back({40, y, "Zeile"});
        account.push_back({260, y, "1’200.50", right});
        account.push_back({360, y, "14.50", right});
        for (const double x : {100.0, 101.08, 102.16}) {
            pairs.text(x, 100 + row, "1’000").text(x + 0.72, 100 + row, "20");
        }
    }
    EXPECT_TRUE(amountsOf(account).empty());
    EXPECT_TRUE(pairs.proposed().proposals.empty());
    EXPECT_TRUE(amountsOf({{60, 40, "Musterleben AG Lebensversicherungen"},
                           {60, 60, "Bescheinigung Steuerwert und Rückkaufswert 2024"},
                           {140, 100, "Police"},
                           {220, 100, "Art"},
                           {280, 100, "Rückkaufswert"},
                           {60, 114, "90217280"},
                           {580, 114, "12’345.00", right},
                           {60, 128, "90217281"},
                           {580, 128, "22’345.00", right}})
                    .empty());
}

TEST(Proofs, aLettersDayIsNotItsYear) {
    const auto yearOf = [](const std::vector<Line>& lines) {
        const ScanResult result = proposedFrom(lines);
        return result.records.empty() ? std::nullopt : result.records.front().year;
    };
    EXPECT_EQ(yearOf({{"Famille Muster"},
                      {"Romont, le 22 janvier 2026"},
                      {"Attestation de salaire pour l'année 2025"},
                      {"Salaire brut", "20’154.40"},
                      {"Cotisations AVS/AI/APG/AC/AANP", "1’463.25"},
                      {"Salaire net", "18’691.15"}}),
              2025);
    EXPECT_EQ(yearOf({{"Ersparnisanstalt Muster"},
                      {"Wil, im Januar 2024"},
                      {"Ihr Sparkonto CH93 0076 2011 6238 5295 7"},
                      {"Guthaben per 31. Dezember 2023", "40’472.34"},
                      {"Bruttozins", "161.95"}}),
              2023);
}

} // namespace
} // namespace fiscarel
