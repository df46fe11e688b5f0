#pragma once

#include "server/Protocol.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace fiscarel::server {

/// Bounds on what connections may take up.
struct HttpLimits {
    std::size_t mostConnections = 256;                 ///< beyond them idle ones are closed
    std::int64_t mostBytes = std::int64_t{512} << 20U; ///< bodies held at once; then 503
    std::size_t mostHeadBytes = 16'384;
    std::chrono::milliseconds headTime{30'000};  ///< for a head, and between requests
    std::chrono::milliseconds bodyTime{300'000}; ///< for a body, either way
    std::chrono::milliseconds endTime{20'000};   ///< for running requests when the server ends
    int threads = 8;                             ///< that ask database and disk
};

/// Speaks HTTP/1.1 for a `Protocol`. One thread moves bytes, others answer.
class HttpServer {
  public:
    struct Settings {
        std::string address = "127.0.0.1";
        unsigned short port = 0;         ///< 0: one that is free
        bool isBehindProxy = false;      ///< the client is the last of X-Forwarded-For
        bool logsRequests = false;       ///< a line each: endpoint, status, milliseconds
        std::function<void()> everyHour; ///< called at once and then every hour
        HttpLimits limits;
    };

    /// Listens. Throws `std::exception` when the address or port is not to be had.
    HttpServer(Protocol& protocol, Settings settings);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    unsigned short port() const;
    /// Serves until SIGTERM, SIGINT or `stop`; requests that run are finished.
    void run();
    /// Any thread may call.
    void stop();

    class Core;

  private:
    std::unique_ptr<Core> core_;
};

} // namespace fiscarel::server
