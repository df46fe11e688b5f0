// Disks that take nothing more, files and folders that may not be read or written.

#include "tests/support/faults/Child.h"
#include "tests/support/faults/StateSession.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <functional>

namespace faults {
namespace {

using namespace fiscarel;
namespace fs = std::filesystem;

std::string nameIn(const fs::path& stateFile) {
    const auto state = decodeState(readFile(stateFile));
    return state ? state->cases.at(2025).person1.firstName : "unreadable";
}

void expectProblem(StateSession& session, const std::string& reason) {
    const auto& problem = session.store().saveProblem();
    ASSERT_TRUE(problem);
    EXPECT_NE(problem->find(reason), std::string::npos) << *problem;
}

/// An edit does not get on the disk; the old state stays, and after `mend` saving goes on.
void expectSavesOnlyAfter(const std::function<void()>& mend, const fs::path& root,
                          const std::string& reason) {
    InlineQueue queue;
    StateSession session(root, queue);
    for (const char* name : {"Neu", "Neuer"}) {
        enter(session.store(), name);
        EXPECT_FALSE(session.store().flush());
        EXPECT_TRUE(session.store().hasUnsavedChanges());
        expectProblem(session, reason);
        EXPECT_EQ(nameIn(root / "daten.json"), "Alt");
    }
    for (const std::string& name : namesIn(root)) {
        EXPECT_FALSE(name.ends_with(".unfertig")) << "takes room for nothing";
    }
    mend();
    EXPECT_TRUE(session.store().flush());
    EXPECT_FALSE(session.store().saveProblem());
    EXPECT_EQ(nameIn(root / "daten.json"), "Neuer");
}

/// Nothing below a root is changed by a start and an edit, and the user is told why.
void expectHarmless(const fs::path& root, const std::string& name, const std::string& reason) {
    const auto bytes = readFile(root / "daten.json");
    const auto names = namesIn(root);
    const auto backups = namesIn(root / "Sicherungen");
    {
        InlineQueue queue;
        const auto lock = FolderLock::acquire(root);
        EXPECT_TRUE(lock) << "the program starts";
        StateSession session(root, queue);
        EXPECT_EQ(session.store().current().person1.firstName, name);
        enter(session.store(), "Neu");
        EXPECT_FALSE(session.store().flush());
        expectProblem(session, reason);
    }
    EXPECT_EQ(readFile(root / "daten.json"), bytes);
    EXPECT_EQ(namesIn(root), names);
    EXPECT_EQ(namesIn(root / "Sicherungen"), backups);
}

void putOldState(const WorkFolder& work) {
    writeFile(work.stateFile(), encodeState(household("Alt")));
    fs::create_directories(work.backups());
    fs::create_directories(work.documents());
}

class Disk : public ::testing::Test {
  protected:
    void inChild(const std::function<std::string()>& checks) const {
        const ChildRun run = runInChild(checks);
        if (run.skipped) {
            GTEST_SKIP() << "the machine does not allow it";
        }
        EXPECT_TRUE(run.held);
    }

    const WorkFolder work{};
};

TEST_F(Disk, isFull) {
    inChild([&]() -> std::string {
        if (auto reason = mountSmallDisk(work.path(), "512k"); !reason.empty()) {
            return reason;
        }
        putOldState(work);
        const fs::path filler = work.path() / "fill";
        {
            std::ofstream fill(filler, std::ios::binary);
            while (fill << std::string(4096, 'f') << std::flush) {
            }
        }
        expectSavesOnlyAfter([&] { fs::remove(filler); }, work.root(), "kein Platz");
        return {};
    });
}

TEST_F(Disk, takesNoLargerFiles) {
    inChild([&]() -> std::string {
        putOldState(work);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{.rlim_cur = 1000, .rlim_max = limit.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        expectSavesOnlyAfter([&] { setrlimit(RLIMIT_FSIZE, &limit); }, work.root(), "zu gross");
        return {};
    });
}

TEST_F(Disk, isReadOnly) {
    inChild([&]() -> std::string {
        if (auto reason = mountSmallDisk(work.path(), "512k"); !reason.empty()) {
            return reason;
        }
        putOldState(work);
        if (auto reason = makeReadOnly(work.path()); !reason.empty()) {
            return reason;
        }
        expectHarmless(work.root(), "Alt", "lässt kein Schreiben zu");
        expectHarmless(work.path() / "Andere", "", "nicht vorhanden"); // no folder could be made
        return {};
    });
}

TEST_F(Disk, holdsAFolderThatMayNotBeWritten) {
    inChild([&]() -> std::string {
        if (auto reason = becomeOrdinaryUser(work.path()); !reason.empty()) {
            return reason;
        }
        putOldState(work);
        chmod(work.root().c_str(), 0500);
        expectHarmless(work.root(), "Alt", "nicht erlaubt");
        chmod(work.root().c_str(), 0700);
        return {};
    });
}

TEST_F(Disk, holdsAStateFileThatMayNotBeRead) {
    inChild([&]() -> std::string {
        if (auto reason = becomeOrdinaryUser(work.path()); !reason.empty()) {
            return reason;
        }
        putOldState(work);
        const std::string old = readFile(work.stateFile());
        chmod(work.stateFile().c_str(), 0);
        for (int start = 0; start < 5; ++start) {
            InlineQueue queue;
            StateSession session(work.root(), queue, atNoonOrSo + std::int64_t{60} * start);
            EXPECT_TRUE(session.store().awaitsRecovery());
            const auto& error = session.store().loadError();
            EXPECT_TRUE(error && error->find("nicht erlaubt") != std::string::npos);
        }
        EXPECT_EQ(namesIn(work.backups()).size(), 1U) << "kept once";
        for (const char* name : {"Neu", "Neuer"}) {
            EXPECT_TRUE(editAndSave(work.root(), name, atNoonOrSo + 600));
        }
        EXPECT_EQ(nameIn(work.stateFile()), "Neuer");
        int kept = 0;
        for (const std::string& name : namesIn(work.backups())) {
            if (name.starts_with(backup::unreadable)) {
                chmod((work.backups() / name).c_str(), 0600);
                EXPECT_EQ(readFile(work.backups() / name), old);
                ++kept;
            }
        }
        EXPECT_EQ(kept, 1);
        return {};
    });
}

} // namespace
} // namespace faults
