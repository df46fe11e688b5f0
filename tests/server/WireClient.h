#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::server {

struct WireAnswer {
    int status = 0;
    std::string head;
    std::string body;
};

/// A connection to a port of this machine that keeps to nothing: what is sent is what is given.
/// Waits at most 20 seconds for anything.
class WireClient {
  public:
    explicit WireClient(int port);
    ~WireClient();
    WireClient(const WireClient&) = delete;
    WireClient& operator=(const WireClient&) = delete;

    /// False when the other side is gone.
    bool send(std::string_view bytes) const;
    void endSending() const;
    /// The next answer; absent when the connection ends before it is whole.
    std::optional<WireAnswer> receive();
    /// Whether the other side has closed the connection, waiting for it at most so long.
    bool isClosedWithin(int milliseconds);

  private:
    bool readMore();

    int socket_ = -1;
    std::string read_;
};

/// A request as a proper client writes it.
std::string requestText(const std::string& method, const std::string& path, std::string_view body,
                        const std::string& token, const std::string& more = {});

/// A proper client: connects when need be. An answer with status 0: the connection broke.
class Machine {
  public:
    explicit Machine(int port) : port_(port) {}

    WireAnswer ask(const std::string& method, const std::string& path, std::string_view body = {},
                   const std::string& token = {}, const std::string& more = {});
    WireAnswer post(const std::string& path, std::string_view body, const std::string& token = {}) {
        return ask("POST", path, body, token);
    }
    WireAnswer get(const std::string& path, const std::string& token = {}) {
        return ask("GET", path, {}, token);
    }

  private:
    const int port_;
    std::optional<WireClient> connection_;
};

} // namespace fiscarel::server
