#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Joins francs and centimes that stand in columns of their own, as on old forms: "78'388   90".
void joinCents(PageRows& page);

} // namespace fiscarel
