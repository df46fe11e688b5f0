#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Records = std::vector<std::map<std::string, std::string>>;

/// Words from the left, then what ends at the right edges that follow them.
struct TableRow {
    const char* words;
    std::vector<std::pair<double, const char*>> cells = {};
};

/// A paper of accounts, loans or securities, and the amounts each record is to have.
struct Paper {
    const char* what;
    std::vector<TableRow> rows;
    Records amounts;
};

std::vector<Paper> papers() {
    return {
        {"francs count beside a foreign currency",
         {{"Zins- und Kapitalausweis 2024"},
          {"Konto",
           {{240, "Saldo"}, {310, "Kurs"}, {390, "Zins"}, {460, "Zins CHF"}, {540, "Saldo CHF"}}},
          {"Euro-Konto EUR",
           {{240, "10'000.00"},
            {310, "0.9400"},
            {390, "50.00"},
            {460, "47.00"},
            {540, "9'400.00"}}},
          {"Privatkonto CHF",
           {{240, "5'000.00"}, {310, "1.0000"}, {390, "10.00"}, {460, "10.00"}, {540, "5'000.00"}}},
          {"Total", {{460, "57.00"}, {540, "14'400.00"}}}},
         {{{"taxValue", "9400"}, {"incomeWithoutWithholding", "47"}},
          {{"taxValue", "5000"}, {"incomeWithoutWithholding", "10"}}}},
        {"loans by what was paid, not by what they were or what was repaid",
         {{"Hypothek: Zins- und Kapitalausweis 2024"},
          {"", {{200, "1. Januar"}, {300, "amortisiert"}, {400, "bezahlt"}, {520, "31. Dezember"}}},
          {"Tranche 1",
           {{200, "203'000.00"}, {300, "5'000.00"}, {400, "3'088.80"}, {520, "198'000.00"}}},
          {"Tranche 2",
           {{200, "146'000.00"}, {300, "5'000.00"}, {400, "2'072.70"}, {520, "141'000.00"}}},
          {"Alle",
           {{200, "349'000.00"}, {300, "10'000.00"}, {400, "5'161.50"}, {520, "339'000.00"}}},
          {"Aufgelaufener Zins", {{520, "512.65"}}}},
         {{{"amount", "198000"}, {"interest", "3088.8"}},
          {{"amount", "141000"}, {"interest", "2072.7"}}}},
        {"an overdrawn account is a debt",
         {{"Kontoabschluss und Steuerbescheinigung 2024"},
          {"Kontokorrent, IBAN CH93 0076 2011 6238 5295 7"},
          {"Belastete Zinsen", {{520, "1'370.30"}}},
          {"Kreditkommission", {{520, "175.05"}}},
          {"Saldo per 31.12.2024", {{520, "-18'797.65"}}}},
         {{{"amount", "18797.65"}, {"interest", "1370.3"}}}},
        {"number times price tells securities",
         {{"Depot 12-345: Wertschriftenverzeichnis mit Steuerwert 2024"},
          {"Valor",
           {{300, "Anzahl"},
            {360, "Kurs"},
            {430, "Steuerwert"},
            {490, "Ertrag A"},
            {550, "Ertrag B"}}},
          {"7174701 Muster AG",
           {{300, "155"}, {360, "86.05"}, {430, "13'337.75"}, {490, "130.70"}}},
          {"8496194 Nord ASA", {{300, "250"}, {360, "82.30"}, {430, "20'575.00"}, {550, "656.30"}}},
          {"Total", {{430, "33'912.75"}, {490, "130.70"}, {550, "656.30"}}}},
         {{{"quantity", "155"}, {"taxValue", "13337.75"}, {"incomeWithWithholding", "130.7"}},
          {{"quantity", "250"}, {"taxValue", "20575"}, {"incomeWithoutWithholding", "656.3"}}}},
        {"tranches beside each other, what was owed a year before aside",
         {{"Hypothek: Finanzierungsausweis 2024"},
          {"", {{300, "Tranche A"}, {400, "Tranche B"}, {540, "Summe"}}},
          {"Bezahlte Zinsen", {{300, "1'656.00"}, {400, "3'474.40"}, {540, "5'130.40"}}},
          {"Schuld 31.12.2023", {{300, "86'500.00"}, {400, "177'500.00"}, {540, "264'000.00"}}},
          {"Amortisation", {{300, "-6'500.00"}, {400, "-5'500.00"}, {540, "-12'000.00"}}},
          {"Schuld Ende Jahr", {{300, "80'000.00"}, {400, "172'000.00"}, {540, "252'000.00"}}}},
         {{{"amount", "80000"}, {"interest", "1656"}},
          {{"amount", "172000"}, {"interest", "3474.4"}}}},
        {"the quarters of a loan are no loans",
         {{"Ihre Hypothekarzinsen 2024"},
          {"Festhypothek 794.39255"},
          {"Fälligkeit", {{300, "Zins"}, {540, "Restkapital"}}},
          {"01.01.2024", {{540, "179'500.00"}}},
          {"30.06.2024", {{300, "717.50"}}},
          {"31.12.2024", {{300, "717.50"}}},
          {"Amortisation", {{540, "-4'500.00"}}},
          {"Summe 2024", {{300, "1'435.00"}, {540, "175'000.00"}}}},
         {{{"amount", "175000"}, {"interest", "1435"}}}},
        {"income by columns that tell of the tax",
         {{"Vermögensausweis 2024"},
          {"Art",
           {{200, "Aktiven"},
            {270, "Ausstand"},
            {350, "Ertrag A"},
            {440, "Ertrag B"},
            {540, "Zinsaufwand"}}},
          {"Wertschriftendepot", {{200, "82'435.97"}, {350, "692.50"}, {440, "263.80"}}},
          {"Festhypothek", {{270, "129'000.00"}, {540, "3'083.10"}}},
          {"Alle",
           {{200, "82'435.97"},
            {270, "129'000.00"},
            {350, "692.50"},
            {440, "263.80"},
            {540, "3'083.10"}}}},
         {{{"taxValue", "82435.97"},
           {"incomeWithWithholding", "692.5"},
           {"incomeWithoutWithholding", "263.8"}},
          {{"amount", "129000"}, {"interest", "3083.1"}}}},
        {"a loan without a number below accounts that have one",
         {{"Certificato di capitale e interessi 2024"},
          {"Descrizione",
           {{330, "Capitale al 31.12."}, {440, "Interessi lordi"}, {540, "Interessi dovuti"}}},
          {"Conto privato CH9300762011623852957", {{330, "12'345.60"}, {440, "1.25"}}},
          {"Ipoteca", {{330, "450'000.00"}, {540, "6'750.00"}}}},
         {{{"taxValue", "12345.6"}, {"incomeWithoutWithholding", "1.25"}},
          {{"amount", "450000"}, {"interest", "6750"}}}},
        {"securities named above their days, two dividends are added",
         {{"Steuerreport Wertschriften 2024: Depot"},
          {"Datum",
           {{250, "Stück"},
            {320, "Kurs"},
            {390, "ohne VSt"},
            {460, "mit VSt"},
            {540, "Steuerwert"}}},
          {"Werft Nam., ISIN CH0092378618"},
          {"07.05.2024", {{460, "200.00"}}},
          {"07.09.2024", {{460, "100.50"}}},
          {"31.12.2024", {{250, "40"}, {320, "10.00"}, {540, "400.00"}}},
          {"Ferries Corp, ISIN US1034061846"},
          {"16.05.2024", {{390, "246.70"}}},
          {"31.12.2024", {{250, "80"}, {320, "102.10"}, {540, "8'168.00"}}}},
         {{{"quantity", "40"}, {"taxValue", "400"}, {"incomeWithWithholding", "300.5"}},
          {{"quantity", "80"}, {"taxValue", "8168"}, {"incomeWithoutWithholding", "246.7"}}}},
    };
}

