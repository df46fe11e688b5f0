#pragma once

#include "Fiscarel_SG/documents/ReaderProcess.h"
#include "Fiscarel_SG/documents/ScanResult.h"

#include <tl/expected.hpp>

#include <chrono>
#include <filesystem>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// How a document is read.
struct ReadingOptions {
    PagesRead progress;   ///< called on the thread of the caller
    std::stop_token stop; ///< asked to stop, reading ends at once
    /// After which what has been read so far must do; at least a second.
    std::chrono::seconds timeLimit{120};
};

/// Reads documents; decides by words what a document is and which amounts it states. Stateless, and
/// callable from any thread. Texts are UTF-8; letters with a mark count as one, however they are
/// encoded.
///
/// These are plain rules of words in a fixed order, which decides where several would fit. They
/// know nothing of the place of a word on the page.
class DocumentScanner {
  public:
    /// Reads a file, PDF or image, in a process of its own and waits for it. Never fails: what
    /// could not be read is told by `problem`, and a file that cannot be read at all has no text,
    /// no pages and kind `anderes`.
    static ScanResult scan(const std::filesystem::path& path, const ReadingOptions& options = {});

    /// A page as a PNG file `width` pixels wide (1 to 8000), upright as it was read; or why not,
    /// one German sentence. Reads the file in a process of its own and waits for it.
    static tl::expected<std::string, std::string>
    render(const std::filesystem::path& path, int page, int width, std::stop_token stop = {});

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
