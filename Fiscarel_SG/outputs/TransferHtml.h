#pragma once

#include "Fiscarel_SG/outputs/TransferList.h"

#include <string>
#include <string_view>

namespace fiscarel::outputs {

/// The list for printing: simple HTML, a table for each form and page, a box to tick by hand before
/// each row. `title` stands on top; all texts are escaped.
std::string transferHtml(const TransferList& list, std::string_view title);

} // namespace fiscarel::outputs
