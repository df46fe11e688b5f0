#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

void checkOther([[maybe_unused]] CheckContext& c) {}

} // namespace taxcore::review
