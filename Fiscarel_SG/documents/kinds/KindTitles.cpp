#include "Fiscarel_SG/documents/kinds/KindTitles.h"

#include "Fiscarel_SG/documents/kinds/KindEvidence.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

namespace {

/// Numbers of policies look like amounts, but a line goes on behind them.
bool endsInAmount(const Row& row) {
    return !row.amounts.empty() && row.amounts.back().amount.isFirm()
           && row.amounts.back().last + 1 == row.words.size();
}

/// Whether a row is of one cell; beside it a year or the number of a sheet may stand.
bool standsAlone(const Row& row) {
    const auto isOfNumbers = [&](const LabelPlace& cell) {
        return std::ranges::any_of(wordsOf(row, cell),
                                   [](const RowWord& word) { return hasDigit(word.text); });
    };
    const auto cells = cellsOf(row);
    return cells.size() == 1
           || (cells.size() == 2 && !isOfNumbers(cells[0]) && isOfNumbers(cells[1]));
}

/// The words before a dash or point that stands by itself: what follows tells of whom and of when.
Row beforeDash(const Row& row) {
    const auto isDash = [](const RowWord& word) {
        static constexpr std::array<std::string_view, 6> dashes{"-", "–", "—", "·", "•", "|"};
        return std::ranges::find(dashes, word.text) != dashes.end();
    };
    const auto end = std::ranges::find_if(row.words, isDash);
    Row head;
    for (auto word = row.words.begin(); word != end; ++word) {
        head.words.push_back(*word);
        head.folded += word->folded + ' ';
    }
    return head;
}

} // namespace

bool namesMoneyAtBank(const DocumentRows& document) {
    static const std::vector<Concept> concepts{Concept::interest, Concept::balance, Concept::debt,
                                               Concept::debtInterest, Concept::withholding};
    return std::ranges::any_of(document.pages, [](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return row.middle() < page.height * 0.93 && namesAny(row, concepts, page.isRecognised);
        });
    });
}

bool hasPillarTitle(const DocumentRows& document) {
    static const Labels freePillar{"3b", "freie Vorsorge", "freien Vorsorge", "prévoyance libre",
                                   "previdenza libera"};
    static const Labels names{"3a",
                              "3a-*",
                              "Säule 3a",
                              "Pilier 3a",
                              "Pilastro 3a",
                              "gebundene Vorsorge*",
                              "gebundenen Vorsorge*",
                              "gebundener Vorsorge*",
                              "gebundene Selbstvorsorge",
                              "gebundenen Selbstvorsorge",
                              "*Vorsorgeportfolio*",
                              "*Vorsorgedepot*",
                              "*Vorsorgekonto*",
                              "*Vorsorgepolice*",
                              "prévoyance liée",
                              "police de prévoyance",
                              "previdenza vincolata",
                              "polizza di previdenza"};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return row.middle() < page.height * 0.45 && row.words.size() <= 8 && !endsInAmount(row)
                   && isAnyIn(row.folded, names) && !isAnyIn(row.folded, freePillar);
        });
    });
}

bool hasWageTitle(const DocumentRows& document) {
    static const Labels wages{"*lohn",
                              "*lohnbescheinigung*",
                              "*lohnausweis*",
                              "*lohnbestätigung*",
                              "*lohnaufstellung*",
                              "*lohnübersicht*",
                              "*lohnzusammen*",
                              "*lohnabrechnung*",
                              "*lohnblatt",
                              "*salär",
                              "*salärbescheinigung*",
                              "*salärausweis*",
                              "*salärbestätigung*",
                              "*saläraufstellung*",
                              "*salärübersicht*",
                              "*salärzusammen*",
                              "*salärabrechnung*",
                              "*gehalt",
                              "*gehaltbescheinigung*",
                              "*gehaltausweis*",
                              "*gehaltbestätigung*",
                              "*gehaltaufstellung*",
                              "*gehaltübersicht*",
                              "*gehaltzusammen*",
                              "*gehaltabrechnung*",
                              "*löhne",
                              "*gehälter",
                              "*besoldung",
                              "salaire*",
                              "salari*",
                              "stipendi*",
                              "traitement*",
                              "rémunération*",
                              "retribuzion*",
                              "remunerazion*",
                              "honoraire*",
                              "Honorar",
                              "Honorare",
                              "onorari*",
                              "*verdienst",
                              "Bezüge",
                              "gains",
                              "guadagni",
                              "Verwaltungsrat*",
                              "conseil d'administration",
                              "consiglio d'amministrazione",
                              "salary",
                              "wages"};
    static const Labels certificates{
        "*bescheinigung*", "*ausweis*",    "*bestätigung*", "*aufstellung*", "*übersicht*",
        "*zusammen*",      "attestat*",    "attestazion*",  "certificat*",   "conferma*",
        "confirmation",    "récapitul*",   "riepilog*",     "dichiarazion*", "relevé",
        "*blatt",          "*abrechnung*", "décompte*",     "conteggio",     "statement",
        "distinta"};
    static const Labels others{"*ausfall*", "*rente*",  "*pension*", "*vorsorge*",
                               "perte",     "perdita",  "*einkauf*", "*einkäufe*",
                               "rachat*",   "riscatt*", "*abzüge",   "gemäss",
                               "laut",      "selon",    "secondo",   "Beiblatt*"};
    static const Labels ledgers{"Lohnkonto 20*", "compte salaire 20*", "conto salario 20*"};
    const bool mayBeLedger = !namesMoneyAtBank(document); // banks have such accounts
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            if (row.middle() >= page.height * 0.45 || endsInAmount(row)) {
                return false;
            }
            const Row head = beforeDash(row);
            const bool isTitle =
                standsAlone(row) && head.words.size() <= 8 && !row.words.back().text.ends_with('.')
                && isAnyIn(head.folded, wages) && isAnyIn(head.folded, certificates)
                && !isAnyIn(row.folded, others);
            return isTitle || (mayBeLedger && isAnyIn(row.folded, ledgers));
        });
    });
}

bool hasVestedTitle(const DocumentRows& document) {
    static const Labels names{
        "Freizügigkeitskont*",         "Freizügigkeitsdepot*",         "Freizügigkeitsguthaben*",
        "Freizügigkeitspolice*",       "compte de libre passage",      "avoir de libre passage",
        "avoirs de libre passage",     "police de libre passage",      "dépôt de libre passage",
        "conto di libero passaggio",   "averi di libero passaggio",    "avere di libero passaggio",
        "polizza di libero passaggio", "deposito di libero passaggio", "vested benefits"};
    static const Labels others{"3a",
                               "Privatkonto*",
                               "Sparkonto*",
                               "Kontokorrent*",
                               "Hypothek*",
                               "compte privé",
                               "compte courant",
                               "compte d'épargne*",
                               "hypothèque*",
                               "conto privato",
                               "conto corrente",
                               "conto risparmio*",
                               "conto di risparmio",
                               "ipoteca*",
                               "Einkauf*",
                               "rachat*",
                               "riscatt*",
                               "*rente",
                               "rente",
                               "rendita"};
    return !isAnyIn(document.folded, others)
           && std::ranges::any_of(document.pages, [&](const PageRows& page) {
                  return std::ranges::any_of(page.rows, [&](const Row& row) {
                      const Row head = beforeDash(row);
                      return row.middle() < page.height * 0.45 && standsAlone(row)
                             && head.words.size() <= 8 && !endsInAmount(row)
                             && isAnyIn(head.folded, names);
                  });
              });
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

} // namespace fiscarel
