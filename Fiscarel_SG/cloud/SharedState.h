#pragma once

#include "Fiscarel_SG/cloud/StateMerge.h"

#include <tl/expected.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// A state as it lies in the cloud, and the earlier ones whose content it has taken up. The version
/// that the server counts does not tell that: a server restored from an old copy counts the same
/// numbers once more.
struct SharedState {
    /// More than any machine stays away for; one that did is treated as knowing nothing.
    static constexpr std::size_t longestLineage = 2'000;

    std::string id;                   ///< of its sealed text
    std::vector<std::string> lineage; ///< ids of those it came from, the oldest first
    PersistedState state;

    /// Tells sealed texts apart, equal content too.
    static std::string idOf(std::string_view sealed);
    bool comesFrom(const std::string& other) const;

    /// The text that is sealed: the state's JSON with the lineage beside it, which readers of a
    /// state pass over.
    static std::string encode(const std::vector<std::string>& lineage, const PersistedState& state);
    /// A German sentence when it does not decode.
    static tl::expected<SharedState, std::string> decode(std::string_view text, std::string id);
};

using SharedStatePointer = std::shared_ptr<const SharedState>;

/// What is to become of our state and the cloud's.
struct Reconciled {
    MergedState merged;
    SharedStatePointer base; ///< the common state they went apart from; null: none is known
    std::vector<std::string> lineage; ///< of the merged state
    bool cloudIsBehind = false;       ///< all of it lies in what is known
};

/// Brings our state and the cloud's together. `known` are states of the cloud that ours came from.
/// A cloud that is behind them changes nothing here. With `forgetsBase` everything of both stays.
Reconciled reconcile(const std::vector<SharedStatePointer>& known, const PersistedState& ours,
                     const SharedStatePointer& theirs, bool forgetsBase = false);

/// Whether a document of an id is among some.
bool isIn(const std::vector<StoredDocument>& documents, const Uuid& id);

} // namespace fiscarel
