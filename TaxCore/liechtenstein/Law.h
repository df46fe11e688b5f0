#pragma once

#include "TaxCore/result/Derivation.h"

/// The legal basis of every rule of the Liechtenstein calculation, by its name: Steuergesetz (SteG,
/// LGBl. 2010 Nr. 340) and Steuerverordnung (SteV, LGBl. 2010 Nr. 437). There is one tax authority;
/// the federal side stays empty. Only articles that are certain are named.
namespace taxcore::li::law {

inline constexpr Law wealth{"SteG Art. 12", ""};
inline constexpr Law householdGoods{"SteG Art. 10", ""};
inline constexpr Law notionalYield{"SteG Art. 5", ""};
inline constexpr Law earnings{"SteG Art. 14", ""};

inline constexpr Law workCosts{"SteG Art. 16; SteV Art. 12", ""};
inline constexpr Law commute{"SteG Art. 16; SteV Art. 14", ""};
inline constexpr Law insurance{"SteG Art. 16; SteV Art. 16", ""};
inline constexpr Law deductions{"SteG Art. 16", ""};
inline constexpr Law pensionAllowance{"SteG Art. 15 und 16", ""};

inline constexpr Law tariff{"SteG Art. 19", ""};
inline constexpr Law surcharge{"SteG Art. 75", ""};

} // namespace taxcore::li::law
