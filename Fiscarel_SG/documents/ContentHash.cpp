#include "Fiscarel_SG/documents/ContentHash.h"

#include <QCryptographicHash>
#include <array>
#include <fstream>

namespace fiscarel {

std::optional<std::string> contentHash(const std::filesystem::path& file,
                                       const std::stop_token& stop) {
    std::ifstream in(file, std::ios::binary);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::array<char, 65536> piece{};
    while (in && !stop.stop_requested()) {
        in.read(piece.data(), piece.size());
        hash.addData(QByteArrayView(piece.data(), in.gcount()));
    }
    if (!in.eof() || stop.stop_requested()) {
        return std::nullopt;
    }
    return hash.result().toHex().toStdString();
}

} // namespace fiscarel
