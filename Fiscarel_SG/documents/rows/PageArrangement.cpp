#include "Fiscarel_SG/documents/rows/PageArrangement.h"

#include "Fiscarel_SG/documents/rows/CardEdges.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/rows/LabelledRows.h"
#include "Fiscarel_SG/documents/rows/PageHalves.h"
#include "Fiscarel_SG/documents/rows/PageMending.h"
#include "Fiscarel_SG/documents/rows/Panels.h"
#include "Fiscarel_SG/documents/rows/Sidebar.h"
#include "Fiscarel_SG/documents/rows/SplitLabels.h"
#include "Fiscarel_SG/documents/rows/TurnedTables.h"
#include "Fiscarel_SG/documents/rows/UngroupedNumbers.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <optional>
#include <span>
#include <utility>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;
using Words = std::vector<RowWord>;

constexpr double blank = 4; ///< points between words laid out anew

void append(Words& words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
}

constexpr double headGap = 3; ///< below the head of a panel, in heights of a row

class Arrangement {
  public:
    explicit Arrangement(PageRows page, bool isPanel = false)
        : page_(std::move(page)), labelled_(page_, isPanel), panels_(page_),
          isStacked_(isPanel || labelled_.stacks()) {
        std::optional<double> left;
        for (const Row& row : page_.rows) {
            for (const RowWord& word : row.words) {
                left = std::min(left.value_or(word.place.left), word.place.left);
            }
        }
        left_ = left.value_or(0);
        right_ = 2 * page_.width; // labels of two lines have room before it
    }

    PageRows run() && {
        const auto& rows = page_.rows;
        for (std::size_t at = 0; at < rows.size();) {
            const std::size_t taken = takePanels(at)     ? end_ - at
                                      : takeCards(at)    ? end_ - at
                                      : takePairs(at)    ? end_ - at
                                      : takeGrid(at)     ? 2
                                      : takeBoxes(at)    ? 3
                                      : takeStacked(at)  ? 2
                                      : takeCaptions(at) ? 2
                                      : takeNamed(at)    ? 2
                                      : takeSplit(at)    ? 2
                                      : takeSwapped(at)  ? 1
                                                         : 0;
            if (taken == 0) {
                keep(rows[at]);
            }
            at += std::max<std::size_t>(taken, 1);
        }
        page_.rows = std::move(rows_);
        return std::move(page_);
    }

  private:
    void keep(const Row& row) {
        rows_.push_back(row);
        moveDown(rows_.back(), shift_);
    }

    /// A row of its own for a label and its amount, at a height on the arranged page.
    void compose(Words label, Words amount, double top, double height) {
        double left = left_;
        for (RowWord& word : label) {
            const double width = word.place.width();
            word.place = {left, top, left + width, top + height};
            left += width + blank;
        }
        const double move = amount.empty() ? 0 : right_ - amount.back().place.right;
        for (RowWord& word : amount) {
            word.place = {word.place.left + move, top, word.place.right + move, top + height};
        }
        const bool isAmount = !amount.empty();
        append(label, amount);
        rows_.push_back(rowOfWords(std::move(label), page_.isRecognised));
        Row& row = rows_.back();
        constexpr int plain = 10'000; // from here on an amount has a mark or decimals
        if (isAmount && !row.amounts.empty() && row.amounts.back().last + 1 == row.words.size()
            && row.amounts.back().amount.value.abs() < plain) {
            row.amounts.back().amount.hasCurrency = true; // it was one where it stood
        }
    }

