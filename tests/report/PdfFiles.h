#pragma once

#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// Writes a file.
std::filesystem::path writeFile(const std::filesystem::path& file, const std::string& bytes);
/// The text of a PDF as another program reads it, in lines as they stand on the pages; a page ends
/// with a form feed. Throws when that program fails.
std::string textOfPdf(const std::filesystem::path& file);
/// The titles of the outline, in order, without levels.
std::vector<std::string> outlineOf(const std::string& pdf);

} // namespace fiscarel::testing
