#pragma once

#include "reader/Picture.h"

#include <string>
#include <vector>

namespace fiscarel::reader {

/// A barcode with its payload as text, too.
struct FoundSymbol {
    PageSymbol symbol;
    std::string text; ///< UTF-8
};

/// The barcodes of a picture; places are on its page. All kinds sought at once would miss PDF417,
/// so there are two passes: one after the other, or `sideBySide` on a thread more.
std::vector<FoundSymbol> findSymbols(const Picture& picture, bool sideBySide);

/// Adds those that are not there yet.
void addNew(std::vector<FoundSymbol>& symbols, std::vector<FoundSymbol> found);

/// Symbology, ":" and the first 40 characters of the payload.
std::string shortText(const FoundSymbol& symbol);

} // namespace fiscarel::reader
