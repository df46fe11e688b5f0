// The way to a session and a key, and what the server and the line get to see.

#include "Fiscarel_SG/cloud/Sealing.h"
#include "tests/cloud/CloudHousehold.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>
#include <vector>

namespace fiscarel::testing {
namespace {

namespace fs = std::filesystem;
using CloudSignInTest = CloudHousehold;

TEST_F(CloudSignInTest, theFirstMachineShowsARecoveryKeyAndHasItTypedBack) {
    EXPECT_EQ(a.status().phase, Phase::starting);
    a.work();
    EXPECT_EQ(a.status().phase, Phase::signedOut);
    ASSERT_TRUE(a.signIn(" " + email + " ", code()));
    ASSERT_EQ(a.status().phase, Phase::confirmsKey);
    const std::string shown = a.status().recoveryKey;
    for (const std::string& typed : {std::string("kurz"), CloudCrypto::newRecoveryKey()}) {
        a.sync->confirmRecoveryKey(typed);
        ASSERT_TRUE(a.rest());
        EXPECT_TRUE(a.status().problem);
        EXPECT_EQ(a.status().phase, Phase::confirmsKey);
    }
    restart(a); // before it was confirmed: nothing is set up yet
    ASSERT_EQ(a.status().phase, Phase::confirmsKey);
    EXPECT_NE(a.status().recoveryKey, shown);
    a.sync->confirmRecoveryKey(a.status().recoveryKey);
    ASSERT_TRUE(a.rest());
    EXPECT_EQ(a.status().phase, Phase::ready);
    EXPECT_TRUE(a.status().recoveryKey.empty());
    EXPECT_EQ(a.status().email, email);
    EXPECT_TRUE(a.status().compared);
    restart(a);
    EXPECT_EQ(a.status().phase, Phase::ready) << "signed in after a restart";
}

TEST_F(CloudSignInTest, wrongCodesAndKeysAreSaid) {
    recoveryKey = a.setUp(email, code());
    ASSERT_TRUE(b.signIn(email, [] { return std::string("000000"); }));
    EXPECT_EQ(b.status().phase, Phase::codeSent);
    EXPECT_TRUE(b.status().problem);
    b.sync->verifyCode(code()());
    ASSERT_TRUE(b.rest());
    ASSERT_EQ(b.status().phase, Phase::needsRecoveryKey);
    const std::vector<std::pair<std::string, CloudCrypto::Failure>> rows{
        {"abc", CloudCrypto::Failure::recoveryFormat},
        {CloudCrypto::newRecoveryKey(), CloudCrypto::Failure::wrongRecovery}};
    for (const auto& [typed, failure] : rows) {
        b.sync->joinByRecoveryKey(typed);
        ASSERT_TRUE(b.rest());
        EXPECT_EQ(b.status().problem, std::string(CloudCrypto::message(failure)));
        EXPECT_EQ(b.status().phase, Phase::needsRecoveryKey);
    }
    b.sync->joinByRecoveryKey(recoveryKey);
    ASSERT_TRUE(b.rest());
    EXPECT_EQ(b.status().phase, Phase::ready);
    b.sync->cancelSignIn(); // nothing to cancel
    EXPECT_EQ(b.status().phase, Phase::ready);
}

TEST_F(CloudSignInTest, anotherSessionNeedsACodeAndNoKey) {
    setUpBoth();
    ask<void>(a, [](CloudAPI& api, const std::string& token, auto done) {
        api.signOut(token, std::move(done));
    });
    setCash(a, 100);
    ASSERT_TRUE(a.settle());
    EXPECT_EQ(a.status().phase, Phase::signedOut);
    EXPECT_EQ(a.status().email, email);
    EXPECT_EQ(a.status().problem, "Sie sind nicht mehr angemeldet. Bitte erneut anmelden.");
    EXPECT_EQ(a.store->current().cash, 100);
    ASSERT_TRUE(a.signIn(email, code()));
    EXPECT_EQ(a.status().phase, Phase::ready);
    exchange();
    expectEqual();
    EXPECT_EQ(b.store->current().cash, 100);
    a.sync->signOut();
    ASSERT_TRUE(a.rest());
    EXPECT_EQ(a.status().phase, Phase::signedOut);
    EXPECT_FALSE(a.keychain.items.contains(CloudKeychain::sessionAccount));
    ASSERT_TRUE(waitFor([&] {
        b.check();
        return b.status().devices.size() == 1;
    })) << "the server knows one device less";
}

TEST_F(CloudSignInTest, withoutAKeyringOrInDemoNothingIsSent) {
    a.keychain.isThere = false;
    restart(a);
    EXPECT_EQ(a.status().phase, Phase::noKeyring);
    b.quit();
    b.start({.demo = true});
    b.work();
    EXPECT_EQ(b.status().phase, Phase::demo);
    toA.records = toB.records = true;
    for (CloudMachine* machine : {&a, &b}) {
        machine->sync->requestCode(email);
        machine->sync->checkNow();
        machine->sync->startAnew();
        setCash(*machine, 100);
        ASSERT_TRUE(machine->settle());
        EXPECT_EQ(machine->store->current().cash, 100);
    }
    EXPECT_EQ(toA.seen.size() + toB.seen.size(), 0);
}

TEST_F(CloudSignInTest, ofTwoMachinesThatSetUpAtOnceOneJoinsTheOther) {
    ASSERT_TRUE(a.signIn(email, code()));
    ASSERT_TRUE(b.signIn(email, code()));
    ASSERT_EQ(a.status().phase, Phase::confirmsKey);
    ASSERT_EQ(b.status().phase, Phase::confirmsKey);
    // The answer is lost; that it had worked is found out.
    toA.chooses = [first = true](const QByteArray& request) mutable {
        const bool isKey = request.startsWith("POST /fiscarel/api/v1/llave");
        return isKey && std::exchange(first, false) ? FaultProxy::Fault::answerLost
                                                    : FaultProxy::Fault::none;
    };
    const std::string key = a.status().recoveryKey;
    a.sync->confirmRecoveryKey(key);
    ASSERT_TRUE(a.rest());
    if (a.status().phase == Phase::confirmsKey) { // the client may try again by itself
        a.sync->confirmRecoveryKey(key);
        ASSERT_TRUE(a.rest());
    }
    EXPECT_EQ(a.status().phase, Phase::ready) << told(a);
    b.sync->confirmRecoveryKey(b.status().recoveryKey);
    ASSERT_TRUE(b.rest());
    EXPECT_EQ(b.status().phase, Phase::needsRecoveryKey);
    EXPECT_TRUE(b.status().problem);
    b.sync->joinByRecoveryKey(key);
    ASSERT_TRUE(b.rest());
    exchange();
    expectEqual();
}

TEST_F(CloudSignInTest, aNewRecoveryKeyReplacesTheOldOne) {
    setUpBoth();
    a.sync->makeNewRecoveryKey();
    ASSERT_EQ(a.status().phase, Phase::confirmsKey);
    a.sync->cancelSignIn();
    EXPECT_EQ(a.status().phase, Phase::ready) << "thought better of it";
    a.sync->makeNewRecoveryKey();
    const std::string fresh = a.status().recoveryKey;
    a.sync->confirmRecoveryKey(fresh);
    ASSERT_TRUE(a.rest());
    EXPECT_EQ(a.status().phase, Phase::ready);
    setCash(b, 100);
    exchange();
    expectEqual(); // the other machine goes on
    CloudMachine c("Laptop", toA.base(), clock);
    c.start();
    EXPECT_FALSE(c.join(email, code(), recoveryKey));
    c.sync->joinByRecoveryKey(fresh);
    ASSERT_TRUE(c.rest());
    EXPECT_EQ(c.status().phase, Phase::ready);
    EXPECT_EQ(c.store->current().cash, 100);
}

TEST_F(CloudSignInTest, whoLostTheRecoveryKeyBeginsAnew) {
    setUpBoth();
    const Uuid id = a.addDocument("Lohn.pdf", "Lohnausweis");
    setCash(a, 100);
    exchange();
    CloudMachine c("Laptop", toA.base(), clock);
    c.start();
    setCash(c, 300);
    ASSERT_TRUE(c.signIn(email, code()));
    ASSERT_EQ(c.status().phase, Phase::needsRecoveryKey);
    c.sync->startAnew();
    ASSERT_EQ(c.status().phase, Phase::confirmsKey);
    const std::string fresh = c.status().recoveryKey;
    c.sync->confirmRecoveryKey(fresh);
    ASSERT_TRUE(c.rest());
    ASSERT_EQ(c.status().phase, Phase::ready);
    EXPECT_EQ(c.status().problem, std::nullopt);
    EXPECT_EQ(c.store->current().cash, 300);
    EXPECT_EQ(filesOnServer(c), 0U);
    ASSERT_TRUE(a.check());
    EXPECT_EQ(a.status().phase, Phase::needsRecoveryKey) << "the other machines are told";
    EXPECT_EQ(a.store->current().cash, 100);
    a.sync->joinByRecoveryKey(fresh);
    ASSERT_TRUE(a.rest() && a.settle() && a.check() && c.check() && a.check());
    EXPECT_EQ(a.state(), c.state());
    EXPECT_EQ(fileIn(c, id), "Lohnausweis");
    EXPECT_EQ(a.status().conflicts.size() + c.status().conflicts.size(), 1U);
}

TEST_F(CloudSignInTest, serverAndLineSeeNoPlaintext) {
    toA.records = toB.records = true;
    setUpBoth();
    const std::string content = "Dieser Beleg ist vertraulich.";
    a.store->edit("Register", [](taxcore::TaxCase& taxCase) {
        taxCase.registerNumber = "Registernummer-4711";
        taxCase.cash = 987'654;
    });
    a.addDocument("Scheidungsurteil.pdf", content);
    const Uuid id = a.state().documents.at(0).id;
    exchange();
    ASSERT_EQ(fileIn(b, id), content);
    std::string everything = toA.seen.toStdString() + toB.seen.toStdString() + server.log();
    for (const auto& entry : fs::recursive_directory_iterator(server.data())) {
        everything += entry.path().string();
        everything += entry.is_regular_file() ? readFile(entry.path()) : "";
    }
    ASSERT_NE(everything.find(email), std::string::npos) << "the address is known to the server";
    const auto octets = [](const std::vector<std::uint8_t>& bytes) {
        return std::string(bytes.begin(), bytes.end());
    };
    const std::string dataKey = octets(a.keychain.items.at("llave-datos"));
    const QByteArray raw = QByteArray::fromStdString(dataKey);
    std::vector<std::string> secrets{"Registernummer-4711",
                                     "987654",
                                     "Scheidungsurteil",
                                     content,
                                     id.toString(),
                                     dataKey,
                                     raw.toHex().toStdString(),
                                     raw.toBase64().toStdString(),
                                     recoveryKey,
                                     CloudCrypto::parseRecoveryKey(recoveryKey).value(),
                                     "\"lineage\"",
                                     "Sevelen"};
    for (const std::string& secret : secrets) {
        EXPECT_EQ(everything.find(secret), std::string::npos) << secret;
        const auto base64 = QByteArray::fromStdString(secret).toBase64().toStdString();
        EXPECT_EQ(everything.find(base64.substr(0, base64.size() / 4 * 4 - 4)), std::string::npos);
    }
    // Nor does this machine keep keys beside its keyring.
    std::string local;
    for (const auto& entry : fs::recursive_directory_iterator(a.root() / "Cloud")) {
        local += entry.is_regular_file() ? readFile(entry.path()) : "";
    }
    for (const auto& [key, value] : a.settings.values) {
        local += key + value;
    }
    for (const std::string& secret :
         {dataKey, raw.toHex().toStdString(), raw.toBase64().toStdString(), recoveryKey,
          octets(a.keychain.items.at("sitzung"))}) {
        EXPECT_EQ(local.find(secret), std::string::npos);
    }
}

TEST_F(CloudSignInTest, theUsersOwnServerIsUsedAndKept) {
    a.work();
    const std::string own = toB.base().toString(QUrl::RemovePath).toStdString();
    for (const char* refused : {"http://cloud.muster.ch", "ftp://cloud.muster.ch", "mein server"}) {
        a.sync->useServer(refused);
        EXPECT_EQ(a.status().server, "") << refused;
    }
    a.sync->useServer(" " + own + " ");
    EXPECT_EQ(a.status().server, own);
    toA.isOffline = true; // the one it was built for
    restart(a);
    EXPECT_EQ(a.status().server, own) << "kept over a restart";
    ASSERT_FALSE(a.setUp(email, code()).empty()) << told(a);
    a.sync->useServer("");
    EXPECT_EQ(a.status().server, own) << "not while signed in";
    a.sync->signOut();
    ASSERT_TRUE(a.rest());
    a.sync->useServer("");
    EXPECT_EQ(a.settings.text(CloudSync::serverKey), "");
    a.sync->requestCode(email);
    ASSERT_TRUE(a.rest());
    EXPECT_EQ(a.status().phase, Phase::signedOut) << "elsewhere, where nobody answers";
}

} // namespace
} // namespace fiscarel::testing
