#include "Fiscarel_SG/documents/rows/PageHalves.h"

#include "Fiscarel_SG/documents/rows/CardEdges.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

constexpr std::size_t fewestRows = 2; ///< with names and amounts in both halves
constexpr double indent = 16;         ///< points, of what stands below a title

/// Where the right half of a row begins that has words and then amounts in both; absent for others.
std::optional<double> halfEdge(const Row& row) {
    std::optional<double> edge;
    bool hasWords = false;
    bool hasAmounts = false;
    for (const LabelPlace& cell : cellsOf(row)) {
        const Role role = roleOf(row, cell);
        if (role == Role::text && (hasAmounts || !hasWords)) {
            if (lettersIn(row, cell) < 4 || (hasAmounts && edge)) {
                return std::nullopt;
            }
            edge = hasAmounts ? std::optional(cell.left) : edge;
            hasWords = true;
            hasAmounts = false;
        } else if (role == Role::amount) {
            if (!hasWords) {
                return std::nullopt;
            }
            hasAmounts = true;
        }
    }
    return hasAmounts ? edge : std::nullopt;
}

struct Halves {
    std::size_t first = 0;
    std::size_t end = 0;
    double left = 0; ///< where the names of the left half begin
    double edge = 0; ///< where the right half begins
};

/// Whether a row is the title of each half, and nothing else, maybe with what heads its amounts:
/// "Bezüge   CHF   Abzüge   CHF". What stands below may be indented.
bool isTitleOf(const Row& row, const Halves& halves) {
    const auto cells = cellsOf(row);
    const auto begins = [](const LabelPlace& cell, double left) {
        return cell.left > left - indent && cell.left <= left + aligned;
    };
    const std::size_t own = cells.size() / 2; // cells of a half
    const bool areOwn = cells.size() == 2
                        || (cells.size() == 4 && lettersIn(row, cells[0]) > lettersIn(row, cells[1])
                            && lettersIn(row, cells[2]) > lettersIn(row, cells[3]));
    return areOwn && !hasFirmAmount(row) && (cells.size() == 4 || hasOnlyLabels(row))
           && begins(cells[0], halves.left) && begins(cells[own], halves.edge)
           && cells[own - 1].right < halves.edge - (own == 1 ? indent : 0);
}

/// Where the title of the right half begins.
double beginOfRight(const Row& title) {
    const auto cells = cellsOf(title);
    return cells[cells.size() / 2].left;
}

/// Whether a title sets what a customer has beside what he owes.
bool namesBothSides(const Row& row) {
    static const Labels kept{"*guthaben", "Aktiven", "Aktiva", "*vermögen*", "*konten",
                             "*einlagen", "avoirs",  "actifs", "comptes",    "fortune",
                             "averi",     "attivi",  "attivo", "conti",      "depositi"};
    static const Labels owed{
        "*schulden",   "Passiven",     "Passiva",     "*hypotheken", "*kredite", "Darlehen",
        "Verpflicht*", "Verbindlich*", "dettes",      "passifs",     "crédits",  "prêts",
        "emprunts",    "engagement*",  "hypothèques", "debiti",      "passivi",  "passivo",
        "crediti",     "prestiti",     "mutui",       "ipoteche",    "impegni"};
    return isAnyIn(row.folded, kept) && isAnyIn(row.folded, owed);
}

/// The gap between two rows in heights.
double gapOf(const Row& above, const Row& below) {
    const double height = std::max(above.height(), below.height());
    return height <= 0 ? 0 : (below.top - above.bottom) / height;
}

/// Whether what a row has right of its words stands in no half: amounts alone at the right.
bool hasNoOwnWords(const Row& row, const std::vector<double>& edges) {
    const Row right = columnsOf(row, edges, false)[1];
    return !right.words.empty() && !isLeftOf(right, edges) && hasOnlyAmounts(right);
}

/// Where the right half begins if a row of it stands further out than those with amounts.
double outdented(const Row& row, double edge, double ofAmounts) {
    for (const LabelPlace& cell : cellsOf(row)) {
        if (cell.left > ofAmounts - indent && cell.left < edge && lettersIn(row, cell) >= 1) {
            return cell.left;
        }
    }
    return edge;
}