    /// "label amount   label amount": first the left column, then the right one.
    bool takePairs(std::size_t at) {
        const auto& rows = page_.rows;
        std::vector<double> edges = pairEdges(rows[at]);
        if (edges.empty() && at + 1 < rows.size() && labelled_.gap(at) < 1.5) {
            edges = pairEdges(rows[at + 1]); // the first row of a column may lack the other
            edges = fitsEdges(rows[at], edges) ? edges : std::vector<double>();
        }
        edges = edges.empty() ? edgesOfCards(at) : edges;
        if (edges.empty() && at + 1 < rows.size()) {
            edges = pairEdges(rows[at], true); // two rows of bare numbers tell as much
            const std::vector<double> next = pairEdges(rows[at + 1], true);
            const bool isSame = std::ranges::equal(
                edges, next, [](double a, double b) { return std::abs(a - b) <= aligned; });
            edges = isSame ? edges : std::vector<double>();
        }
        if (edges.empty()) {
            return false;
        }
        end_ = at + 1;
        // Panels beside each other need not have their rows at the same heights.
        for (std::size_t next = end_; next < rows.size() && isPanelRow(next - 1, edges); ++next) {
            if (fitsEdges(rows[next], edges)
                || (hasOnlyAmounts(rows[next]) && rows[next].amounts.size() == edges.size() + 1
                    && !crossesEdges(rows[next], edges))) {
                end_ = next + 1;
            } else if (!isLeftOf(rows[next], edges) || rows[next].amounts.empty()) {
                break;
            }
        }
        keepColumns(at, edges);
        return true;
    }

    /// Whether the row below one is near enough to go on with panels: a head that is the same word
    /// over each may stand farther off.
    bool isPanelRow(std::size_t at, const std::vector<double>& edges) const {
        return labelled_.gap(at) < (repeatsAtEdges(page_.rows[at], edges) ? headGap : 1.5);
    }

    /// The rows up to `end_` cut at edges, one column below the other.
    void keepColumns(std::size_t at, const std::vector<double>& edges) {
        const auto& rows = page_.rows;
        const double height = rows[end_ - 1].bottom - rows[at].top + rows[at].height();
        double down = 0; // below the column before
        for (const std::vector<Row>& column : columnsUpToEnd(at, edges)) {
            shift_ += std::exchange(down, height);
            std::ranges::for_each(column, [&](const Row& part) { keep(part); });
        }
    }

    /// What the rows up to `end_` have in each column between edges.
    std::vector<std::vector<Row>> columnsUpToEnd(std::size_t at,
                                                 const std::vector<double>& edges) const {
        std::vector<std::vector<Row>> columns(edges.size() + 1);
        for (std::size_t i = at; i < end_; ++i) {
            std::vector<Row> parts = columnsOf(page_.rows[i], edges, page_.isRecognised);
            for (std::size_t column = 0; column < parts.size(); ++column) {
                if (!parts[column].words.empty()) {
                    columns[column].push_back(std::move(parts[column]));
                }
            }
        }
        return columns;
    }

    /// The rows up to `end_` cut at edges, each card arranged as a page of its own.
    void keepCards(std::size_t at, const std::vector<double>& edges) {
        const auto& rows = page_.rows;
        const double height = rows[end_ - 1].bottom - rows[at].top + rows[at].height();
        double down = 0; // below the card before
        for (std::vector<Row>& column : columnsUpToEnd(at, edges)) {
            shift_ += std::exchange(down, height);
            PageRows card = withoutRows(page_);
            card.rows = std::move(column);
            const double bottom = card.rows.empty() ? 0 : card.rows.back().bottom;
            card = Arrangement(std::move(card), true).run();
            std::ranges::for_each(card.rows, [&](const Row& row) { keep(row); });
            shift_ += card.rows.empty() ? 0 : std::max(0.0, card.rows.back().bottom - bottom);
        }
    }

    /// Panels beside each other, told by the gaps between them.
    bool takePanels(std::size_t at) {
        const Panels panels = panels_.at(at);
        if (panels.edges.empty()) {
            return false;
        }
        end_ = panels.end;
        keepCards(at, panels.edges);
        return true;
    }

    /// Cards beside each other, each with a head and lines of its own.
    bool takeCards(std::size_t at) {
        const auto& rows = page_.rows;
        const std::vector<double> edges = cardEdges(rows[at]);
        if (edges.empty() || at + 1 >= rows.size() || !hasOnlyNumbers(rows[at + 1], edges)) {
            return false;
        }
        end_ = at + 1;
        while (end_ < std::min(rows.size(), at + 1 + mostCardRows) && labelled_.gap(end_ - 1) < 3
               && (fitsCards(rows[end_], edges) || goesOnLeft(end_, edges)
                   || isBesideLonger(end_, edges))) {
            ++end_;
        }
        const std::span<const Row> taken(rows.begin() + static_cast<std::ptrdiff_t>(at), end_ - at);
        for (std::size_t column = 0; column <= edges.size(); ++column) {
            if (!isCard(taken, edges, column)) {
                return false;
            }
        }
        keepCards(at, edges);
        return true;
    }

