#pragma once

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace taxcore {

/// Why a JSON text could not be read, with the place and one German sentence for the user.
struct JsonError {
    enum class Kind {
        truncated,    ///< the text ends too early
        syntax,       ///< not JSON
        encoding,     ///< not UTF-8
        tooDeep,      ///< nested deeper than `maxJsonDepth`
        tooLarge,     ///< longer than `maxJsonSize`
        missingKey,   ///< a required field is absent
        duplicateKey, ///< a field stands twice
        wrongType,    ///< for instance a text where an amount belongs
        unknownValue, ///< no such value of an enumeration
        invalidUuid,
        invalidDate,
        number, ///< a number that is not representable exactly
    };

    Kind kind = Kind::syntax;
    /// The field at fault, "income1.salaries[0].grossSalary"; empty for the text as a whole.
    std::string path;
    /// One complete German sentence that names the path.
    std::string message;
    /// The line of a damaged text, from 1; 0 when only the content does not fit.
    std::size_t line = 0;

    /// The message for a text that is one line by agreement: it does not name the line.
    std::string messageWithoutLine() const;
};

/// Longest accepted text in bytes; far above any household's file, below what would exhaust memory.
inline constexpr std::size_t maxJsonSize = std::size_t{256} << 20U;

/// Deepest accepted nesting of objects and lists.
inline constexpr int maxJsonDepth = 48;

/// What keys left out of a record mean.
enum class JsonGaps {
    refused, ///< every field that is not optional must stand (the form of stored files)
    filled,  ///< fields left out keep their new value (patches, hand-written cases)
};

enum class JsonStyle {
    pretty,  ///< two spaces of indentation, one key a line
    compact, ///< one line without blanks
};

/// Reads a record from a JSON text. Keys are the field names in any order, unknown keys are
/// ignored, numbers go from text to `Decimal` without binary floating point. Include
/// "TaxCore/base/JsonReader.h" to instantiate it for a new record type.
template <class T>
tl::expected<T, JsonError> fromJson(std::string_view text, JsonGaps gaps = JsonGaps::refused);

/// Reads like `fromJson`, but over an existing value: fields left out keep what they hold, lists
/// are replaced whole. A patch that does not read changes nothing.
template <class T>
tl::expected<void, JsonError> patchFromJson(T& target, std::string_view text);

/// Writes a record: keys sorted by bytes, absent optionals left out, amounts without exponent and
/// without trailing zeros. Include "TaxCore/base/JsonWriter.h" to instantiate it.
template <class T>
std::string toJson(const T& value, JsonStyle style = JsonStyle::pretty);

} // namespace taxcore
