#pragma once

// Field paths over described records: differences between two values, reading and writing at a
// path. Templates; include it only where a record type is instantiated.

#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

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

/// Which item of a list a path means by "2" or by the item's identity; the list's size for none.
template <class T>
std::size_t indexOf(const std::vector<T>& list, std::string_view token) {
    std::size_t index = list.size();
    const auto [end, status] = std::from_chars(token.begin(), token.end(), index);
    if (status == std::errc{} && end == token.end()) {
        return std::min(index, list.size());
    }
    if constexpr (Identified<T>) {
        const auto id = Uuid::parse(token);
        const auto found = id ? std::ranges::find(list, *id, &T::id) : list.end();
        return static_cast<std::size_t>(found - list.begin());
    }
    return list.size();
}

/// Follows a path through records, lists and optional values that are there: `item(token, index,
/// record)` for every item of a list on the way, then `use(value)` with what it leads to. Whether
/// it leads anywhere. `nested`: a point stands before the next field.
template <class T, class Item, class Use>
bool walkPath(T& value, std::string_view path, const Item& item, const Use& use,
              bool nested = false) {
    using Bare = std::remove_const_t<T>;
    if constexpr (isOptional<Bare>) {
        if (!path.empty()) {
            return value && walkPath(*value, path, item, use, nested);
        }
    }
    if (path.empty()) {
        use(value);
        return true;
    }
    if constexpr (isList<Bare>) {
        const std::size_t close = path.find(']');
        if (path.front() != '[' || close == std::string_view::npos) {
            return false;
        }
        const std::string_view token = path.substr(1, close - 1);
        const std::size_t index = indexOf(value, token);
        if (index >= value.size()) {
            return false;
        }
        item(token, index, value[index]);
        return walkPath(value[index], path.substr(close + 1), item, use, true);
    } else if constexpr (Record<Bare>) {
        if (nested) {
            if (path.front() != '.') {
                return false;
            }
            path.remove_prefix(1);
        }
        const std::string_view name = path.substr(0, path.find_first_of(".["));
        bool found = false;
        forEachField(value, [&](std::string_view field, auto& member) {
            if (field == name) {
                found = walkPath(member, path.substr(name.size()), item, use, true);
            }
        });
        return found;
    } else {
        return false;
    }
}

inline constexpr auto passItem = [](std::string_view, std::size_t, const auto&) {};

/// The JSON text of the value that a path leads to.
template <class T>
std::optional<std::string> valueAtPath(const T& value, std::string_view path) {
    std::optional<std::string> found;
    walkPath(value, path, passItem,
             [&](const auto& leaf) { found = toJson(leaf, JsonStyle::compact); });
    return found;
}

/// The path with every item of a list named as `name(token, index, record)` says; absent when it
/// leads nowhere.
template <class T, class Name>
std::optional<std::string> renamedPath(const T& value, std::string_view path, const Name& name) {
    std::string renamed;
    const char* rest = path.data();
    const auto item = [&](std::string_view token, std::size_t index, const auto& record) {
        renamed.append(rest, token.begin());
        renamed += name(token, index, record);
        rest = token.end();
    };
    if (!walkPath(value, path, item, [](const auto&) {})) {
        return std::nullopt;
    }
    return renamed.append(rest, path.end());
}

/// Writes a value from its text: numbers with a point, dates as in files, enumerations by their raw
/// text, texts as they are. False, with nothing changed, when the text is none of the type's.
template <class T>
bool assignText(T& value, std::string_view text) {
    const auto take = [&](auto parsed) {
        if (parsed) {
            value = *std::move(parsed);
        }
        return static_cast<bool>(parsed);
    };
    if constexpr (isOptional<T>) {
        typename T::value_type inner{};
        return assignText(inner, text) && take(std::optional(std::move(inner)));
    } else if constexpr (std::is_same_v<T, std::string>) {
        value = text;
        return true;
    } else if constexpr (std::is_same_v<T, bool>) {
        return (text == "true" || text == "false") && take(std::optional(text == "true"));
    } else if constexpr (std::is_same_v<T, int>) {
        int number = 0;
        const auto [end, status] = std::from_chars(text.begin(), text.end(), number);
        return status == std::errc{} && end == text.end() && take(std::optional(number));
    } else if constexpr (TabledEnum<T>) {
        return take(enumFromRaw<T>(text));
    } else if constexpr (requires { T::parse(text); }) {
        return take(T::parse(text));
    } else {
        return false;
    }
}

} // namespace taxcore::detail
