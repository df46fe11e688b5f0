// What a year held before it was reset can be had again.

#include "tests/support/faults/StateSession.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace faults {
namespace {

using namespace fiscarel;

/// The only backup with a label.
std::optional<BackupFile> labelled(AppStore& store, std::string_view label) {
    std::vector<BackupFile> found;
    store.listBackups([&](std::vector<BackupFile> all) { found = std::move(all); });
    std::erase_if(found, [&](const BackupFile& file) { return file.name.label != label; });
    return found.size() == 1 ? std::optional(found.front()) : std::nullopt;
}

TEST(YearReset, leavesABackupOfTheDaysEntries) {
    for (const bool savedBefore : {true, false}) {
        const WorkFolder work;
        writeFile(work.stateFile(), encodeState(household("Alt")));
        InlineQueue queue;
        PersistedState entered;
        {
            StateSession session(work.root(), queue);
            AppStore& store = session.store();
            enter(store, "Heute");
            EXPECT_TRUE(!savedBefore || store.flush());
            entered = store.snapshot();
            store.resetYear();
            EXPECT_TRUE(store.flush());
            enter(store, "Danach"); // goes on, and saves again: the daily backup is overwritten
            EXPECT_TRUE(store.flush());
        }
        StateSession session(work.root(), queue, atNoonOrSo + 3600);
        AppStore& store = session.store();
        const PersistedState after = store.snapshot();
        EXPECT_EQ(store.current().person1.firstName, "Danach");
        EXPECT_TRUE(store.current().income1.salaries.empty());
        EXPECT_EQ(store.cases().at(2026), entered.cases.at(2026)) << "the other year stays";

        const auto before = labelled(store, backup::beforeReset);
        ASSERT_TRUE(before);
        store.restoreBackup(*before, [](const auto& problem) { EXPECT_FALSE(problem); });
        EXPECT_TRUE(store.flush());
        EXPECT_EQ(decodeState(readFile(work.stateFile())), entered);
        // And the restoring can be taken back as well.
        const auto replaced = labelled(store, backup::beforeRestore);
        ASSERT_TRUE(replaced);
        EXPECT_EQ(session.persistence().read(*replaced), after);
    }
}

} // namespace
} // namespace faults
