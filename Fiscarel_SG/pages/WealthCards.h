#pragma once

// The larger cards of the wealth page.

#include "Fiscarel_SG/forms/Page.h"

namespace fiscarel::pages {

/// The register of securities and accounts.
forms::ListCard securitiesCard(const forms::PageContext& context);
/// What managing the securities costs; without effect in Liechtenstein.
forms::FieldsCard assetManagementCard(const forms::PageContext& context);

/// Properties, with the fields that matter for their use.
forms::ListCard realEstateCard(const forms::PageContext& context);

} // namespace fiscarel::pages
