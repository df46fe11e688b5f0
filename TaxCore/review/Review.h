#pragma once

#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/review/Advisor.h"
#include "TaxCore/review/Checks.h"
#include "TaxCore/review/YearComparison.h"

#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// All that is to be said of a computed case, in one record.
struct Review {
    /// Of the calculation and the checks, the gravest first; not those whose remedy a tip tells.
    std::vector<Notice> notices;
    std::vector<Notice> tips; ///< those still open first, each group by saving
    MarginalRate marginalRate;
    std::optional<YearComparison> change; ///< against the year before, when that case is known
    /// Why `change` is absent although that case is known; a German sentence.
    std::optional<std::string> changeMissing;
    std::vector<std::string> notComputed;       ///< German sentences
    std::optional<IncomeCurve> curve;           ///< put in by whoever wants it
    std::optional<BuyInPlanning> buyInPlanning; ///< put in by whoever wants it

    bool operator==(const Review&) const = default;

    /// All of it for a computed case, without the curve and the planning, which take their time.
    static Review of(const ReviewInput& input);
};
TAXCORE_RECORD(Review, notices, tips, marginalRate, change, changeMissing, notComputed, curve,
               buyInPlanning);

extern template std::string toJson<Review>(const Review&, JsonStyle);

} // namespace taxcore
