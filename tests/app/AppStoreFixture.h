#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace fiscarel {

/// The store on a folder of its own, with a clock, timers and a queue that the test moves.
class AppStoreTest : public ::testing::Test {
  protected:
    testing::TemporaryFolder folder;
    PosixFiles files;
    testing::FakeClock clock;
    testing::FakeTimers timers;
    testing::InlineQueue queue;
    testing::MemorySettings settings;
    std::unique_ptr<Persistence> persistence;
    std::unique_ptr<AppStore> store;
    int saves = 0;
    int calculations = 0;

    std::filesystem::path root() const { return folder.path() / "Brennick"; }
    std::filesystem::path stateFile() const { return root() / "daten.json"; }

    AppStore::Services services() { return {persistence.get(), queue, clock, timers, settings}; }
    /// Starts the program on the folder.
    AppStore& start(LaunchArguments launch = {}) {
        store.reset();
        persistence = std::make_unique<Persistence>(files, clock, root());
        store = std::make_unique<AppStore>(services(), launch);
        saves = 0;
        calculations = 0;
        store->onLocalSave = [this] { ++saves; };
        QObject::connect(store.get(), &AppStore::resultChanged, [this] { ++calculations; });
        return *store;
    }
    void pass(std::chrono::milliseconds time) { timers.advance(time); }
    /// Lets what is pending be computed and saved.
    void settle() { pass(std::chrono::seconds(1)); }

    static void setCash(AppStore& store, int francs) {
        store.edit("Bargeld", [&](taxcore::TaxCase& taxCase) { taxCase.cash = francs; });
    }
    bool hasBackup(std::string_view label) {
        return std::ranges::any_of(
            testing::namesIn(persistence->backupsFolder()),
            [&](const std::string& name) { return name.starts_with(label); });
    }
};

} // namespace fiscarel
