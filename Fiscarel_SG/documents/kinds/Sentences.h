#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Words that make a sentence, as one row, with where its amounts come from.
struct Sentence {
    Row row;
    std::vector<FoundAmount> amounts;
    std::vector<std::size_t> starts; ///< index of each amount's first word in the sentence
    std::vector<std::size_t> ends;   ///< and of its last
    Products products;
};

/// The sentences of running text that tell amounts, which may go on over lines; a semicolon between
/// two amounts parts them. Rows of tables are none.
std::vector<Sentence> sentencesOf(const std::vector<RowRange>& ranges);

} // namespace fiscarel
