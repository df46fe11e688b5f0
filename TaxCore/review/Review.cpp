#include "TaxCore/review/Review.h"

#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

template std::string toJson<Review>(const Review&, JsonStyle);

Review Review::of(const ReviewInput& input) {
    return {Checks::of(input),
            Advisor::tips(input.calculator, input.taxCase, input.result, input.today),
            Advisor::marginalRate(input.calculator, input.taxCase, input.result),
            Checks::notComputed(input.taxCase.taxRegion())};
}

} // namespace taxcore
