#include "Fiscarel_SG/documents/kinds/KindEvidence.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <algorithm>
#include <map>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;

struct KindWords {
    Kind kind;
    int weight;
    Labels words;
};

constexpr int enough = 6;   ///< below, nothing is concluded
constexpr int clearly = 10; ///< and this far ahead of the next, the kind is clear
constexpr int clearAhead = 4;
constexpr int decisive = 12; ///< of the words that make a document none of the kinds

/// Each list counts once. Weights: 6 names the document, 4 all but names it, 2 fits it.
const std::vector<KindWords>& evidences() {
    static const std::vector<KindWords> rows{
        {Kind::lohnausweis, 5, {"Lohnausweis", "Certificat de salaire", "Certificato di salario"}},
        {Kind::lohnausweis,
         5,
         {"Rentenbescheinigung", "Attestation de rentes", "Attestazione delle rendite"}},
        {Kind::lohnausweis, 3, {"Bruttolohn total", "Salaire brut total", "Salario lordo totale"}},
        {Kind::lohnausweis, 3, {"Nettolohn", "Salaire net", "Salario netto"}},
        {Kind::lohnausweis, 2, {"Unregelmässige Leistungen", "Prestations non périodiques"}},
        {Kind::steuerauszug,
         8,
         {"Steuerauszug", "E-Steuerauszug", "eSteuerauszug", "Relevé fiscal", "Estratto fiscale",
          "Steuerverzeichnis"}},
        {Kind::steuerauszug,
         3,
         {"Verrechnungssteueranspruch", "Werte mit VSt", "Valoren", "Depotauszug"}},
        {Kind::saeule3a,
         6,
         {"Säule 3a", "Pilier 3a", "Pilastro 3a", "3a-Konto", "Vorsorge 3a", "Vorsorgekonto 3a",
          "Prévoyance 3a", "Previdenza 3a"}},
        {Kind::saeule3a,
         5,
         {"gebundene Vorsorge", "gebundenen Vorsorge", "gebundene Selbstvorsorge",
          "gebundenen Selbstvorsorge", "Prévoyance liée", "Prévoyance individuelle liée",
          "Previdenza vincolata", "anerkannte Vorsorgeform*", "anerkannten Vorsorgeform*"}},
        {Kind::saeule3a,
         5,
         {"Bescheinigung über Vorsorgebeiträge",
          "Attestation concernant les cotisations de prévoyance",
          "Attestazione dei contributi di previdenza", "Attestazione concernente i contributi"}},
        {Kind::pensionskasse,
         5,
         {"Einkaufsbescheinigung", "Einkaufssumme", "Einkaufsbetrag", "freiwilliger Einkauf",
          "Einkauf*", "Rachat*", "Riscatto"}},
        {Kind::pensionskasse,
         4,
         {"Pensionskasse", "Vorsorgeeinrichtung", "Personalvorsorge*", "Caisse de pension*",
          "Institution de prévoyance", "Caisse de prévoyance", "Cassa pension*",
          "Istituto di previdenza", "Vorsorgestiftung"}},
        {Kind::pensionskasse,
         2,
         {"berufliche Vorsorge", "2. Säule", "Prévoyance professionnelle",
          "Previdenza professionale", "BVG"}},
        {Kind::krankenkasse,
         6,
         {"Prämienübersicht", "Prämienbestätigung", "Prämienausweis", "Prämienabrechnung",
          "Récapitulatif des primes", "Attestation de primes", "Attestation des primes",
          "Riepilogo dei premi", "Attestato dei premi"}},
        {Kind::krankenkasse,
         4,
         {"Krankenkasse", "Krankenversicher*", "Assurance-maladie", "Caisse-maladie",
          "Cassa malati", "Assicurazione malattie"}},
        {Kind::krankenkasse,
         3,
         {"KVG", "OKP", "LAMal", "Grundversicherung", "Assurance de base",
          "Assicurazione di base"}},
        {Kind::krankenkasse, 2, {"VVG", "LCA", "Zusatzversicherung*"}},
        {Kind::krankenkasse,
         3,
         {"Prämienverbilligung", "Kostenbeteiligung*", "Leistungsübersicht", "Réduction de prime*",
          "Réduction des primes", "Participation aux coûts", "Partecipazione ai costi",
          "Riduzione dei premi"}},
        {Kind::bankauszug,
         7,
         {"Zinsausweis", "Zinsbescheinigung", "Saldobestätigung", "Zins und Saldo*",
          "Zins- und Kapital*", "Kapital- und Zins*", "Zinsabschluss", "Kontoabschluss",
          "Attestation d'intérêts", "Attestation de solde", "Attestazione degli interessi",
          "Attestazione di interessi", "Attestation des intérêts", "Attestato degli interessi",
          "Attestazione del saldo"}},
        {Kind::bankauszug,
         5,
         {"Kontoauszug", "Jahresauszug", "Vermögensausweis", "Relevé de compte", "Estratto conto",
          "Zinsertrag"}},
        {Kind::bankauszug,
         3,
         {"Bruttozins*", "Habenzins*", "Zins brutto", "Intérêt* brut*", "Intérêts bruts",
          "Interessi lordi", "Schuldzins*", "Hypothekarzins*", "Sollzins*"}},
        {Kind::bankauszug, 2, {"Verrechnungssteuer", "Impôt anticipé", "Imposta preventiva"}},
        {Kind::bankauszug,
         2,
         {"Sparkonto", "Privatkonto", "Compte", "Conto", "Kontostand", "Hypothek*", "Saldo",
          "Solde"}},
        {Kind::arztrechnung,
         5,
         {"Arztpraxis",        "Zahnarzt*",       "Zahnärzt*",        "Hausarzt*",
          "Augenarzt*",        "Cabinet médical", "Cabinet dentaire", "Studio medico",
          "Studio dentistico", "Médecin*",        "Dentiste",         "Medico",
          "Dentista",          "Physiotherapie",  "Optik*",           "Apotheke",
          "Pharmacie",         "Farmacia",        "Spital",           "Hôpital",
          "Ospedale",          "Klinik",          "Chiropraktik*"}},
        {Kind::arztrechnung, 4, {"Patient*", "Patiente", "Paziente"}},
        {Kind::arztrechnung,
         3,
         {"TARMED", "TARDOC", "Taxpunkt*", "Rückforderungsbeleg", "Honorarrechnung", "Dr. med*",
          "Dentotar", "Behandlung*", "Konsultation*", "Consultation*", "Consultazion*",
          "Trattamento", "Traitement*"}},
        {Kind::spende,
         7,
         {"Spendenbestätigung", "Spendenbescheinigung", "Zuwendungsbestätigung", "Spendenausweis",
          "Attestation de don*", "Attestation des dons", "Attestazione di donazion*",
          "Attestato di donazion*", "Conferma di donazion*", "Spendenverdankung"}},
        {Kind::spende,
         4,
         {"Spende*", "Zuwendung*", "Don", "Dons", "Donazion*", "Donateur*", "Gönner*"}},
        {Kind::spende,
         3,
         {"gemeinnützig*", "utilité publique", "pubblica utilità", "steuerbefreit*"}},
        {Kind::kinderbetreuung,
         6,
         {"Kita", "Kindertagesstätte", "Kinderkrippe", "Kinderhort", "Tagesfamilie*", "Crèche",
          "Garderie", "Asilo nido", "Mittagstisch", "Schülerhort", "Tagesstätte", "Kinderhaus",
          "Structure d'accueil"}},
        {Kind::kinderbetreuung,
         5,
         {"Kinderbetreuung*", "Betreuungskosten", "Drittbetreuung*", "Frais de garde",
          "Spese di custodia", "Custodia", "Elternbeitr*", "Accueil extrafamilial",
          "Betreuungsbestätigung"}},
        {Kind::kinderbetreuung, 2, {"Betreuung*", "Betreuungstage", "Jours de garde"}},
        {Kind::weiterbildung,
         6,
         {"Kursgeld*", "Kursgebühr*", "Kursrechnung", "Kurskosten", "Studiengebühr*",
          "Semestergebühr*", "Schulgeld", "Frais de cours", "Taxe de cours", "Tassa del corso",
          "Tassa d'iscrizione", "Écolage", "Quota del corso", "Lehrgangskosten",
          "Teilnahmegebühr"}},
        {Kind::weiterbildung,
         4,
         {"Weiterbildung*", "Formation continue", "Formazione continua", "Lehrgang*",
          "Perfectionnement", "Perfezionamento"}},
        {Kind::weiterbildung, 2, {"Kurs", "Seminar*", "Cours", "Corso", "Teilnehm*", "Semester"}},
        {Kind::versicherung,
         6,
         {"Lebensversicherung*", "Assurance-vie", "Assurances vie", "Assicurazione sulla vita",
          "Assicurazione vita", "Kapitalversicherung"}},
        {Kind::versicherung, 6, {"Rückkaufswert*", "Valeur de rachat", "Valore di riscatto"}},
        {Kind::versicherung, 2, {"Police*", "Versicherungssumme", "Polizza", "Todesfall*"}},
        {Kind::liegenschaft,
         6,
         {"Schätzungsanzeige", "Schätzungsverfügung", "Schätzungsausweis", "Schätzungsprotokoll",
          "amtliche Schätzung", "Grundstückschätzung", "Estimation fiscale",
          "Estimation officielle", "Stima ufficiale", "Schätzung"}},
        {Kind::liegenschaft,
         6,
         {"Eigenmietwert", "Mietwert", "Valeur locative", "Valore locativo"}},
        {Kind::liegenschaft,
         4,
         {"amtlicher Wert", "Verkehrswert", "Steuerwert der Liegenschaft", "Valeur officielle",
          "Valeur vénale", "Valore ufficiale", "Valore venale", "Valeur fiscale", "Valore di stima",
          "Neuwert", "Ertragswert"}},
        {Kind::liegenschaft,
         2,
         {"Grundstück*", "Parzelle*", "Immeuble", "Parcelle", "Particella", "Liegenschaft*",
          "Fondo", "Grundbuch*"}},
    };
    return rows;
}

