#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/base/JsonWriter.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace fiscarel::testing {

using namespace taxcore;

/// A state taken apart into its places: what an oracle of the merge compares.
struct FlatState {
    std::map<std::string, std::string> leaves;              ///< JSON texts by lasting paths
    std::map<std::string, std::vector<std::string>> orders; ///< of lists with identity

    explicit FlatState(const PersistedState& state) {
        add("documents", state.documents);
        for (const auto& [year, taxCase] : state.cases) {
            add("cases[" + std::to_string(year) + "]", taxCase);
        }
        for (const auto& [year, ticks] : state.transferChecked) {
            for (const std::string& tick : ticks) {
                leaves["ticks[" + std::to_string(year) + "]" + tick];
            }
        }
    }

    /// Null when there is none.
    const std::string* find(const std::string& path) const {
        const auto found = leaves.find(path);
        return found == leaves.end() ? nullptr : &found->second;
    }

    /// What lies at a path or within it, in its order.
    std::map<std::string, std::string> below(const std::string& path) const {
        std::map<std::string, std::string> found;
        for (auto leaf = leaves.lower_bound(path);
             leaf != leaves.end() && leaf->first.starts_with(path); ++leaf) {
            if (isWithin(leaf->first, path)) {
                found.insert(*leaf);
            }
        }
        for (const auto& [list, items] : orders) {
            if (isWithin(list, path)) {
                found[list + " in order"] = ::testing::PrintToString(items);
            }
        }
        return found;
    }

    static bool isWithin(const std::string& place, const std::string& path) {
        return place.starts_with(path)
               && (place.size() == path.size() || path.empty()
                   || std::string_view(".[{?").find(place[path.size()]) != std::string_view::npos);
    }

  private:
    template <class T>
    void add(const std::string& path, const T& value) {
        if constexpr (Record<T>) {
            leaves[path + "?"];
            forEachField(value, [&](std::string_view name, const auto& field) {
                add(path + "." + std::string(name), field);
            });
        } else if constexpr (isOptional<T>) {
            if (value) {
                add(path, *value);
            }
        } else if constexpr (isList<T>) {
            addItems(path, value);
        } else {
            leaves[path] = toJson(value, JsonStyle::compact);
        }
    }
    template <class T>
    void addItems(const std::string& path, const std::vector<T>& list) {
        leaves[path + "?"];
        for (const T& item : list) {
            if constexpr (Identified<T>) {
                add(path + "[" + item.id.toString() + "]", item);
                orders[path].push_back(item.id.toString());
            } else {
                std::string name = path + "{" + toJson(item, JsonStyle::compact);
                while (leaves.contains(name)) {
                    name += "+";
                }
                leaves[name];
            }
        }
    }
};

} // namespace fiscarel::testing
