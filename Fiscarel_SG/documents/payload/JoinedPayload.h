#pragma once

#include "Fiscarel_SG/documents/PageReading.h"

#include <string>
#include <vector>

namespace fiscarel {

/// The most symbols one payload may be spread over.
constexpr int mostPayloadParts = 64;

/// The bytes of a message that was printed in one symbol or several.
struct JoinedPayload {
    std::string bytes;
    bool isComplete = false;
    int found = 0;          ///< parts that were read
    int expected = 0;       ///< parts there are; 0 when nobody tells
    std::vector<int> pages; ///< on which its symbols stand, in their order, each once
    PagePlace place;        ///< of the first of them
};

/// The payloads of salary and pension certificates: PDF417 with a header of fourteen bytes (big
/// endian: 0–3 document, 6–7 length of the symbol, 10–11 part from 1, 12–13 count of parts), one
/// for each document number. Swissdec guideline for wage data, 2D barcode
std::vector<JoinedPayload> certificatePayloads(const DocumentReading& reading);

/// The payloads in structured append PDF417 (or a single symbol) that begin as zlib data, by their
/// common message. eCH-0196, annex on barcodes
std::vector<JoinedPayload> statementPayloads(const DocumentReading& reading);

/// The page barcode of such documents: sixteen digits of CODE128 with the number of the standard
/// (196), version, clearing number, page and position.
struct PageMark {
    int standard = 0; ///< "196": eCH-0196
    int version = 0;  ///< "22": 2.2
    int page = 0;     ///< of the document, where the mark was read
};
std::vector<PageMark> pageMarks(const DocumentReading& reading);

} // namespace fiscarel
