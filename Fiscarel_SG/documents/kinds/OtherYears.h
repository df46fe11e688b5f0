#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <optional>

namespace fiscarel {

/// A document without the rows that state for another year what it states for its own: "Beiträge
/// 2023" beside "Beiträge 2024", or the years of a list below each other. A row tells its year by
/// its number or the year's last day; other days tell when something happened, which may be billed
/// in another year. Rows whose amounts a printed total adds to those of the year stay.
DocumentRows withoutOtherYears(const DocumentRows& document, std::optional<int> year);

} // namespace fiscarel
