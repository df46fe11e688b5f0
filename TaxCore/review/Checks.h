#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "TaxCore/result/TaxResult.h"

#include <string>
#include <vector>

namespace taxcore {

/// What the review knows of an imported document.
struct ReviewedDocument {
    std::string title;
    int year = 0;         ///< the year it belongs to
    bool applied = false; ///< its amounts were taken over, or it has none
};

/// What a review looks at. Everything is referred to and must outlive the call.
struct ReviewInput {
    const CaseCalculator& calculator; ///< of the case's region and year
    const TaxCase& taxCase;
    const TaxResult& result; ///< of that case
    Date today;
    std::vector<ReviewedDocument> documents = {};
    std::vector<const TaxCase*> otherYears = {}; ///< the household's cases of other years
};

/// Plausibility checks on a computed case.
struct Checks {
    Checks() = delete;

    /// The notices of the calculation and those of the checks, the gravest first and, within a
    /// level, in the order of the pages. A household in order gives none. They carry the path of
    /// the field to go to where there is one.
    static std::vector<Notice> of(const ReviewInput& input);

    /// In plain words what the program does not compute, for a region; one German sentence each.
    static std::vector<std::string> notComputed(TaxRegion region);
};

} // namespace taxcore
