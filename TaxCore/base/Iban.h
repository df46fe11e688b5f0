#pragma once

#include <string>
#include <string_view>

namespace taxcore {

/// An account number as it is compared: without blanks, in capitals.
std::string compactIban(std::string_view text);

/// Whether a text has the shape of an IBAN: country, two check digits and at least eleven more
/// characters. A security number (ISIN) is shorter and none. Blanks do not matter.
bool looksLikeIban(std::string_view text);

/// Whether a text is an IBAN: its shape, the check digits and, for Switzerland and Liechtenstein,
/// the length of 21. Blanks and letter case do not matter. ISO 13616
bool isValidIban(std::string_view text);

} // namespace taxcore
