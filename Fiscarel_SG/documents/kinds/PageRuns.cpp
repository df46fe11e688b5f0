#include "Fiscarel_SG/documents/kinds/PageRuns.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

/// Where a run of words ends: before a gap as wide as between columns.
std::size_t endOfRun(const PageRows& page, const Row& row, std::size_t first) {
    std::size_t last = first;
    const double widest = page.number == 0 ? 2 : 1.8 * row.height();
    while (last + 1 < row.words.size()
           && row.words[last + 1].place.left - row.words[last].place.right < widest) {
        ++last;
    }
    return last;
}

} // namespace

std::string Run::text() const { return textBetween(*row, first, last); }

std::string Run::folded() const {
    std::string words;
    for (std::size_t i = first; i <= last; ++i) {
        words += row->words[i].folded + ' ';
    }
    return words;
}

PlacedText placedText(const PageRows& page, const Run& run) {
    PagePlace place = run.row->words[run.first].printed;
    for (std::size_t i = run.first; i <= run.last; ++i) {
        const PagePlace& word = run.row->words[i].printed;
        place.right = std::max(place.right, word.right);
        place.top = std::min(place.top, word.top);
        place.bottom = std::max(place.bottom, word.bottom);
    }
    return {run.text(), page.number, pageBox(place, page)};
}

Run runFrom(const PageRows& page, const Row& row, std::size_t first) {
    return {&row, first, endOfRun(page, row, first)};
}

std::optional<Run> runBelow(const PageRows& page, std::size_t at, double left) {
    for (std::size_t next = at + 1; next < std::min(at + 4, page.rows.size()); ++next) {
        const Row& row = page.rows[next];
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            if (std::abs(row.words[i].place.left - left) < row.height() * 0.6) {
                return runFrom(page, row, i);
            }
        }
    }
    return std::nullopt;
}

bool startsWithCapital(std::string_view text) {
    return !text.empty()
           && ((text[0] >= 'A' && text[0] <= 'Z') || static_cast<unsigned char>(text[0]) >= 0x80);
}

} // namespace fiscarel
