// The state of two machines, and what may go wrong with it.

#include "Fiscarel_SG/cloud/Sealing.h"
#include "tests/cloud/CloudHousehold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace fiscarel::testing {
namespace {

namespace fs = std::filesystem;
using CloudSyncTest = CloudHousehold;

void addDebts(CloudMachine& machine, int count) {
    machine.store->edit("Schulden", [&](taxcore::TaxCase& taxCase) {
        for (int i = 1; i <= count; ++i) {
            taxcore::Debt& debt = taxCase.debts.emplace_back();
            debt.amount = 1'000 * i;
            debt.interest = i;
        }
    });
}

void clearDebts(CloudMachine& machine) {
    machine.store->edit("Schulden", [](taxcore::TaxCase& taxCase) { taxCase.debts.clear(); });
}

TEST_F(CloudSyncTest, whatIsEnteredHereStandsThere) {
    setUpBoth();
    setCash(a, 1'234);
    const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
    ASSERT_TRUE(a.settle());
    EXPECT_TRUE(a.status().compared);
    ASSERT_TRUE(b.check());
    EXPECT_EQ(b.store->current().cash, 1'234);
    EXPECT_EQ(fileIn(b, id), "Lohnausweis");
    EXPECT_FALSE(hasBackupBeforeCloud(b) && b.state().cases.empty());
    expectEqual();
    EXPECT_GT(a.status().bytesUsed, 0);
    EXPECT_EQ(a.status().devices.size(), 2U);
}

TEST_F(CloudSyncTest, bothSidesChangesComeTogetherAndAConflictIsShown) {
    setUpBoth();
    setCash(a, 100);
    addDebts(a, 1);
    setCash(b, 200);
    b.store->edit("IBAN", [](taxcore::TaxCase& taxCase) { taxCase.iban = "CH93"; });
    exchange();
    expectEqual();
    EXPECT_EQ(a.store->current().iban, "CH93");
    EXPECT_EQ(b.store->current().debts.size(), 1U);
    CloudMachine& merged = a.status().conflicts.empty() ? b : a;
    ASSERT_EQ(merged.status().conflicts.size(), 1U);
    EXPECT_TRUE(hasBackupBeforeCloud(merged));
    const MergeConflict conflict = merged.status().conflicts[0];
    EXPECT_EQ(conflict.path, "cash");
    restart(merged);
    ASSERT_EQ(merged.status().conflicts, std::vector{conflict}) << "kept over a restart";
    const auto other = merged.store->current().cash == 100 ? 200 : 100;
    merged.sync->settleConflict(0, true);
    EXPECT_TRUE(merged.status().conflicts.empty());
    EXPECT_EQ(merged.store->current().cash, other);
    EXPECT_TRUE(merged.store->undo()) << "as any edit";
    merged.store->redo();
    exchange();
    expectEqual();
    EXPECT_EQ(b.store->current().cash, other);
}

TEST_F(CloudSyncTest, aConflictThatHasChangedSinceLeavesEverythingAsItIs) {
    setUpBoth();
    setCash(a, 100);
    setCash(b, 200);
    exchange();
    CloudMachine& merged = a.status().conflicts.empty() ? b : a;
    setCash(merged, 300);
    merged.sync->settleConflict(0, true);
    EXPECT_EQ(merged.store->current().cash, 300);
    EXPECT_TRUE(merged.status().problem);
    merged.sync->settleConflict(7, true); // there is none
}

TEST_F(CloudSyncTest, whoTypesWhileARequestRunsLosesNothing) {
    setUpBoth();
    setCash(a, 100);
    ASSERT_TRUE(a.settle());
    for (int typed = 1; typed < 60; ++typed) {
        if (typed % 10 == 1) {
            b.sync->checkNow();
        }
        b.store->edit("Name", [&](taxcore::TaxCase& taxCase) {
            taxCase.registerNumber = std::to_string(typed);
        });
        passTime(std::chrono::milliseconds(2));
        b.workOne(typed % 2 == 0);
    }
    exchange();
    expectEqual();
    EXPECT_EQ(a.store->current().registerNumber, "59");
    EXPECT_EQ(a.store->current().cash, 100);
}

TEST_F(CloudSyncTest, aLostAnswerIsNoConflictWithOneself) {
    setUpBoth();
    addDebts(a, 1);
    exchange();
    bool loses = true;
    toA.chooses = [&](const QByteArray& request) {
        const bool isSave = request.startsWith("POST /fiscarel/api/v1/bloque-guardar");
        return isSave && std::exchange(loses, !isSave) ? FaultProxy::Fault::answerLost
                                                       : FaultProxy::Fault::none;
    };
    setCash(a, 100);
    ASSERT_TRUE(a.settle());
    setCash(a, 0); // as it was in the last state known to have arrived
    ASSERT_TRUE(a.settle(std::chrono::seconds(8)));
    EXPECT_EQ(a.status().activity, Activity::resting) << "tried again by itself";
    restart(a);
    exchange();
    EXPECT_TRUE(a.status().conflicts.empty());
    EXPECT_EQ(b.store->current().cash, 0);
    expectEqual();
}

TEST_F(CloudSyncTest, whoIsKilledWhileTakingInTakesNothingBack) {
    setUpBoth();
    addDebts(a, 1);
    exchange();
    for (int pieces = 0; pieces < 16; ++pieces) {
        SCOPED_TRACE(pieces);
        setCash(a, 100);
        ASSERT_TRUE(a.settle());
        b.sync->checkNow();
        for (int done = 0; done < pieces && b.sync->isRunning();) {
            passTime(std::chrono::milliseconds(1));
            done += b.workOne(true) ? 1 : 0;
        }
        b.crash();
        b.start();
        setCash(a, 0); // as it was before
        ASSERT_TRUE(a.settle());
        exchange();
        EXPECT_EQ(a.store->current().cash, 0);
        EXPECT_TRUE(b.status().conflicts.empty());
        expectEqual();
    }
}

TEST_F(CloudSyncTest, anUnreadableCommonStateLosesNothing) {
    setUpBoth();
    setCash(a, 100);
    addDebts(a, 1);
    exchange();
    setCash(b, 200);
    restart(a, [&] {
        for (const std::string& name : namesIn(a.root() / "Cloud")) {
            if (name.starts_with("basis")) {
                writeFile(a.root() / "Cloud" / name, "{");
            }
        }
    });
    setCash(a, 300);
    exchange();
    expectEqual();
    EXPECT_EQ(a.store->current().debts.size(), 1U);
    EXPECT_EQ(a.status().conflicts.size() + b.status().conflicts.size(), 1U);
}

TEST_F(CloudSyncTest, aBlockThatDoesNotOpenIsNotWrittenOver) {
    setUpBoth();
    CloudAPI::Block damaged = block(a);
    damaged.content = sealedText(CloudCrypto::Bytes(200, 7));
    ASSERT_TRUE(putBlock(a, damaged));
    const CloudAPI::Block before = block(a);
    setCash(a, 100);
    ASSERT_TRUE(a.settle());
    EXPECT_EQ(a.status().problem, "Daten aus der Cloud konnten nicht entschlüsselt werden.");
    EXPECT_EQ(a.status().phase, Phase::ready);
    EXPECT_EQ(block(a), before);
    EXPECT_EQ(a.store->current().cash, 100);
}

TEST_F(CloudSyncTest, aStateOfANewerProgramIsLeftAlone) {
    setUpBoth();
    const Secret key(a.keychain.items.at(std::string(CloudKeychain::dataKeyAccount)));
    PersistedState newer = a.state();
    newer.version = newestStateVersion + 1;
    CloudAPI::Block stored = block(a);
    for (const std::string& text :
         {SharedState::encode({}, newer), std::string(R"({"version": 7, "casos": []})")}) {
        stored.version = block(a).version;
        stored.content = sealBlock(text, key, "estado");
        ASSERT_TRUE(putBlock(a, stored));
        setCash(a, stored.version == 0 ? 1 : 2);
        ASSERT_TRUE(a.settle() && a.check());
        ASSERT_TRUE(a.status().problem);
        EXPECT_NE(a.status().problem->find("neueren Ausgabe"), std::string::npos)
            << *a.status().problem;
        EXPECT_EQ(block(a).content, stored.content);
    }
}

TEST_F(CloudSyncTest, aGraveLossIsAskedForFirst) {
    struct Row {
        bool isIncoming; ///< the machine that loses is not the one that is asked
        bool takesOver;
        std::size_t debts; ///< in the end, on both
    };
    setUpBoth();
    for (const Row& row :
         std::vector<Row>{{false, true, 0}, {false, false, 8}, {true, true, 0}, {true, false, 8}}) {
        SCOPED_TRACE(std::string(row.isIncoming ? "incoming" : "outgoing")
                     + (row.takesOver ? " taken over" : " refused"));
        if (a.store->current().debts.empty()) {
            addDebts(a, 8);
        }
        exchange();
        ASSERT_EQ(b.store->current().debts.size(), 8U);
        clearDebts(a);
        ASSERT_TRUE(a.settle() && a.check());
        ASSERT_TRUE(a.status().question);
        EXPECT_FALSE(a.status().question->isIncoming);
        EXPECT_EQ(b.store->current().debts.size(), 8U);
        ASSERT_TRUE(b.check());
        ASSERT_EQ(b.store->current().debts.size(), 8U) << "nothing goes before the answer";
        a.sync->answerQuestion(row.isIncoming || row.takesOver);
        ASSERT_TRUE(a.rest());
        if (row.isIncoming) {
            ASSERT_TRUE(b.check());
            ASSERT_TRUE(b.status().question);
            EXPECT_TRUE(b.status().question->isIncoming);
            EXPECT_EQ(b.store->current().debts.size(), 8U);
            b.sync->answerQuestion(row.takesOver);
            ASSERT_TRUE(b.rest());
        }
        for (CloudMachine* machine : {&a, &b, &a}) {
            ASSERT_TRUE(machine->settle() && machine->check());
            if (machine->status().question) { // of the loss that was agreed to
                machine->sync->answerQuestion(true);
                ASSERT_TRUE(machine->rest());
            }
        }
        EXPECT_EQ(a.store->current().debts.size(), row.debts);
        expectEqual();
    }
}

TEST_F(CloudSyncTest, withoutABackupNothingIsTakenIn) {
    setUpBoth();
    setCash(a, 100);
    ASSERT_TRUE(a.settle());
    setCash(b, 200);
    fs::remove_all(b.persistence->backupsFolder());
    writeFile(b.persistence->backupsFolder(), "no folder");
    ASSERT_TRUE(b.settle() && b.check());
    ASSERT_TRUE(b.status().problem);
    EXPECT_NE(b.status().problem->find("keine Sicherung"), std::string::npos);
    EXPECT_EQ(b.store->current().cash, 200);
    EXPECT_TRUE(b.status().conflicts.empty());
    fs::remove(b.persistence->backupsFolder());
    fs::create_directories(b.persistence->backupsFolder());
    exchange();
    expectEqual();
    EXPECT_EQ(b.status().conflicts.size(), 1U);
}

TEST_F(CloudSyncTest, whatCannotBeRememberedIsNotTakenIn) {
    setUpBoth();
    const std::vector<std::vector<std::string>> rows{
        {"abgleich.json"}, {"basis.json", "basis-2.json", "basis-3.json"}};
    int francs = 100;
    for (const auto& files : rows) {
        SCOPED_TRACE(files.front());
        setCash(a, ++francs);
        ASSERT_TRUE(a.settle());
        setCash(b, ++francs);
        const std::size_t shown = b.status().conflicts.size();
        for (const std::string& name : files) { // a folder in the file's place
            fs::remove(b.root() / "Cloud" / name);
            fs::create_directories(b.root() / "Cloud" / name / "x");
        }
        const CloudAPI::Block stored = block(a);
        ASSERT_TRUE(b.settle() && b.check());
        EXPECT_TRUE(b.status().problem);
        EXPECT_EQ(b.store->current().cash, francs);
        EXPECT_EQ(block(a), stored) << "nor does the cloud learn of it";
        for (const std::string& name : files) {
            fs::remove_all(b.root() / "Cloud" / name);
        }
        exchange();
        expectEqual();
        EXPECT_EQ(b.status().conflicts.size(), shown + 1);
    }
}

TEST_F(CloudSyncTest, aServerFromAnOldCopyLosesNothing) {
    setUpBoth();
    setCash(a, 100);
    exchange();
    const fs::path copy = server.data().string() + ".old";
    server.end();
    fs::copy(server.data(), copy, fs::copy_options::recursive);
    server.start();
    toB.isOffline = true;
    setCash(a, 200); // b does not learn of it
    const Uuid late = a.addDocument("Spät.pdf", "spät");
    ASSERT_TRUE(a.settle());
    server.end();
    fs::remove_all(server.data());
    fs::rename(copy, server.data());
    server.start();
    toB.isOffline = false;
    for (const char* number : {"1", "2", "3"}) { // overtakes the version that a knows
        b.store->edit("Nummer",
                      [&](taxcore::TaxCase& taxCase) { taxCase.registerNumber = number; });
        ASSERT_TRUE(b.settle() && b.check());
    }
    exchange();
    expectEqual();
    EXPECT_EQ(b.store->current().cash, 200);
    EXPECT_EQ(a.store->current().registerNumber, "3");
    EXPECT_EQ(fileIn(b, late), "spät");
}

TEST_F(CloudSyncTest, anUnusableStateFileTakesTheClouds) {
    setUpBoth();
    setCash(a, 100);
    exchange();
    restart(a, [&] { writeFile(a.root() / "daten.json", "{"); });
    EXPECT_FALSE(a.store->awaitsRecovery());
    EXPECT_EQ(a.store->current().cash, 100);
    exchange();
    expectEqual();
    const CloudAPI::Block before = block(b);
    const std::string newer = R"({"version": 2})";
    restart(a, [&] { writeFile(a.root() / "daten.json", newer); });
    ASSERT_TRUE(a.check());
    EXPECT_TRUE(a.status().problem);
    EXPECT_EQ(block(b), before) << "nothing goes up";
    EXPECT_EQ(readFile(a.root() / "daten.json"), newer) << "nor is it written over";
}

} // namespace
} // namespace fiscarel::testing
