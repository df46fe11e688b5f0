#pragma once

#include "server/Services.h"
#include "server/Sessions.h"

#include <tl/expected.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace fiscarel::server {

/// What the head of a request says, as far as the protocol cares.
struct RequestHead {
    std::string method; ///< "GET"
    std::string target; ///< "/fiscarel/api/v1/bloque.php?clave=estado"
    std::string token;  ///< of the session; empty: none
    std::string client; ///< its address, which limits are counted by
};

struct Response {
    int status = 200;
    std::string body = {};
    std::string type = "application/json";
    std::optional<std::int64_t> retryAfter = {}; ///< seconds
    std::string allow = {};                      ///< the methods that are allowed, of a 405
};

struct Endpoint;

/// A request whose body is worth reading.
struct Admission {
    const Endpoint* endpoint = nullptr;
    Session session;          ///< of endpoints that need one
    std::size_t mostBody = 0; ///< bytes
    std::string query = {};
};

/// The protocol of the encrypted backup: every request gets an answer, also one that nobody
/// foresaw. Any thread may call.
class Protocol {
  public:
    explicit Protocol(Services& services) : services_(services) {}

    /// Decides by the head: endpoint, method, rate and session.
    tl::expected<Admission, Response> admit(const RequestHead& head);
    /// Answers an admitted request with its body, at most `mostBody` bytes.
    Response answer(const Admission& admission, const RequestHead& head, std::string_view body);

    /// Answers to what is no request of this protocol.
    static Response malformed();
    static Response tooLarge();
    static Response busy();

  private:
    Services& services_;
};

/// The name of the endpoint in a request, for the log; "?" for none of ours.
std::string_view endpointName(std::string_view target);

} // namespace fiscarel::server
