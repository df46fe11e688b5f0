#include "tests/support/faults/StateSession.h"

#include "TaxCore/demo/DemoData.h"

namespace faults {

using namespace fiscarel;
namespace fs = std::filesystem;

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

PersistedState small(const std::string& firstName) {
    PersistedState state;
    state.cases[2025] = taxcore::TaxCase{.year = 2025};
    state.cases[2025].person1.firstName = firstName;
    return state;
}

std::vector<std::string> backupsLabelled(const fs::path& root, std::string_view label) {
    std::vector<std::string> contents;
    for (const std::string& name : namesIn(root / "Sicherungen")) {
        const auto parsed = BackupName::parse(name);
        if (parsed && parsed->label == label) {
            contents.push_back(readFile(root / "Sicherungen" / name));
        }
    }
    return contents;
}

void WorkFolder::clear() const {
    for (const std::string& name : namesIn(path())) {
        fs::remove_all(path() / name);
    }
}

} // namespace faults
