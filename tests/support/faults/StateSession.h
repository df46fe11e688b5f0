#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace faults {

using fiscarel::testing::FakeClock;
using fiscarel::testing::InlineQueue;
using fiscarel::testing::namesIn;
using fiscarel::testing::readFile;
using fiscarel::testing::writeFile;

/// When the tests run: 2026-03-01, 14:05:09 where the user is.
inline constexpr std::int64_t atNoonOrSo = 1'772'370'309;
/// The backup of that day.
inline constexpr const char* todaysBackup = "daten-2026-03-01.json";

/// The program on a data folder, from the lock to the store, with real files and without a window.
class StateSession {
  public:
    /// The lock must have been acquired.
    explicit StateSession(const std::filesystem::path& folder, fiscarel::WorkQueue& queue,
                          std::int64_t time = atNoonOrSo);

    fiscarel::AppStore& store() { return store_; }
    fiscarel::Persistence& persistence() { return persistence_; }

  private:
    FakeClock clock_;
    fiscarel::testing::FakeTimers timers_;
    fiscarel::testing::MemorySettings settings_{{{"defaultRegion", "SG"}}};
    fiscarel::PosixFiles files_;
    fiscarel::Persistence persistence_;
    fiscarel::AppStore store_;
};

/// What the tests enter.
void enter(fiscarel::AppStore& store, const std::string& firstName);

/// Starts the program on a folder, enters something, saves, and ends; whether it was saved.
bool editAndSave(const std::filesystem::path& folder, const std::string& firstName,
                 std::int64_t time = atNoonOrSo);

/// A household with some content, so that its text does not fit into one block.
fiscarel::PersistedState household(const std::string& firstName);

/// One empty year of somebody.
fiscarel::PersistedState small(const std::string& firstName);

/// The contents of the backups with a label.
std::vector<std::string> backupsLabelled(const std::filesystem::path& root, std::string_view label);

/// A folder of a test with the program's folder in it.
class WorkFolder : public fiscarel::testing::TemporaryFolder {
  public:
    std::filesystem::path root() const { return path() / "Brennick"; }
    std::filesystem::path stateFile() const { return root() / "daten.json"; }
    std::filesystem::path backups() const { return root() / "Sicherungen"; }
    std::filesystem::path documents() const { return root() / "Belege"; }
    /// Empties it.
    void clear() const;
};

} // namespace faults
