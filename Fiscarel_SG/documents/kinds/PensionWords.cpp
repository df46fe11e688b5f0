#include "Fiscarel_SG/documents/kinds/PensionWords.h"

#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <set>

namespace fiscarel {

const Labels& taxFree() {
    static const Labels words{"Hilflosen*",
                              "impotent*",
                              "grandi invalidi",
                              "grande invalido",
                              "Ergänzungsleistung*",
                              "prestations complémentaires",
                              "prestation complémentaire",
                              "prestazioni complementari",
                              "prestazione complementare",
                              "supplementary benefit*",
                              "EL",
                              "PC",
                              "steuerfrei*",
                              "nicht steuerbar",
                              "nicht zu versteuern",
                              "non imposable*",
                              "exonéré*",
                              "non imponibil*",
                              "esent*",
                              "tax-free",
                              "Assistenzbeitrag*",
                              "contribution d'assistance",
                              "contributo per l'assistenza"};
    return words;
}

/// "nein" at the end of a row under a heading such as "steuerbar".
bool endsInNo(const Row& row) {
    static const std::set<std::string> no{"nein", "non", "no"};
    return row.words.size() >= 2 && no.contains(row.words.back().folded);
}

/// What says that an amount is the one to declare; a share of it is not.
bool saysTaxed(const Row& words, bool isRecognised) {
    static const Labels tax{"*versteuern",   "steuerbar*", "steuerpflichtig*", "Steuererklärung",
                            "*deklarieren",  "imposable*", "à déclarer",       "déclaration",
                            "imponibil*",    "dichiarare", "dichiarazione",    "taxable",
                            "to be declared"};
    static const Labels shares{"davon", "dont", "di cui", "of which"};
    const bool isShare = findLabel(words, shares, isRecognised)
                         || std::ranges::any_of(words.words, [](const RowWord& word) {
                                return word.text.find('%') != std::string::npos;
                            });
    return !isShare && findLabel(words, tax, isRecognised).has_value();
}

bool saysGrossTaxed(const DocumentRows& document) {
    static const Labels declared{"zu deklarieren", "zu versteuern",  "anzugeben",
                                 "einzutragen",    "à déclarer",     "à indiquer",
                                 "à reporter",     "vanno indicat*", "va indicat*",
                                 "da dichiarare",  "da indicare",    "to be declared"};
    static const Labels others{"nicht",   "nur",   "abzüglich", "nach Abzug*", "sondern",
                               "pas",     "moins", "déduction", "non",         "ma",
                               "dedott*", "meno",  "deduzion*", "not",         "less"};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return findLabel(row, declared, page.isRecognised)
                   && namesAny(row, {Concept::gross}, page.isRecognised)
                   && !findLabel(row, others, page.isRecognised)
                   && !namesAny(row, {Concept::net, Concept::paid}, page.isRecognised);
        });
    });
}

/// Who gets the allowances of those whom he goes on paying.
const Labels& employers() {
    static const Labels words{"Arbeitgeber*", "employeur*", "datore*", "employer",
                              "Betrieb",      "entreprise", "azienda", "ditta"};
    return words;
}

/// What stands on papers about allowances and is none that the insured got: what went to the
/// employer, and what the allowance is computed from.
const Labels& noAllowance() {
    static const Labels words{"Arbeitgeber*",  "employeur*",  "datore*",
                              "Betrieb",       "employer",    "versicherter Verdienst",
                              "*verdienst",    "gain assuré", "guadagno assicurato",
                              "*lohn",         "salaire",     "salario",
                              "Rückforderung*"};
    return words;
}

const Labels& perDay() {
    static const Labels words{"pro Tag",   "je Tag",  "par jour",
                              "al giorno", "per day", "Tagesansatz"};
    return words;
}

/// The allowance of a day, by its name: "Taggeld brutto 235.65".
bool isOneDay(const Row& words, const Decimal& value, bool isRecognised) {
    static const Labels names{"Taggeld", "*taggeld", "indemnité journalière",
                              "indennità giornaliera", "daily allowance"};
    constexpr int mostOfADay = 450; // the insured wage has a ceiling
    return value < mostOfADay && findLabel(words, names, isRecognised);
}

/// What stands on such papers and is no pension of the year.
const Labels& noPension() {
    static const Labels words{"*kapital*",
                              "*abfindung*",
                              "capital",
                              "capitale",
                              "*guthaben*",
                              "avoir",
                              "avere",
                              "averi",
                              "Vorjahr*",
                              "Vergleich",
                              "précédente",
                              "précédent",
                              "precedente",
                              "Mindest*",
                              "minimum",
                              "minimo",
                              "*gebühr*",
                              "Mahn*",
                              "Duplikat*",
                              "duplicat*",
                              "Zuschuss*",
                              "Krankenversicher*",
                              "assurance-maladie",
                              "cassa malati",
                              "Augmentation",
                              "Aumento",
                              "Erhöhung*",
                              "Quellensteuer*",
                              "impôt à la source",
                              "imposta alla fonte",
                              "voraussichtlich*",
                              "*kosten",
                              "frais",
                              "spese",
                              "limite*",
                              "*grenze*",
                              "Rückforderung*",
                              "Nachzahlung für",
                              "Nachzahlungen für"};
    return words;
}

bool namesEmployer(const DocumentRows& document) {
    static const Labels denials{"nicht", "kein*", "pas", "non", "not"};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return findLabel(row, employers(), page.isRecognised)
                   && !findLabel(row, denials, page.isRecognised);
        });
    });
}

