#pragma once

#include "Fiscarel_SG/documents/kinds/Securities.h"

#include <optional>

namespace fiscarel {

/// Securities in two lines each, the name and the number below it, with labels and amounts beside
/// them; absent when the page has not two of them, or has others set otherwise.
std::optional<SecurityList> securityPairs(const KindContext& context, const PageRows& page);

/// Securities beside each other, each with what is said of it in the column under its number;
/// absent when the page has not two of them.
std::optional<SecurityList> securityColumns(const KindContext& context, const PageRows& page);

/// Securities and accounts one below the other, each with its number above or below what is said
/// of it; absent when the page has not two such securities, nor one that number times price proves.
std::optional<SecurityList> securityCards(const KindContext& context, const PageRows& page);

} // namespace fiscarel
