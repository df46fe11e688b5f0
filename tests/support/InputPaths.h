#pragma once

#include "Fiscarel_SG/forms/Page.h"
#include "TaxCore/model/TaxCase.h"

#include <functional>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// A case in which every list holds one item and every optional is present.
taxcore::TaxCase fullCase(int year, taxcore::TaxRegion region);

/// The paths of everything a household enters into a case: all fields but identities, links to
/// documents, the year and the region.
std::vector<std::string> inputPaths(const taxcore::TaxCase& taxCase);

/// Calls `visit` with every card of pages and its section.
void forEachCard(const std::vector<forms::Page>& pages,
                 const std::function<void(const forms::Section&, const forms::Card&)>& visit);

/// Whether something is shown; what has no condition always is.
bool holds(const forms::Condition& condition, const taxcore::TaxCase& taxCase);
const forms::Condition& shownOf(const forms::Card& card);

/// The figures of a card as "label: text (note)".
std::vector<std::string> figuresOf(const forms::Card& card, const taxcore::TaxCase& taxCase,
                                   const taxcore::TaxResult& result);

/// Every text of pages but figures: titles, help, labels, options.
std::vector<std::string> textsOf(const std::vector<forms::Page>& pages,
                                 const taxcore::TaxCase& taxCase);

/// All fields of a card, those of a list for each item there is; shown or not.
std::vector<forms::BoundField> fieldsOf(const forms::Card& card, const taxcore::TaxCase& taxCase);
/// All fields of a page, those of the lists for each item there is; shown or not.
std::vector<forms::BoundField> fieldsOf(const forms::Page& page, const taxcore::TaxCase& taxCase);

} // namespace fiscarel::testing
