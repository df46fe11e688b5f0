// What stands between the gross and the net wage: contributions, what else is kept back, and signs.

#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

std::vector<std::string> wageAt(const std::string& confidence) {
    return {"grossSalary=62000 " + confidence, "socialContributions=4500 " + confidence,
            "pensionContributions=3100 " + confidence, "netSalaryOverride=54400 " + confidence};
}

TEST(WageParts, whatElseIsKeptBackIsNoContribution) {
    struct Names {
        const char* words;
        const char* confidence; ///< less where they name a risk or a fund too
    };
    for (const Names& row : {Names{"Quellensteuer", "high"},
                             Names{"Miete Personalzimmer", "high"},
                             Names{"Rückzahlung Darlehen", "high"},
                             Names{"Lohnpfändung", "high"},
                             Names{"Parkplatz", "high"},
                             Names{"Krankenkasse (KVG)", "high"},
                             Names{"Impôt à la source", "high"},
                             Names{"Prêt du personnel", "high"},
                             Names{"Place de parc", "high"},
                             Names{"Loyer", "high"},
                             Names{"Acompte", "high"},
                             Names{"Imposta alla fonte", "high"},
                             Names{"Affitto", "high"},
                             Names{"Pignoramento salario", "high"},
                             Names{"Posteggio", "high"},
                             Names{"Einzahlung Säule 3a", "high"},
                             Names{"Pilastro 3a", "high"},
                             Names{"Einzahlung private Vorsorge 3a", "medium"},
                             Names{"Prévoyance liée (pilier 3a)", "medium"},
                             Names{"Previdenza vincolata", "medium"},
                             Names{"Gebundene Vorsorge", "medium"},
                             Names{"Assurance maladie LAMal (prime)", "medium"},
                             Names{"Malattia (cassa malati LAMal)", "medium"},
                             Names{"Vorschuss Unfallkosten", "medium"},
                             Names{"Saisie de salaire pour accident de voiture", "medium"},
                             Names{"Remboursement avance maladie", "medium"},
                             Names{"Rimborso anticipo infortunio", "medium"},
                             Names{"Unfallversicherung Auto (Privatanteil)", "medium"}}) {
        DrawnPage page;
        page.line("Lohnbescheinigung 2024").line("Bruttolohn", "62’000.00");
        page.line("AHV/IV/EO/ALV", "-4’500.00").line(row.words, "-2’000.00");
        page.line("BVG", "-3’100.00").line("Nettolohn", "52’400.00");
        EXPECT_EQ(wageOf(page.proposed()), wageAt(row.confidence)) << row.words;
    }
}

TEST(WageParts, aRiskAloneOnlySuggestsAContribution) {
    for (const char* risk : {"Unfall", "Assurance maladie", "Assurance accidents", "Infortuni"}) {
        DrawnPage page;
        page.line("Lohnbescheinigung 2024").line("Bruttolohn", "62’000.00");
        page.line("AHV/IV/EO", "-4’000.00").line(risk, "-500.00");
        page.line("BVG", "-3’100.00").line("Nettolohn", "54’400.00");
        EXPECT_EQ(wageOf(page.proposed()), wageAt("medium")) << risk;
    }
}

TEST(WageParts, whatNoWordsNameMayBeTooMuchForAContribution) {
    const std::vector<std::string> parts{"grossSalary=62000 medium",
                                         "pensionContributions=3100 medium"};
    for (const char* words :
         {"Abzug 7", "Retenue div.", "AHV und Quellensteuer", "Assurance maladie"}) {
        DrawnPage page;
        page.line("Lohnbescheinigung 2024").line("Bruttolohn", "62’000.00");
        page.line("AHV/IV/EO", "-3’500.00").line("ALV", "-700.00").line("NBU", "-300.00");
        page.line(words, "-2’600.00").line("BVG", "-3’100.00").line("Nettolohn", "51’800.00");
        EXPECT_EQ(wageOf(page.proposed()), parts) << words;
    }
}

TEST(WageParts, aColumnOfWhatElseIsKeptBackIsNoContribution) {
    for (const char* heading : {"Miete", "Quellenst.", "Impôt source", "Darlehen", "Acconti"}) {
        DrawnPage page;
        page.line("Jahreslohn 2024").line("Mitarbeiterin Anna Muster");
        const auto row = [&](double y, const std::vector<const char*>& words) {
            page.text(40, y, words[0]);
            for (std::size_t i = 1; i < words.size(); ++i) {
                page.right(100 + 88 * static_cast<double>(i), y, words[i]);
            }
        };
        row(110, {"Name", "Bruttolohn", "AHV/ALV", "BVG", heading, "Nettolohn"});
        row(128, {"Anna Muster", "62’000.00", "4’500.00", "3’100.00", "6’000.00", "48’400.00"});
        EXPECT_EQ(wageOf(page.proposed()), wageAt("high")) << heading;
    }
}

TEST(WageParts, aCancelledWageIsNone) {
    struct Signs {
        const char* gross;
        const char* social;
        const char* pension;
        const char* net;
    };
    for (const Signs& row : {Signs{"-62’000.00", "-4’500.00", "-3’100.00", "-54’400.00"},
                             Signs{"62’000.00-", "4’500.00-", "3’100.00-", "54’400.00-"},
                             Signs{"−62’000.00", "4’500.00", "3’100.00", "−54’400.00"}}) {
        DrawnPage page;
        page.line("Lohnausweis 2024").line("8. Bruttolohn total", row.gross);
        page.line("9. Beiträge AHV/IV/EO/ALV/NBUV", row.social);
        page.line("10.1 Ordentliche Beiträge", row.pension).line("11. Nettolohn", row.net);
        const ScanResult result = page.proposed();
        const Proposal* gross = proposalOf(result, "grossSalary");
        ASSERT_NE(gross, nullptr) << row.gross;
        EXPECT_EQ(gross->confidence, Proposal::Confidence::low) << row.gross;
        ASSERT_EQ(gross->checks.size(), 1U) << row.gross;
        EXPECT_TRUE(gross->checks[0].text.starts_with("Bruttolohn und Nettolohn sind positiv"));
    }
    DrawnPage list;
    list.line("Lohnkonto 2024").line("Bruttolohn", "-62’000.00").line("AHV/IV/EO", "-4’500.00");
    list.line("Pensionskasse", "-3’100.00").line("Nettolohn", "-54’400.00");
    for (const Proposal& proposal : list.proposed().proposals) {
        EXPECT_NE(proposal.confidence, Proposal::Confidence::high) << proposal.field;
        EXPECT_NE(proposal.value, "62000");
    }
}

} // namespace
} // namespace fiscarel
