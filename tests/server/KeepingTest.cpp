// What lasts: sessions and accounts over the days, the folder over versions and damage, and the
// limits that time lifts.

#include "server/Accounts.h"
#include "server/Secrets.h"
#include "tests/server/ServerDesk.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fiscarel::server {
namespace {

using namespace testing;

constexpr std::int64_t day = 86'400;

TEST(ServerKeeping, deletedAccountsGoWithAllTheyHaveOnTheirDay) {
    ServerDesk desk; // 2026-03-08
    const std::string token = desk.signIn("a@example.ch");
    const std::string other = desk.signIn("b@example.ch");
    for (const std::string& one : {token, other}) {
        desk.save(one, 0, "estado");
        desk.post("recibo-subir.php", "recibo de " + one, one);
    }
    const auto plan = [&](const std::optional<std::string>& on) {
        return desk.services->store.change(
            [&](Database& database) { return planDeletion(database, "a@example.ch", on); });
    };
    EXPECT_TRUE(plan("2026-03-10"));
    EXPECT_EQ(valueIn(desk.get("cuenta.php", token).body, "borrado_previsto"), "2026-03-10");
    EXPECT_NE(desk.signIn("a@example.ch"), "");
    EXPECT_EQ(valueIn(desk.get("cuenta.php", token).body, "borrado_previsto"), "2026-03-10")
        << "using it does not cancel it";
    EXPECT_TRUE(plan(std::nullopt));
    desk.pass(2 * day);
    desk.services->tidyUp();
    EXPECT_EQ(desk.get("cuenta.php", token).status, 200) << "kept";
    EXPECT_EQ(valueIn(desk.get("cuenta.php", token).body, "borrado_previsto"), "");
    EXPECT_TRUE(plan("2026-03-11"));
    desk.services->tidyUp();
    EXPECT_EQ(desk.get("cuenta.php", token).status, 200) << "not yet";
    desk.pass(day);
    desk.services->tidyUp();
    EXPECT_EQ(told(desk.get("cuenta.php", token)), R"(401 {"error":"sin_sesion"})");
    EXPECT_EQ(namesIn(desk.folder / "receipts").size(), 1U);
    EXPECT_EQ(desk.used(other), std::to_string(6 + 10 + 64));
    EXPECT_FALSE(plan("2026-03-11")) << "there is no such account";
    const std::string again = desk.signIn("a@example.ch");
    EXPECT_EQ(told(desk.get("bloque.php?clave=estado", again)), "200 null") << "a new one is empty";
    EXPECT_EQ(desk.used(again), "0");
}

/// Calls `work(thread)` on eight threads that begin together.
template <class Work>
void atOnce(const Work& work) {
    constexpr int count = 8;
    std::barrier start(count);
    std::vector<std::jthread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            work(i);
        });
    }
}

