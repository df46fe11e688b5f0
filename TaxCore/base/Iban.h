#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace taxcore {

/// What is wrong with an IBAN.
enum class IbanFault {
    form,        ///< not two letters, two digits and then letters and digits
    length,      ///< not as long as accounts of that country are
    checkDigits, ///< the check digits do not fit: most likely a typing mistake
};

/// Looks at an account number as typed: blanks and letter case do not matter. Switzerland and
/// Liechtenstein have 21 characters with a bank number of five digits; for other countries only the
/// general limits are known here. Absent when nothing is wrong. ISO 13616, check digits ISO 7064
/// (mod 97-10)
std::optional<IbanFault> ibanFault(std::string_view text);

/// Whether a text can be meant as an IBAN: country, two check digits and at least eleven more
/// characters. A security number (ISIN) is shorter and none.
bool looksLikeIban(std::string_view text);

/// An account number as it is compared: without blanks, in capitals.
std::string compactIban(std::string_view text);

} // namespace taxcore