/// What is kept and what is owed, in one table or beside each other.
std::vector<Paper> mixedPapers() {
    return {
        {"a side of the page for what is kept and one for what is owed",
         {{"Zins- und Kapitalausweis 2024"},
          {"Konto",
           {{280, "Saldo Soll"}, {360, "Saldo Haben"}, {440, "Zins Soll"}, {520, "Zins Haben"}}},
          {"Sparkonto", {{360, "8'000.00"}, {520, "40.00"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Baukredit", {{280, "50'000.00"}, {440, "1'250.00"}}},
          {"12.345.678-90"},
          {"Total", {{280, "50'000.00"}, {360, "8'000.00"}, {440, "1'250.00"}, {520, "40.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"sides under headings that span them",
         {{"Jahresabschluss 2024"},
          {"Konto", {{280, "Saldo CHF"}, {440, "Zins CHF"}}},
          {"", {{280, "Soll"}, {360, "Haben"}, {440, "Soll"}, {520, "Haben"}}},
          {"Sparkonto CH93 0076 2011 6238 5295 7", {{360, "8'000.00"}, {520, "40.00"}}},
          {"Baukredit 12.345.678-90", {{280, "50'000.00"}, {440, "1'250.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"amounts marked as owed",
         {{"Attestazione fiscale 2024"},
          {"Relazione", {{380, "Saldo al 31.12.2024"}, {520, "Interessi"}}},
          {"Conto risparmio CH93 0076 2011 6238 5295 7", {{380, "8'000.00 A"}, {520, "40.00 A"}}},
          {"Abitazione 12.345.678-90", {{380, "50'000.00 D"}, {520, "1'250.00 D"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"H and S mark sides, not hours",
         {{"Zins- und Saldobestätigung 2024"},
          {"Konto", {{380, "Saldo per 31.12."}, {520, "Zins brutto"}}},
          {"Sparkonto CH93 0076 2011 6238 5295 7", {{380, "8'000.00 H"}, {520, "40.00 H"}}},
          {"Baukredit 12.345.678-90", {{380, "50'000.00 S"}, {520, "1'250.00 S"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"a column of balances and debts, told by the row",
         {{"Attestation fiscale 2024"},
          {"Relation", {{380, "Solde / dette"}, {520, "Intérêts bruts"}}},
          {"Prêt hypothécaire", {{380, "50'000.00"}, {520, "1'250.00"}}},
          {"12.345.678-90"},
          {"Compte privé", {{380, "8'000.00"}, {520, "40.00"}}},
          {"CH93 0076 2011 6238 5295 7"}},
         {{{"amount", "50000"}, {"interest", "1250"}},
          {{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}}}},
        {"parts with totals of their own, the net of all aside",
         {{"Vermögensausweis 2024"},
          {"Position", {{380, "Saldo per 31.12."}, {520, "Zins"}}},
          {"Aktiven"},
          {"Sparkonto CH93 0076 2011 6238 5295 7", {{380, "8'000.00"}, {520, "40.00"}}},
          {"Total Aktiven", {{380, "8'000.00"}, {520, "40.00"}}},
          {"Passiven"},
          {"Liegenschaft Dorf 12.345.678-90", {{380, "50'000.00"}, {520, "1'250.00"}}},
          {"Total Passiven", {{380, "50'000.00"}, {520, "1'250.00"}}},
          {"Saldo netto", {{380, "-42'000.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"columns that only name the years",
         {{"Vermögensübersicht 2024"},
          {"Position", {{280, "2023"}, {380, "2024"}, {520, "Zinsertrag"}}},
          {"Sparkonto", {{280, "7'000.00"}, {380, "8'000.00"}, {520, "40.00"}}},
          {"CH93 0076 2011 6238 5295 7"},
          {"Privatkonto", {{280, "2'000.00"}, {380, "3'000.00"}, {520, "5.00"}}},
          {"CH56 0483 5012 3456 7800 9"}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"taxValue", "3000"}, {"incomeWithoutWithholding", "5"}}}},
        {"numbers below the figures; what the bank owes is kept",
         {{"Certificato fiscale 2024"},
          {"Conto privato"},
          {"Saldo a nostro debito al 31.12.2024", {{520, "8'000.00"}}},
          {"Interessi lordi", {{520, "40.00"}}},
          {"IBAN CH93 0076 2011 6238 5295 7"},
          {"Conto risparmio"},
          {"Saldo a nostro debito al 31.12.2024", {{520, "3'000.00"}}},
          {"Interessi lordi", {{520, "5.00"}}},
          {"IBAN CH56 0483 5012 3456 7800 9"}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"taxValue", "3000"}, {"incomeWithoutWithholding", "5"}}}},
        {"words of one label are no columns where an amount ends below one of them",
         {{"Conferma di interessi e saldo 2024"},
          {"Conto privato"},
          {"CH93 0076 2011 6238 5295 7"},
          {"Interessi attivi 2024"},
          {"", {{105, "40.00"}}},
          {"Saldo al 31.12.2024"},
          {"", {{105, "8'000.00"}}},
          {"Conto risparmio"},
          {"CH56 0483 5012 3456 7800 9"},
          {"Interessi attivi 2024"},
          {"", {{105, "5.00"}}},
          {"Saldo al 31.12.2024"},
          {"", {{105, "3'000.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"taxValue", "3000"}, {"incomeWithoutWithholding", "5"}}}},
        {"a loan without a number below an account",
         {{"Steuerunterlagen 2024"},
          {"Sparkonto CH93 0076 2011 6238 5295 7"},
          {"Guthaben am Jahresende", {{520, "8'000.00"}}},
          {"Zinsertrag brutto", {{520, "40.00"}}},
          {"Gemeinsame Hypothek"},
          {"Schuld am Jahresende", {{520, "50'000.00"}}},
          {"Hypothekarzinsen", {{520, "1'250.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
        {"beside each other under a currency, a number after a name no amount",
         {{"Avis de bouclement fiscal 2024"},
          {"en CHF", {{280, "Compte 1"}, {400, "Compte 2"}, {520, "Hypothèque 1"}}},
          {"Solde au 31.12.2024", {{280, "8'000.00"}, {400, "3'000.00"}}},
          {"Dette au 31.12.2024", {{520, "50'000.00"}}},
          {"Intérêts bruts", {{280, "40.00"}, {400, "5.00"}}},
          {"Intérêts débiteurs", {{520, "1'250.00"}}},
          {"Frais", {{280, "12.00"}, {400, "12.00"}, {520, "30.00"}}}},
         {{{"taxValue", "8000"}, {"incomeWithoutWithholding", "40"}},
          {{"taxValue", "3000"}, {"incomeWithoutWithholding", "5"}},
          {{"amount", "50000"}, {"interest", "1250"}}}},
    };
}

/// Papers on which other things stand beside what is wanted.
std::vector<Paper> besidePapers() {
    return {
        {"a pillar 3a is no wealth, interest before the tax is gross",
         {{"Jahresausweis 2024"},
          {"", {{300, "Privatkonto"}, {400, "Sparkonto"}, {540, "Vorsorgekonto 3a"}}},
          {"Saldo am 31.12.2024", {{300, "8'780.71"}, {400, "66'910.87"}, {540, "35'829.09"}}},
          {"Zins vor Verrechnungssteuer", {{300, "3.85"}, {400, "492.87"}, {540, "333.85"}}},
          {"Verrechnungssteuer", {{300, "0.00"}, {400, "172.50"}}},
          {"Zins nach Verrechnungssteuer", {{300, "3.85"}, {400, "320.37"}, {540, "333.85"}}}},
         {{{"taxValue", "8780.71"}, {"incomeWithoutWithholding", "3.85"}},
          {{"taxValue", "66910.87"}, {"incomeWithWithholding", "492.87"}}}},
        {"a section of pillar 3a in a table",
         {{"Estratto di sostanza e reddito al 31.12.2024"},
          {"Conto", {{330, "Avere CHF"}, {440, "Interessi lordi"}, {540, "Imp. prev."}}},
          {"Conto privato CH9300762011623852957", {{330, "6'445.43"}, {440, "5.80"}}},
          {"Previdenza vincolata pilastro 3a"},
          {"Conto previdenza 3.111", {{330, "59'906.65"}, {440, "364.45"}}}},
         {{{"taxValue", "6445.43"}, {"incomeWithoutWithholding", "5.8"}}}},
        {"what rows are about stands behind their amounts",
         {{"Zinsausweis 2024"},
          {"",
           {{150, "Guthaben"},
            {250, "Schuld"},
            {330, "Habenzins"},
            {420, "Sollzins"},
            {540, "Bezeichnung"}}},
          {"", {{150, "4'393.64"}, {330, "2.00"}, {540, "Privatkonto"}}},
          {"", {{250, "270'000.00"}, {420, "4'185.00"}, {540, "Festhypothek"}}},
          {"",
           {{150, "4'393.64"},
            {250, "270'000.00"},
            {330, "2.00"},
            {420, "4'185.00"},
            {540, "Total in CHF"}}}},
         {{{"taxValue", "4393.64"}, {"incomeWithoutWithholding", "2"}},
          {{"amount", "270000"}, {"interest", "4185"}}}},
        {"parts of a list of securities have their own totals",
         {{"Valeurs fiscales et rendements du dépôt 2024"},
          {"Désignation",
           {{260, "ISIN"},
            {310, "Nombre"},
            {360, "Cours"},
            {440, "Valeur fiscale"},
            {490, "avec IA"},
            {550, "sans IA"}}},
          {"Manufacture Muster SA CH0063448481",
           {{310, "173"}, {360, "136.30"}, {440, "23'579.90"}, {490, "563.55"}}},
          {"Sous-total actions suisses", {{440, "23'579.90"}, {490, "563.55"}}},
          {"Great Water Inc US0748969435",
           {{310, "170"}, {360, "59.49"}, {440, "10'113.30"}, {550, "269.00"}}},
          {"Total du dépôt", {{440, "33'693.20"}, {490, "563.55"}, {550, "269.00"}}}},
         {{{"quantity", "173"}, {"taxValue", "23579.9"}, {"incomeWithWithholding", "563.55"}},
          {{"quantity", "170"}, {"taxValue", "10113.3"}, {"incomeWithoutWithholding", "269"}}}},
        {"negative interest is none, the new balance counts",
         {{"Abschlussrechnung Kontokorrent 2024"},
          {"Kontokorrent, IBAN CH93 0076 2011 6238 5295 7"},
          {"Saldo vor Abschluss", {{540, "49'768.11"}}},
          {"Negativzins", {{540, "246.40"}}},
          {"Neuer Saldo zu Ihren Gunsten", {{540, "49'521.71"}}}},
         {{{"taxValue", "49521.71"}}}},
        {"fees below a table of Liechtenstein, which withholds nothing",
         {{"Vermögens- und Ertragsausweis 2024"},
          {"Position", {{400, "Steuerwert CHF"}, {540, "Bruttoertrag CHF"}}},
          {"Kontokorrent LI21 0881 0000 2324 0130 0", {{400, "55'682.54"}, {540, "291.90"}}},
          {"Wertschriftendepot 44.5227.5", {{400, "202'066.50"}, {540, "3'735.35"}}},
          {"Vermögen total", {{400, "257'749.04"}, {540, "4'027.25"}}},
          {"Auf die Erträge wurde keine Steuer erhoben. Depotgebühren 2024:", {{540, "614.25"}}}},
         {{{"taxValue", "55682.54"}, {"incomeWithoutWithholding", "291.9"}},
          {{"taxValue", "202066.5"}, {"incomeWithoutWithholding", "3735.35"}}}},
    };
}

Records amountsOf(const ScanResult& result) {
    Records amounts(result.records.size());
    for (const Proposal& proposal : result.proposals) {
        for (const char* field : {"taxValue", "quantity", "incomeWithWithholding",
                                  "incomeWithoutWithholding", "amount", "interest"}) {
            if (proposal.field == field) {
                amounts[static_cast<std::size_t>(proposal.recordIndex)][field] = proposal.value;
            }
        }
    }
    return amounts;
}

void expectRead(const std::vector<Paper>& papers) {
    for (const Paper& paper : papers) {
        DrawnPage page;
        page.text(60, 40, "Muster Bank AG");
        double y = 80;
        for (const TableRow& row : paper.rows) {
            page.text(60, y, row.words);
            for (const auto& [edge, words] : row.cells) {
                page.right(edge, y, words);
            }
            y += 16;
        }
        EXPECT_EQ(amountsOf(page.proposed()), paper.amounts) << paper.what;
    }
}

TEST(Accounts, AreReadFromTheirTables) { expectRead(papers()); }

TEST(Accounts, WhatIsKeptAndWhatIsOwedAreToldApart) { expectRead(mixedPapers()); }

TEST(Accounts, WhatStandsBesideThemIsNone) { expectRead(besidePapers()); }

} // namespace
} // namespace fiscarel