/// The halves whose first row with amounts in both is this one.
std::optional<Halves> halvesAt(const PageRows& page, std::size_t at) {
    constexpr double farthest = 6; // heights between a half's blocks
    const auto& rows = page.rows;
    const auto edge = halfEdge(rows[at]);
    if (!edge) {
        return std::nullopt;
    }
    Halves halves{at, at + 1, cellsOf(rows[at]).front().left, *edge};
    constexpr std::size_t fewestOwn = 3; // rows with amounts of each half
    std::size_t both = 1;
    std::size_t left = 0; // rows with amounts of one alone
    std::size_t right = 0;
    std::size_t titles = 0;
    bool isOfBoth = false;
    for (; halves.first > 0; --halves.first) {
        const Row& above = rows[halves.first - 1];
        const double outer = outdented(above, halves.edge, *edge);
        const std::vector<double> edges{outer};
        const bool isTitle = isTitleOf(above, halves);
        if ((!isTitle && !fitsEdges(above, edges)) || hasFirmAmount(above)
            || gapOf(above, rows[halves.first]) >= farthest) {
            break;
        }
        halves.edge = outer;
        titles += isTitle ? 1U : 0U;
        isOfBoth |= isTitle && namesBothSides(above);
        halves.edge = isTitle ? std::min(halves.edge, beginOfRight(above)) : halves.edge;
    }
    if (titles == 0) {
        return std::nullopt; // before the rows below are looked at, over and over
    }
    for (; halves.end < rows.size(); ++halves.end) {
        const Row& row = rows[halves.end];
        const auto own = halfEdge(row);
        const double outer = outdented(row, halves.edge, *edge);
        const std::vector<double> edges{outer};
        if (crossesEdges(row, edges) || hasNoOwnWords(row, edges)
            || gapOf(rows[halves.end - 1], row) >= farthest
            || (own && std::abs(*own - *edge) > aligned)
            || (isLeftOf(row, edges) && namesAny(row, {Concept::total}, page.isRecognised))) {
            break;
        }
        halves.edge = outer;
        both += own ? 1U : 0U;
        const std::vector<Row> parts = columnsOf(row, edges, page.isRecognised);
        left += !own && hasFirmAmount(parts[0]) ? 1U : 0U;
        right += !own && hasFirmAmount(parts[1]) ? 1U : 0U;
    }
    // Each half may say as much on lines of its own: one account has more to tell than another.
    const bool areFull = titles >= 2 && std::min(left, right) + both >= fewestOwn;
    return both >= fewestRows || isOfBoth || areFull ? std::optional(halves) : std::nullopt;
}

/// The left half, then the right one below it, then the rest of the page.
void stack(PageRows& page, const Halves& halves) {
    std::vector<Row> rows(page.rows.begin(),
                          page.rows.begin() + static_cast<std::ptrdiff_t>(halves.first));
    const double height = page.rows[halves.end - 1].bottom - page.rows[halves.first].top
                          + page.rows[halves.first].height();
    std::vector<Row> right;
    for (std::size_t i = halves.first; i < halves.end; ++i) {
        std::vector<Row> parts = columnsOf(page.rows[i], {halves.edge}, page.isRecognised);
        if (!parts[0].words.empty()) {
            rows.push_back(std::move(parts[0]));
        }
        if (!parts[1].words.empty()) {
            right.push_back(std::move(parts[1]));
            moveDown(right.back(), height);
        }
    }
    std::ranges::move(right, std::back_inserter(rows));
    for (std::size_t i = halves.end; i < page.rows.size(); ++i) {
        rows.push_back(std::move(page.rows[i]));
        moveDown(rows.back(), height);
    }
    page.rows = std::move(rows);
}

} // namespace

void partHalves(PageRows& page) {
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (const auto halves = halvesAt(page, at)) {
            stack(page, *halves);
            return;
        }
    }
}

} // namespace fiscarel
