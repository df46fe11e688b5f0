#include "tests/support/faults/Scenario.h"

#include "Fiscarel_SG/store/WriterThread.h"
#include "tests/support/faults/StateSession.h"

#include <unistd.h>

#include <algorithm>

namespace faults {

using namespace fiscarel;
namespace fs = std::filesystem;

namespace {

/// Writes a labelled backup and goes back to an older state.
bool restore(StateSession& session, WorkQueue& queue) {
    AppStore& store = session.store();
    std::optional<BackupFile> wanted;
    store.writeBackup(backup::beforeReset, [](const auto&) {});
    store.listBackups([&](const std::vector<BackupFile>& all) {
        const auto found = std::ranges::find(all, restoredBackup, &BackupFile::fileName);
        wanted = found == all.end() ? std::nullopt : std::optional(*found);
    });
    queue.drain();
    if (!wanted) {
        return false;
    }
    bool restored = false;
    store.restoreBackup(*wanted, [&](const auto& problem) { restored = !problem; });
    queue.drain();
    return restored;
}

bool import(StateSession& session, WorkQueue& queue, const fs::path& file) {
    bool imported = false;
    session.store().importDocuments({file}, [&](const auto& ids) { imported = !ids.empty(); });
    queue.drain();
    return imported;
}

bool exportTo(StateSession& session, WorkQueue& queue, const fs::path& file) {
    bool exported = false;
    session.store().exportAll(file, [&](const auto& problem) { exported = !problem; });
    queue.drain();
    return exported;
}

bool act(const std::string& name, StateSession& session, WorkQueue& queue, const fs::path& work) {
    if (name == "restore") {
        return restore(session, queue);
    }
    if (name == "import") {
        return import(session, queue, work / documentName);
    }
    if (name == "export") {
        return exportTo(session, queue, work / exportName);
    }
    if (name == "reset") {
        session.store().resetYear();
        queue.drain();
        return !session.store().loadError();
    }
    enter(session.store(), enteredName);
    return true;
}

} // namespace

int runScenario(const std::string& name, const fs::path& work) {
    const fs::path root = work / "Brennick";
    const auto lock = FolderLock::acquire(root);
    if (!lock) {
        return static_cast<int>(Outcome::refused);
    }
    if (name == holdScenario) {
        char byte = 'h';
        (void)!::write(STDOUT_FILENO, &byte, 1);
        (void)!::read(STDIN_FILENO, &byte, 1);
        return static_cast<int>(Outcome::saved);
    }
    WriterThread queue([] {});
    StateSession session(root, queue);
    const int start = session.store().awaitsRecovery() ? startedUnusable : 0;
    const bool done = act(name, session, queue, work);
    const bool saved = session.store().flush();
    return start
           + static_cast<int>(!done   ? Outcome::notDone
                              : saved ? Outcome::saved
                                      : Outcome::notSaved);
}

} // namespace faults
