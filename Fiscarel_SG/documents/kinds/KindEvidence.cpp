#include "Fiscarel_SG/documents/kinds/KindEvidence.h"

#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/KindTitles.h"
#include "Fiscarel_SG/documents/kinds/KindWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Isin.h"

#include <algorithm>
#include <array>
#include <map>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;

constexpr int enough = 6;   ///< below, nothing is concluded
constexpr int clearly = 10; ///< and this far ahead of the next, the kind is clear
constexpr int clearAhead = 4;
constexpr int pillarTitle = 16;
constexpr int wageTitle = 14;
constexpr int provenWage = 14;
constexpr int fundsPension = 10;
constexpr int fromPractice = 8;
constexpr int ofOneInsurance = 24;
constexpr int decisive = 12; ///< of the words that make a document none of the kinds

/// Employee-share annexes carry their name at the top; a certificate mentions them in box 15. What
/// a certificate whose wage adds up names beside it ("Verbesserungsvorschlag") excludes nothing,
/// nor does the word for a slip on one of the whole year.
int exclusionWeight(const std::string& title, const std::string& all, bool isWage, bool isOfYear) {
    int weight = 0;
    for (const KindExclusion& exclusion : kindExclusions()) {
        using enum KindExclusion::Holds;
        const bool holds =
            (exclusion.holds != withoutWage || !isWage)
            && (exclusion.holds != onMonths || !isOfYear) && isAnyIn(title, exclusion.all.front())
            && !isAnyIn(title, exclusion.unless)
            && std::ranges::all_of(exclusion.all,
                                   [&](const Labels& words) { return isAnyIn(all, words); });
        weight = std::max(weight, holds ? exclusion.weight : 0);
    }
    return weight;
}

/// Whether a word has a form, 0 standing for a digit and A for a capital letter.
bool hasForm(std::string_view word, std::string_view form) {
    return word.size() == form.size() && std::ranges::equal(word, form, [](char c, char wanted) {
               return wanted == '0'   ? isDigit(c)
                      : wanted == 'A' ? c >= 'A' && c <= 'Z'
                                      : c == wanted;
           });
}

/// Positions of the medical tariffs: TARMED, TARDOC, laboratory, dentists'.
bool isTariffCode(std::string_view word) {
    return std::ranges::any_of(std::array<std::string_view, 3>{"00.0000", "AA.00.0000", "4.0000"},
                               [&](std::string_view form) { return hasForm(word, form); });
}

bool isSubBox(std::string_view word) {
    return hasForm(word, "13.0.0") || word == "10.1" || word == "10.2";
}

/// What the form of a document's numbers says: tariff codes, securities, the boxes of a form.
void weighStructure(const DocumentRows& document, std::map<Kind, int>& scores) {
    struct Form {
        Kind kind;
        bool (*holds)(std::string_view);
        int most;
        int count = 0;
    };
    std::array forms{Form{Kind::arztrechnung, isTariffCode, 5}, Form{Kind::steuerauszug, isIsin, 3},
                     Form{Kind::lohnausweis, isSubBox, 3}};
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            for (const RowWord& word : row.words) {
                for (Form& form : forms) {
                    form.count += form.holds(word.text) ? 1 : 0;
                }
            }
        }
    }
    for (const Form& form : forms) {
        if (form.count >= 2) {
            scores[form.kind] += form.most;
        }
    }
}

/// What only a statement of securities speaks of.
const Labels& securities() {
    static const Labels words{"Valor*",        "ISIN",    "Depot*", "Wertschrift*",
                              "Werte mit VSt", "*titel",  "titres", "titoli",
                              "Aktien",        "actions", "azioni", "Obligation*",
                              "obbligazion*",  "Fonds",   "fondi",  "Kurs*",
                              "eCH-0196",      "Stück",   "dépôt",  "deposito titoli",
                              "*fondsanteil*"};
    return words;
}

/// Without any of these a document is no pension fund's.
const Labels& provision() {
    static const Labels words{"*vorsorge*",
                              "*pension*",
                              "*rente*",
                              "*säule*",
                              "BVG",
                              "LPP",
                              "BPVG",
                              "AHV*",
                              "prévoyance",
                              "pilier",
                              "rente*",
                              "previdenza*",
                              "pilastro",
                              "rendita",
                              "*alters*",
                              "Sammelstiftung",
                              "Gemeinschaftsstiftung",
                              "fondation collective",
                              "fondazione collettiva",
                              "versicherte Person",
                              "personne assurée",
                              "persona assicurata",
                              "*personalstiftung*",
                              "*sammeleinrichtung*",
                              "Freizügigkeit*",
                              "retraite",
                              "vieillesse",
                              "vecchiaia",
                              "assurance-vieillesse",
                              "Versicherungsjahre*",
                              "années d'assurance",
                              "anni di assicurazione"};
    return words;
}

