#pragma once

#include "reader/Barcodes.h"
#include "reader/Straighten.h"

namespace fiscarel::reader {

/// What is wanted of a page.
struct PageTask {
    int page = 0;
    bool wantsSymbols = true;
    bool wantsRecognition = false;
    bool hasSpareThread = false; ///< no other page needs it
    PageText text;               ///< of its text layer
};

/// What a page holds.
struct PageFound {
    PageReading reading;
    std::string recognisedText; ///< empty unless recognition ran
    std::vector<FoundSymbol> symbols;
    bool hidesText = false; ///< none of the text layer can be seen
};

/// Reads a page: draws it, looks for barcodes, sets it upright and recognises its text.
PageFound readPage(const Document& document, PageTask task, Recognition& recognition,
                   Deadline deadline);

} // namespace fiscarel::reader
