#pragma once

#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The bodies of requests and answers. Fields are named as their keys on the wire.
namespace fiscarel::server::wire {

// NOLINTBEGIN(readability-identifier-naming): the keys of the protocol

struct CodeRequest {
    std::string email;
};
TAXCORE_RECORD(CodeRequest, email);

struct CodeCheck {
    std::string email;
    std::string codigo;  ///< the code
    std::string aparato; ///< the device's name
};
TAXCORE_RECORD(CodeCheck, email, codigo, aparato);

struct LoginAccount {
    std::string email;
    bool nueva = false;       ///< made by this sign-in
    bool tiene_llave = false; ///< a wrapped key is stored
};
TAXCORE_RECORD(LoginAccount, email, nueva, tiene_llave);

struct Login {
    std::string token;
    LoginAccount cuenta;
};
TAXCORE_RECORD(Login, token, cuenta);

struct Space {
    std::int64_t usado = 0;  ///< bytes
    std::int64_t maximo = 0; ///< bytes
};
TAXCORE_RECORD(Space, usado, maximo);

struct Device {
    std::int64_t id = 0;
    std::string aparato;    ///< name
    std::string desde;      ///< first seen, "2026-03-01T13:05:09Z"
    std::string ultima_vez; ///< last seen
    bool este = false;      ///< the one that asks
};
TAXCORE_RECORD(Device, id, aparato, desde, ultima_vez, este);

struct Account {
    std::string email;
    Space espacio;
    bool tiene_llave = false;
    std::vector<Device> aparatos;
    std::optional<std::string> borrado_previsto; ///< the day it goes, "2026-03-01"
};
TAXCORE_RECORD(Account, email, espacio, tiene_llave, aparatos, borrado_previsto);

struct KeyBody {
    std::optional<std::string> llave; ///< the wrapped data key
    std::optional<bool> ilegible;     ///< one is stored, but does not read
};
TAXCORE_RECORD(KeyBody, llave, ilegible);

struct KeyStoring {
    std::string llave;
    std::optional<std::string> anterior; ///< the wrapped key it takes the place of
};
TAXCORE_RECORD(KeyStoring, llave, anterior);

struct BlockSaving {
    std::string clave; ///< the block's name
    std::int64_t version = 0;
    std::string contenido;
};
TAXCORE_RECORD(BlockSaving, clave, version, contenido);

struct Block {
    std::int64_t version = 0;
    std::string contenido;
};
TAXCORE_RECORD(Block, version, contenido);

struct Saved {
    std::int64_t version = 0;
};
TAXCORE_RECORD(Saved, version);

struct Receipt {
    std::string id;
    std::int64_t tamano = 0; ///< bytes
};
TAXCORE_RECORD(Receipt, id, tamano);

struct Receipts {
    std::vector<Receipt> recibos;
};
TAXCORE_RECORD(Receipts, recibos);

struct ReceiptDeletion {
    std::string id;
};
TAXCORE_RECORD(ReceiptDeletion, id);

struct Error {
    std::string error;
    std::optional<int> quedan;                  ///< tries left
    std::optional<std::int64_t> version_actual; ///< of the block stored
};
TAXCORE_RECORD(Error, error, quedan, version_actual);

// NOLINTEND(readability-identifier-naming)

/// Reads the body of a request; absent when it is not as agreed.
template <class T>
std::optional<T> read(std::string_view body);
/// Writes the body of an answer.
template <class T>
std::string write(const T& record);

} // namespace fiscarel::server::wire
