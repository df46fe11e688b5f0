#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

struct Line {
    const char* label;
    const char* amount = "";
};

/// A document in words of its own, its kind, and the amount that it is kept for.
struct Wording {
    Kind kind;
    const char* field;
    const char* value;
    std::vector<Line> lines;
};

std::vector<Wording> provision() {
    using enum Kind;
    return {
        {saeule3a,
         "pillar3a",
         "7056",
         {{"Vorsorgestiftung Säntis"},
          {"Bescheinigung für die Steuererklärung: Säule 3a"},
          {"Sehr geehrte Frau Muster"},
          {"Wir bestätigen, dass Sie im Jahr 2025 Beiträge von CHF 7'056.00"},
          {"auf Ihr Vorsorgekonto einbezahlt haben. Der Saldo betrug am 31.12.2025"},
          {"CHF 41'230.55."}}},
        {saeule3a,
         "pillar3a",
         "6883",
         {{"Fondation de prévoyance du Lac"},
          {"Attestation pilier 3a 2023"},
          {"Versements effectués en 2023", "6 883.00"},
          {"Intérêts", "41.20"},
          {"Avoir au 31.12.2023", "52 000.10"}}},
        {saeule3a,
         "pillar3a",
         "4200",
         {{"Fondazione di previdenza Monte"},
          {"Certificato previdenza vincolata 2024"},
          {"Versamenti effettuati nel 2024", "4'200.00"},
          {"Avere di previdenza al 31.12.2024", "20'100.00"}}},
        {saeule3a,
         "pillar3a",
         "2400",
         {{"Muster Leben AG"},
          {"Vorsorgepolice 3a: Prämienbestätigung 2024"},
          {"CHF 2'400.00", "überwiesene Prämien 2024"}}},
        {pensionskasse,
         "pensionBuyIn",
         "15000",
         {{"Pensionskasse der Ostschweiz"},
          {"Bestätigung Ihres Einkaufs 2024"},
          {"Am 12.11.2024 haben Sie für den Einkauf fehlender Beitragsjahre CHF 15'000.00"},
          {"überwiesen. Danach beträgt das Potenzial noch CHF 48'000.00."}}},
        {pensionskasse,
         "pensionBuyIn",
         "12500",
         {{"Caisse de pensions Muster"},
          {"Attestation de rachat facultatif 2024"},
          {"Rachat effectué le 4 octobre 2024", "12'500.00"},
          {"Rachat encore possible", "33'000.00"}}},
        {lohnausweis,
         "amount",
         "26400",
         {{"Ausgleichskasse des Kantons"},
          {"Rentenbescheinigung 2024"},
          {"Im Jahr 2024 wurden Ihnen AHV-Renten von CHF 26'400.00 ausbezahlt."}}},
        {versicherung,
         "surrenderValue",
         "48210.35",
         {{"Muster Leben AG"},
          {"Steuerbescheinigung Lebensversicherung 2024"},
          {"Police Nr. 12.345.678"},
          {"Versichertes Kapital im Todesfall", "100'000.00"},
          {"Rückkaufswert einschliesslich Überschussanteile", "48'210.35"}}},
        {liegenschaft,
         "taxValue",
         "712000",
         {{"Gemeinde Musterwil, Grundbuchamt"},
          {"Eröffnung der amtlichen Schätzung"},
          {"Grundstück Nr. 411"},
          {"Neuer Verkehrswert", "712'000"},
          {"Neuer Mietwert", "19'080"}}},
    };
}