/// Words that make a document none of the kinds, with lists that must all be there.
struct Exclusion {
    std::vector<Labels> all;
    int weight;
};

const std::vector<Exclusion>& exclusions() {
    static const std::vector<Exclusion> rows{
        {{{"Mitarbeiterbeteiligung*", "Participations de collaborateur*",
           "Partecipazioni di collaborator*", "Beiblatt zum Lohnausweis"},
          {"Beiblatt", "Annexe", "Allegato", "Sperrfrist", "Aktien", "Optionen", "Actions",
           "Azioni"}},
         30},
        {{{"Steuererklärung", "Déclaration d'impôt", "Dichiarazione d'imposta"},
          {"Steuerbares Einkommen", "Satzbestimmendes*", "Wertschriftenverzeichnis",
           "Revenu imposable", "Reddito imponibile", "Total der Einkünfte", "Einkünfte",
           "Reineinkommen"}},
         30},
        {{{"Kassenbon", "Kassenzettel", "Rückgeld", "Ticket de caisse", "Scontrino", "Kasse",
           "Rendu", "Resto", "Bargeld", "Bar CHF"},
          {"MWST*", "TVA", "IVA", "Total*"}},
         14},
    };
    return rows;
}

std::string titleWords(const DocumentRows& document) {
    std::string words;
    if (document.pages.empty()) {
        return words;
    }
    const PageRows& first = document.pages.front();
    const double limit = document.hasPlaces ? first.height * 0.45 : 1e9;
    std::size_t count = 0;
    for (const Row& row : first.rows) {
        if (row.middle() <= limit && count++ < 25) {
            words += row.folded + ' ';
        }
    }
    return words;
}

