#include "Fiscarel_SG/documents/kinds/CarriedOver.h"

#include "Fiscarel_SG/documents/kinds/AccountRows.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace fiscarel {

namespace {

constexpr std::size_t fewestColumns = 2; ///< of a table; a list carries a single sum on

std::vector<Decimal> moneyIn(const Row& row) {
    std::vector<Decimal> money;
    for (const RowAmount& amount : row.amounts) {
        if (amount.amount.isFirm()) {
            money.push_back(amount.amount.value.abs());
        }
    }
    return money;
}

bool isLine(const Row& row) { return moneyIn(row).size() >= fewestColumns; }

/// Whether a row says that a table goes on elsewhere.
bool saysCarriedOn(const Row& row) {
    static const Labels subtotals{
        "Seitentotal",   "Seitensumme",      "Seitenübertrag",      "Total Seite",
        "Summe Seite",   "Zwischenübertrag", "Zwischentotal",       "Zwischensumme",
        "Subtotal",      "total page",       "total de la page",    "total de page",
        "sous-total",    "total partiel",    "total intermédiaire", "transport",
        "à transporter", "totale pagina",    "totale di pagina",    "totale della pagina",
        "subtotale",     "totale parziale",  "totale intermedio",   "da riportare",
        "a riporto",     "carried forward"};
    return isCarried(row) || findLabel(row, subtotals, false);
}

using Lines = std::vector<std::size_t>;

Lines linesOf(const PageRows& page) {
    Lines lines;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (isLine(page.rows[at])) {
            lines.push_back(at);
        }
    }
    return lines;
}

/// Whether the lines of a page go on from sums: they begin with them or not, and a later line comes
/// to all of them together. A copy of the page before does not.
bool goesOn(const PageRows& page, const Lines& lines, const std::vector<Decimal>& sums) {
    std::vector<Decimal> all = sums;
    std::size_t added = 0;
    const auto isNothing = [](const Decimal& sum) { return sum.isZero(); };
    if (std::ranges::all_of(sums, isNothing)) {
        return false;
    }
    for (const std::size_t line : lines) {
        const auto money = moneyIn(page.rows[line]);
        if (money.size() != all.size()) {
            continue;
        }
        if (added >= 1 && money == all) {
            return true;
        }
        if (line == lines.front() && money == sums) {
            continue; // told again
        }
        ++added;
        for (std::size_t i = 0; i < all.size(); ++i) {
            all[i] = all[i] + money[i];
        }
    }
    return false;
}

/// The row that carries a page's sums on, by its words or because the next page goes on from them;
/// absent where there is none.
std::optional<std::size_t> carriedOn(const PageRows& page, const PageRows* next) {
    const Lines lines = linesOf(page);
    if (lines.size() < 2) {
        return std::nullopt;
    }
    for (std::size_t i = lines.size(); i-- > 1;) {
        const std::size_t columns = moneyIn(page.rows[lines[i]]).size();
        const bool isEnd = std::all_of(
            lines.begin() + static_cast<std::ptrdiff_t>(i) + 1, lines.end(),
            [&](std::size_t below) { return moneyIn(page.rows[below]).size() < columns; });
        if (isEnd && saysCarriedOn(page.rows[lines[i]])) {
            return lines[i];
        }
    }
    const Lines others = next != nullptr ? linesOf(*next) : Lines();
    if (others.size() < 2) {
        return std::nullopt;
    }
    return goesOn(*next, others, moneyIn(page.rows[lines.back()])) ? std::optional(lines.back())
                                                                   : std::nullopt;
}

/// The rows of words that head a table whose first line is told.
std::vector<Row> headingOver(const PageRows& page, std::size_t line) {
    constexpr std::size_t most = 3;
    std::vector<Row> heading;
    for (std::size_t at = line; at-- > 0 && heading.size() < most;) {
        const Row& row = page.rows[at];
        if (hasFirmAmount(row) || cellsOf(row).size() < fewestColumns) {
            break;
        }
        heading.insert(heading.begin(), row);
    }
    return heading;
}

/// Takes the sums that a page begins with out of it, and gives it a heading where it has none.
void cutIncoming(PageRows& page, const std::vector<Decimal>& sums,
                 const std::vector<Row>& heading) {
    const Lines lines = linesOf(page);
    if (lines.empty()) {
        return;
    }
    const std::size_t first = lines.front();
    const bool hasHeading = !headingOver(page, first).empty();
    const auto place = page.rows.begin() + static_cast<std::ptrdiff_t>(first);
    const bool isIncoming = saysCarriedOn(*place) || moneyIn(*place) == sums;
    const auto next = isIncoming ? page.rows.erase(place) : place;
    if (!hasHeading) {
        page.rows.insert(next, heading.begin(), heading.end());
    }
}

} // namespace

std::optional<DocumentRows> withoutCarried(const DocumentRows& document) {
    std::optional<DocumentRows> rest;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const bool isLast = i + 1 == document.pages.size();
        const PageRows& page = rest ? rest->pages[i] : document.pages[i];
        const auto at = carriedOn(page, isLast ? nullptr : &document.pages[i + 1]);
        if (!at) {
            continue;
        }
        rest = rest ? std::move(rest) : std::optional(document);
        auto& rows = rest->pages[i].rows;
        const std::size_t first = linesOf(rest->pages[i]).front();
        if (!isLast) {
            cutIncoming(rest->pages[i + 1], moneyIn(rows[*at]), headingOver(rest->pages[i], first));
        }
        const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = rows.begin() + static_cast<std::ptrdiff_t>(*at) + 1;
        rows.erase(std::remove_if(begin, end, [](const Row& row) { return hasFirmAmount(row); }),
                   end);
    }
    return rest;
}

} // namespace fiscarel
