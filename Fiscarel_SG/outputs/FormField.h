#pragma once

// The forms as tables: which field of a record stands where, and how the form wants its value.

#include "Fiscarel_SG/outputs/TransferRow.h"
#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/MemberPointer.h"
#include "TaxCore/base/Record.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace fiscarel::outputs {

/// What stands in a field; `monostate`: nothing.
using FieldValue =
    std::variant<std::monostate, bool, int, taxcore::Decimal, std::string, taxcore::Date>;

/// Whether there is nothing to write: nothing, 0, no, a blank text.
bool isEmpty(const FieldValue& value);
/// A value as the form wants it; empty for an empty one.
std::string shownValue(const FieldValue& value, ValueKind kind);

/// A field of a form that belongs to a record.
template <class R>
struct FormField {
    std::string_view label;
    std::string_view ziffer; ///< empty: that of the part
    ValueKind kind = ValueKind::text;
    std::vector<std::string_view> names; ///< of the record's fields that it shows
    FieldValue (*read)(const R&) = nullptr;
};

namespace detail {

template <class T>
FieldValue valueOf(const T& field) {
    if constexpr (taxcore::isOptional<T>) {
        return field ? valueOf(*field) : FieldValue{};
    } else if constexpr (taxcore::TabledEnum<T>) {
        return std::string(taxcore::label(field));
    } else {
        return field;
    }
}

template <class T>
constexpr ValueKind kindOf() {
    if constexpr (taxcore::isOptional<T>) {
        return kindOf<typename T::value_type>();
    } else if constexpr (std::is_same_v<T, taxcore::Decimal>) {
        return ValueKind::francs;
    } else if constexpr (std::is_same_v<T, bool>) {
        return ValueKind::yesNo;
    } else if constexpr (std::is_same_v<T, int>) {
        return ValueKind::number;
    } else if constexpr (std::is_same_v<T, taxcore::Date>) {
        return ValueKind::date;
    } else {
        return ValueKind::text;
    }
}

} // namespace detail

/// A field as entered: amounts in whole francs, choices by their label.
template <auto member>
auto entry(std::string_view label, std::string_view ziffer = {}) {
    using Member = taxcore::MemberOf<decltype(member)>;
    return FormField<typename Member::Record>{
        label,
        ziffer,
        detail::kindOf<typename Member::Type>(),
        {taxcore::nameOf(member)},
        [](const typename Member::Record& record) { return detail::valueOf(record.*member); }};
}

/// The same in another notation.
template <auto member>
auto entryAs(ValueKind kind, std::string_view label, std::string_view ziffer = {}) {
    auto field = entry<member>(label, ziffer);
    field.kind = kind;
    return field;
}

/// A field made of several, or one that stands on the form only under a condition.
template <class R>
FormField<R> made(ValueKind kind, std::string_view label, std::string_view ziffer,
                  std::vector<std::string_view> names, FieldValue (*read)(const R&)) {
    return {label, ziffer, kind, std::move(names), read};
}

} // namespace fiscarel::outputs
