#include "server/Accounts.h"
#include "server/EmailAddress.h"
#include "server/Secrets.h"
#include "tests/server/ServerDesk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fiscarel::server {
namespace {

constexpr std::int64_t day = 86'400;

TEST(ServerProtocol, answersWithTheKeysAgreedOn) {
    ServerDesk desk;
    EXPECT_EQ(told(desk.post("codigo-pedir.php", R"({"email":" Anna@Example.CH "})")), "200");
    const Response login = desk.check("anna@example.ch", desk.mail.codes["anna@example.ch"]);
    const std::string token = valueIn(login.body, "token");
    EXPECT_EQ(token.size(), 64U);
    EXPECT_EQ(told(login), R"(200 {"cuenta":{"email":"anna@example.ch","nueva":true,)"
                           R"("tiene_llave":false},"token":")"
                               + token + R"("})");
    EXPECT_EQ(told(desk.get("llave.php", token)), "200 {}");
    EXPECT_EQ(told(desk.post("llave.php", R"({"llave":"geheim"})", token)), "200");
    EXPECT_EQ(told(desk.get("llave.php", token)), R"(200 {"llave":"geheim"})");
    EXPECT_EQ(told(desk.get("bloque.php?clave=estado", token)), "200 null");
    EXPECT_EQ(told(desk.save(token, 0, "abc")), R"(200 {"version":1})");
    EXPECT_EQ(told(desk.get("bloque.php?clave=es%74ado", token)),
              R"(200 {"contenido":"abc","version":1})");
    const Response kept = desk.post("recibo-subir.php", std::string("\0\1\2\3", 4), token);
    const std::string id = valueIn(kept.body, "id");
    EXPECT_EQ(told(kept), R"(200 {"id":")" + id + R"(","tamano":4})");
    EXPECT_EQ(told(desk.get("recibos.php", token)),
              R"(200 {"recibos":[{"id":")" + id + R"(","tamano":4}]})");
    const Response sealed = desk.get("recibo.php?id=" + id, token);
    EXPECT_EQ(sealed.body, std::string("\0\1\2\3", 4));
    EXPECT_EQ(sealed.type, "application/octet-stream");
    desk.pass(day);
    EXPECT_NE(desk.signIn("anna@example.ch", "  B\\u00fc\\u0000ro\\n\\u202e "), "");
    EXPECT_EQ(told(desk.get("cuenta.php", token)),
              R"(200 {"aparatos":[{"aparato":"Computer","desde":"2026-03-08T20:00:00Z",)"
              R"("este":true,"id":1,"ultima_vez":"2026-03-09T20:00:00Z"},)"
              R"({"aparato":"Büro","desde":"2026-03-09T20:00:00Z","este":false,"id":2,)"
              R"("ultima_vez":"2026-03-09T20:00:00Z"}],"email":"anna@example.ch",)"
              R"("espacio":{"maximo":1073741824,"usado":7},"tiene_llave":true})");
    EXPECT_EQ(told(desk.post("recibo-borrar.php", R"({"id":")" + id + R"("})", token)), "200");
    EXPECT_EQ(told(desk.get("recibos.php", token)), R"(200 {"recibos":[]})");
    EXPECT_EQ(desk.used(token), "3");
    EXPECT_EQ(told(desk.post("salir.php", "", token)), "200");
    EXPECT_EQ(told(desk.get("cuenta.php", token)), R"(401 {"error":"sin_sesion"})");
}

struct Request {
    std::string method;
    std::string path;
    std::string body;
};

/// Every endpoint that belongs to an account, asked for what is there.
std::vector<Request> requestsOfAccount(const std::string& receipt) {
    return {
        {"GET", "cuenta.php", ""},
        {"GET", "llave.php", ""},
        {"POST", "llave.php", R"({"llave":"falsch","anterior":"llave de A"})"},
        {"GET", "bloque.php?clave=estado", ""},
        {"POST", "bloque-guardar.php", R"({"clave":"estado","version":1,"contenido":"falsch"})"},
        {"GET", "recibos.php", ""},
        {"POST", "recibo-subir.php", "falsch"},
        {"GET", "recibo.php?id=" + receipt, ""},
        {"POST", "recibo-borrar.php", R"({"id":")" + receipt + R"("})"},
        {"POST", "salir.php", ""}};
}

