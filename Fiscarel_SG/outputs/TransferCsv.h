#pragma once

#include "Fiscarel_SG/outputs/TransferList.h"

#include <string>

namespace fiscarel::outputs {

/// The list as a table for spreadsheets: UTF-8 without byte order mark, a semicolon between cells
/// as Swiss spreadsheets expect, lines ended and cells quoted by RFC 4180. Amounts are plain
/// digits. A text that a spreadsheet would run as a formula gets an apostrophe in front.
std::string transferCsv(const TransferList& list);

/// "offen", "übertragen", "geändert".
std::string_view tickText(Tick tick) noexcept;

} // namespace fiscarel::outputs
