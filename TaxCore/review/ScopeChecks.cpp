#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

void checkScope([[maybe_unused]] CheckContext& c) {}

} // namespace taxcore::review

namespace taxcore {

std::vector<std::string> Checks::notComputed(TaxRegion) { return {}; }

} // namespace taxcore
