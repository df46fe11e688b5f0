#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Joins francs and centimes that stand in columns of their own, as on old forms: "78'388   90".
void joinCentColumns(PageRows& page);

/// Joins francs and centimes that recognition sets apart because typewriter letters stand loosely:
/// "766." and "07".
void joinTornCents(PageRows& page);

} // namespace fiscarel
