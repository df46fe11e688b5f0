#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Record.h"

#include <string>

namespace taxcore {

/// One adult's way to work, as the Liechtenstein return asks for it.
struct LICommute {
    enum class Mode { inland, ausland };

    Mode mode = Mode::inland;
    std::string from;
    std::string to;
    Decimal kmPerDay;   ///< kilometres there and back, for work abroad
    int workDays = 220; ///< days of the year
    Decimal reimbursed; ///< francs a year paid by the employer
    int mealDays = 0;   ///< days of the year with a meal away from home

    bool operator==(const LICommute&) const = default;
};
TAXCORE_RECORD(LICommute, mode, from, to, kmPerDay, workDays, reimbursed, mealDays);

template <>
struct EnumTable<LICommute::Mode> {
    using enum LICommute::Mode;
    static constexpr std::array rows{
        EnumRow{inland, "inland", "Arbeitsort in Liechtenstein"},
        EnumRow{ausland, "ausland", "Arbeitsort im Ausland"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(LICommute::Mode);

/// Inputs that only the Liechtenstein return needs.
struct LIExtras {
    LICommute commute1;
    LICommute commute2;
    Decimal householdGoods;            ///< francs, declared as wealth
    bool useRealEstateFromList = true; ///< take the real estate from the case's property list

    bool operator==(const LIExtras&) const = default;
};
TAXCORE_RECORD(LIExtras, commute1, commute2, householdGoods, useRealEstateFromList);

/// Cases written before one of these fields existed must still read.
template <>
inline constexpr bool toleratesMissingKeys<LICommute> = true;
template <>
inline constexpr bool toleratesMissingKeys<LIExtras> = true;

} // namespace taxcore
