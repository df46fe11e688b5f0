#pragma once

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A rectangle on a page in points (1/72 inch), from the page's upper left corner.
struct PagePlace {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
};

/// A word as it stands on a page.
struct PageWord {
    std::string text; ///< UTF-8, without blanks
    PagePlace place;
    double certainty = 1; ///< 0 to 1; 1 for the words of a text layer
};

/// A barcode on a page.
struct PageSymbol {
    enum class Symbology { qr, pdf417, dataMatrix, code128 };

    /// Its part of a message that is spread over several symbols.
    struct Part {
        int index = 0;            ///< from 0
        std::optional<int> count; ///< absent where the symbol does not tell
        std::string message;      ///< what the parts of one message have in common
    };

    Symbology symbology = Symbology::qr;
    std::string bytes; ///< the payload as it is encoded, never translated to a character set
    PagePlace place;
    std::optional<Part> part;
};

/// What stands on one page.
struct PageReading {
    int number = 0;   ///< from 1
    double width = 0; ///< points
    double height = 0;
    bool isRecognised = false;   ///< words come from text recognition rather than a text layer
    std::vector<PageWord> words; ///< in no certain order
    std::vector<PageSymbol> symbols;
};

/// What stands in a document before anything is concluded from it.
struct DocumentReading {
    std::string text;               ///< lines in reading order, separated by line feeds
    std::vector<PageReading> pages; ///< in the order of their numbers; pages may be missing
    int pageCount = 0;              ///< of the document
};

} // namespace fiscarel
