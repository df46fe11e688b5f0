// Feeds arbitrary bytes to everything that reads text from outside. Whatever is accepted must come
// back unchanged after writing and be computed; whatever is refused must be explained by a
// sentence.

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace taxcore;

void require(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", claim);
        std::abort();
    }
}

void checkRoundTrip(const TaxCase& household) {
    for (const JsonStyle style : {JsonStyle::pretty, JsonStyle::compact}) {
        const std::string text = toJson(household, style);
        const auto again = fromJson<TaxCase>(text);
        require(again.has_value(), "what was written reads strictly");
        require(*again == household, "what was written reads back equal");
        require(hashOf(*again) == hashOf(household), "equal cases hash equal");
        require(toJson(*again, style) == text, "writing twice gives the same bytes");
        TaxCase patched = household;
        require(patchFromJson(patched, text).has_value() && patched == household,
                "a case patched with its own text stays as it is");
    }
}

/// Whatever reads can be computed, explained and written in either region. A case of a year without
/// rules keeps its year and is computed by those of another.
void checkComputed(TaxCase household) {
    const auto& years = RuleBook::supportedYears;
    const bool supported = std::ranges::find(years, household.year) != years.end();
    for (const TaxRegion region : allValues<TaxRegion>()) {
        household.region = region;
        TaxCase ruled{.year = supported ? household.year : years.front()};
        ruled.region = region;
        const auto calculator = CaseCalculator::forCase(ruled);
        require(calculator.has_value(), "there are rules for the year in every region");
        const TaxResult result = calculator->calculate(household);
        require(!toJson(result).empty(), "a result has a text");
        for (const Derivation& derivation : calculator->explainAll(household)) {
            require(!toJson(derivation).empty(), "a derivation has a text");
            const TaxLine* line = result.line(derivation.code);
            require(line == nullptr || derivation.canton.value_or(line->canton) == line->canton,
                    "a derivation ends in its line's amount");
        }
    }
}

void checkExplained(const JsonError& error) {
    require(!error.message.empty() && error.message.ends_with('.'), "a refusal is a sentence");
    const bool placed = error.path.empty() || error.message.find("«") != std::string::npos;
    require(placed, "a refusal with a path names it");
}

void checkCase(std::string_view text) {
    const auto strict = fromJson<TaxCase>(text);
    const auto filled = fromJson<TaxCase>(text, JsonGaps::filled);
    require(filled.has_value() || !strict.has_value(), "filling gaps never refuses more");
    if (strict) {
        require(*strict == *filled, "a complete case has no gaps to fill");
    } else {
        checkExplained(strict.error());
    }
    if (filled) {
        checkRoundTrip(*filled);
        checkComputed(*filled);
    } else {
        checkExplained(filled.error());
    }
    if (const auto state = fiscarel::decodeState(text)) {
        require(fiscarel::decodeState(fiscarel::encodeState(*state)) == *state,
                "a written state reads back equal");
    } else {
        require(!state.error().message.empty(), "a refused state is explained");
    }
}

/// Dates, numbers and identities: what reads is written in a form that reads the same.
template <class T, class Parse>
void checkText(std::string_view text, Parse parse) {
    if (const auto value = parse(text)) {
        const std::string written = value->toString();
        const auto again = parse(written);
        require(again && *again == *value, "a written value reads back equal");
        require(again->toString() == written, "a value has one written form");
        require(std::hash<T>{}(*again) == std::hash<T>{}(*value), "equal values hash equal");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size); // exactly as long as the input, so overruns show
    checkCase(text);
    checkText<Decimal>(text, Decimal::parse);
    checkText<Date>(text, Date::parse);
    checkText<Uuid>(text, Uuid::parse);
    return 0;
}
