// Two programs on one data folder.

#include "tests/support/faults/Scenario.h"
#include "tests/support/faults/StateDriverClient.h"
#include "tests/support/faults/StateSession.h"

#include <gtest/gtest.h>

#include <map>

namespace faults {
namespace {

using namespace fiscarel;
namespace fs = std::filesystem;

std::map<std::string, std::string> contentBelow(const fs::path& folder) {
    std::map<std::string, std::string> content;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        content[entry.path()] = entry.is_regular_file() ? readFile(entry.path()) : "";
    }
    return content;
}

int codeOf(const std::string& scenario, const WorkFolder& work) {
    return LoneDriver(scenario, work.path()).wait();
}

TEST(TwoPrograms, theSecondIsRefusedUntilTheFirstIsGone) {
    const WorkFolder work;
    ASSERT_TRUE(editAndSave(work.root(), "Alt"));
    // What the first is just writing, and must not lose.
    writeFile(work.root() / ".1.unfertig", "half of a state");
    for (const bool crashes : {false, true}) {
        const auto before = contentBelow(work.root());
        LoneDriver first(holdScenario, work.path());
        ASSERT_TRUE(first.waitUntilHeld());
        EXPECT_FALSE(FolderLock::acquire(work.root()));
        EXPECT_FALSE(FolderLock::acquire(work.root() / ".." / "Brennick")) << "another way to it";
        EXPECT_EQ(codeOf("save", work), static_cast<int>(Outcome::refused));
        EXPECT_EQ(contentBelow(work.root()), before);
        if (crashes) {
            first.kill();
            EXPECT_EQ(first.wait(), static_cast<int>(Outcome::killed));
            EXPECT_EQ(codeOf("save", work), static_cast<int>(Outcome::saved));
            EXPECT_EQ(namesIn(work.root()),
                      (std::vector<std::string>{".sperre", "Belege", "Sicherungen", "daten.json"}));
        } else {
            first.release();
            EXPECT_EQ(first.wait(), static_cast<int>(Outcome::saved));
            EXPECT_TRUE(FolderLock::acquire(work.root()));
        }
    }
    EXPECT_EQ(decodeState(readFile(work.stateFile()))->cases.at(2025).person1.firstName,
              enteredName);
}

TEST(TwoPrograms, doNotShareALockByInheritance) {
    const WorkFolder work;
    auto lock = FolderLock::acquire(work.root());
    ASSERT_TRUE(lock);
    LoneDriver other(holdScenario, work.path() / "other"); // started while we hold ours
    ASSERT_TRUE(other.waitUntilHeld());
    lock.reset();
    EXPECT_TRUE(FolderLock::acquire(work.root())) << "the other program still holds it";
}

} // namespace
} // namespace faults
