#pragma once

#include "Fiscarel_SG/AppStore.h"

#include <set>

namespace fiscarel {

/// The tax years one can choose: those with rules, and those the household has a return for.
inline std::set<int> knownYears(const AppStore& store) {
    constexpr auto& supported = taxcore::RuleBook::supportedYears;
    std::set<int> years(supported.begin(), supported.end());
    for (const auto& [year, taxCase] : store.cases()) {
        years.insert(year);
    }
    return years;
}

inline bool isKnownYear(const AppStore& store, int year) {
    return knownYears(store).contains(year);
}

} // namespace fiscarel
