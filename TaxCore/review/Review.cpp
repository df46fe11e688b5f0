#include "TaxCore/review/Review.h"

#include "TaxCore/base/JsonWriter.h"

#include <algorithm>

namespace taxcore {

template std::string toJson<Review>(const Review&, JsonStyle);

namespace {

/// Adds the change against the year before, when its case is known, or why there is none.
void addChange(Review& review, const ReviewInput& input) {
    const auto before = std::ranges::find(input.otherYears, input.taxCase.year - 1,
                                          [](const TaxCase* other) { return other->year; });
    if (before == input.otherYears.end()) {
        return;
    }
    auto change = YearComparison::of(**before, input.taxCase, input.calculator, input.result);
    if (change) {
        review.change = std::move(*change);
        return;
    }
    const std::string reason =
        change.error().kind == RuleLoadError::Kind::missing
            ? "Für " + std::to_string((*before)->year) + " gibt es keine Regeln"
            : "Die Regeln für " + std::to_string((*before)->year) + " sind nicht lesbar";
    review.changeMissing = reason + "; der Vergleich mit dem Vorjahr fehlt.";
}

} // namespace

Review Review::of(const ReviewInput& input) {
    Review review{.notices = Checks::of(input),
                  .tips = Advisor::tips(input.calculator, input.taxCase, input.result, input.today,
                                        input.otherYears),
                  .marginalRate =
                      Advisor::marginalRate(input.calculator, input.taxCase, input.result),
                  .notComputed = Checks::notComputed(input.taxCase.taxRegion())};
    addChange(review, input);
    return review;
}

} // namespace taxcore
