#include "Fiscarel_SG/documents/kinds/SalaryWords.h"

namespace fiscarel {

using enum Concept;

namespace {

Labels joined(Labels words, const Labels& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

/// What only the social insurances take from a wage, however it is said.
const Labels& insuranceWords() {
    static const Labels words{"Arbeitslos*",
                              "UVG*",
                              "Krankentaggeld*",
                              "Krankentag*",
                              "Gesetzliche Abzüge",
                              "Gesetzliche Beiträge",
                              "chômage",
                              "chôm.",
                              "acc. n. prof",
                              "acc. non prof*",
                              "LAA",
                              "AP/ANP",
                              "ANP",
                              "perte de gain",
                              "pertes de gain",
                              "AMat",
                              "charges légales",
                              "cotisations légales",
                              "retenues légales",
                              "paritaires",
                              "journalières",
                              "Freizeitunf*",
                              "accidents loisirs",
                              "tempo libero",
                              "disoccupazione",
                              "disocc*",
                              "inf. n.p",
                              "inf. np",
                              "inf. non prof*",
                              "perdita di guadagno",
                              "perdita guadagno",
                              "IGM",
                              "IPGM",
                              "contributi di legge",
                              "trattenute di legge",
                              "ritenute di legge",
                              "oneri di legge",
                              "paritetic*",
                              "LAINF NP",
                              "unemployment"};
    return words;
}

/// The insurance of the costs of treatment, which everybody pays on their own.
const Labels& treatmentWords() {
    static const Labels words{"Krankenkasse*",
                              "KVG",
                              "Grundversicherung*",
                              "Krankenpflege*",
                              "KK-Prämie*",
                              "KK",
                              "Krankenzusatz*",
                              "LAMal",
                              "caisse maladie",
                              "caisses maladie",
                              "assurance maladie obligatoire",
                              "assurance maladie de base",
                              "cassa malati",
                              "casse malati",
                              "cassa malattia",
                              "assicurazione malattia obbligatoria",
                              "assicurazione malattia di base",
                              "health insurance"};
    return words;
}

/// What is paid in place of a wage; an insurer of treatments may insure that too.
const Labels& dailyBenefitWords() {
    static const Labels words{"*taggeld*",   "KTG", "KTGV", "UTG",    "Lohnausfall*",
                              "journali*",   "IJM", "APGM", "perte*", "perdita",
                              "giornalier*", "IGM", "IPGM", "daily*"};
    return words;
}

/// What employers keep back of a wage for tax, as debts, for goods or for savings of one's own.
const Labels& keptBackWords() {
    static const Labels words{
        // Tax
        "Quellenst*", "Q.-Steuer", "Q-Steuer", "QST", "*steuer", "*steuern", "impôt*", "source",
        "imposta", "imposte", "fonte", "withholding tax",
        // Rent and board
        "Miete*", "Mietzins*", "*miete", "*mietzins", "Wohnung*", "Unterkunft*", "Zimmer",
        "Zimmermiete", "Logis", "Kost", "Verpflegung*", "Mahlzeit*", "Essen", "Essens*",
        "Mittagessen", "Kantine*", "Personalrestaurant*", "Personalhaus*", "*verpflegung", "loyer*",
        "logement*", "chambre*", "repas", "nourriture", "cantine*", "affitto", "affitti",
        "pigione*", "locazione", "alloggio", "camera", "vitto", "mensa", "pasti", "pasto", "rent",
        "meals",
        // Debts
        "Darlehen*", "*darlehen", "*darlehens*", "Kredit*", "*kredit", "Vorschuss*", "*vorschuss",
        "Vorschüsse*", "Vorbezug*", "Akonto*", "a conto", "Anzahlung*", "Pfändung*", "*pfändung",
        "Betreibung*", "Lohnabtretung*", "Abtretung*", "Haftpflicht*", "*schaden", "*rückzahlung*",
        "Rückerstattung*", "Rückforderung*", "Überzahlung*", "Busse*", "Schaden*", "Kaution*",
        "Alimente*", "*alimente", "Unterhalt*", "prêt", "prêts", "emprunt*", "crédit*", "avance",
        "avances", "acompte*", "saisie*", "poursuite*", "remboursement*", "dédommagement*",
        "alimentaire*", "amende*", "caution", "prestito", "prestiti", "mutuo", "credito",
        "anticip*", "acconto", "acconti", "rimborso", "rimborsi", "restituzione", "risarciment*",
        "pignorament*", "esecuzion*", "alimenti", "multa", "multe", "cauzione", "loan", "advance",
        "garnishment",
        // Things and services
        "Parkplatz*", "Parkhaus*", "Parkgebühr*", "Parking*", "*parkplatz", "Garagenplatz*",
        "Einstellplatz*", "Auto", "Autos*", "Autok*", "Autov*", "*auto", "*fahrzeug*",
        "Geschäftswagen*", "Firmenwagen*", "Leasing*", "Motor*", "Privat*", "Telefon*", "Handy*",
        "Natel*", "Generalabonnement*", "Reka", "Personalkauf*", "Personaleinkauf*", "Warenbezug*",
        "Gewerkschaft*", "Spende*", "Vollzugskosten*", "Kinderkrippe*", "Mitarbeiterbeteiligung*",
        "Mitarbeiteraktien*", "place de parc", "places de parc", "parc", "stationnement",
        "voiture*", "véhicule*", "privé*", "téléphone*", "abonnement*", "syndicat*", "parcheggi*",
        "posteggi*", "veicol*", "automobil*", "abbonament*", "sindacat*", "parking",
        // One's own savings
        "3a", "3b", "Säule 3*", "3. Säule", "dritte Säule", "gebunden*", "freie Vorsorge",
        "Lebensvers*", "3e pilier", "3ème pilier", "3me pilier", "IIIe pilier", "troisième pilier",
        "liée", "liées", "assurance vie", "assurances vie", "prévoyance individuelle",
        "3° pilastro", "3o pilastro", "III pilastro", "terzo pilastro", "vincolat*",
        "previdenza individuale", "assicurazione vita", "third pillar"};
    return words;
}

} // namespace

const Labels& firstPillarWords() {
    static const Labels words{"1. Säule",
                              "Erste Säule",
                              "staatliche Vorsorge",
                              "premier pilier",
                              "1er pilier",
                              "Ier pilier",
                              "prévoyance étatique",
                              "assurance vieillesse",
                              "primo pilastro",
                              "1° pilastro",
                              "1o pilastro",
                              "I pilastro",
                              "previdenza statale",
                              "assicurazione vecchiaia",
                              "first pillar"};
    return words;
}

const Labels& riskWords() {
    static const Labels words{"Unfall*",  "*unfallversicherung", "Lohnausfall*", "accident*",
                              "maladie",  "maternité",           "infortun*",    "malattia",
                              "maternità"};
    return words;
}

bool isKeptBack(const Row& words, bool isRecognised) {
    return findLabel(words, keptBackWords(), isRecognised)
           || (findLabel(words, treatmentWords(), isRecognised)
               && !findLabel(words, dailyBenefitWords(), isRecognised));
}

const std::array<BoxWords, 5>& boxWords() {
    static const Labels employers{"Arbeitgeber*", "employeur", "datore", "patronal*", "padronal*"};
    static const Labels ofUs{"a nostro carico",     "à notre charge",     "zu unseren Lasten",
                             "von uns bezahlt*",    "von uns getragen*",  "von uns übernommen*",
                             "da noi assunt*",      "da noi pagat*",      "pris en charge par nous",
                             "payée par nos soins", "at our own expense", "borne by us"};
    static const Labels others = joined(joined(employers, ofUs), keptBackWords());
    static const std::array<BoxWords, 5> rows{
        BoxWords{SalaryBox::gross,
                 {{},
                  employers,
                  true,
                  {{gross, wage, total},
                   {gross, wage},
                   {gross, total},
                   {gross},
                   {wage, total},
                   {wage, yearly},
                   {wage}},
                  {net, other, pension}},
                 {"*Einkünfte", "Einkommen", "Entrate", "revenus", "earnings", "competenze",
                  "spettanze", "elementi retributivi", "éléments de salaire", "Lohnbestandteile"}},
        BoxWords{SalaryBox::net,
                 {{}, employers, true, {{net, wage}, {net}}, {gross, other, pension}}},
        BoxWords{SalaryBox::buyIn, {{}, others, true, {{buyIn}}, {possible}}},
        BoxWords{SalaryBox::social,
                 {{}, others, true, {{social, total}, {social}}, {gross, net, buyIn}},
                 {},
                 joined(insuranceWords(), firstPillarWords())},
        BoxWords{SalaryBox::pensionFund,
                 {{},
                  joined(others, firstPillarWords()),
                  true,
                  {{occupational, total}, {occupational}, {ordinary}},
                  {gross, net, buyIn, social}},
                 {"*vorsorge*", "PK", "PK-*", "*pension*", "prévoyance*", "previdenza*",
                  "previdenzial*", "caisse de retraite", "caisses de retraite"},
                 {"CP", "C.P", "Pens.kasse", "Pens.-Kasse", "caisse pens*", "cassa pens*",
                  "caisse de pens*", "retraite"}},
    };
    return rows;
}

} // namespace fiscarel
