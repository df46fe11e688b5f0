// State files that do not read or are of a newer program: nothing of them is lost, whatever the
// user does next.

#include "tests/support/faults/StateSession.h"

#include <gtest/gtest.h>

#include <functional>

namespace faults {
namespace {

using namespace fiscarel;
namespace fs = std::filesystem;

const std::string goodBackup = "daten-2026-02-20.json";
const std::string badBackup = "daten-2026-02-27.json";

/// A folder with a state file and with backups from before it went wrong.
void prepare(const WorkFolder& work, const std::string& content) {
    work.clear();
    writeFile(work.stateFile(), content);
    writeFile(work.backups() / goodBackup, encodeState(small("Februar")));
    writeFile(work.backups() / badBackup, "{");
    writeFile(work.backups() / todaysBackup, encodeState(small("Morgen")));
}

/// Starts the program, lets it do something, and ends it. Every start is a minute later.
class Starts {
  public:
    explicit Starts(const WorkFolder& work) : work_(work) {}

    void start(const std::function<void(StateSession&)>& act) {
        time_ += 60;
        InlineQueue queue;
        const auto lock = FolderLock::acquire(work_.root());
        ASSERT_TRUE(lock);
        StateSession session(work_.root(), queue, time_);
        act(session);
    }

  private:
    const WorkFolder& work_;
    std::int64_t time_ = atNoonOrSo;
};

void expectWaits(StateSession& session) {
    EXPECT_TRUE(session.store().awaitsRecovery());
    EXPECT_TRUE(session.store().loadError());
    EXPECT_EQ(session.store().current(), taxcore::TaxCase{.year = 2025});
}

void fiveStartsWithoutEdit(Starts& starts, const WorkFolder& work, const std::string& content) {
    for (int i = 0; i < 5; ++i) {
        starts.start(expectWaits);
        EXPECT_EQ(readFile(work.stateFile()), content);
    }
    EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable), std::vector{content});
}

/// The newest backup that decodes is offered; the bad one and the copy of the file are not.
void restoreTheNewest(Starts& starts, const std::string& expected) {
    starts.start([&](StateSession& session) {
        std::optional<BackupFile> found;
        session.store().findNewestGoodBackup([&](const auto& file) { found = file; });
        ASSERT_TRUE(found);
        EXPECT_EQ(found->fileName(), expected);
        std::optional<std::string> problem;
        session.store().restoreBackup(*found, [&](const auto& said) { problem = said; });
        EXPECT_FALSE(problem) << *problem;
        EXPECT_TRUE(session.store().flush());
        EXPECT_FALSE(session.store().awaitsRecovery());
    });
}

std::vector<std::pair<std::string, std::string>> foreignContents() {
    std::string png = "\x89PNG\r\n\x1a\n";
    png += std::string("\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\6\0\0\0", 21);
    return {{"empty", ""},
            {"a list", "[]"},
            {"null", "null"},
            {"a text", "\"daten\""},
            {"another shape", R"({"name": "Notizen", "cases": [1, 2], "version": 1})"},
            {"a case of another shape", R"({"cases": {"2025": 7}, "documents": [], "version": 1})"},
            {"a picture", png},
            {"zeros", std::string(4096, '\0')},
            {"not UTF-8", "{\"cases\": {}, \"x\": \"\xff\xfe\"}"},
            {"two states", encodeState(small("a")) + encodeState(small("b"))}};
}

void expectNothingIsLost(const std::string& content) {
    const WorkFolder work;
    prepare(work, content);
    Starts starts(work);
    fiveStartsWithoutEdit(starts, work, content);
    const std::string morning = readFile(work.backups() / todaysBackup);
    for (const char* name : {"eins", "zwei", "drei"}) {
        starts.start([&](StateSession& session) {
            enter(session.store(), name);
            EXPECT_TRUE(session.store().flush());
        });
        EXPECT_EQ(decodeState(readFile(work.stateFile())), small(name));
        EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable), std::vector{content});
        EXPECT_EQ(backupsLabelled(work.root(), backup::beforeNewBeginning), std::vector{morning});
    }

    prepare(work, content);
    starts.start(expectWaits);
    restoreTheNewest(starts, todaysBackup);
    EXPECT_EQ(readFile(work.stateFile()), morning);
    EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable), std::vector{content});
}

TEST(UnusableState, ofForeignContentIsKeptOnce) {
    for (const auto& [name, content] : foreignContents()) {
        SCOPED_TRACE(name);
        expectNothingIsLost(content);
    }
}

TEST(UnusableState, ofATruncatedFileIsKeptOnce) {
    const std::string whole = encodeState(small("Alt"));
    for (std::size_t size = 37; size < whole.size(); size += 37) {
        SCOPED_TRACE("the first " + std::to_string(size) + " bytes");
        expectNothingIsLost(whole.substr(0, size));
        if (::testing::Test::HasFailure()) {
            break;
        }
    }
}

