#pragma once

#include "server/Protocol.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <simdjson.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace fiscarel::server {

/// Keeps the last code of each address, or is out of order.
class FakeMail final : public Mail {
  public:
    std::map<std::string, std::string> codes;
    bool works = true;

    bool sendCode(const std::string& address, const std::string& code) override {
        codes[address] = code;
        return works;
    }
};

/// The value of a key of a JSON object as text, numbers and lists as written; "" where there is
/// none.
inline std::string valueIn(std::string_view json, std::string_view key) {
    simdjson::dom::parser parser;
    simdjson::dom::element value;
    if (parser.parse(simdjson::padded_string(json)).at_key(key).get(value) != simdjson::SUCCESS) {
        return {};
    }
    std::string_view text;
    return value.get(text) == simdjson::SUCCESS ? std::string(text) : simdjson::minify(value);
}

/// A server without its sockets: time stands still until it is moved, mails stay here.
class ServerDesk {
  public:
    explicit ServerDesk(RateLimits::Rules rules = RateLimits::Rules::none(), SpaceLimits space = {})
        : rules_(rules), space_(space) {
        open();
    }

    /// Opens the folder anew, as a restarted server does.
    void open() {
        services.reset();
        services = std::make_unique<Services>(folder.path(), mail, clock, rules_, space_);
        services->removeLeftovers();
        services->tidyUp();
    }

    Response ask(const std::string& method, const std::string& path, std::string_view body = {},
                 const std::string& token = {}, const std::string& client = "192.0.2.1") {
        Protocol protocol(*services);
        const RequestHead head{method, "/fiscarel/api/v1/" + path, token, client};
        const auto admission = protocol.admit(head);
        if (!admission) {
            return admission.error();
        }
        return body.size() > admission->mostBody ? Protocol::tooLarge()
                                                 : protocol.answer(*admission, head, body);
    }
    Response post(const std::string& path, std::string_view body, const std::string& token = {}) {
        return ask("POST", path, body, token);
    }
    Response get(const std::string& path, const std::string& token = {}) {
        return ask("GET", path, {}, token);
    }

    Response check(const std::string& email, const std::string& code,
                   const std::string& device = "Computer") {
        return post("codigo-comprobar.php", R"({"email":")" + email + R"(","codigo":")" + code
                                                + R"(","aparato":")" + device + R"("})");
    }
    /// Signs in a device; its token.
    std::string signIn(const std::string& email, const std::string& device = "Computer") {
        post("codigo-pedir.php", R"({"email":")" + email + R"("})");
        return valueIn(check(email, mail.codes[email], device).body, "token");
    }
    Response save(const std::string& token, int version, const std::string& content,
                  const std::string& name = "estado") {
        return post("bloque-guardar.php",
                    R"({"clave":")" + name + R"(","version":)" + std::to_string(version)
                        + R"(,"contenido":")" + content + R"("})",
                    token);
    }
    std::string used(const std::string& token) {
        return valueIn(valueIn(get("cuenta.php", token).body, "espacio"), "usado");
    }
    void pass(std::int64_t seconds) { clock.moment.seconds += seconds; }

    testing::TemporaryFolder folder;
    testing::FakeClock clock;
    FakeMail mail;
    std::unique_ptr<Services> services;

  private:
    RateLimits::Rules rules_;
    SpaceLimits space_;
};

/// Status and body in one, to compare.
inline std::string told(const Response& response) {
    return std::to_string(response.status) + (response.body.empty() ? "" : " ") + response.body;
}

} // namespace fiscarel::server
