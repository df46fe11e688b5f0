#include "tests/documents/reading/AccountPapers.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

TEST(AccountBlocks, AreToldApartHoweverTheyAreSet) {
    expectRead({
        {"tranches that say the same, the totals of all below",
         {{"Attestation de dettes et d'intérêts 2024"},
          {"Avance A – cédule en 1er rang, Orbe, taux fixe 1,35 % jusqu'en 2029"},
          {"Solde au 1er janvier 2024", {{520, "387'000.00"}}},
          {"Solde au 31 décembre 2024", {{520, "383'000.00"}}},
          {"Intérêts payés en 2024", {{520, "4'450.50"}}},
          {"Avance B – cédule en 2e rang, Orbe, taux fixe 2,05 % jusqu'en 2031"},
          {"Solde au 1er janvier 2024", {{520, "320'000.00"}}},
          {"Solde au 31 décembre 2024", {{520, "316'000.00"}}},
          {"Intérêts payés en 2024", {{520, "6'560.00"}}},
          {"Total des dettes", {{520, "699'000.00"}}},
          {"Total des intérêts", {{520, "11'010.50"}}}},
         {{{"amount", "383000"}, {"interest", "4450.5"}},
          {{"amount", "316000"}, {"interest", "6560"}}}},
        {"a rate behind the interest, the whole year beside its name",
         {{"Darlehensauszug 2024, feste Hypothek Nr. 200047"},
          {"Schuldzinsen 01.01.-31.12.2024", {{430, "5'201.90"}, {520, "Zinssatz 1.45 %"}}},
          {"Kapitalschuld per 31.12.2024", {{430, "355'000.00"}}}},
         {{{"amount", "355000"}, {"interest", "5201.9"}}}},
        {"what stands to somebody's credit is no loan, little interest is not taxed",
         {{"Attestazione degli averi 2023"},
          {"Il conto CH93 0076 2011 6238 5295 7 presentava un saldo a Suo credito di fr. "
           "11'167.55."},
          {"Interessi lordi (senza imposta preventiva)", {{520, "22.75"}}}},
         {{{"taxValue", "11167.55"}, {"incomeWithoutWithholding", "22.75"}}}},
        {"a loan in sentences, its number no amount, a rate before a semicolon",
         {{"Prêt de formation n° 1698.90 – justificatif fiscal 2021"},
          {"Le prêt présentait au 31 décembre 2021 un solde dû de 22'290.00 francs. Le taux"},
          {"de 2,25 % est resté inchangé ; les intérêts payés se montent à 501.55 francs."}},
         {{{"amount", "22290"}, {"interest", "501.55"}}}},
        {"what was lent once and what stands today",
         {{"Prestito fra privati, conferma per le imposte 2025"},
          {"Al 31.12.2025 mi doveva ancora fr. 55'000.00 (debito residuo del prestito concesso"},
          {"nel 2019 per fr. 70'000.00). Oggi, alla data della presente, deve fr. 54'000.00."}},
         {{{"amount", "55000"}}}},
        {"names over their numbers, amounts over what they are",
         {{"Riepilogo fiscale 2023"},
          {"Conto Base", {{520, "52'099.45 CHF"}}},
          {"CH93 0076 2011 6238 5295 7", {{520, "saldo al 31 dicembre 2023"}}},
          {"Credito auto", {{520, "–28'300.00 CHF"}}},
          {"Contratto 904390", {{520, "debito residuo al 31 dicembre 2023"}}}},
         {{{"taxValue", "52099.45"}}, {{"amount", "28300"}}}},
        {"balances above their numbers, brackets of a ledger, a loan by its name",
         {{"Zahlen fürs Steueramt (2024)"},
          {"Kontostand Lohnkonto", {{520, "7679,50 CHF"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Zins darauf, brutto", {{520, "15,00 CHF"}}},
          {"Kontostand Sparbatzen", {{520, "69700,15 CHF"}}},
          {"CH56 0483 5012 3456 7800 9"},
          {"Zins darauf, brutto", {{520, "286,25 CHF"}}},
          {"davon ans Steueramt (VSt)", {{520, "(100,19 CHF)"}}},
          {"Offener Kleinkredit Nr. 60-118", {{520, "(7239,20 CHF)"}}},
          {"Kreditzins bezahlt", {{520, "229,40 CHF"}}}},
         {{{"taxValue", "7679.5"}, {"incomeWithoutWithholding", "15"}},
          {{"taxValue", "69700.15"}, {"incomeWithWithholding", "286.25"}},
          {{"amount", "7239.2"}, {"interest", "229.4"}}}},
        {"only the day tells the balance, only its tax the interest; a card is owed",
         {{"Aperçu fiscal 2024"},
          {"Compte épargne CH93 0076 2011 6238 5295 7"},
          {"Montant au 31.12.2024", {{520, "52'224.08"}}},
          {"Bonification", {{520, "260.75"}}},
          {"Impôt anticipé", {{520, "91.26"}}},
          {"Carte de crédit"},
          {"Solde dû", {{520, "491.50"}}},
          {"Limite", {{520, "5'000.00"}}},
          {"Intérêts et frais de retard", {{520, "28.75"}}}},
         {{{"taxValue", "52224.08"}, {"incomeWithWithholding", "260.75"}},
          {{"amount", "491.5"}, {"interest", "28.75"}}}},
        {"the side of an account is marked behind each amount, two labels in a row",
         {{"RECAPITULATION 2024"},
          {"COURANT CH93 0076 2011 6238 5295 7"},
          {"INTERETS BRUTS 2024", {{250, "120,00"}, {380, "SOLDE 31.12."}, {520, "15 310,05 CR"}}},
          {"HYPOTHEQUE 59.1248"},
          {"INTERETS DEBITEURS",
           {{250, "3 509,10"}, {380, "SOLDE 31.12."}, {520, "163 500,00 DB"}}}},
         {{{"taxValue", "15310.05"}, {"incomeWithoutWithholding", "120"}},
          {{"amount", "163500"}, {"interest", "3509.1"}}}},
        {"the numbers of loans are no column, whatever heads them",
         {{"Attestation 2024"},
          {"Prêt", {{330, "Encours au 31.12.2024"}, {520, "Intérêts débiteurs"}}},
          {"12.345.678-9", {{330, "250'000.00"}, {520, "3'645.20"}}},
          {"12.345.679-0", {{330, "100'000.00"}, {520, "1'045.20"}}}},
         {{{"amount", "250000"}, {"interest", "3645.2"}},
          {{"amount", "100000"}, {"interest", "1045.2"}}}},
        {"of interest that nobody owes there is no debt; a ledger's signs behind",
         {{"CHIUSURA CONTO AL 31.12.2024"},
          {"CONTO DEPOSITO CH93 0076 2011 6238 5295 7"},
          {"31.12.2024 INTERESSI A CREDITO", {{430, "325.55+"}}},
          {"31.12.2024 35 % IMPOSTA PREVENTIVA", {{430, "113.94-"}}},
          {"31.12.2024 INTERESSI A DEBITO", {{430, "0.00"}}},
          {"31.12.2024 SALDO A NUOVO A VOSTRO FAVORE", {{520, "33'256.41"}}}},
         {{{"taxValue", "33256.41"}, {"incomeWithWithholding", "325.55"}}}},
    });
}

TEST(AccountBlocks, OfABankInLiechtensteinAreValuedInFrancs) {
    expectRead({
        {"an account in euros with its value in francs, no tax is withheld",
         {{"Bescheinigung für Steuerzwecke 2023"},
          {"Sparkonto Plus", {{520, "LI45 0881 2850 9613 2902 8"}}},
          {"Vermögenssteuerwert in CHF", {{520, "105 979.28"}}},
          {"Vermögensertrag in CHF (brutto)", {{520, "900.82"}}},
          {"Euro-Konto", {{520, "LI31 0881 2387 5651 9159 0"}}},
          {"Guthaben in EUR", {{380, "16 038.69"}, {520, "Devisenkurs 0.9287"}}},
          {"Zinsertrag in EUR", {{380, "96.23"}}},
          {"Vermögenssteuerwert in CHF", {{520, "14 895.13"}}},
          {"Vermögensertrag in CHF (brutto)", {{520, "89.37"}}},
          {"Kontoführungsspesen", {{520, "12.00"}}}},
         {{{"taxValue", "105979.28"}, {"incomeWithoutWithholding", "900.82"}},
          {{"taxValue", "14895.13"}, {"incomeWithoutWithholding", "89.37"}}}},
    });
}

TEST(AccountBlocks, HaveTitlesWithNumbersThatAreNoAmounts) {
    expectRead({
        {"sections by letter, the nominal value of one share in brackets, a loan's number with a "
         "point",
         {{"Ausweis für das Steueramt, Kalenderjahr 2022"},
          {"A  Anteilschein (nominal CHF 200.– je Stück)"},
          {"Steuerwert 31.12.2022 CHF", {{520, "400.00"}}},
          {"Verzinsung 5 % brutto CHF", {{520, "20.00"}}},
          {"Verrechnungssteuer 35 % CHF", {{520, "7.00"}}},
          {"B  Mitgliedersparkonto CH93 0076 2011 6238 5295 7"},
          {"Saldo 31.12.2022 CHF", {{520, "56'373.32"}}},
          {"Zins brutto CHF", {{520, "507.35"}}},
          {"Verrechnungssteuer 35 % CHF", {{520, "177.57"}}},
          {"C  Variable Hypothek 3146387.18, Inselweg"},
          {"Schuldkapital 31.12.2022 CHF", {{520, "323'000.00"}}},
          {"Bezahlte Schuldzinsen CHF", {{520, "6'056.25"}}}},
         {{{"taxValue", "400"}, {"incomeWithWithholding", "20"}},
          {{"taxValue", "56373.32"}, {"incomeWithWithholding", "507.35"}},
          {{"amount", "323000"}, {"interest", "6056.25"}}}},
    });
}

TEST(AccountBlocks, SumInterestPostedInPartsOfTheYear) {
    expectRead({
        {"half-years by their days, each with its tax",
         {{"Kontoauszug Sparkonto CH93 0076 2011 6238 5295 7, 2024"},
          {"30.06.2024 Habenzins", {{430, "150.00"}, {520, "20'150.00"}}},
          {"30.06.2024 Verrechnungssteuer", {{360, "52.50"}, {520, "20'097.50"}}},
          {"31.12.2024 Habenzins", {{430, "160.00"}, {520, "20'257.50"}}},
          {"31.12.2024 Verrechnungssteuer", {{360, "56.00"}, {520, "20'201.50"}}},
          {"31.12.2024 Schlusssaldo", {{520, "20'201.50"}}}},
         {{{"taxValue", "20201.5"}, {"incomeWithWithholding", "310"}}}},
        {"half-years by name, what was paid back beside them",
         {{"Zinsausweis Hypothek 2024"},
          {"Hypothek Stand 31.12.2024", {{520, "400'000.00"}}},
          {"Zinsen 1. Halbjahr", {{520, "3'000.00"}}},
          {"Zinsen 2. Halbjahr", {{520, "2'950.00"}}},
          {"Amortisation", {{520, "5'000.00"}}}},
         {{{"amount", "400000"}, {"interest", "5950"}}}},
    });
}

TEST(AccountBlocks, OfAMonthGiveNothingAndOfTheLastOneTheBalance) {
    expectRead({
        {"a month within the year",
         {{"Kontoauszug 01.06.2024 - 30.06.2024"},
          {"Privatkonto CH93 0076 2011 6238 5295 7"},
          {"Saldovortrag 31.05.2024", {{520, "4'200.10"}}},
          {"Lohn", {{430, "5'100.00"}, {520, "9'300.10"}}},
          {"Saldo per 30.06.2024", {{520, "9'300.10"}}}},
         {}},
        {"the month the year ends with",
         {{"Kontoauszug 01.12.2024 - 31.12.2024"},
          {"Privatkonto CH93 0076 2011 6238 5295 7"},
          {"Saldovortrag 30.11.2024", {{520, "4'200.10"}}},
          {"Zins", {{430, "3.50"}, {520, "4'203.60"}}},
          {"Saldo per 31.12.2024", {{520, "4'203.60"}}}},
         {{{"taxValue", "4203.6"}}}},
    });
}

TEST(AccountBlocks, TellLoansInSentencesByTheirNumbers) {
    expectRead({
        {"each with its debt and interest, rates with a comma, what is left of both",
         {{"Bescheinigung der Schuldzinsen 2024, Geschäft 88.2031"},
          {"Für das Darlehen zum festen Satz Nr. 88.2031-1 (1,45 %, bis 30.06.2028) betrug die"},
          {"Restschuld am 31. Dezember 2024 CHF 310'000.00; bezahlte Zinsen CHF 4'495.00."},
          {"Für das Darlehen Nr. 88.2031-2 betrug die Restschuld am 31. Dezember 2024 CHF"},
          {"92'500.00. Die im Jahr 2024 bezahlten Zinsen betragen CHF 2'118.75."}},
         {{{"amount", "310000"}, {"interest", "4495"}},
          {{"amount", "92500"}, {"interest", "2118.75"}}}},
        {"a rate in a loan's name, the day torn from its month, interest that was paid",
         {{"Attestazione degli interessi passivi per l'anno 2024"},
          {"Per il prestito a tasso fisso n. 77.1043-02 il debito residuo al 31"},
          {"dicembre 2024 ammontava a CHF 240 000.00; gli interessi da voi pagati nel corso"},
          {"dell'anno sono stati pari a CHF 3 060.00."}},
         {{{"amount", "240000"}, {"interest", "3060"}}}},
    });
}

TEST(AccountBlocks, KeepCostsOfSecuritiesApart) {
    expectRead({
        {"a row of the table that is no holding",
         {{"Vermögensausweis 2024, Depot 5083-84"},
          {"", {{250, "Anzahl"}, {330, "Kurs"}, {430, "Ertrag"}, {520, "Wert 31.12.2024"}}},
          {"Muster Holding AG (7707197)",
           {{250, "78"}, {330, "76.65"}, {430, "89.70"}, {520, "5'978.70"}}},
          {"Muster Anlagen Welt (33838233)",
           {{250, "89"}, {330, "279.80"}, {430, "776.95"}, {520, "24'902.20"}}},
          {"Depotgebühren und Verwaltung", {{520, "585.00"}}}},
         {{{"quantity", "78"}, {"taxValue", "5978.7"}},
          {{"quantity", "89"}, {"taxValue", "24902.2"}},
          {{"actualAssetManagementCosts", "585"}}}},
    });
}

TEST(AccountBlocks, OfABankInSectionsHaveTheirNumbersBelow) {
    expectRead({
        {"each section with its own heading, pieces and the tax in the line of the number",
         {{"Vermögensausweis per 31.12.2025"},
          {"Liquidität", {{380, "Wert 31.12.2025"}, {520, "Ertrag 2025 brutto"}}},
          {"Privatkonto CHF", {{380, "21'455.90"}, {520, "118.30"}}},
          {"LI45 0881 2850 9613 2902 8"},
          {"Obligationen und ähnliche", {{380, "Wert 31.12.2025"}, {520, "Ertrag 2025 brutto"}}},
          {"2.125 % Muster Energie AG 2021-2030", {{380, "40'360.00"}, {520, "850.00"}}},
          {"ISIN CH0012345670 · Nominal 40'000.00"},
          {"Aktien und Fonds", {{380, "Wert 31.12.2025"}, {520, "Ertrag 2025 brutto"}}},
          {"Muster Fund - Aktien Welt", {{380, "48'422.00"}, {520, "527.00"}}},
          {"ISIN LI0229916403 · 310 Anteile"},
          {"Muster Nahrungsmittel AG, Namen", {{380, "22'137.50"}, {520, "800.00"}}},
          {"ISIN CH0571180337 · 25 Aktien", {{520, "abzüglich 35 % Verrechnungssteuer 280.00"}}},
          {"Gesamtvermögen", {{380, "132'375.40"}, {520, "2'295.30"}}}},
         {{{"taxValue", "21455.9"}, {"incomeWithoutWithholding", "118.3"}},
          {{"quantity", "40000"}, {"taxValue", "40360"}},
          {{"quantity", "310"}, {"taxValue", "48422"}, {"incomeWithoutWithholding", "527"}},
          {{"quantity", "25"}, {"taxValue", "22137.5"}, {"incomeWithWithholding", "800"}}}},
    });
}

TEST(AccountBlocks, LeaveRunningBalancesAndLimits) {
    expectRead({
        {"a posting with the balance after it, the columns named on another page",
         {{"Kontoabschluss Sparkonto CH93 0076 2011 6238 5295 7"},
          {"Übertrag", {{520, "113'203.12"}}},
          {"31.12.2022 Habenzins 2022 zu 0.75 %", {{430, "823.55"}, {520, "114'026.67"}}},
          {"31.12.2022 Verrechnungssteuer 35 %", {{360, "288.24"}, {520, "113'738.43"}}},
          {"31.12.2022 Schlusssaldo zu Ihren Gunsten", {{520, "113'738.43"}}}},
         {{{"taxValue", "113738.43"}, {"incomeWithWithholding", "823.55"}}}},
        {"a posting named like a balance, which others follow",
         {{"Kontoabschluss per 31.12.2023, Sparheft CH93 0076 2011 6238 5295 7"},
          {"15.06.2023 Einlage", {{430, "627.25"}, {520, "25'501.75"}}},
          {"31.12.2023 Bruttozins", {{430, "255.00"}, {520, "25'756.75"}}},
          {"31.12.2023 Verrechnungssteuer 35 %", {{360, "89.25"}, {520, "25'667.50"}}},
          {"31.12.2023 Bestand", {{520, "25'667.50"}}}},
         {{{"taxValue", "25667.5"}, {"incomeWithWithholding", "255"}}}},
        {"the limits of the law and of the bank in sentences",
         {{"Jugendsparheft, Angaben zum Steuerjahr 2023"},
          {"Das Sparheft (IBAN CH93 0076 2011 6238 5295 7) wies am 31. Dezember 2023"},
          {"ein Guthaben von Fr. 7'590.34 auf. Für das Jahr 2023 haben wir einen"},
          {"Zins von Fr. 45.55 gutgeschrieben. Eine Verrechnungssteuer fiel nicht an, weil"},
          {"der Zins Fr. 200.– nicht übersteigt. Fr. 30.– sind ein Geschenk, es ist im"},
          {"Guthaben enthalten. Der Höchstbetrag mit Vorzugszins liegt bei Fr. 25'000.–."}},
         {{{"taxValue", "7590.34"}, {"incomeWithoutWithholding", "45.55"}}}},
    });
}

} // namespace
} // namespace fiscarel
