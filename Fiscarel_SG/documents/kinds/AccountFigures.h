#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <array>
#include <optional>
#include <vector>

namespace fiscarel {

/// What an account or a loan may state.
enum class Figure { balance, interest, withholding, netInterest, debt, debtInterest };
constexpr std::size_t figureCount = 6;

/// The words of a figure.
const Wanted& wantedOf(Figure figure);

/// Amounts by what they are.
using Figures = std::array<std::optional<FoundAmount>, figureCount>;

/// Columns of a table headed by words: where each figure's amounts stand.
struct AccountHeading {
    std::size_t row = 0; ///< the last one of the heading, which may have two lines
    std::array<std::optional<LabelPlace>, figureCount> columns;
    std::array<std::string, figureCount> words; ///< as printed

    std::size_t count() const;
};

/// The heading a row begins; without columns for a row that heads nothing.
AccountHeading accountHeadingIn(const PageRows& page, std::size_t at);
/// The amounts of a row by the columns of a heading.
Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading);
/// The amounts of some rows by the words beside them.
Figures figuresByLabel(const RowRange& range);

/// Opening + movements = closing: a balance that the statement's own sums lead to; absent when not
/// all of them are printed.
std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing);
/// Withholding tax is 35 per cent of the gross interest (VStG Art. 13), and the rest is paid out.
std::vector<ProposalCheck> interestChecks(const Figures& figures);

} // namespace fiscarel
