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

/// Asserts what `expectChecks` does, the level of each notice, that it has a page, and that the
/// rows are complete: every id that the source files (in TaxCore/review) can give stands as a row
/// or in `elsewhere`, and no row has an id of other files.
void expectAllChecks(const std::vector<std::string>& files, const std::vector<LevelledRow>& rows,
                     const std::set<std::string>& elsewhere = {});

/// Asserts that every id the check files can give is tried: the ids that stand in the sources
/// against those of the rows and `others`, numbers at their end left aside.
void expectEveryCheckIsTried(const std::vector<std::string>& files,
                             const std::vector<CheckRow>& rows,
                             const std::set<std::string>& others = {});

} // namespace taxcore::testing
