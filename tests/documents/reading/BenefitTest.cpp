#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

struct Line {
    const char* label;
    const char* amount = "";
};

/// A paper and all amounts that it may propose.
struct Paper {
    const char* name;
    std::vector<Line> lines;
    std::vector<std::string> wanted; ///< "field=value confidence"
};

std::vector<std::string> amountsOf(const Paper& paper) {
    DrawnPage page;
    for (const Line& line : paper.lines) {
        page.line(line.label, line.amount);
    }
    const ScanResult result = page.proposed();
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
    };
}

TEST(Benefits, onlyWhatIsOnesOwnAndTaxedIsProposed) {
    for (const Paper& paper : papers()) {
        EXPECT_EQ(amountsOf(paper), paper.wanted) << paper.name;
    }
}

} // namespace
} // namespace fiscarel
