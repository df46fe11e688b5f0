#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The words an amount is found by.
struct Wanted {
    Labels labels;          ///< in all languages, the most certain first
    Labels without;         ///< a row with one of these means something else
    bool isSpecific = true; ///< its words alone say what the amount is, "Total" does not
};

/// An amount beside its label.
struct FoundAmount {
    const PageRows* page = nullptr;
    std::size_t row = 0; ///< index of the amount's row
    RowAmount amount;
    std::string label;    ///< as printed
    bool isAlone = true;  ///< the only amount right of the label
    bool isBelow = false; ///< under its label rather than beside it

    const Row& rowOf() const { return page->rows[row]; }
    const Decimal& value() const { return amount.amount.value; }
};

/// Part of a page: rows from `first` up to `end`, not included.
struct RowRange {
    const PageRows* page = nullptr;
    std::size_t first = 0;
    std::size_t end = 0;
};

/// All rows of a document, a range for each page.
std::vector<RowRange> wholeDocument(const DocumentRows& document);

/// The amounts of the first label that has any, from top to bottom. The amount stands right of its
/// label in the same row; or below, where the label heads it and its row has no amount. Of several,
/// the one in the page's amount column counts.
std::vector<FoundAmount> findAmounts(const std::vector<RowRange>& ranges, const Wanted& wanted);

/// The last of the amounts found, for totals; absent when there is none.
std::optional<FoundAmount> findLast(const std::vector<RowRange>& ranges, const Wanted& wanted);
std::optional<FoundAmount> findFirst(const std::vector<RowRange>& ranges, const Wanted& wanted);

/// Whether the amounts directly above in the same column add up to this one, those of reductions
/// being taken off; absent when fewer than two stand there or they do not.
std::optional<ProposalCheck> columnCheck(const FoundAmount& total);

/// How an amount found by its place or in text is known. Sure only with a check that holds, or in a
/// text layer by specific words in a document whose kind is clear.
Evidence evidenceOf(const FoundAmount& found, const Wanted& wanted, bool isKindClear,
                    std::vector<ProposalCheck> checks = {});

} // namespace fiscarel
