#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The words an amount is found by.
struct Wanted {
    Labels labels;          ///< fixed wordings in all languages, the most certain first
    Labels without;         ///< a row with one of these means something else
    bool isSpecific = true; ///< its words alone say what the amount is, "Total" does not
    std::vector<Meaning> meanings = {}; ///< where no label is found, the most certain first
    std::vector<Concept> notMeant = {}; ///< with one of these a meaning is something else
    std::vector<Concept> alien = {};    ///< what is no part of it, though a total may include it
};

/// An amount beside its label.
struct FoundAmount {
    const PageRows* page = nullptr;
    std::size_t row = 0; ///< index of the amount's row
    RowAmount amount;
    std::string label;    ///< as printed
    bool isAlone = true;  ///< the only amount right of the label
    bool isBelow = false; ///< under or before its label, or in a sentence

    const Row& rowOf() const { return page->rows[row]; }
    const Decimal& value() const { return amount.amount.value; }
};

/// Whether two amounts are the same words of a page.
inline bool areSame(const FoundAmount& one, const FoundAmount& other) {
    return one.page == other.page && one.row == other.row && one.amount.first == other.amount.first;
}

/// Part of a page: rows from `first` up to `end`, not included.
struct RowRange {
    const PageRows* page = nullptr;
    std::size_t first = 0;
    std::size_t end = 0;
};

/// Whether a row is part of a sentence with amounts, which says before each what it is.
bool isProse(const Row& row, bool isRecognised);

/// All rows of a document, a range for each page.
std::vector<RowRange> wholeDocument(const DocumentRows& document);

/// Whether only numbers count whose form speaks for an amount, or at last bare ones too.
enum class Digits { firm, any };

/// The amounts of the first label that has any, from top to bottom. The amount stands right of its
/// label in the same row; or below, where the label heads it and its row has no amount; or before
/// it, as the first of the row. Of several, the one in the page's amount column counts. Without
/// labels the first meaning counts that a row has with an amount, then one that a sentence has.
std::vector<FoundAmount> findAmounts(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                     Digits digits = Digits::any);

/// The last of the amounts found, for totals; absent when there is none.
std::optional<FoundAmount> findLast(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                    Digits digits = Digits::any);
std::optional<FoundAmount> findFirst(const std::vector<RowRange>& ranges, const Wanted& wanted);

/// Whether the amounts directly above in the same column add up to this one, those of reductions
/// being taken off; absent when fewer than two stand there or they do not.
std::optional<ProposalCheck> columnCheck(const FoundAmount& total);

/// Whether a total includes what is not wanted: one of the amounts that `columnCheck` adds up, and
/// that is not taken off, stands in a row with words that bar it or name what is alien.
bool includesAlien(const FoundAmount& total, const Wanted& wanted);
/// What these parts come to together; nothing where there are none.
Decimal alienIn(const FoundAmount& total, const Wanted& wanted);

/// Whether an amount is one of those that `columnCheck` adds up.
bool isPartOf(const FoundAmount& total, const FoundAmount& part);

/// Whether one of the amounts that `columnCheck` adds up is taken off.
bool takesOff(const FoundAmount& total);

/// The total below an amount in its column that `columnCheck` proves; absent when there is none.
std::optional<FoundAmount> totalBelow(const FoundAmount& part);

/// Whether the same amount stands a second time by words that fit; absent when it does not.
std::optional<ProposalCheck> repeatCheck(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                         const FoundAmount& found);
/// Those of both checks that hold.
std::vector<ProposalCheck> witnessChecks(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                         const FoundAmount& found);

/// How an amount found by its place or in text is known. Its label alone is one witness; sure it is
/// only with a second one, a check that holds, by specific words in a document whose kind is clear.
Evidence evidenceOf(const FoundAmount& found, const Wanted& wanted, bool isKindClear,
                    std::vector<ProposalCheck> checks = {});

} // namespace fiscarel
