#include "Fiscarel_SG/outputs/CaseEntries.h"

#include <algorithm>
#include <cctype>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

/// Calls `leaf(path, field, name)` for everything that is no record or list.
template <class T, class Leaf>
void walk(const std::string& path, std::string_view name, const T& value, const Leaf& leaf) {
    if constexpr (Record<T>) {
        taxcore::forEachField(value, [&](std::string_view field, const auto& member) {
            walk(path.empty() ? std::string(field) : path + "." + std::string(field), field, member,
                 leaf);
        });
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            walk(path + "[" + std::to_string(i) + "]", name, value[i], leaf);
        }
    } else if constexpr (isOptional<T>) {
        if (value) {
            walk(path, name, *value, leaf);
        }
    } else {
        leaf(path, name, value);
    }
}

/// Gives every list one new item and every optional record its new value.
template <class T>
void complete(T& value) {
    if constexpr (Record<T>) {
        taxcore::forEachField(value, [](std::string_view, auto& field) { complete(field); });
    } else if constexpr (isList<T>) {
        complete(value.emplace_back());
    } else if constexpr (isOptional<T>) {
        if constexpr (Record<typename T::value_type>) {
            complete(value.emplace());
        }
    }
}

std::vector<CaseEntry> readEntries(const TaxCase& taxCase) {
    std::vector<CaseEntry> entries;
    walk({}, {}, taxCase, [&](const std::string& path, std::string_view, const auto& field) {
        using T = std::remove_cvref_t<decltype(field)>;
        if constexpr (!std::is_same_v<T, Uuid>) {
            const FieldValue value = detail::valueOf(field);
            if (!isEmpty(value)) {
                constexpr bool isAmount = std::is_same_v<T, Decimal>;
                entries.push_back(
                    {path, shownValue(value, isAmount ? ValueKind::rappen : detail::kindOf<T>())});
            }
        }
    });
    return entries;
}

/// What new records hold, by the pattern of the path.
const std::map<std::string, std::string>& initialValues() {
    static const std::map<std::string, std::string> values = [] {
        TaxCase fresh;
        complete(fresh);
        std::map<std::string, std::string> initial;
        for (CaseEntry& entry : readEntries(fresh)) {
            initial.emplace(patternOf(entry.path), std::move(entry.value));
        }
        return initial;
    }();
    return values;
}

} // namespace

std::vector<CaseEntry> entriesOf(const TaxCase& taxCase) {
    std::vector<CaseEntry> entries = readEntries(taxCase);
    for (CaseEntry& entry : entries) {
        const auto initial = initialValues().find(patternOf(entry.path));
        const bool isGiven = entry.path == "year" || entry.path == "region";
        entry.isInitial =
            isGiven || (initial != initialValues().end() && initial->second == entry.value);
    }
    return entries;
}

std::map<std::string, Uuid> linkedDocuments(const TaxCase& taxCase) {
    std::map<std::string, Uuid> linked;
    walk({}, {}, taxCase, [&](const std::string& path, std::string_view name, const auto& field) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Uuid>) {
            if (name == "documentID") {
                linked.emplace(itemOf(path), field);
            }
        }
    });
    return linked;
}

std::string patternOf(std::string_view path) {
    std::string pattern;
    bool inside = false;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const char c = path[i];
        inside = c == '[' || (inside && c != ']');
        const bool digit = std::isdigit(static_cast<unsigned char>(c)) != 0;
        // Only whose a record is ends in a digit; "pillar3a" has it within.
        const bool person = digit && (i + 1 == path.size() || path[i + 1] == '.');
        if (!(digit && inside) && !person) {
            pattern += c;
        }
    }
    return pattern;
}

std::string itemOf(std::string_view path) {
    const std::size_t close = path.rfind(']');
    return std::string(path.substr(0, close == std::string_view::npos ? 0 : close + 1));
}

} // namespace fiscarel::outputs
