#include "Fiscarel_SG/cloud/StateMerge.h"

#include "Fiscarel_SG/store/DocumentLinks.h"
#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/RecordMerge.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

using namespace taxcore;

constexpr std::string_view casesPrefix = "cases[";

/// A path within the state as a conflict names its place.
MergeConflict placeOf(std::string_view path) {
    if (!path.starts_with(casesPrefix)) {
        return {.path = std::string(path)};
    }
    path.remove_prefix(casesPrefix.size());
    MergeConflict place;
    const auto [end, status] = std::from_chars(path.begin(), path.end(), place.year);
    path.remove_prefix(static_cast<std::size_t>(end - path.begin()) + 1); // the bracket
    place.path = path.substr(path.starts_with('.') ? 1 : 0);
    return place;
}

struct Sides {
    const PersistedState& base;
    const PersistedState& ours;
    const PersistedState& theirs;
};

class StateMerger {
  public:
    explicit StateMerger(const Sides& sides) : sides_(sides) {}

    MergedState merge() && {
        mergeDocuments();
        const std::set<Uuid> gone = goneDocuments();
        if (gone.empty()) {
            mergeOthers(sides_);
            return std::move(merged_);
        }
        // That a link goes with its document is no change of the item that it stands in.
        const PersistedState base = withoutLinks(sides_.base, gone);
        const PersistedState ours = withoutLinks(sides_.ours, gone);
        const PersistedState theirs = withoutLinks(sides_.theirs, gone);
        mergeOthers({base, ours, theirs});
        return std::move(merged_);
    }

  private:
    template <class T>
    void mergeField(T PersistedState::*field, const std::string& name, const Sides& sides) {
        const auto report = [&](const std::string& path, const auto* ours, const auto* theirs) {
            const auto text = [](const auto* value) {
                return value ? std::optional(toJson(*value, JsonStyle::compact)) : std::nullopt;
            };
            MergeConflict& conflict = merged_.conflicts.emplace_back(placeOf(path));
            conflict.ours = text(ours);
            conflict.theirs = text(theirs);
        };
        merged_.state.*field = detail::mergedValue(sides.base.*field, sides.ours.*field,
                                                   sides.theirs.*field, name, report);
    }

    /// A document that one side removed while the other linked it anew stays, like a changed one.
    void mergeDocuments() {
        const std::set<Uuid> linked = linkedAnew();
        if (linked.empty()) {
            mergeField(&PersistedState::documents, "documents", sides_);
            return;
        }
        PersistedState base;
        std::ranges::copy_if(
            sides_.base.documents, std::back_inserter(base.documents),
            [&](const StoredDocument& document) { return !linked.contains(document.id); });
        mergeField(&PersistedState::documents, "documents", {base, sides_.ours, sides_.theirs});
        for (const Uuid& id : linked) {
            const auto textIn = [&](const PersistedState& state) {
                const StoredDocument* document = find(state, id);
                return document ? std::optional(toJson(*document, JsonStyle::compact))
                                : std::nullopt;
            };
            merged_.conflicts.push_back({.path = "documents[" + id.toString() + "]",
                                         .ours = textIn(sides_.ours),
                                         .theirs = textIn(sides_.theirs)});
        }
    }

    static const StoredDocument* find(const PersistedState& state, const Uuid& id) {
        const auto found = std::ranges::find(state.documents, id, &StoredDocument::id);
        return found == state.documents.end() ? nullptr : &*found;
    }

    std::set<Uuid> linkedAnew() const {
        std::set<Uuid> linked;
        for (const auto& [side, other] :
             {std::pair(&sides_.ours, &sides_.theirs), std::pair(&sides_.theirs, &sides_.ours)}) {
            std::vector<Uuid> removed;
            const detail::KeyedItems left(other->documents);
            const detail::KeyedItems had(sides_.base.documents);
            for (const auto& key : had.keys()) {
                if (!left.contains(key)) {
                    removed.push_back(key.first);
                }
            }
            addLinked(removed, *side, linked);
        }
        return linked;
    }

    /// Adds those of the documents that the side has as they were and that a change of it names.
    void addLinked(const std::vector<Uuid>& removed, const PersistedState& side,
                   std::set<Uuid>& linked) const {
        if (removed.empty()) {
            return;
        }
        std::string changes;
        for (const auto& [year, taxCase] : side.cases) {
            const auto before = sides_.base.cases.find(year);
            const TaxCase fresh{.year = year};
            for (const FieldChange& change :
                 diff(before == sides_.base.cases.end() ? fresh : before->second, taxCase)) {
                changes += change.after.value_or("");
            }
        }
        for (const Uuid& id : removed) {
            const StoredDocument* here = find(side, id);
            if (here && *here == *find(sides_.base, id)
                && changes.find(id.toString()) != std::string::npos) {
                linked.insert(id);
            }
        }
    }

    void mergeOthers(const Sides& sides) {
        boost::mp11::mp_for_each<Fields<PersistedState>>([&](auto field) {
            const std::string_view name = field.name;
            if (name != "documents" && name != "version") {
                mergeField(field.pointer, field.name, sides);
            }
        });
        merged_.state.version = std::max(sides.ours.version, sides.theirs.version);
    }

    std::set<Uuid> goneDocuments() const {
        std::set<Uuid> gone;
        for (const PersistedState* state : {&sides_.base, &sides_.ours, &sides_.theirs}) {
            for (const StoredDocument& document : state->documents) {
                gone.insert(document.id);
            }
        }
        for (const StoredDocument& document : merged_.state.documents) {
            gone.erase(document.id);
        }
        return gone;
    }

    /// The documents themselves are left out: they are merged by now.
    static PersistedState withoutLinks(const PersistedState& state, const std::set<Uuid>& gone) {
        PersistedState cleared;
        boost::mp11::mp_for_each<Fields<PersistedState>>([&](auto field) {
            if (std::string_view(field.name) != "documents") {
                cleared.*field.pointer = state.*field.pointer;
            }
        });
        for (auto& [year, taxCase] : cleared.cases) {
            for (const Uuid& document : gone) {
                clearDocumentLinks(taxCase, document);
            }
        }
        return cleared;
    }

    Sides sides_;
    MergedState merged_;
};

} // namespace

MergedState mergeStates(const PersistedState* base, const PersistedState& ours,
                        const PersistedState& theirs) {
    if (ours == theirs || (base && *base == theirs)) {
        return {ours, {}};
    }
    if (base && *base == ours) {
        return {theirs, {}};
    }
    const PersistedState nothing;
    return StateMerger({base ? *base : nothing, ours, theirs}).merge();
}

} // namespace fiscarel
