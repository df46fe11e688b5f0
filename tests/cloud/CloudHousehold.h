#pragma once

#include "tests/cloud/CloudMachine.h"
#include "tests/cloud/FaultProxy.h"
#include "tests/cloud/StatePrinting.h"
#include "tests/support/RunningServer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace fiscarel::testing {

using Phase = CloudStatus::Phase;
using Activity = CloudStatus::Activity;

/// Two machines and the real server, each reached through a line that can fail.
class CloudHousehold : public ::testing::Test {
  protected:
    CloudHousehold() {
        static int accounts = 0;
        email = "haushalt" + std::to_string(++accounts) + "@example.ch";
        a.start();
        b.start();
    }

    static RunningServer& theServer() {
        needApplication(); // before any socket
        static RunningServer running;
        return running;
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
    /// Both signed in, with the same state.
    void setUpBoth() {
        recoveryKey = a.setUp(email, code());
        ASSERT_FALSE(recoveryKey.empty()) << told(a);
        ASSERT_TRUE(b.join(email, code(), recoveryKey)) << told(b);
        exchange();
    }
    void exchange() {
        for (CloudMachine* machine : {&a, &b, &a, &b}) {
            ASSERT_TRUE(machine->settle() && machine->check()) << told(*machine);
        }
    }
    void expectEqual() {
        EXPECT_EQ(a.state(), b.state()) << told(a) << "; " << told(b);
        EXPECT_EQ(a.status().problem, std::nullopt);
        EXPECT_EQ(b.status().problem, std::nullopt);
    }
    static void setCash(CloudMachine& machine, int francs) {
        machine.store->edit("Bargeld", [&](taxcore::TaxCase& taxCase) { taxCase.cash = francs; });
        machine.store->endMerging();
    }
    static void restart(CloudMachine& machine, const std::function<void()>& meanwhile = {}) {
        machine.quit();
        if (meanwhile) {
            meanwhile();
        }
        machine.start();
        machine.rest();
    }
    static std::string fileIn(const CloudMachine& machine, const Uuid& id) {
        for (const StoredDocument& document : machine.state().documents) {
            if (document.id == id) {
                const auto file = machine.store->fileOf(document);
                return file ? readFile(*file) : "no file";
            }
        }
        return "no document";
    }
    static bool hasBackupBeforeCloud(const CloudMachine& machine) {
        for (const std::string& name : namesIn(machine.persistence->backupsFolder())) {
            if (name.starts_with("vor-cloud")) {
                return true;
            }
        }
        return false;
    }
    /// What the server has, asked with a machine's session.
    template <class T>
    tl::expected<T, CloudAPI::Failure>
    ask(const CloudMachine& machine,
        std::function<void(CloudAPI&, const std::string&, CloudAPI::Done<T>)> call) {
        CloudAPI api(QUrl(QString::fromStdString(server.base())));
        const auto held = machine.keychain.items.find(CloudKeychain::sessionAccount);
        const std::string token = held == machine.keychain.items.end()
                                      ? std::string()
                                      : std::string(held->second.begin(), held->second.end());
        std::optional<tl::expected<T, CloudAPI::Failure>> answer;
        call(api, token, [&](tl::expected<T, CloudAPI::Failure> got) { answer = std::move(got); });
        waitFor([&] { return answer.has_value(); });
        return answer.value_or(tl::unexpected(CloudAPI::Failure{}));
    }
    std::size_t filesOnServer(const CloudMachine& machine) {
        const auto all = ask<std::vector<CloudAPI::Receipt>>(
            machine, [](CloudAPI& api, const std::string& token, auto done) {
                api.receipts(token, std::move(done));
            });
        return all ? all->size() : 999;
    }
    CloudAPI::Block block(const CloudMachine& machine) {
        const auto found = ask<std::optional<CloudAPI::Block>>(
            machine, [](CloudAPI& api, const std::string& token, auto done) {
                api.block("estado", token, std::move(done));
            });
        return found.value_or(std::nullopt).value_or(CloudAPI::Block{});
    }
    bool putBlock(const CloudMachine& machine, const CloudAPI::Block& content) {
        return ask<std::int64_t>(machine,
                                 [&](CloudAPI& api, const std::string& token, auto done) {
                                     api.saveBlock("estado", content, token, std::move(done));
                                 })
            .has_value();
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

} // namespace fiscarel::testing
