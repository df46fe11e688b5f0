#include "Fiscarel_SG/documents/kinds/PersonParts.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"
#include "Fiscarel_SG/documents/kinds/PersonBlocks.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace fiscarel {

namespace {

using Parts = std::vector<PersonAmount>;

class Search {
  public:
    Search(const DocumentRows& document, const Wanted& wanted)
        : document_(document), wanted_(wanted), people_(document) {}

    Parts run() const {
        Parts first;
        for (const auto way :
             {&Search::byRow, &Search::byTotalledColumn, &Search::byColumn, &Search::bySentence,
              &Search::byBlockSum, &Search::byBlockRest, &Search::byBlock}) {
            Parts found = (this->*way)();
            if (found.size() < 2) {
                continue;
            }
            const bool isComplete =
                people_.born().size() < 2 || found.size() == people_.born().size();
            if (isComplete && togetherCheck(document_, found)) {
                return found;
            }
            // Amounts in a sentence may be of anything.
            if (first.empty() && way != &Search::bySentence) {
                first = std::move(found);
            }
        }
        return first;
    }

  private:
    /// What each person's amount may be, in the order of the document.
    class Candidates {
      public:
        void add(const NamedPerson& person, FoundAmount found) {
            const auto same = std::ranges::find(lists_, person.folded, [](const Parts& list) {
                return std::string_view(list.front().person.folded);
            });
            Parts& list = same == lists_.end() ? lists_.emplace_back() : *same;
            list.push_back({person, std::move(found)});
        }

        /// One for each: those that add up to a printed total, else the last of each.
        Parts chosen(const DocumentRows& document) const {
            constexpr std::size_t mostTries = 256;
            Parts last;
            for (std::size_t turn = 0; turn < mostTries; ++turn) {
                Parts parts;
                std::size_t rest = turn;
                for (const Parts& list : lists_) {
                    parts.push_back(list[list.size() - 1 - rest % list.size()]);
                    rest /= list.size();
                }
                if (rest > 0) {
                    break; // all have been tried
                }
                if (togetherCheck(document, parts)) {
                    return parts;
                }
                last = last.empty() ? std::move(parts) : std::move(last);
            }
            return last;
        }

      private:
        std::vector<Parts> lists_;
    };

    /// Whether a row that names a person tells something else of them. Their subtotal is theirs.
    bool isOther(const Row& row, bool isRecognised) const {
        static const Labels subtotals{"Zwischentotal", "Zwischensumme", "Sous-total", "Subtotale",
                                      "Totale parziale"};
        return findLabel(row, wanted_.without, isRecognised)
               || (!findLabel(row, subtotals, isRecognised)
                   && namesAny(row, wanted_.notMeant, isRecognised));
    }

    /// Whether an amount's column is headed by what is not deductible, or what a place costs once.
    static bool isAside(const PageRows& page, std::size_t at, const RowAmount& amount) {
        static const std::vector<Concept> asides{Concept::meals, Concept::membership,
                                                 Concept::notDeductible};
        const Row heading = headingOver(page, at, amount);
        return namesAny(heading, asides, page.isRecognised)
               && !namesAny(heading, {Concept::contribution, Concept::premium}, page.isRecognised);
    }

    static bool hasAsides(const PageRows& page, std::size_t at) {
        return std::ranges::any_of(page.rows[at].amounts, [&](const RowAmount& amount) {
            return isAside(page, at, amount);
        });
    }

    /// The only amount of a row beside asides and, if told, their sum; null when there are more.
    static const RowAmount* besideAsides(const PageRows& page, std::size_t at,
                                         const RowAmount* sum) {
        const RowAmount* only = nullptr;
        for (const RowAmount& amount : page.rows[at].amounts) {
            if (&amount == sum || !isWorthy(amount) || isAside(page, at, amount)) {
                continue;
            }
            if (only != nullptr) {
                return nullptr;
            }
            only = &amount;
        }
        return only;
    }