std::vector<Wording> bills() {
    using enum Kind;
    return {
        {arztrechnung,
         "gross",
         "312.4",
         {{"Cabinet médical du Parc"},
          {"Note d'honoraires"},
          {"Patient: Anne Muster"},
          {"00.0010 Consultation, première période", "112.40"},
          {"00.0020 Consultation, par période", "200.00"},
          {"Montant dû", "312.40"}}},
        {arztrechnung,
         "gross",
         "188",
         {{"Studio dentistico Lago"},
          {"Nota d'onorario"},
          {"Paziente: Anna Muster"},
          {"Igiene dentale", "188.00"},
          {"Totale a vostro carico", "188.00"}}},
        {spende,
         "amount",
         "250",
         {{"Verein Bergwald"},
          {"Danke für Ihre Spende"},
          {"Liebe Frau Muster"},
          {"Ihre Gabe von CHF 250.– ist am 3. Mai 2024 bei uns eingegangen."}}},
        {spende,
         "amount",
         "600",
         {{"Fondation pour les enfants"},
          {"Attestation fiscale: dons 2024"},
          {"Nous certifions avoir reçu de votre part des dons d'un montant de CHF 600.00."}}},
        {spende,
         "amount",
         "120",
         {{"Associazione Montagna"},
          {"Conferma di donazione 2024"},
          {"Elargizioni ricevute", "120.00"}}},
        {kinderbetreuung,
         "childcareCosts",
         "8420",
         {{"Kindertagesstätte Sonnenschein"},
          {"Bescheinigung der Betreuungskosten 2024"},
          {"Kosten der Betreuung", "9'420.00"},
          {"abzüglich Beitrag der Gemeinde", "1'000.00"},
          {"Von Ihnen bezahlt", "8'420.00"}}},
        {kinderbetreuung,
         "childcareCosts",
         "5310.5",
         {{"Crèche Les Lutins"},
          {"Attestation pour frais de garde 2024"},
          {"Montant versé par les parents", "5'310.50"}}},
        {weiterbildung,
         "furtherEducation",
         "2950",
         {{"Fachhochschule Muster"},
          {"Bestätigung über bezahlte Studiengelder"},
          {"Sie haben im Jahr 2024 Gebühren von CHF 2'950.00 für den Studiengang bezahlt."}}},
        {weiterbildung,
         "furtherEducation",
         "890",
         {{"Scuola Muster"},
          {"Fattura: corso di formazione continua"},
          {"Quota di partecipazione", "890.00"}}},
    };
}

std::vector<Wording> statements() {
    using enum Kind;
    return {
        {krankenkasse,
         "healthInsurancePremiums",
         "5280",
         {{"Muster Gesundheitskasse"},
          {"Zusammenstellung für die Steuererklärung 2024"},
          {"Obligatorische Krankenpflegeversicherung", "4'680.00"},
          {"Zusatzversicherungen VVG", "600.00"}}},
        {krankenkasse,
         "healthInsurancePremiums",
         "4300.8",
         {{"Caisse maladie Muster"},
          {"Attestation fiscale 2024"},
          {"Primes facturées LAMal et LCA", "4'300.80"},
          {"Participation aux coûts", "700.00"}}},
        {bankauszug,
         "taxValue",
         "18250.4",
         {{"Regionalbank Muster"},
          {"Steuerbescheinigung 2024"},
          {"Mitgliederkonto CH93 0076 2011 6238 5295 7"},
          {"Vermögen am 31. Dezember 2024", "18'250.40"},
          {"Ertrag brutto", "12.35"}}},
        {bankauszug,
         "incomeWithoutWithholding",
         "12.35",
         {{"Banque Muster"},
          {"Attestation d'intérêts et de capital 2024"},
          {"Compte jeunesse CH93 0076 2011 6238 5295 7"},
          {"Capital au 31.12.2024", "18'250.40"},
          {"Rendement brut", "12.35"}}},
        {bankauszug,
         "interest",
         "6120",
         {{"Bank Muster"},
          {"Bestätigung für Steuerzwecke 2024: Hypothek"},
          {"Im Jahr 2024 belastete Hypothekarzinsen", "6'120.00"},
          {"Ausstehende Schuld am 31.12.2024", "410'000.00"}}},
        {bankauszug,
         "amount",
         "410000",
         {{"Banca Muster"},
          {"Attestazione interessi passivi 2024"},
          {"Interessi ipotecari addebitati", "6'120.00"},
          {"Debito residuo al 31.12.2024", "410'000.00"}}},
    };
}

TEST(Wording, ofEveryKindIsUnderstoodInAllLanguages) {
    std::vector<Wording> all = provision();
    for (const auto& part : {bills(), statements()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    for (const Wording& wording : all) {
        DrawnPage page;
        for (const Line& line : wording.lines) {
            page.line(line.label, line.amount);
        }
        const ScanResult result = page.proposed();
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

} // namespace
} // namespace fiscarel
