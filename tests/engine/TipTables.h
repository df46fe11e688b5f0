#pragma once

#include "tests/support/ReviewCase.h"

#include <functional>
#include <vector>

namespace taxcore::testing {

/// A tip, a household it is for, what it proposes, and one it is not for.
struct TipRow {
    const char* id;
    const char* law; ///< an article that the message names
    std::function<void(TaxCase&)> forHousehold;
    std::function<void(TaxCase&)> proposed;
    std::function<void(TaxCase&)> notFor;
    std::function<TaxCase()> household = spotlessHousehold;
};

/// The tips of both regions.
std::vector<TipRow> tipRows();

} // namespace taxcore::testing
