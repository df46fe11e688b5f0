#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// Church multipliers of a parish, percent of the simple tax.
struct Parish {
    std::string name;
    Decimal kath;  ///< Roman Catholic
    Decimal evang; ///< Protestant Reformed

    bool operator==(const Parish&) const = default;
};
TAXCORE_RECORD(Parish, name, kath, evang);

/// A municipality with its multiplier.
struct Municipality {
    std::string name;
    /// Property tax, per mille of the tax value; absent where none is levied.
    std::optional<Decimal> grundsteuerPromille;
    Decimal steuerfuss; ///< percent of the simple tax
    std::vector<Parish> parishes;

    /// The first parish of exactly this name; null when there is none.
    const Parish* parish(std::string_view wanted) const noexcept;

    bool operator==(const Municipality&) const = default;
};
TAXCORE_RECORD(Municipality, name, grundsteuerPromille, steuerfuss, parishes);

/// The canton's municipalities of one year.
struct MunicipalityList {
    int year = 0;
    Decimal kantonSteuerfuss;                ///< percent of the simple tax
    Decimal christkatholisch;                ///< percent, the same in every municipality
    Decimal vermoegenEinfacheSteuerPromille; ///< simple wealth tax, per mille
    std::vector<Municipality> municipalities;
    /// Whether the multipliers are still provisional; absent: they are not.
    std::optional<bool> vorlaeufig;

    /// The first municipality of this name, ignoring letter case (umlauts and accents included),
    /// but not blanks; null when there is none.
    const Municipality* municipality(std::string_view named) const noexcept;

    bool operator==(const MunicipalityList&) const = default;
};
TAXCORE_RECORD(MunicipalityList, year, kantonSteuerfuss, christkatholisch,
               vermoegenEinfacheSteuerPromille, municipalities, vorlaeufig);

} // namespace taxcore
