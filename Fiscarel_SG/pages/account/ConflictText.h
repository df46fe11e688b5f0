#pragma once

#include "Fiscarel_SG/cloud/StateMerge.h"

#include <QString>
#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// A conflict as the user reads it.
struct ConflictText {
    QString label;  ///< of the field, or what a list calls an item of it
    QString where;  ///< "Steuerjahr 2025 · Vermögen · Kantonalbank"
    QString ours;   ///< "82’400 CHF", "gelöscht", "leer"
    QString theirs; ///< likewise
    /// The field in the case of the year, items by position; empty where there is none to go to.
    std::string path;
    std::string document; ///< the identity of the document; empty for others
    /// Whether it is an item, document or year as a whole: gone on one side, changed on the other.
    bool isWhole = false;

    bool operator==(const ConflictText&) const = default;
};

/// In the order of the conflicts.
std::vector<ConflictText> describe(AppStore& store, const std::vector<MergeConflict>& conflicts);

} // namespace fiscarel::pages
