#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

void checkPension([[maybe_unused]] CheckContext& c) {}

} // namespace taxcore::review
