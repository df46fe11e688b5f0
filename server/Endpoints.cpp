#include "server/Endpoints.h"

#include "server/Accounts.h"
#include "server/Blocks.h"
#include "server/EmailAddress.h"
#include "server/ServerLog.h"

#include <array>
#include <utility>

namespace fiscarel::server {

namespace {

constexpr std::size_t mostKeyBytes = 4096;

template <class T>
Response json(const T& record) {
    return {.body = wire::write(record)};
}

tl::unexpected<Refusal> refuse(int status, std::string code) {
    return tl::unexpected(Refusal{.status = status, .error = {.error = std::move(code)}});
}

tl::unexpected<Refusal> malformed() { return refuse(400, "peticion"); }

int valueOf(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const char small = digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit;
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::optional<std::string> decoded(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            value += text[i];
            continue;
        }
        const int high = i + 2 < text.size() ? valueOf(text[i + 1]) : -1;
        const int low = high < 0 ? -1 : valueOf(text[i + 2]);
        if (low < 0) {
            return std::nullopt;
        }
        value += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return value;
}

/// The value of a query; absent when it is not there or not properly encoded.
std::optional<std::string> queryValue(std::string_view query, std::string_view name) {
    while (!query.empty()) {
        const std::string_view pair = query.substr(0, query.find('&'));
        query.remove_prefix(std::min(pair.size() + 1, query.size()));
        if (pair.size() > name.size() && pair.starts_with(name) && pair[name.size()] == '=') {
            return decoded(pair.substr(name.size() + 1));
        }
    }
    return std::nullopt;
}

/// Refuses what is one too many by an address or client.
tl::expected<void, Refusal> takeRate(const Call& call, RateLimits::Kind kind, std::string_view by) {
    if (const auto wait = call.services.rates.take(kind, by, call.now)) {
        return tl::unexpected(
            Refusal{.status = 429, .error = {.error = "zu_viele_versuche"}, .retryAfter = wait});
    }
    return {};
}

/// The address somebody signs in with, once the limit of the client allows another attempt.
tl::expected<std::string, Refusal> addressFor(const Call& call, const std::string& asked,
                                              RateLimits::Kind ofClient) {
    auto email = emailAddressOf(asked);
    if (!email) {
        return refuse(400, "email");
    }
    return takeRate(call, ofClient, call.client).map([&] { return std::move(*email); });
}

/// The same for every address, whether or not there is an account or may be one.
Answer requestCode(const Call& call) {
    const auto asked = wire::read<wire::CodeRequest>(call.body);
    if (!asked) {
        return malformed();
    }
    const auto email = addressFor(call, asked->email, RateLimits::Kind::codesOfClient);
    if (!email) {
        return tl::unexpected(email.error());
    }
    if (auto rate = takeRate(call, RateLimits::Kind::codesOfAddress, *email); !rate) {
        return tl::unexpected(rate.error());
    }
    const std::string code = call.services.store.change([&](Database& database) {
        return call.services.codes.issue(database, {*email, call.client}, call.now);
    });
    if (call.services.allows(*email) && !call.services.mail.sendCode(*email, code)) {
        logLine("a code could not be sent");
        return refuse(502, "correo");
    }
    return Response{};
}

tl::unexpected<Refusal> wrongCode(const Codes::Verdict& verdict) {
    switch (verdict.kind) {
    case Codes::Verdict::Kind::wrong:
        return tl::unexpected(
            Refusal{.status = 403, .error = {.error = "codigo", .quedan = verdict.remaining}});
    case Codes::Verdict::Kind::burnt:
        return refuse(403, "codigo_quemado");
    default:
        return refuse(410, "codigo_caducado");
    }
}

Answer verifyCode(const Call& call) {
    const auto asked = wire::read<wire::CodeCheck>(call.body);
    if (!asked) {
        return malformed();
    }
    const auto email = addressFor(call, asked->email, RateLimits::Kind::triesOfClient);
    if (!email) {
        return tl::unexpected(email.error());
    }
    const std::string device = deviceNameOf(asked->aparato);
    // Code, account and session in one go: who was told of no session has used up no code.
    return call.services.store.change([&](Database& database) -> Answer {
        const auto verdict =
            call.services.codes.check(database, {*email, call.client}, asked->codigo, call.now);
        if (verdict.kind != Codes::Verdict::Kind::right) {
            return wrongCode(verdict);
        }
        const auto [account, isNew] = accountFor(database, *email, call.now);
        return json(wire::Login{
            .token = beginSession(database, account.id, device, call.now),
            .cuenta = {.email = account.email, .nueva = isNew, .tiene_llave = account.hasKey}});
    });
}

Answer showAccount(const Call& call) {
    return call.services.store.read([&](Database& database) -> Answer {
        const auto account = accountOf(database, call.session.account);
        if (!account) {
            return refuse(401, "sin_sesion");
        }
        wire::Account shown{.email = account->email,
                            .espacio = {.usado = usedSpace(database, account->id),
                                        .maximo = call.services.limits.mostAccountBytes},
                            .tiene_llave = account->hasKey,
                            .borrado_previsto = account->deletion};
        for (const Device& device : devicesOf(database, account->id, call.now)) {
            shown.aparatos.push_back({.id = device.id,
                                      .aparato = device.name,
                                      .desde = device.since.toString(),
                                      .ultima_vez = device.lastSeen.toString(),
                                      .este = device.id == call.session.id});
        }
        return json(shown);
    });
}

Answer showKey(const Call& call) {
    const WrappedKey key = call.services.store.read(
        [&](Database& database) { return wrappedKeyOf(database, call.session.account); });
    return json(wire::KeyBody{.llave = key.key,
                              .ilegible = key.isUnreadable ? std::optional(true) : std::nullopt});
}

Answer storeKey(const Call& call) {
    const auto asked = wire::read<wire::KeyStoring>(call.body);
    if (!asked || asked->llave.empty()) {
        return malformed();
    }
    if (asked->llave.size() > mostKeyBytes) {
        return refuse(413, "demasiado_grande");
    }
    const bool isStored = call.services.store.change([&](Database& database) {
        return storeWrappedKey(database, call.session.account, asked->llave, asked->anterior);
    });
    return isStored ? Answer(Response{}) : refuse(409, "llave");
}

Answer showBlock(const Call& call) {
    const auto name = queryValue(call.query, "clave");
    if (!name || !isBlockName(*name)) {
        return malformed();
    }
    const auto block = call.services.store.read(
        [&](Database& database) { return blockOf(database, call.session.account, *name); });
    return block ? json(wire::Block{.version = block->version, .contenido = block->content})
                 : Response{.body = "null"};
}

Answer saveBlock(const Call& call) {
    auto asked = wire::read<wire::BlockSaving>(call.body);
    if (!asked || !isBlockName(asked->clave) || asked->version < 0) {
        return malformed();
    }
    if (static_cast<std::int64_t>(asked->contenido.size()) > call.services.limits.mostItemBytes) {
        return refuse(413, "demasiado_grande");
    }
    const Block block{asked->version, std::move(asked->contenido)};
    const BlockSaving saving = call.services.store.change([&](Database& database) {
        return server::saveBlock(database, call.session.account, asked->clave, block,
                                 call.services.limits.mostAccountBytes);
    });
    switch (saving.kind) {
    case BlockSaving::Kind::conflict:
        return tl::unexpected(Refusal{
            .status = 409, .error = {.error = "version", .version_actual = saving.version}});
    case BlockSaving::Kind::noSpace:
        return refuse(507, "sin_espacio");
    default:
        return json(wire::Saved{saving.version});
    }
}

Answer listReceipts(const Call& call) {
    wire::Receipts list;
    for (const Receipt& receipt : call.services.receipts.list(call.session.account)) {
        list.recibos.push_back({receipt.id, receipt.size});
    }
    return json(list);
}

Answer keepReceipt(const Call& call) {
    if (call.body.empty()) {
        return malformed();
    }
    const auto receipt = call.services.receipts.keep(call.session.account, call.body);
    return receipt ? Answer(json(wire::Receipt{receipt->id, receipt->size}))
                   : refuse(507, "sin_espacio");
}

Answer showReceipt(const Call& call) {
    const auto id = queryValue(call.query, "id");
    if (!id) {
        return malformed();
    }
    auto sealed = call.services.receipts.read(call.session.account, *id);
    return sealed ? Answer(Response{.body = std::move(*sealed), .type = "application/octet-stream"})
                  : refuse(404, "no_encontrado");
}

/// What is gone already is as it should be.
Answer deleteReceipt(const Call& call) {
    const auto asked = wire::read<wire::ReceiptDeletion>(call.body);
    if (!asked) {
        return malformed();
    }
    call.services.receipts.remove(call.session.account, asked->id);
    return Response{};
}

Answer signOut(const Call& call) {
    call.services.store.change([&](Database& database) { endSession(database, call.session.id); });
    return Response{};
}

using Body = Endpoint::Body;

constexpr std::array endpoints{
    Endpoint{"codigo-pedir.php", "POST", false, Body::small, requestCode},
    Endpoint{"codigo-comprobar.php", "POST", false, Body::small, verifyCode},
    Endpoint{"cuenta.php", "GET", true, Body::small, showAccount},
    Endpoint{"llave.php", "GET", true, Body::small, showKey},
    Endpoint{"llave.php", "POST", true, Body::small, storeKey},
    Endpoint{"bloque.php", "GET", true, Body::small, showBlock},
    Endpoint{"bloque-guardar.php", "POST", true, Body::block, saveBlock},
    Endpoint{"recibos.php", "GET", true, Body::small, listReceipts},
    Endpoint{"recibo-subir.php", "POST", true, Body::document, keepReceipt},
    Endpoint{"recibo.php", "GET", true, Body::small, showReceipt},
    Endpoint{"recibo-borrar.php", "POST", true, Body::small, deleteReceipt},
    Endpoint{"salir.php", "POST", true, Body::small, signOut},
};

} // namespace

std::span<const Endpoint> allEndpoints() { return endpoints; }

} // namespace fiscarel::server
