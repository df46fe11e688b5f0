#include "Fiscarel_SG/CloudAPI.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Failure = CloudAPI::Failure;

/// Answers every request on this machine with the same bytes and keeps what was asked.
class CannedServer {
  public:
    CannedServer() {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, [this] {
            QTcpSocket* const socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] {
                asked += socket->readAll();
                const qsizetype head = asked.indexOf("\r\n\r\n");
                if (head < 0 || asked.size() < head + 4 + lengthIn(asked.left(head))) {
                    return;
                }
                socket->write(answer);
                socket->disconnectFromHost();
            });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }

    QUrl base() const {
        return QUrl(u"http://127.0.0.1:%1/fiscarel/api/v1/"_s.arg(server_.serverPort()));
    }
    void answers(int status, const QByteArray& body) {
        answer = "HTTP/1.1 " + QByteArray::number(status) + " x\r\nContent-Length: "
                 + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
    }

    QByteArray answer;
    QByteArray asked;

  private:
    static qsizetype lengthIn(const QByteArray& head) {
        const QByteArray name = "content-length: ";
        const qsizetype at = head.toLower().indexOf(name);
        return at < 0 ? 0 : head.mid(at + name.size()).split('\r').front().toLongLong();
    }
    QTcpServer server_;
};

class CloudAPITest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (QCoreApplication::instance() == nullptr) {
            static int count = 1;
            static std::string name = "app-tests";
            static std::array<char*, 2> arguments{name.data(), nullptr};
            static const QCoreApplication application(count, arguments.data());
        }
    }

    /// What a call is answered.
    template <class T, class Call>
    tl::expected<T, Failure> outcome(Call call) {
        std::optional<tl::expected<T, Failure>> got;
        QEventLoop loop;
        QTimer::singleShot(20'000, &loop, &QEventLoop::quit);
        call(CloudAPI::Done<T>([&](tl::expected<T, Failure> answer) {
            got = std::move(answer);
            loop.quit();
        }));
        if (!got) {
            loop.exec();
        }
        return got.value_or(tl::unexpected(Failure{.code = "no answer"}));
    }

    CannedServer server;
    CloudAPI api{server.base()};
};

