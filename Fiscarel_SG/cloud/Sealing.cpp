#include "Fiscarel_SG/cloud/Sealing.h"

#include <QByteArray>
#include <QCryptographicHash>

namespace fiscarel {

namespace {

QByteArrayView view(std::string_view bytes) {
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

std::string nameOf(std::string_view blockKey) { return "bloque:" + std::string(blockKey); }

} // namespace

std::string sealedText(const CloudCrypto::Bytes& sealed) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(sealed.data()),
                                   static_cast<qsizetype>(sealed.size()))
        .toBase64()
        .toStdString();
}

tl::expected<CloudCrypto::Bytes, CloudCrypto::Failure> sealedBytes(std::string_view text) {
    const auto decoded = QByteArray::fromBase64Encoding(view(text).toByteArray(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        return tl::unexpected(CloudCrypto::Failure::damaged);
    }
    return CloudCrypto::Bytes((*decoded).begin(), (*decoded).end());
}

std::string sealBlock(std::string_view plain, const Secret& key, std::string_view blockKey) {
    return sealedText(
        CloudCrypto::seal({reinterpret_cast<const std::uint8_t*>(plain.data()), plain.size()}, key,
                          nameOf(blockKey)));
}

tl::expected<std::string, CloudCrypto::Failure>
openBlock(std::string_view sealed, const Secret& key, std::string_view blockKey) {
    return sealedBytes(sealed)
        .and_then([&](const CloudCrypto::Bytes& bytes) {
            return CloudCrypto::open(bytes, key, nameOf(blockKey));
        })
        .map([](const CloudCrypto::Bytes& plain) {
            return std::string(plain.begin(), plain.end());
        });
}

std::string sha256(std::string_view bytes) {
    return QCryptographicHash::hash(view(bytes), QCryptographicHash::Sha256).toHex().toStdString();
}

} // namespace fiscarel
