#include "Fiscarel_SG/CloudAPI.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrlQuery>
#include <cmath>
#include <string_view>
#include <utility>

namespace fiscarel {

using namespace Qt::Literals::StringLiterals;

namespace {

using Failure = CloudAPI::Failure;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// An answer as it is read; remembers whether everything was as agreed.
class Body {
  public:
    explicit Body(const QByteArray& bytes) {
        const QJsonDocument document = QJsonDocument::fromJson(bytes);
        isGood_ = document.isObject();
        object_ = document.object();
    }
    explicit Body(const QJsonValue& value) : object_(value.toObject()), isGood_(value.isObject()) {}

    bool isGood() const { return isGood_; }

    std::string text(const QString& key) { return optionalText(key, true).value_or(""); }
    std::optional<std::string> optionalText(const QString& key, bool isNeeded = false) {
        const QJsonValue value = at(key, isNeeded);
        expect(value.isString() || isAbsent(value));
        return value.isString() ? std::optional(value.toString().toStdString()) : std::nullopt;
    }
    bool flag(const QString& key) { return optionalFlag(key, true).value_or(false); }
    std::optional<bool> optionalFlag(const QString& key, bool isNeeded = false) {
        const QJsonValue value = at(key, isNeeded);
        expect(value.isBool() || isAbsent(value));
        return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
    }
    std::int64_t number(const QString& key) { return optionalNumber(key, true).value_or(0); }
    std::optional<std::int64_t> optionalNumber(const QString& key, bool isNeeded = false) {
        const QJsonValue value = at(key, isNeeded);
        // Two numbers that are none give away one that is no whole number or does not fit.
        const bool isWhole = value.isDouble() && value.toInteger(0) == value.toInteger(1);
        expect(isWhole || isAbsent(value));
        return isWhole ? std::optional<std::int64_t>(value.toInteger()) : std::nullopt;
    }
    QJsonArray list(const QString& key) {
        const QJsonValue value = at(key, true);
        expect(value.isArray());
        return value.toArray();
    }
    Body object(const QString& key) { return Body(at(key, true)); }
    void expect(bool holds) { isGood_ = isGood_ && holds; }

  private:
    static bool isAbsent(const QJsonValue& value) { return value.isUndefined() || value.isNull(); }
    QJsonValue at(const QString& key, bool isNeeded) {
        const QJsonValue value = object_.value(key);
        expect(!isNeeded || !isAbsent(value));
        return value;
    }

