// Feeds arbitrary requests to the server of the encrypted backup: the bytes decide endpoint,
// method, token, query and body. Every answer must be one of the protocol, and an account that the
// requests have no token of must stay as it is.

#include "server/Endpoints.h"
#include "server/Protocol.h"
#include "tests/fuzz/Require.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace {

using namespace fiscarel;
using namespace fiscarel::server;

using testing::require;

class NoMail final : public Mail {
  public:
    std::string code;
    bool sendCode(const std::string&, const std::string& sent) override {
        code = sent;
        return true;
    }
};

std::string textIn(std::string_view json, std::string_view key) {
    simdjson::dom::parser parser;
    std::string_view text;
    const auto status = parser.parse(simdjson::padded_string(json)).at_key(key).get(text);
    return status == simdjson::SUCCESS ? std::string(text) : std::string();
}

/// A server with two households, one of them the fuzzer's.
class Desk {
  public:
    Desk() {
        other_ = signIn("other@example.ch");
        ask("POST", "bloque-guardar.php", R"({"clave":"estado","version":0,"contenido":"safe"})",
            other_);
        ask("POST", "recibo-subir.php", "safe", other_);
        seen_ = otherHousehold();
    }

    std::string signIn(const std::string& email) {
        ask("POST", "codigo-pedir.php", R"({"email":")" + email + R"("})", "");
        return textIn(
            ask("POST", "codigo-comprobar.php",
                R"({"email":")" + email + R"(","codigo":")" + mail_.code + R"(","aparato":"Fuzz"})",
                "")
                .body,
            "token");
    }
    Response ask(const std::string& method, const std::string& path, std::string_view body,
                 const std::string& token) {
        const RequestHead head{method, "/fiscarel/api/v1/" + path, token, "192.0.2.1"};
        const auto admission = protocol_.admit(head);
        if (!admission) {
            return admission.error();
        }
        return body.size() > admission->mostBody ? Protocol::tooLarge()
                                                 : protocol_.answer(*admission, head, body);
    }
    void checkOther() { require(otherHousehold() == seen_, "another account stays as it is"); }

  private:
    std::string otherHousehold() {
        return ask("GET", "bloque.php?clave=estado", "", other_).body
               + ask("GET", "recibos.php", "", other_).body
               + ask("GET", "llave.php", "", other_).body;
    }

    testing::TemporaryFolder folder_;
    testing::FakeClock clock_;
    NoMail mail_;
    Services services_{folder_.path(),
                       mail_,
                       clock_,
                       RateLimits::Rules::none(),
                       {.mostItemBytes = 10'000, .mostAccountBytes = 50'000}};
    Protocol protocol_{services_};
    std::string other_;
    std::string seen_;
};

void check(const Response& response) {
    static const std::set<std::string> errors{
        "peticion",    "email",   "codigo",           "codigo_quemado", "codigo_caducado",
        "sin_sesion",  "metodo",  "no_encontrado",    "version",        "llave",
        "sin_espacio", "interno", "demasiado_grande", "sesion_caducada"};
    static const std::set<int> statuses{200, 400, 401, 403, 404, 405, 409, 410, 413, 507};
    require(statuses.contains(response.status), "a status of the protocol");
    if (response.status != 200) {
        require(errors.contains(textIn(response.body, "error")), "an error of the protocol");
    }
}

} // namespace

/// The first byte chooses the endpoint, the second method and token; a line with the query and the
/// body follow.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desk desk;
    static std::string token;
    if (size < 2) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto endpoints = allEndpoints();
    const Endpoint& endpoint = endpoints[data[0] % endpoints.size()];
    const std::string_view rest = bytes.substr(2);
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string query(rest.substr(0, end));
    const std::string body(rest.substr(std::min(end + 1, rest.size())));
    const bool isSigningOut = endpoint.path == "salir.php";
    if (token.empty() || isSigningOut) {
        token = desk.signIn("fuzz@example.ch");
    }
    static const std::array<std::string, 4> methods{"GET", "POST", "PUT", ""};
    const std::string method =
        data[1] < 200 ? std::string(endpoint.method) : methods[data[1] % methods.size()];
    const std::string used = data[1] % 8 == 7 ? query : token;
    const Response response = desk.ask(
        method, std::string(endpoint.path) + (query.empty() ? "" : "?" + query), body, used);
    check(response);
    if (isSigningOut) {
        token.clear();
    }
    if (response.status == 200) { // what was refused has changed nothing
        desk.checkOther();
    }
    return 0;
}
