#include "Fiscarel_SG/documents/rows/HeadingLines.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;

/// The cell of a row that each one of another overlaps; absent where one overlaps none or several.
std::optional<std::vector<std::size_t>> cellsOver(const Cells& above, const Cells& below) {
    std::vector<std::size_t> over;
    for (const LabelPlace& cell : below) {
        std::optional<std::size_t> found;
        for (std::size_t i = 0; i < above.size(); ++i) {
            if (above[i].left < cell.right && cell.left < above[i].right) {
                if (found) {
                    return std::nullopt;
                }
                found = i;
            }
        }
        if (!found || (!over.empty() && over.back() >= *found)) {
            return std::nullopt;
        }
        over.push_back(*found);
    }
    return over;
}

bool hasOnlyWords(const Row& row, const Cells& cells) {
    return std::ranges::all_of(cells,
                               [&](const LabelPlace& cell) { return lettersIn(row, cell) >= 2; });
}

/// Whether two rows are the lines of a heading and the third is all that stands below it.
bool isHeadingAt(const PageRows& page, std::size_t at) {
    constexpr std::size_t fewest = 3;  // columns
    constexpr double lineGap = 0.8;    // heights of a row
    constexpr double amountsGap = 2.5; // heights of a row
    const Row& first = page.rows[at];
    const Row& second = page.rows[at + 1];
    const Row& values = page.rows[at + 2];
    const auto firmOf = [](const Row& row) {
        return std::ranges::count_if(row.amounts,
                                     [](const RowAmount& one) { return one.amount.isFirm(); });
    };
    const double height = std::max(first.height(), second.height());
    if (second.top - first.bottom > lineGap * height || firmOf(first) > 0 || firmOf(second) > 0
        || values.top - second.bottom > amountsGap * height || !hasOnlyValues(values)
        || firmOf(values) < std::ptrdiff_t{fewest} || isGridOfBoxes(first, second, values)) {
        return false;
    }
    const bool hasMore = at + 3 < page.rows.size() && firmOf(page.rows[at + 3]) >= 2;
    const Cells above = cellsOf(first);
    const Cells below = cellsOf(second);
    return !hasMore && above.size() >= fewest && below.size() >= 2 && below.size() <= above.size()
           && above.size() == cellsOf(values).size() && hasOnlyWords(first, above)
           && hasOnlyWords(second, below);
}

/// The first word of a cell of a row that carries on a word parted at the end of its line above:
/// "Kosten-" over "beteiligung"; "Haupt-" over "und Nebenerwerb" is not parted.
RowWord* carriedOn(const RowWord& parted, Row& below) {
    constexpr double lineGap = 1.2; // heights of a row
    static constexpr std::array<std::string_view, 7> joins{"und", "oder", "bzw", "et",
                                                           "ou",  "e",    "o"};
    const double height = parted.place.bottom - parted.place.top;
    if (below.top - parted.place.bottom > lineGap * height || below.top < parted.place.top) {
        return nullptr;
    }
    for (const LabelPlace& cell : cellsOf(below)) {
        RowWord& word = below.words[cell.first];
        if (startsSmall(word.text) && word.place.left < parted.place.right
            && parted.place.left < word.place.right
            && std::ranges::find(joins, word.folded) == joins.end()) {
            return &word;
        }
    }
    return nullptr;
}

/// Whether a word ends with the hyphen that parts it.
bool isParted(const RowWord& word) {
    constexpr std::size_t shortest = 4; // with the hyphen
    return word.text.size() >= shortest && word.text.ends_with('-') && !hasDigit(word.text);
}

} // namespace

void joinPartedWords(PageRows& page) {
    for (std::size_t at = 0; at + 1 < page.rows.size() && page.number != 0; ++at) {
        Row& above = page.rows[at];
        Row& below = page.rows[at + 1];
        const Cells cells = cellsOf(above);
        bool isChanged = false;
        for (const LabelPlace& cell : cells) {
            RowWord& parted = above.words[cell.last];
            RowWord* rest =
                cells.size() > 1 && isParted(parted) ? carriedOn(parted, below) : nullptr;
            if (rest != nullptr) {
                parted.text = parted.text.substr(0, parted.text.size() - 1) + rest->text;
                parted.folded = foldWords(parted.text);
                parted.place.left = std::min(parted.place.left, rest->place.left);
                parted.place.right = std::max(parted.place.right, rest->place.right);
                rest->text.clear();
                isChanged = true;
            }
        }
        if (isChanged) {
            std::erase_if(below.words, [](const RowWord& word) { return word.text.empty(); });
            above = rowOfWords(std::move(above.words), page.isRecognised);
            below = rowOfWords(std::move(below.words), page.isRecognised);
        }
    }
    std::erase_if(page.rows, [](const Row& row) { return row.words.empty(); });
}

void layInLine(std::vector<RowWord>& words, double left, double right) {
    constexpr double blank = 1; // letters
    if (std::ranges::is_sorted(words, {}, [](const RowWord& word) { return word.place.left; })) {
        return;
    }
    const auto lettersOf = [](const RowWord& word) {
        return static_cast<double>(word.text.size()) + blank;
    };
    double letters = 0;
    for (const RowWord& word : words) {
        letters += lettersOf(word);
    }
    const double letter = (right - left) / letters;
    for (RowWord& word : words) {
        word.place.left = left;
        left += lettersOf(word) * letter;
        word.place.right = left - blank * letter;
    }
}

void joinHeadingLines(PageRows& page) {
    for (std::size_t at = 0; at + 2 < page.rows.size() && page.number != 0; ++at) {
        if (!isHeadingAt(page, at)) {
            continue;
        }
        const Row& first = page.rows[at];
        const Row& second = page.rows[at + 1];
        const Cells above = cellsOf(first);
        const Cells below = cellsOf(second);
        const auto over = cellsOver(above, below);
        if (!over) {
            continue;
        }
        std::vector<RowWord> joined;
        for (std::size_t i = 0; i < above.size(); ++i) {
            std::vector<RowWord> words = wordsOf(first, above[i]);
            double left = above[i].left;
            double right = above[i].right;
            if (const auto own = std::ranges::find(*over, i); own != over->end()) {
                const LabelPlace& line = below[static_cast<std::size_t>(own - over->begin())];
                const auto more = wordsOf(second, line);
                words.insert(words.end(), more.begin(), more.end());
                left = std::min(left, line.left);
                right = std::max(right, line.right);
            }
            layInLine(words, left, right);
            for (RowWord& word : words) {
                word.place.top = second.top;
                word.place.bottom = second.bottom;
            }
            joined.insert(joined.end(), words.begin(), words.end());
        }
        page.rows[at] = rowOfWords(std::move(joined), page.isRecognised);
        page.rows.erase(page.rows.begin() + static_cast<std::ptrdiff_t>(at) + 1);
    }
}

} // namespace fiscarel
