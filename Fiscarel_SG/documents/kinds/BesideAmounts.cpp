#include "Fiscarel_SG/documents/kinds/BesideAmounts.h"

#include <algorithm>

namespace fiscarel {

bool followsBound(const Row& row, std::size_t first) {
    static const Labels bounds{
        "bis",          "bis zu",        "unter",    "höchstens",   "maximal", "max",
        "ab",           "mindestens",    "mehr als", "weniger als", "jusqu'à", "au plus",
        "au maximum",   "au maximum de", "moins de", "plus de",     "dès",     "à partir de",
        "au moins",     "fino a",        "fino ad",  "meno di",     "più di",  "al massimo",
        "massimo di",   "a partire da",  "almeno",   "up to",       "at most", "at least",
        "not exceeding"};
    constexpr std::size_t longest = 3; // words of a bound
    std::size_t end = first;
    while (end > 0 && isFrancs(row.words[end - 1].text)) {
        --end;
    }
    Row before;
    before.words.assign(row.words.begin()
                            + static_cast<std::ptrdiff_t>(end - std::min(end, longest)),
                        row.words.begin() + static_cast<std::ptrdiff_t>(end));
    return std::ranges::any_of(bounds, [&](const Label& bound) {
        const auto place = findLabel(before, bound, false);
        return place && place->last + 1 == before.words.size();
    });
}

bool joinsLabel(const RowWord& word) {
    static const Labels joins{"an", "auf", "de", "di", "per", "pour"};
    return isAnyIn(word.folded, joins);
}

} // namespace fiscarel
