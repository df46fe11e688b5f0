#include "Fiscarel_SG/documents/rows/HouseNumbers.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace fiscarel {

namespace {

/// "3a", also with a comma behind.
bool mayBeHouseNumber(std::string_view text) {
    while (text.ends_with(',')) {
        text.remove_suffix(1);
    }
    const auto digits = static_cast<std::size_t>(std::ranges::count_if(text, isDigit));
    const char last = text.empty() ? '0' : text.back();
    return digits >= 1 && digits <= 3 && text.size() == digits + 1
           && ((last >= 'a' && last <= 'z') || (last >= 'A' && last <= 'Z'));
}

/// A postal code and what may be the name of a place: "9500 Wil", "FL-9494 Schaan".
bool isPlaceAt(const Row& row, std::size_t at) {
    if (at + 1 >= row.words.size()) {
        return false;
    }
    std::string_view code = row.words[at].text;
    for (const std::string_view country : {"CH-", "FL-", "LI-"}) {
        code.remove_prefix(code.starts_with(country) ? country.size() : 0);
    }
    const std::string& place = row.words[at + 1].text;
    const bool isName =
        !place.empty()
        && ((place[0] >= 'A' && place[0] <= 'Z') || static_cast<unsigned char>(place[0]) >= 0x80);
    return code.size() == 4 && code[0] != '0' && std::ranges::all_of(code, isDigit) && isName;
}

/// Whether the words of a cell before a number name a street.
bool namesStreet(const Row& row, std::size_t first, std::size_t number) {
    static const Labels before{"rue",     "ruelle", "chemin",   "avenue", "route",
                               "impasse", "quai",   "via",      "viale",  "vicolo",
                               "piazza",  "strada", "contrada", "salita", "sentier"};
    static const Labels last{"*strasse", "*str",   "*gasse", "*weg",    "*platz", "*rain",
                             "*halde",   "*allee", "*ring",  "*graben", "*steig", "*quai"};
    for (std::size_t i = first; i < number; ++i) {
        if (isAnyIn(row.words[i].folded, before)) {
            return true;
        }
    }
    return isAnyIn(row.words[number - 1].folded, last);
}

/// Whether a cell stands over one with a postal code, as in an address.
bool isOverPlace(const PageRows& page, std::size_t at, double left) {
    if (at + 1 >= page.rows.size()) {
        return false;
    }
    const Row& below = page.rows[at + 1];
    const double most = below.height();
    return std::ranges::any_of(cellsOf(below), [&](const LabelPlace& cell) {
        return std::abs(cell.left - left) <= most && isPlaceAt(below, cell.first);
    });
}

} // namespace

void hideHouseNumbers(PageRows& page) {
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        Row& row = page.rows[at];
        bool isChanged = false;
        for (const LabelPlace& cell : cellsOf(row)) {
            for (std::size_t i = cell.first + 1; i <= cell.last; ++i) {
                if (mayBeHouseNumber(row.words[i].text)
                    && (namesStreet(row, cell.first, i) || isPlaceAt(row, i + 1)
                        || (i == cell.last && isOverPlace(page, at, cell.left)))) {
                    row.words[i].folded.clear();
                    isChanged = true;
                }
            }
        }
        if (isChanged) {
            row = rowOfWords(std::move(row.words), page.isRecognised);
        }
    }
}

} // namespace fiscarel