    QJsonObject object_;
    bool isGood_ = false;
};

CloudAPI::Login loginOf(Body& body) {
    Body account = body.object(u"cuenta"_s);
    CloudAPI::Login login{.token = body.text(u"token"_s),
                          .account = {.email = account.text(u"email"_s),
                                      .isNew = account.flag(u"nueva"_s),
                                      .hasKey = account.flag(u"tiene_llave"_s)}};
    body.expect(account.isGood() && !login.token.empty());
    return login;
}

CloudAPI::Account accountOf(Body& body) {
    Body space = body.object(u"espacio"_s);
    CloudAPI::Account account{
        .email = body.text(u"email"_s),
        .space = {.used = space.number(u"usado"_s), .maximum = space.number(u"maximo"_s)},
        .hasKey = body.flag(u"tiene_llave"_s),
        .devices = {},
        .deletionPlanned = body.optionalText(u"borrado_previsto"_s)};
    body.expect(space.isGood());
    for (const QJsonValue item : body.list(u"aparatos"_s)) {
        Body device(item);
        account.devices.push_back({.id = device.number(u"id"_s),
                                   .name = device.text(u"aparato"_s),
                                   .since = device.text(u"desde"_s),
                                   .lastSeen = device.text(u"ultima_vez"_s),
                                   .isThis = device.flag(u"este"_s)});
        body.expect(device.isGood());
    }
    return account;
}

CloudAPI::Receipt receiptOf(Body& body) {
    return {.id = body.text(u"id"_s), .size = body.number(u"tamano"_s)};
}

std::vector<CloudAPI::Receipt> receiptsOf(Body& body) {
    std::vector<CloudAPI::Receipt> receipts;
    for (const QJsonValue item : body.list(u"recibos"_s)) {
        Body receipt(item);
        receipts.push_back(receiptOf(receipt));
        body.expect(receipt.isGood());
    }
    return receipts;
}

CloudAPI::Block blockOf(Body& body) {
    return {.version = body.number(u"version"_s), .content = body.text(u"contenido"_s)};
}

CloudAPI::KeyBody keyBodyOf(Body& body) {
    return {.key = body.optionalText(u"llave"_s), .isUnreadable = body.optionalFlag(u"ilegible"_s)};
}

Failure failureOf(int status, const QByteArray& answer) {
    Body body(answer);
    const auto remaining = body.optionalNumber(u"quedan"_s);
    return {.status = status,
            .code = body.optionalText(u"error"_s).value_or("http_" + std::to_string(status)),
            .remaining = remaining ? std::optional(static_cast<int>(*remaining)) : std::nullopt,
            .currentVersion = body.optionalNumber(u"version_actual"_s)};
}

/// Hands an answer on as the record that `read` makes of it.
template <class T, class Read>
auto decoding(CloudAPI::Done<T> done, Read read) {
    return [done = std::move(done), read](const tl::expected<QByteArray, Failure>& answer) {
        if (!answer) {
            done(tl::unexpected(answer.error()));
            return;
        }
        Body body(*answer);
        T record = read(body);
        if (body.isGood()) {
            done(std::move(record));
        } else {
            done(tl::unexpected(Failure{.status = 200, .code = "respuesta"}));
        }
    };
}

auto ignoringBody(CloudAPI::Done<void> done) {
    return [done = std::move(done)](const tl::expected<QByteArray, Failure>& answer) {
        done(answer.map([](const QByteArray&) {}));
    };
}

bool isLoopback(const QUrl& url) {
    const QString host = url.host();
    return host == u"localhost"_s || QHostAddress(host).isLoopback();
}

} // namespace

struct CloudAPI::Request {
    QString path;
    std::string token;
    std::optional<QJsonObject> json; ///< posted when present
    std::optional<QByteArray> binary;
    bool isPost = false; ///< also without a body
    std::vector<std::pair<QString, QString>> query;
    bool carriesDocument = false;
};

std::string CloudAPI::Failure::errorDescription() const {
    if (code == "codigo" && remaining) {
        return "Der Code stimmt nicht. Noch " + std::to_string(*remaining)
               + (*remaining == 1 ? " Versuch." : " Versuche.");
    }
    static const std::vector<std::pair<std::string_view, std::string_view>> sentences{
        {"email", "Bitte eine gültige E-Mail-Adresse eingeben."},
        {"codigo", "Der Code stimmt nicht."},
        {"codigo_caducado", "Der Code ist abgelaufen. Bitte einen neuen anfordern."},
        {"codigo_quemado", "Zu viele Fehlversuche. Bitte einen neuen Code anfordern."},
        {"zu_viele_versuche", "Zu viele Versuche. Bitte in einigen Minuten erneut versuchen."},
        {"http_429", "Zu viele Versuche. Bitte in einigen Minuten erneut versuchen."},
        {"correo", "Die E-Mail konnte nicht gesendet werden. Bitte später erneut versuchen."},
        {"sin_sesion", "Sie sind nicht mehr angemeldet. Bitte erneut anmelden."},
        {"sesion_caducada", "Sie sind nicht mehr angemeldet. Bitte erneut anmelden."},
        {"sin_espacio", "Der Cloud-Speicher (1 GB) ist voll."},
        {"demasiado_grande", "Diese Datei ist zu gross für die Cloud (max. 25 MB)."},
        {"red", "Keine Verbindung zum Server. Bitte Internetverbindung prüfen."},
    };
    for (const auto& [known, sentence] : sentences) {
        if (known == code) {
            return std::string(sentence);
        }
    }
    return "Der Server meldet einen Fehler (" + code + ").";
}

CloudAPI::CloudAPI(QUrl base, Patience patience, QObject* parent)
    : QObject(parent), network_(this), base_(std::move(base)), patience_(patience) {
    // A server that sends elsewhere must not be handed the session's token there.
    network_.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

QUrl CloudAPI::defaultBase() { return baseOf(QStringLiteral(FISCAREL_CLOUD_HOST)); }

QUrl CloudAPI::baseOf(const QString& host) {
    const QUrl origin(host.contains(u"://"_s) ? host : u"https://"_s + host);
    return origin.resolved(QUrl(u"/fiscarel/api/v1/"_s));
}

bool CloudAPI::speaksTo(const QUrl& base) {
    return base.isValid() && !base.host().isEmpty()
           && (base.scheme() == u"https"_s || (base.scheme() == u"http"_s && isLoopback(base)));
}

void CloudAPI::send(const Request& request, Answer done) {
    QUrl url = base_.resolved(QUrl(request.path));
    QUrlQuery query;
    for (const auto& [name, value] : request.query) {
        query.addQueryItem(name, QString::fromLatin1(QUrl::toPercentEncoding(value)));
    }
    url.setQuery(query);
    if (!speaksTo(url)) {
        QMetaObject::invokeMethod(
            this, [done] { done(tl::unexpected(Failure{.code = "red"})); }, Qt::QueuedConnection);
        return;
    }
    QNetworkRequest message(url);
    const auto wait = request.carriesDocument ? patience_.documents : patience_.usual;
    message.setTransferTimeout(static_cast<int>(wait.count()));
    if (!request.token.empty()) {
        message.setRawHeader("X-Sitzung", QByteArray::fromStdString(request.token));
    }
    QNetworkReply* reply = nullptr;
    if (request.json) {
        message.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
        reply = network_.post(message, QJsonDocument(*request.json).toJson(QJsonDocument::Compact));
    } else if (request.isPost) {
        message.setHeader(QNetworkRequest::ContentTypeHeader, u"application/octet-stream"_s);
        reply = network_.post(message, request.binary.value_or(QByteArray()));
    } else {
        reply = network_.get(message);
    }
    connect(reply, &QNetworkReply::finished, this, [reply, done = std::move(done)] {
        reply->deleteLater();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const bool isSuccess = status >= 200 && status < 300;
        const QByteArray body = reply->isOpen() ? reply->readAll() : QByteArray();
        if (status == 0 || (isSuccess && reply->error() != QNetworkReply::NoError)) {
            done(tl::unexpected(Failure{.code = "red"})); // nothing, or cut off on the way
        } else if (!isSuccess) {
            done(tl::unexpected(failureOf(status, body)));
        } else {
            done(body);
        }
    });
}

void CloudAPI::requestCode(const std::string& email, Done<void> done) {
    send({.path = u"codigo-pedir.php"_s, .json = QJsonObject{{u"email"_s, text(email)}}},
         ignoringBody(std::move(done)));
}

void CloudAPI::verifyCode(const std::string& email, const std::string& code,
                          const std::string& device, Done<Login> done) {
    send({.path = u"codigo-comprobar.php"_s,
          .json = QJsonObject{{u"email"_s, text(email)},
                              {u"codigo"_s, text(code)},
                              {u"aparato"_s, text(device)}}},
         decoding(std::move(done), loginOf));
}

void CloudAPI::account(const std::string& token, Done<Account> done) {
    send({.path = u"cuenta.php"_s, .token = token}, decoding(std::move(done), accountOf));
}

void CloudAPI::wrappedKey(const std::string& token, Done<KeyBody> done) {
    send({.path = u"llave.php"_s, .token = token}, decoding(std::move(done), keyBodyOf));
}

void CloudAPI::storeWrappedKey(const std::string& key, const std::string& token, Done<void> done,
                               const std::optional<std::string>& previous) {
    QJsonObject body{{u"llave"_s, text(key)}};
    if (previous) {
        body.insert(u"anterior"_s, text(*previous));
    }
    send({.path = u"llave.php"_s, .token = token, .json = body}, ignoringBody(std::move(done)));
}

void CloudAPI::block(const std::string& key, const std::string& token,
                     Done<std::optional<Block>> done) {
    send({.path = u"bloque.php"_s, .token = token, .query = {{u"clave"_s, text(key)}}},
         [decode = decoding<std::optional<Block>>(
              done, [](Body& body) { return std::optional(blockOf(body)); }),
          done](const tl::expected<QByteArray, Failure>& answer) {
             const QByteArray body = answer ? answer->trimmed() : QByteArray();
             if (answer && (body.isEmpty() || body == "null")) {
                 done(std::optional<Block>());
             } else {
                 decode(answer);
             }
         });
}

void CloudAPI::saveBlock(const std::string& key, const Block& block, const std::string& token,
                         Done<std::int64_t> done) {
    send({.path = u"bloque-guardar.php"_s,
          .token = token,
          .json = QJsonObject{{u"clave"_s, text(key)},
                              {u"version"_s, static_cast<qint64>(block.version)},
                              {u"contenido"_s, text(block.content)}}},
         decoding(std::move(done), [](Body& body) { return body.number(u"version"_s); }));
}

void CloudAPI::receipts(const std::string& token, Done<std::vector<Receipt>> done) {
    send({.path = u"recibos.php"_s, .token = token}, decoding(std::move(done), receiptsOf));
}

void CloudAPI::uploadReceipt(const QByteArray& sealed, const std::string& token,
                             Done<Receipt> done) {
    send({.path = u"recibo-subir.php"_s,
          .token = token,
          .binary = sealed,
          .isPost = true,
          .carriesDocument = true},
         decoding(std::move(done), receiptOf));
}

void CloudAPI::downloadReceipt(const std::string& id, const std::string& token,
                               Done<QByteArray> done) {
    send({.path = u"recibo.php"_s,
          .token = token,
          .query = {{u"id"_s, text(id)}},
          .carriesDocument = true},
         std::move(done));
}

void CloudAPI::deleteReceipt(const std::string& id, const std::string& token, Done<void> done) {
    send({.path = u"recibo-borrar.php"_s, .token = token, .json = QJsonObject{{u"id"_s, text(id)}}},
         ignoringBody(std::move(done)));
}

void CloudAPI::signOut(const std::string& token, Done<void> done) {
    send({.path = u"salir.php"_s, .token = token, .isPost = true}, ignoringBody(std::move(done)));
}

} // namespace fiscarel
