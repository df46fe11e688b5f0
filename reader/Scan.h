#pragma once

#include "Fiscarel_SG/documents/PageReading.h"
#include "reader/Document.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::reader {

/// What stands in a document, for both readers.
struct Scanned {
    DocumentReading reading;
    std::string text;                  ///< for the plain rules: the text layer, or six pages read
    std::vector<std::string> barcodes; ///< for the plain rules: of the first six pages
    std::optional<Fault> problem;      ///< why not everything was read
};

struct ScanOptions {
    Deadline deadline;
    unsigned threads = 1;
    std::function<void(int done, int total)> progress; ///< pages; called on the calling thread
};

/// Whether the text layer of a whole document tells so little that its pages are recognised.
bool hasLittleText(std::string_view layer);

/// Whether the text of a page is recognised in its picture rather than taken from its text layer.
/// `isAll` says that this is so for the whole document.
bool isReadFromPicture(const Document& document, int page, const PageText& text, bool isAll);

/// Reads a document on several threads. What is not read by the deadline is left out: then threads
/// may still be at work when this returns, so the process must end without tidying up.
/// `bytes` stays for as long as the process.
Scanned scanDocument(std::string_view bytes, const ScanOptions& options);

} // namespace fiscarel::reader
