#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace faults {

/// The clock of the tests: the same time all day, in a time zone without offset.
class SetClock final : public fiscarel::Clock {
  public:
    /// 2026-03-01, 14:05:09.
    static constexpr std::int64_t atNoonOrSo = 1772373909;

    explicit SetClock(std::int64_t seconds = atNoonOrSo) : now_{seconds} {}
    fiscarel::Moment now() const override { return now_; }
    fiscarel::LocalTime localTime(fiscarel::Moment moment) const override;

  private:
    fiscarel::Moment now_;
};

/// Timers that run but never call; the tests save on their own.
class IdleTimers final : public fiscarel::Timers {
  public:
    std::unique_ptr<fiscarel::Timer> make(std::function<void()> call) override;
};

/// Does the work at once.
class InlineQueue final : public fiscarel::WorkQueue {
  public:
    using WorkQueue::post;
    void post(std::function<void()> work, std::function<void()> done) override;
    void drain() override {}
    void report(std::function<void()> call) override { call(); }
};

/// A user who chose the canton long ago.
class KeptSettings final : public fiscarel::Settings {
  public:
    std::optional<std::string> text(std::string_view key) const override;
    void setText(std::string_view key, std::string_view value) override;

  private:
    std::map<std::string, std::string, std::less<>> texts_{{"defaultRegion", "SG"}};
};

/// The program on a data folder, from the lock to the store, with real files and without a window.
class StateSession {
  public:
    /// The lock must have been acquired.
    explicit StateSession(const std::filesystem::path& folder, fiscarel::WorkQueue& queue,
                          std::int64_t time = SetClock::atNoonOrSo);

    fiscarel::AppStore& store() { return store_; }
    fiscarel::Persistence& persistence() { return persistence_; }

  private:
    SetClock clock_;
    IdleTimers timers_;
    KeptSettings settings_;
    fiscarel::PosixFiles files_;
    fiscarel::Persistence persistence_;
    fiscarel::AppStore store_;
};

/// What the tests enter.
void enter(fiscarel::AppStore& store, const std::string& firstName);

/// Starts the program on a folder, enters something, saves, and ends; whether it was saved.
bool editAndSave(const std::filesystem::path& folder, const std::string& firstName,
                 std::int64_t time = SetClock::atNoonOrSo);

/// A household with some content, so that its text does not fit into one block.
fiscarel::PersistedState household(const std::string& firstName);

std::string bytesOf(const std::filesystem::path& file);
void putBytes(const std::filesystem::path& file, std::string_view bytes);

/// Names within a folder, hidden ones too, ascending.
std::vector<std::string> namesIn(const std::filesystem::path& folder);
/// The contents of the backups with a label.
std::vector<std::string> backupsLabelled(const std::filesystem::path& root, std::string_view label);

/// A folder of a test, gone at its end.
class WorkFolder {
  public:
    WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder();

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path root() const { return path_ / "Brennick"; }
    std::filesystem::path stateFile() const { return root() / "daten.json"; }
    std::filesystem::path backups() const { return root() / "Sicherungen"; }
    std::filesystem::path documents() const { return root() / "Belege"; }
    /// Empties it.
    void clear() const;

  private:
    std::filesystem::path path_;
};

} // namespace faults
