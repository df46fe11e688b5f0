#include "tests/cloud/CloudMachine.h"
#include "tests/cloud/FaultProxy.h"
#include "tests/cloud/StatePrinting.h"
#include "tests/support/RunningServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace fiscarel::testing {
namespace {

using Phase = CloudStatus::Phase;
using Activity = CloudStatus::Activity;

RunningServer& theServer() {
    needApplication(); // before any socket
    static RunningServer server;
    return server;
}

class CloudSyncTest : public ::testing::Test {
  protected:
    CloudSyncTest() {
        static int accounts = 0;
        email = "haushalt" + std::to_string(++accounts) + "@example.ch";
        a.start();
        b.start();
    }

    std::function<std::string()> code() {
        return [this] { return server.latestCode(email); };
    }
    static std::string told(const CloudMachine& machine) {
        const CloudStatus& status = machine.status();
        return machine.name + ": phase " + std::to_string(static_cast<int>(status.phase))
               + ", activity " + std::to_string(static_cast<int>(status.activity)) + ", "
               + status.problem.value_or("no problem");
    }
    /// Both machines signed in, with the same state.
    void setUpBoth() {
        recoveryKey = a.setUp(email, code());
        ASSERT_FALSE(recoveryKey.empty()) << a.status().problem.value_or("");
        ASSERT_TRUE(b.join(email, code(), recoveryKey)) << b.status().problem.value_or("");
        exchange();
    }
    void exchange() {
        for (int i = 0; i < 2; ++i) {
            ASSERT_TRUE(a.settle() && a.check());
            ASSERT_TRUE(b.settle() && b.check());
        }
    }
    static void setCash(CloudMachine& machine, int francs) {
        machine.store->edit("Bargeld", [&](taxcore::TaxCase& taxCase) { taxCase.cash = francs; });
    }

    RunningServer& server = theServer();
    FakeClock clock;
    FaultProxy toA{server.port(), 1};
    FaultProxy toB{server.port(), 2};
    CloudMachine a{"Büro", toA.base(), clock};
    CloudMachine b{"Stube", toB.base(), clock};
    std::string email;
    std::string recoveryKey;
};

TEST_F(CloudSyncTest, whatIsEnteredHereStandsThere) {
    setUpBoth();
    setCash(a, 1'234);
    const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
    ASSERT_TRUE(a.settle());
    ASSERT_TRUE(b.check());
    EXPECT_EQ(b.state(), a.state()) << told(a) << "; " << told(b);
    EXPECT_EQ(b.store->current().cash, 1'234);
    const auto file = b.store->fileOf(b.state().documents.at(0));
    ASSERT_TRUE(file);
    EXPECT_EQ(readFile(*file), "Lohnausweis");
    EXPECT_EQ(b.state().documents.at(0).id, id);
    EXPECT_EQ(a.status().problem, std::nullopt);
}

} // namespace
} // namespace fiscarel::testing
