#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"

#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Decides by words what a document is and which amounts it states. Stateless, and callable from
/// any thread. Texts are UTF-8; letters with a mark count as one, however they are encoded.
///
/// These are plain rules of words in a fixed order, which decides where several would fit. They
/// know nothing of the place of a word on the page.
class DocumentScanner {
  public:
    /// Everything that follows from the recognised text and barcodes.
    static ScanResult read(std::string text, std::vector<std::string> barcodes);

    /// The kind of a document. A barcode stands as its symbology's name, ":" and its beginning.
    static StoredDocument::Kind classify(std::string_view text,
                                         const std::vector<std::string>& barcodes);

    /// The numbers of a line in their order: 1’234.50 is 1234.50, 120.– is 120, and 3,5 are two. A
    /// number with more digits than an amount can hold is left out.
    static std::vector<Decimal> amounts(std::string_view line);

    /// The amounts that matter in a document of a kind, in the order of its form. A label without
    /// an amount on its line or the one below is passed over.
    static std::vector<ExtractedField> extract(StoredDocument::Kind kind,
                                               const std::vector<std::string>& lines);
};

} // namespace fiscarel