    /// "Anna Muster, 12.3.2015   4’500.00", also with the months before the year's amount.
    Parts byRow() const {
        Candidates candidates;
        for (const PageRows& page : document_.pages) {
            for (std::size_t at = 0; at < page.rows.size(); ++at) {
                const Row& row = page.rows[at];
                const auto named = people_.in(row);
                if (named.size() != 1 || isOther(row, page.isRecognised)
                    || !std::ranges::any_of(row.amounts, isWorthy)) {
                    continue;
                }
                const RowAmount* total = totalAtEnd(row); // of months, say
                const RowAmount* rest = total != nullptr ? nullptr : restOfRow(row);
                const RowAmount* sum = total != nullptr  ? total
                                       : rest != nullptr ? rest
                                                         : sumOfRow(row);
                if (rest == nullptr && hasAsides(page, at)) {
                    sum = besideAsides(page, at, sum);
                    if (sum == nullptr) {
                        continue; // which part is wanted is not clear
                    }
                }
                if (sum != nullptr) {
                    candidates.add(
                        named[0],
                        {.page = &page, .row = at, .amount = *sum, .label = named[0].name});
                    continue;
                }
                const LabelPlace place{named[0].first, named[0].last,
                                       row.words[named[0].first].place.left,
                                       row.words[named[0].last].place.right};
                auto hit = amountFor({&page, 0, page.rows.size()}, at, place, wanted_);
                if (hit && hit->row == at && hit->isAlone && isWorthy(hit->amount)) {
                    candidates.add(named[0], std::move(*hit));
                }
            }
        }
        return candidates.chosen(document_);
    }

    /// A heading of names over columns of amounts.
    Parts byColumn() const {
        for (const PageRows& page : document_.pages) {
            for (std::size_t at = 0; at < page.rows.size(); ++at) {
                const Row& heading = page.rows[at];
                const auto named = people_.in(heading);
                if (named.size() < 2 || page.number == 0
                    || std::ranges::any_of(heading.amounts, isWorthy)) {
                    continue;
                }
                Parts parts = columnTotals(page, at, named);
                if (const auto hit = findFirst({{&page, at + 1, page.rows.size()}}, wanted_);
                    parts.size() < 2 && hit) {
                    parts = amountsUnder(page, heading, named, hit->row);
                }
                if (parts.size() >= 2) {
                    return parts;
                }
            }
        }
        return {};
    }

    /// The first row below that holds the sums of all columns.
    static Parts columnTotals(const PageRows& page, std::size_t at,
                              const std::vector<NamedPerson>& named) {
        for (std::size_t below = at + 1; below < page.rows.size(); ++below) {
            Parts parts = amountsUnder(page, page.rows[at], named, below);
            if (parts.size() == named.size()
                && std::ranges::all_of(parts, [](const PersonAmount& part) {
                       return columnCheck(part.found).has_value();
                   })) {
                return parts;
            }
        }
        return {};
    }

    /// The amounts behind each name in running text.
    Parts bySentence() const {
        constexpr std::size_t mostRows = 4; // from a name to its amount
        Candidates candidates;
        for (const PageRows& page : document_.pages) {
            std::optional<NamedPerson> person;
            std::size_t since = 0;
            for (std::size_t at = 0; at < page.rows.size(); ++at) {
                const Row& row = page.rows[at];
                const auto named = people_.in(row);
                if (page.number != 0 && cellsOf(row).size() > 1) {
                    person.reset(); // a table
                    continue;
                }
                auto next = named.begin();
                for (const RowAmount& amount : row.amounts) {
                    while (next != named.end() && next->last < amount.first) {
                        person = *next++;
                        since = at;
                    }
                    if (person && at - since <= mostRows && isWorthy(amount)) {
                        candidates.add(*person, {.page = &page,
                                                 .row = at,
                                                 .amount = amount,
                                                 .label = person->name,
                                                 .isBelow = true});
                    }
                }
                if (next != named.end()) {
                    person = named.back();
                    since = at;
                }
            }
        }
        return candidates.chosen(document_);
    }

    using Starts = std::vector<std::pair<std::size_t, NamedPerson>>;

    /// The rows that name a person where the one before named another.
    Starts startsIn(const PageRows& page) const {
        Starts starts;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const auto named = people_.in(page.rows[at]);
            if (named.size() == 1
                && (starts.empty() || starts.back().second.folded != named[0].folded)) {
                starts.emplace_back(at, named[0]);
            }
        }
        return starts;
    }

