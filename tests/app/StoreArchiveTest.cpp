#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/store/WriterThread.h"
#include "tests/app/ArchiveSupport.h"
#include "tests/app/FailingFiles.h"
#include "tests/support/FakeServices.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

namespace fiscarel::testing {
namespace {

namespace fs = std::filesystem;

/// A household on a computer of its own.
struct Computer {
    explicit Computer(const fs::path& root, bool demo = false)
        : persistence(files, clock, root), store({.persistence = demo ? nullptr : &persistence,
                                                  .writer = writer,
                                                  .clock = clock,
                                                  .timers = timers,
                                                  .settings = settings},
                                                 LaunchArguments{.demo = demo}) {}

    /// Lets the main thread run until the work is done.
    void waitFor(const bool& isDone) {
        while (!isDone) {
            writer.deliver();
            std::this_thread::yield();
        }
    }
    AppStore::Archived exported(const fs::path& file, ArchiveProgress progress = {}) {
        return run(&AppStore::exportArchive, file, std::move(progress));
    }
    AppStore::Archived imported(const fs::path& file, ArchiveProgress progress = {}) {
        return run(&AppStore::importArchive, file, std::move(progress));
    }
    AppStore::Archived run(void (AppStore::*work)(const fs::path&, ArchiveProgress,
                                                  AppStore::ArchiveDone),
                           const fs::path& file, ArchiveProgress progress) {
        AppStore::Archived outcome;
        bool isDone = false;
        (store.*work)(file, std::move(progress), [&](AppStore::Archived archived) {
            outcome = std::move(archived);
            isDone = true;
        });
        waitFor(isDone);
        return outcome;
    }

    FailingFiles files;
    SystemClock clock;
    FakeTimers timers;
    MemorySettings settings;
    WriterThread writer{[] {}};
    Persistence persistence;
    AppStore store;
};

class StoreArchive : public ::testing::Test {
  protected:
    /// A computer whose household has one document.
    void fill(Computer& computer) {
        writeFile(root_ / "lohn.pdf", noise(500'000));
        computer.store.importDocuments({root_ / "lohn.pdf"});
        computer.writer.drain();
        computer.store.edit("Angabe",
                            [](taxcore::TaxCase& taxCase) { taxCase.municipality = "Wartau"; });
        ASSERT_TRUE(computer.store.flush());
        ASSERT_EQ(computer.store.documents().size(), 1U);
    }

    TemporaryFolder root_;
    const fs::path archive_ = root_ / archiveFileName;
};

TEST_F(StoreArchive, movesAHousehold) {
    Computer old(root_.folder("alt"));
    fill(old);
    const auto written = old.exported(archive_);
    ASSERT_TRUE(written) << written.error().message;
    EXPECT_EQ(*written, ArchiveReport{.documents = 1});

    Computer fresh(root_.folder("neu"));
    const auto read = fresh.imported(archive_);
    ASSERT_TRUE(read) << read.error().message;
    EXPECT_EQ(*read, ArchiveReport{.documents = 1});
    EXPECT_EQ(fresh.store.snapshot(), old.store.snapshot());
    const auto file = fresh.store.fileOf(fresh.store.documents().front());
    ASSERT_TRUE(file);
    EXPECT_EQ(readFile(*file), noise(500'000));

    fresh.store.flush();
    const auto backups = fresh.persistence.backups();
    EXPECT_TRUE(std::ranges::any_of(backups, [](const BackupFile& backup) {
        return backup.name.label == backup::beforeImport;
    }));
    const auto saved = fresh.persistence.read(fresh.persistence.stateFile());
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, old.store.snapshot());
}

TEST_F(StoreArchive, tellsTheMainThreadAndHearsIt) {
    Computer computer(root_.folder("alt"));
    fill(computer);
    const auto main = std::this_thread::get_id();
    std::atomic<bool> heard = false;
    // The reading waits until the main thread has answered, or the work might be done before.
    computer.files.beforeRead = [&, first = true]() mutable {
        if (!std::exchange(first, false)) {
            while (!heard) {
                std::this_thread::yield();
            }
        }
    };
    const auto stop = [&](std::uint64_t done, std::uint64_t total) {
        EXPECT_EQ(std::this_thread::get_id(), main);
        EXPECT_LT(done, total);
        EXPECT_FALSE(heard) << "called again after it said no";
        heard = true;
        return false;
    };
    const auto written = computer.exported(archive_, stop);
    ASSERT_FALSE(written);
    EXPECT_TRUE(written.error().isStopped);
    EXPECT_FALSE(fs::exists(archive_));
}

TEST_F(StoreArchive, keepsTheStateWhenAnArchiveIsNoGoodOrNoBackupCanBeMade) {
    Computer computer(root_.folder("alt"));
    fill(computer);
    const PersistedState before = computer.store.snapshot();
    const Contents documents = contentsOf(computer.persistence.documentsFolder());
    const Contents backups = contentsOf(computer.persistence.backupsFolder());
    writeFile(archive_, "kein Archiv");
    EXPECT_FALSE(computer.imported(archive_));
    EXPECT_EQ(contentsOf(computer.persistence.backupsFolder()), backups);

    writeFile(archive_,
              zipOf({{"daten.json", encodeState(stateWith({"a.txt"}))}, {"Belege/a.txt", "a"}}));
    fs::remove_all(computer.persistence.backupsFolder());
    const auto read = computer.imported(archive_);
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.error().message.starts_with("Es liess sich keine Sicherung anlegen"))
        << read.error().message;
    EXPECT_EQ(contentsOf(computer.persistence.documentsFolder()), documents);
    EXPECT_EQ(computer.store.snapshot(), before);
}

TEST_F(StoreArchive, leavesTheDemoHouseholdAlone) {
    Computer demo(root_.folder("demo"), true);
    EXPECT_EQ(demo.exported(archive_).error().message,
              "Der Demohaushalt lässt sich nicht exportieren.");
    EXPECT_EQ(demo.imported(archive_).error().message,
              "Der Demohaushalt lässt sich nicht ersetzen.");
    std::optional<std::string> said;
    demo.store.exportAll(root_ / "alles.json", [&](const auto& problem) { said = problem; });
    EXPECT_EQ(said, "Der Demohaushalt lässt sich nicht exportieren.");
    demo.store.inspectBackup({}, [&](const AppStore::Inspected& content) {
        ASSERT_FALSE(content);
        said = content.error();
    });
    EXPECT_EQ(said, "Der Demohaushalt hat keine Sicherungen.");
}

} // namespace
} // namespace fiscarel::testing
