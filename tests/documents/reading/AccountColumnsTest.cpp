#include "tests/documents/reading/AccountPapers.h"
#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

/// Tables whose columns are told by the amounts below them.
std::vector<Paper> gridPapers() {
    return {
        {"one heading in the middle over both sides, the same sides twice",
         {{"Estratto fiscale 2024"},
          {"", {{345, "Saldo"}, {490, "Interessi"}}},
          {"Rubrica", {{300, "Dare"}, {380, "Avere"}, {450, "Dare"}, {530, "Avere"}}},
          {"Conto corrente", {{380, "2'231.88"}, {530, "4.50"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Ipoteca fissa 2028", {{300, "337'500.00"}, {450, "6'789.20"}}},
          {"Libretto", {{380, "40'507.46"}, {530, "386.40"}}},
          {"Conto quote sociali", {{380, "200.00"}, {530, "6.00"}}},
          {"Somme", {{300, "337'500.00"}, {380, "42'939.34"}, {450, "6'789.20"}, {530, "396.90"}}}},
         {{{"taxValue", "2231.88"}, {"incomeWithoutWithholding", "4.5"}},
          {{"amount", "337500"}, {"interest", "6789.2"}},
          {{"taxValue", "40507.46"}, {"incomeWithWithholding", "386.4"}},
          {{"taxValue", "200"}, {"incomeWithWithholding", "6"}}}},
        {"a balance that favours either, as its sign says",
         {{"Relevé fiscal au 31 décembre 2024"},
          {"Compte / prêt",
           {{380, "Solde en notre faveur (–)"}, {450, "Intérêts"}, {530, "IA 35 %"}}},
          {"", {{380, "ou en votre faveur (+)"}, {450, "bruts"}}},
          {"Compte épargne", {{380, "+ 65'514.59"}, {450, "430.80"}, {530, "150.80"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Avance à terme fixe", {{380, "– 13'000.00"}, {450, "386.75"}}}},
         {{{"taxValue", "65514.59"}, {"incomeWithWithholding", "430.8"}},
          {{"amount", "13000"}, {"interest", "386.75"}}}},
        {"what a page before came to is no account, sections say what is owed",
         {{"Zinsausweis 2024"},
          {"Produkt", {{380, "Saldo 31.12.2024"}, {450, "Zinsen"}, {530, "VSt 35 %"}}},
          {"Übertrag", {{380, "30'000.00"}, {450, "240.00"}, {530, "84.00"}}},
          {"Vermögenswerte"},
          {"Sparkonto", {{380, "50'104.46"}, {450, "500.60"}, {530, "175.20"}}},
          {"Privatkonto", {{380, "1'200.00"}, {450, "1.40"}}},
          {"Gesamttotal", {{380, "81'304.46"}, {450, "742.00"}}},
          {"Verbindlichkeiten"},
          {"Vorschuss 591.398", {{380, "63'500.00"}, {450, "1'295.85"}}}},
         {{{"taxValue", "50104.46"}, {"incomeWithWithholding", "500.6"}},
          {{"taxValue", "1200"}, {"incomeWithoutWithholding", "1.4"}},
          {{"amount", "63500"}, {"interest", "1295.85"}}}},
        {"marks behind the balances, the tax held back under a heading of two lines",
         {{"Zinsausweis per 31.12.2024"},
          {"", {{530, "Verrechnungs-"}}},
          {"Konto / Kredit", {{335, "Kapital"}, {430, "Bruttozins"}, {530, "steuer"}}},
          {"Kontokorrent", {{365, "48'917.64 Haben"}, {430, "311.10"}, {530, "108.90"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Rahmenkredit", {{360, "161'500.00 Soll"}, {430, "2'057.00"}}}},
         {{{"taxValue", "48917.64"}, {"incomeWithWithholding", "311.1"}},
          {{"amount", "161500"}, {"interest", "2057"}}}},
        {"last year beside, brackets for what is owed, thousands parted by blanks",
         {{"Attestazione fiscale 2024"},
          {"Conto",
           {{300, "Saldo al 31.12.2023"}, {380, "Saldo"}, {450, "Int. lordi"}, {530, "IP 35 %"}}},
          {"Conto privato",
           {{300, "55 709.13"}, {380, "59 902.29"}, {450, "383.40"}, {530, "134.20"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Finanziamento 798.363", {{300, "(21 000.00)"}, {380, "(16 000.00)"}, {450, "341.75"}}}},
         {{{"taxValue", "59902.29"}, {"incomeWithWithholding", "383.4"}},
          {{"amount", "16000"}, {"interest", "341.75"}}}},
        {"only the names tell what is owed, also with an account number",
         {{"Attestation fiscale 2024"},
          {"Désignation", {{380, "Solde au 31.12.2024"}, {450, "Intérêts"}, {530, "IA 35 %"}}},
          {"Compte privé", {{380, "27'362.97"}, {450, "523.05"}, {530, "183.05"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Prêt hypothécaire", {{380, "437'000.00"}, {450, "8'799.40"}}},
          {"CH56 0483 5012 3456 7800 9"}},
         {{{"taxValue", "27362.97"}, {"incomeWithWithholding", "523.05"}},
          {{"amount", "437000"}, {"interest", "8799.4"}}}},
    };
}

/// Accounts as columns, in halves of a page, and securities each under a heading of its own.
std::vector<Paper> turnedPapers() {
    return {
        {"accounts as columns under a word for any, their names too close to tell apart",
         {{"Prospetto saldi e interessi 2024"},
          {"Posizione",
           {{300, "Conto titoli"}, {410, "Ipoteca a tasso fisso"}, {490, "Prestito auto"}}},
          {"Saldo al 31.12.2023", {{300, "11'068.84"}, {410, "339'000.00"}, {490, "18'502.64"}}},
          {"Saldo al 31.12.2024", {{300, "11'027.73"}, {410, "-334'000.00"}, {490, "-13'502.64"}}},
          {"Interessi attivi (lordi)", {{300, "13.50"}}},
          {"Interessi passivi", {{410, "8'169.15"}, {490, "860.00"}}}},
         {{{"taxValue", "11027.73"}, {"incomeWithoutWithholding", "13.5"}},
          {{"amount", "334000"}, {"interest", "8169.15"}},
          {{"amount", "13502.64"}, {"interest", "860"}}}},
        {"securities each with its headings again, the tax beside the income",
         {{"État des titres et revenus 2024"},
          {"Act. nom. Jura", {{530, "CH0022751538"}}},
          {"Nombre",
           {{220, "Cours"},
            {330, "Valeur imposable"},
            {430, "Rendement brut"},
            {530, "Impôt anticipé"}}},
          {"110", {{220, "48.75"}, {330, "5'362.50"}, {430, "250.35"}, {530, "87.60"}}},
          {"Shs Northlake", {{530, "US5150017086"}}},
          {"Nombre",
           {{220, "Cours"},
            {330, "Valeur imposable"},
            {430, "Rendement brut"},
            {530, "Impôt anticipé"}}},
          {"252", {{220, "188.71"}, {330, "47'554.92"}, {430, "380.65"}, {530, "néant"}}},
          {"Totaux", {{330, "52'917.42"}, {430, "631.00"}, {530, "87.60"}}}},
         {{{"quantity", "110"}, {"taxValue", "5362.5"}, {"incomeWithWithholding", "250.35"}},
          {{"quantity", "252"}, {"taxValue", "47554.92"}, {"incomeWithoutWithholding", "380.65"}}}},
    };
}

TEST(AccountColumns, AreToldByTheAmountsBelow) { expectRead(gridPapers()); }

TEST(AccountColumns, MayBeTheAccountsThemselves) { expectRead(turnedPapers()); }

TEST(AccountColumns, InHalvesOfAPageAreTwoTables) {
    const ScanResult read = proposedFrom({
        {60, 40, "Muster Bank AG"},
        {60, 60, "Steuerausweis 2024"},
        {60, 90, "Guthaben"},
        {320, 90, "Schulden"},
        {60, 110, "Konto"},
        {220, 110, "Saldo", right},
        {280, 110, "Zins", right},
        {326, 110, "Vertrag"},
        {480, 110, "Restschuld", right},
        {545, 110, "Schuldzins", right},
        {60, 130, "Sparkonto"},
        {220, 130, "47'122.32", right},
        {280, 130, "520.95", right},
        {326, 130, "Hypothek Haus"},
        {480, 130, "419'000.00", right},
        {545, 130, "7'895.80", right},
        {60, 150, "Privatkonto"},
        {220, 150, "3'234.41", right},
        {280, 150, "1.05", right},
    });
    EXPECT_EQ(valueOf(read, "taxValue", 0), "47122.32");
    EXPECT_EQ(valueOf(read, "incomeWithWithholding", 0), "520.95");
    EXPECT_EQ(valueOf(read, "taxValue", 1), "3234.41");
    EXPECT_EQ(valueOf(read, "incomeWithoutWithholding", 1), "1.05");
    EXPECT_EQ(valueOf(read, "amount", 2), "419000");
    EXPECT_EQ(valueOf(read, "interest", 2), "7895.8");
}

} // namespace
} // namespace fiscarel
