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
        {pensionskasse,
         "pensionBuyIn",
         "57000",
         {{"Cassa pensione Muster"},
          {"Conferma del suo riscatto volontario"},
          {"Il 14 dicembre 2025 abbiamo ricevuto il suo bonifico di CHF 57'000.00, che è"},
          {"stato accreditato come acquisto di prestazioni mancanti. Grazie al versamento la"},
          {"sua rendita annua prevista a 65 anni passa da CHF 34'770.00 a CHF 37'734.00. Il"},
          {"riscatto è deducibile nel 2025."}}},
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
         "socialContributions",
         "3731.65",
         {{"Boulangerie Muster"},
          {"Attestation concernant vos gains de l'année 2025"},
          {"Votre rémunération brute s'est élevée à Fr. 50'320.00. Nous avons retenu"},
          {"Fr. 3'731.65 pour les assurances sociales et Fr. 3'775.20 pour la caisse de"},
          {"pension. Il vous a donc été versé net Fr. 42'813.15."}}},
        {lohnausweis,
         "pensionContributions",
         "3050",
         {{"Menuiserie Muster"},
          {"Confirmation de salaire 2024"},
          {"Le salaire brut a atteint Fr. 50'000.00. Après déduction de Fr. 3'625.00 de"},
          {"cotisations sociales et de Fr. 3'050.00 de prévoyance professionnelle, un"},
          {"salaire net de Fr. 43'325.00 a été versé."}}},
        {lohnausweis,
         "ahvPension",
         "26400",
         {{"Ausgleichskasse des Kantons"},
          {"Rentenbescheinigung 2024"},
          {"Im Jahr 2024 wurden Ihnen AHV-Renten von CHF 26'400.00 ausbezahlt."}}},
        {lohnausweis,
         "ahvPension",
         "19200",
         {{"Ausgleichskasse des Kantons"},
          {"Rentenbescheinigung 2024"},
          {"Invalidenrente 12 x 1'600.00", "19'200.00"},
          {"Hilflosenentschädigung 12 x 500.00", "6'000.00"},
          {"Total ausbezahlt", "25'200.00"}}},
        {pensionskasse,
         "amount",
         "6400",
         {{"Gemeinschaftsstiftung Muster"},
          {"Ihre Rente 2024"},
          {"Altersrente pro Jahr", "19'200.00"},
          {"Altersrente pro Monat", "1'600.00"},
          {"Im Jahr 2024 ausgerichtet, 4 Monate", "6'400.00"},
          {"Kapitalbezug", "90'000.00"}}},
        {lohnausweis,
         "amount",
         "9500",
         {{"Pensionsinstitut Musterland"},
          {"Bestätigung der Rentenzahlungen 2024"},
          {"Jahresrente EUR", "10'000.00"},
          {"Zum Kurs von 0.9500 entspricht dies", "9'500.00 CHF"}}},
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
         "5508.75",
         {{"Cassa malati Muster"},
          {"Attestato dei premi 2024"},
          {"Per il 2024 ha versato CHF 1'288.20 per l'assicurazione obbligatoria e CHF 4'220.55"},
          {"per le assicurazioni complementari, in totale CHF 5'508.75."}}},
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