TEST(UnusableState, ofEveryContentIsKeptOnceEach) {
    const WorkFolder work;
    prepare(work, "{");
    Starts starts(work);
    for (const char* content : {"{", "[", "{", "[", "{"}) {
        writeFile(work.stateFile(), content);
        starts.start([&](StateSession& session) {
            enter(session.store(), "Neu");
            EXPECT_TRUE(session.store().flush());
        });
    }
    EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable),
              (std::vector<std::string>{"{", "["}));
}

/// Two saves can be under way at once; the second must not write over what the first could not
/// keep.
TEST(UnusableState, isNotWrittenOverByTheSecondOfTwoSaves) {
    const WorkFolder work;
    prepare(work, "{");
    PosixFiles files;
    const FakeClock clock(atNoonOrSo);
    Persistence persistence(files, clock, work.root());
    ASSERT_TRUE(std::holds_alternative<UnusableState>(persistence.load()));
    fs::remove_all(work.backups());
    writeFile(work.backups(), "no folder"); // so that nothing can be kept
    EXPECT_FALSE(persistence.beginAnew());
    EXPECT_FALSE(persistence.save("first"));
    EXPECT_FALSE(persistence.save("second"));
    EXPECT_EQ(readFile(work.stateFile()), "{");
    fs::remove(work.backups());
    fs::create_directory(work.backups());
    EXPECT_TRUE(persistence.save("third"));
    EXPECT_EQ(readFile(work.stateFile()), "third");
    EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable), std::vector<std::string>{"{"});
    EXPECT_TRUE(persistence.beginAnew());
    EXPECT_EQ(namesIn(work.backups()).size(), 1U) << "a state of ours is no unreadable file";
}

/// A backup that cannot be looked at is not written over by one of the same second.
TEST(UnusableState, backupsOfOneSecondStandSideBySide) {
    const WorkFolder work;
    PosixFiles files;
    const FakeClock clock(atNoonOrSo);
    Persistence persistence(files, clock, work.root());
    for (const char* content : {"1", "2", "3"}) {
        EXPECT_TRUE(persistence.backup(content, backup::beforeReset));
    }
    EXPECT_EQ(backupsLabelled(work.root(), backup::beforeReset),
              (std::vector<std::string>{"1", "2", "3"}));
    fs::remove_all(work.backups());
    writeFile(work.backups(), "no folder");
    EXPECT_FALSE(persistence.backup("4", backup::beforeReset));
    EXPECT_EQ(readFile(work.backups()), "no folder");
}

TEST(UnusableState, thatIsAFolderStaysAndIsNamed) {
    const WorkFolder work;
    prepare(work, "x");
    fs::remove(work.stateFile());
    writeFile(work.stateFile() / "inside", "kept");
    Starts starts(work);
    for (int i = 0; i < 5; ++i) {
        starts.start(expectWaits);
    }
    for (int i = 0; i < 3; ++i) {
        starts.start([&](StateSession& session) {
            enter(session.store(), "Neu");
            EXPECT_FALSE(session.store().flush());
            ASSERT_TRUE(session.store().saveProblem());
            EXPECT_NE(session.store().saveProblem()->find("«daten.json»: Es ist ein Ordner."),
                      std::string::npos)
                << *session.store().saveProblem();
        });
    }
    EXPECT_EQ(readFile(work.stateFile() / "inside"), "kept");
    EXPECT_EQ(namesIn(work.backups()),
              (std::vector<std::string>{goodBackup, badBackup, todaysBackup}));
    EXPECT_EQ(readFile(work.backups() / todaysBackup), encodeState(small("Morgen")));
    fs::remove_all(work.stateFile()); // the user clears the way
    restoreTheNewest(starts, todaysBackup);
    EXPECT_EQ(decodeState(readFile(work.stateFile())), small("Morgen"));
}

TEST(UnusableState, ofANewerProgramIsNotWritten) {
    PersistedState next = small("Neuer");
    next.version = 2;
    for (const std::string& content :
         {encodeState(next), std::string(R"({"version": 2})"),
          std::string(R"({"households": [{"cases": 3}], "cases": "elsewhere", "version": 2})")}) {
        SCOPED_TRACE(content.substr(0, 80));
        const WorkFolder work;
        prepare(work, content);
        Starts starts(work);
        fiveStartsWithoutEdit(starts, work, content);
        const auto backups = namesIn(work.backups());
        for (const char* name : {"eins", "zwei", "drei"}) {
            starts.start([&](StateSession& session) {
                enter(session.store(), name);
                session.store().resetYear();
                EXPECT_FALSE(session.store().flush());
                ASSERT_TRUE(session.store().saveProblem());
                EXPECT_NE(session.store().saveProblem()->find("Version 2"), std::string::npos);
                EXPECT_TRUE(session.store().hasUnsavedChanges());
            });
            EXPECT_EQ(readFile(work.stateFile()), content);
        }
        EXPECT_EQ(namesIn(work.backups()), backups);
        restoreTheNewest(starts, todaysBackup); // the user decides
        EXPECT_EQ(decodeState(readFile(work.stateFile())), small("Morgen"));
        EXPECT_EQ(backupsLabelled(work.root(), backup::unreadable), std::vector{content});
    }
}

} // namespace
} // namespace faults
