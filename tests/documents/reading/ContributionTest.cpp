#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

struct Paper {
    const char* what;
    std::vector<Line> lines;
    std::vector<std::string> wanted; ///< "field=value" in the order of the records
};

std::vector<std::string> proposedFor(const std::vector<Line>& lines, const std::string& field) {
    const ScanResult result = proposedFrom(lines);
    std::vector<std::string> values;
    for (const Proposal& proposal : result.proposals) {
        if (proposal.field == field) {
            values.push_back(proposal.value);
        }
    }
    return values;
}

TEST(Contributions, instalmentsAndPaymentsOfOtherYearsAreNotWhatWasPaidInTheYear) {
    const std::vector<Paper> papers{
        {"quarterly premiums with their sum, one of them due on the year's first day",
         {{"Police de prévoyance liée 3a: primes 2024"},
          {"Prime échue le 01.01.2024", "750.00"},
          {"Prime échue le 01.04.2024", "750.00"},
          {"Prime échue le 01.07.2024", "750.00"},
          {"Prime échue le 01.10.2024", "750.00"},
          {"Cotisations 3a payées", "3’000.00"}},
         {"3000"}},
        {"the same, their sum called a total alone",
         {{"Vorsorgepolice 3a: Prämien 2024"},
          {"Prämie fällig am 01.01.2024", "750.00"},
          {"Prämie fällig am 01.04.2024", "750.00"},
          {"Prämie fällig am 01.07.2024", "750.00"},
          {"Total", "2’250.00"}},
         {"2250"}},
        {"a list that begins with payments of the year before",
         {{"Bescheinigung Säule 3a, Steuerjahr 2024"},
          {"28.12.2023 Einzahlung", "600.00"},
          {"15.03.2024 Einzahlung", "1’000.00"},
          {"20.09.2024 Einzahlung", "2’000.00"},
          {"Im Jahr 2024 einbezahlt", "3’000.00"}},
         {"3000"}},
        {"an amount told twice is the only one",
         {{"Bescheinigung Säule 3a 2024"},
          {"Ihr Betrag für die Steuererklärung", "3’000.00"},
          {"Betrag", "3’000.00"}},
         {"3000"}},
        {"told three times it is an instalment of which nothing is known",
         {{"Bescheinigung Säule 3a 2024"},
          {"März", "750.00"},
          {"Juni", "750.00"},
          {"September", "750.00"}},
         {}},
        {"instalments whose sum is not told",
         {{"Police de prévoyance liée 3a: primes 2024"},
          {"Prime échue le 01.04.2024", "750.00"},
          {"Prime échue le 01.07.2024", "750.00"},
          {"Prime échue le 01.10.2024", "750.00"},
          {"Valeur de rachat au 31.12.2024", "31’475.65"}},
         {}},
        {"tied policies beside a free one",
         {{"Orsera Vita, compagnia di assicurazioni sulla vita"},
          {"Certificato per le imposte 2024: premi incassati"},
          {"14.590251 Pilastro 3a (vincolata)", "2’000.00"},
          {"53.383419 Pilastro 3a (vincolata)", "1’000.00"},
          {"68.230122 Pilastro 3b (libera)", "1’898.90"},
          {"Contributi 3a deducibili", "3’000.00"},
          {"Totale incassato", "4’898.90"}},
         {"3000"}},
        {"spouses with the sum of their own contracts, then that of both",
         {{"Beiträge an die gebundene Selbstvorsorge, Steuerjahr 2024"},
          {"Beat und Monika Muster"},
          {"Beat Muster, AHV 756.1234.5678.97"},
          {"Vertrag A, Einmalzahlung", "1’000.00"},
          {"Vertrag B, Monatsprämien", "2’000.00"},
          {"Einbezahlt durch Beat", "3’000.00"},
          {"Monika Muster, AHV 756.9217.0769.85"},
          {"Vertrag C, Einmalzahlung", "500.00"},
          {"Vertrag D, Monatsprämien", "1’500.00"},
          {"Einbezahlt durch Monika", "2’000.00"},
          {"Zusammen für beide", "5’000.00"}},
         {"3000", "2000"}},
    };
    for (const Paper& row : papers) {
        EXPECT_EQ(proposedFor(row.lines, "pillar3a"), row.wanted) << row.what;
    }
}

TEST(Contributions, theRowOfTheYearCountsAmongThoseOfOthers) {
    const std::vector<Paper> papers{
        {"the year before below",
         {{"Attestation 3e pilier A 2024"},
          {"Versements 2024", "3’000.00"},
          {"Versements 2023", "2’500.00"}},
         {"3000"}},
        {"years one below the other",
         {{"Bescheinigung Säule 3a, Steuerjahr 2024"},
          {"Jahr", "Einzahlungen"},
          {"2023", "2’500.00"},
          {"2024", "3’000.00"},
          {"2025", "500.00"}},
         {"3000"}},
        {"two years that a total adds up",
         {{"Bescheinigung Säule 3a, Steuerjahr 2024"},
          {"Beitrag 2023", "1’000.00"},
          {"Beitrag 2024", "2’000.00"},
          {"Total Beiträge", "3’000.00"}},
         {"3000"}},
    };
    for (const Paper& row : papers) {
        EXPECT_EQ(proposedFor(row.lines, "pillar3a"), row.wanted) << row.what;
    }
}

TEST(Contributions, whatAnEmployerGotIsNoAllowanceOfTheInsured) {
    for (const auto& [employer, insured] :
         {std::pair{"à l'employeur", "directement à la personne assurée"},
          std::pair{"al datore di lavoro", "direttamente alla persona assicurata"},
          std::pair{"an den Arbeitgeber", "direkt an die versicherte Person"}}) {
        DrawnPage page;
        page.line("Krankentaggeldversicherung: Steuerbescheinigung 2024").line("Anna Muster");
        const auto row = [&](double y, const char* label, const char* days, const char* rate,
                             const char* amount) {
            page.text(60, y, label).right(330, y, days).right(420, y, rate).right(540, y, amount);
        };
        row(130, "Taggelder", "Tage", "Ansatz", "CHF");
        row(146, employer, "84", "127.95", "10’747.80");
        row(162, insured, "101", "127.95", "12’922.95");
        row(178, "Total", "185", "", "23’670.75");
        const ScanResult result = page.proposed();
        EXPECT_EQ(valueOf(result, "dailyAllowances"), "12922.95") << employer;
    }
}

} // namespace
} // namespace fiscarel
