#pragma once

// The templates behind `toJson`; include it only where a record type is instantiated.

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/Moment.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace taxcore {

/// Appends JSON to a text.
class JsonWriter {
  public:
    JsonWriter(std::string& out, JsonStyle style) noexcept : out_(out), style_(style) {}

    template <Record T>
    void write(const T& record);
    template <class T>
    void write(const std::vector<T>& list);
    template <class T>
    void write(const std::map<int, T>& map);
    void write(const std::set<std::string>& texts);
    template <class T>
    void write(const std::optional<T>& value);
    template <TabledEnum E>
    void write(E value) {
        write(rawValue(value));
    }
    void write(const Decimal& value);
    void write(int value);
    void write(std::int64_t value);
    void write(bool value);
    void write(std::string_view text);
    void write(const std::string& text) { write(std::string_view(text)); }
    void write(const Date& date) { write(std::string_view(date.toString())); }
    void write(const Moment& moment) { write(std::string_view(moment.toString())); }
    void write(const Uuid& id) { write(std::string_view(id.toString())); }

    void open(char bracket);
    void close(char bracket);
    /// Before each item of a list.
    void item();
    /// Before each value of an object.
    void key(std::string_view name);

  private:
    template <Record T, std::size_t I>
    void writeEntry(const T& record);
    template <class PlainLength>
    void writeEscaped(std::string_view text, const PlainLength& plainLength);
    void writeEscape(char c);
    void lineBreak();

    std::string& out_;
    JsonStyle style_;
    std::size_t depth_ = 0;
    bool first_ = true;
};

namespace detail {

template <Record T>
inline constexpr std::size_t derivedCount = std::tuple_size_v<decltype(DerivedFields<T>::fields)>;

/// The name of a record's entry `i`: its fields, then its derived values.
template <Record T>
inline constexpr auto entryNames = [] {
    std::array<std::string_view, fieldCount<T> + derivedCount<T>> names{};
    for (std::size_t i = 0; i < fieldCount<T>; ++i) {
        names[i] = fieldNames<T>[i];
    }
    std::apply(
        [&](const auto&... derived) {
            std::size_t i = fieldCount<T>;
            ((names[i++] = derived.name), ...);
        },
        DerivedFields<T>::fields);
    return names;
}();

/// The entries' positions in the order their keys are written, sorted by bytes.
template <Record T>
inline constexpr auto entriesByName = [] {
    constexpr auto& names = entryNames<T>;
    std::array<std::size_t, names.size()> order{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
        for (std::size_t j = i; j > 0 && names[order[j]] < names[order[j - 1]]; --j) {
            std::swap(order[j], order[j - 1]);
        }
    }
    return order;
}();

} // namespace detail

template <Record T>
void JsonWriter::write(const T& record) {
    open('{');
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (writeEntry<T, detail::entriesByName<T>[I]>(record), ...);
    }
    (std::make_index_sequence<detail::entriesByName<T>.size()>{});
    close('}');
}

template <Record T, std::size_t I>
void JsonWriter::writeEntry(const T& record) {
    constexpr std::string_view name = detail::entryNames<T>[I];
    if constexpr (I >= fieldCount<T>) {
        key(name);
        write((record.*std::get<I - fieldCount<T>>(DerivedFields<T>::fields).compute)());
    } else {
        const auto& field = record.*Field<T, I>::pointer;
        if constexpr (isOptional<std::remove_cvref_t<decltype(field)>>) {
            if (field) {
                key(name);
                write(*field);
            }
        } else {
            key(name);
            write(field);
        }
    }
}

template <class T>
void JsonWriter::write(const std::vector<T>& list) {
    open('[');
    for (const T& entry : list) {
        item();
        write(entry);
    }
    close(']');
}

/// Sorted by the key's text, as every object of ours.
template <class T>
void JsonWriter::write(const std::map<int, T>& map) {
    std::map<std::string, const T*> byText;
    for (const auto& [number, value] : map) {
        byText.emplace(std::to_string(number), &value);
    }
    open('{');
    for (const auto& [name, value] : byText) {
        key(name);
        write(*value);
    }
    close('}');
}

template <class T>
void JsonWriter::write(const std::optional<T>& value) {
    if (value) {
        write(*value);
    } else {
        out_ += "null";
    }
}

template <class T>
std::string toJson(const T& value, JsonStyle style) {
    std::string text;
    JsonWriter(text, style).write(value);
    if (style == JsonStyle::pretty) {
        text += '\n';
    }
    return text;
}

} // namespace taxcore
