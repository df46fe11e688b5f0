#pragma once

#include "Fiscarel_SG/paper/PaperDocument.h"

#include <tl/expected.hpp>

#include <string>

namespace fiscarel::paper {

/// Set pages as a PDF file (A4, fonts embedded, text that can be selected, outline, links, title,
/// language). Needs a QGuiApplication; any thread may call. A German sentence when it fails.
tl::expected<std::string, std::string> reportPdf(const PaperDocument& document);

} // namespace fiscarel::paper
