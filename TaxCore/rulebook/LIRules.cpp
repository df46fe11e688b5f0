#include "TaxCore/rulebook/LIRules.h"

#include "TaxCore/rulebook/RuleCache.h"
#include "TaxCore/rulebook/RuleReader.h"

#include <algorithm>

namespace taxcore {

namespace {

/// The position of a place; absent when there is none of this name.
std::optional<std::size_t> indexOf(const std::vector<std::string>& places, std::string_view name) {
    const auto found = std::ranges::find(places, name);
    if (found == places.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - places.begin());
}

} // namespace

const std::vector<LIRules::Stufe>& LIRules::Tarif::steps(LITariffKind kind) const noexcept {
    switch (kind) {
    case LITariffKind::alleinerziehend:
        return alleinerziehend;
    case LITariffKind::verheiratet:
        return verheiratet;
    case LITariffKind::alleinstehend:
        break;
    }
    return alleinstehend;
}

tl::expected<std::shared_ptr<const LIRules>, RuleLoadError> LIRules::load(int year) {
    static RuleCache<int, LIRules> cache;
    if (auto kept = cache.get(year)) {
        return kept;
    }
    auto rules = load(year, RuleFiles::bundle());
    if (rules) {
        cache.put(year, *rules);
    }
    return rules;
}

tl::expected<std::shared_ptr<const LIRules>, RuleLoadError> LIRules::load(int year,
                                                                          const RuleFiles& files) {
    auto rules = std::make_shared<LIRules>();
    RuleReader reader(files);
    reader.read("li-" + std::to_string(year), *rules);
    if (reader.error()) {
        return tl::unexpected(std::move(*reader.error()));
    }
    return rules;
}

std::optional<Decimal> LIRules::zuschlag(std::string_view name) const {
    const auto found = std::ranges::find(gemeinden, name, &Gemeinde::name);
    return found == gemeinden.end() ? std::nullopt : std::optional(found->zuschlag);
}

std::optional<Decimal> LIRules::fahrkostenInland(std::string_view von,
                                                 std::string_view nach) const {
    const auto row = indexOf(fahrkostenOrte, von);
    const auto column = indexOf(fahrkostenOrte, nach);
    if (!row || !column || *row >= fahrkostenMatrix.size()
        || *column >= fahrkostenMatrix[*row].size()) {
        return std::nullopt;
    }
    return fahrkostenMatrix[*row][*column];
}

} // namespace taxcore
