#pragma once

#include "reader/Document.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tesseract {
class TessBaseAPI;
}

namespace fiscarel::reader {

/// What is recognised on a page.
struct RecognisedPage {
    std::string text; ///< its lines in reading order, separated by line feeds
    std::vector<PageWord> words;
};

/// Recognises text. Each thread has its own; the languages are loaded with the first page.
class Recognition {
  public:
    Recognition();
    Recognition(const Recognition&) = delete;
    Recognition& operator=(const Recognition&) = delete;
    ~Recognition();

    /// The text of an upright picture; what was found so far when the deadline passes.
    RecognisedPage read(const Picture& picture, Deadline deadline);

    /// By how many quarter turns clockwise a picture must be turned to stand upright, 0 to 3; none
    /// when it does not tell.
    std::optional<int> quarterTurns(const PixPtr& picture, double dpi);

    /// How many letters and digits of a picture can be read surely as it stands.
    int legibleLetters(const PixPtr& picture, double dpi);

    /// Whether the files of the languages are there.
    bool isInstalled();

  private:
    bool start();

    std::unique_ptr<tesseract::TessBaseAPI> text_;
    std::unique_ptr<tesseract::TessBaseAPI> turns_;
};

} // namespace fiscarel::reader
