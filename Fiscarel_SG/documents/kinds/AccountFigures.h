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

/// The amounts of some rows by the words beside them.
Figures figuresByLabel(const RowRange& range);

/// Opening + movements = closing: a balance that the statement's own sums lead to; absent when not
/// all of them are printed.
std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing);
/// Withholding tax is 35 per cent of the gross interest (VStG Art. 13), and the rest is paid out.
std::vector<ProposalCheck> interestChecks(const Figures& figures);

} // namespace fiscarel
