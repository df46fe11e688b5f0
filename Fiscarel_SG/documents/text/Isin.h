#pragma once

#include <string_view>

namespace fiscarel {

/// Whether a word has the form of a security's number: two letters of the country, nine letters or
/// digits and a check digit (ISO 6166). The check digit is not computed.
bool isIsin(std::string_view word);

} // namespace fiscarel
