#pragma once

#include "Fiscarel_SG/cloud/StateMerge.h"

#include <ostream>

namespace fiscarel {

inline void PrintTo(const PersistedState& state, std::ostream* out) { *out << encodeState(state); }

inline void PrintTo(const MergeConflict& conflict, std::ostream* out) {
    *out << conflict.year << " " << conflict.path << ": " << conflict.ours.value_or("-") << " / "
         << conflict.theirs.value_or("-");
}

} // namespace fiscarel
