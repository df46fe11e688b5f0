#pragma once

#include "Fiscarel_SG/forms/InputText.h"

#include <string>
#include <string_view>

namespace fiscarel::forms {

/// A typed text in the few characters that the readers know: blanks of all kinds become ' ',
/// apostrophes ', dashes -, signs of multiplication and division * and /. Others stay.
std::string plainTyping(std::string_view text);

/// A number at the start of a text.
struct TypedNumber {
    Decimal value;
    std::size_t length = 0; ///< bytes read
};

/// Why no number stands at the start of a text.
enum class NumberFault {
    none,     ///< no digit there
    form,     ///< digits, but not a number
    grouping, ///< thousands not in groups of three
    decimals, ///< too many decimals
    tooLarge, ///< more than twelve digits before the point
};

/// Reads the digits at the start of a text of `plainTyping`. ".-" in place of decimals belongs to
/// them.
tl::expected<TypedNumber, NumberFault> readNumber(std::string_view text, std::size_t maxDecimals);

/// A text as sentences quote it: without blanks around it and not longer than a few words.
std::string quoted(std::string_view text);

} // namespace fiscarel::forms
