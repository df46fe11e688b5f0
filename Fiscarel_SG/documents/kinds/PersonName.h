#pragma once

#include "Fiscarel_SG/documents/kinds/PageRuns.h"

#include <optional>

namespace fiscarel {

/// Whether words are a person's name, or a couple's, and nothing else: "Anna Muster", "MUSTER
/// ANNA", "Frau Muster", "Anna und Beat Muster".
bool isPersonName(const Row& words);

/// The name that the words of a row from one on begin with, up to the gap of a column and without
/// "Herr" or "Frau"; absent where they are none. A name's words stand before a comma or a digit, or
/// before a word that no name has.
std::optional<Run> personNameAt(const PageRows& page, const Row& row, std::size_t first);

} // namespace fiscarel
