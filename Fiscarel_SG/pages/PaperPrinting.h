#pragma once

#include "Fiscarel_SG/paper/PaperDocument.h"

#include <memory>
#include <optional>
#include <string>

class QPrinter;

namespace fiscarel::pages {

/// A printer to be asked for with the library's dialog, set up for pages of ours.
std::shared_ptr<QPrinter> printerFor(const paper::PaperDocument& document);
/// Prints the pages the user chose; a German sentence when it fails. Any thread may call.
std::optional<std::string> printPages(const paper::PaperDocument& document, QPrinter& printer);

} // namespace fiscarel::pages
