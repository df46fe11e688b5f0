#pragma once

#include "TaxCore/model/TaxCase.h"

/// An invented household to look around with: believable amounts, most lines of the return in use,
/// no real person behind it.
namespace taxcore::DemoData {

/// A couple in Sevelen with two children, two jobs and a home of their own. The same case, ids
/// included, for the same year; stages of education and years follow the tax year.
TaxCase family(int year);

} // namespace taxcore::DemoData
