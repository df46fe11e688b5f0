#include "Fiscarel_SG/documents/kinds/GridHeading.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace fiscarel {

namespace {

constexpr std::size_t mostLines = 3;     ///< of a heading
constexpr std::size_t rowsLookedAt = 24; ///< below it

/// From the left to the right edge.
struct Span {
    double left = 0;
    double right = 0;

    double center() const { return (left + right) / 2; }
    bool overlaps(const Span& other) const { return left < other.right && other.left < right; }
};

/// The columns that the amounts of a table stand in, from left to right.
class AmountSpans {
  public:
    AmountSpans(const PageRows& page, std::size_t from) {
        const std::size_t end = std::min(page.rows.size(), from + rowsLookedAt);
        for (std::size_t at = from; at < end && addRow(page.rows[at]); ++at) {
        }
        std::ranges::sort(spans_, {}, &Span::left);
    }

    const std::vector<Span>& all() const { return spans_; }
    /// Whether cells of two rows end or begin at an edge.
    bool isEnd(double edge, double tolerance) const { return isShared(ends_, edge, tolerance); }
    bool isStart(double edge, double tolerance) const { return isShared(starts_, edge, tolerance); }

  private:
    /// False for a row that no longer stands in the columns of those above.
    bool addRow(const Row& row) {
        std::vector<Span> own;
        for (const LabelPlace& cell : cellsOf(row)) {
            if (const auto span = amountIn(row, cell)) {
                own.push_back(*span);
            } else {
                starts_.push_back(cell.left); // amounts begin anywhere
            }
            ends_.push_back(cell.right);
        }
        for (const Span& one : own) {
            if (std::ranges::count_if(spans_, [&](const Span& span) { return span.overlaps(one); })
                > 1) {
                return false;
            }
        }
        for (const Span& one : own) {
            const auto known =
                std::ranges::find_if(spans_, [&](const Span& span) { return span.overlaps(one); });
            if (known == spans_.end()) {
                spans_.push_back(one);
            } else {
                known->left = std::min(known->left, one.left);
                known->right = std::max(known->right, one.right);
            }
        }
        return true;
    }

    /// What a cell holds of an amount, which a word behind may mark: "48'917.64 Haben".
    static std::optional<Span> amountIn(const Row& row, const LabelPlace& cell) {
        constexpr std::size_t longest = 8; // bytes of a mark
        if (roleOf(row, cell) == Role::amount) {
            return Span{cell.left, cell.right};
        }
        const auto amount = std::ranges::find_if(row.amounts, [&](const RowAmount& one) {
            return one.amount.isFirm() && one.first == cell.first && one.last + 1 == cell.last
                   && row.words[cell.last].text.size() <= longest;
        });
        return amount == row.amounts.end()
                   ? std::nullopt
                   : std::optional(Span{amount->place.left, amount->place.right});
    }

    static bool isShared(const std::vector<double>& edges, double edge, double tolerance) {
        return std::ranges::count_if(edges,
                                     [&](double one) { return std::abs(one - edge) <= tolerance; })
               >= 2;
    }

