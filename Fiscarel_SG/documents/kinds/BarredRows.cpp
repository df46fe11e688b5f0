#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <string_view>

namespace fiscarel {

namespace {

/// Whether a row speaks of the first day of a year and not of its last.
bool isOfYearsBeginning(const Row& row) {
    const auto text = [&](std::size_t at) -> std::string_view {
        return at < row.words.size() ? std::string_view(row.words[at].text) : std::string_view();
    };
    bool isFirst = false;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        auto day = parseDay(text(i));
        day = day ? day : parseDay(text(i), text(i + 1), text(i + 2));
        isFirst |= day && day->month() == 1 && day->day() == 1;
        if (day && day->month() == 12) {
            return false;
        }
    }
    return isFirst;
}

/// Whether a row tells what was paid on a day, be it the first of a year: "Prämie vom 01.01.2024".
bool isPaymentOfDay(const Row& row, bool isRecognised) {
    static const Labels stands{"*vortrag", "*saldo", "solde", "Stand", "reporté*", "*guthaben",
                               "Anfangs*", "avoir",  "état",  "stato", "Beginn"};
    return namesAny(row, {Concept::contribution, Concept::premium}, isRecognised)
           && std::ranges::any_of(
               row.words, [](const RowWord& word) { return parseDay(word.text).has_value(); })
           && !findLabel(row, stands, isRecognised);
}

} // namespace

bool namesMeant(const Row& row, const std::vector<Concept>& concepts, bool isRecognised) {
    return std::ranges::any_of(concepts, [&](Concept meant) {
        return namesAny(row, {meant}, isRecognised)
               && (meant != Concept::opening || !isPaymentOfDay(row, isRecognised));
    });
}

bool isBarred(const Row& row, const Wanted& wanted, bool isRecognised) {
    const bool isNotOpening =
        std::ranges::find(wanted.notMeant, Concept::opening) != wanted.notMeant.end();
    return findLabel(row, wanted.without, isRecognised).has_value() || saysLeftOut(row)
           || (isNotOpening && isOfYearsBeginning(row) && !isPaymentOfDay(row, isRecognised));
}

} // namespace fiscarel
