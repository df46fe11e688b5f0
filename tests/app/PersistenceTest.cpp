#include "Fiscarel_SG/Persistence.h"

#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel {
namespace {

class PersistenceTest : public ::testing::Test {
  protected:
    testing::TemporaryFolder folder;
    PosixFiles files;
    testing::FakeClock clock;
    Persistence persistence{files, clock, folder.path() / "Brennick"};

    /// As the store saves.
    void save(std::string_view state) {
        ASSERT_TRUE(persistence.save(state).has_value());
        persistence.backupIfNeeded(state);
    }
    std::set<std::string> backups() {
        const auto names = testing::namesIn(persistence.backupsFolder());
        return {names.begin(), names.end()};
    }
};

TEST_F(PersistenceTest, keepsOneBackupADayWithTheLastState) {
    for (const char* state : {"1", "2", "3"}) {
        save(state);
    }
    EXPECT_EQ(backups(), std::set<std::string>{"daten-2026-03-08.json"});
    EXPECT_EQ(testing::readFile(persistence.backupsFolder() / "daten-2026-03-08.json"), "3");
    clock.moment.seconds += std::int64_t{4} * 3600; // past midnight where the user is
    save("4");
    EXPECT_TRUE(backups().contains("daten-2026-03-09.json"));
    EXPECT_EQ(testing::readFile(persistence.stateFile()), "4");
}

TEST_F(PersistenceTest, keepsThirtyFilesAndNeverLosesTheNewestDay) {
    for (int day = 0; day < 31; ++day, clock.nextDay()) {
        save("x");
    }
    EXPECT_EQ(backups().size(), 30U);
    EXPECT_FALSE(backups().contains("daten-2026-03-08.json"));
    EXPECT_TRUE(backups().contains("daten-2026-03-09.json"));
    for (int i = 0; i < 35; ++i) {
        ASSERT_TRUE(persistence.backup("y", backup::beforeCloud).has_value());
    }
    EXPECT_EQ(backups().size(), 65U) << "a second one in a second takes the next second's name";
    save("z");
    EXPECT_EQ(backups().size(), 31U);
    const std::string today = BackupName::daily(clock.local()).fileName();
    EXPECT_EQ(std::ranges::count_if(
                  backups(), [](const std::string& name) { return name.starts_with("daten-"); }),
              1);
    EXPECT_EQ(testing::readFile(persistence.backupsFolder() / today), "z");
}

/// A copy of a state file that did not read may be the only one there is.
TEST_F(PersistenceTest, keepsTheNewestOfEveryLabel) {
    for (const char* content : {"older", "newer"}) {
        ASSERT_TRUE(persistence.backup(content, backup::unreadable).has_value());
    }
    for (int i = 0; i < 30; ++i) {
        ASSERT_TRUE(persistence.backup("y", backup::beforeCloud).has_value());
    }
    save("z");
    EXPECT_EQ(backups().size(), 32U);
    EXPECT_FALSE(backups().contains("unlesbar-2026-03-08-210000.json"));
    EXPECT_TRUE(backups().contains("unlesbar-2026-03-08-210001.json"));
}

TEST_F(PersistenceTest, namesTellLabelAndTime) {
    const BackupName table[] = {{"", "2026-03-08", ""},
                                {"vor-cloud", "2026-03-08", "210000"},
                                {"daten", "2026-03-08", "210000"}};
    for (const BackupName& name : table) {
        EXPECT_EQ(BackupName::parse(name.fileName()), name) << name.fileName();
    }
    for (const char* other : {"daten.json", "daten-2026-3-8.json", "vor-cloud-2026-03-08.json",
                              "-2026-03-08-210000.json", "daten-2026-03-08.txt", "notiz"}) {
        EXPECT_FALSE(BackupName::parse(other).has_value()) << other;
    }
    const FileEntry entries[] = {{"daten-2026-03-07.json"},
                                 {"vor-cloud-2026-03-08-090000.json"},
                                 {"daten-2026-03-08.json"},
                                 {"fremd.json"}};
    const auto sorted = backupsAmong({std::begin(entries), std::end(entries)});
    ASSERT_EQ(sorted.size(), 3U);
    EXPECT_EQ(sorted[0].fileName(), "daten-2026-03-08.json") << "the end of its day";
    EXPECT_EQ(sorted[1].name.label, "vor-cloud");
}

TEST_F(PersistenceTest, filesAreForTheUserAlone) {
    namespace fs = std::filesystem;
    save("x");
    testing::writeFile(folder.path() / "beleg.pdf", "x");
    const auto name = persistence.importFile(folder.path() / "beleg.pdf").value();
    const auto others = fs::perms::group_all | fs::perms::others_all;
    for (const fs::path& path :
         {persistence.root(), persistence.documentsFolder(), persistence.backupsFolder(),
          persistence.stateFile(), persistence.documentsFolder() / name}) {
        EXPECT_EQ(fs::status(path).permissions() & others, fs::perms::none) << path;
    }
}

TEST_F(PersistenceTest, onlyOneHolderOfAFolder) {
    auto first = FolderLock::acquire(persistence.root());
    ASSERT_TRUE(first.has_value());
    EXPECT_FALSE(FolderLock::acquire(persistence.root()).has_value());
    first.reset();
    EXPECT_TRUE(FolderLock::acquire(persistence.root()).has_value());
}

} // namespace
} // namespace fiscarel
