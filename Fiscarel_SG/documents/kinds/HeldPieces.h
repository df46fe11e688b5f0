#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// What pieces of a security are called behind their number: "18 Stk.", "25 azioni".
const Labels& pieceWords();

/// Shares or fund units told without a table: how many are held, and what they are worth.
struct HeldPieces {
    FoundAmount quantity; ///< may have three or four decimals, as those of funds do
    FoundAmount value;
    ProposalCheck check; ///< number × price = value
};

/// The pieces of a block whose number times a price printed there is a value printed there. A
/// number counts where its unit stands beside it, or where its decimals make it no amount; absent
/// where no product holds.
std::optional<HeldPieces> heldPieces(const RowRange& range);

/// How many pieces a row tells beside their unit, or of what nominal value: "310 Anteile", "Nominal
/// 40’000.00", "20'000 EUR nominali"; absent for the nominal value of one.
std::optional<FoundAmount> toldPieces(const PageRows& page, std::size_t at);

/// The first ISIN or Swiss security number of a block, without marks; empty where there is none.
std::string securityNumberIn(const RowRange& range);

/// The words of a row that tell pieces with three or four decimals, "112.408".
std::vector<FoundAmount> fractionsIn(const PageRows& page, std::size_t at);

/// "1’200 × 148.20 = 177’840.00, der Steuerwert", bonds in per cent, each in francs; absent where
/// the product is not the value to five centimes.
std::optional<ProposalCheck> piecesCheck(const Decimal& quantity, const Decimal& price,
                                         const Decimal& value);

} // namespace fiscarel
