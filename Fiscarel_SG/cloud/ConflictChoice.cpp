#include "Fiscarel_SG/cloud/StateMerge.h"
#include "Fiscarel_SG/store/DocumentLinks.h"
#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/RecordMerge.h"

#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

using namespace taxcore;

template <class T>
std::optional<std::string> textOf(const T& value) {
    const auto* there = detail::ifThere(value);
    return there ? std::optional(toJson(*there, JsonStyle::compact)) : std::nullopt;
}

/// Takes the other side's value in a field of a record.
template <Record T>
bool takeField(T& record, std::string_view name, const MergeConflict& conflict) {
    bool taken = false;
    const auto take = [&](auto& value) {
        const auto now = textOf(value);
        if (now == conflict.theirs) {
            return true;
        }
        if (now != conflict.ours) {
            return false;
        }
        if (!conflict.theirs) {
            value = {};
            return true;
        }
        const std::string patch = "{\"" + std::string(name) + "\":" + *conflict.theirs + "}";
        return patchFromJson(record, patch).has_value();
    };
    forEachField(record, [&](std::string_view field, auto& value) {
        if (field == name) {
            taken = take(value);
        }
    });
    return taken;
}

/// Takes an item out that the other side removed.
template <class T>
bool takeRemoval(std::vector<T>& list, std::string_view token, const MergeConflict& conflict) {
    const std::size_t index = detail::indexOf(list, token);
    const auto now = index < list.size() ? textOf(list[index]) : std::nullopt;
    if (now && now == conflict.ours && !conflict.theirs) {
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
        return true;
    }
    return now && now == conflict.theirs;
}

/// `last`: the path's last step, ".amount" or "[<UUID>]", within what the path before it leads to.
template <class T>
bool takeWithin(T& parent, std::string_view last, const MergeConflict& conflict) {
    if constexpr (isOptional<T>) {
        return parent && takeWithin(*parent, last, conflict);
    } else if constexpr (isList<T>) {
        return last.starts_with('[')
               && takeRemoval(parent, last.substr(1, last.size() - 2), conflict);
    } else if constexpr (Record<T>) {
        return takeField(parent, last.substr(last.starts_with('.') ? 1 : 0), conflict);
    } else {
        return false;
    }
}

template <Record T>
bool takeAt(T& root, const MergeConflict& conflict) {
    const std::string_view path = conflict.path;
    const std::size_t split = path.find_last_of(".[");
    const std::size_t parent = split == std::string_view::npos ? 0 : split;
    bool taken = false;
    detail::walkPath(root, path.substr(0, parent), detail::passItem, [&](auto& value) {
        taken = takeWithin(value, path.substr(parent), conflict);
    });
    return taken;
}

} // namespace

MergeConflict swapped(MergeConflict conflict) {
    std::swap(conflict.ours, conflict.theirs);
    return conflict;
}

/// Of a mere value its absence stayed, as any value of ours.
bool isRemovalHere(const MergeConflict& conflict) {
    return !conflict.ours && conflict.theirs && conflict.theirs->find_first_of("{[") == 0;
}

bool takeTheirs(PersistedState& state, const MergeConflict& conflict) {
    if (conflict.year != 0) {
        const auto found = state.cases.find(conflict.year);
        if (found == state.cases.end()) {
            return false;
        }
        if (!conflict.path.empty()) {
            return takeAt(found->second, conflict);
        }
        const auto now = textOf(found->second);
        if (now == conflict.ours && !conflict.theirs) {
            state.cases.erase(found);
            return true;
        }
        return now == conflict.theirs;
    }
    const std::size_t before = state.documents.size();
    const bool taken = takeAt(state, conflict);
    if (state.documents.size() < before) {
        const std::size_t open = conflict.path.find('[') + 1;
        const auto document =
            Uuid::parse(conflict.path.substr(open, conflict.path.size() - open - 1));
        for (auto& [year, taxCase] : state.cases) {
            clearDocumentLinks(taxCase, document.value_or(Uuid{}));
        }
    }
    return taken;
}

} // namespace fiscarel