std::vector<Wording> letters() {
    using enum Kind;
    return {
        {bankauszug,
         "taxValue",
         "5120.75",
         {{"Sparkasse Muster"},
          {"Bescheinigung für das Steueramt"},
          {"Ihr Sparkonto CH93 0076 2011 6238 5295 7 wies am 31. Dezember 2024 ein Guthaben"},
          {"von CHF 5'120.75 auf. Der Bruttozins betrug CHF 21.30."}}},
        {bankauszug,
         "incomeWithoutWithholding",
         "21.3",
         {{"Sparkasse Muster"},
          {"Bescheinigung Zinsen und Saldo"},
          {"Ihr Sparkonto CH93 0076 2011 6238 5295 7 wies am 31. Dezember 2024 ein Guthaben"},
          {"von CHF 5'120.75 auf. Der Bruttozins betrug CHF 21.30."}}},
        {saeule3a,
         "pillar3a",
         "7056",
         {{"Muster Versicherungen"},
          {"Attestazione per il pilastro 3a"},
          {"Con la presente attestiamo che nel 2024 ha versato contributi per un importo di"},
          {"CHF 7'056.00 alla previdenza vincolata."}}},
        {saeule3a,
         "pillar3a",
         "3000",
         {{"Bank Muster, Vorsorge"},
          {"Kontoauszug Säule 3a 2024"},
          {"Gutschriften 2024 (Einzahlungen)"},
          {"CHF 3'000.00"},
          {"Schlusssaldo"},
          {"CHF 31'000.00"}}},
        {pensionskasse,
         "pensionBuyIn",
         "8000",
         {{"Cassa pensioni Muster"},
          {"Conferma di riscatto"},
          {"Confermiamo di aver ricevuto il 3.12.2024 CHF 8'000.00 quale riscatto di anni."}}},
        {spende,
         "amount",
         "80",
         {{"Hilfswerk Muster"},
          {"Spendenbestätigung"},
          {"Wir danken Ihnen herzlich!"},
          {"CHF 80.00"}}},
        {kinderbetreuung,
         "childcareCosts",
         "6600",
         {{"Tagesfamilien Muster"},
          {"Bestätigung zuhanden der Steuerbehörden"},
          {"Für die Betreuung Ihres Kindes haben Sie uns im Jahr 2024 Fr. 6'600.00 bezahlt."}}},
        {weiterbildung,
         "furtherEducation",
         "1450",
         {{"Bildungszentrum Muster"},
          {"Teilnahmebestätigung Seminar Führung"},
          {"Seminarkosten inkl. Unterlagen: Fr. 1'450.–"}}},
        {krankenkasse,
         "healthInsurancePremiums",
         "4012.8",
         {{"Cassa malati Muster"},
          {"Attestazione fiscale 2024"},
          {"Premi assicurazione obbligatoria", "4'012.80"},
          {"Costi non assicurati", "0.00"}}},
        {versicherung,
         "surrenderValue",
         "30100",
         {{"Muster Vie SA"},
          {"Attestation fiscale: assurance-vie"},
          {"La valeur de rachat de votre police s'élevait au 31.12.2024 à CHF 30'100.00."}}},
        {liegenschaft,
         "imputedRentalValue",
         "14400",
         {{"Amt für Bewertung"},
          {"Grundstückbewertung: Eröffnung"},
          {"Mietwert", "CHF 14'400"},
          {"Verkehrswert", "CHF 500'000"}}},
        {arztrechnung,
         "gross",
         "95.5",
         {{"Physiotherapie Muster"},
          {"Rechnung Nr. 2024-113"},
          {"Patientin: Anna Muster"},
          {"7301 Sitzungspauschale", "95.50"},
          {"Geschuldeter Betrag", "95.50"}}},
    };
}

ScanResult proposedFor(const std::vector<Line>& lines) {
    DrawnPage page;
    for (const Line& line : lines) {
        page.line(line.label, line.amount);
    }
    return page.proposed();
}

