// The real program: many clients at once, killed in the midst of its work, fed with rubbish.

#include "tests/support/RunningServer.h"

#include "tests/server/ServerDesk.h"
#include "tests/server/WireClient.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fiscarel::server {
namespace {

using namespace testing;
namespace fs = std::filesystem;

std::string signIn(const RunningServer& server, const std::string& email) {
    Machine machine(server.port());
    machine.post("codigo-pedir.php", R"({"email":")" + email + R"("})");
    const std::string login = R"({"email":")" + email + R"(","codigo":")" + server.latestCode(email)
                              + R"(","aparato":"Computer"})";
    return valueIn(machine.post("codigo-comprobar.php", login).body, "token");
}

std::string blockText(std::int64_t version, const std::string& content) {
    return R"({"clave":"estado","version":)" + std::to_string(version) + R"(,"contenido":")"
           + content + R"("})";
}

/// Runs something on so many threads at once.
template <class Work>
void onThreads(int count, const Work& work) {
    std::vector<std::jthread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&work, i] { work(i); });
    }
}

TEST(RunningServerTest, manyClientsOnOneBlockGetOneVersionAfterTheOther) {
    const RunningServer server;
    const std::string token = signIn(server, "a@example.ch");
    constexpr int clients = 10;
    constexpr int attempts = 100;
    std::mutex mutex;
    std::map<std::int64_t, std::string> saved; ///< by version
    std::atomic<int> conflicts = 0;
    std::atomic<int> others = 0;
    onThreads(clients, [&](int client) {
        Machine machine(server.port());
        std::int64_t known = 0;
        for (int i = 0; i < attempts; ++i) {
            const std::string content = "on " + std::to_string(known) + " by "
                                        + std::to_string(client) + " at " + std::to_string(i);
            const WireAnswer answer =
                machine.post("bloque-guardar.php", blockText(known, content), token);
            if (answer.status == 200) {
                const std::int64_t version = std::stoll(valueIn(answer.body, "version"));
                EXPECT_EQ(version, known + 1);
                known = version;
                const std::lock_guard lock(mutex);
                EXPECT_TRUE(saved.emplace(version, content).second) << version << " given twice";
            } else if (answer.status == 409) {
                ++conflicts;
                const std::int64_t current = std::stoll(valueIn(answer.body, "version_actual"));
                EXPECT_NE(current, known);
                known = current;
            } else {
                ++others;
            }
            if (i % 10 == 0) {
                const WireAnswer seen = machine.get("bloque.php?clave=estado", token);
                const std::int64_t version = std::stoll(valueIn(seen.body, "version"));
                EXPECT_TRUE(valueIn(seen.body, "contenido")
                                .starts_with("on " + std::to_string(version - 1) + " by "))
                    << seen.body;
            }
        }
    });
    EXPECT_EQ(others, 0);
    EXPECT_EQ(static_cast<int>(saved.size()) + conflicts, clients * attempts);
    EXPECT_GT(conflicts, attempts) << "they did get in each other's way";
    EXPECT_EQ(saved.rbegin()->first, static_cast<std::int64_t>(saved.size())) << "none is missing";
    const WireAnswer last = Machine(server.port()).get("bloque.php?clave=estado", token);
    EXPECT_EQ(valueIn(last.body, "contenido"), saved.rbegin()->second);
    RecordProperty("saved", static_cast<int>(saved.size()));
    RecordProperty("conflicts", conflicts);
}

