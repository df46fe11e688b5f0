#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>
#include <array>

namespace fiscarel {

namespace {

struct ConceptWords {
    Concept meant;
    Labels words;
};

/// A star before a word: it may be the end of a compound; behind it: it may go on or be inflected.
std::vector<ConceptWords> moneyWords() {
    using enum Concept;
    return {
        {paid, {"einbezahlt*",  "eingezahlt*",  "bezahlt*",    "gezahlt*",        "ausbezahlt*",
                "überwiesen*",  "geleistet*",   "entrichtet*", "gutgeschrieben*", "erhalten*",
                "eingegangen*", "vereinnahmt*", "beglichen*", "Erhalt", "Eingang", "Zahlung", "Zahlungen",
                "Bezahlung", "Auszahlung*", "*bezug", "Vergütet*", "paiement*", "pagament*", "réglé*",  "ausgerichtet*",   "belastet*",
                "getätigt*",    "einbringen",   "versé",       "versée",          "versés",
                "versées",      "payé",         "payée",       "payés",           "payées",
                "acquitté*",    "effectué*",    "crédité*",    "débité*",         "reçu",
                "reçus",        "encaissé*",    "versat*",     "pagat*",          "accreditat*",
                "addebitat*",   "corrispost*",  "effettuat*",  "ricevut*",        "incassat*", "paid", "received", "credited", "payments", "payment"}},
        {contribution,
         {"*beitrag",     "*beiträge",     "*beiträgen",    "Beitragstotal",  "*einlage",
          "*einlagen",    "*einzahlung",   "*einzahlungen", "Vorsorgebeitr*", "*überweisung*",
          "Sparbetrag",   "cotisation*",   "versement*",    "apport*",        "contribution*",
          "contribut*",   "versament*",    "Zuweisung*",    "*prämie",        "*prämien",
          "prime",        "primes",        "premio",        "premi",          "dépôts",
          "conferiment*", "Jahresbeitrag*", "contributions", "contribution paid"}},
        {total,
         {"*total", "totale", "totali", "totaux", "gesamt*", "insgesamt", "Summe", "*gesamtsumme",
          "*jahressumme", "Beitragssumme", "Rentensumme", "Prämiensumme", "Spendensumme", "Endsumme", "Endbetrag", "*totalbetrag", "somme",
          "ensemble", "somma", "complessiv*", "cumul*", "zusammen", "sum", "overall"}},
        {gross,
         {"brutto*", "brut", "bruts", "brute", "brutes", "lordo", "lordi", "lorda", "lorde", "gross"}},
        {net,
         {"netto*", "*netto", "net", "nets", "nette", "nettes", "netti", "netta", "verbleibend*"}},
        {yearly,
         {"*jahr", "*Jahres*", "jährlich*", "p.a.", "annuel*", "année", "annua*", "annuo", "annui",
          "anno", "l'an", "20*", "annual", "yearly", "year"}},
        {amount,
         {"*betrag",       "*beträge",   "montant*",    "import*",    "*summe",   "*kosten",
          "coût*",         "cout",       "frais",       "costo",      "costi",    "spese",
          "spesa",         "dépenses",   "*honorar*",   "honoraires", "onorari*", "*aufwand",
          "*aufwendungen", "*leistung*", "prestation*", "prestazion*", "amount", "amounts", "costs"}},
        {payable,
         {"zu bezahlen*",
          "zu zahlen*",
          "zahlbar*",
          "fällig*",
          "geschuldet*",
          "zu überweisen",
          "zu entrichten",
          "zu begleichen",
          "zu Ihren Lasten",
          "zu unseren Gunsten",
          "zu Lasten der Eltern",
          "à payer",
          "à régler",
          "à verser",
          "dû",
          "due",
          "exigible*",
          "en notre faveur",
          "da pagare",
          "da versare",
          "dovuto",
          "dovuta",
          "a saldo",
          "a vostro carico",
          "a suo carico",
          "à votre charge",
          "offen",
          "offener",
          "ausstehend*", "payable", "amount due", "to pay"}},
        {invoice,
         {"*rechnung", "*rechnungs*", "zu verrechnen", "verrechnet*", "Faktura*", "Honorarnote*", "*abrechnung", "facture*",
          "note d'honoraires", "décompte", "fattura*", "nota d'onorario", "conteggio", "invoice", "bill"}},
        {fee, {"*geld", "*gebühr", "*gebühren", "*kosten", "*preis",  "*tarif",     "taxe", "*taxe", "*taxen",
               "taxes", "tassa",   "tasse",     "frais",   "finance", "écolage*",   "retta",
               "rette", "quota",   "quote",     "prix",    "prezzo",  "émolument*", "emolument*", "fee", "fees", "tuition"}},
        {publicShare,
         {"Gemeindebeitrag*",
          "Beitrag der Gemeinde",
          "Beitrag Gemeinde",
          "Subvention*",
          "Kantonsbeitrag*",
          "Bundesbeitrag*",
          "Arbeitgeberbeitrag*",
          "Beitrag Arbeitgeber",
          "Beitrag des Arbeitgebers",
          "Stipendi*",
          "Vergünstigung*",
          "Sozialrabatt",
          "Rabatt",
          "subside*",
          "rabais",
          "part de l'employeur",
          "participation de l'employeur",
          "contribution de la commune",
          "sussidi*",
          "contributo comunale",
          "sconto",
          "contributo del comune",
          "contributo del datore*"}},
        {refunded,
         {"vergütet*", "erstattet*", "rückerstattet*", "zurückbezahlt*", "zurückgezahlt*", "zurückerstattet*", "Rückerstattung*",
          "Rückvergütung*", "Vergütung*", "remboursé*", "remboursement*", "rimborsat*", "rimbors*",
          "Gutschrift*"}},
        {other, {"Vorjahr*",   "Vorperiode",     "bisher*",    "monatlich*", "pro Monat",
                 "par mois",   "mensuel*",       "al mese",    "mensile",    "voraussichtlich*",
                 "Prognose",   "provisorisch*",  "prévu*",     "estimé*",    "previst*",
                 "précédent*", "precedent*",     "Folgejahr",  "nächst*",    "prochain*",
                 "prossim*",   "Zwischentotal",  "sous-total", "subtotale",  "Übertrag",
                 "report",     "riporto",        "davon",      "dont",       "di cui",
                 "wovon",      "darin enthalten", "pro Tag", "pro Stunde", "pro Lektion",
                 "pro Woche",  "pro Halbtag", "je Tag", "je Stunde", "*tarif", "Tagesansatz*",
                 "Stundenansatz*", "par jour", "par heure", "par semaine", "al giorno", "all'ora",
                 "je Monat", "im Monat", "Monatsr*", "Monatsb*", "Monatsp*", "Raten zu", "Raten à", "Raten von", "Rate von", "in Raten",
                 "acompte*", "acconto", "acconti", "tranches de", "rate da", "Depot", "Kaution", "Guthaben unter", "avoirs inférieurs", "averi inferiori", "abgesagt*", "versäumt*", "rendez-vous manqué",
                 "caution", "cauzione",
                 "Annullation*", "Annullierung*", "Abmeldung*", "Rücktritt*", "annulation*",
                 "annullamento", "*mahngebühr*", "Mahnspesen", "Mahnung", "rappel", "sollecito",
                 "Duplikat*", "duplicat*", "Mindest*", "Minimum", "minimo", "*ziel", "objectif*",
                 "obiettivo", "Vergleich", "comparaison", "confronto", "previous year", "monthly", "per day", "per month", "subtotal"}},
    };
}

std::vector<ConceptWords> bankWords() {
    using enum Concept;
    return {
        {balance,
         {"*saldo",         "*bestand", "Vermögenswert",  "Saldi",        "Salden",     "*guthaben",      "Kontostand",
          "Stand per",      "Stand am",     "*kapital",   "*vermögen",      "Vermögensstand",
          "Kontowert",      "*steuerwert",  "Marktwert",  "solde*",         "avoir",
          "avoirs",         "fortune",      "capital",    "état du compte", "valeur fiscale",
          "averi",          "avere",        "patrimonio", "capitale",       "consistenza",
          "valore fiscale", "situazione al", "balance", "assets"}},
        {opening,
         {"Anfangs*", "Eröffnungs*",  "*vortrag",     "01.01*",   "1. Januar",
          "1. Jan",   "Jahresbeginn", "Jahresanfang", "initial*", "d'ouverture", "1er janvier",
          "début",    "reporté",      "iniziale",     "apertura", "1° gennaio",  "1 gennaio",
          "inizio",   "vecchio",      "ancien",       "alter", "opening balance", "1 January", "previous balance"}},
        {interest,
         {"*zins", "*zinsen", "*zinsertrag", "*zinserträge", "*zinsgutschrift*", "Zinsbetrag",
          "*zinseinnahmen", "intérêt*", "interess*", "rendement*", "revenu", "revenus", "Ertrag",
          "Erträge", "Kapitalertr*", "Bruttoertr*", "Nettoertr*", "Jahresertr*", "Wertschriftenertr*", "reddito", "redditi", "provent*", "ricav*", "Verzinsung", "interest", "yield"}},
        {ofDebt,
         {"débiteur*", "hypothécaire*", "passif*", "passivi", "debitori", "ipotecari*",
          "sur dette*", "sur prêt*", "du prêt", "su debiti", "sul mutuo", "sui debiti", "Hypothek*",
          "Darlehen*", "Kredit*", "Schuld*", "emprunt*", "de la dette", "dette", "débité*",
          "dovuti", "passif", "addebitat*", "Passiv*", "debito", "mutuo", "prêt", "dus"}},
        {debtInterest,
         {"Schuldzins", "Schuldzinsen", "*hypothekarzins", "*hypothekarzinsen", "*hypothekenzins*",
          "Hypozins*", "Sollzins", "Sollzinsen", "Darlehenszins*", "Kreditzins*", "Passivzins*",
          "Zinsaufwand", "Zinsbelastung*", "Zinskosten", "Zinslast", "Zinszahlung*", "mortgage interest", "debit interest"}},
        {rate, {"Zinssatz*", "Zinssätze", "taux", "tasso", "tassi", "Zinsfuss", "Marge", "interest rate"}},
        {withholding,
         {"*verrechnungssteuer*", "VST", "Verr.-Steuer", "Verr.St.", "Verrechnungsst*", "Verr.-St.",
          "VSt 35", "IA 35", "IP 35", "impôt anticipé*", "imp. ant.", "impôt ant*", "imposta preventiva*", "imp. prev.",
          "imposta prev*", "IA 35", "withholding tax"}},
        {debt, {"zu unseren Gunsten", "en notre faveur", "a nostro favore", "Restkapital",
                "capital restant*", "debito in capitale", "*schuld",     "*schulden",  "Schuldsaldo*",    "Schuldbetrag*", "*hypothek",
                "*hypotheken", "*darlehen",  "Kreditsaldo",     "Kreditbetrag",  "dette*",
                "prêt",        "prêts",      "emprunt*",        "hypothèque*",   "debito",
                "debiti",      "ipoteca",    "ipoteche",        "mutuo",         "mutui",
                "prestito",    "capital dû", "capitale residuo", "mortgage", "loan", "debt"}},
        {repayment,
         {"Amortisation*", "Rückzahlung*", "amortissement*", "remboursement*", "ammortament*",
          "rimbors*", "Tilgung*", "Kreditlimite*", "Limite", "limite"}},
        {account, {"*konto", "*konten", "compte", "comptes", "conto", "conti", "IBAN"}},
    };
}

std::vector<ConceptWords> provisionWords() {
    using enum Concept;
    return {
        {pillar3a,
         {"3a", "3a-*", "*Säule 3", "gebunden*", "Selbstvorsorge", "*Vorsorgekonto*",
          "*Vorsorgepolice*", "Vorsorgeversicherung*", "prévoyance liée", "liée", "vincolat*",
          "Vorsorgekonto*"}},
        {occupational,
         {"2. Säule", "zweite Säule", "BVG", "Pensionskasse*", "LPP", "2e pilier", "2o pilastro",
          "2° pilastro", "secondo pilastro", "deuxième pilier", "berufliche Vorsorge",
          "prévoyance professionnelle", "previdenza professionale", "betriebliche Vorsorge",
          "Personalvorsorge*", "Vorsorgeeinrichtung*", "BPVG", "Vorsorgestiftung*",
          "caisse de pension*", "institution de prévoyance", "cassa pensione",
          "cassa pensioni", "istituto di previdenza", "2 pilier", "2 pilastro"}},
        {ordinary,
         {"ordentlich*", "reglementarisch*", "ordinaire*", "réglementaire*", "ordinar*",
          "regolamentar*", "Arbeitnehmer*", "Arbeitgeber*", "Altersgutschrift*", "Risikobeitr*",
          "Sparbeitr*"}},
        {buyIn,
         {"*einkauf", "*einkaufs", "*einkäufe", "*einkäufen", "Einkaufs*", "eingekauft*",
          "Nachzahlung*", "freiwillige Einlage*", "freiwillige Beiträge", "freiwillige Einzahlung*",
          "rachat*", "racheté*", "riscatt*", "apport volontaire", "versement volontaire",
          "versamento volontario", "buy-in", "purchase"}},
        {possible,
         {"möglich*",   "*maxim*",      "max",       "*potenzial*", "*potential*", "*lücke*",
          "höchst*",    "verbleibend*", "restlich*", "restant*",    "possib*",     "massim*",
          "lacun*",     "résiduel*",    "residu*",   "noch",        "encore",      "ancora",
          "Obergrenze", "plafond*",     "disponib*", "zulässig*",   "autorisé*",   "ammess*",
          "künftig*", "maximum", "possible", "remaining"}},
        {pension,
         {"*rente", "*renten", "Renten*", "Rentenleistung*", "Rentenzahlung*", "rente",
          "rentes", "pension de retraite", "pensions", "rendita", "rendite", "pensioni", "annuity"}},
        {wage,
         {"*lohn", "*gehalt", "*salär", "*verdienst", "*bezüge", "*besoldung", "Lohnsumme",
          "Lohntotal", "Erwerbseinkommen", "salaire*", "traitement*", "rémunération*", "gains",
          "salari*", "stipendi*", "retribuzion*", "remunerazion*", "salary", "wages"}},
        {social,
         {"AHV*", "ALV", "AVS", "AANP", "AINP", "NBU", "NBUV", "Sozialabzüge", "Sozialabzug",
          "*sozialversicherung*", "Sozialbeiträge", "Sozialleistungen", "assurances sociales",
          "charges sociales", "cotisations sociales", "déductions sociales", "oneri sociali",
          "contributi sociali", "assicurazioni sociali", "deduzioni sociali", "social security"}},
        {premium, {"*prämie", "*prämien", "Prämien*", "prime", "primes", "premio", "premi", "premium", "premiums"}},
        {basicInsurance,
         {"KVG", "OKP", "AOMS", "Grundversicherung*", "obligatorische Kranken*", "LAMal", "AOS",
          "assurance de base", "assurance obligatoire", "assicurazione di base",
          "assicurazione obbligatoria", "Krankenpflegeversicherung", "OKPG", "basic insurance", "compulsory health insurance"}},
        {extraInsurance,
         {"VVG", "Zusatzversicherung*", "Zusatz", "LCA", "complémentaire*", "complementar*",
          "Spitalversicherung*", "Spitalzusatz*", "supplementary insurance"}},
        {accident, {"Unfall*", "UVG", "accident*", "infortun*", "LAA", "LAINF"}},
        {reduction,
         {"*verbilligung*", "IPV", "subside*", "subvention*", "réduction*", "riduzion*", "sussid*",
          "Staatsbeitrag", "Prämienbeitrag", "premium reduction"}},
        {costSharing,
         {"*kostenbeteiligung*",
          "zu Ihren Lasten",
          "zu Lasten Versicherte*",
          "Eigenleistung*",
          "Eigenanteil*",
          "selbst bezahlt*",
          "selbst getragen*", "von Ihnen getragen*", "von Ihnen bezahlt*", "selber bezahlt*",
          "Ihr Kostenanteil",
          "selbstgetragen*",
          "nicht gedeckt*",
          "nicht erstattet*",
          "nicht vergütet*",
          "nicht übernommen*",
          "ungedeckt*",
          "à votre charge",
          "à charge de l'assuré*",
          "non remboursé*",
          "non pris en charge",
          "non couvert*",
          "participation aux coûts",
          "participation aux frais",
          "a suo carico",
          "a vostro carico",
          "a carico dell'assicurat*",
          "non rimborsat*",
          "non copert*",
          "partecipazione ai costi",
          "partecipazione alle spese",
          "quote-part et franchise", "cost sharing", "paid by you"}},
        {benefit,
         {"*leistungen", "Kostenübernahme", "prestation*", "prestazion*", "übernommen*",
          "pris en charge"}},
        {surrender,
         {"*rückkauf*", "valeur de rachat", "valeurs de rachat", "valore di riscatto",
          "valori di riscatto", "Abfindungswert*", "Rückkaufsbetrag", "surrender value"}},
        {insured,
         {"versichert*", "Versicherungs*", "assuré*", "assicurat*", "Garantie*", "garanti*"}},
        {lifeCover,
         {"*versicherungssumme*", "Vers.-Summe", "*todesfall*", "*erlebensfall*",
          "*ablaufleistung*", "*kapital", "somme assurée", "capital", "capital-décès",
          "en cas de décès", "en cas de vie", "capitale", "somma assicurata", "in caso di decesso",
          "in caso di morte", "in caso di vita", "Summe", "sum insured", "death benefit"}},
        {taxValue,
         {"*steuerwert*", "steuerlicher Wert", "steuerbarer Wert", "Steuerschätz*", "valeur fiscale", "valeur imposable", "valore fiscale",
          "valore imponibile", "tax value"}},
        {officialValue,
         {"amtlicher Wert", "amtlichen Wert", "amtliche Wert", "*verkehrswert*", "Schätzungswert*",
          "Schätzwert*", "amtlich geschätzt*", "valeur officielle", "valeur vénale",
          "valeur d'estimation", "valeur cadastrale", "estimation fiscale", "estimation officielle",
          "valore ufficiale", "valore venale", "valore di stima", "valore commerciale",
          "valore peritale", "market value", "official value"}},
        {rentalValue,
         {"*mietwert*", "valeur locative*", "valeurs locatives", "valore locativo",
          "valori locativi", "Mietertrag", "rental value"}},
    };
}

std::vector<ConceptWords> billWords() {
    using enum Concept;
    return {
        {donation, {"*spende",     "*spenden",  "Spenden*",     "*zuwendung",     "*zuwendungen",
                    "Vergabung*",  "Gabe",      "Gaben",        "Gönnerbeitrag*", "Gönnerbeiträge",
                    "gespendet*",  "don",       "dons",         "donation*",      "donateur*",
                    "libéralité*", "donazion*", "liberalità",   "elargizion*",    "offerta",
                    "offerte",     "donat*",    "Patenschaft*", "Kollekte*",      "parrainage*", "donation", "donations"}},
        {childcare, {"*betreuung*",     "*kita",          "Kita*",
                     "*krippe*",        "*hort",          "*tagesstätte*",
                     "Tagesfamilie*",   "Tagesmutter*",   "Tageseltern*",
                     "Spielgruppe*",    "Tagesschule*",   "Mittagstisch*",
                     "Tagesstruktur*",  "Kinderhaus",     "Kinderhütedienst*",
                     "frais de garde",  "garde",          "crèche*",
                     "garderie*",       "accueil*",       "UAPE",
                     "parascolaire*",   "maman de jour",  "mamans de jour",
                     "custodia",        "asilo nido",     "nido",
                     "nido d'infanzia", "doposcuola",     "mamma diurna",
                     "famiglia diurna", "extrafamilial*", "extrascolastic*", "childcare", "day care", "nursery"}},
        {parents, {"Eltern*", "parents", "parental*", "genitori", "famille*", "famiglia"}},
        {course,
         {"*kurs",       "*kurse",     "Kurs*",        "*lehrgang*",        "*weiterbildung*",
          "*ausbildung", "Studien*",   "*studium",     "*semester*",        "*seminar*",
          "*schulung*",  "*modul*",    "Schulgeld*",   "Unterricht*",       "Prüfungsgebühr*",
          "Teilnahme*",  "cours",      "formation*",   "perfectionnement*", "séminaire*",
          "écolage*",    "corso",      "corsi",        "formazione",        "perfezionamento",
          "seminario",   "iscrizione", "inscription*", "d'études",          "di studio", "course", "tuition", "training"}},
        {medical, {"*behandlung*",  "*konsultation*", "*zahnärzt*", "*ärztlich*",  "Zahnreinigung",
                   "Dentalhygiene", "Therapie*",      "*therapie",  "Laborkosten", "Medikament*",
                   "Brille*",       "Kontaktlinsen",  "Hörgerät*",  "soins",       "traitement*",
                   "consultation*", "médicament*",    "cure",       "trattament*", "consultazion*",
                   "medicin*",      "lunettes",       "occhiali"}},
    };
}

} // namespace

const Labels& wordsFor(Concept meant) {
    static const auto table = [] {
        std::array<Labels, static_cast<std::size_t>(Concept::last)> words;
        for (auto part : {moneyWords(), bankWords(), provisionWords(), billWords()}) {
            for (ConceptWords& row : part) {
                words[static_cast<std::size_t>(row.meant)] = std::move(row.words);
            }
        }
        return words;
    }();
    return table[static_cast<std::size_t>(meant)];
}

std::optional<LabelPlace> findMeaning(const Row& row, const Meaning& meaning, bool isRecognised) {
    std::optional<LabelPlace> whole;
    for (const Concept meant : meaning) {
        const auto place = findLabel(row, wordsFor(meant), isRecognised);
        if (!place) {
            return std::nullopt;
        }
        if (!whole) {
            whole = place;
        }
        whole->first = std::min(whole->first, place->first);
        whole->last = std::max(whole->last, place->last);
        whole->left = std::min(whole->left, place->left);
        whole->right = std::max(whole->right, place->right);
    }
    return whole;
}

bool namesAny(const Row& row, const std::vector<Concept>& concepts, bool isRecognised) {
    return std::ranges::any_of(concepts, [&](Concept meant) {
        return findLabel(row, wordsFor(meant), isRecognised).has_value();
    });
}

} // namespace fiscarel