bool beginsWithin(const DocumentRows& document, int year) {
    static const Labels from{"ab",       "seit",   "Beginn", "*beginn",   "dès",
                             "à partir", "depuis", "début",  "a partire", "dal",
                             "inizio",   "from",   "since",  "decorrenza"};
    constexpr std::size_t farthest = 3; // "dès le 1er juillet 2025"
    const auto dayAt = [](const Row& row, std::size_t word) {
        const auto text = [&](std::size_t at) {
            return at < row.words.size() ? std::string_view(row.words[at].text)
                                         : std::string_view();
        };
        const auto day = parseDay(text(word));
        return day ? day : parseDay(text(word), text(word + 1), text(word + 2));
    };
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            const auto begin = findLabel(row, from, page.isRecognised);
            const std::size_t first = begin ? begin->last + 1 : row.words.size();
            for (std::size_t i = first; i < std::min(row.words.size(), first + farthest); ++i) {
                if (const auto day = dayAt(row, i)) {
                    return day->year() == year && (day->month() != 1 || day->day() != 1);
                }
            }
            return false;
        });
    });
}

bool beginsAfter(const Row& words, int year) {
    static const std::set<std::string> from{"ab", "des", "partir", "dal", "from", "partire"};
    constexpr std::size_t farthest = 3; // "dès le 1er janvier 2025"
    for (std::size_t i = 0; i < words.words.size(); ++i) {
        if (!from.contains(words.words[i].folded)) {
            continue;
        }
        for (std::size_t j = i + 1; j < std::min(words.words.size(), i + 2 + farthest); ++j) {
            const auto day = parseDay(words.words[j].text);
            const auto bare = parseYear(words.words[j].text);
            if ((day && day->year() > year) || (bare && *bare > year)) {
                return true;
            }
        }
    }
    return false;
}

const Labels& perMonth() {
    static const Labels words{"monatlich*", "pro Monat",    "im Monat",         "je Monat",
                              "par mois",   "Monatsbetrag", "Monatsbetreffnis", "Monatsrente*",
                              "mensuel*",   "al mese",      "mensil*",          "Monatsansatz",
                              "p. M."};
    return words;
}

namespace {

/// Words that tell a pension of the state from a fund's: "Rente der AHV", "rendita di vecchiaia
/// AVS"; not "AHV-Nr.".
bool namesStatePension(const std::string& folded) {
    static const Labels pensions{"*rente", "*renten", "rente", "rentes", "rendita", "rendite"};
    static const std::set<std::string> insurances{"ahv", "iv", "avs", "ai", "ahv-iv"};
    static const std::set<std::string> numbers{"nr", "nummer", "no", "n", "numero", "num", "alter"};
    if (!isAnyIn(folded, pensions)) {
        return false;
    }
    const auto words = foldedTokens(folded);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isNumber = (i + 1 < words.size() && numbers.contains(words[i + 1]))
                              || (i > 0 && numbers.contains(words[i - 1]));
        if (insurances.contains(words[i]) && !isNumber) {
            return true;
        }
    }
    return false;
}

} // namespace

bool isOfTheState(const DocumentRows& document) {
    static const Labels state{"*ausgleichskasse*",
                              "*Sozialversicherungsanstalt*",
                              "*Sozialversicherungsstelle*",
                              "*Sozialversicherungsamt*",
                              "*Sozialversicherungszentrum*",
                              "SVA",
                              "IV-Stelle*",
                              "AHV-Kasse*",
                              "AHV-Stelle*",
                              "AHV-Zweigstelle*",
                              "AHV-Anstalt*",
                              "AHV-IV-FAK*",
                              "AHV/IV-Rente*",
                              "AHV-Rente*",
                              "AHV Renten",
                              "IV-Rente*",
                              "IV Renten",
                              "Rentenbescheinigung der AHV",
                              "Rente AVS*",
                              "caisse de compensation",
                              "caisse cantonale de compensation",
                              "caisse AVS",
                              "office AI",
                              "office des assurances sociales",
                              "établissement des assurances sociales",
                              "cassa di compensazione",
                              "cassa cantonale di compensazione",
                              "cassa AVS",
                              "rendita AVS*",
                              "ufficio AI",
                              "istituto delle assicurazioni sociali",
                              "istituto sociale"};
    static const Labels funds{"*pensionskasse*",
                              "*personalvorsorge*",
                              "*sammelstiftung*",
                              "BVG",
                              "LPP",
                              "*vorsorgestiftung*",
                              "caisse de pension*",
                              "fondation de prévoyance",
                              "cassa pension*",
                              "Beruflichen Vorsorge",
                              "Lohnausweis"};
    std::string title;
    bool isNamed = false;
    const PageRows& page = document.pages.front();
    for (const Row& row : page.rows) {
        const bool isTop = page.number == 0 || row.middle() < page.height * 0.45;
        title += isTop ? row.folded + ' ' : "";
        isNamed |= isTop && namesStatePension(row.folded);
    }
    static const Labels named{"Alters- und Hinterlassenenversicherung",
                              "Alters und Hinterlassenenversicherung",
                              "assurance-vieillesse et survivants",
                              "assicurazione vecchiaia e superstiti",
                              "1. Säule",
                              "erste Säule",
                              "1er pilier",
                              "premier pilier",
                              "1° pilastro",
                              "primo pilastro"};
    return (isNamed || isAnyIn(title, state) || isAnyIn(document.folded, named))
           && !isAnyIn(title, funds);
}

} // namespace fiscarel