    /// Whether a row is a further line of the left card alone, which is longer than those beside
    /// it.
    bool goesOnLeft(std::size_t at, const std::vector<double>& edges) const {
        constexpr double lineGap = 0.6; // heights; totals of all cards stand farther below
        const Row& row = page_.rows[at];
        return isLeftOf(row, edges) && labelled_.gap(at - 1) < lineGap
               && !namesAny(row, {Concept::total}, page_.isRecognised);
    }

    /// Whether a row of the left card alone has lines of the others below it.
    bool isBesideLonger(std::size_t at, const std::vector<double>& edges) const {
        constexpr std::size_t farthest = 5; // rows
        const auto& rows = page_.rows;
        for (std::size_t next = at; next < std::min(rows.size(), at + farthest); ++next) {
            if (!isLeftOf(rows[next], edges)) {
                return next > at && fitsCards(rows[next], edges) && hasFirmAmount(rows[next]);
            }
            if (namesAny(rows[next], {Concept::total}, page_.isRecognised)
                || next + 1 == rows.size() || labelled_.gap(next) >= 3) {
                return false;
            }
        }
        return false;
    }

    /// The edges of pairs that begin in one of the next rows, where each row before heads them all:
    /// a name over each column, with a day of birth below.
    std::vector<double> edgesOfCards(std::size_t at) const {
        constexpr std::size_t mostTitles = 6;
        const auto& rows = page_.rows;
        for (std::size_t next = at + 1; next < rows.size() && next - at <= mostTitles; ++next) {
            if (labelled_.gap(next - 1) >= headGap || hasFirmAmount(rows[next - 1])) {
                break;
            }
            std::vector<double> edges = pairEdges(rows[next]);
            const auto isTitle = [&](const Row& row) {
                return fitsEdges(row, edges)
                       && (cellsOf(row).size() == edges.size() + 1 || repeatsAtEdges(row, edges));
            };
            const auto first = rows.begin() + static_cast<std::ptrdiff_t>(at);
            if (!edges.empty() && isPanelRow(next - 1, edges)
                && std::all_of(first, first + static_cast<std::ptrdiff_t>(next - at), isTitle)) {
                return edges;
            }
        }
        return {};
    }

    /// Labels in one row, their values in the next.
    bool takeGrid(std::size_t at) {
        const auto& rows = page_.rows;
        if (at + 1 < rows.size() && labelled_.isOfList(at)) {
            return false;
        }
        const bool mayBeBoxes =
            at + 1 < rows.size() && !hasFirmAmount(rows[at]) && labelled_.gap(at) < 4
            && (at == 0 || !hasOnlyAmounts(rows[at - 1]) || labelled_.gap(at - 1) > 0.7);
        if (mayBeBoxes && isGridOfBoxes(rows[at], rows[at + 1]) && !labelled_.isCaptionBelow(at)
            && !labelled_.hasMoreRows(at)) {
            std::vector<std::size_t> inOrder(headsOf(rows[at]).size());
            std::iota(inOrder.begin(), inOrder.end(), std::size_t{0});
            composeGrid(rows[at], rows[at + 1], inOrder);
            return true;
        }
        if (at + 1 >= rows.size() || hasFirmAmount(rows[at]) || !labelled_.mayBeValues(rows[at + 1])
            || labelled_.gap(at) > 1.6) {
            return false;
        }
        const Row& labels = rows[at];
        const Row& values = rows[at + 1];
        const auto columns = gridColumns(labels, values);
        if (!columns || labelled_.isCaptionBelow(at) || labelled_.hasMoreRows(at)
            || !hasOnlyLabels(labels)) {
            return false;
        }
        composeGrid(labels, values, *columns);
        return true;
    }

