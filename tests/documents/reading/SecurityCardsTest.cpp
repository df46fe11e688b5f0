#include "tests/documents/reading/AccountPapers.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

TEST(SecurityCards, AreReadByWhatStandsBeforeEachAmount) {
    expectRead({
        {"pieces times price beside the number, the tax in brackets, a total of all",
         {{"Wertschriftenverzeichnis 2025"},
          {"Namenaktien Muster AG"},
          {"ISIN CH0015540930", {{320, "70 Stk. × 153.51"}, {540, "Steuerwert 10'745.70"}}},
          {"Bruttoertrag (mit Schweizer Verrechnungssteuer)", {{540, "225.65"}}},
          {"Anteile Musterfonds"},
          {"ISIN LI9940159995", {{320, "34 Stk. × 112.90"}, {540, "Steuerwert 3'838.60"}}},
          {"Bruttoertrag (ohne Verrechnungssteuer)", {{540, "53.75"}}},
          {"Gesamtsteuerwert in CHF", {{540, "14'584.30"}}}},
         {{{"quantity", "70"}, {"taxValue", "10745.7"}, {"incomeWithWithholding", "225.65"}},
          {{"quantity", "34"}, {"taxValue", "3838.6"}, {"incomeWithoutWithholding", "53.75"}}}},
        {"numbers that end their cards, income of one piece beside that of all",
         {{"État fiscal des titres 2024"},
          {"Action nom. Muster SA"},
          {"Nombre de titres", {{320, "40"}}},
          {"Valeur fiscale par action", {{320, "CHF 212.50"}}},
          {"Valeur fiscale totale", {{320, "CHF 8'500.00"}}},
          {"Dividende brut par action", {{320, "CHF 4.00"}}},
          {"Dividende brut (impôt anticipé déduit)", {{320, "CHF 160.00"}}},
          {"ISIN CH0015540930"},
          {"Part Fonds Exemple"},
          {"Nombre de titres", {{320, "34"}}},
          {"Valeur fiscale totale", {{320, "CHF 3'838.60"}}},
          {"Rendement brut non soumis", {{320, "CHF 53.75"}}},
          {"ISIN LI9940159995"}},
         {{{"quantity", "40"}, {"taxValue", "8500"}, {"incomeWithWithholding", "160"}},
          {{"quantity", "34"}, {"taxValue", "3838.6"}, {"incomeWithoutWithholding", "53.75"}}}},
        {"beside each other, in columns under their numbers",
         {{"Elenco titoli 2024"},
          {"Titolo", {{320, "Alfa SA"}, {430, "Redwood"}}},
          {"ISIN", {{320, "CH0015540930"}, {430, "US5150017086"}}},
          {"Quantità", {{320, "70"}, {430, "88"}}},
          {"Corso al 31.12.2024", {{320, "153.51"}, {430, "47.40"}}},
          {"Valore fiscale", {{320, "10'745.70"}, {430, "4'171.20"}}},
          {"Reddito lordo con imposta preventiva", {{320, "225.65"}}},
          {"Reddito lordo esente da IP", {{430, "112.60"}}}},
         {{{"quantity", "70"}, {"taxValue", "10745.7"}, {"incomeWithWithholding", "225.65"}},
          {{"quantity", "88"}, {"taxValue", "4171.2"}, {"incomeWithoutWithholding", "112.6"}}}},
        {"one alone, proven by number times price",
         {{"Bestätigung Aktienbestand 31.12.2024, Bank Muster"},
          {"ISIN", {{320, "CH0015540930"}}},
          {"Anzahl freie Aktien", {{320, "150"}}},
          {"Steuerwert je Aktie", {{320, "CHF 40.20"}}},
          {"Steuerwert total", {{320, "CHF 6'030.00"}}},
          {"Bruttodividende total", {{320, "CHF 165.00"}}},
          {"Verrechnungssteuer 35 %", {{320, "CHF 57.75"}}}},
         {{{"quantity", "150"}, {"taxValue", "6030"}, {"incomeWithWithholding", "165"}}}},
    });
}