/// An account with a key, a block and a document.
struct Household {
    explicit Household(ServerDesk& desk) : token(desk.signIn("a@example.ch")) {
        desk.post("llave.php", R"({"llave":"llave de A"})", token);
        desk.save(token, 0, "estado de A");
        receipt = valueIn(desk.post("recibo-subir.php", "recibo de A", token).body, "id");
    }
    std::string token;
    std::string receipt;

    void expectUntouched(ServerDesk& desk, const std::string& after) const {
        EXPECT_EQ(valueIn(desk.get("llave.php", token).body, "llave"), "llave de A") << after;
        EXPECT_EQ(told(desk.get("bloque.php?clave=estado", token)),
                  R"(200 {"contenido":"estado de A","version":1})")
            << after;
        EXPECT_EQ(told(desk.get("recibos.php", token)),
                  R"(200 {"recibos":[{"id":")" + receipt + R"(","tamano":11}]})")
            << after;
        EXPECT_EQ(desk.get("recibo.php?id=" + receipt, token).body, "recibo de A") << after;
    }
};

TEST(ServerProtocol, withoutASessionNothingIsToldOrDone) {
    ServerDesk desk;
    const Household household(desk);
    const std::string signedOut = desk.signIn("a@example.ch");
    desk.post("salir.php", "", signedOut);
    std::string guessed = household.token;
    guessed.back() = guessed.back() == '0' ? '1' : '0';
    const std::string hash = sha256(household.token);
    for (const Request& request : requestsOfAccount(household.receipt)) {
        for (const std::string& token : {std::string(), signedOut, guessed, std::string("'; --"),
                                         hexOf(hash), hash, household.token + household.token}) {
            EXPECT_EQ(told(desk.ask(request.method, request.path, request.body, token)),
                      R"(401 {"error":"sin_sesion"})")
                << request.path;
        }
        household.expectUntouched(desk, request.path);
    }
    desk.pass(sessionSeconds);
    for (const Request& request : requestsOfAccount(household.receipt)) {
        EXPECT_EQ(told(desk.ask(request.method, request.path, request.body, household.token)),
                  R"(401 {"error":"sesion_caducada"})")
            << request.path;
    }
    desk.pass(-1);
    household.expectUntouched(desk, "the last second");
    desk.pass(sessionSeconds - 1);
    household.expectUntouched(desk, "used in between");
}

TEST(ServerProtocol, anotherAccountSeesAndChangesNothing) {
    ServerDesk desk;
    const Household household(desk);
    const std::string other = desk.signIn("b@example.ch");
    const std::string nobody(household.receipt.size(), '0');
    // As if there were nothing: the same answers as for what does not exist anywhere.
    EXPECT_EQ(told(desk.get("llave.php", other)), "200 {}");
    EXPECT_EQ(told(desk.post("llave.php", R"({"llave":"x","anterior":"llave de A"})", other)),
              R"(409 {"error":"llave"})");
    EXPECT_EQ(told(desk.get("bloque.php?clave=estado", other)), "200 null");
    EXPECT_EQ(told(desk.save(other, 1, "x")), R"(409 {"error":"version","version_actual":0})");
    EXPECT_EQ(told(desk.get("recibos.php", other)), R"(200 {"recibos":[]})");
    EXPECT_EQ(told(desk.get("recibo.php?id=" + household.receipt, other)),
              told(desk.get("recibo.php?id=" + nobody, other)));
    EXPECT_EQ(told(desk.get("recibo.php?id=" + nobody, other)), R"(404 {"error":"no_encontrado"})");
    EXPECT_EQ(
        told(desk.post("recibo-borrar.php", R"({"id":")" + household.receipt + R"("})", other)),
        "200");
    const Response twin = desk.post("recibo-subir.php", "recibo de A", other);
    EXPECT_NE(valueIn(twin.body, "id"), household.receipt) << "tells nobody who has the same";
    const std::string shown = desk.get("cuenta.php", other).body;
    EXPECT_EQ(valueIn(valueIn(shown, "espacio"), "usado"), "11") << "the twin counts";
    EXPECT_EQ(shown.find("a@example.ch"), std::string::npos);
    EXPECT_EQ(told(desk.save(other, 0, "estado de B")), R"(200 {"version":1})");
    household.expectUntouched(desk, "another account");
    for (const Request& request : requestsOfAccount(household.receipt)) {
        const Response answer = desk.ask(request.method, request.path, request.body, other);
        EXPECT_EQ(answer.body.find(" de A"), std::string::npos) << request.path;
        household.expectUntouched(desk, request.path);
    }
}

