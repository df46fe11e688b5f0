#include "tests/app/ArchiveSupport.h"

#include <zip.h>

#include <random>
#include <stdexcept>

namespace fiscarel::testing {

namespace fs = std::filesystem;

Contents contentsOf(const fs::path& folder) {
    Contents contents;
    for (const auto& entry : fs::directory_iterator(folder)) {
        contents[entry.path().filename().string()] = readFile(entry.path());
    }
    return contents;
}

std::string noise(std::size_t size) {
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same bytes every time
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

PersistedState stateWith(const std::vector<std::string>& fileNames) {
    PersistedState state;
    state.cases[2025].year = 2025;
    for (const std::string& name : fileNames) {
        StoredDocument& document = state.documents.emplace_back();
        document.year = 2025;
        document.title = "Titel von " + name;
        document.fileName = name;
    }
    return state;
}

std::string zipOf(const std::vector<RawEntry>& entries) {
    const TemporaryFolder folder;
    const std::string file = (folder / "made.zip").string();
    int error = 0;
    zip_t* const zip = zip_open(file.c_str(), ZIP_CREATE, &error);
    for (const RawEntry& entry : entries) {
        zip_source_t* const source =
            zip_source_buffer(zip, entry.bytes.data(), entry.bytes.size(), 0);
        const auto index = static_cast<zip_uint64_t>(
            zip_file_add(zip, entry.name.c_str(), source, ZIP_FL_ENC_UTF_8));
        zip_set_file_compression(zip, index, entry.isDeflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0);
        zip_file_set_external_attributes(zip, index, 0, ZIP_OPSYS_UNIX, entry.mode << 16U);
    }
    if (zip_close(zip) != 0) {
        throw std::runtime_error(zip_strerror(zip));
    }
    return readFile(file);
}

std::string patched(std::string bytes, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = bytes.find(from, at)) != std::string::npos; at += to.size()) {
        bytes.replace(at, from.size(), to);
    }
    return bytes;
}

std::string patchedHeaders(std::string bytes, std::size_t local, std::size_t central,
                           std::uint16_t value) {
    using namespace std::string_view_literals;
    for (const auto& [mark, offset] :
         {std::pair("PK\x03\x04"sv, local), std::pair("PK\x01\x02"sv, central)}) {
        for (std::size_t at = 0; (at = bytes.find(mark, at)) != std::string::npos; ++at) {
            bytes.replace(at + offset, 2, littleEndian(value, 2));
        }
    }
    return bytes;
}

std::string littleEndian(std::uint64_t value, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
    return text;
}

} // namespace fiscarel::testing