    std::vector<Span> spans_;
    std::vector<double> starts_; ///< left edges of words
    std::vector<double> ends_;   ///< right edges of all cells
};

/// A line of a heading: its cells, and which of them stands over each column.
struct Line {
    const Row* row = nullptr;
    std::vector<LabelPlace> cells;
    std::vector<std::optional<std::size_t>> over; ///< of each column: a cell
    std::optional<std::size_t> stub;              ///< the cell over the names of the rows
};

/// Parts a cell of headings that stand too close to tell apart: where cells of the rows below end
/// with one of its words, or begin with the next.
std::vector<LabelPlace> partsOf(const Row& row, const LabelPlace& cell, const AmountSpans& spans,
                                double tolerance) {
    std::vector<LabelPlace> parts{cell};
    const auto endsColumn = [&](double right) {
        return spans.isEnd(right, tolerance)
               || std::ranges::any_of(spans.all(), [&](const Span& span) {
                      return std::abs(span.right - right) <= tolerance;
                  });
    };
    const bool isRight = endsColumn(cell.right);
    for (std::size_t i = cell.first; i < cell.last; ++i) {
        const bool isEnd =
            isRight && !row.words[i].folded.empty() && endsColumn(row.words[i].place.right);
        if (isEnd || spans.isStart(row.words[i + 1].place.left, tolerance / 2)) {
            parts.back().last = i;
            parts.back().right = row.words[i].place.right;
            parts.push_back({i + 1, cell.last, row.words[i + 1].place.left, cell.right});
        }
    }
    return parts;
}

double overlapOf(const LabelPlace& cell, const Span& span) {
    return std::min(cell.right, span.right) - std::max(cell.left, span.left);
}

/// The cell of a line over each column: that it overlaps most, and for those left without one the
/// nearest of the cells that stand over no column. What begins where the names of the rows do is
/// a title or heads those.
Line lineOver(const PageRows& page, std::size_t at, const AmountSpans& columns, double names) {
    const std::vector<Span>& spans = columns.all();
    Line line{.row = &page.rows[at]};
    for (const LabelPlace& cell : cellsOf(*line.row)) {
        std::ranges::copy(partsOf(*line.row, cell, columns, alignment(page) / 2),
                          std::back_inserter(line.cells));
    }
    const LabelPlace whole = cellsOf(*line.row).front();
    if (names < spans.front().left && whole.left <= names + alignment(page)
        && line.cells.front().last == whole.last) {
        line.stub = 0;
    }
    line.over.resize(spans.size());
    std::vector<bool> isUsed(line.cells.size(), false);
    for (std::size_t i = 0; i < spans.size(); ++i) {
        double most = 0;
        for (std::size_t cell = 0; cell < line.cells.size(); ++cell) {
            const double shared = overlapOf(line.cells[cell], spans[i]);
            if (shared > most && line.stub != cell) {
                most = shared;
                line.over[i] = cell;
            }
        }
        if (line.over[i]) {
            isUsed[*line.over[i]] = true;
        }
    }
    for (std::size_t cell = 0; cell < line.cells.size(); ++cell) {
        const LabelPlace& own = line.cells[cell];
        if (isUsed[cell] || line.stub == cell || own.right < spans.front().left - page.width / 20) {
            continue;
        }
        std::optional<std::size_t> nearest;
        double least = page.width / 20;
        for (std::size_t i = 0; i < spans.size(); ++i) {
            const double apart = -overlapOf(own, spans[i]);
            if (!line.over[i] && apart < least) {
                least = apart;
                nearest = i;
            }
        }
        if (nearest) {
            line.over[*nearest] = cell;
        }
    }
    return line;
}

/// The words over a column, without their case; empty where it has none.
std::string wordsOver(const Line& line, std::size_t column) {
    std::string text;
    if (line.over[column]) {
        const LabelPlace& cell = line.cells[*line.over[column]];
        for (std::size_t i = cell.first; i <= cell.last; ++i) {
            text += line.row->words[i].folded + ' ';
        }
    }
    return text;
}

/// Whether the words over a column are found over another one as well, and say nothing by
/// themselves.
bool isRepeated(const Line& line, std::size_t column) {
    for (std::size_t i = 0; i < line.over.size(); ++i) {
        if (i != column && line.over[i] && line.over[column] && line.over[i] != line.over[column]
            && wordsOver(line, i) == wordsOver(line, column)) {
            return true;
        }
    }
    return false;
}

/// Whether a cell of a heading is but one side of an account's page.
bool isSide(const Line& line, std::size_t column) {
    static const Labels sides{"Soll",      "Haben",   "débit",    "crédit",  "dare",
                              "avere",     "debito",  "credito",  "doit",    "avoir",
                              "actif",     "passif",  "attivo",   "passivo", "débiteur",
                              "créancier", "Aktiven", "Passiven", "Aktiv",   "Passiv"};
    const LabelPlace& cell = line.cells[*line.over[column]];
    Row own;
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        own.folded += line.row->words[i].folded + ' ';
    }
    return cell.last - cell.first <= 1 && isAnyIn(own.folded, sides);
}

