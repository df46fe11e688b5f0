#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace fiscarel {

/// What an account or a loan may state; interest by itself, or told of the tax on it.
enum class Figure {
    balance,
    interest,
    withholding,
    netInterest,
    debt,
    debtInterest,
    taxedInterest,
    untaxedInterest
};
constexpr std::size_t figureCount = 8;
constexpr std::size_t labelledFigures = 6; ///< the first ones, which have words of their own

/// The words of a figure; those of interest for one that tells of the tax.
const Wanted& wantedOf(Figure figure);

/// What a rate of exchange is called.
const Labels& exchangeRates();

/// Amounts by what they are.
using Figures = std::array<std::optional<FoundAmount>, figureCount>;

inline std::optional<FoundAmount>& at(Figures& figures, Figure figure) {
    return figures[static_cast<std::size_t>(figure)];
}
inline const std::optional<FoundAmount>& at(const Figures& figures, Figure figure) {
    return figures[static_cast<std::size_t>(figure)];
}
/// By value: what is asked of a passing result must outlive it.
inline std::optional<FoundAmount> at(Figures&& figures, Figure figure) {
    return std::move(figures[static_cast<std::size_t>(figure)]);
}

/// The amounts of some rows by the words beside them.
Figures figuresByLabel(const RowRange& range);

/// Opening + movements = closing: a balance that the statement's own sums lead to; absent when not
/// all of them are printed.
std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing);
/// Withholding tax is 35 per cent of the gross interest (VStG Art. 13), and the rest is paid out.
std::vector<ProposalCheck> interestChecks(const Figures& figures);

} // namespace fiscarel
