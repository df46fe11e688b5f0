#pragma once

#include "tests/documents/reading/DrawnPage.h"

#include <string>
#include <vector>

namespace fiscarel {

/// A paper that a household gets, with what is proposed from it.
struct HouseholdPaper {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< "who: field=value confidence", of all records
};

/// The amounts of all records with whose they are.
std::vector<std::string> amountsOf(const std::vector<Put>& puts);

} // namespace fiscarel
