#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "tests/documents/reading/DrawnPage.h"

#include <vector>

namespace fiscarel {

/// A document in words of its own, its kind, and the amount that it is kept for.
struct Wording {
    StoredDocument::Kind kind;
    const char* field;
    const char* value;
    std::vector<Line> lines;
};

/// Papers of every kind in all languages, each in words of its own.
std::vector<Wording> wordings();

} // namespace fiscarel
