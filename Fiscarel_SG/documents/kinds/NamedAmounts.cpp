#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

using Parts = std::vector<PersonAmount>;

bool areApart(const PagePlace& one, const PagePlace& other) {
    return one.right <= other.left || other.right <= one.left;
}

/// Where a name heads a column: its cell, "Lea Muster (2015)", unless others share it.
LabelPlace columnOf(const Row& heading, const NamedPerson& name,
                    const std::vector<NamedPerson>& named) {
    const auto isIn = [](const NamedPerson& one, const LabelPlace& cell) {
        return cell.first <= one.first && one.last <= cell.last;
    };
    for (const LabelPlace& cell : cellsOf(heading)) {
        const auto count =
            std::ranges::count_if(named, [&](const NamedPerson& one) { return isIn(one, cell); });
        if (isIn(name, cell) && count == 1) {
            return cell;
        }
    }
    return {name.first, name.last, heading.words[name.first].place.left,
            heading.words[name.last].place.right};
}

/// The amounts of a row under the nearest heading of names, one for each.
Parts underNames(const People& people, const FoundAmount& one) {
    const PageRows& page = *one.page;
    for (std::size_t above = one.row; above-- > 0 && page.number != 0;) {
        const Row& heading = page.rows[above];
        const auto named = people.in(heading);
        if (named.size() < 2 || std::ranges::any_of(heading.amounts, isWorthy)) {
            continue;
        }
        Parts parts = amountsUnder(page, heading, named, one.row);
        const auto all = std::ranges::count_if(one.rowOf().amounts, isWorthy);
        return std::cmp_equal(parts.size(), all) ? parts : Parts();
    }
    return {};
}

/// The first row of the column an amount stands in: below what heads it.
std::size_t beginOfColumn(const FoundAmount& one) {
    for (std::size_t above = one.row; above-- > 0;) {
        const Row& row = one.page->rows[above];
        const bool isIn = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
            return amount.amount.isFirm() && !areApart(amount.place, one.amount.place);
        });
        const bool isWords = std::ranges::any_of(row.words, [&](const RowWord& word) {
            return !areApart(word.place, one.amount.place);
        });
        if (isWords && !isIn) {
            return above + 1;
        }
    }
    return 0;
}

/// The amounts of a headed column that stand in rows of one name each.
Parts besideNames(const People& people, const FoundAmount& one) {
    const PageRows& page = *one.page;
    const bool isHeaded = one.isBelow && page.number != 0;
    Parts parts;
    for (std::size_t at = isHeaded ? beginOfColumn(one) : page.rows.size(); at < page.rows.size();
         ++at) {
        const auto named = people.in(page.rows[at]);
        for (const RowAmount& amount : page.rows[at].amounts) {
            if (named.size() == 1 && isWorthy(amount) && named[0].last < amount.first
                && !areApart(amount.place, one.amount.place)) {
                FoundAmount found = one;
                found.row = at;
                found.amount = amount;
                parts.push_back({named[0], std::move(found)});
            }
        }
    }
    return parts;
}

/// The last name in a row or above it.
std::optional<NamedPerson> nameAbove(const People& people, const FoundAmount& one) {
    for (std::size_t at = one.row + 1; at-- > 0;) {
        const auto named = people.in(one.page->rows[at]);
        if (!named.empty()) {
            return named.size() == 1 ? std::optional(named[0]) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// Amounts that each stand below a name, without the sum of all at the end.
Parts belowNames(const People& people, const std::vector<FoundAmount>& all) {
    Parts parts;
    Decimal sum;
    for (const FoundAmount& one : all) {
        if (parts.size() >= 2 && one.value() == sum) {
            continue;
        }
        auto person = nameAbove(people, one);
        if (!person) {
            return {};
        }
        sum = sum + one.value();
        parts.push_back({std::move(*person), one});
    }
    return parts;
}

} // namespace

bool isWorthy(const RowAmount& amount) {
    return amount.amount.isFirm() && amount.amount.value >= 1;
}

bool areDistinct(const std::vector<PersonAmount>& parts) {
    return std::ranges::all_of(parts, [&](const PersonAmount& one) {
        return std::ranges::count(parts, one.person.folded,
                                  [](const PersonAmount& other) { return other.person.folded; })
               == 1;
    });
}

std::vector<PersonAmount> amountsUnder(const PageRows& page, const Row& heading,
                                       const std::vector<NamedPerson>& named, std::size_t at) {
    Parts parts;
    for (const RowAmount& amount : page.rows[at].amounts) {
        for (const NamedPerson& name : named) {
            const LabelPlace column = columnOf(heading, name, named);
            if (isWorthy(amount) && amount.place.left < column.right
                && column.left < amount.place.right) {
                parts.push_back(
                    {name, {.page = &page, .row = at, .amount = amount, .label = name.name}});
            }
        }
    }
    return parts;
}

std::vector<PersonAmount> amountsOfPeople(const DocumentRows& document,
                                          const std::vector<FoundAmount>& all) {
    if (all.empty()) {
        return {};
    }
    const People people(document);
    for (Parts parts : {underNames(people, all.back()), besideNames(people, all.back()),
                        belowNames(people, all)}) {
        if (parts.size() >= 2 && areDistinct(parts)) {
            return parts;
        }
    }
    return {};
}

} // namespace fiscarel
