#include "Fiscarel_SG/documents/rows/Panels.h"

#include "Fiscarel_SG/documents/rows/CardEdges.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;

constexpr double narrowest = 8; ///< points between two panels
constexpr double similar = 6;   ///< points by which panels may be set differently

struct Span {
    double left = 0;
    double right = 0;
};

double middleOf(const LabelPlace& cell) { return (cell.left + cell.right) / 2; }

/// What the rows taken so far leave free.
class Coverage {
  public:
    void add(const Cells& cells) {
        for (const LabelPlace& cell : cells) {
            Span whole{cell.left, cell.right};
            std::erase_if(taken_, [&](const Span& span) {
                const bool touches = span.left <= whole.right && whole.left <= span.right;
                if (touches) {
                    whole = {std::min(span.left, whole.left), std::max(span.right, whole.right)};
                }
                return touches;
            });
            const auto place = std::ranges::find_if(
                taken_, [&](const Span& span) { return span.left > whole.right; });
            taken_.insert(place, whole);
        }
    }

    double left() const { return taken_.front().left; }

    /// The gaps between two places, from left to right.
    std::vector<Span> gapsBetween(double from, double to) const {
        std::vector<Span> gaps;
        for (std::size_t i = 1; i < taken_.size(); ++i) {
            const Span gap{taken_[i - 1].right, taken_[i].left};
            if (gap.right > from && gap.left < to && gap.right - gap.left >= narrowest) {
                gaps.push_back(gap);
            }
        }
        return gaps;
    }

    bool separates(const Cells& heads) const {
        for (std::size_t i = 1; i < heads.size(); ++i) {
            if (gapsBetween(middleOf(heads[i - 1]), middleOf(heads[i])).empty()) {
                return false;
            }
        }
        return true;
    }

  private:
    std::vector<Span> taken_; ///< from left to right, apart from each other
};

/// Where the panels begin: each as far from the one before as their heads are apart.
std::optional<std::vector<double>> edgesBetween(const Coverage& coverage, const Cells& heads) {
    std::vector<double> edges;
    double left = coverage.left();
    for (std::size_t i = 1; i < heads.size(); ++i) {
        const auto gaps = coverage.gapsBetween(middleOf(heads[i - 1]), middleOf(heads[i]));
        const double byLeft = heads[i].left - heads[i - 1].left;
        const double byMiddle = middleOf(heads[i]) - middleOf(heads[i - 1]);
        const double byRight = heads[i].right - heads[i - 1].right;
        const auto isSetAlike = [&](const Span& gap) {
            const double apart = gap.right - left;
            return std::ranges::any_of(std::array{byLeft, byMiddle, byRight},
                                       [&](double by) { return std::abs(apart - by) <= similar; });
        };
        const auto isAtHead = [&](const Span& gap) {
            return std::abs(gap.right - heads[i].left) <= similar;
        };
        auto cut = gaps.size() == 1 ? gaps.begin() : std::ranges::find_if(gaps, isSetAlike);
        cut = cut == gaps.end() ? std::ranges::find_if(gaps, isAtHead) : cut;
        if (cut == gaps.end()) {
            return std::nullopt;
        }
        left = cut->right;
        edges.push_back(left);
    }
    return edges;
}

std::size_t panelOf(const LabelPlace& cell, const std::vector<double>& edges) {
    return static_cast<std::size_t>(std::ranges::count_if(
        edges, [&](double edge) { return middleOf(cell) >= edge - aligned; }));
}

/// What of the rows below their heads stands in each panel.
struct Content {
    std::size_t first = 0;        ///< row
    std::set<std::size_t> labels; ///< rows that have words in it
    std::size_t amounts = 0;
    std::size_t firstAmount = 0; ///< row

    /// Whether its words only head amounts below them all: the column of a table.
    bool isColumn() const {
        return amounts >= 2 && !labels.empty() && *labels.rbegin() < firstAmount;
    }
};

