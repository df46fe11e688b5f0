#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

void checkWealth([[maybe_unused]] CheckContext& c) {}

} // namespace taxcore::review
