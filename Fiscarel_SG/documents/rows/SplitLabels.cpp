#include "Fiscarel_SG/documents/rows/SplitLabels.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fiscarel {

namespace {

/// Whether a label that ends with one word goes on with another.
bool goesOn(const RowWord& last, const RowWord& next) {
    static constexpr std::array open{
        "der",  "des", "die", "den",   "und", "oder",  "im",   "in",   "an",  "am",  "aus",
        "von",  "vom", "mit", "zu",    "zur", "zum",   "fur",  "uber", "per", "bei", "du",
        "de",   "la",  "le",  "les",   "d",   "et",    "ou",   "au",   "aux", "par", "pour",
        "sur",  "di",  "del", "della", "dei", "delle", "dell", "e",    "o",   "per", "al",
        "alla", "ai",  "su",  "sul",   "nel", "con",   "da",   "dal"};
    return startsSmall(next.text) || next.text.starts_with('(') || last.text.ends_with('-')
           || last.text.ends_with('/') || last.text.ends_with(',')
           || std::ranges::find(open, last.folded) != open.end();
}

} // namespace

std::vector<RowWord> labelOverLines(const Row& above, const Row& below) {
    const std::vector<LabelPlace> heads = cellsOf(above);
    const std::vector<LabelPlace> cells = cellsOf(below);
    const bool isLabel =
        !hasFirmAmount(above) && heads.size() == 1 && cells.size() >= 2
        && std::abs(heads[0].left - cells[0].left) <= aligned
        && roleOf(below, cells[0]) == Role::text
        && std::ranges::all_of(cells.begin() + 1, cells.end(), [&](const LabelPlace& cell) {
               return roleOf(below, cell) != Role::text;
           });
    if (!isLabel || !goesOn(above.words.back(), below.words.front())) {
        return {};
    }
    std::vector<RowWord> label = above.words;
    const std::vector<RowWord> rest = wordsOf(below, cells[0]);
    label.insert(label.end(), rest.begin(), rest.end());
    return label;
}

std::vector<RowWord> beforeColumns(std::vector<RowWord> label, const Row& row,
                                   const LabelPlace& first) {
    constexpr double blank = 4; // points
    double right = first.right;
    for (auto word = label.rbegin(); word != label.rend(); ++word) {
        word->place = {right - word->place.width(), row.top, right, row.bottom};
        right = word->place.left - blank;
    }
    label.insert(label.end(), row.words.begin() + static_cast<std::ptrdiff_t>(first.last) + 1,
                 row.words.end());
    return label;
}

} // namespace fiscarel
