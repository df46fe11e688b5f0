#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace taxcore {

/// One row of an enumeration's table: the enumerator, the text stored in files, and the German
/// label shown to the user.
template <class E>
struct EnumRow {
    E value;
    std::string_view raw;
    std::string_view label;
};

template <class E>
EnumRow(E, std::string_view, std::string_view) -> EnumRow<E>;

/// The one description of an enumeration. Specialise it with a `static constexpr std::array rows`
/// of `EnumRow<E>`, in the order of the enumerators (which count from 0 without gaps); raw texts,
/// labels, JSON and pickers all come from it. `TAXCORE_ENUM_TABLE_CHECK` proves it complete.
template <class E>
struct EnumTable;

template <class E>
concept TabledEnum = std::is_enum_v<E> && requires {
    EnumTable<E>::rows.size();
};

namespace detail {

/// Whether `Value` is a named enumerator: the compiler prints a cast for values without a name.
template <class E, E Value>
consteval bool isEnumerator() {
    constexpr std::string_view signature = __PRETTY_FUNCTION__;
    constexpr std::size_t at = signature.rfind("Value = ") + sizeof("Value = ") - 1;
    return signature[at] != '(';
}

template <TabledEnum E>
consteval bool tableIsComplete() {
    constexpr auto& rows = EnumTable<E>::rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (static_cast<std::size_t>(rows[i].value) != i) {
            return false;
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (rows[j].raw == rows[i].raw) {
                return false;
            }
        }
    }
    return !isEnumerator<E, static_cast<E>(rows.size())>();
}

} // namespace detail

/// Proves at compile time that the table names every enumerator once, in order, and that no two
/// share a raw text.
#define TAXCORE_ENUM_TABLE_CHECK(Enum)                                                             \
    static_assert(::taxcore::detail::tableIsComplete<Enum>(), "incomplete table of " #Enum)

/// The text stored in files; also the identity of the value.
template <TabledEnum E>
constexpr std::string_view rawValue(E value) {
    return EnumTable<E>::rows[static_cast<std::size_t>(value)].raw;
}

/// The German text shown to the user.
template <TabledEnum E>
constexpr std::string_view label(E value) {
    return EnumTable<E>::rows[static_cast<std::size_t>(value)].label;
}

/// The value stored under a raw text (compared exactly); absent when no enumerator has it.
template <TabledEnum E>
constexpr std::optional<E> enumFromRaw(std::string_view raw) {
    for (const auto& row : EnumTable<E>::rows) {
        if (row.raw == raw) {
            return row.value;
        }
    }
    return std::nullopt;
}

/// All values in declaration order.
template <TabledEnum E>
constexpr auto allValues() {
    std::array<E, EnumTable<E>::rows.size()> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = EnumTable<E>::rows[i].value;
    }
    return values;
}

} // namespace taxcore