    /// A label with its amount below, at the other side: "Saldo", "      1'200.50".
    bool takeStacked(std::size_t at) {
        const auto& rows = page_.rows;
        if (!isStacked_ || !labelled_.isStack(at)) {
            return false;
        }
        compose(rows[at].words, rows[at + 1].words, rows[at].top + shift_, rows[at].height());
        return true;
    }

    /// Boxes beside each other, each with a label of two lines and its amount below.
    bool takeBoxes(std::size_t at) {
        const auto& rows = page_.rows;
        if (at + 2 >= rows.size() || labelled_.gap(at) > 1 || labelled_.gap(at + 1) > 4
            || labelled_.hasMoreRows(at + 1) || labelled_.isCaptionBelow(at + 1)
            || !isGridOfBoxes(rows[at], rows[at + 1], rows[at + 2])) {
            return false;
        }
        const Cells heads = cellsOf(rows[at]);
        const Cells lines = cellsOf(rows[at + 1]);
        const Cells cells = cellsOf(rows[at + 2]);
        std::vector<Words> labels;
        std::vector<Words> values;
        for (std::size_t i = 0; i < heads.size(); ++i) {
            labels.push_back(wordsOf(rows[at], heads[i]));
            append(labels.back(), wordsOf(rows[at + 1], lines[i]));
            values.push_back(wordsOf(rows[at + 2], cells[i]));
        }
        composePairs(std::move(labels), std::move(values), rows[at], rows[at + 2]);
        return true;
    }

    /// Amounts in one row, what they are in the next.
    bool takeCaptions(std::size_t at) {
        const auto& rows = page_.rows;
        if (at + 1 >= rows.size() || !hasOnlyValues(rows[at]) || hasAmountCell(rows[at + 1])
            || labelled_.gap(at)
                   > (at == 0 || labelled_.gap(at) < labelled_.gap(at - 1) / 2 ? 2 : 1.2)) {
            return false;
        }
        const Row values = withoutCurrencies(rows[at]);
        const auto columns = gridColumns(rows[at + 1], values);
        // Nearer than what stands above, or that is no row of labels for these amounts.
        const bool isNearer =
            at == 0 || labelled_.gap(at) < 0.7 * labelled_.gap(at - 1)
            || (columns && columns->size() >= 2 && labelled_.gap(at) < 1
                && (cellsOf(rows[at - 1]).size() == 1 || !gridColumns(rows[at - 1], rows[at])));
        if (!isNearer || !columns || !hasOnlyLabels(rows[at + 1])) {
            return false;
        }
        composeGrid(rows[at + 1], values, *columns);
        return true;
    }

    /// A name with amounts beside it, its number with what they are below: "Sparkonto   1'200.50"
    /// over "CH12 …   Saldo per 31.12.".
    bool takeNamed(std::size_t at) {
        const auto& rows = page_.rows;
        if (at + 1 >= rows.size() || !hasFirmAmount(rows[at]) || hasFirmAmount(rows[at + 1])
            || labelled_.gap(at) > 1) {
            return false;
        }
        const Cells values = cellsOf(rows[at]);
        const Cells labels = cellsOf(rows[at + 1]);
        if (values.size() < 2 || values.size() != labels.size()
            || roleOf(rows[at], values[0]) != Role::text
            || std::abs(values[0].left - labels[0].left) > aligned
            || !hasDigit(rows[at + 1].words[labels[0].last].text)) {
            return false;
        }
        for (std::size_t i = 1; i < values.size(); ++i) {
            const bool isOver =
                values[i].left < labels[i].right && labels[i].left < values[i].right;
            if (!isOver || roleOf(rows[at], values[i]) != Role::amount
                || lettersIn(rows[at + 1], labels[i]) < 4) {
                return false;
            }
        }
        std::vector<Words> names{wordsOf(rows[at], values[0]), wordsOf(rows[at + 1], labels[0])};
        std::vector<Words> amounts(2);
        for (std::size_t i = 1; i < values.size(); ++i) {
            names.push_back(wordsOf(rows[at + 1], labels[i]));
            amounts.push_back(wordsOf(rows[at], values[i]));
        }
        composePairs(std::move(names), std::move(amounts), rows[at], rows[at + 1]);
        return true;
    }