/// Papers whose amount follows from the others on them.
std::vector<Wording> sums() {
    using enum Kind;
    return {
        {kinderbetreuung,
         "childcareCosts",
         "700",
         {{"Kita Muster"},
          {"Betreuungskosten 2024"},
          {"Steuerbares Vermögen CHF 114'000.00 gemäss letzter Veranlagung"},
          {"Elternbeitrag bezahlt", "700.00"}}},
        {liegenschaft,
         "actualMaintenanceCosts",
         "1081",
         {{"Spenglerei Muster AG"},
          {"Schlussrechnung 44"},
          {"Arbeit gemäss Rapport", "600.00"},
          {"Material", "400.00"},
          {"Zusammen", "1'000.00"},
          {"MWST 8.1 %", "81.00"},
          {"Werklohn", "1'081.00"},
          {"Abzüglich Akonto", "500.00"},
          {"Bleiben", "581.00"}}},
        {arztrechnung,
         "gross",
         "450",
         {{"Kantonsspital Muster"},
          {"Rechnungskopie"},
          {"Patient: Anna Muster"},
          {"Fallpauschale", "3'000.00"},
          {"Anteil Wohnkanton", "1'650.00"},
          {"Vom Krankenversicherer bezahlt", "900.00"},
          {"Zu Lasten Patientin", "450.00"}}},
        {arztrechnung,
         "gross",
         "500",
         {{"Praxis Dr. med. Anna Muster"},
          {"2. Mahnung"},
          {"Behandlung vom 3.2.2024, Rechnung 4711", "500.00"},
          {"Mahngebühr", "20.00"},
          {"Verzugszins 5 %", "5.50"},
          {"Total zu bezahlen", "525.50"}}},
        {saeule3a,
         "pillar3a",
         "3500",
         {{"Vorsorgestiftung Säntis"},
          {"Alle Vorsorgekonten 3a im Jahr 2024"},
          {"Beitrag", "2'000.00"},
          {"Saldo", "30'100.00"},
          {"Beitrag", "1'500.00"},
          {"Saldo", "12'300.00"},
          {"Über alle Konten wurden 2024 insgesamt CHF 3'500.00 gutgeschrieben."}}},
        {saeule3a,
         "pillar3a",
         "3500",
         {{"Fondation de prévoyance du Lac"},
          {"Attestation pilier 3a 2024"},
          {"01.01.2024 Report", "34'000.00"},
          {"15.02.2024 Versement 2'000.00", "36'000.00"},
          {"12.06.2024 Versement 1'500.00", "37'500.00"},
          {"31.12.2024 Intérêts 205.30", "37'705.30"}}},
        {saeule3a,
         "pillar3a",
         "2500",
         {{"Fondazione di previdenza Monte"},
          {"Attestazione dei contributi al pilastro 3a 2024"},
          {"15.02.2024 Bonifico", "1'000.00"},
          {"12.06.2024 Bonifico", "1'500.00"},
          {"03.10.2024 Trasferimento da altra fondazione", "18'000.00"},
          {"Totale contributi ordinari", "2'500.00"}}},
        {saeule3a,
         "pillar3a",
         "1200",
         {{"Muster Lebensversicherung AG"},
          {"Gebundene Vorsorgeversicherung 2024"},
          {"Bezahlte Prämien", "1'200.00"},
          {"Todesfallkapital", "80'000.00"},
          {"Rückkaufswert", "9'500.00"}}},
    };
}

std::vector<Wording> all() {
    std::vector<Wording> wordings = provision();
    for (Wording& one : sums()) {
        wordings.push_back(std::move(one));
    }
    for (const auto& part : {bills(), statements(), letters()}) {
        wordings.insert(wordings.end(), part.begin(), part.end());
    }
    return wordings;
}

TEST(Wording, ofEveryKindIsUnderstoodInAllLanguages) {
    for (const Wording& wording : all()) {
        const ScanResult result = proposedFor(wording.lines);
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
    for (const Wording& wording : all()) {
        for (const Proposal& one : proposedFor(wording.lines).proposals) {
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
        for (const Proposal& one : proposedFor(trap.lines).proposals) {
            EXPECT_FALSE(one.field == trap.field && one.value == trap.value)
                << trap.lines[1].label << ": " << one.value;
        }
    }
}

TEST(AccountWording, accountsAndLoansShareATable) {
    DrawnPage page;
    page.text(60, 60, "Regionalbank Muster").text(60, 90, "Vermögensausweis 31.12.2024");
    page.text(60, 120, "Produkt").right(330, 120, "Saldo per").right(440, 120, "Zins");
    page.right(540, 120, "Verr.-Steuer").right(330, 132, "31.12.2024").right(440, 132, "brutto");
    page.text(60, 150, "Sparkonto 12.345-6")
        .right(330, 150, "20’500.00")
        .right(440, 150, "300.00")
        .right(540, 150, "105.00");
    page.text(60, 170, "Hypothek 77.001-2")
        .right(330, 170, "-400’000.00")
        .right(440, 170, "6’120.00");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "taxValue", 0), "20500");
    EXPECT_EQ(valueOf(result, "incomeWithWithholding", 0), "300");
    EXPECT_EQ(result.records[1].kind, ProposedRecord::Kind::debt);
    EXPECT_EQ(valueOf(result, "amount", 1), "400000");
    EXPECT_EQ(valueOf(result, "interest", 1), "6120");
}

TEST(AccountWording, accountsWithoutIbanEachHaveTheirBlock) {
    DrawnPage page;
    page.line("Regionalbank Muster").line("Bestätigung Zinsen und Salden 2024");
    page.line("Privatkonto Nr. 12.345.678").line("Guthaben am 31.12.2024", "1’200.00");
    page.line("Sparkonto Nr. 98.765.432").line("Guthaben am 31.12.2024", "9’900.00");
    const ScanResult result = page.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(valueOf(result, "taxValue", 0), "1200");
    EXPECT_EQ(valueOf(result, "taxValue", 1), "9900");
}

} // namespace
} // namespace fiscarel
