#include "tests/cloud/CloudSession.h"

#include "Fiscarel_SG/cloud/ReceiptTidying.h"
#include "Fiscarel_SG/cloud/Sealing.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace fiscarel::testing {

namespace fs = std::filesystem;

namespace {

// Requests that get lost are waited for; others must not be given up where a test machine is slow.
constexpr std::chrono::milliseconds impatient{400};
constexpr std::chrono::milliseconds patient{5'000};

} // namespace

CloudSession::CloudSession(RunningServer& server, std::uint64_t seed)
    : server_(server), seed_(seed), draw_(seed), edits_(seed + 1'000'000),
      email_("sitzung" + std::to_string(seed) + "@example.ch"),
      sides_{Side("a", clock_, server.port(), seed * 2 + 1),
             Side("b", clock_, server.port(), seed * 2 + 2)} {}

std::vector<std::string> CloudSession::run() {
    if (!begin()) {
        wrong("the machines did not come together");
        return wrong_;
    }
    for (Side& side : sides_) {
        side.line.faultsPerHundred = static_cast<int>(below(50));
        side.machine.patience = impatient;
        restart(side);
    }
    for (std::size_t steps = 60 + below(80); steps > 0; --steps) {
        step();
    }
    for (Side& side : sides_) {
        side.line.faultsPerHundred = 0;
        side.line.isOffline = false;
        side.machine.patience = patient;
        restart(side);
    }
    if (comeToRest()) {
        compare();
        compareFiles();
        compareServer();
    }
    for (Side& side : sides_) {
        for (std::size_t i = 0; i < FaultProxy::faults; ++i) {
            counts_.faults.at(i) += side.line.fired.at(i);
        }
    }
    counts_.edits = journal_.size();
    counts_.conflicts = journal_.conflicts();
    return wrong_;
}

/// Both signed in, with one state; the second may have had entries of its own.
bool CloudSession::begin() {
    auto& [a, b] = sides_;
    const auto code = [this] { return server_.latestCode(email_); };
    journal_.beforeJoining = true;
    for (Side* side : {&a, &b}) {
        side->machine.worked = [this, side] { observe(*side); };
        side->machine.start();
        for (std::size_t i = below(6); i > 0; --i) {
            editSomething(*side);
        }
    }
    journal_.forgetRemovals(2026); // may have been added on both sides
    const std::string key = a.machine.setUp(email_, code);
    if (key.empty() || !b.machine.join(email_, code, key)) {
        return false;
    }
    journal_.beforeJoining = false;
    for (Side* side : {&a, &b, &a, &b}) {
        if (!side->machine.settle() || !side->machine.check()) {
            return false;
        }
        observe(*side);
    }
    return true;
}

void CloudSession::step() {
    Side& side = sides_.at(below(2));
    const std::size_t what = below(100);
    if (what < 28) {
        editSomething(side);
    } else if (what < 48) {
        side.machine.timers->advance(std::chrono::milliseconds(300 + below(4'000)));
    } else if (what < 80) {
        pump();
    } else if (what < 86) {
        side.machine.sync->checkNow();
    } else if (what < 88) {
        side.line.isOffline = !side.line.isOffline;
        count(side.line.isOffline ? "offline phases" : "back online");
    } else if (what < 91) {
        restart(side);
    } else if (what < 93) {
        crash(side);
    } else if (what < 97) {
        settleSomething(side);
    } else if (seed_ % 8 == 3) {
        restoreServer();
    }
    for (Side& each : sides_) {
        observe(each);
    }
}

// Edits.

template <class Act>
void CloudSession::act(Side& side, Act act) {
    const PersistedState before = side.machine.state();
    act(*side.machine.store);
    journal_.record(side.machine.name, before, side.machine.state(), [&](const std::string& name) {
        return commonStates(sides_.at(name == "a" ? 0 : 1).machine);
    });
    observe(side);
}

void CloudSession::editSomething(Side& side) {
    const std::size_t what = below(40);
    if (what < 11) {
        editCase(side);
    } else if (what < 22) {
        editMeetingPlace(side);
    } else if (what < 25) {
        tick(side);
    } else if (what < 29) {
        addDocument(side);
    } else if (what < 32) {
        changeDocument(side, false);
    } else if (what < 34) {
        changeDocument(side, true);
    } else if (what < 35) {
        addYear(side);
    } else if (what < 39) {
        act(side, [&](AppStore& store) { count(store.undo() ? "undone" : "nothing to undo"); });
    } else {
        act(side, [&](AppStore& store) { store.redo(); });
    }
}

void CloudSession::editCase(Side& side) {
    act(side, [&](AppStore& store) {
        for (int tries = 0; tries < 5; ++tries) {
            PersistedState drawn;
            drawn.cases[store.year()] = store.current();
            edits_.edit(drawn, 1 + below(3));
            const auto found = drawn.cases.find(store.year());
            if (found != drawn.cases.end() && found->second != store.current()) {
                store.setCurrent(found->second);
                store.endMerging();
                return;
            }
        }
    });
}

/// Places that both machines know, so that they meet.
void CloudSession::editMeetingPlace(Side& side) {
    act(side, [&](AppStore& store) {
        taxcore::TaxCase changed = store.current();
        auto& debts = changed.debts;
        const std::size_t what = below(10);
        if (what < 2) {
            changed.cash = static_cast<int>(below(1'000));
        } else if (what < 4) {
            changed.registerNumber = std::to_string(below(1'000));
        } else if (debts.size() < 2 || what < 5) {
            debts.insert(debts.begin() + static_cast<std::ptrdiff_t>(below(debts.size() + 1)), {});
        } else if (what < 6) {
            debts.erase(debts.begin() + static_cast<std::ptrdiff_t>(below(debts.size())));
        } else if (what < 7) {
            std::swap(debts.front(), debts.back());
        } else {
            debts[below(debts.size())].amount = static_cast<int>(below(1'000));
        }
        store.setCurrent(std::move(changed));
        store.endMerging();
    });
}

void CloudSession::tick(Side& side) {
    act(side, [&](AppStore& store) {
        const std::string row = std::to_string(below(6));
        const auto& ticks = store.transferChecked();
        const auto ofYear = ticks.find(store.year());
        const bool was = ofYear != ticks.end() && ofYear->second.contains(row);
        store.setTransferChecked(store.year(), row, !was);
    });
}

std::string CloudSession::randomBytes() {
    std::string bytes(1 + below(3'000), '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(draw_()); });
    return bytes;
}

void CloudSession::addDocument(Side& side) {
    const std::string content = randomBytes();
    const Uuid id =
        side.machine.addDocument("Beleg " + std::to_string(below(100)) + ".pdf", content);
    contents_[id] = content;
    PersistedState without = side.machine.state();
    std::erase_if(without.documents, [&](const auto& document) { return document.id == id; });
    journal_.record(side.machine.name, without, side.machine.state(),
                    [](const std::string&) { return std::vector<SharedStatePointer>{}; });
    count("documents added");
}

void CloudSession::changeDocument(Side& side, bool deletes) {
    const auto& documents = side.machine.state().documents;
    if (documents.empty()) {
        return;
    }
    const Uuid id = documents[below(documents.size())].id;
    act(side, [&](AppStore& store) {
        if (deletes) {
            store.deleteDocument(id);
            deletedOnce_.insert(id);
            count("documents deleted");
        } else {
            store.updateDocument(id, [&](StoredDocument& document) {
                (below(2) == 0 ? document.title : document.note) = std::to_string(below(1'000));
            });
        }
    });
}

/// On both machines at once it is as with no common past.
void CloudSession::addYear(Side& side) {
    const int year = 2025 + static_cast<int>(below(2));
    if (!side.machine.state().cases.contains(year)) {
        yearsAdded_[year].insert(side.machine.name);
        if (yearsAdded_[year].size() > 1) {
            journal_.forgetRemovals(year);
        }
        count("years added");
    }
    act(side, [&](AppStore& store) { store.setYear(year); });
}

// What happens to them.

/// A moment passes: some of what waits is done, some of what was sent arrives.
void CloudSession::pump() {
    for (std::size_t turns = 1 + below(10); turns > 0; --turns) {
        passTime(std::chrono::milliseconds(below(3)));
        for (Side& side : sides_) {
            for (std::size_t pieces = below(5); pieces > 0; --pieces) {
                side.machine.workOne(below(2) == 0);
            }
        }
    }
}

void CloudSession::observe(Side& side) {
    if (side.machine.sync != nullptr) {
        journal_.shown(side.machine.status().conflicts);
    }
    const PersistedState& state = side.machine.state();
    if (!side.machine.store->hasUnsavedChanges()) {
        side.mayBeOnDisk = {{state, journal_.size()}};
    } else if (side.mayBeOnDisk.empty() || side.mayBeOnDisk.back().first != state) {
        side.mayBeOnDisk.emplace_back(state, journal_.size());
    }
}

void CloudSession::restart(Side& side) {
    count("restarts");
    const PersistedState before = side.machine.state();
    side.machine.quit();
    if (seed_ % 8 == 5 && below(2) == 0) {
        fs::remove(side.machine.root() / "Cloud" / "basis.json");
        fs::remove(side.machine.root() / "Cloud" / "basis-2.json");
        journal_.forgetRemovals();
        count("common states lost");
    }
    side.machine.start();
    if (side.machine.state() != before) {
        wrong("a restart in order changed the state");
    }
}

void CloudSession::crash(Side& side) {
    count("kills");
    side.machine.crash();
    side.machine.start();
    const auto onDisk = std::find_if(
        side.mayBeOnDisk.rbegin(), side.mayBeOnDisk.rend(), [&](const auto& candidate) {
            PersistedState found = candidate.first; // with the case that the selected year gets
            const int year = side.machine.store->year();
            found.cases.try_emplace(year, side.machine.store->current());
            return found == side.machine.state();
        });
    if (onDisk == side.mayBeOnDisk.rend()) {
        wrong("a killed program lost more than what was not saved yet");
    } else {
        journal_.excuse(side.machine.name, onDisk->second);
    }
    side.mayBeOnDisk.clear();
}

void CloudSession::settleSomething(Side& side) {
    const CloudStatus& status = side.machine.status();
    if (status.question) {
        const bool takesOver = below(2) == 0;
        if (!takesOver) {
            journal_.forgetRemovals();
        }
        count(takesOver ? "losses taken over" : "losses refused");
        side.machine.sync->answerQuestion(takesOver);
    } else if (!status.conflicts.empty()) {
        const std::size_t index = below(status.conflicts.size());
        const bool takesOther = below(2) == 0;
        count(takesOther ? "conflicts settled for theirs" : "conflicts settled for ours");
        journal_.shown(status.conflicts);
        act(side, [&](AppStore&) { side.machine.sync->settleConflict(index, takesOther); });
    }
}

/// The first time a copy is made, the next time it takes the place of the server's folder.
void CloudSession::restoreServer() {
    const fs::path copy = fs::path(server_.data().string() + ".copy");
    server_.end();
    if (hasServerCopy_) {
        fs::remove_all(server_.data());
        fs::rename(copy, server_.data());
        journal_.forgetRemovals();
        count("servers restored from an old copy");
    } else {
        fs::remove_all(copy);
        fs::copy(server_.data(), copy, fs::copy_options::recursive);
    }
    hasServerCopy_ = !hasServerCopy_;
    server_.start();
}

std::vector<SharedStatePointer> CloudSession::commonStates(const CloudMachine& machine) {
    const auto kept = machine.keychain.items.find(CloudKeychain::lastStateAccount);
    return kept == machine.keychain.items.end()
               ? std::vector<SharedStatePointer>{}
               : CommonStates::load(CloudFolder(*machine.fileSystem, machine.root() / "Cloud"),
                                    std::string(kept->second.begin(), kept->second.end()),
                                    sha256(encodeState(machine.state())))
                     .states;
}

// The end.

bool CloudSession::comeToRest() {
    auto& [a, b] = sides_;
    for (int round = 0; round < 12; ++round) {
        for (Side& side : sides_) {
            if (!side.machine.settle() || !side.machine.check()) {
                wrong(side.machine.name + " does not come to rest");
                return false;
            }
            for (int answers = 0; side.machine.status().question && answers < 5; ++answers) {
                settleSomething(side);
                side.machine.check();
            }
            observe(side);
        }
        const bool isQuiet = a.machine.status().compared && a.machine.state() == b.machine.state()
                             && !a.machine.status().problem && !b.machine.status().problem;
        if (isQuiet && round > 1) {
            return true;
        }
    }
    for (const Side& side : sides_) {
        wrong(side.machine.name + ": phase "
              + std::to_string(static_cast<int>(side.machine.status().phase)) + ", "
              + side.machine.status().problem.value_or("no problem"));
    }
    return true;
}

void CloudSession::compare() {
    const auto& [a, b] = sides_;
    if (a.machine.state() != b.machine.state()) {
        wrong("the states differ");
    }
    for (const std::string& edit : journal_.lost(a.machine.state())) {
        wrong("lost: " + edit);
    }
    for (const Side& side : sides_) {
        const auto common = commonStates(side.machine);
        const bool hasIt = std::ranges::any_of(
            common, [&](const auto& state) { return state->state == side.machine.state(); });
        if (!hasIt) {
            wrong(side.machine.name + " does not know the common state");
        }
    }
}

void CloudSession::compareFiles() {
    for (const StoredDocument& document : sides_[0].machine.state().documents) {
        for (const Side& side : sides_) {
            const auto file = side.machine.store->fileOf(document);
            if (!file) {
                wrong(side.machine.name + " lacks the file of " + document.id.toString()
                      + (deletedOnce_.contains(document.id) ? ", once deleted" : ""));
            } else if (readFile(*file) != contents_.at(document.id)) {
                wrong(side.machine.name + " has another file of " + document.id.toString());
            }
        }
    }
}

/// In time nothing lies on the server any more that belongs to nobody.
void CloudSession::compareServer() {
    CloudMachine& machine = sides_[0].machine;
    for (int check = 0; check < 2; ++check) {
        clock_.moment.seconds += orphanSeconds;
        machine.check();
    }
    CloudAPI api(sides_[0].line.base());
    std::optional<std::size_t> listed;
    api.receipts(machine.keychain.token().value_or(""),
                 [&](const tl::expected<std::vector<CloudAPI::Receipt>, CloudAPI::Failure>& all) {
                     listed = all ? all->size() : 0;
                 });
    waitFor([&] { return listed.has_value(); });
    std::size_t files = 0;
    for (const StoredDocument& document : machine.state().documents) {
        files += machine.store->fileOf(document) ? 1U : 0U;
    }
    if (listed != files) {
        wrong("the server has " + std::to_string(listed.value_or(0)) + " files for "
              + std::to_string(files) + " documents");
    }
}

} // namespace fiscarel::testing
