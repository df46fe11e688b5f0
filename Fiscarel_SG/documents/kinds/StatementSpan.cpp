#include "Fiscarel_SG/documents/kinds/StatementSpan.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace fiscarel {

namespace {

using taxcore::Date;

bool isBetween(const RowWord& word) {
    static constexpr std::array<std::string_view, 4> signs{"-", "–", "—", "/"};
    static const Labels words{"bis", "au", "al", "to", "zum", "fino al", "jusqu'au"};
    return std::ranges::find(signs, word.text) != signs.end() || isAnyIn(word.folded, words);
}

/// The days a row says that something lasted from and to: "01.11.2024 – 30.11.2024".
std::optional<std::pair<Date, Date>> spanIn(const Row& row) {
    for (std::size_t i = 0; i + 2 < row.words.size(); ++i) {
        const auto from = parseDay(row.words[i].text);
        const auto to = parseDay(row.words[i + 2].text);
        if (from && to && *from < *to && isBetween(row.words[i + 1])) {
            return std::pair(*from, *to);
        }
    }
    return std::nullopt;
}

/// Whether a row tells the time of something else than the statement.
bool isOfOther(const Row& row) {
    static const Labels others{"Laufzeit*", "Zinsperiode*", "Festgeld*", "fällig*",  "durée",
                               "échéance*", "durata",       "scadenza",  "Zinssatz", "tasso"};
    return isAnyIn(row.folded, others);
}

/// Whether an account was opened or closed within the time: then it is all there is of the year.
bool endsOrBegins(const PageRows& page) {
    static const Labels words{"Saldierung*",     "saldiert*",         "aufgelöst*",
                              "Kontoauflösung*", "eröffnet*",         "Eröffnung*",
                              "compte clôturé",  "clôture du compte", "bouclement définitif",
                              "ouverture*",      "estinzione",        "chiusura del conto",
                              "conto chiuso",    "apertura"};
    return std::ranges::any_of(page.rows,
                               [](const Row& row) { return isAnyIn(row.folded, words); });
}

int monthsBetween(const Date& from, const Date& to) {
    return (to.year() - from.year()) * 12 + to.month() - from.month();
}

} // namespace

StatementSpan spanOfStatement(const DocumentRows& document) {
    constexpr int almostYear = 11;  // months between the first and the last
    constexpr int lastWorkday = 30; // of December, at the earliest
    if (document.pages.empty()) {
        return StatementSpan::year;
    }
    for (const Row& row : document.pages.front().rows) {
        if (hasFirmAmount(row)) {
            break; // the head ends
        }
        const auto span = spanIn(row);
        if (!span || isOfOther(row)) {
            continue;
        }
        if (monthsBetween(span->first, span->second) >= almostYear
            || endsOrBegins(document.pages.front())) {
            return StatementSpan::year;
        }
        const bool isEnd = span->second.month() == 12 && span->second.day() >= lastWorkday;
        return isEnd ? StatementSpan::lastPart : StatementSpan::part;
    }
    return StatementSpan::year;
}

} // namespace fiscarel
