#pragma once

// Field paths over described records: differences between two values and the value at a path.
// Templates; include it only where a record type is instantiated.

#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/Record.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore::detail {

inline std::string joinPath(const std::string& path, std::string_view field) {
    return path.empty() ? std::string(field) : path + "." + std::string(field);
}

inline std::string itemPath(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

/// Reports `emit(path, before, after)` for every leaf that differs.
template <class T, class Emit>
void diffValue(const std::string& path, const T& before, const T& after, const Emit& emit);

/// Where the item stands that `list[index]` of another list is compared with: the one of the same
/// identity, the n-th with the n-th should an identity stand several times. The list's size when
/// there is none.
template <Identified T>
std::size_t counterpart(const std::vector<T>& list, const std::vector<T>& other,
                        std::size_t index) {
    const auto same = [&](const T& item) { return item.id == other[index].id; };
    auto earlier =
        std::count_if(other.begin(), other.begin() + static_cast<std::ptrdiff_t>(index), same);
    std::size_t at = 0;
    while (at < list.size() && (!same(list[at]) || earlier-- > 0)) {
        ++at;
    }
    return at;
}

template <Identified T, class Emit>
void diffItems(const std::string& path, const std::vector<T>& before, const std::vector<T>& after,
               const Emit& emit) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (counterpart(after, before, i) == after.size()) {
            emit(itemPath(path, i), toJson(before[i], JsonStyle::compact), std::nullopt);
        }
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
        const std::size_t old = counterpart(before, after, i);
        if (old == before.size()) {
            emit(itemPath(path, i), std::nullopt, toJson(after[i], JsonStyle::compact));
        } else {
            diffValue(itemPath(path, i), before[old], after[i], emit);
        }
    }
}

template <class T, class Emit>
void diffValue(const std::string& path, const T& before, const T& after, const Emit& emit) {
    if (before == after) {
        return;
    }
    if constexpr (Record<T>) {
        boost::mp11::mp_for_each<Fields<T>>([&](auto field) {
            diffValue(joinPath(path, field.name), before.*field.pointer, after.*field.pointer,
                      emit);
        });
    } else if constexpr (isOptional<T>) {
        if (before && after) {
            diffValue(path, *before, *after, emit);
        } else {
            const auto text = [](const T& value) {
                return value ? std::optional(toJson(*value, JsonStyle::compact)) : std::nullopt;
            };
            emit(path, text(before), text(after));
        }
    } else if constexpr (isList<T>) {
        diffItems(path, before, after, emit);
    } else {
        emit(path, toJson(before, JsonStyle::compact), toJson(after, JsonStyle::compact));
    }
}

/// The JSON text of the value that the rest of a path leads to. `nested`: a point stands before the
/// next field.
template <class T>
std::optional<std::string> valueAtPath(const T& value, std::string_view path, bool nested = false) {
    if (path.empty()) {
        return toJson(value, JsonStyle::compact);
    }
    if constexpr (isOptional<T>) {
        return value ? valueAtPath(*value, path, nested) : std::nullopt;
    } else if constexpr (isList<T>) {
        const std::size_t close = path.find(']');
        if (path.front() != '[' || close == std::string_view::npos) {
            return std::nullopt;
        }
        std::size_t index = value.size();
        const auto [end, status] = std::from_chars(path.data() + 1, path.data() + close, index);
        if (status != std::errc{} || end != path.data() + close || index >= value.size()) {
            return std::nullopt;
        }
        return valueAtPath(value[index], path.substr(close + 1), true);
    } else if constexpr (Record<T>) {
        if (nested) {
            if (path.front() != '.') {
                return std::nullopt;
            }
            path.remove_prefix(1);
        }
        const std::string_view name = path.substr(0, path.find_first_of(".["));
        std::optional<std::string> found;
        forEachField(value, [&](std::string_view field, const auto& member) {
            if (field == name) {
                found = valueAtPath(member, path.substr(name.size()), true);
            }
        });
        return found;
    } else {
        return std::nullopt;
    }
}

} // namespace taxcore::detail