/// Whether rows are panels and no table.
bool arePanels(const PageRows& page, std::size_t at, std::size_t end,
               const std::vector<double>& edges) {
    constexpr std::size_t nearest = 2; // rows in which a page's head goes on below one side alone
    const auto isInSeveral = [&](const Row& row) {
        const auto cells = cellsOf(row);
        return !cells.empty() && panelOf(cells.front(), edges) != panelOf(cells.back(), edges);
    };
    const auto begin = page.rows.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    const auto near = static_cast<std::ptrdiff_t>(std::min(nearest, end - at - 1));
    if (std::none_of(begin, begin + near, isInSeveral)) {
        return false;
    }
    std::vector<Content> contents(edges.size() + 1);
    std::map<std::string, std::set<std::size_t>> labels;
    for (std::size_t i = at + 1; i < end; ++i) {
        const Row& row = page.rows[i];
        for (const LabelPlace& cell : cellsOf(row)) {
            const std::size_t panel = panelOf(cell, edges);
            if (hasFirmAmount(row, cell)) {
                contents[panel].firstAmount =
                    contents[panel].amounts == 0 ? i : contents[panel].firstAmount;
                ++contents[panel].amounts;
            }
            if (contents[panel].first == 0) {
                contents[panel].first = i;
            }
            if (roleOf(row, cell) == Role::text && lettersIn(row, cell) >= 4
                && !saysNone(row, cell)) {
                contents[panel].labels.insert(i);
                std::string words;
                for (std::size_t word = cell.first; word <= cell.last; ++word) {
                    words += row.words[word].folded + ' ';
                }
                labels[words].insert(panel);
            }
        }
    }
    constexpr std::size_t fewest = 2; // rows of labels of a panel
    constexpr double farthest = 3;    // heights of a head, to what stands below it
    const Row& head = page.rows[at];
    const bool areFull = std::ranges::all_of(contents, [&](const Content& content) {
        return content.labels.size() >= fewest && content.amounts >= 1 && !content.isColumn()
               && page.rows[content.first].top - head.bottom < farthest * head.height();
    });
    const auto shared =
        std::ranges::count_if(labels, [](const auto& label) { return label.second.size() >= 2; });
    // What is shown to compare may have other labels than what it is compared with.
    static const Labels comparisons{"Vergleich*", "comparaison", "confronto", "comparison",
                                    "Vorjahr*",   "précédente",  "precedente"};
    return areFull && (shared >= 1 || findLabel(head, comparisons, page.isRecognised));
}

/// Whether a row below panels is about all of them: words in the first, their amount in another.
bool isOfAll(const PageRows& page, const Row& row, const Cells& cells,
             const std::vector<double>& edges) {
    bool hasWords = false;
    bool hasOwnAmount = false; // in the first
    bool hasAmount = false;    // in another
    for (const LabelPlace& cell : cells) {
        const std::size_t panel = panelOf(cell, edges);
        if (roleOf(row, cell) != Role::text || saysNone(row, cell)) {
            (panel == 0 ? hasOwnAmount : hasAmount) = true;
        } else if (panel > 0) {
            return false;
        } else {
            hasWords = true;
        }
    }
    return hasWords && hasAmount
           && (!hasOwnAmount || namesAny(row, {Concept::total}, page.isRecognised));
}

} // namespace

PanelFinder::PanelFinder(const PageRows& page) : page_(page) {
    for (const Row& row : page.rows) {
        cells_.push_back(cellsOf(row));
    }
    known_.resize(page.rows.size());
}

const Panels& PanelFinder::from(std::size_t at) {
    if (!known_[at]) {
        known_[at] = found(at);
    }
    return *known_[at];
}

Panels PanelFinder::found(std::size_t at) const {
    constexpr double farthest = 3; // heights between the rows of panels
    const auto& rows = page_.rows;
    const Cells& heads = cells_[at];
    if (heads.size() < 2 || hasFirmAmount(rows[at]) || !hasOnlyLabels(rows[at])) {
        return {};
    }
    Coverage coverage;
    coverage.add(heads);
    Panels panels{.end = at + 1};
    const std::size_t end = std::min(rows.size(), at + 1 + mostCardRows);
    for (std::size_t next = at + 1; next < end; ++next) {
        const double height = std::max(rows[next - 1].height(), rows[next].height());
        if (rows[next].top - rows[next - 1].bottom >= farthest * height) {
            break;
        }
        coverage.add(cells_[next]);
        if (!coverage.separates(heads)) {
            break;
        }
        const auto edges = edgesBetween(coverage, heads);
        if (edges && isOfAll(page_, rows[next], cells_[next], *edges)) {
            break;
        }
        if (edges) {
            panels = {.end = next + 1, .edges = *edges};
        }
    }
    if (panels.edges.empty()) {
        return {};
    }
    // A line that ends the page stands under the first panel and belongs to none.
    while (panels.end > at + 1 && cells_[panels.end - 1].size() == 1
           && isLeftOf(rows[panels.end - 1], panels.edges)
           && !hasFirmAmount(rows[panels.end - 1])) {
        --panels.end;
    }
    return arePanels(page_, at, panels.end, panels.edges) ? panels : Panels();
}

Panels PanelFinder::at(std::size_t at) {
    constexpr std::size_t nearest = 3; // rows of a page's own head above those of panels
    Panels panels = from(at);
    for (std::size_t next = at + 1; next < std::min(panels.end, at + 1 + nearest); ++next) {
        if (from(next).edges.size() > panels.edges.size()) {
            return {};
        }
    }
    return panels;
}

} // namespace fiscarel
