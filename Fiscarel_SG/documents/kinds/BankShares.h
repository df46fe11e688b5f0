#pragma once

#include "Fiscarel_SG/documents/kinds/AccountFigures.h"

namespace fiscarel {

/// Whether a row mentions a bank's own shares or notes: "Anteilscheine", "parts sociales".
bool mentionsShares(const Row& row);

/// How many of them a row says are held, "21 parts sociales", of notes the nominal value; absent
/// where it does not.
std::optional<FoundAmount> sharesIn(const PageRows& page, std::size_t at);

/// What a block on them tells: at last what they are worth by their nominal value, and what they
/// bring as dividend.
Figures figuresOfShares(const RowRange& range);
/// How many of them the first row of a block that says so tells.
std::optional<FoundAmount> sharesIn(const RowRange& range);

} // namespace fiscarel
