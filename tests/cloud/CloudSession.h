#pragma once

#include "tests/cloud/CloudMachine.h"
#include "tests/cloud/EditJournal.h"
#include "tests/cloud/FaultProxy.h"
#include "tests/cloud/RandomEdits.h"
#include "tests/support/RunningServer.h"

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel::testing {

/// What happened in random sessions, for the record.
struct SessionCounts {
    FaultProxy::Counts faults{};
    std::map<std::string, std::size_t> events;
    std::size_t edits = 0;
    std::size_t conflicts = 0;
};

/// Two machines of a household and a random time together: edits of all kinds, bad lines, programs
/// that end or are killed, a server restored from an old copy. The same seed makes the same
/// choices.
class CloudSession {
  public:
    CloudSession(RunningServer& server, std::uint64_t seed);

    /// Lives it and lets both come to rest; what is wrong in the end, in words.
    std::vector<std::string> run();
    const SessionCounts& counts() const { return counts_; }

  private:
    struct Side {
        Side(std::string name, FakeClock& clock, int port, std::uint64_t seed)
            : line(port, seed), machine(std::move(name), line.base(), clock) {}
        FaultProxy line;
        CloudMachine machine;
        /// Since its disk was last known, with how many edits of the journal are in it.
        std::vector<std::pair<PersistedState, std::size_t>> mayBeOnDisk{};
    };

    bool begin();
    void step();
    void editSomething(Side& side);
    void editCase(Side& side);
    void editMeetingPlace(Side& side);
    void tick(Side& side);
    void addDocument(Side& side);
    void changeDocument(Side& side, bool deletes);
    void addYear(Side& side);
    template <class Act>
    void act(Side& side, Act act);
    void pump();
    void observe(Side& side);
    void restart(Side& side);
    void crash(Side& side);
    void settleSomething(Side& side);
    void restoreServer();
    bool comeToRest();
    void compare();
    void compareFiles();
    void compareServer();
    /// The states of the cloud that a machine knows to come from.
    static std::vector<SharedStatePointer> commonStates(const CloudMachine& machine);
    void wrong(std::string what) { wrong_.push_back(std::move(what)); }
    void count(const std::string& event) { ++counts_.events[event]; }
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(draw_()) % limit; }
    std::string randomBytes();

    RunningServer& server_;
    const std::uint64_t seed_;
    std::mt19937_64 draw_;
    RandomEdits edits_;
    FakeClock clock_;
    std::string email_;
    std::array<Side, 2> sides_;
    EditJournal journal_;
    std::map<Uuid, std::string> contents_;
    std::set<Uuid> deletedOnce_;
    std::map<int, std::set<std::string>> yearsAdded_;
    bool hasServerCopy_ = false;
    SessionCounts counts_;
    std::vector<std::string> wrong_;
};

} // namespace fiscarel::testing
