#pragma once

// Political parties by the names that households enter for them.

#include "TaxCore/rulebook/LIRules.h"
#include "TaxCore/rulebook/RuleBook.h"

#include <string_view>

namespace taxcore::review {

/// Whether a recipient is probably a party of the canton or of Switzerland: a known name, full or
/// short, as whole words in any letter case, "ü" also as "ue". Short or ambiguous names ("SP", "Die
/// Mitte", "Grüne") only at the beginning and with nothing after them but places and words such as
/// "Ortsgruppe".
bool namesParty(std::string_view recipient, const RuleBook& rules);
/// The same for the parties of Liechtenstein.
bool namesParty(std::string_view recipient, const LIRules& rules);

} // namespace taxcore::review