TEST(ServerProtocol, aCodeIsGoodOnceForTenMinutesAndFiveTries) {
    ServerDesk desk;
    const std::string email = "a@example.ch";
    const auto request = [&] {
        desk.post("codigo-pedir.php", R"({"email":"a@example.ch"})");
        return desk.mail.codes[email];
    };
    const auto wrong = [](std::string code) {
        code.back() = code.back() == '9' ? '0' : static_cast<char>(code.back() + 1);
        return code;
    };
    EXPECT_EQ(told(desk.check(email, "123456")), R"(410 {"error":"codigo_caducado"})")
        << "none yet";
    std::string code = request();
    ASSERT_EQ(code.size(), 6U);
    for (const char* left : {"4", "3", "2", "1"}) {
        EXPECT_EQ(told(desk.check(email, wrong(code))),
                  std::string(R"(403 {"error":"codigo","quedan":)") + left + "}");
        desk.open(); // tries survive a restart
    }
    EXPECT_EQ(told(desk.check(email, wrong(code))), R"(403 {"error":"codigo_quemado"})");
    EXPECT_EQ(told(desk.check(email, code)), R"(403 {"error":"codigo_quemado"})")
        << "right, too late";
    code = request();
    for (int tries = 1; tries < Codes::mostTries; ++tries) {
        desk.check(email, "");
    }
    EXPECT_EQ(desk.check(email, code).status, 200) << "the last try";
    EXPECT_EQ(told(desk.check(email, code)), R"(410 {"error":"codigo_caducado"})") << "used";
    const std::string first = request();
    code = request();
    EXPECT_EQ(desk.check(email, first).status, first == code ? 200 : 403) << "there is a newer one";
    EXPECT_EQ(desk.check("b@example.ch", code).status, 410) << "of another address";
    desk.pass(Codes::goodSeconds - 1);
    EXPECT_EQ(desk.check(email, code).status, first == code ? 410 : 200);
    code = request();
    desk.pass(Codes::goodSeconds);
    EXPECT_EQ(told(desk.check(email, code)), R"(410 {"error":"codigo_caducado"})");
}

TEST(ServerProtocol, nobodyLearnsWhetherThereIsAnAccount) {
    ServerDesk desk;
    desk.signIn("a@example.ch");
    const auto codeOf = [&](const std::string& email) {
        return told(desk.post("codigo-pedir.php", R"({"email":")" + email + R"("})"));
    };
    EXPECT_EQ(codeOf("a@example.ch"), codeOf("b@example.ch"));
    EXPECT_EQ(told(desk.check("a@example.ch", "")), told(desk.check("b@example.ch", "")));
    EXPECT_FALSE(desk.services->store.read([](Database& database) {
        return database.query("SELECT 1 FROM account WHERE email = 'b@example.ch'").next();
    })) << "an account is made when somebody signs in";
    desk.mail.works = false;
    EXPECT_EQ(codeOf("a@example.ch"), R"(502 {"error":"correo"})");
    EXPECT_EQ(codeOf("a@example.ch"), codeOf("b@example.ch"));
}

TEST(ServerProtocol, whoIsNotAllowedGetsNoMailAndLearnsNothing) {
    ServerDesk desk;
    desk.services->allowed = AllowList{"a@example.ch", "@school.ch"};
    const auto request = [&](const std::string& email) {
        return told(desk.post("codigo-pedir.php", R"({"email":")" + email + R"("})"));
    };
    for (const std::string email :
         {"a@example.ch", "b@example.ch", "x@school.ch", "x@a.school.ch"}) {
        EXPECT_EQ(request(email), "200");
        EXPECT_EQ(told(desk.check(email, "")), R"(403 {"error":"codigo","quedan":4})");
    }
    EXPECT_EQ(desk.mail.codes.size(), 2U);
    EXPECT_NE(desk.signIn("a@example.ch"), "");
    EXPECT_NE(desk.signIn("x@school.ch"), "");
}

