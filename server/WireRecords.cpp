#include "server/WireRecords.h"

#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

namespace fiscarel::server::wire {

template <class T>
std::optional<T> read(std::string_view body) {
    auto record = taxcore::fromJson<T>(body);
    return record ? std::optional(std::move(*record)) : std::nullopt;
}

template <class T>
std::string write(const T& record) {
    return taxcore::toJson(record, taxcore::JsonStyle::compact);
}

template std::optional<CodeRequest> read(std::string_view);
template std::optional<CodeCheck> read(std::string_view);
template std::optional<KeyStoring> read(std::string_view);
template std::optional<BlockSaving> read(std::string_view);
template std::optional<ReceiptDeletion> read(std::string_view);

template std::string write(const Login&);
template std::string write(const Account&);
template std::string write(const KeyBody&);
template std::string write(const Block&);
template std::string write(const Saved&);
template std::string write(const Receipt&);
template std::string write(const Receipts&);
template std::string write(const Error&);

} // namespace fiscarel::server::wire
