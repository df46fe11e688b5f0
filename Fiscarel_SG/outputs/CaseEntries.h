#pragma once

#include "Fiscarel_SG/outputs/FormField.h"
#include "TaxCore/model/TaxCase.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// Everything a household entered, apart from identities and links.
struct CaseEntry {
    std::string path;
    std::string value;      ///< as entered, shown with Rappen
    bool isInitial = false; ///< what a new case holds, so that nobody need have entered it
};

/// All entries that are not empty, in the order of the case.
std::vector<CaseEntry> entriesOf(const taxcore::TaxCase& taxCase);

/// The document linked to each list item that has one, by the item's path.
std::map<std::string, taxcore::Uuid> linkedDocuments(const taxcore::TaxCase& taxCase);

/// The path with every position taken out and the persons made one: "income1.salaries[0].employer"
/// becomes "income.salaries[].employer".
std::string patternOf(std::string_view path);

/// The item that a path lies in: "securities[3]" of "securities[3].taxValue"; empty for none.
std::string itemOf(std::string_view path);

} // namespace fiscarel::outputs
