// The bounds of HTTP: a server in this process with bounds small enough to reach them.

#include "server/HttpServer.h"
#include "tests/server/ServerDesk.h"
#include "tests/server/WireClient.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace fiscarel::server {
namespace {

using namespace std::chrono_literals;

/// A server on a free port, served by a thread of its own.
class OpenServer {
  public:
    explicit OpenServer(HttpLimits limits = {}, bool isBehindProxy = false,
                        RateLimits::Rules rules = RateLimits::Rules::none(), SpaceLimits space = {})
        : desk(rules, space), protocol_(*desk.services),
          server_(protocol_, {.isBehindProxy = isBehindProxy, .limits = limits}),
          thread_([this] { server_.run(); }) {}
    ~OpenServer() { end(); }

    int port() const { return server_.port(); }
    void stop() { server_.stop(); }
    void end() {
        if (thread_.joinable()) {
            server_.stop();
            thread_.join();
        }
    }

    ServerDesk desk;

  private:
    Protocol protocol_;
    HttpServer server_;
    std::thread thread_;
};

TEST(ServerHttp, whatIsTooSlowIsClosedAndNobodyElseWaits) {
    OpenServer server({.mostConnections = 4, .headTime = 300ms, .bodyTime = 300ms, .threads = 1});
    const std::string token = server.desk.signIn("a@example.ch");
    std::vector<std::unique_ptr<WireClient>> slow;
    for (int i = 0; i < 3; ++i) {
        slow.push_back(std::make_unique<WireClient>(server.port()));
    }
    slow[0]->send("GET /fisc");
    slow[1]->send("POST /fiscarel/api/v1/recibo-subir.php HTTP/1.1\r\nContent-Length: 9\r\n"
                  "X-Sitzung: "
                  + token + "\r\n\r\nhalf");
    Machine machine(server.port());
    EXPECT_EQ(machine.get("cuenta.php", token).status, 200);
    for (const auto& connection : slow) {
        EXPECT_TRUE(connection->isClosedWithin(10'000));
    }
    EXPECT_EQ(server.desk.get("recibos.php", token).body, R"({"recibos":[]})") << "nothing half";
}

TEST(ServerHttp, idleConnectionsMakeRoom) {
    OpenServer server({.mostConnections = 4});
    std::vector<std::unique_ptr<WireClient>> idle;
    for (int i = 0; i < 20; ++i) {
        idle.push_back(std::make_unique<WireClient>(server.port()));
        Machine machine(server.port());
        EXPECT_EQ(machine.get("cuenta.php").status, 401) << i;
    }
    EXPECT_TRUE(idle.front()->isClosedWithin(10'000));
}

TEST(ServerHttp, headsAndBodiesHaveBounds) {
    OpenServer server({.mostBytes = 70'000, .mostHeadBytes = 2000}, false,
                      RateLimits::Rules::none(), {.mostItemBytes = 100'000});
    const std::string token = server.desk.signIn("a@example.ch");
    struct Row {
        std::string request;
        int status;
    };
    const std::string much(200'000, 'x');
    const std::vector<Row> rows{
        {requestText("GET", "cuenta.php", "", token, "X-More: " + much.substr(0, 3000) + "\r\n"),
         400},
        {"GET /" + much + " HTTP/1.1\r\n\r\n", 400},
        {"hello\r\n\r\n", 400},
        {"GET /fiscarel/api/v1/cuenta.php HTTP/9.9\r\n\r\n", 400},
        {requestText("POST", "recibo-subir.php", much.substr(0, 40'000), token), 200},
        {requestText("POST", "recibo-subir.php", much.substr(0, 80'000), token), 503},
        {requestText("POST", "recibo-subir.php", much, token), 413},
        {requestText("POST", "recibo-subir.php", much, ""), 401},
        {requestText("POST", "codigo-pedir.php", much, ""), 413},
        {"POST /fiscarel/api/v1/codigo-pedir.php HTTP/1.1\r\nContent-Length: -1\r\n\r\n", 400},
        {"POST /fiscarel/api/v1/codigo-pedir.php HTTP/1.1\r\nContent-Length: 999999999999\r\n\r\n",
         413},
        {"POST /fiscarel/api/v1/llave.php HTTP/1.1\r\nX-Sitzung: " + token
             + "\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n",
         400},
        {"POST /fiscarel/api/v1/llave.php HTTP/1.1\r\nX-Sitzung: " + token
             + "\r\nTransfer-Encoding: chunked\r\n\r\n30d40\r\n" + much + "\r\n0\r\n\r\n",
         413},
        {"POST /fiscarel/api/v1/llave.php HTTP/1.1\r\nX-Sitzung: " + token
             + "\r\nTransfer-Encoding: "
               "chunked\r\n\r\ne\r\n{\"llave\":\"abc\"\r\n1\r\n}\r\n0\r\n\r\n",
         200},
    };
    for (const Row& row : rows) {
        WireClient client(server.port());
        client.send(row.request);
        const auto answer = client.receive();
        ASSERT_TRUE(answer) << row.request.substr(0, 200);
        EXPECT_EQ(answer->status, row.status) << row.request.substr(0, 200) << answer->body;
        EXPECT_NE(answer->head.find("Cache-Control: no-store"), std::string::npos);
        if (row.status != 200) {
            EXPECT_NE(valueIn(answer->body, "error"), "");
        }
    }
}

TEST(ServerHttp, connectionsAreUsedAgainAlsoAfterARefusal) {
    OpenServer server;
    const std::string token = server.desk.signIn("a@example.ch");
    WireClient client(server.port());
    const std::string body(100'000, 'x');
    for (int i = 0; i < 3; ++i) {
        client.send(requestText("POST", "recibo-subir.php", body, "wrong"));
        client.send(requestText("GET", "cuenta.php", "", token)); // in advance
        const auto refused = client.receive();
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->status, 401);
        const auto answered = client.receive();
        ASSERT_TRUE(answered);
        EXPECT_EQ(answered->status, 200);
    }
    // Who asks first is told no before the body, or to go on.
    client.send("POST /fiscarel/api/v1/recibo-subir.php HTTP/1.1\r\nContent-Length: 3\r\nExpect: "
                "100-continue\r\nX-Sitzung: "
                + token + "\r\n\r\n");
    EXPECT_EQ(client.receive()->status, 100);
    client.send("uno");
    EXPECT_EQ(client.receive()->status, 200);
    client.send("POST /fiscarel/api/v1/recibo-subir.php HTTP/1.1\r\nContent-Length: 3\r\nExpect: "
                "100-continue\r\n\r\n");
    EXPECT_EQ(client.receive()->status, 401);
    client.endSending();
    EXPECT_TRUE(client.isClosedWithin(10'000));
    WireClient head(server.port());
    head.send("HEAD /fiscarel/api/v1/cuenta.php HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(head.receive()->body.empty());
}

TEST(ServerHttp, behindAProxyTheLastAddressItNamesCounts) {
    for (const bool isBehindProxy : {false, true}) {
        OpenServer server({}, isBehindProxy, {.requestsPerClient = {2, 60}});
        Machine machine(server.port());
        const auto status = [&](const std::string& forwarded) {
            return machine.ask("GET", "cuenta.php", "", "", forwarded).status;
        };
        EXPECT_EQ(status("X-Forwarded-For: 192.0.2.1\r\n"), 401);
        EXPECT_EQ(status("X-Forwarded-For: 192.0.2.9, 192.0.2.1\r\n"), 401);
        EXPECT_EQ(status("X-Forwarded-For: 192.0.2.8, 192.0.2.1\r\n"), 429)
            << "what the client itself writes in front counts for nothing";
        EXPECT_EQ(status("X-Forwarded-For: 192.0.2.2\r\n"), isBehindProxy ? 401 : 429);
        EXPECT_EQ(status("X-Forwarded-For: 192.0.2.3\r\nX-Forwarded-For: 192.0.2.1\r\n"), 429);
    }
}

TEST(ServerHttp, itEndsAfterTheRequestsThatRun) {
    OpenServer server;
    const std::string token = server.desk.signIn("a@example.ch");
    WireClient idle(server.port());
    WireClient running(server.port());
    running.send("POST /fiscarel/api/v1/recibo-subir.php HTTP/1.1\r\nContent-Length: 6\r\n"
                 "X-Sitzung: "
                 + token + "\r\n\r\nuno");
    Machine machine(server.port());
    EXPECT_EQ(machine.get("cuenta.php").status, 401);
    std::this_thread::sleep_for(100ms); // for its head to be read
    server.stop();
    EXPECT_TRUE(idle.isClosedWithin(10'000));
    running.send("dos");
    const auto answer = running.receive();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
    running.endSending();
    server.end();
    EXPECT_EQ(WireClient(server.port()).send("GET"), false);
    EXPECT_EQ(server.desk.used(token), "6");
}

} // namespace
} // namespace fiscarel::server
