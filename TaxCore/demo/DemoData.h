#pragma once

#include "TaxCore/model/TaxCase.h"

/// Invented households to look around with: believable amounts, most lines of the return in use,
/// no real person behind it.
namespace taxcore::DemoData {

/// A couple in Sevelen with two children, two jobs and a home of their own. The same case, ids
/// included, for the same year; stages of education and years follow the tax year.
TaxCase family(int year);

/// A couple in Triesen with two children, a job in the country and one abroad.
TaxCase liechtensteinFamily(int year);

/// The demo household of a region.
inline TaxCase household(TaxRegion region, int year) {
    return region == TaxRegion::liechtenstein ? liechtensteinFamily(year) : family(year);
}

} // namespace taxcore::DemoData