TEST(SecurityCards, OfFundsAbroadBearNoWithholdingTax) {
    expectRead({
        {"no totals, what managing cost told as deductible",
         {{"Steuerreport 2025"},
          {"Alpenrhein Obligationen", {{540, "LI4164350974"}}},
          {"Anteile", {{540, "256"}}},
          {"Kurs CHF", {{540, "52.76"}}},
          {"Steuerwert 31.12.2025 CHF", {{540, "13'506.56"}}},
          {"Steuerbarer Ertrag CHF", {{540, "224.21"}}},
          {"Globale Aktien thes.", {{540, "IE3216076230"}}},
          {"Anteile", {{540, "180"}}},
          {"Kurs CHF", {{540, "165.22"}}},
          {"Steuerwert 31.12.2025 CHF", {{540, "29'739.60"}}},
          {"Steuerbarer Ertrag CHF", {{540, "532.34"}}},
          {"Abzugsfähige Kosten der Vermögensverwaltung", {{540, "597.95"}}},
          {"Kursgewinn (steuerfrei)", {{540, "285.13"}}}},
         {{{"quantity", "256"}, {"taxValue", "13506.56"}, {"incomeWithoutWithholding", "224.21"}},
          {{"quantity", "180"}, {"taxValue", "29739.6"}, {"incomeWithoutWithholding", "532.34"}},
          {{"actualAssetManagementCosts", "597.95"}}}},
    });
}

TEST(BankPapers, OfSharesAndLoansWithNumbers) {
    expectRead({
        {"shares with their number beside accounts, the tax told in brackets",
         {{"Ihr Steuerblatt 2022"},
          {"2. Mitglieder-Sparkonto", {{540, "CH93 0076 2011 6238 5295 7"}}},
          {"Guthaben Ende Jahr", {{540, "71'746.09"}}},
          {"Bruttozins (Verrechnungssteuer 35 % abgezogen)", {{540, "304.10"}}},
          {"3. Anteilscheine", {{540, "Valor 8892595"}}},
          {"11 Stück zu nominal 200.00, Steuerwert", {{540, "2'200.00"}}},
          {"Dividende 3 % brutto (Verrechnungssteuer 35 % abgezogen)", {{540, "66.00"}}}},
         {{{"taxValue", "71746.09"}, {"incomeWithWithholding", "304.1"}},
          {{"quantity", "11"}, {"taxValue", "2200"}, {"incomeWithWithholding", "66"}}}},
        {"loans in columns under their numbers",
         {{"Attestazione dei mutui ipotecari 2024"},
          {"Mutuo n.", {{400, "883.221-4"}, {540, "883.221-5"}}},
          {"Debito iniziale", {{400, "210'000.00"}, {540, "150'000.00"}}},
          {"Debito al 31.12.2024", {{400, "204'000.00"}, {540, "147'000.00"}}},
          {"Interessi dell'anno", {{400, "3'105.00"}, {540, "2'275.40"}}}},
         {{{"amount", "204000"}, {"interest", "3105"}},
          {{"amount", "147000"}, {"interest", "2275.4"}}}},
        {"interest within what was paid, a premium that is none",
         {{"Contratto di credito n. 78-796639-1"},
          {"le trasmettiamo i dati necessari alla dichiarazione d'imposta 2024. Il credito è"},
          {"stato rimborsato con dodici rate di 688.90 CHF, per un totale di 8'266.80 CHF. In"},
          {"questo importo sono compresi interessi passivi per 570.51 CHF. Al 31.12.2024 il suo"},
          {"debito ammontava a 11'301.07 CHF. L'assicurazione rate (240.00 CHF) non è"},
          {"deducibile quale interesse."}},
         {{{"amount", "11301.07"}, {"interest", "570.51"}}}},
    });
}

} // namespace
} // namespace fiscarel
