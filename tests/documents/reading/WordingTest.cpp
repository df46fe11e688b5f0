#include "tests/documents/reading/DrawnPage.h"
#include "tests/documents/reading/Wordings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

TEST(Wording, ofEveryKindIsUnderstoodInAllLanguages) {
    for (const Wording& wording : wordings()) {
        const ScanResult result = proposedFrom(wording.lines);
        const std::string name = std::string(wording.lines[1].label) + ": " + wording.field;
        EXPECT_EQ(result.proposedKind, wording.kind) << name;
        const Proposal* found = nullptr;
        for (const Proposal& one : result.proposals) {
            found = found == nullptr && one.field == wording.field ? &one : found;
        }
        EXPECT_NE(found, nullptr) << name;
        if (found == nullptr) {
            continue;
        }
        EXPECT_EQ(found->value, wording.value) << name;
    }
}

TEST(Wording, aLabelAloneIsNeverSure) {
    for (const Wording& wording : wordings()) {
        for (const Proposal& one : proposedFrom(wording.lines).proposals) {
            const bool isSeconded = std::ranges::any_of(one.checks, &ProposalCheck::passed);
            EXPECT_TRUE(one.confidence != Proposal::Confidence::high || isSeconded)
                << wording.lines[1].label << ": " << one.field << " " << one.value;
        }
    }
}

TEST(Wording, ofWhatIsOnlyPossibleOrPartOfItGivesNothing) {
    struct Trap {
        const char* field;
        const char* value; ///< must not be proposed
        std::vector<Line> lines;
    };
    const std::vector<Trap> traps{
        {"pillar3a",
         "7258",
         {{"Vorsorgestiftung Säntis"},
          {"Bescheinigung Säule 3a 2025"},
          {"Der maximale Beitrag beträgt CHF 7'258.00."},
          {"Saldo am 31.12.2025", "12'000.00"}}},
        {"pensionBuyIn",
         "48000",
         {{"Pensionskasse der Ostschweiz"},
          {"Vorsorgeausweis 2025"},
          {"Möglicher Einkauf in die reglementarischen Leistungen", "48'000.00"}}},
        {"gross",
         "300",
         {{"Muster Krankenkasse"},
          {"Prämienübersicht 2024"},
          {"Prämien KVG", "4'000.00"},
          {"Gewählte Franchise", "300.00"}}},
        {"imputedRentalValue",
         "20000",
         {{"Steueramt Muster"},
          {"Veranlagungsverfügung 2024"},
          {"Eigenmietwert der Liegenschaft", "20'000.00"},
          {"Verkehrswert der Liegenschaft", "700'000.00"},
          {"Steuerbares Einkommen", "90'000.00"}}},
        {"sumInsured",
         "763000",
         {{"Brandassekuranz Muster"},
          {"Prämienrechnung 2024"},
          {"Versicherungssumme des Gebäudes", "763'000.00"},
          {"Prämie", "244.15"}}},
        {"childcareCosts",
         "9420",
         {{"Kita Muster"},
          {"Betreuungskosten 2024"},
          {"Total Betreuungskosten", "9'420.00"},
          {"Subvention der Gemeinde", "1'000.00"},
          {"Ihr Anteil", "8'420.00"}}},
        {"healthInsurancePremiums",
         "3700",
         {{"Muster Krankenkasse"},
          {"Prämienübersicht 2024"},
          {"Grundversicherung KVG", "4'000.00"},
          {"Zusatzversicherung VVG", "700.00"},
          {"Prämienverbilligung", "1'000.00"},
          {"Total Prämien", "3'700.00"}}},
    };
    for (const Trap& trap : traps) {
        for (const Proposal& one : proposedFrom(trap.lines).proposals) {
            EXPECT_FALSE(one.field == trap.field && one.value == trap.value)
                << trap.lines[1].label << ": " << one.value;
        }
    }
}

} // namespace
} // namespace fiscarel
