#include "TaxCore/review/Review.h"

#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/review/CheckContext.h"

#include <algorithm>
#include <array>
#include <utility>

namespace taxcore {

template std::string toJson<Review>(const Review&, JsonStyle);

namespace {

/// Adds the change against the year before, when its case is known, or why there is none.
void addChange(Review& review, const ReviewInput& input) {
    const TaxCase* const before = review::caseOf(input.otherYears, input.taxCase.year - 1);
    if (before == nullptr) {
        return;
    }
    auto change = YearComparison::of(*before, input.taxCase, input.calculator, input.result);
    if (change) {
        review.change = std::move(*change);
        return;
    }
    const std::string reason =
        change.error().kind == RuleLoadError::Kind::missing
            ? "Für " + std::to_string(before->year) + " gibt es keine Regeln"
            : "Die Regeln für " + std::to_string(before->year) + " sind nicht lesbar";
    review.changeMissing = reason + "; der Vergleich mit dem Vorjahr fehlt.";
}

/// Leaves out notices whose remedy a tip tells as well, with what it saves. A person's number
/// follows both ids or neither.
void leaveToTips(std::vector<Notice>& notices, const std::vector<Notice>& tips) {
    using Pair = std::pair<std::string_view, std::string_view>;
    static constexpr std::array pairs{
        Pair{"arbeitsweg-begruendung", "tipp-auto"},
        Pair{"weiterbildung-pauschale", "tipp-weiterbildung"},
        Pair{"uebrige-kosten-nicht-gewaehlt", "tipp-uebrige-berufskosten"},
        Pair{"nebenerwerb-nicht-gewaehlt", "tipp-nebenerwerb"},
        Pair{"spenden-min", "tipp-spenden"},
        Pair{"krankheit-selbstbehalt", "tipp-krankheitskosten"},
    };
    std::erase_if(notices, [&](const Notice& notice) {
        return std::ranges::any_of(pairs, [&](const Pair& pair) {
            const auto& [stem, tip] = pair;
            return notice.id.starts_with(stem)
                   && std::ranges::find(tips, std::string(tip) + notice.id.substr(stem.size()),
                                        &Notice::id)
                          != tips.end();
        });
    });
}

} // namespace

Review Review::of(const ReviewInput& input) {
    Review review{.notices = Checks::of(input),
                  .tips = Advisor::tips(input.calculator, input.taxCase, input.result, input.today,
                                        input.otherYears),
                  .marginalRate =
                      Advisor::marginalRate(input.calculator, input.taxCase, input.result),
                  .notComputed = Checks::notComputed(input.taxCase.taxRegion())};
    leaveToTips(review.notices, review.tips);
    addChange(review, input);
    return review;
}

} // namespace taxcore
