#include "tests/support/faults/StateSession.h"

#include "TaxCore/demo/DemoData.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>

namespace faults {

using namespace fiscarel;
namespace fs = std::filesystem;

namespace {

class IdleTimer final : public Timer {
  public:
    void start(std::chrono::milliseconds /*after*/) override { runs_ = true; }
    void stop() override { runs_ = false; }
    bool isRunning() const override { return runs_; }

  private:
    bool runs_ = false;
};

} // namespace

LocalTime SetClock::localTime(Moment moment) const {
    using namespace std::chrono;
    const sys_seconds time{seconds(moment.seconds)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    return {taxcore::Date::of(static_cast<int>(date.year()),
                              static_cast<int>(static_cast<unsigned>(date.month())),
                              static_cast<int>(static_cast<unsigned>(date.day())))
                .value_or(taxcore::Date{}),
            static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

std::unique_ptr<Timer> IdleTimers::make(std::function<void()> /*call*/) {
    return std::make_unique<IdleTimer>();
}

void InlineQueue::post(std::function<void()> work, std::function<void()> done) {
    work();
    done();
}

std::optional<std::string> KeptSettings::text(std::string_view key) const {
    const auto found = texts_.find(key);
    return found == texts_.end() ? std::nullopt : std::optional(found->second);
}

void KeptSettings::setText(std::string_view key, std::string_view value) {
    texts_.insert_or_assign(std::string(key), std::string(value));
}

StateSession::StateSession(const fs::path& folder, WorkQueue& queue, std::int64_t time)
    : clock_(time), persistence_(files_, clock_, folder), store_({.persistence = &persistence_,
                                                                  .writer = queue,
                                                                  .clock = clock_,
                                                                  .timers = timers_,
                                                                  .settings = settings_},
                                                                 LaunchArguments{}) {}

void enter(AppStore& store, const std::string& firstName) {
    store.edit("Vorname",
               [&](taxcore::TaxCase& taxCase) { taxCase.person1.firstName = firstName; });
}

bool editAndSave(const fs::path& folder, const std::string& firstName, std::int64_t time) {
    InlineQueue queue;
    const auto lock = FolderLock::acquire(folder);
    if (!lock) {
        return false;
    }
    StateSession session(folder, queue, time);
    enter(session.store(), firstName);
    return session.store().flush();
}

PersistedState household(const std::string& firstName) {
    PersistedState state;
    for (const int year : taxcore::RuleBook::supportedYears) {
        state.cases[year] = taxcore::DemoData::household(taxcore::TaxRegion::stGallen, year);
        state.cases[year].person1.firstName = firstName;
    }
    state.transferChecked[2025] = {"1"};
    return state;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary | std::ios::ate);
    std::string bytes(in ? static_cast<std::size_t>(in.tellg()) : 0, '\0');
    in.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return in ? bytes : std::string();
}

void putBytes(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> backupsLabelled(const fs::path& root, std::string_view label) {
    std::vector<std::string> contents;
    for (const std::string& name : namesIn(root / "Sicherungen")) {
        const auto parsed = BackupName::parse(name);
        if (parsed && parsed->label == label) {
            contents.push_back(bytesOf(root / "Sicherungen" / name));
        }
    }
    return contents;
}

WorkFolder::WorkFolder() {
    // In memory where there is such a folder: syncing costs nothing there.
    const bool inMemory = std::getenv("TMPDIR") == nullptr && access("/dev/shm", W_OK) == 0;
    const fs::path above = inMemory ? "/dev/shm" : fs::temp_directory_path();
    std::string name = (above / "fiscarel-faults-XXXXXX").string();
    path_ = mkdtemp(name.data());
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void WorkFolder::clear() const {
    for (const std::string& name : namesIn(path_)) {
        fs::remove_all(path_ / name);
    }
}

} // namespace faults
