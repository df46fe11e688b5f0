#pragma once

#include "Fiscarel_SG/documents/kinds/PensionAmounts.h"
#include "Fiscarel_SG/documents/kinds/People.h"

#include <utility>
#include <vector>

namespace fiscarel {

/// A couple's pensions that stand in columns or cards side by side, each headed by the name. Empty
/// unless each person has one that nothing disputes.
std::vector<std::pair<NamedPerson, const PensionAmount*>>
pensionsInColumns(const DocumentRows& document, const People& people,
                  const std::vector<PensionAmount>& amounts);

} // namespace fiscarel
