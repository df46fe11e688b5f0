#pragma once

// Carrying a change of a described record over to another value of it, and bringing two changes
// together. Templates; include it only where a record type is instantiated.

#include "TaxCore/base/Record.h"
#include "TaxCore/base/RecordPath.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
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

template <class T>
inline constexpr bool isMap = false;
template <class T>
inline constexpr bool isMap<std::map<int, T>> = true;

template <class T>
inline constexpr bool isSet = false;
template <class T>
inline constexpr bool isSet<std::set<T>> = true;

/// What an item of a list is known by: its identity, or all of it.
template <class T>
const auto& identityOf(const T& item) {
    if constexpr (Identified<T>) {
        return item.id;
    } else {
        return item;
    }
}

/// A list's items by what they are known by; the n-th by that and n, should it stand several times.
template <class T>
class KeyedItems {
  public:
    using Identity = std::remove_cvref_t<decltype(identityOf(std::declval<const T&>()))>;
    using Key = std::pair<Identity, std::size_t>;

    explicit KeyedItems(const std::vector<T>& list) : list_(list) {
        std::unordered_map<Identity, std::size_t> counts;
        for (const T& item : list) {
            keys_.emplace_back(identityOf(item), counts[identityOf(item)]++);
            positions_.emplace(keys_.back(), keys_.size() - 1);
        }
    }

    const std::vector<Key>& keys() const noexcept { return keys_; }
    /// The list's size when there is none.
    std::size_t position(const Key& key) const {
        const auto found = positions_.find(key);
        return found == positions_.end() ? keys_.size() : found->second;
    }
    bool contains(const Key& key) const { return positions_.contains(key); }
    const T* find(const Key& key) const {
        const auto found = positions_.find(key);
        return found == positions_.end() ? nullptr : &list_[found->second];
    }

  private:
    struct Hash {
        std::size_t operator()(const Key& key) const {
            return combineHash(key.second, std::hash<Identity>{}(key.first));
        }
    };

    const std::vector<T>& list_;
    std::vector<Key> keys_;
    std::unordered_map<Key, std::size_t, Hash> positions_;
};

/// Whether what all three lists hold stands in another order on a side than in the common list.
template <class T>
bool isMoved(const KeyedItems<T>& base, const KeyedItems<T>& side, const KeyedItems<T>& other) {
    std::size_t next = 0;
    for (const auto& key : side.keys()) {
        if (const std::size_t at = base.position(key);
            at < base.keys().size() && other.contains(key)) {
            if (at < next) {
                return true;
            }
            next = at;
        }
    }
    return false;
}

template <class T, class Report>
T mergedValue(const T& base, const T& ours, const T& theirs, const std::string& path,
              const Report& report);

/// What becomes of something that each side may have or not (null). What one side removed and the
/// other changed stays as changed, and is reported; what both added is merged as if they had begun
/// with a new one.
template <class T, class Report>
std::optional<T> mergedItem(const T* base, const T* ours, const T* theirs, const std::string& path,
                            const Report& report) {
    if (ours && theirs) {
        return mergedValue(base ? *base : T{}, *ours, *theirs, path, report);
    }
    const T* kept = ours ? ours : theirs;
    if (!kept || (base && *base == *kept)) {
        return std::nullopt;
    }
    if (base) {
        report(path, ours, theirs);
    }
    return *kept;
}

template <class Key>
std::string keyedPath(const std::string& path, const Key& key) {
    if constexpr (requires { key.first.toString(); }) {
        return path + "[" + key.first.toString() + "]";
    } else {
        return path;
    }
}