    /// A row of amounts without the currencies that stand apart from them, at the edge of their
    /// box.
    Row withoutCurrencies(const Row& row) const {
        Words words;
        for (const LabelPlace& cell : cellsOf(row)) {
            if (roleOf(row, cell) != Role::currency) {
                append(words, wordsOf(row, cell));
            }
        }
        return words.size() == row.words.size() ? row
                                                : rowOfWords(std::move(words), page_.isRecognised);
    }

    /// Whether a cell of a row is nothing but an amount; captions may mention one.
    static bool hasAmountCell(const Row& row) {
        return std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
            return roleOf(row, cell) == Role::amount && hasFirmAmount(row, cell);
        });
    }

    void composeGrid(const Row& labels, const Row& values,
                     const std::vector<std::size_t>& columns) {
        const Cells heads = headsOf(labels);
        const Cells cells = cellsOf(values);
        std::vector<Words> names;
        std::vector<Words> amounts(heads.size());
        for (std::size_t i = 0; i < heads.size(); ++i) {
            const auto own = std::ranges::find(columns, i);
            names.push_back(wordsOf(labels, heads[i]));
            if (own != columns.end()) {
                amounts[i] =
                    wordsOf(values, cells[static_cast<std::size_t>(own - columns.begin())]);
            }
        }
        composePairs(std::move(names), std::move(amounts), labels, values);
    }

    /// Rows of labels with their values, one below the other, in the place of the printed rows from
    /// `first` to `last`, whichever of them stands above.
    void composePairs(std::vector<Words> labels, std::vector<Words> values, const Row& first,
                      const Row& last) {
        const double height = first.height();
        double top = std::min(first.top, last.top) + shift_;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            compose(std::move(labels[i]), std::move(values[i]), top, height);
            top += 1.5 * height;
        }
        shift_ = std::max(shift_, top - std::max(first.bottom, last.bottom));
    }

    /// A label of two lines whose amounts stand beside the second.
    bool takeSplit(std::size_t at) {
        const auto& rows = page_.rows;
        if (at + 1 >= rows.size() || labelled_.gap(at) > 0.8) {
            return false;
        }
        Words label = labelOverLines(rows[at], rows[at + 1]);
        if (label.empty()) {
            return false;
        }
        const Row& below = rows[at + 1];
        const Cells cells = cellsOf(below);
        if (cells.size() > 2) { // under the headings of columns, where the amounts stay
            keep(rowOfWords(beforeColumns(std::move(label), below, cells[0]), page_.isRecognised));
            return true;
        }
        compose(std::move(label), wordsOf(below, cells[1]), rows[at].top + shift_,
                rows[at].height());
        return true;
    }

    /// "amount   label".
    bool takeSwapped(std::size_t at) {
        const Row& row = page_.rows[at];
        const Cells cells = cellsOf(row);
        Words label;
        Words amount;
        for (const LabelPlace& cell : cells) {
            const bool isText = roleOf(row, cell) == Role::text;
            if (!isText && !label.empty()) {
                return false;
            }
            append(isText ? label : amount, wordsOf(row, cell));
        }
        if (label.empty() || amount.empty() || !hasFirmAmount(row)
            || lettersIn(row, cells.back()) < 3) {
            return false;
        }
        compose(std::move(label), std::move(amount), row.top + shift_, row.height());
        return true;
    }

    PageRows page_;
    LabelledRows labelled_;
    PanelFinder panels_;
    bool isStacked_; ///< labels may stand above their amounts
    std::vector<Row> rows_;
    double left_ = 0;
    double right_ = 0;
    double shift_ = 0; ///< how much lower rows stand than on the page
    std::size_t end_ = 0;
};

} // namespace

PageRows arranged(PageRows page) {
    partSidebar(page);
    mend(page);
    turnTables(page);
    partHalves(page);
    PageRows done = Arrangement(std::move(page)).run();
    dropUngroupedNumbers(done);
    return done;
}

} // namespace fiscarel
