#include "Fiscarel_SG/documents/kinds/ColumnTotal.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"

#include <algorithm>

namespace fiscarel {

namespace {

bool heads(const Row& cell, const Wanted& wanted, bool isRecognised) {
    constexpr std::size_t most = 6; // words of a heading
    return cell.words.size() <= most && !findLabel(cell, wanted.without, isRecognised)
           && !namesAny(cell, wanted.notMeant, isRecognised)
           && std::ranges::any_of(wanted.meanings, [&](const Meaning& meaning) {
                  return findMeaning(cell, meaning, isRecognised).has_value();
              });
}

/// The row that the amounts of a column above it add up to; absent where those are of several
/// years.
std::optional<FoundAmount> totalOf(const PageRows& page, const TableHeading& heading,
                                   std::size_t column) {
    Decimal sum;
    std::size_t count = 0;
    std::optional<int> known;
    for (std::size_t at = heading.row + 1; at < page.rows.size(); ++at) {
        const auto amounts = heading.amountsIn(
            page, at, [](const RowAmount& amount, std::size_t) { return amount.amount.isFirm(); });
        if (amounts[column] == nullptr) {
            continue;
        }
        const Decimal& value = amounts[column]->amount.value;
        if (count >= 2 && value == sum) {
            return FoundAmount{.page = &page,
                               .row = at,
                               .amount = *amounts[column],
                               .label = heading.columns[column].words()};
        }
        const auto year = yearAtStart(page.rows[at]);
        if (known && year && *known != *year) {
            return std::nullopt;
        }
        known = year ? year : known;
        sum = sum + value;
        ++count;
    }
    return std::nullopt;
}

/// The amounts of a column row by row; empty where they are of several years or one is alien.
std::vector<FoundAmount> amountsOf(const PageRows& page, const TableHeading& heading,
                                   std::size_t column, const Wanted& wanted) {
    std::vector<FoundAmount> all;
    std::optional<int> known;
    for (std::size_t at = heading.row + 1; at < page.rows.size(); ++at) {
        const auto amounts = heading.amountsIn(
            page, at, [](const RowAmount& amount, std::size_t) { return amount.amount.isFirm(); });
        if (amounts[column] == nullptr) {
            break;
        }
        const auto year = yearAtStart(page.rows[at]);
        if ((known && year && *known != *year)
            || namesAny(page.rows[at], wanted.alien, page.isRecognised)) {
            return {};
        }
        known = year ? year : known;
        all.push_back({.page = &page,
                       .row = at,
                       .amount = *amounts[column],
                       .label = heading.columns[column].words()});
    }
    return all;
}

} // namespace

std::optional<SummedAmount> columnSum(const DocumentRows& document, const Wanted& wanted,
                                      std::optional<int> year) {
    const auto isOfOther = [&](const Row& cell) {
        return std::ranges::any_of(cell.words, [&](const RowWord& word) {
            const auto own = parseYear(word.text);
            return own && year && *own != *year;
        });
    };
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const TableHeading heading = tableHeadingIn(page, at, false);
            for (std::size_t i = 0; i < heading.columns.size() && heading.columns.size() > 2; ++i) {
                if (heads(heading.columns[i].cell, wanted, page.isRecognised)
                    && !isOfOther(heading.columns[i].cell)) {
                    if (auto whole = wholeOfParts(document, amountsOf(page, heading, i, wanted))) {
                        return whole;
                    }
                }
            }
        }
    }
    return std::nullopt;
}

std::optional<FoundAmount> columnTotal(const DocumentRows& document, const Wanted& wanted) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const TableHeading heading = tableHeadingIn(page, at, false);
            for (std::size_t i = 0; i < heading.columns.size() && heading.columns.size() > 2; ++i) {
                if (heads(heading.columns[i].cell, wanted, page.isRecognised)) {
                    if (auto total = totalOf(page, heading, i)) {
                        return total;
                    }
                }
            }
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
