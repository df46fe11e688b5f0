#include "TaxCore/review/Review.h"

#include "TaxCore/base/JsonWriter.h"

#include <algorithm>

namespace taxcore {

template std::string toJson<Review>(const Review&, JsonStyle);

namespace {

/// The change against the year before; absent without its case or its rules.
std::optional<YearComparison> changeOf(const ReviewInput& input) {
    const auto before = std::ranges::find(input.otherYears, input.taxCase.year - 1,
                                          [](const TaxCase* other) { return other->year; });
    if (before == input.otherYears.end()) {
        return std::nullopt;
    }
    auto change = YearComparison::of(**before, input.taxCase);
    return change ? std::optional(std::move(*change)) : std::nullopt;
}

} // namespace

Review Review::of(const ReviewInput& input) {
    return {.notices = Checks::of(input),
            .tips = Advisor::tips(input.calculator, input.taxCase, input.result, input.today,
                                  input.otherYears),
            .marginalRate = Advisor::marginalRate(input.calculator, input.taxCase, input.result),
            .change = changeOf(input),
            .notComputed = Checks::notComputed(input.taxCase.taxRegion())};
}

} // namespace taxcore
