#pragma once

#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <vector>

namespace fiscarel {

/// The words for a concept. A star before a word: it may be the end of a compound; behind it: it
/// may go on or be inflected.
struct ConceptWords {
    Concept meant;
    Labels words;
};

// The tables in German, French, Italian and some English, by what papers speak of.
std::vector<ConceptWords> moneyWords();
std::vector<ConceptWords> bankWords();
std::vector<ConceptWords> provisionWords();
std::vector<ConceptWords> billWords();

} // namespace fiscarel
