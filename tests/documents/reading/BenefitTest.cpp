#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

/// A paper and all amounts that it may propose.
struct Paper {
    const char* name;
    std::vector<Line> lines;
    std::vector<std::string> wanted; ///< "field=value confidence"
};

std::vector<std::string> amountsOf(const Paper& paper) {
    const ScanResult result = proposedFrom(paper.lines);
    std::vector<std::string> values;
    for (std::size_t i = 0; i < result.records.size(); ++i) {
        for (const std::string& value : valuesOf(result, i)) {
            const bool isText = value.starts_with("provider") || value.starts_with("label")
                                || value.starts_with("company") || value.starts_with("date");
            if (!isText) {
                values.push_back(value);
            }
        }
    }
    return values;
}

std::vector<Paper> papers() {
    return {
        {"supplementary benefits are not taxed",
         {{"Sozialversicherungsanstalt Muster"},
          {"Zusammenstellung der Leistungen 2024"},
          {"Altersrente der AHV 12 x 2’189.00", "26’268.00"},
          {"Ergänzungsleistung zur AHV 12 x 679.00", "8’148.00"},
          {"Rente und EL", "34’416.00"}},
         {"ahvPension=26268 high"}},
        {"what is set off is a pension too",
         {{"Sozialversicherungsanstalt Muster"},
          {"Steuerbescheinigung Invalidenrente 2024"},
          {"Nachzahlung 9 Monate", "11’403.00"},
          {"Laufende Rente 12 Monate", "15’408.00"},
          {"Renten, im Jahr 2024 zu versteuern", "26’811.00"},
          {"Verrechnet mit Vorschüssen", "-4’561.00"},
          {"An Sie überwiesen", "22’250.00"}},
         {"ahvPension=26811 high"}},
        {"what is left of allowances for the unemployed",
         {{"Arbeitslosenkasse Muster"},
          {"Bescheinigung Taggelder 2024"},
          {"Taggelder brutto", "22’858.05"},
          {"AHV/IV/EO", "-1’211.30"},
          {"NBU", "-571.35"},
          {"Taggelder netto", "21’075.40"}},
         {"unemployment=21075.4 medium"}},
        {"a couple's pensions, told by a table of their names",
         {{"Cassa cantonale di compensazione Muster"},
          {"Rendite AVS: attestato per le imposte 2024"},
          {"Aldo Muster 12 x 1’932.00", "23’184.00"},
          {"Bice Muster 12 x 1’848.00", "22’176.00"},
          {"Importo versato alla coppia", "45’360.00"}},
         {"ahvPension=23184 high", "ahvPension=22176 high"}},
        {"a couple's pensions in a sentence",
         {{"Caisse de compensation Muster"},
          {"Attestation de rentes AVS 2024"},
          {"En 2024, nous avons versé à Monsieur Aldo Muster des rentes de vieillesse pour"},
          {"un total de Fr. 21'000.00 et à Madame Bice Muster des rentes pour un total de"},
          {"Fr. 19'200.00."}},
         {"ahvPension=21000 medium", "ahvPension=19200 medium"}},
        {"what begins after the year is none of it",
         {{"Fondation de prévoyance Muster"},
          {"Rentes versées en 2024"},
          {"Rente mensuelle", "800.00"},
          {"Nombre de mensualités 8", ""},
          {"Rentes versées en 2024", "6’400.00"},
          {"Rente annuelle complète dès 2025", "9’600.00"}},
         {"amount=6400 high"}},
        {"fees for a seat on a board, without expenses",
         {{"Muster Beteiligungs-Anstalt"},
          {"Ihr Mandat als Mitglied des Verwaltungsrats: Vergütungen 2024"},
          {"Feste Jahresvergütung", "11’500.00"},
          {"Sitzungsgelder", "1’500.00"},
          {"Honorar total", "13’000.00"},
          {"Spesen", "156.75"},
          {"Ausbezahlt", "13’156.75"}},
         {"boardFees=13000 medium"}},
        {"what a meeting is to decide on is no income",
         {{"Muster Holding AG"},
          {"Einladung zur Generalversammlung 2024"},
          {"Traktandum 5: Verwaltungsratshonorare"},
          {"Präsidium", "20’000.00"},
          {"Mitglieder", "30’000.00"},
          {"Total", "50’000.00"}},
         {}},
        {"what an employer got is in the wage",
         {{"Ausgleichskasse Muster"},
          {"Mutterschaftsentschädigung 2024"},
          {"28 Tage, an den Arbeitgeber", "4’741.80"},
          {"70 Tage, an Sie", "11’854.50"},
          {"Total", "16’596.30"}},
         {"dailyAllowances=16596.3 low"}},
        {"allowances among what an insurer paid after an accident",
         {{"Muster Infortuni"},
          {"Attestazione per l'autorità fiscale: prestazioni LAINF 2024"},
          {"Indennità giornaliere versate a Lei, imponibili", "7’301.55"},
          {"Indennità giornaliere versate al datore di lavoro", "3’401.40"},
          {"Spese di cura, non imponibili", "1’084.90"},
          {"Totale delle prestazioni", "11’787.85"}},
         {"dailyAllowances=7301.55 medium"}},
        {"a patient's share beside what no insurer pays",
         {{"Spitex Muster"},
          {"Rechnung Pflegeleistungen Mai 2024"},
          {"Patientenbeteiligung", "414.45"},
          {"Pflegematerial, nicht kassenpflichtig", "77.00"},
          {"Betrag zu Ihren Lasten, zahlbar bis 30.06.2024", "491.45"}},
         {"gross=491.45 high"}},
        {"an offer is no policy",
         {{"Muster Leben AG"},
          {"Offerte Lebensversicherung"},
          {"Jahresprämie", "1’800.00"},
          {"Todesfallkapital", "39’600.00"},
          {"Rückkaufswert 2029", "7’020.00"},
          {"Unverbindlich, kein Vertrag"}},
         {}},
        {"sums for accidents are no wealth",
         {{"Sicherheitsverein Muster"},
          {"Unfallversicherung: Prämienbestätigung 2024"},
          {"Todesfallkapital", "80’000.00"},
          {"Anna Muster", "258.95"},
          {"Beat Muster", "78.65"},
          {"Bezahlte Prämie Unfallversicherung 2024", "337.60"}},
         {"accidentInsurancePremiums=337.6 high"}},
        {"a rate in brackets proves a pension",
         {{"Istituto delle assicurazioni sociali"},
          {"Attestazione fiscale 2024 - rendita di vecchiaia"},
          {"Le abbiamo versato nel 2024 una rendita di vecchiaia AVS per complessivi"},
          {"franchi 26988.00 (dodici mensilità di franchi 2249.00). Inoltre un assegno per"},
          {"grandi invalidi di franchi 3024.00, che non va dichiarato."}},
         {"ahvPension=26988 high"}},
        {"an annuity is income and its value wealth",
         {{"Muster Leben AG"},
          {"Bescheinigung über Rentenleistungen 2024"},
          {"Aus der Leibrentenversicherung Nr. LR 40-7719 sind Ihnen im Jahr 2024 zwei"},
          {"Halbjahresrenten zu je CHF 7’625.00 ausbezahlt worden, gesamthaft CHF 15’250.00."},
          {"Rückkaufswert am Jahresende", "224’000.00"}},
         {"amount=15250 high", "surrenderValue=224000 medium"}},
        {"vested benefits are no wealth yet",
         {{"Fondazione Muster"},
          {"Estratto conto di libero passaggio al 31.12.2024"},
          {"Avere di libero passaggio al 01.01.2024", "79’884.95"},
          {"Interesse 0,25 %", "199.70"},
          {"Avere di libero passaggio al 31.12.2024", "80’084.65"}},
         {}},
        {"what was certified before is left out",
         {{"Caisse de pensions Muster"},
          {"Rachat d’années de cotisations 2024 – attestation fiscale"},
          {"Nous certifions avoir reçu de Anna Muster, en date du 12 décembre 2024, un montant"},
          {"de CHF 14’000.00 à titre de rachat facultatif dans la prévoyance professionnelle."},
          {"Un rachat de CHF 5’000.00 déjà attesté pour 2023 n’est pas compris."}},
         {"pensionBuyIn=14000 medium"}},
        {"a share that was taken off before is no cost",
         {{"Asilo nido Muster"},
          {"Dichiarazione 2024"},
          {"Rette di custodia, già dedotto il sussidio cantonale", "6’676.50"},
          {"Pasti e merende", "538.30"},
          {"Sussidio cantonale riconosciuto", "998.35"}},
         {"childcareCosts=6676.5 medium", "childcareProvider=Asilo nido Muster medium"}},
        {"a free policy beside tied ones",
         {{"Muster Vita SA"},
          {"Premi pagati nel 2024 – attestato per le imposte"},
          {"Contratto 1: Polizza mista", "n. 71.402.682"},
          {"Forma di previdenza: 3a (vincolata)"},
          {"Premi pagati dal 01.01.2024 al 31.12.2024", "2’375.00"},
          {"Contratto 2: Polizza legata a fondi", "n. 13.362.579"},
          {"Forma di previdenza: 3a (vincolata)"},
          {"Premi pagati dal 01.01.2024 al 31.12.2024", "2’023.90"},
          {"Totale premi pilastro 3a deducibili", "4’398.90"},
          {"Contratto 3: Assicurazione sulla vita a capitale", "n. 03.215.581"},
          {"Forma di previdenza: 3b (libera) – senza valore di riscatto"},
          {"Premi pagati dal 01.01.2024 al 31.12.2024", "874.10"}},
         {"pillar3a=4398.9 high", "lifeInsurancePremiums=874.1 medium"}},
    };
}

TEST(Benefits, onlyWhatIsOnesOwnAndTaxedIsProposed) {
    for (const Paper& paper : papers()) {
        EXPECT_EQ(amountsOf(paper), paper.wanted) << paper.name;
    }
}

} // namespace
} // namespace fiscarel
