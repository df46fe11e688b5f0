#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace taxcore {

/// Describes a record once: JSON form, hash, field paths and differences follow from this line.
/// A record is a plain aggregate with field initializers (the values of a new record) and a
/// defaulted `==`. The structured binding fails to compile when a field was forgotten.
#define TAXCORE_RECORD(Type, ...)                                                                  \
    BOOST_DESCRIBE_STRUCT(Type, (), (__VA_ARGS__))                                                 \
    [[maybe_unused]] inline void everyFieldIsDescribed(const Type& record) {                       \
        [[maybe_unused]] const auto& [__VA_ARGS__] = record;                                       \
    }                                                                                              \
    static_assert(true)

template <class T>
concept Record = std::is_class_v<T> && boost::describe::has_describe_members<T>::value;

/// The descriptors (`name`, `pointer`) of a record's fields in declaration order.
template <Record T>
using Fields = boost::describe::describe_members<T, boost::describe::mod_public>;

template <Record T>
inline constexpr std::size_t fieldCount = boost::mp11::mp_size<Fields<T>>::value;

template <Record T, std::size_t I>
using Field = boost::mp11::mp_at_c<Fields<T>, I>;

/// The names of a record's fields in declaration order.
template <Record T>
inline constexpr auto fieldNames = []<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<std::string_view, sizeof...(I)>{std::string_view(Field<T, I>::name)...};
}
(std::make_index_sequence<fieldCount<T>>{});

/// Calls `visit(name, field)` for every field in declaration order.
template <class T, class Visit>
requires Record<std::remove_const_t<T>>
constexpr void forEachField(T& record, Visit&& visit) {
    boost::mp11::mp_for_each<Fields<std::remove_const_t<T>>>(
        [&](auto field) { visit(std::string_view(field.name), record.*field.pointer); });
}

/// A value computed from a record that its JSON form shows beside the fields.
template <class T, class Value>
struct DerivedField {
    std::string_view name;
    Value (T::*compute)() const;
};

/// Specialise it with a `static constexpr std::tuple fields` of `DerivedField`s.
template <class T>
struct DerivedFields {
    static constexpr std::tuple<> fields{};
};

/// Whether a record reads with keys left out (each then takes its new value).
template <class T>
inline constexpr bool toleratesMissingKeys = false;

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;

template <class T>
inline constexpr bool isList = false;
template <class T>
inline constexpr bool isList<std::vector<T>> = true;

/// A record of a list that carries its own identity.
template <class T>
concept Identified = Record<T> && requires(const T& item) {
    item.id == item.id;
};

constexpr std::size_t combineHash(std::size_t seed, std::size_t value) noexcept {
    return seed ^ (value + 0x9e3779b97f4a7c15ULL + (seed << 6U) + (seed >> 2U));
}

/// Hash of any field value; equal values hash equal.
template <class T>
std::size_t hashOf(const T& value) {
    if constexpr (Record<T>) {
        std::size_t seed = 0;
        forEachField(value, [&](std::string_view, const auto& field) {
            seed = combineHash(seed, hashOf(field));
        });
        return seed;
    } else if constexpr (isOptional<T>) {
        return value ? combineHash(1, hashOf(*value)) : 0;
    } else if constexpr (isList<T>) {
        std::size_t seed = value.size();
        for (const auto& item : value) {
            seed = combineHash(seed, hashOf(item));
        }
        return seed;
    } else {
        return std::hash<T>{}(value);
    }
}

} // namespace taxcore

template <taxcore::Record T>
struct std::hash<T> {
    std::size_t operator()(const T& record) const { return taxcore::hashOf(record); }
};
