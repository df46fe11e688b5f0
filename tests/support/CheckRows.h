#pragma once

#include "tests/support/ReviewCase.h"

#include <set>
#include <string>
#include <vector>

namespace taxcore::testing {

/// A check with its row and how grave it is.
struct LevelledRow {
    Notice::Level level;
    CheckRow row;
};

std::vector<CheckRow> withoutLevels(const std::vector<LevelledRow>& rows);

/// An id without the place it names: "lohn-doppelt" for "lohn-doppelt-1-2", "betrag-hoch" for
/// "betrag-hoch-income1.boardFees".
std::string stem(const std::string& id);

/// The rows of several tables in one.
template <class Row>
std::vector<Row> joined(const std::vector<std::vector<Row>>& tables) {
    std::vector<Row> all;
    for (const auto& rows : tables) {
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

/// Asserts what `expectChecks` does, and that the rows are complete: every id that the source files
/// (in TaxCore/review) can give stands as a row or in `elsewhere`, numbers at its end left aside,
/// and no row has an id of other files.
void expectAllChecks(const std::vector<std::string>& files, const std::vector<CheckRow>& rows,
                     const std::set<std::string>& elsewhere = {});
/// The same, and the level of each notice.
void expectAllChecks(const std::vector<std::string>& files, const std::vector<LevelledRow>& rows,
                     const std::set<std::string>& elsewhere = {});

} // namespace taxcore::testing
