// Every file system call of the program fails once, or is the last one before it is killed; what
// is on the disk afterwards is the old state or the new one.

#include "tests/support/faults/Scenario.h"
#include "tests/support/faults/StateDriverClient.h"
#include "tests/support/faults/StateSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <tuple>

namespace faults {
namespace {

using namespace fiscarel;
namespace fs = std::filesystem;

constexpr int year = 2025;
const std::string unreadable = "{ \"cases\": { \"2025\": ";
const std::string documentBytes(200'000, 'd');

PersistedState named(PersistedState state, const std::string& name) {
    state.cases[year].person1.firstName = name;
    return state;
}

/// One way of using the program, with what is there before.
struct Situation {
    std::string name;
    std::string scenario;
    std::string old; ///< bytes of the state file; empty: none
    bool manyBackups = false;

    void prepare(const WorkFolder& work) const;
    bool isNew(const PersistedState& state) const;
    /// Whether the old state disappears from the state file, so that a backup must hold it.
    bool replaces() const {
        return scenario == "restore" || scenario == "reset" || old == unreadable;
    }
};

/// The content of the backup of a day before the test.
std::string ofDay(const std::string& name) {
    static std::map<std::string, std::string> made;
    std::string& bytes = made[name];
    if (bytes.empty()) {
        bytes = encodeState(small(name));
    }
    return bytes;
}

std::vector<std::string> daysBefore() {
    std::vector<std::string> names;
    for (int day = 1; day <= 31; ++day) {
        const LocalTime time = FakeClock().localTime({atNoonOrSo - 86'400L * day});
        names.push_back(BackupName::daily(time).fileName());
    }
    return names; // the newest first
}

/// Written in the very second in which the test restores.
const std::string sameSecond = "vor-wiederherstellung-2026-03-01-140509.json";

void Situation::prepare(const WorkFolder& work) const {
    work.clear();
    if (!old.empty()) {
        writeFile(work.stateFile(), old);
    }
    if (manyBackups) {
        for (const std::string& day : daysBefore()) {
            writeFile(work.backups() / day, ofDay(day));
        }
    }
    if (old == unreadable) {
        writeFile(work.backups() / todaysBackup, ofDay(todaysBackup));
    }
    if (scenario == "restore") {
        writeFile(work.backups() / restoredBackup, ofDay(restoredBackup));
        writeFile(work.backups() / sameSecond, ofDay(sameSecond));
    }
    writeFile(work.path() / documentName, documentBytes);
    if (scenario == "export") {
        writeFile(work.path() / exportName, "an older export");
    }
}

bool Situation::isNew(const PersistedState& state) const {
    if (scenario == "restore") {
        return state == small(restoredBackup);
    }
    if (scenario == "reset") {
        PersistedState reset = household("Alt");
        reset.cases[year] = {.year = year};
        return state.cases == reset.cases;
    }
    if (scenario == "import") {
        PersistedState without = state;
        without.documents.clear();
        return encodeState(without) == old && state.documents.size() == 1
               && state.documents.front().year == year
               && state.documents.front().title == "Lohnausweis 2025";
    }
    if (scenario == "export") {
        return encodeState(state) == old;
    }
    const auto before = decodeState(old);
    return state == (before ? named(*before, enteredName) : small(enteredName));
}

std::vector<Situation> situations() {
    const std::string old = encodeState(household("Alt"));
    return {{"firstSave", "save", {}, false},
            {"saveWithBackups", "save", old, true},
            {"afterUnreadable", "save", unreadable, false},
            {"backupAndRestore", "restore", old, false},
            {"importDocument", "import", old, false},
            {"exportAll", "export", old, false},
            {"resetYear", "reset", old, false}};
}

void PrintTo(const Situation& situation, std::ostream* out) { *out << situation.name; }

struct NamedFault {
    std::string name;
    Fault fault;
};

void PrintTo(const NamedFault& kind, std::ostream* out) { *out << kind.name; }

std::vector<NamedFault> kinds() {
    return {
        {"oneEIO", {Mode::failOnce, EIO, {}}},        {"oneEACCES", {Mode::failOnce, EACCES, {}}},
        {"brokenDisk", {Mode::failOn, EIO, {}}},      {"fullDisk", {Mode::full, ENOSPC, {}}},
        {"killedBefore", {Mode::killBefore, {}, {}}}, {"killedAfter", {Mode::killAfter, {}, {}}}};
}

/// What a run left, judged.
class Aftermath {
  public:
    Aftermath(const Situation& situation, const WorkFolder& work, const DriverRun& run, Mode mode)
        : situation_(situation), work_(work), killed_(run.code == int(Outcome::killed)),
          unusable_(!killed_ && run.code >= startedUnusable),
          saved_(!killed_ && run.code % 10 == 0), refused_(!killed_ && run.code % 10 == 2),
          mode_(mode) {}

    void judge() {
        judgeState();
        judgeBackups();
        judgeDocuments();
        judgeExport();
        judgeNextStart();
    }

  private:
    void judgeState() {
        const std::string bytes = readFile(work_.stateFile());
        const auto state = decodeState(bytes);
        const bool isOld = bytes == situation_.old;
        const bool isNew = state && situation_.isNew(*state);
        // Who goes on after a failed start begins anew.
        const bool isAnew = state && unusable_ && begunAnew(*state);
        EXPECT_TRUE(isOld || isNew || isAnew) << bytes.substr(0, 200);
        if (saved_) {
            EXPECT_TRUE(isNew || isAnew) << "reported as saved";
        }
        if (!isOld && !situation_.old.empty() && (isAnew || situation_.replaces())) {
            EXPECT_TRUE(isAmongBackups(situation_.old)) << "the old state is lost";
        }
    }

    bool begunAnew(const PersistedState& state) const {
        PersistedState without = state;
        without.documents.clear();
        return state == small(enteredName)
               || without == PersistedState{.cases = {{year, {.year = year}}}};
    }

    bool isAmongBackups(const std::string& bytes) const {
        return std::ranges::any_of(namesIn(work_.backups()), [&](const std::string& name) {
            return !name.starts_with('.') && readFile(work_.backups() / name) == bytes;
        });
    }

    void judgeBackups() {
        for (const std::string& name : namesIn(work_.backups())) {
            const auto parsed = BackupName::parse(name);
            if (parsed && parsed->label != backup::unreadable) {
                const std::string bytes = readFile(work_.backups() / name);
                EXPECT_TRUE(bytes == ofDay(name) || decodeState(bytes)) << name;
            }
        }
        if (situation_.manyBackups) {
            // Thirty are kept, today's among them; what a new beginning keeps may take two places.
            const auto days = daysBefore();
            for (std::size_t i = 0; i < 27; ++i) {
                EXPECT_EQ(readFile(work_.backups() / days[i]), ofDay(days[i])) << days[i];
            }
        }
        if (situation_.scenario == "restore") {
            EXPECT_EQ(readFile(work_.backups() / sameSecond), ofDay(sameSecond));
        }
        if (situation_.old == unreadable) {
            EXPECT_TRUE(isAmongBackups(ofDay(todaysBackup)))
                << "today's backup from before is lost";
        }
    }

    std::set<std::string> documentFiles() const {
        std::set<std::string> names;
        if (const auto state = decodeState(readFile(work_.stateFile()))) {
            for (const StoredDocument& document : state->documents) {
                names.insert(document.fileName);
            }
        }
        return names;
    }

    void judgeDocuments() {
        const auto known = documentFiles();
        for (const std::string& name : known) {
            EXPECT_EQ(readFile(work_.documents() / name), documentBytes) << name;
        }
        for (const std::string& name : namesIn(work_.documents())) {
            if (known.contains(name) || name.starts_with('.')) {
                continue;
            }
            // The state that names it did not get on the disk; the copy is whole all the same.
            EXPECT_TRUE(killed_ || !saved_) << name << " belongs to no document";
            EXPECT_TRUE(!refused_ || mode_ == Mode::failOn) << name << " of a refused import";
            EXPECT_EQ(readFile(work_.documents() / name), documentBytes) << name;
            ++orphans_;
        }
        EXPECT_LE(orphans_, 1);
    }

    void judgeExport() const {
        if (situation_.scenario != "export") {
            return;
        }
        const std::string bytes = readFile(work_.path() / exportName);
        if (unusable_) {
            EXPECT_TRUE(bytes == "an older export" || decodeState(bytes));
            return;
        }
        EXPECT_TRUE(bytes == situation_.old || (!saved_ && bytes == "an older export"));
    }

    void judgeNextStart() {
        const auto before = decodeState(readFile(work_.stateFile()));
        EXPECT_TRUE(editAndSave(work_.root(), "Danach", atNoonOrSo + 60));
        const auto after = decodeState(readFile(work_.stateFile()));
        ASSERT_TRUE(after);
        EXPECT_TRUE(*after == (before ? named(*before, "Danach") : small("Danach")));
        for (const std::string& name : namesIn(work_.root())) {
            static const std::set<std::string> ours{".sperre", "Belege", "Sicherungen",
                                                    "daten.json"};
            EXPECT_TRUE(ours.contains(name)) << name << " is left over";
        }
        for (const std::string& name : namesIn(work_.backups())) {
            EXPECT_TRUE(BackupName::parse(name)) << name << " is left over";
        }
        EXPECT_LE(namesIn(work_.backups()).size(), 30U);
        EXPECT_EQ(namesIn(work_.documents()).size(),
                  documentFiles().size() + static_cast<std::size_t>(orphans_));
    }

    const Situation& situation_;
    const WorkFolder& work_;
    const bool killed_;
    const bool unusable_;
    const bool saved_;
    const bool refused_; ///< what was to be done did not work
    const Mode mode_;
    int orphans_ = 0;
};

class FaultLoop : public ::testing::TestWithParam<std::tuple<Situation, NamedFault>> {};

TEST_P(FaultLoop, leavesTheOldStateOrTheNewOne) {
    const auto& [situation, kind] = GetParam();
    const WorkFolder work;
    StateDriverClient driver;
    situation.prepare(work);
    const DriverRun whole = driver.run(situation.scenario, work.path());
    ASSERT_EQ(whole.code % 10, 0) << "works without faults";
    ASSERT_GT(whole.calls, 20);
    Aftermath(situation, work, whole, Mode::count).judge();
    RecordProperty("calls", static_cast<int>(whole.calls));

    std::map<int, int> outcomes;
    long at = 1;
    for (bool reached = true; reached && !HasFailure(); ++at) {
        situation.prepare(work);
        const DriverRun run = driver.run(situation.scenario, work.path(), kind.fault, at);
        reached = run.calls >= at;
        ++outcomes[run.code];
        const auto call = static_cast<std::size_t>(at - 1);
        SCOPED_TRACE(
            "call " + std::to_string(at) + " "
            + (call < run.trace.size() ? run.trace[call].name + " " + run.trace[call].path : "none")
            + ", exit code " + std::to_string(run.code));
        ASSERT_GE(run.code, static_cast<int>(Outcome::saved));
        Aftermath(situation, work, run, kind.fault.mode).judge();
        EXPECT_TRUE(reached || run.code == whole.code) << "no fault, another outcome";
    }
    EXPECT_GE(at, whole.calls);
    std::cout << situation.name << " " << kind.name << ": " << whole.calls
              << " calls without a fault, " << at - 2 << " faults;";
    for (const auto& [code, count] : outcomes) {
        std::cout << " exit " << code << ": " << count;
    }
    std::cout << '\n';
}

/// What would be lost if the machine lost its power: what was written or named and not synced.
class Unsynced {
  public:
    void take(const DriverRun::Call& call) {
        const fs::path path = call.path;
        if (call.name == "write") {
            paths_.insert(path);
        } else if (call.name == "fsync") {
            paths_.erase(path);
        } else if (call.name.starts_with("rename") || call.name == "link") {
            EXPECT_TRUE(paths_.empty())
                << call.path << " is named before " << *paths_.begin() << " is on the disk";
            paths_.insert(path.parent_path());
        } else if (call.name == "mkdir") {
            paths_.insert(path.parent_path());
        }
    }
    void expectNone() const { EXPECT_TRUE(paths_.empty()) << *paths_.begin(); }

  private:
    std::set<fs::path> paths_;
};

TEST(PowerLoss, findsEverythingOnTheDiskThatIsNamedThere) {
    StateDriverClient driver;
    for (const Situation& situation : situations()) {
        SCOPED_TRACE(situation.name);
        const WorkFolder work;
        situation.prepare(work);
        Unsynced unsynced;
        for (const auto& call : driver.run(situation.scenario, work.path()).trace) {
            unsynced.take(call);
        }
        unsynced.expectNone();
    }
}

/// File systems that lack something, all the time.
TEST(PoorFileSystem, isGoodEnough) {
    struct Row {
        std::string lacks;
        int error;
        std::string situation;
    };
    const std::vector<Row> rows{{"renameat2", EINVAL, "importDocument"},
                                {"link", EPERM, "afterUnreadable"},
                                {"flock", ENOLCK, "saveWithBackups"},
                                {"unlink", EPERM, "saveWithBackups"}};
    const auto all = situations();
    StateDriverClient driver;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.lacks);
        const auto situation = std::ranges::find(all, row.situation, &Situation::name);
        const WorkFolder work;
        situation->prepare(work);
        const DriverRun run =
            driver.run(situation->scenario, work.path(), {Mode::failNamed, row.error, row.lacks});
        EXPECT_EQ(run.code % 10, 0);
        Aftermath(*situation, work, run, Mode::failNamed).judge();
    }
}

std::string nameOf(const ::testing::TestParamInfo<FaultLoop::ParamType>& row) {
    return std::get<0>(row.param).name + "_" + std::get<1>(row.param).name;
}

INSTANTIATE_TEST_SUITE_P(All, FaultLoop,
                         ::testing::Combine(::testing::ValuesIn(situations()),
                                            ::testing::ValuesIn(kinds())),
                         nameOf);

} // namespace
} // namespace faults
