#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <string>
#include <vector>

namespace fiscarel::pages {

/// How far an input page is, by what can be known: whether something stands there, and what the
/// review found.
struct PageProgress {
    std::string id; ///< "income"
    std::string title;
    bool hasEntries = false;
    std::string detail; ///< German: "3 Lohnausweise"; what stands there
    int open = 0;       ///< notices that ask for something

    bool operator==(const PageProgress&) const = default;
};

/// The input pages in their order. What the household does not count, such as the second person of
/// a single one, is no entry.
std::vector<PageProgress> progressOf(const taxcore::TaxCase& taxCase,
                                     const std::vector<taxcore::Notice>& notices);

/// Whether nothing has been entered yet; region, residence and civil status do not count, since a
/// new case has them.
bool isUntouched(const taxcore::TaxCase& taxCase);

} // namespace fiscarel::pages
