#pragma once

// Carrying a change of a described record over to another value of it. Templates; include it only
// where a record type is instantiated.

#include "TaxCore/base/Record.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace taxcore::detail {

template <class T>
bool rebaseValue(const T& from, const T& to, T& target);

template <Identified T>
auto itemLike(std::vector<T>& list, const T& item) {
    return std::ranges::find(list, item.id, &T::id);
}
template <Identified T>
auto itemLike(const std::vector<T>& list, const T& item) {
    return std::ranges::find(list, item.id, &T::id);
}

/// Gives `target` the order of `to` when both hold the same items; otherwise its own order stays.
template <Identified T>
void takeOrder(const std::vector<T>& to, std::vector<T>& target) {
    std::vector<T> ordered;
    for (const T& item : to) {
        if (const auto found = itemLike(target, item); found != target.end()) {
            ordered.push_back(*found);
        }
    }
    if (ordered.size() == target.size()) {
        target = std::move(ordered);
    }
}

/// Items are matched by their identity: what went goes, what changed changes, what came comes
/// behind the item it stands behind in `to`.
template <Identified T>
bool rebaseItems(const std::vector<T>& from, const std::vector<T>& to, std::vector<T>& target) {
    for (const T& item : from) {
        const auto found = itemLike(target, item);
        const auto kept = itemLike(to, item);
        if (found == target.end() || (kept == to.end() && *found != item)
            || (kept != to.end() && !rebaseValue(item, *kept, *found))) {
            return false;
        }
        if (kept == to.end()) {
            target.erase(found);
        }
    }
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (itemLike(from, to[i]) != from.end()) {
            continue;
        }
        if (itemLike(target, to[i]) != target.end()) {
            return false;
        }
        const auto before = i == 0 ? target.end() : itemLike(target, to[i - 1]);
        target.insert(i == 0                   ? target.begin()
                      : before == target.end() ? before
                                               : before + 1,
                      to[i]);
    }
    takeOrder(to, target);
    return true;
}

/// Makes the change that leads from `from` to `to` in `target` as well. False when something it
/// concerns does not hold what it held in `from`; the target is then of no use.
template <class T>
bool rebaseValue(const T& from, const T& to, T& target) {
    if (from == to) {
        return true;
    }
    if (target == from) {
        target = to;
        return true;
    }
    if constexpr (Record<T>) {
        bool ok = true;
        boost::mp11::mp_for_each<Fields<T>>([&](auto field) {
            ok = ok && rebaseValue(from.*field.pointer, to.*field.pointer, target.*field.pointer);
        });
        return ok;
    } else if constexpr (isOptional<T>) {
        return from && to && target && rebaseValue(*from, *to, *target);
    } else if constexpr (isList<T>) {
        return rebaseItems(from, to, target);
    } else {
        return false;
    }
}

} // namespace taxcore::detail