TEST(RunningServerTest, uploadsAtOnceKeepToTheSpaceAndMakeNoTwins) {
    const RunningServer server({"--no-rate-limits", "--account-megabytes", "1"});
    const std::string token = signIn(server, "a@example.ch");
    const std::string other = signIn(server, "b@example.ch");
    std::mutex mutex;
    std::multiset<int> statuses;
    std::set<std::string> ids;
    onThreads(8, [&](int client) {
        Machine machine(server.port());
        const std::string body(209'715, static_cast<char>('a' + client)); // five fit
        const int status = machine.post("recibo-subir.php", body, token).status;
        const std::string id =
            valueIn(machine.post("recibo-subir.php", std::string(500'000, 'x'), other).body, "id");
        const std::lock_guard lock(mutex);
        statuses.insert(status);
        ids.insert(id);
    });
    EXPECT_EQ(statuses.count(200), 5U);
    EXPECT_EQ(statuses.count(507), 3U);
    EXPECT_EQ(ids.size(), 1U);
    EXPECT_EQ(namesIn(server.data() / "receipts").size(), 6U);
}

/// What a machine was told of and may have been in the midst of.
struct Told {
    std::int64_t version = 0;
    std::string content;
    std::string attempt; ///< the content sent last
    std::map<std::string, std::string> kept;
    std::set<std::string> deleted;
    std::string token;
};

/// Saves, keeps and deletes until the server is gone.
void workUntilItEnds(int port, Told& told, std::mt19937 random) {
    Machine machine(port);
    while (true) {
        told.attempt = std::to_string(told.version) + std::string(random() % 20'000, 'c');
        const WireAnswer saved =
            machine.post("bloque-guardar.php", blockText(told.version, told.attempt), told.token);
        if (saved.status != 200) {
            return;
        }
        told.version = std::stoll(valueIn(saved.body, "version"));
        told.content = told.attempt;
        std::string document(random() % 100'000 + 1, '\0');
        for (std::size_t i = 0; i < document.size(); i += 97) {
            document[i] = static_cast<char>(random());
        }
        const WireAnswer kept = machine.post("recibo-subir.php", document, told.token);
        if (kept.status != 200) {
            return;
        }
        told.kept[valueIn(kept.body, "id")] = document;
        if (random() % 3 == 0) {
            const std::string id = told.kept.begin()->first;
            told.kept.erase(id); // it may be gone or not until it is told
            if (machine.post("recibo-borrar.php", R"({"id":")" + id + R"("})", told.token).status
                != 200) {
                return;
            }
            told.deleted.insert(id);
        }
    }
}

void expectAllThere(int port, Told& told) {
    Machine machine(port);
    const WireAnswer block = machine.get("bloque.php?clave=estado", told.token);
    ASSERT_EQ(block.status, 200) << "still signed in";
    const std::int64_t version =
        block.body == "null" ? 0 : std::stoll(valueIn(block.body, "version"));
    const std::string content = valueIn(block.body, "contenido");
    EXPECT_TRUE(version == told.version ? content == told.content
                                        : version == told.version + 1 && content == told.attempt)
        << "version " << version << " instead of " << told.version;
    told.version = version;
    told.content = content;
    const std::string list = machine.get("recibos.php", told.token).body;
    for (const auto& [id, document] : told.kept) {
        EXPECT_NE(list.find(id), std::string::npos);
        EXPECT_EQ(machine.get("recibo.php?id=" + id, told.token).body, document);
    }
    for (const std::string& id : told.deleted) {
        EXPECT_EQ(list.find(id), std::string::npos);
    }
    simdjson::dom::parser parser;
    const simdjson::dom::array listed =
        parser.parse(simdjson::padded_string(list))["recibos"].get_array();
    for (const simdjson::dom::element entry : listed) {
        const std::string id(entry["id"].get_string().value());
        const auto size = static_cast<std::size_t>(entry["tamano"].get_int64().value());
        EXPECT_EQ(machine.get("recibo.php?id=" + id, told.token).body.size(), size) << "half";
    }
}

TEST(RunningServerTest, whatItAcknowledgedSurvivesBeingKilled) {
    RunningServer server;
    constexpr int machines = 4;
    std::vector<Told> told(machines);
    for (int i = 0; i < machines; ++i) {
        told[static_cast<std::size_t>(i)].token =
            signIn(server, "a" + std::to_string(i) + "@example.ch");
    }
    std::mt19937 random(20'260'308);
    for (int round = 0; round < 8; ++round) {
        {
            std::vector<std::jthread> threads;
            for (Told& one : told) {
                threads.emplace_back([&one, port = server.port(), seed = random()] {
                    workUntilItEnds(port, one, std::mt19937(seed));
                });
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20 + random() % 300));
            server.kill();
        }
        server.start();
        for (Told& one : told) {
            expectAllThere(server.port(), one);
        }
        std::size_t files = 0;
        for (Told& one : told) {
            files +=
                static_cast<std::size_t>(std::stoi(valueIn(
                    valueIn(Machine(server.port()).get("cuenta.php", one.token).body, "espacio"),
                    "usado")))
                > 0;
        }
        EXPECT_EQ(files, told.size()) << "round " << round << " did some work";
    }
    EXPECT_GT(told[0].version, 8);
    EXPECT_GT(told[0].deleted.size(), 1U);
    EXPECT_EQ(server.end(), 0);
    EXPECT_EQ(server.log().find("internal error"), std::string::npos) << server.log();
}

/// Changes a request here and there.
std::string mutated(std::string text, std::mt19937& random) {
    static const std::vector<std::string> pieces{"\r\n",
                                                 "\r\n\r\n",
                                                 std::string(1, '\0'),
                                                 "{",
                                                 "}",
                                                 "\"",
                                                 "%",
                                                 "%00",
                                                 "..",
                                                 "/",
                                                 "?",
                                                 ":",
                                                 " ",
                                                 "\xff",
                                                 "Content-Length: 5\r\n",
                                                 "Transfer-Encoding: chunked\r\n",
                                                 "HTTP/1.1",
                                                 "-1",
                                                 "1e400",
                                                 "99999999999999999999",
                                                 "X-Sitzung: ",
                                                 "\\u0000",
                                                 "null",
                                                 "[[[[[[[[[[[[[[[[[[[["};
    const auto anywhere = [&] { return random() % (text.size() + 1); };
    for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
        const std::size_t at = anywhere();
        switch (random() % 6) {
        case 0:
            text.insert(at, pieces[random() % pieces.size()]);
            break;
        case 1:
            text.erase(at, random() % 20);
            break;
        case 2:
            text.resize(at);
            break;
        case 3:
            text.insert(anywhere(), text.substr(at, random() % 200));
            break;
        default:
            if (at < text.size()) {
                text[at] = static_cast<char>(random());
            }
        }
    }
    return text;
}

TEST(RunningServerTest, rubbishGetsTheProtocolsErrorsAndHarmsNothing) {
    RunningServer server;
    const std::string victim = signIn(server, "victim@example.ch");
    Machine machine(server.port());
    ASSERT_EQ(machine.post("bloque-guardar.php", blockText(0, "safe"), victim).status, 200);
    const std::string token = signIn(server, "a@example.ch");
    const std::vector<std::string> valid{
        requestText("POST", "codigo-pedir.php", R"({"email":"c@example.ch"})", ""),
        requestText("POST", "codigo-comprobar.php",
                    R"({"email":"c@example.ch","codigo":"123456","aparato":"B\u00fcro"})", ""),
        requestText("GET", "cuenta.php", "", token),
        requestText("GET", "llave.php", "", token),
        requestText("POST", "llave.php", R"({"llave":"abc","anterior":null})", token),
        requestText("GET", "bloque.php?clave=estado", "", token),
        requestText("POST", "bloque-guardar.php", blockText(0, "abc"), token),
        requestText("GET", "recibos.php", "", token),
        requestText("POST", "recibo-subir.php", std::string("\0\1\2", 3), token),
        requestText("GET", "recibo.php?id=0123", "", token),
        requestText("POST", "recibo-borrar.php", R"({"id":"0123"})", token),
        "POST /fiscarel/api/v1/llave.php HTTP/1.1\r\nTransfer-Encoding: chunked\r\nX-Sitzung: "
            + token + "\r\n\r\n5\r\n{\"lla\r\n9\r\nve\":\"abc\"\r\n1\r\n}\r\n0\r\n\r\n"};
    const std::map<int, std::set<std::string>> errors{{400, {"peticion", "email"}},
                                                      {401, {"sin_sesion"}},
                                                      {403, {"codigo", "codigo_quemado"}},
                                                      {404, {"no_encontrado"}},
                                                      {405, {"metodo"}},
                                                      {409, {"version", "llave"}},
                                                      {410, {"codigo_caducado"}},
                                                      {413, {"demasiado_grande"}}};
    std::map<int, int> seen;
    std::mt19937 random(7);
    for (int i = 0; i < 10'000; ++i) {
        const std::string text = mutated(valid[random() % valid.size()], random);
        WireClient client(server.port());
        client.send(text);
        client.endSending();
        ++seen[0];
        while (const auto answer = client.receive()) {
            ++seen[answer->status];
            if (answer->status >= 300) {
                const auto known = errors.find(answer->status);
                ASSERT_NE(known, errors.end()) << answer->head << answer->body << "\nto\n" << text;
                EXPECT_TRUE(answer->body.empty() // of a HEAD
                            || known->second.contains(valueIn(answer->body, "error")))
                    << answer->body << "\nto\n"
                    << text;
            }
        }
    }
    for (const int status : {200, 400, 401, 404, 405}) {
        EXPECT_GT(seen[status], 20) << status;
    }
    EXPECT_EQ(machine.get("bloque.php?clave=estado", victim).body,
              R"({"contenido":"safe","version":1})");
    EXPECT_EQ(server.end(), 0) << "it lived through it";
    EXPECT_EQ(server.log().find("internal error"), std::string::npos) << server.log();
}

TEST(RunningServerTest, filesAreForItsUserAloneAndTheLogTellsNothing) {
    RunningServer server({"--no-rate-limits", "--log-requests"});
    const std::string email = "someone.special@example.ch";
    const std::string token = signIn(server, email);
    Machine machine(server.port());
    const std::string id =
        valueIn(machine.post("recibo-subir.php", "sealed bytes", token).body, "id");
    machine.get("recibo.php?id=" + id, token);
    machine.get("bloque.php?clave=estado&x=" + token, token);
    machine.get("nothing/" + token, token);
    const auto onlyOwner = fs::perms::owner_all;
    for (const auto& entry : fs::recursive_directory_iterator(server.data().parent_path())) {
        if (entry.path().filename() != "log") {
            EXPECT_EQ(entry.status().permissions() & ~onlyOwner, fs::perms::none) << entry.path();
        }
    }
    EXPECT_TRUE(fs::exists(server.codeFile()));
    const std::string code = server.latestCode(email);
    const std::string log = server.log();
    EXPECT_NE(log.find("recibo.php 200"), std::string::npos) << log;
    for (const std::string& secret :
         {email, std::string("special"), token, code, id, std::string("sealed bytes")}) {
        EXPECT_EQ(log.find(secret), std::string::npos) << secret;
    }
}

TEST(RunningServerTest, theCommandLineOfItsKeeper) {
    RunningServer server;
    const std::string token = signIn(server, "a@example.ch");
    Machine machine(server.port());
    const auto planned = [&] {
        return valueIn(machine.get("cuenta.php", token).body, "borrado_previsto");
    };
    EXPECT_EQ(server.runOnce({"--delete-account", "A@example.ch", "--in-days", "3"}), 0);
    EXPECT_EQ(planned().size(), 10U) << "while the server runs";
    EXPECT_EQ(server.runOnce({"--keep-account", "a@example.ch"}), 0);
    EXPECT_EQ(planned(), "");
    EXPECT_EQ(server.runOnce({"--delete-account", "b@example.ch"}), 1);
    EXPECT_EQ(server.runOnce({"--code-file", server.codeFile().string(), "--port", "0"}), 1)
        << "one server on a folder";
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {},
             {"--smtp", "localhost", "--mail-from", "a@b.ch"},
             {"--smtp", "smtp://localhost"},
             {"--smtp", "smtp://localhost", "--mail-from", "nobody"},
             {"--code-file", "codes", "--smtp", "smtp://localhost", "--mail-from", "a@b.ch"},
             {"--port", "70000", "--code-file", "codes"},
             {"--code-file", "codes", "--allow-file", "/none"},
             {"--code-file", "codes", "--allow-file", server.codeFile().string()},
             {"--smtp", "smtp://h", "--mail-from", "a@b.ch", "--smtp-password-file", "/none"}}) {
        EXPECT_EQ(server.runOnce(arguments), 2);
    }
    EXPECT_EQ(server.runOnce({"--delete-account", "a@example.ch", "--in-days", "0"}), 0);
    EXPECT_EQ(server.end(), 0);
    server.start();
    for (int wait = 0; wait < 100 && machine.get("cuenta.php", token).status != 401; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(machine.get("cuenta.php", token).status, 401);
}

} // namespace
} // namespace fiscarel::server