/// Without any of these a policy is one of things or liabilities, which have sums and premiums too.
const Labels& ofLives() {
    static const Labels words{"*leben*", "*todesfall*", "*rückkauf*", "vie",     "décès",
                              "rachat",  "vita",        "decesso",    "riscatto"};
    return words;
}

/// Without any of these premiums are those of something else: of a loan, of a building.
const Labels& ofHealth() {
    static const Labels words{"*krank*",
                              "*unfall*",
                              "*gesundheit*",
                              "KVG",
                              "OKP",
                              "VVG",
                              "LAMal",
                              "LCA",
                              "AOS",
                              "AOMS",
                              "UVG",
                              "OKPG",
                              "malad*",
                              "malat*",
                              "*accident*",
                              "infortun*",
                              "*santé*",
                              "salute",
                              "health",
                              "medical",
                              "*pflege*",
                              "*heilung*",
                              "*spital*",
                              "soins",
                              "sanitari*",
                              "*zahn*",
                              "*arzt*",
                              "médic*",
                              "medic*",
                              "cure",
                              "franchise",
                              "Grundversicherung*",
                              "franchigia",
                              "*zusatzversicherung*",
                              "assurance de base",
                              "assicurazione di base",
                              "obligatorische*",
                              "obligatoire*",
                              "obbligatori*"};
    return words;
}

/// Whether the head of a document is a pension fund's, and not that of the form which serves wages
/// and pensions.
bool isOfPensionFund(const std::string& title) {
    static const Labels funds{"*pensionskasse*",
                              "*personalvorsorge*",
                              "*vorsorgeeinrichtung*",
                              "*sammelstiftung*",
                              "*sammeleinrichtung*",
                              "*personalstiftung*",
                              "*vorsorgewerk*",
                              "caisse de pension*",
                              "caisse de retraite",
                              "fonds de prévoyance",
                              "institution de prévoyance",
                              "cassa pension*",
                              "istituto di previdenza",
                              "BVG",
                              "LPP"};
    static const Labels form{"Lohnausweis", "Certificat de salaire", "Certificato di salario",
                             "Ausgleichskasse", "Caisse de compensation"};
    return isAnyIn(title, funds) && !isAnyIn(title, form);
}

/// Whether whom a document comes from treats people: what it says of their insurance counts less.
bool isFromPractice(const DocumentRows& document) {
    static const Labels insurers{"*versicherung*", "*kasse",  "Assurance*",
                                 "Assicurazion*",  "Caisse*", "Cassa"};
    const std::string issuer = foldWords(readFacts(document).issuer.text);
    return isAnyIn(issuer, careProviders()) && !isAnyIn(issuer, insurers);
}

/// Whether a bank lists a pillar 3a among other accounts, and nothing that was paid into it.
bool isBankOverview(const DocumentRows& document) {
    static const Labels others{"Privatkonto*",       "Sparkonto*",      "Jugendsparkonto*",
                               "Lohnkonto*",         "Kontokorrent*",   "Zahlungskonto*",
                               "Hypothek*",          "compte privé",    "compte courant",
                               "compte d'épargne*",  "compte épargne*", "hypothèque*",
                               "conto privato",      "conto corrente",  "conto risparmio*",
                               "conto di risparmio", "ipoteca*"};
    const auto named = std::ranges::count_if(
        others, [&](const Label& other) { return isIn(document.folded, other); });
    return named > 0 && (named > 1 || isAnyIn(document.folded, wordsFor(Concept::withholding)))
           && isAnyIn(document.folded, wordsFor(Concept::interest))
           && std::ranges::none_of(document.pages, [](const PageRows& page) {
                  return std::ranges::any_of(page.rows, [&](const Row& row) {
                      return hasFirmAmount(row)
                             && namesAny(row, {Concept::contribution}, page.isRecognised);
                  });
              });
}

/// Whether a list of policies states what was paid for those of pillar 3a, beside free ones.
bool statesTiedPremiums(const DocumentRows& document) {
    using enum Concept;
    static const std::vector<Meaning> tied{{deductible, pillar3a},
                                           {contribution, pillar3a, total},
                                           {contribution, pillar3a, paid},
                                           {premium, pillar3a, total},
                                           {premium, pillar3a, paid}};
    return std::ranges::any_of(document.pages, [](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return hasFirmAmount(row) && !namesAny(row, {freePillar}, page.isRecognised)
                   && std::ranges::any_of(tied, [&](const Meaning& meaning) {
                          return findMeaning(row, meaning, page.isRecognised).has_value();
                      });
        });
    });
}