TEST(ServerProtocol, aWrappedKeyIsOnlyReplacedByWhoKnowsIt) {
    ServerDesk desk;
    const std::string token = desk.signIn("a@example.ch");
    struct Row {
        const char* body;
        const char* answer;
        const char* stored; ///< afterwards
    };
    const std::vector<Row> rows{
        {R"({"llave":"1","anterior":"0"})", R"(409 {"error":"llave"})", ""},
        {R"({"llave":""})", R"(400 {"error":"peticion"})", ""},
        {R"({})", R"(400 {"error":"peticion"})", ""},
        {R"({"llave":"1"})", "200", "1"},
        {R"({"llave":"1"})", "200", "1"}, // sent again, since the answer was lost
        {R"({"llave":"2"})", R"(409 {"error":"llave"})", "1"},
        {R"({"llave":"2","anterior":"0"})", R"(409 {"error":"llave"})", "1"},
        {R"({"llave":"2","anterior":"1"})", "200", "2"},
        {R"({"llave":"2","anterior":"1"})", "200", "2"},
        {R"({"llave":"3","anterior":"1"})", R"(409 {"error":"llave"})", "2"},
        {R"({"llave":"3","anterior":null})", R"(409 {"error":"llave"})", "2"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(told(desk.post("llave.php", row.body, token)), row.answer) << row.body;
        EXPECT_EQ(valueIn(desk.get("llave.php", token).body, "llave"), row.stored) << row.body;
    }
    EXPECT_EQ(
        told(desk.post("llave.php", R"({"llave":")" + std::string(5000, 'x') + R"("})", token)),
        R"(413 {"error":"demasiado_grande"})");
    desk.services->store.change(
        [](Database& database) { database.run("UPDATE account SET wrapped_key = 'damaged'"); });
    EXPECT_EQ(told(desk.get("llave.php", token)), R"(200 {"ilegible":true})");
    EXPECT_EQ(valueIn(desk.get("cuenta.php", token).body, "tiene_llave"), "true");
    EXPECT_EQ(told(desk.post("llave.php", R"({"llave":"4"})", token)), "200");
}

TEST(ServerProtocol, blockVersionsFollowOneAnother) {
    ServerDesk desk;
    const std::string token = desk.signIn("a@example.ch");
    struct Row {
        int base;
        const char* answer;
    };
    for (const Row& row : std::vector<Row>{{1, R"(409 {"error":"version","version_actual":0})"},
                                           {0, R"(200 {"version":1})"},
                                           {0, R"(409 {"error":"version","version_actual":1})"},
                                           {2, R"(409 {"error":"version","version_actual":1})"},
                                           {1, R"(200 {"version":2})"},
                                           {-1, R"(400 {"error":"peticion"})"},
                                           {2, R"(200 {"version":3})"}}) {
        EXPECT_EQ(told(desk.save(token, row.base, std::to_string(row.base))), row.answer)
            << row.base;
    }
    EXPECT_EQ(told(desk.get("bloque.php?clave=estado", token)),
              R"(200 {"contenido":"2","version":3})");
    EXPECT_EQ(told(desk.save(token, 0, "x", "recibos")), R"(200 {"version":1})") << "each its own";
    for (int block = 2; block < 16; ++block) {
        EXPECT_EQ(desk.save(token, 0, "", "b" + std::to_string(block)).status, 200) << block;
    }
    EXPECT_EQ(told(desk.save(token, 0, "", "b16")), R"(507 {"error":"sin_espacio"})");
}

TEST(ServerProtocol, sizeAndSpaceEndWhereTheyAreSaidTo) {
    ServerDesk desk(RateLimits::Rules::none(), {.mostItemBytes = 1000, .mostAccountBytes = 2500});
    const std::string token = desk.signIn("a@example.ch");
    const auto keep = [&](std::size_t size, char c) {
        return told(desk.post("recibo-subir.php", std::string(size, c), token)).substr(0, 24);
    };
    EXPECT_EQ(keep(1001, 'a'), R"(413 {"error":"demasiado_)");
    EXPECT_EQ(told(desk.save(token, 0, std::string(1001, 'a'))),
              R"(413 {"error":"demasiado_grande"})");
    EXPECT_EQ(keep(1000, 'a').substr(0, 3), "200");
    EXPECT_EQ(desk.save(token, 0, std::string(1000, 'a')).status, 200);
    EXPECT_EQ(keep(501, 'b'), R"(507 {"error":"sin_espaci)");
    EXPECT_EQ(desk.save(token, 0, std::string(501, 'b'), "recibos").status, 507);
    EXPECT_EQ(keep(500, 'b').substr(0, 3), "200");
    EXPECT_EQ(desk.used(token), "2500");
    EXPECT_EQ(keep(1, 'c').substr(0, 3), "507");
    EXPECT_EQ(keep(1000, 'a').substr(0, 3), "200") << "it is there already";
    EXPECT_EQ(desk.save(token, 1, std::string(1000, 'c')).status, 200) << "in the place of the old";
    EXPECT_EQ(desk.save(token, 2, std::string(999, 'c')).status, 200);
    EXPECT_EQ(keep(1, 'c').substr(0, 3), "200");
    EXPECT_EQ(desk.save(token, 3, std::string(1000, 'c')).status, 507);
    EXPECT_EQ(desk.used(token), "2500");
    EXPECT_EQ(told(desk.post("recibo-subir.php", "", token)), R"(400 {"error":"peticion"})");
}

TEST(ServerProtocol, documentsAreKeptOnceAndHealed) {
    ServerDesk desk;
    const std::string token = desk.signIn("a@example.ch");
    const std::string first = desk.post("recibo-subir.php", "uno", token).body;
    EXPECT_EQ(desk.post("recibo-subir.php", "uno", token).body, first);
    const std::string id = valueIn(first, "id");
    const auto file = desk.folder / "receipts" / id;
    ASSERT_EQ(testing::readFile(file), "uno");
    for (const char* damage : {"", "un"}) {
        testing::writeFile(file, damage);
        EXPECT_EQ(told(desk.get("recibos.php", token)), R"(200 {"recibos":[]})")
            << "so that it is sent again";
        EXPECT_EQ(desk.get("recibo.php?id=" + id, token).status, 404);
        EXPECT_EQ(desk.post("recibo-subir.php", "uno", token).body, first);
        EXPECT_EQ(desk.get("recibo.php?id=" + id, token).body, "uno");
    }
    EXPECT_EQ(desk.used(token), "3");
    testing::writeFile(desk.folder / "receipts" / "0123", "not finished");
    desk.open();
    EXPECT_EQ(testing::namesIn(desk.folder / "receipts"), std::vector<std::string>{id});
    for (const char* gone : {"0", "../server.db", ""}) {
        EXPECT_EQ(
            told(desk.post("recibo-borrar.php", R"({"id":")" + std::string(gone) + R"("})", token)),
            "200");
        EXPECT_EQ(desk.get("recibo.php?id=" + std::string(gone), token).status, 404);
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(told(desk.post("recibo-borrar.php", R"({"id":")" + id + R"("})", token)), "200");
    }
    EXPECT_EQ(testing::namesIn(desk.folder / "receipts"), std::vector<std::string>{});
    EXPECT_NE(desk.post("recibo-subir.php", "uno", token).body, first) << "kept anew";
}

TEST(ServerProtocol, whatIsNoRequestIsToldSo) {
    ServerDesk desk;
    const std::string token = desk.signIn("a@example.ch");
    struct Row {
        const char* method;
        const char* path;
        const char* body;
        const char* answer;
    };
    const char* const malformed = R"(400 {"error":"peticion"})";
    const std::vector<Row> rows{
        {"GET", "", "", R"(404 {"error":"no_encontrado"})"},
        {"GET", "cuenta", "", R"(404 {"error":"no_encontrado"})"},
        {"GET", "../v1/cuenta.php", "", R"(404 {"error":"no_encontrado"})"},
        {"POST", "cuenta.php", "", R"(405 {"error":"metodo"})"},
        {"DELETE", "llave.php", "", R"(405 {"error":"metodo"})"},
        {"get", "cuenta.php", "", R"(405 {"error":"metodo"})"},
        {"POST", "codigo-pedir.php", "", malformed},
        {"POST", "codigo-pedir.php", "[]", malformed},
        {"POST", "codigo-pedir.php", R"({"email":1})", malformed},
        {"POST", "codigo-pedir.php", R"({"email":"a@b.ch","email":"a@b.ch"})", malformed},
        {"POST", "codigo-pedir.php", "{\"email\":\"a@b.ch\xff\"}", malformed},
        {"POST", "codigo-pedir.php", R"({"email":"a@b.ch"} {})", malformed},
        {"POST", "codigo-pedir.php", R"({"email":"a@b"})", R"(400 {"error":"email"})"},
        {"POST", "codigo-comprobar.php", R"({"email":"a@b.ch","codigo":"123456"})", malformed},
        {"POST", "codigo-comprobar.php", R"({"email":"a b@c.ch","codigo":"1","aparato":""})",
         R"(400 {"error":"email"})"},
        {"POST", "bloque-guardar.php", R"({"clave":"a b","version":0,"contenido":""})", malformed},
        {"POST", "bloque-guardar.php", R"({"clave":"a","version":0.5,"contenido":""})", malformed},
        {"POST", "bloque-guardar.php", R"({"clave":"a","version":1e99,"contenido":""})", malformed},
        {"POST", "bloque-guardar.php", R"({"clave":"a","version":"0","contenido":""})", malformed},
        {"POST", "bloque-guardar.php",
         R"({"clave":"a","version":9223372036854775807,"contenido":""})",
         R"(409 {"error":"version","version_actual":0})"},
        {"GET", "bloque.php", "", malformed},
        {"GET", "bloque.php?clave=", "", malformed},
        {"GET", "bloque.php?clave=%zz", "", malformed},
        {"GET", "bloque.php?clave=%4", "", malformed},
        {"GET", "bloque.php?x=1&clave=estado&y", "", "200 null"},
        {"GET", "recibo.php?ID=1", "", malformed},
        {"POST", "recibo-borrar.php", "{}", malformed},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(told(desk.ask(row.method, row.path, row.body, token)), row.answer)
            << row.method << " " << row.path << " " << row.body;
    }
    EXPECT_EQ(desk.ask("PUT", "llave.php", "", token).allow, "GET, POST");
}

TEST(ServerProtocol, addressesAndDeviceNames) {
    struct Row {
        std::string typed;
        std::optional<std::string> address;
    };
    for (const Row& row :
         std::vector<Row>{{"A.B+c@Sub.Example.ch", "a.b+c@sub.example.ch"},
                          {"\ta@b.ch\n", "a@b.ch"},
                          {"", std::nullopt},
                          {"@b.ch", std::nullopt},
                          {"a@", std::nullopt},
                          {"a@b.", std::nullopt},
                          {"a@.ch", std::nullopt},
                          {"a@-b.ch", std::nullopt},
                          {"a@b@c.ch", std::nullopt},
                          {".a@b.ch", std::nullopt},
                          {"a@b.ch\r\nBcc: c@d.ch", std::nullopt},
                          {"<a@b.ch>", std::nullopt},
                          {"ä@b.ch", std::nullopt},
                          {std::string("a\0@b.ch", 7), std::nullopt},
                          {std::string(64, 'a') + "@b.ch", std::string(64, 'a') + "@b.ch"},
                          {std::string(65, 'a') + "@b.ch", std::nullopt}}) {
        EXPECT_EQ(emailAddressOf(row.typed), row.address) << row.typed;
    }
    EXPECT_EQ(deviceNameOf(" \x01\u200B "), "Unbenanntes Gerät");
    EXPECT_EQ(deviceNameOf("Annas PC\n[31m"), "Annas PC[31m");
    std::string longName;
    for (int i = 0; i < 70; ++i) {
        longName += "ü";
    }
    EXPECT_EQ(deviceNameOf(longName), longName.substr(0, 128)) << "64 characters of two bytes";
    EXPECT_EQ(deviceNameOf("a\xC3"), "a") << "no half characters";
}

} // namespace
} // namespace fiscarel::server
