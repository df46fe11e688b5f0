// The documents of two machines, and what may go wrong with them.

#include "Fiscarel_SG/cloud/ReceiptTidying.h"
#include "tests/cloud/CloudHousehold.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace fiscarel::testing {
namespace {

namespace fs = std::filesystem;
using CloudDocumentsTest = CloudHousehold;

constexpr std::int64_t day = 86'400;

TEST_F(CloudDocumentsTest, aFileThatNobodyNeedsGoesAfterAWhile) {
    setUpBoth();
    const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
    exchange();
    a.store->deleteDocument(id);
    exchange();
    expectEqual();
    EXPECT_EQ(fileIn(b, id), "no document");
    clock.moment.seconds += orphanSeconds - day;
    exchange();
    EXPECT_EQ(filesOnServer(a), 1U) << "some machine may have changed the document";
    EXPECT_EQ(namesIn(a.root() / "Cloud" / "Belege").size(), 1U);
    toA.chooses = [](const QByteArray& request) {
        return request.startsWith("POST /fiscarel/api/v1/recibo-borrar")
                   ? FaultProxy::Fault::refused
                   : FaultProxy::Fault::none;
    };
    clock.moment.seconds += day;
    ASSERT_TRUE(a.settle() && a.check());
    EXPECT_EQ(a.status().activity, Activity::offline);
    EXPECT_EQ(filesOnServer(a), 1U);
    toA.chooses = {};
    restart(a);
    ASSERT_TRUE(a.check());
    EXPECT_EQ(filesOnServer(a), 0U) << "sent after a restart";
    exchange();
    expectEqual();
    for (const CloudMachine* machine : {&a, &b}) {
        EXPECT_TRUE(namesIn(machine->root() / "Cloud" / "Belege").empty()) << machine->name;
    }
}

TEST_F(CloudDocumentsTest, aDocumentDeletedHereAndEditedThereStaysWithItsFile) {
    setUpBoth();
    const Uuid old = a.addDocument("Zins.pdf", "Zinsen");
    exchange();
    struct Row {
        const char* name;
        bool isSent;
        bool isFetched;
        std::int64_t days; ///< until the machines meet
    };
    const auto without = [](std::string request) {
        return [request = "/fiscarel/api/v1/" + request](const QByteArray& asked) {
            return asked.contains(request.c_str()) ? FaultProxy::Fault::refused
                                                   : FaultProxy::Fault::none;
        };
    };
    for (const Row& row :
         {Row{"b has it", true, true, 0}, Row{"the server has it", true, false, 0},
          Row{"the server has it still", true, false, 29}, Row{"only a had it", false, false, 0},
          Row{"only a had it, long ago", false, false, 29}}) {
        SCOPED_TRACE(row.name);
        toA.chooses = row.isSent ? nullptr : decltype(toA.chooses)(without("recibo-subir.php"));
        toB.chooses = row.isFetched ? nullptr : decltype(toB.chooses)(without("recibo.php"));
        const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
        ASSERT_TRUE(a.settle());
        ASSERT_TRUE(b.settle() && b.check());
        ASSERT_EQ(fileIn(b, id), row.isFetched ? "Lohnausweis" : "no file");
        toB.isOffline = true;
        b.store->updateDocument(id, [](StoredDocument& kept) { kept.note = "wichtig"; });
        ASSERT_TRUE(b.settle());
        a.store->deleteDocument(id);
        ASSERT_TRUE(a.settle() && a.check());
        restart(a); // its own file is gone
        clock.moment.seconds += row.days * day;
        ASSERT_TRUE(a.check());
        toA.chooses = nullptr;
        toB.chooses = nullptr;
        toB.isOffline = false;
        exchange();
        expectEqual();
        for (const CloudMachine* machine : {&a, &b}) {
            EXPECT_EQ(fileIn(*machine, id), "Lohnausweis") << machine->name;
            EXPECT_EQ(fileIn(*machine, old), "Zinsen") << machine->name;
        }
        EXPECT_EQ(a.status().conflicts.size() + b.status().conflicts.size(), 1U);
        EXPECT_TRUE(namesIn(a.root() / "Cloud" / "Belege").empty()) << "of no use any more";
        b.sync->settleAllConflicts();
        a.sync->settleAllConflicts();
    }
}

TEST_F(CloudDocumentsTest, aDeletionTakenBackKeepsTheFile) {
    setUpBoth();
    const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
    exchange();
    a.store->deleteDocument(id);
    exchange();
    EXPECT_EQ(fileIn(b, id), "no document");
    a.store->undo();
    exchange();
    restart(b);
    exchange();
    EXPECT_EQ(fileIn(b, id), "Lohnausweis");
    expectEqual();
}

TEST_F(CloudDocumentsTest, entriesDoNotWaitForManyDocuments) {
    setUpBoth();
    for (int i = 0; i < 12; ++i) {
        a.addDocument("Beleg " + std::to_string(i) + ".pdf", std::to_string(i));
    }
    std::string order; // of what is sent: a state, a document
    toA.chooses = [&](const QByteArray& request) {
        order += request.contains("recibo-subir")           ? "d"
                 : request.contains("\"clave\":\"estado\"") ? "s"
                                                            : "";
        if (order == "sdd") { // typed meanwhile
            setCash(a, 100);
            a.timers->advance(std::chrono::seconds(1));
            a.work();
            a.timers->advance(std::chrono::seconds(2));
        }
        return FaultProxy::Fault::none;
    };
    exchange();
    EXPECT_EQ(order, "sdd"
                     "s"
                     "dddddddddd");
    expectEqual();
    EXPECT_EQ(b.store->current().cash, 100);
    EXPECT_EQ(filesOnServer(b), 12U);
    EXPECT_EQ(a.status().documentsToSend, 0U);
}

TEST_F(CloudDocumentsTest, aFileThatIsTooLargeStaysHere) {
    setUpBoth();
    const std::string large(DocumentExchange::mostBytes - 20, 'x');
    const Uuid id = a.addDocument("Riesig.pdf", large);
    const Uuid small = a.addDocument("Klein.pdf", "klein");
    ASSERT_TRUE(a.settle());
    ASSERT_EQ(a.status().leftOut.size(), 1U);
    EXPECT_EQ(a.status().leftOut[0].title, "Riesig");
    EXPECT_EQ(a.status().leftOut[0].reason, "Diese Datei ist zu gross für die Cloud (max. 25 MB).");
    ASSERT_TRUE(b.check());
    EXPECT_EQ(fileIn(b, small), "klein");
    EXPECT_EQ(fileIn(b, id), "no file");
    expectEqual();
}

TEST_F(CloudDocumentsTest, aFileThatWasChangedOnTheWayIsNotPlaced) {
    setUpBoth();
    const std::string content = "Lohnausweis von eigener Länge";
    const Uuid id = a.addDocument("Lohn.pdf", content);
    const Uuid other = a.addDocument("Zins.pdf", "Zinsen");
    ASSERT_TRUE(a.settle());
    // What the server stores of the first is replaced by other bytes.
    const fs::path receipts = server.data() / "receipts";
    std::size_t damaged = 0;
    for (const auto& entry : fs::recursive_directory_iterator(receipts)) {
        std::string bytes = entry.is_regular_file() ? readFile(entry.path()) : "";
        if (bytes.size() == content.size() + 28) {
            bytes.back() = static_cast<char>(bytes.back() ^ 1);
            writeFile(entry.path(), bytes);
            ++damaged;
        }
    }
    ASSERT_EQ(damaged, 1U);
    ASSERT_TRUE(b.check() && b.check());
    EXPECT_EQ(fileIn(b, id), "no file");
    EXPECT_EQ(fileIn(b, other), "Zinsen") << "the others come";
    ASSERT_EQ(b.status().leftOut.size(), 1U);
    EXPECT_EQ(b.status().leftOut[0].reason,
              "Daten aus der Cloud konnten nicht entschlüsselt werden.");
}

TEST(CloudSpace, aFullCloudIsSaidAndTheRestGoesOn) {
    needApplication();
    RunningServer server({"--no-rate-limits", "--account-megabytes", "1"});
    FakeClock clock;
    CloudMachine a("Büro", QUrl(QString::fromStdString(server.base())), clock,
                   std::chrono::seconds(10));
    a.start();
    const auto code = [&] { return server.latestCode("voll@example.ch"); };
    ASSERT_FALSE(a.setUp("voll@example.ch", code).empty());
    const Uuid large = a.addDocument("Gross.pdf", std::string(900'000, 'x'));
    ASSERT_TRUE(a.settle());
    EXPECT_EQ(a.status().problem, std::nullopt);
    a.addDocument("Mehr.pdf", std::string(300'000, 'y'));
    ASSERT_TRUE(a.settle());
    EXPECT_EQ(a.status().problem, "Der Cloud-Speicher (1 GB) ist voll.");
    EXPECT_EQ(a.status().leftOut.size(), 1U);
    a.store->deleteDocument(large);
    ASSERT_TRUE(a.settle() && a.check());
    EXPECT_EQ(a.status().problem, std::nullopt) << "there is room again";
    EXPECT_TRUE(a.status().leftOut.empty());
}

} // namespace
} // namespace fiscarel::testing
