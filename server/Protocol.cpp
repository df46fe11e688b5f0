#include "server/Protocol.h"

#include "server/Endpoints.h"
#include "server/ServerLog.h"

#include <exception>

namespace fiscarel::server {

namespace {

constexpr std::string_view prefix = "/fiscarel/api/v1/";
constexpr std::size_t mostSmallBody = std::size_t{64} << 10U;
/// What a block's body has besides its content.
constexpr std::size_t aroundBlock = std::size_t{1} << 20U;

Response refusal(const Refusal& why) {
    return {.status = why.status, .body = wire::write(why.error), .retryAfter = why.retryAfter};
}

Response refusal(int status, std::string code) {
    return refusal(Refusal{.status = status, .error = {.error = std::move(code)}});
}

/// Runs what asks database and disk; whatever they throw is one answer.
template <class Work>
auto guarded(const Work& work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::exception& failure) {
        logLine(std::string("internal error: ") + failure.what());
        return decltype(work())(tl::unexpected(refusal(500, "interno")));
    }
}

std::string_view pathOf(std::string_view target) {
    return target.starts_with(prefix)
               ? target.substr(prefix.size(), target.find('?') - prefix.size())
               : std::string_view();
}

/// The endpoint of a path and method; else the answer to a path or a method that there is not.
tl::expected<const Endpoint*, Response> endpointFor(const RequestHead& head) {
    const std::string_view path = pathOf(head.target);
    std::string allowed;
    for (const Endpoint& endpoint : allEndpoints()) {
        if (endpoint.path == path) {
            if (endpoint.method == head.method) {
                return &endpoint;
            }
            allowed += (allowed.empty() ? "" : ", ") + std::string(endpoint.method);
        }
    }
    if (allowed.empty()) {
        return tl::unexpected(refusal(404, "no_encontrado"));
    }
    Response response = refusal(405, "metodo");
    response.allow = allowed;
    return tl::unexpected(std::move(response));
}

tl::expected<Session, Response> sessionOf(Services& services, const std::string& token) {
    const Moment now = services.clock.now();
    const auto session =
        services.store.read([&](Database& database) { return findSession(database, token, now); });
    if (!session) {
        return tl::unexpected(
            refusal(401, session.error() == NoSession::over ? "sesion_caducada" : "sin_sesion"));
    }
    if (isWorthNoting(*session, now)) {
        services.store.change([&](Database& database) { noteUse(database, *session, now); });
    }
    return *session;
}

} // namespace

tl::expected<Admission, Response> Protocol::admit(const RequestHead& head) {
    return guarded([&]() -> tl::expected<Admission, Response> {
        const auto wait =
            services_.rates.take(RateLimits::Kind::requests, head.client, services_.clock.now());
        if (wait) {
            return tl::unexpected(refusal(Refusal{
                .status = 429, .error = {.error = "zu_viele_versuche"}, .retryAfter = wait}));
        }
        const auto endpoint = endpointFor(head);
        if (!endpoint) {
            return tl::unexpected(endpoint.error());
        }
        Admission admission{.endpoint = *endpoint, .mostBody = mostSmallBody};
        if ((*endpoint)->needsSession) {
            auto session = sessionOf(services_, head.token);
            if (!session) {
                return tl::unexpected(std::move(session.error()));
            }
            admission.session = *session;
        }
        const auto mostItem = static_cast<std::size_t>(services_.limits.mostItemBytes);
        if ((*endpoint)->body == Endpoint::Body::block) {
            admission.mostBody = mostItem + aroundBlock;
        } else if ((*endpoint)->body == Endpoint::Body::document) {
            admission.mostBody = mostItem;
        }
        const std::size_t mark = head.target.find('?');
        admission.query = mark == std::string::npos ? "" : head.target.substr(mark + 1);
        return admission;
    });
}

Response Protocol::answer(const Admission& admission, const RequestHead& head,
                          std::string_view body) {
    auto answered = guarded([&]() -> tl::expected<Response, Response> {
        auto answer = admission.endpoint->answer({.services = services_,
                                                  .session = admission.session,
                                                  .query = admission.query,
                                                  .body = body,
                                                  .client = head.client,
                                                  .now = services_.clock.now()});
        return answer ? std::move(*answer) : refusal(answer.error());
    });
    return answered ? std::move(*answered) : std::move(answered.error());
}

Response Protocol::malformed() { return refusal(400, "peticion"); }

Response Protocol::tooLarge() { return refusal(413, "demasiado_grande"); }

Response Protocol::busy() {
    Response response = refusal(503, "ocupado");
    response.retryAfter = 5;
    return response;
}

std::string_view endpointName(std::string_view target) {
    for (const Endpoint& endpoint : allEndpoints()) {
        if (endpoint.path == pathOf(target)) {
            return endpoint.path;
        }
    }
    return "?";
}

} // namespace fiscarel::server
