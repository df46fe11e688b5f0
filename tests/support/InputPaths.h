#pragma once

#include "Fiscarel_SG/forms/Page.h"
#include "TaxCore/model/TaxCase.h"

#include <string>
#include <vector>

namespace fiscarel::testing {

/// A case in which every list holds one item and every optional is present.
taxcore::TaxCase fullCase(int year, taxcore::TaxRegion region);

/// The paths of everything a household enters into a case: all fields but identities, links to
/// documents, the year and the region.
std::vector<std::string> inputPaths(const taxcore::TaxCase& taxCase);

/// All fields of a page, those of the lists for each item there is; shown or not.
std::vector<forms::BoundField> fieldsOf(const forms::Page& page, const taxcore::TaxCase& taxCase);

} // namespace fiscarel::testing
