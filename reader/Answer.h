#pragma once

#include "reader/Document.h"

#include <string>
#include <string_view>

namespace fiscarel::reader {

/// Writes to standard output what the caller reads: lines "progress DONE TOTAL" and one last line
/// with the kind and length of what follows, "result 1234", then so many bytes.
class Answer {
  public:
    static void progress(int done, int total);
    /// Kinds are "result" (JSON), "image" (PNG) and "problem" (one German sentence). False when
    /// nobody reads it.
    static bool give(std::string_view kind, std::string_view bytes);
};

/// What stands in a document as JSON, for developers; payloads in base64.
std::string readingJson(const DocumentReading& reading);

/// A picture as PNG; empty on failure.
std::string pngOf(const PixPtr& pix);

} // namespace fiscarel::reader