/// Items are matched by their identity, those without by being equal, so that there is no conflict
/// within one. The order is ours, or theirs if they alone moved something; what the other list adds
/// stands behind its predecessor there.
template <class T, class Report>
std::vector<T> mergedList(const std::vector<T>& base, const std::vector<T>& ours,
                          const std::vector<T>& theirs, const std::string& path,
                          const Report& report) {
    const KeyedItems<T> was(base);
    const KeyedItems<T> here(ours);
    const KeyedItems<T> there(theirs);
    const bool takesTheirOrder = isMoved(was, there, here) && !isMoved(was, here, there);
    const KeyedItems<T>& first = takesTheirOrder ? there : here;
    const KeyedItems<T>& second = takesTheirOrder ? here : there;
    const auto item = [&](const auto& key) {
        return mergedItem(was.find(key), here.find(key), there.find(key), keyedPath(path, key),
                          report);
    };
    std::vector<std::optional<T>> own;
    own.reserve(first.keys().size());
    for (const auto& key : first.keys()) {
        own.push_back(item(key));
    }
    std::vector<std::vector<T>> added(own.size() + 1); // behind how many of the own
    std::size_t behind = 0;
    for (const auto& key : second.keys()) {
        if (const std::size_t at = first.position(key); at < own.size()) {
            behind = own[at] ? at + 1 : behind;
        } else if (auto kept = item(key)) {
            added[behind].push_back(*std::move(kept));
        }
    }
    std::vector<T> merged;
    for (std::size_t i = 0; i <= own.size(); ++i) {
        if (i > 0 && own[i - 1]) {
            merged.push_back(*std::move(own[i - 1]));
        }
        std::ranges::move(added[i], std::back_inserter(merged));
    }
    return merged;
}

template <class T>
std::set<T> mergedSet(const std::set<T>& base, const std::set<T>& ours, const std::set<T>& theirs) {
    std::set<T> merged;
    for (const auto* side : {&ours, &theirs}) {
        for (const T& value : *side) {
            if (!base.contains(value) || (ours.contains(value) && theirs.contains(value))) {
                merged.insert(value);
            }
        }
    }
    return merged;
}

template <class T, class Report>
std::map<int, T> mergedMap(const std::map<int, T>& base, const std::map<int, T>& ours,
                           const std::map<int, T>& theirs, const std::string& path,
                           const Report& report) {
    const auto at = [](const std::map<int, T>& map, int key) {
        const auto found = map.find(key);
        return found == map.end() ? nullptr : &found->second;
    };
    std::map<int, T> merged;
    for (const auto* side : {&ours, &theirs}) {
        for (const auto& [key, unused] : *side) {
            if (side == &theirs && ours.contains(key)) {
                continue;
            }
            const T* was = at(base, key);
            const T* here = at(ours, key);
            const T* there = at(theirs, key);
            if constexpr (isSet<T>) { // none is an empty one
                static const T none;
                T set = mergedSet(was ? *was : none, here ? *here : none, there ? *there : none);
                if (!set.empty() || (here && there)) {
                    merged.emplace(key, std::move(set));
                }
            } else if (auto kept = mergedItem(was, here, there,
                                              path + "[" + std::to_string(key) + "]", report)) {
                merged.emplace(key, *std::move(kept));
            }
        }
    }
    return merged;
}

template <class T>
const T* ifThere(const std::optional<T>& value) {
    return value ? &*value : nullptr;
}
template <class T>
const T* ifThere(const T& value) {
    return &value;
}

/// Records and lists within an optional value are merged within.
template <class T>
inline constexpr bool mergesWithin = false;
template <class T>
inline constexpr bool mergesWithin<std::optional<T>> = Record<T> || isList<T>;

/// Brings together what two sides made of a common value. `report(path, ours, theirs)` with
/// pointers to the two values, null for none, where each side changed the same place in its way;
/// there ours stays, or what is left where one side removed what the other changed. Paths name
/// items of lists by identity.
template <class T, class Report>
T mergedValue(const T& base, const T& ours, const T& theirs, const std::string& path,
              const Report& report) {
    if (ours == theirs || base == theirs) {
        return ours;
    }
    if (base == ours) {
        return theirs;
    }
    if constexpr (Record<T>) {
        T merged{};
        boost::mp11::mp_for_each<Fields<T>>([&](auto field) {
            merged.*field.pointer =
                mergedValue(base.*field.pointer, ours.*field.pointer, theirs.*field.pointer,
                            joinPath(path, field.name), report);
        });
        return merged;
    } else if constexpr (mergesWithin<T>) {
        return mergedItem(ifThere(base), ifThere(ours), ifThere(theirs), path, report);
    } else if constexpr (isList<T>) {
        return mergedList(base, ours, theirs, path, report);
    } else if constexpr (isMap<T>) {
        return mergedMap(base, ours, theirs, path, report);
    } else if constexpr (isSet<T>) {
        return mergedSet(base, ours, theirs);
    } else {
        report(path, ifThere(ours), ifThere(theirs));
        return ours;
    }
}

} // namespace taxcore::detail
