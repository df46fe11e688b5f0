#pragma once

#include "tests/documents/reading/DrawnPage.h"

#include <string>
#include <vector>

namespace fiscarel {

/// A page in a layout of its own and the amounts it states, each as "field=value".
struct Layout {
    const char* name;
    StoredDocument::Kind kind;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< all amounts that may be proposed, in any order
};

/// Where labels stand beside their amounts; in the first those of the fund begin at 400 points.
std::vector<Layout> placesOfLabels();
/// Columns of years, of quarters, of what is another matter.
std::vector<Layout> columnsAndTimes();
/// Several people on a page, and amounts that look like the one wanted.
std::vector<Layout> peopleAndTraps();

} // namespace fiscarel