/// What more than single words tell: what is missing, who sends it, what adds up.
void weighWhole(const DocumentRows& document, const std::string& title, int wageBonus,
                std::map<Kind, int>& scores) {
    if (!isAnyIn(document.folded, securities())) { // a bank may call anything a tax statement
        scores[Kind::bankauszug] += scores[Kind::steuerauszug] / 2;
        scores[Kind::steuerauszug] = 0;
    }
    if (!isAnyIn(document.folded, provision())) { // one buys in shops as well
        scores[Kind::pensionskasse] = 0;
    }
    if (!isAnyIn(document.folded, ofHealth())) {
        scores[Kind::krankenkasse] /= 2;
    }
    if (!isAnyIn(document.folded, ofLives())) {
        scores[Kind::versicherung] = 0;
    }
    if (isAccidentCover(document)) { // pays sums for lives and sick days too
        scores[Kind::krankenkasse] = 0;
        scores[Kind::versicherung] += ofOneInsurance;
    } else if (isAnnuity(document)) {
        scores[Kind::versicherung] += ofOneInsurance;
    }
    if (isPensionPaper(document) && isOfPensionFund(title)) {
        scores[Kind::pensionskasse] += fundsPension;
    }
    if (!namesMoneyAtBank(document)) { // a course or a fund sends a "Kontoauszug" too
        scores[Kind::bankauszug] /= 2;
    }
    // Homes and hospitals pay wages, too.
    const bool isOfWage = wageBonus > 0 || isAnyIn(title, wordsFor(Concept::wage));
    if (!isOfWage && scores[Kind::arztrechnung] >= enough && isFromPractice(document)) {
        scores[Kind::arztrechnung] += fromPractice;
    }
    scores[Kind::lohnausweis] += wageBonus;
    if (isBankOverview(document)) {
        scores[Kind::saeule3a] = 0;
    } else if (hasPillarTitle(document)) {
        scores[Kind::saeule3a] += pillarTitle;
        scores[Kind::versicherung] = 0; // a tied policy, whose premium is the contribution
    } else if (scores[Kind::versicherung] >= enough && statesTiedPremiums(document)) {
        scores[Kind::saeule3a] += scores[Kind::versicherung]; // free policies beside are wealth
        scores[Kind::versicherung] = 0;
    }
}

} // namespace

KindVerdict weighKind(const DocumentRows& document, WageProof proof) {
    const std::string title = titleWords(document);
    std::map<Kind, int> scores;
    for (const KindWords& evidence : kindWords()) {
        if (isAnyIn(title, evidence.words)) {
            scores[evidence.kind] += 2 * evidence.weight;
        } else if (isAnyIn(document.folded, evidence.words)) {
            scores[evidence.kind] += evidence.weight;
        }
    }
    weighStructure(document, scores);
    const bool isTitled = hasWageTitle(document);
    const bool isProven = proof != WageProof::none;
    const int wageBonus = (isProven ? provenWage : 0) + (isTitled ? wageTitle : 0);
    weighWhole(document, title, wageBonus, scores);
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
    if (isAnyIn(document.folded, denials()) || hasVestedTitle(document)) {
        return {.kind = Kind::anderes, .isClear = true};
    }
    if (const int against = exclusionWeight(title, document.folded, isProven && isTitled,
                                            proof == WageProof::ofYear);
        against >= decisive && against + 6 > best - wageBonus) {
        return {.kind = Kind::anderes, .isClear = true};
    }
    if (best < enough) {
        return {};
    }
    verdict.isClear = best >= clearly && best - second >= clearAhead;
    return verdict;
}

bool isPensionPaper(const DocumentRows& document) {
    static const Labels names{"Rentenbescheinigung*",
                              "Rentenausweis",
                              "Rentenbestätigung*",
                              "Rentenleistungen",
                              "ausgerichtete Rente*",
                              "ausgerichteten Rente*",
                              "Renten",
                              "Rentenbezug*",
                              "der Rente",
                              "Ihre Rente",
                              "Ihrer Rente",
                              "Rente 20*",
                              "rentes 20*",
                              "rendita 20*",
                              "Leistungsausweis",
                              "Altersrente",
                              "*auszahlung",
                              "*auszahlungen",
                              "ausbezahlte Leistung*",
                              "ausbezahlten Leistung*",
                              "prestations versées",
                              "prestazioni versate",
                              "Attestation de rente*",
                              "Attestation des rentes",
                              "Certificat de rente*",
                              "rentes versées",
                              "Attestazione delle rendite",
                              "Attestazione di rendita",
                              "Attestazione della rendita",
                              "Certificato di rendita",
                              "rendite versate"};
    return isAnyIn(titleWords(document), names);
}

bool isPropertyAccount(const DocumentRows& document) {
    const std::string title = titleWords(document);
    return isAnyIn(title, propertyAccounts()) || isAnyIn(title, letHomes());
}

} // namespace fiscarel