    /// The column whose heading says what is wanted and whose total below is that of the people
    /// alone: beside rates and numbers of days. A name may stand above its amounts.
    Parts byTotalledColumn() const {
        for (const PageRows& page : document_.pages) {
            Parts parts;
            Decimal sum;
            std::optional<FoundAmount> total;
            const Starts starts = page.number == 0 ? Starts() : startsIn(page);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const std::size_t end =
                    i + 1 == starts.size() ? page.rows.size() : starts[i + 1].first;
                auto own = headedIn({&page, starts[i].first, end});
                if (own) {
                    total = totalBelow(*own);
                    own->label = starts[i].second.name;
                    sum = sum + own->value();
                    parts.push_back({starts[i].second, std::move(*own)});
                }
            }
            if (parts.size() >= 2 && areDistinct(parts) && total && total->value() == sum) {
                return parts;
            }
        }
        return {};
    }

    /// The only amount of the first row with any that stands under words for what is wanted. What
    /// stands beside it is of other columns; none where others bear a part there.
    std::optional<FoundAmount> headedIn(const RowRange& block) const {
        const PageRows& page = *block.page;
        std::size_t at = block.first;
        while (at < block.end && std::ranges::none_of(page.rows[at].amounts, isWorthy)) {
            ++at;
        }
        static const Labels discounts{"*ermässigung*", "*rabatt*", "remise*", "sconto*",
                                      "ribasso*"};
        if (const RowAmount* rest = at < block.end ? restOfRow(page.rows[at]) : nullptr) {
            FoundAmount own{.page = &page, .row = at, .amount = *rest}; // what the others leave
            return totalBelow(own) ? std::optional(std::move(own)) : std::nullopt;
        }
        std::optional<FoundAmount> only;
        for (std::size_t i = 0; at < block.end && i < page.rows[at].amounts.size(); ++i) {
            const RowAmount& amount = page.rows[at].amounts[i];
            const Row heading = headingOver(page, at, amount);
            FoundAmount own{.page = &page, .row = at, .amount = amount};
            const bool isBorne =
                namesAny(heading, {Concept::publicShare, Concept::refunded, Concept::reduction},
                         page.isRecognised)
                || findLabel(heading, discounts, page.isRecognised);
            if (isBorne) {
                return std::nullopt;
            }
            const bool isWanted = isWorthy(amount) && totalBelow(own) && !isAside(page, at, amount)
                                  && !placesIn(heading, wanted_, page.isRecognised).empty()
                                  && !namesAny(heading, wanted_.notMeant, page.isRecognised);
            if (isWanted && only) {
                return std::nullopt;
            }
            only = isWanted ? std::optional(std::move(own)) : std::move(only);
        }
        return only;
    }

    /// A name above rows whose amounts, the last of each, one below them adds up: in whatever
    /// words, as each of them is proven.
    Parts byBlockSum() const {
        Parts parts;
        std::vector<RowRange> blocks; // up to each sum
        for (const PageRows& page : document_.pages) {
            const Starts starts = startsIn(page);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const bool isLast = i + 1 == starts.size();
                const std::size_t end = isLast ? page.rows.size() : starts[i + 1].first;
                if (auto sum = sumOfBlock({&page, starts[i].first, end})) {
                    blocks.push_back({&page, starts[i].first, sum->row});
                    parts.push_back({starts[i].second, std::move(*sum)});
                }
            }
        }
        return areDistinct(parts) ? withoutMeals(parts, blocks) : Parts();
    }

    /// The first amount of rows that those above it, two or more, come to; none where one of them
    /// tells of something else.
    std::optional<FoundAmount> sumOfBlock(const RowRange& block) const {
        constexpr std::size_t fewest = 2;
        std::size_t count = 0;
        Decimal sum;
        for (std::size_t at = block.first; at < block.end; ++at) {
            const Row& row = block.page->rows[at];
            if (row.amounts.empty() || !isWorthy(row.amounts.back())) {
                continue;
            }
            const RowAmount& last = row.amounts.back();
            if (isOther(row, block.page->isRecognised)) {
                return std::nullopt;
            }
            if (count >= fewest && last.amount.value == sum) {
                return FoundAmount{.page = block.page,
                                   .row = at,
                                   .amount = last,
                                   .label =
                                       textBetween(row, 0, last.first == 0 ? 0 : last.first - 1)};
            }
            sum = sum + last.amount.value;
            ++count;
        }
        return std::nullopt;
    }

    /// A name above a price, what others bear of it, and what remains to the parents.
    Parts byBlockRest() const {
        Parts parts;
        for (const PageRows& page : document_.pages) {
            const Starts starts = startsIn(page);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const bool isLast = i + 1 == starts.size();
                const std::size_t end = isLast ? page.rows.size() : starts[i + 1].first;
                if (auto rest = remainderIn({&page, starts[i].first, end})) {
                    parts.push_back({starts[i].second, std::move(rest->found), rest->check});
                }
            }
        }
        return areDistinct(parts) ? parts : Parts();
    }

    /// A name above the rows that are about it.
    Parts byBlock() const {
        Parts parts;
        std::vector<RowRange> blocks; // up to each amount
        for (const PageRows& page : document_.pages) {
            const Starts starts = startsIn(page);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const bool isLast = i + 1 == starts.size();
                const std::size_t end = isLast ? page.rows.size() : starts[i + 1].first;
                const RowRange block{&page, starts[i].first, end};
                auto hit = parts.empty() ? std::nullopt : likewise(block, parts.front().found);
                const bool isLike = hit.has_value();
                hit = isLike ? std::move(hit) : firmIn(block);
                if (hit && isLast && !isLike) {
                    hit = withoutCommonTotal(page, starts[i].first, std::move(*hit), parts);
                }
                if (hit && hit->value() >= 1) {
                    parts.push_back({starts[i].second, std::move(*hit)});
                    blocks.push_back({&page, starts[i].first, parts.back().found.row});
                }
            }
        }
        return areDistinct(parts) ? withoutMeals(parts, blocks) : Parts();
    }

    /// The words of a row but for its numbers.
    static std::string lettersOf(const Row& row) {
        std::string letters;
        for (const RowWord& word : row.words) {
            letters += hasDigit(word.text) ? std::string() : word.folded + ' ';
        }
        return letters;
    }

    /// The only amount of a row of the same words as where another person's was found.
    static std::optional<FoundAmount> likewise(const RowRange& block, const FoundAmount& other) {
        const std::string words = lettersOf(other.rowOf());
        if (std::ranges::count_if(other.rowOf().amounts, isWorthy) != 1) {
            return std::nullopt;
        }
        for (std::size_t at = block.first; at < block.end; ++at) {
            const Row& row = block.page->rows[at];
            if (std::ranges::count_if(row.amounts, isWorthy) == 1 && !other.isBelow
                && lettersOf(row) == words) {
                FoundAmount found = other;
                found.page = block.page;
                found.row = at;
                found.amount = *std::ranges::find_if(row.amounts, isWorthy);
                return found;
            }
        }
        return std::nullopt;
    }

    /// The first amount of rows; the bare number of a house beside a name is none.
    std::optional<FoundAmount> firmIn(const RowRange& block) const {
        auto found = findAmounts({block}, wanted_, Digits::firm);
        return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
    }

    static Parts withoutMeals(const Parts& parts, const std::vector<RowRange>& blocks) {
        Parts own;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (auto rest = fiscarel::withoutMeals(blocks[i], parts[i].found)) {
                own.push_back({parts[i].person, std::move(*rest)});
            }
        }
        return own;
    }

    /// What stands behind the last name may be the total of all: then the amount above it counts.
    std::optional<FoundAmount> withoutCommonTotal(const PageRows& page, std::size_t first,
                                                  FoundAmount hit, const Parts& before) const {
        Decimal others;
        for (const PersonAmount& one : before) {
            others = others + one.found.value();
        }
        auto own = firmIn({&page, first, hit.row});
        return own && own->value() + others == hit.value() ? std::move(own)
                                                           : std::optional(std::move(hit));
    }

    const DocumentRows& document_;
    const Wanted& wanted_;
    People people_;
};

} // namespace

std::vector<PersonAmount> findPersonAmounts(const DocumentRows& document, const Wanted& wanted) {
    return Search(document, wanted).run();
}

std::optional<ProposalCheck> togetherCheck(const DocumentRows& document,
                                           const std::vector<PersonAmount>& parts) {
    Decimal sum;
    std::vector<Decimal> values;
    for (const PersonAmount& part : parts) {
        sum = sum + part.found.value();
        values.push_back(part.found.value());
    }
    if (parts.size() < 2 || !findSum(document, sum)) {
        return std::nullopt;
    }
    return ProposalCheck{togetherText(values, sum), true};
}

} // namespace fiscarel
