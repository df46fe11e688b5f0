#pragma once

#include <string_view>

namespace taxcore::review {

/// Whether an amount below zero is meaningful at a path ("income1.salaries[0].grossSalary"), as a
/// loss is. Also true for paths that are no amount of the case. The checks tell of the others.
bool mayBeNegative(std::string_view path);

} // namespace taxcore::review
