#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/model/TaxCase.h"

#include <tl/expected.hpp>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Everything the program keeps of a household: the content of the state file, of its backups and
/// exports, and of the cloud backup.
struct PersistedState {
    std::map<int, taxcore::TaxCase> cases; ///< by tax year
    std::vector<StoredDocument> documents; ///< of all years
    /// Per year the identifiers of the rows of the transfer list that are ticked.
    std::map<int, std::set<std::string>> transferChecked;
    int version = 1; ///< of the format

    bool operator==(const PersistedState&) const = default;
};
TAXCORE_RECORD(PersistedState, cases, documents, transferChecked, version);

/// The newest version of the format that this program reads.
inline constexpr int newestStateVersion = 1;

/// Why a text could not be decoded as a state.
struct StateFault {
    bool isNewer = false;    ///< written by a newer version of the program
    taxcore::JsonError json; ///< what does not fit; of a newer state only that it does not
    std::string message;     ///< one German sentence
};

/// The JSON text of a state: keys sorted, two spaces of indentation.
std::string encodeState(const PersistedState& state);

/// Reads what `encodeState` wrote, and the same form written by others: keys in any order, dates
/// with any offset, unknown keys ignored. A state of a newer version is refused whatever it holds.
tl::expected<PersistedState, StateFault> decodeState(std::string_view json);

} // namespace fiscarel

namespace taxcore {
extern template tl::expected<fiscarel::PersistedState, JsonError>
    fromJson<fiscarel::PersistedState>(std::string_view, JsonGaps);
extern template std::string toJson<fiscarel::PersistedState>(const fiscarel::PersistedState&,
                                                             JsonStyle);
} // namespace taxcore
