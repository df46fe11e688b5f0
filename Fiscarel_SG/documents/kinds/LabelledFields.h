#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <vector>

namespace fiscarel {

/// An amount that documents of a kind state beside a label.
struct LabelledField {
    StoredDocument::Kind kind;
    ProposedRecord::Kind record;
    const char* field;
    Wanted wanted;
    int below;                    ///< as much or more, francs, is no such amount
    bool isYear = false;          ///< a year or a day's year instead of an amount
    const char* beside = nullptr; ///< looked for only where this field was found
};

/// The amounts of all kinds that are found by label alone, in German, French and Italian.
const std::vector<LabelledField>& labelledFields();

} // namespace fiscarel
