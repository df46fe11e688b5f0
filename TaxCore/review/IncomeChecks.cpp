#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

void checkIncome([[maybe_unused]] CheckContext& c) {}

} // namespace taxcore::review
