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

/// Reads a document on several threads. What is not read by the deadline is left out: then threads
/// may still be at work when this returns, so the process must end without tidying up.
/// `bytes` stays for as long as the process.
Scanned scanDocument(std::string_view bytes, const ScanOptions& options);

} // namespace fiscarel::reader
