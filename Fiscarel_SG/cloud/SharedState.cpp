#include "Fiscarel_SG/cloud/SharedState.h"

#include "Fiscarel_SG/cloud/Sealing.h"
#include "TaxCore/base/JsonReader.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::size_t idLength = 16;

/// What stands beside the state: the ids, one behind the other.
struct LineageOnly {
    std::optional<std::string> lineage;
};
TAXCORE_RECORD(LineageOnly, lineage);

/// The lineage of a state that everything known and the cloud's went into.
std::vector<std::string> joined(const std::vector<SharedStatePointer>& known,
                                const SharedStatePointer& theirs) {
    std::vector<std::string> lineage;
    std::set<std::string> seen;
    const auto take = [&](const std::string& id) {
        if (seen.insert(id).second) {
            lineage.push_back(id);
        }
    };
    const auto takeAll = [&](const SharedStatePointer& one) {
        if (one != nullptr) {
            std::ranges::for_each(one->lineage, take);
            take(one->id);
        }
    };
    std::ranges::for_each(known, takeAll);
    takeAll(theirs);
    if (lineage.size() > SharedState::longestLineage) {
        lineage.erase(lineage.begin(),
                      lineage.end() - static_cast<std::ptrdiff_t>(SharedState::longestLineage));
    }
    return lineage;
}

/// Of the known states the last one that a state is or came from.
SharedStatePointer commonOf(const std::vector<SharedStatePointer>& known,
                            const SharedState& theirs) {
    SharedStatePointer last;
    std::ptrdiff_t lastPlace = -1;
    for (const SharedStatePointer& one : known) {
        if (one->id == theirs.id) {
            return one;
        }
        const auto found = std::ranges::find(theirs.lineage, one->id);
        const auto place = found - theirs.lineage.begin();
        if (found != theirs.lineage.end() && place > lastPlace) {
            last = one;
            lastPlace = place;
        }
    }
    return last;
}

} // namespace

std::string SharedState::idOf(std::string_view sealed) {
    return sha256(sealed).substr(0, idLength);
}

bool SharedState::comesFrom(const std::string& other) const {
    return std::ranges::find(lineage, other) != lineage.end();
}

std::string SharedState::encode(const std::vector<std::string>& lineage,
                                const PersistedState& state) {
    std::string text = encodeState(state);
    std::string line = "\n  \"lineage\": \"";
    for (const std::string& one : lineage) {
        line += one;
    }
    line += "\",";
    text.insert(1, line); // behind the brace
    return text;
}

tl::expected<SharedState, std::string> SharedState::decode(std::string_view text, std::string id) {
    auto state = decodeState(text);
    if (!state) {
        return tl::unexpected(std::move(state).error().message);
    }
    SharedState shared{.id = std::move(id), .lineage = {}, .state = std::move(*state)};
    if (const auto beside = taxcore::fromJson<LineageOnly>(text)) {
        const std::string& ids = beside->lineage.value_or("");
        for (std::size_t at = 0; at + idLength <= ids.size(); at += idLength) {
            shared.lineage.push_back(ids.substr(at, idLength));
        }
    }
    return shared;
}

Reconciled reconcile(const std::vector<SharedStatePointer>& known, const PersistedState& ours,
                     const SharedStatePointer& theirs, bool forgetsBase) {
    Reconciled result{.lineage = joined(known, theirs)};
    if (theirs == nullptr) {
        result.merged.state = ours;
        return result;
    }
    if (!forgetsBase) {
        result.base = commonOf(known, *theirs);
        result.cloudIsBehind =
            result.base == nullptr && std::ranges::any_of(known, [&](const auto& one) {
                return one->comesFrom(theirs->id);
            });
    }
    if (result.cloudIsBehind || (result.base != nullptr && result.base->id == theirs->id)) {
        result.merged.state = ours;
        return result;
    }
    result.merged =
        mergeStates(result.base != nullptr ? &result.base->state : nullptr, ours, theirs->state);
    return result;
}

bool isIn(const std::vector<StoredDocument>& documents, const Uuid& id) {
    return std::ranges::find(documents, id, &StoredDocument::id) != documents.end();
}

} // namespace fiscarel
