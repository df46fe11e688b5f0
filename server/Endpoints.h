#pragma once

#include "server/Protocol.h"
#include "server/WireRecords.h"

#include <span>
#include <string_view>

namespace fiscarel::server {

/// Why a request gets no answer of its endpoint.
struct Refusal {
    int status = 400;
    wire::Error error;
    std::optional<std::int64_t> retryAfter = {};
};

using Answer = tl::expected<Response, Refusal>;

/// A request as its endpoint sees it.
struct Call {
    Services& services;
    const Session& session;
    std::string_view query; ///< behind the "?"
    std::string_view body;
    std::string_view client;
    Moment now;
};

struct Endpoint {
    enum class Body { small, block, document };

    std::string_view path; ///< behind the prefix
    std::string_view method;
    bool needsSession = true;
    Body body = Body::small;
    Answer (*answer)(const Call&) = nullptr;
};

std::span<const Endpoint> allEndpoints();

} // namespace fiscarel::server
