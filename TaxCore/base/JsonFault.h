#pragma once

#include "TaxCore/base/Json.h"

#include <optional>
#include <string>
#include <string_view>

namespace taxcore {

/// Finds where a text stops being acceptable JSON: walks it once, in linear time and constant
/// depth, and tells kind, path and line; absent for a well-formed text. Called only after reading
/// failed, so that reading itself need not keep track of lines.
std::optional<JsonError> locateFault(std::string_view text);

/// Makes the error of a well-formed text whose content does not fit, with its German sentence.
/// `detail` is what the kind needs: the expected thing ("eine Zahl") for `wrongType`, the list of
/// allowed values for `unknownValue`, what is wrong with a `number`.
JsonError contentError(JsonError::Kind kind, std::string path, std::string_view detail = {});

} // namespace taxcore