/// Employee-share annexes carry their name at the top; a certificate mentions them in box 15.
int exclusionWeight(const std::string& title, const std::string& all) {
    int weight = 0;
    for (const Exclusion& exclusion : exclusions()) {
        const bool holds = isAnyIn(title, exclusion.all.front())
                           && std::ranges::all_of(exclusion.all, [&](const Labels& words) {
                                  return isAnyIn(all, words);
                              });
        weight = std::max(weight, holds ? exclusion.weight : 0);
    }
    return weight;
}

} // namespace

KindVerdict weighKind(const DocumentRows& document) {
    const std::string title = titleWords(document);
    std::map<Kind, int> scores;
    for (const KindWords& evidence : evidences()) {
        if (isAnyIn(title, evidence.words)) {
            scores[evidence.kind] += 2 * evidence.weight;
        } else if (isAnyIn(document.folded, evidence.words)) {
            scores[evidence.kind] += evidence.weight;
        }
    }
    KindVerdict verdict;
    int best = 0;
    int second = 0;
    for (const auto& [kind, score] : scores) {
        if (score > best) {
            second = best;
            best = score;
            verdict.kind = kind;
        } else {
            second = std::max(second, score);
        }
    }
    if (const int against = exclusionWeight(title, document.folded);
        against >= decisive && against + 6 > best) {
        return {.kind = Kind::anderes, .isClear = true};
    }
    if (best < enough) {
        return {};
    }
    verdict.isClear = best >= clearly && best - second >= clearAhead;
    return verdict;
}

bool isRepairBill(const DocumentRows& document) {
    static const Labels trades{
        "Sanitär*",   "Malergeschäft", "Malerarbeiten", "Dachdecker*",
        "Reparatur*", "Heizungs*",     "Schreinerei",   "Elektroinstallation*",
        "Sanierung*", "Gartenbau",     "Réparation*",   "Chauffage*",
        "Sanitaire*", "Riparazion*",   "Riscaldament*", "Spenglerei"};
    static const Labels bills{"Rechnung", "Facture", "Fattura"};
    return isAnyIn(document.folded, trades) && isAnyIn(document.folded, bills);
}

} // namespace fiscarel