/// Gives columns that repeat a sequence, "Dare Avere Dare Avere", one heading of the line above for
/// each time it is repeated. False where that has another number of headings.
bool spreadOverRepeats(Line& above, const Line& below) {
    const std::size_t count = below.over.size();
    std::size_t first = 0;
    while (first < count && (!below.over[first] || !isRepeated(below, first))) {
        ++first;
    }
    std::size_t end = first;
    while (end < count && below.over[end] && isRepeated(below, end)) {
        ++end;
    }
    std::size_t period = 1;
    while (first + period < end && wordsOver(below, first + period) != wordsOver(below, first)) {
        ++period;
    }
    if (end - first < 4 || period < 2 || (end - first) % period != 0) {
        return false;
    }
    std::vector<std::size_t> heads;
    for (std::size_t cell = 0; cell < above.cells.size(); ++cell) {
        bool isOfOther = above.stub == cell;
        for (std::size_t i = 0; i < count; ++i) {
            isOfOther |= above.over[i] == cell && (i < first || i >= end);
        }
        if (!isOfOther) {
            heads.push_back(cell);
        }
    }
    if (heads.size() != (end - first) / period) {
        return false;
    }
    for (std::size_t i = first; i < end; ++i) {
        above.over[i] = heads[(i - first) / period];
    }
    return true;
}

/// Gives the columns of sides that nothing stands over in the line above the nearest of its cells:
/// a heading of several columns stands in the middle of them or at one edge.
void spreadAbove(Line& above, const Line& below, const std::vector<Span>& spans) {
    if (spreadOverRepeats(above, below)) {
        return;
    }
    for (std::size_t i = 0; i < spans.size(); ++i) {
        if (above.over[i] || !below.over[i] || (!isSide(below, i) && !isRepeated(below, i))) {
            continue;
        }
        double least = std::numeric_limits<double>::max();
        for (std::size_t cell = 0; cell < above.cells.size(); ++cell) {
            const LabelPlace& own = above.cells[cell];
            const double apart = std::abs((own.left + own.right) / 2 - spans[i].center());
            if (above.stub != cell && apart < least) {
                least = apart;
                above.over[i] = cell;
            }
        }
    }
}

void addWords(TableColumn& column, const Line& line, std::size_t cell) {
    const LabelPlace& place = line.cells[cell];
    auto& words = column.cell.words;
    for (std::size_t i = place.first; i <= place.last; ++i) {
        const RowWord& word = line.row->words[i];
        const bool goesOn = i == place.first && !words.empty() && words.back().text.size() > 1
                            && words.back().text.ends_with('-') && startsSmall(word.text);
        if (goesOn) { // "Soll-" over "zinsen"
            words.back().text.pop_back();
            words.back().text += word.text;
            words.back().folded += word.folded;
        } else {
            words.push_back(word);
        }
    }
    column.cell.top = words.front().place.top;
    column.cell.bottom = line.row->bottom;
}

TableColumn columnOver(const std::vector<Line>& lines, std::size_t at, const Span& span) {
    TableColumn column;
    for (const Line& line : lines) {
        if (line.over[at]) {
            addWords(column, line, *line.over[at]);
        }
    }
    for (const RowWord& word : column.cell.words) {
        column.cell.folded += word.folded + ' ';
    }
    const std::size_t count = column.cell.words.size();
    column.place = {0, count == 0 ? 0 : count - 1, span.left, span.right};
    return column;
}

