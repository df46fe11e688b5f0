#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include "Fiscarel_SG/documents/rows/VocabularyWords.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

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

namespace {

/// Whether what stands at a place was taken off before: "già dedotto il sussidio cantonale",
/// "Gemeindebeitrag bereits abgezogen".
bool isTakenOffBefore(const Row& row, const LabelPlace& place) {
    static const Labels words{"già dedott*",
                              "già detratt*",
                              "déjà déduit*",
                              "bereits abgezogen*",
                              "schon abgezogen*",
                              "bereits abgerechnet*",
                              "bereits berücksichtigt*",
                              "sous déduction",
                              "al netto"};
    constexpr std::size_t farthest = 3; // words between
    for (const Label& label : words) {
        const auto said = findLabel(row, label, false);
        if (said && said->first > 0
            && (said->last < place.first
                    ? place.first - said->last <= farthest
                    : said->first > place.last && said->first - place.last <= farthest)) {
            return true;
        }
    }
    return false;
}

/// Whether a rate only names a kind of loan: "prestito a tasso fisso", "Hypothek mit festem
/// Zinssatz".
bool isRateInName(const Row& row, const LabelPlace& place) {
    static const Labels kinds{"fixe",  "fixes",     "variable",  "variables", "fisso",
                              "fissi", "variabile", "variabili", "ipotecario"};
    static const Labels kindsBefore{"fest*", "fix*", "variabl*"};
    const bool isBehind =
        place.last + 1 < row.words.size() && isAnyIn(row.words[place.last + 1].folded, kinds);
    return isBehind || (place.first > 0 && isAnyIn(row.words[place.first - 1].folded, kindsBefore));
}

/// Whether what looks like "due" or "dû" goes on as another word does: "due superfici", "frais du
/// médecin".
bool isNoDebt(const Row& row, const LabelPlace& place) {
    static const Labels goOn{"by",   "on",  "in", "for", "within", "date", "until", "upon", "at",
                             "from", "now", "to", "and", "as",     "per",  "au",    "le"};
    const std::string& text = row.words[place.first].text;
    if ((text != "due" && text != "du") || place.last + 1 >= row.words.size()) {
        return false;
    }
    const RowWord& next = row.words[place.last + 1];
    return startsSmall(next.text) && !isAnyIn(next.folded, goOn);
}

/// Whether what stands at a place is said not to be: "ohne Kirchensteuer", "(keine Spende)", "nicht
/// abziehbar".
bool isDenied(const Row& row, const LabelPlace& place, Concept meant) {
    static const Labels denials{"ohne",    "exkl*",  "ausser", "ausgenommen", "kein*",
                                "nicht",   "sans",   "hors",   "excepté",     "non",
                                "pas",     "aucun*", "senza",  "esclus*",     "nessun*",
                                "without", "not",    "except", "excluding"};
    // What remains "nach Abzug der Gutschriften" is none of these.
    static const Labels afters{"nach", "après", "dopo", "after"};
    const bool isTakenOff =
        meant == Concept::refunded || meant == Concept::publicShare || meant == Concept::reduction;
    if ((meant == Concept::publicShare || meant == Concept::reduction)
        && isTakenOffBefore(row, place)) {
        return true;
    }
    // "certifions avoir reçu" is a verb.
    static const Labels haves{"avoir", "avere"};
    if (meant == Concept::balance && place.last + 1 < row.words.size()
        && isAnyIn(row.words[place.first].folded, haves)
        && isAnyIn(row.words[place.last + 1].folded, wordsFor(Concept::paid))) {
        return true;
    }
    // "dont vous êtes titulaire" takes no part off.
    static const Labels subjects{"vous", "nous", "il", "elle", "on"};
    if (meant == Concept::other && place.last + 1 < row.words.size()
        && row.words[place.first].folded == "dont"
        && isAnyIn(row.words[place.last + 1].folded, subjects)) {
        return true;
    }
    if (meant == Concept::payable && isNoDebt(row, place)) {
        return true;
    }
    if (meant == Concept::rate && isRateInName(row, place)) {
        return true;
    }
    if (meant == Concept::ofDebt && row.words[place.first].folded.starts_with("kreditor")) {
        return true; // whom the bank owes to
    }
    if (meant == Concept::repayment && place.first > 0
        && isAnyIn(row.words[place.first - 1].folded, afters)) {
        return true; // "Restschuld nach Amortisation"
    }
    // What the bank itself owes is no debt of the customer: "Saldo a nostro debito".
    static const Labels ours{"nostro", "nostra", "notre", "unser*", "our"};
    static const Labels owed{"debito", "debiti", "dette", "dettes", "*schuld", "*schulden", "debt"};
    if (meant == Concept::debt && place.first > 0 && place.first == place.last
        && isAnyIn(row.words[place.first].folded, owed)
        && isAnyIn(row.words[place.first - 1].folded, ours)) {
        return true;
    }
    if (meant == Concept::withholding) {
        return false; // "ohne Verrechnungssteuer" tells of it, too
    }
    constexpr std::size_t farthest = 2; // words between, as in "ohne die bezahlte"
    for (std::size_t i = place.first; i-- > 0 && place.first - i <= farthest + 1;) {
        if (isAnyIn(row.words[i].folded, denials)
            || (isTakenOff && isAnyIn(row.words[i].folded, afters))) {
            return true;
        }
        const std::string& text = row.words[i].text;
        if (!text.empty()
            && std::string_view(",;:.)").find(text.back()) != std::string_view::npos) {
            return false; // another clause
        }
    }
    return false;
}

/// The first label found that is not denied, outside the amounts: "113'029.20" speaks of no
/// year 20.
std::optional<LabelPlace> findWords(const Row& row, const LabelFinder& finder, Concept meant) {
    const auto isInAmount = [&](const LabelPlace& place) {
        return std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
            return amount.amount.hasDecimals && amount.first <= place.first
                   && place.last <= amount.last;
        });
    };
    for (const Label& label : wordsFor(meant)) {
        auto place = finder.find(label);
        while (place && (isInAmount(*place) || isDenied(row, *place, meant))) {
            place = finder.find(label, place->last + 1);
        }
        if (place) {
            return place;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<LabelPlace> findMeaning(const Row& row, const Meaning& meaning, bool isRecognised) {
    const LabelFinder finder(row, isRecognised);
    std::optional<LabelPlace> whole;
    for (const Concept meant : meaning) {
        const auto place = findWords(row, finder, meant);
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
    const LabelFinder finder(row, isRecognised);
    return std::ranges::any_of(concepts, [&](Concept meant) {
        const auto place = finder.find(wordsFor(meant));
        return place && (!isDenied(row, *place, meant) || findWords(row, finder, meant));
    });
}

} // namespace fiscarel
