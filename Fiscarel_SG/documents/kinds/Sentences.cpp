#include "Fiscarel_SG/documents/kinds/Sentences.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace fiscarel {

namespace {

constexpr std::size_t fewestWords = 5; ///< of a sentence; fewer are a row of a table

/// Whether a row stands in columns rather than runs as a sentence does.
bool isTabular(const Row& row) {
    for (std::size_t i = 0; i + 1 < row.words.size(); ++i) {
        if (row.words[i + 1].place.left - row.words[i].place.right > 2.5 * row.height()) {
            return true;
        }
    }
    return false;
}

class Sentences {
  public:
    explicit Sentences(const RowRange& range) : range_(range) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (!row.words.empty() && !isTabular(row)) {
                double& margin = margins_[edgeOf(row)];
                margin = std::max(margin, row.words.back().place.right);
            }
        }
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            const bool isApart = at > range.first
                                 && row.top - range.page->rows[at - 1].bottom
                                        > (range.page->isRecognised ? 1.8 : 1.2) * row.height();
            if (isApart
                || (at > range.first
                    && (isBrokenOn(range.page->rows[at - 1], row)
                        || isSetOff(range.page->rows[at - 1], row)))
                || (range.page->number != 0 && isTabular(row))) {
                finish();
            }
            if (range.page->number == 0 || !isTabular(row)) {
                take(at);
            }
        }
        finish();
    }

    const std::vector<Sentence>& all() const { return sentences_; }

  private:
    /// Whether a line ends before the margin although the next word would have had room: a title, a
    /// salutation, the end of a paragraph.
    bool isBrokenOn(const Row& line, const Row& next) const {
        const bool isKnown = range_.page->number != 0 && !line.words.empty() && !next.words.empty();
        if (!isKnown) {
            return false;
        }
        // An amount and its currency are not torn apart.
        const bool isAmount =
            !next.amounts.empty()
            && (next.amounts.front().first == 0
                || (next.amounts.front().first == 1 && isFrancs(next.words.front().text)));
        const double end =
            isAmount ? next.amounts.front().place.right : next.words.front().place.right;
        const double width = end - next.words.front().place.left;
        return line.words.back().place.right + width + line.height() < marginOf(line);
    }

    /// Where a line begins, so coarse that a crooked page's lines still share it.
    static long edgeOf(const Row& line) {
        constexpr double coarse = 6; // points
        return std::lround(std::clamp(line.words.front().place.left, -1e6, 1e6) / coarse);
    }

    /// Where full lines end that begin where one does: a letter's head may reach farther.
    double marginOf(const Row& line) const {
        double margin = 0;
        for (const long edge : {edgeOf(line) - 1, edgeOf(line), edgeOf(line) + 1}) {
            const auto known = margins_.find(edge);
            margin = known == margins_.end() ? margin : std::max(margin, known->second);
        }
        return margin;
    }

    /// Whether one of two lines is nothing but an amount at another edge, as in the box of a form.
    bool isSetOff(const Row& line, const Row& next) const {
        const bool isKnown = range_.page->number != 0 && !line.words.empty() && !next.words.empty();
        return isKnown && (hasOnlyAmounts(line) || hasOnlyAmounts(next))
               && std::abs(next.words.front().place.left - line.words.front().place.left)
                      > 4 * line.height();
    }

    void take(std::size_t at) {
        const Row& row = range_.page->rows[at];
        std::size_t next = 0; // amount
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            current_.row.words.push_back(row.words[i]);
            while (next < row.amounts.size() && row.amounts[next].last < i) {
                ++next;
            }
            const bool endsAmount = next < row.amounts.size() && row.amounts[next].last == i;
            if (endsAmount && row.amounts[next].amount.isFirm()) {
                const RowAmount& amount = row.amounts[next];
                const std::size_t last = current_.row.words.size() - 1;
                current_.ends.push_back(last);
                current_.starts.push_back(last - std::min(last, amount.last - amount.first));
                current_.amounts.push_back(
                    {.page = range_.page, .row = at, .amount = amount, .isBelow = true});
            }
            if (endsSentence(row, i)) {
                finish();
            }
        }
    }

    void finish() {
        if (current_.row.words.size() >= fewestWords && !current_.amounts.empty()) {
            takeClauses();
        }
        current_ = {};
    }

    /// A semicolon parts what is told of one amount from what is told of the next.
    void takeClauses() {
        const auto& words = current_.row.words;
        std::size_t first = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const bool isLast = i + 1 == words.size();
            const bool isParted = words[i].text.ends_with(';') && hasAmounts(first, i + 1)
                                  && hasAmounts(i + 1, words.size());
            if (isLast || isParted) {
                sentences_.push_back(clause(first, i + 1));
                first = i + 1;
            }
        }
    }

    bool hasAmounts(std::size_t first, std::size_t end) const {
        return std::ranges::any_of(
            current_.starts, [&](std::size_t start) { return start >= first && start < end; });
    }

    Sentence clause(std::size_t first, std::size_t end) const {
        Sentence clause;
        std::vector<Decimal> values;
        const auto words = current_.row.words.begin();
        clause.row.words.assign(words + static_cast<std::ptrdiff_t>(first),
                                words + static_cast<std::ptrdiff_t>(end));
        for (std::size_t i = 0; i < current_.amounts.size(); ++i) {
            if (current_.starts[i] >= first && current_.ends[i] < end) {
                clause.amounts.push_back(current_.amounts[i]);
                clause.starts.push_back(current_.starts[i] - first);
                clause.ends.push_back(current_.ends[i] - first);
                values.push_back(current_.amounts[i].value());
            }
        }
        if (values.size() >= 2) {
            clause.products = Products(clause.row, values);
        }
        return clause;
    }

    const RowRange& range_;
    std::map<long, double> margins_; ///< where full lines end, by where they begin
    Sentence current_;
    std::vector<Sentence> sentences_;
};

} // namespace

std::vector<Sentence> sentencesOf(const std::vector<RowRange>& ranges) {
    std::vector<Sentence> all;
    for (const RowRange& range : ranges) {
        const Sentences found(range);
        all.insert(all.end(), found.all().begin(), found.all().end());
    }
    return all;
}

} // namespace fiscarel