TEST(ServerKeeping, whatIsAskedAtOnceIsDoneOneAfterTheOther) {
    ServerDesk desk(RateLimits::Rules::none(), {.mostAccountBytes = 1'000'000});
    const std::string token = desk.signIn("a@example.ch");
    for (int round = 0; round < 20; ++round) {
        std::atomic<int> saved = 0;
        std::atomic<int> kept = 0;
        const std::string other = desk.signIn("b" + std::to_string(round) + "@example.ch");
        atOnce([&](int thread) {
            const Response answer = desk.save(token, round, std::string(20'000, 'x'));
            saved += answer.status == 200 ? 1 : answer.status == 409 ? 0 : 100;
            const std::string document(300'000, static_cast<char>('a' + thread)); // three fit
            const int status = desk.post("recibo-subir.php", document, other).status;
            kept += status == 200 ? 1 : status == 507 ? 0 : 100;
        });
        EXPECT_EQ(saved, 1);
        EXPECT_EQ(kept, 3);
        EXPECT_EQ(desk.used(other), "900000");
    }
    EXPECT_EQ(namesIn(desk.folder / "receipts").size(), 60U) << "what did not fit is gone again";
}

TEST(ServerKeeping, devicesComeAndGo) {
    ServerDesk desk;
    const std::string first = desk.signIn("a@example.ch", "0");
    std::string latest;
    for (int i = 1; i < mostSessions; ++i) {
        desk.pass(1);
        latest = desk.signIn("a@example.ch", std::to_string(i));
    }
    EXPECT_EQ(desk.get("cuenta.php", first).status, 200);
    latest = desk.signIn("a@example.ch", "one more");
    EXPECT_EQ(told(desk.get("cuenta.php", first)), R"(401 {"error":"sin_sesion"})")
        << "the one not seen for longest makes room";
    EXPECT_EQ(desk.get("cuenta.php", latest).status, 200);
    desk.pass(sessionSeconds - 100);
    EXPECT_EQ(desk.get("cuenta.php", latest).status, 200);
    desk.pass(200);
    const std::string devices = valueIn(desk.get("cuenta.php", latest).body, "aparatos");
    EXPECT_EQ(devices.find("\"49\""), std::string::npos) << "signed out by time";
    EXPECT_NE(devices.find("\"one more\""), std::string::npos);
    desk.pass(2 * sessionSeconds);
    desk.services->tidyUp();
    EXPECT_EQ(told(desk.get("cuenta.php", latest)), R"(401 {"error":"sin_sesion"})") << "forgotten";
}

TEST(ServerKeeping, ratesAreLimitedByAddressAndClientUntilTimePasses) {
    ServerDesk desk({.codesPerAddress = {2, 3600},
                     .codesPerClient = {3, 3600},
                     .triesPerClient = {3, 3600},
                     .requestsPerClient = {1000, 60}});
    const auto code = [&](const std::string& email, const std::string& client) {
        return desk.ask("POST", "codigo-pedir.php", R"({"email":")" + email + R"("})", {}, client);
    };
    const auto attempt = [&](const std::string& email, const std::string& client) {
        const std::string body = R"({"email":")" + email + R"(","codigo":"x","aparato":""})";
        return desk.ask("POST", "codigo-comprobar.php", body, {}, client).status;
    };
    EXPECT_EQ(code("a@example.ch", "1").status, 200);
    EXPECT_EQ(code("A@example.ch", "2").status, 200);
    const Response refused = code("a@example.ch", "3");
    EXPECT_EQ(told(refused), R"(429 {"error":"zu_viele_versuche"})");
    EXPECT_EQ(refused.retryAfter, 3600);
    EXPECT_EQ(code("b@example.ch", "1").status, 200);
    EXPECT_EQ(code("c@example.ch", "1").status, 200);
    EXPECT_EQ(code("d@example.ch", "1").status, 429);
    EXPECT_EQ(code("d@example.ch", "2").status, 200) << "of another client";
    EXPECT_EQ(attempt("a@example.ch", "1"), 403);
    EXPECT_EQ(attempt("b@example.ch", "1"), 403);
    EXPECT_EQ(attempt("c@example.ch", "1"), 403);
    EXPECT_EQ(attempt("d@example.ch", "1"), 429);
    EXPECT_EQ(attempt("d@example.ch", "2"), 403) << "of another client";
    desk.pass(3599);
    EXPECT_EQ(code("a@example.ch", "3").retryAfter, 1);
    desk.pass(1);
    EXPECT_EQ(code("a@example.ch", "3").status, 200);

    RateLimits requests({.requestsPerClient = {600, 60}});
    const auto asks = [&](const std::string& client, std::int64_t at) {
        return !requests.take(RateLimits::Kind::requests, client, {at});
    };
    int allowed = 0;
    for (int i = 0; i < 700; ++i) {
        allowed += asks("a", 100) ? 1 : 0;
    }
    EXPECT_EQ(allowed, 600);
    EXPECT_TRUE(asks("b", 100));
    EXPECT_FALSE(asks("a", 159));
    EXPECT_TRUE(asks("a", 160));
    EXPECT_TRUE(asks("a", 50)) << "a clock put back locks nobody out";
    for (int client = 0; client < 30'000; ++client) { // crowds are forgotten, not what still counts
        asks("c" + std::to_string(client), 170);
    }
    EXPECT_EQ(clientOf("192.0.2.7"), "192.0.2.7");
    EXPECT_EQ(clientOf("::ffff:192.0.2.7"), "192.0.2.7");
    EXPECT_EQ(clientOf("2001:db8:1:2:3:4:5:6"), clientOf("2001:db8:1:2::9"));
    EXPECT_NE(clientOf("2001:db8:1:2::"), clientOf("2001:db8:1:3::"));
}

TEST(ServerKeeping, aStrangersTriesLockNobodyOut) {
    ServerDesk desk(RateLimits::Rules{}); // as it is run
    const std::string email = "a@example.ch";
    const auto request = [&](const std::string& client) {
        const Response answer =
            desk.ask("POST", "codigo-pedir.php", R"({"email":"a@example.ch"})", {}, client);
        EXPECT_EQ(answer.status, 200) << client;
        return desk.mail.codes[email];
    };
    const auto attempt = [&](const std::string& code, const std::string& client) {
        const std::string body =
            R"({"email":"a@example.ch","codigo":")" + code + R"(","aparato":""})";
        const Response answer = desk.ask("POST", "codigo-comprobar.php", body, {}, client);
        return answer.status == 200 ? "200" : told(answer);
    };
    const std::string wrong = R"(403 {"error":"codigo","quedan":)";
    const std::string burnt = R"(403 {"error":"codigo_quemado"})";
    // Many clients guess at the owner's code.
    std::string code = request("owner");
    for (int i = 0; i < 30; ++i) {
        const int left = Codes::mostTriesOfOthers - 1 - i;
        EXPECT_EQ(attempt("x", "stranger " + std::to_string(i)),
                  left > 0 ? wrong + std::to_string(left) + "}" : burnt);
    }
    EXPECT_EQ(attempt(code, "stranger"), burnt) << "right, too late";
    EXPECT_EQ(attempt("x", "owner"), wrong + std::to_string(Codes::mostTries - 1) + "}");
    EXPECT_EQ(attempt(code, "owner"), "200");
    // One asks for a code himself, and uses up all there is.
    code = request("stranger");
    for (int i = 0; i < Codes::mostTries + Codes::mostTriesOfOthers; ++i) {
        attempt("x", i < Codes::mostTries ? "stranger" : "stranger 2");
    }
    for (const char* client : {"stranger", "stranger 2", "owner"}) {
        EXPECT_EQ(attempt(code, client), burnt) << client;
    }
    code = request("owner");
    EXPECT_EQ(attempt(code, "owner"), "200") << "begins anew, at once";
    // Who asks at home and types on the way still gets in.
    code = request("owner");
    EXPECT_EQ(attempt(code, "owner, elsewhere"), "200");
}

TEST(ServerKeeping, aDatabaseOfTheFirstSchemaIsTakenOver) {
    ServerDesk desk;
    const std::string token = desk.signIn("a@example.ch");
    desk.services->store.change([](Database& database) {
        database.run("DROP TABLE code; CREATE TABLE code (email TEXT PRIMARY KEY,"
                     " hash BLOB NOT NULL, expires INTEGER NOT NULL, tries INTEGER NOT NULL)"
                     " STRICT; PRAGMA user_version = 1;");
    });
    desk.open();
    EXPECT_EQ(desk.get("cuenta.php", token).status, 200);
    EXPECT_NE(desk.signIn("a@example.ch"), "");
}

TEST(ServerKeeping, theDiskKnowsNoTokenAndNoCode) {
    ServerDesk desk;
    desk.post("codigo-pedir.php", R"({"email":"b@example.ch"})");
    const std::string token = desk.signIn("a@example.ch");
    std::string disk;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(desk.folder.path())) {
        disk += entry.is_regular_file() ? readFile(entry.path()) : "";
    }
    EXPECT_NE(disk.find("b@example.ch"), std::string::npos);
    EXPECT_EQ(disk.find(token), std::string::npos);
    EXPECT_EQ(disk.find(sha256(desk.mail.codes["b@example.ch"])), std::string::npos)
        << "a hash without a key would be guessed at once";
}

TEST(ServerKeeping, aFolderThatIsNotItsOwnIsRefused) {
    ServerDesk desk;
    desk.services->store.change(
        [](Database& database) { database.run("PRAGMA user_version = 3"); });
    EXPECT_THROW(desk.open(), DatabaseFailure) << "of a newer version";
    const TemporaryFolder folder;
    writeFile(folder / "server.db", std::string(5000, 'x'));
    EXPECT_THROW(Services(folder.path(), desk.mail, desk.clock), DatabaseFailure);
    const TemporaryFolder other;
    writeFile(other / "receipts", "a file");
    EXPECT_THROW(Services(other.path(), desk.mail, desk.clock), std::exception);
}

TEST(ServerKeeping, secretsAreRandom) {
    std::set<std::string> seen;
    std::vector<int> firstDigits(10);
    for (int i = 0; i < 2000; ++i) {
        const std::string code = randomDigits();
        ASSERT_EQ(code.find_first_not_of("0123456789"), std::string::npos);
        ASSERT_EQ(code.size(), 6U);
        seen.insert(code);
        ++firstDigits[static_cast<std::size_t>(code.front() - '0')];
    }
    EXPECT_GT(seen.size(), 1980U);
    for (const int count : firstDigits) {
        EXPECT_GT(count, 120) << "of 200 expected";
    }
    EXPECT_EQ(hexOf(sha256("abc")).substr(0, 16), "ba7816bf8f01cfea");
    EXPECT_EQ(hexOf(keyedHash("Jefe", "what do ya want for nothing?")).substr(0, 16),
              "5bdcc146bf60754e"); // RFC 4231, 4.3
}

} // namespace
} // namespace fiscarel::server