TEST_F(CloudAPITest, asksAsAgreed) {
    struct Row {
        std::function<void(std::function<void()>)> call;
        const char* line; ///< of the request
        const char* body;
        bool hasToken = true;
    };
    const auto done = [](std::function<void()> then) {
        return [then = std::move(then)](const auto&) { then(); };
    };
    const std::vector<Row> rows{
        {[&](auto then) { api.requestCode("a@b.ch", done(then)); },
         "POST /fiscarel/api/v1/codigo-pedir.php ", R"({"email":"a@b.ch"})", false},
        {[&](auto then) { api.verifyCode("a@b.ch", "123456", "Büro", done(then)); },
         "POST /fiscarel/api/v1/codigo-comprobar.php ",
         R"({"aparato":"Büro","codigo":"123456","email":"a@b.ch"})", false},
        {[&](auto then) { api.account("t", done(then)); }, "GET /fiscarel/api/v1/cuenta.php ", ""},
        {[&](auto then) { api.wrappedKey("t", done(then)); }, "GET /fiscarel/api/v1/llave.php ",
         ""},
        {[&](auto then) { api.storeWrappedKey("k", "t", done(then)); },
         "POST /fiscarel/api/v1/llave.php ", R"({"llave":"k"})"},
        {[&](auto then) { api.storeWrappedKey("k", "t", done(then), "alt"); },
         "POST /fiscarel/api/v1/llave.php ", R"({"anterior":"alt","llave":"k"})"},
        {[&](auto then) { api.block("a&b+c ä", "t", done(then)); },
         "GET /fiscarel/api/v1/bloque.php?clave=a%26b%2Bc%20%C3%A4 ", ""},
        {[&](auto then) {
             api.saveBlock("estado", {.version = 9'007'199'254'740'993, .content = "x"}, "t",
                           done(then));
         },
         "POST /fiscarel/api/v1/bloque-guardar.php ",
         R"({"clave":"estado","contenido":"x","version":9007199254740993})"},
        {[&](auto then) { api.receipts("t", done(then)); }, "GET /fiscarel/api/v1/recibos.php ",
         ""},
        {[&](auto then) { api.uploadReceipt(QByteArray("\0\xff", 2), "t", done(then)); },
         "POST /fiscarel/api/v1/recibo-subir.php ", "\0\xff"},
        {[&](auto then) { api.downloadReceipt("7", "t", done(then)); },
         "GET /fiscarel/api/v1/recibo.php?id=7 ", ""},
        {[&](auto then) { api.deleteReceipt("7", "t", done(then)); },
         "POST /fiscarel/api/v1/recibo-borrar.php ", R"({"id":"7"})"},
        {[&](auto then) { api.signOut("t", done(then)); }, "POST /fiscarel/api/v1/salir.php ", ""},
    };
    for (const Row& row : rows) {
        server.asked.clear();
        server.answers(200, "{}");
        QEventLoop loop;
        QTimer::singleShot(20'000, &loop, &QEventLoop::quit);
        row.call([&] { loop.quit(); });
        loop.exec();
        EXPECT_TRUE(server.asked.startsWith(row.line)) << row.line << server.asked.toStdString();
        EXPECT_EQ(server.asked.contains("\r\nX-Sitzung: t\r\n"), row.hasToken) << row.line;
        const QByteArray body = server.asked.mid(server.asked.indexOf("\r\n\r\n") + 4);
        if (std::string_view(row.line).find("subir") != std::string_view::npos) {
            EXPECT_EQ(body, QByteArray("\0\xff", 2));
            EXPECT_TRUE(server.asked.contains("application/octet-stream"));
        } else {
            EXPECT_EQ(body.toStdString(), row.body) << row.line;
            EXPECT_EQ(server.asked.contains("application/json"), !body.isEmpty());
        }
    }
}

TEST_F(CloudAPITest, aServerIsNamedByItsHostOrWithItsScheme) {
    for (const auto& [named, address] :
         {std::pair("cloud.example.ch", "https://cloud.example.ch/fiscarel/api/v1/"),
          std::pair("cloud.example.ch:8443", "https://cloud.example.ch:8443/fiscarel/api/v1/"),
          std::pair("http://127.0.0.1:8420", "http://127.0.0.1:8420/fiscarel/api/v1/"),
          std::pair("https://example.ch/", "https://example.ch/fiscarel/api/v1/")}) {
        EXPECT_EQ(CloudAPI::baseOf(QString::fromUtf8(named)).toString().toStdString(), address);
    }
}

TEST_F(CloudAPITest, readsWhatTheServerAnswers) {
    server.answers(200, R"({"token":"s1","cuenta":{"email":"a@b.ch","nueva":true,)"
                        R"("tiene_llave":false,"otro":1}})");
    EXPECT_EQ(
        outcome<CloudAPI::Login>([&](auto done) { api.verifyCode("", "", "", done); }).value(),
        (CloudAPI::Login{"s1", {"a@b.ch", true, false}}));
    server.answers(200, R"({"email":"a@b.ch","espacio":{"usado":5000000000,"maximo":1073741824},)"
                        R"("tiene_llave":true,"aparatos":[{"id":3,"aparato":"Büro",)"
                        R"("desde":"2026-01-02","ultima_vez":"heute","este":true}],)"
                        R"("borrado_previsto":null})");
    EXPECT_EQ(outcome<CloudAPI::Account>([&](auto done) { api.account("t", done); }).value(),
              (CloudAPI::Account{"a@b.ch",
                                 {5'000'000'000, 1'073'741'824},
                                 true,
                                 {{3, "Büro", "2026-01-02", "heute", true}},
                                 std::nullopt}));
    server.answers(200, R"({"version":4,"contenido":"abc"})");
    using MaybeBlock = std::optional<CloudAPI::Block>;
    const auto block = [&] {
        return outcome<MaybeBlock>([&](auto done) { api.block("estado", "t", done); });
    };
    EXPECT_EQ(block().value(), (CloudAPI::Block{4, "abc"}));
    for (const char* nothing : {"null", "", " \n"}) {
        server.answers(200, nothing);
        EXPECT_EQ(block().value(), std::nullopt);
    }
    server.answers(200, R"({"recibos":[{"id":"a","tamano":12}]})");
    EXPECT_EQ(outcome<std::vector<CloudAPI::Receipt>>([&](auto done) {
                  api.receipts("t", done);
              }).value(),
              (std::vector<CloudAPI::Receipt>{{"a", 12}}));
    server.answers(200, R"({"ilegible":true})");
    EXPECT_EQ(outcome<CloudAPI::KeyBody>([&](auto done) { api.wrappedKey("t", done); }).value(),
              (CloudAPI::KeyBody{std::nullopt, true}));
    server.answers(200, QByteArray("\0\x01\x02", 3));
    EXPECT_EQ(outcome<QByteArray>([&](auto done) { api.downloadReceipt("7", "t", done); }).value(),
              QByteArray("\0\x01\x02", 3));
}

TEST_F(CloudAPITest, anAnswerThatIsNotAsAgreedIsAFailure) {
    for (const char* body : {"", "[]", "{", "{\"version\":\"4\"}", "{\"version\":1.5}",
                             "{\"version\":1e300}", "{\"version\":null}"}) {
        server.answers(200, body);
        const auto saved =
            outcome<std::int64_t>([&](auto done) { api.saveBlock("estado", {}, "t", done); });
        ASSERT_FALSE(saved) << body;
        EXPECT_EQ(saved.error().code, "respuesta") << body;
    }
    server.answers(200, R"({"token":"s","cuenta":[]})");
    EXPECT_EQ(
        outcome<CloudAPI::Login>([&](auto done) { api.verifyCode("", "", "", done); }).error().code,
        "respuesta");
    server.answer = "HTTP/1.1 200 x\r\nContent-Length: 900\r\nConnection: close\r\n\r\n{\"vers";
    EXPECT_EQ(outcome<std::int64_t>([&](auto done) { api.saveBlock("estado", {}, "t", done); })
                  .error()
                  .code,
              "red")
        << "cut off on the way";
}

TEST_F(CloudAPITest, failuresAreToldInGerman) {
    struct Row {
        int status;
        const char* body;
        const char* sentence;
    };
    const std::vector<Row> rows{
        {400, R"({"error":"email"})", "Bitte eine gültige E-Mail-Adresse eingeben."},
        {403, R"({"error":"codigo","quedan":2})", "Der Code stimmt nicht. Noch 2 Versuche."},
        {403, R"({"error":"codigo","quedan":1})", "Der Code stimmt nicht. Noch 1 Versuch."},
        {403, R"({"error":"codigo"})", "Der Code stimmt nicht."},
        {410, R"({"error":"codigo_caducado"})",
         "Der Code ist abgelaufen. Bitte einen neuen anfordern."},
        {429, "", "Zu viele Versuche. Bitte in einigen Minuten erneut versuchen."},
        {401, R"({"error":"sesion_caducada"})",
         "Sie sind nicht mehr angemeldet. Bitte erneut anmelden."},
        {507, R"({"error":"sin_espacio"})", "Der Cloud-Speicher (1 GB) ist voll."},
        {413, R"({"error":"demasiado_grande"})",
         "Diese Datei ist zu gross für die Cloud (max. 25 MB)."},
        {500, "<html>", "Der Server meldet einen Fehler (http_500)."},
        {302, "", "Der Server meldet einen Fehler (http_302)."},
        {500, R"({"error":"raro"})", "Der Server meldet einen Fehler (raro)."},
    };
    for (const Row& row : rows) {
        server.answers(row.status, row.body);
        const auto answer = outcome<void>([&](auto done) { api.signOut("t", done); });
        ASSERT_FALSE(answer) << row.status;
        EXPECT_EQ(answer.error().status, row.status);
        EXPECT_EQ(answer.error().errorDescription(), row.sentence);
    }
    server.answers(409, R"({"error":"version","version_actual":12})");
    const auto saved =
        outcome<std::int64_t>([&](auto done) { api.saveBlock("estado", {}, "t", done); });
    EXPECT_EQ(saved.error(), (Failure{409, "version", std::nullopt, 12}));
}

TEST_F(CloudAPITest, withoutAServerOrEncryptionNothingIsSent) {
    const QUrl own = server.base();
    const auto codeAt = [&](const QUrl& base) {
        CloudAPI elsewhere(base);
        const auto answer = outcome<void>([&](auto done) { elsewhere.signOut("t", done); });
        return answer ? std::string("worked") : answer.error().code;
    };
    EXPECT_EQ(codeAt(QUrl(u"http://127.0.0.1:1/"_s)), "red") << "nobody listens";
    EXPECT_EQ(codeAt(QUrl(u"http://example.invalid/"_s)), "red") << "not encrypted";
    EXPECT_EQ(codeAt(QUrl(u"file:///etc/"_s)), "red");
    EXPECT_EQ(codeAt(QUrl()), "red");
    EXPECT_TRUE(server.asked.isEmpty());
    server.answers(200, "");
    EXPECT_EQ(codeAt(own), "worked");
}

} // namespace
} // namespace fiscarel