/// The cells that stand over no amounts, those of one above the other put together.
std::vector<TableColumn> columnsOfWords(const std::vector<Line>& lines) {
    std::vector<TableColumn> columns;
    for (const Line& line : lines) {
        for (std::size_t cell = 0; cell < line.cells.size(); ++cell) {
            const LabelPlace& place = line.cells[cell];
            if (std::ranges::find(line.over, std::optional(cell)) != line.over.end()) {
                continue;
            }
            auto known = std::ranges::find_if(columns, [&](const TableColumn& one) {
                return one.place.left < place.right && place.left < one.place.right;
            });
            if (known == columns.end()) {
                columns.push_back(
                    {.cell = {}, .place = {0, 0, place.left, place.right}, .isOfWords = true});
                known = columns.end() - 1;
            }
            addWords(*known, line, cell);
            known->place.left = std::min(known->place.left, place.left);
            known->place.right = std::max(known->place.right, place.right);
        }
    }
    for (TableColumn& column : columns) {
        for (const RowWord& word : column.cell.words) {
            column.cell.folded += word.folded + ' ';
        }
        column.place.last = column.cell.words.size() - 1;
    }
    return columns;
}

/// The row behind the last line of a heading that begins at a row.
std::size_t endOfLines(const PageRows& page, std::size_t at) {
    const auto mayGoOn = [&](const Row& row) { // a single cell at the left is a title or a name
        return !row.words.empty() && !hasFirmAmount(row)
               && (cellsOf(row).size() >= 2
                   || row.words.front().place.left > page.rows[at].words.front().place.right);
    };
    std::size_t end = at + 1;
    while (end < page.rows.size() && end - at < mostLines && mayGoOn(page.rows[end])
           && page.rows[end].top - page.rows[end - 1].bottom < page.rows[end - 1].height()) {
        ++end;
    }
    return end;
}

} // namespace

TableHeading gridHeadingIn(const PageRows& page, std::size_t at) {
    constexpr std::size_t farthest = 3; // rows from a heading to the first amounts
    TableHeading heading{.row = at};
    const Row& first = page.rows[at];
    if (hasFirmAmount(first) || first.words.empty() || cellsOf(first).empty()) {
        return heading;
    }
    const std::size_t end = endOfLines(page, at);
    std::size_t amounts = end;
    while (amounts < page.rows.size() && amounts - end < farthest
           && !hasFirmAmount(page.rows[amounts])) {
        ++amounts;
    }
    if (amounts >= page.rows.size() || !hasFirmAmount(page.rows[amounts])) {
        return heading;
    }
    const AmountSpans spans(page, end);
    if (spans.all().size() < 2) {
        return heading; // one column needs no heading to tell it apart
    }
    const double names = page.rows[amounts].words.front().place.left;
    std::vector<Line> lines;
    for (std::size_t row = at; row < end; ++row) {
        lines.push_back(lineOver(page, row, spans, names));
    }
    if (lines.front().stub && lines.front().cells.size() == 1) {
        return heading; // a title
    }
    for (std::size_t i = lines.size(); i-- > 1;) {
        spreadAbove(lines[i - 1], lines[i], spans.all());
    }
    const auto headed = [&](std::size_t i) {
        return std::ranges::any_of(lines,
                                   [&](const Line& line) { return line.over[i].has_value(); });
    };
    std::size_t count = 0;
    for (std::size_t i = 0; i < spans.all().size(); ++i) {
        count += headed(i) ? 1U : 0U;
    }
    if (count < 2) {
        return heading;
    }
    heading.row = end - 1;
    heading.columns = columnsOfWords(lines);
    for (std::size_t i = 0; i < spans.all().size(); ++i) {
        if (TableColumn column = columnOver(lines, i, spans.all()[i]); !column.cell.words.empty()) {
            heading.columns.push_back(std::move(column));
        }
    }
    return heading;
}

bool standsOverAmounts(const PageRows& page, std::size_t at, const LabelPlace& cell) {
    const AmountSpans spans(page, at + 1);
    return std::ranges::any_of(spans.all(), [&](const Span& span) {
        return span.overlaps({cell.left, cell.right});
    });
}

} // namespace fiscarel
