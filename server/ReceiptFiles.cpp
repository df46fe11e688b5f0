#include "server/ReceiptFiles.h"

#include <stdexcept>
#include <system_error>
#include <utility>

namespace fiscarel::server {

namespace {

[[noreturn]] void fail(const FileError& error) {
    throw std::system_error(error.code, std::generic_category(), "folder of documents");
}

} // namespace

ReceiptFiles::ReceiptFiles(FileSystem& files, std::filesystem::path folder)
    : files_(files), folder_(std::move(folder)) {
    if (const auto made = files_.makeFolder(folder_); !made) {
        fail(made.error());
    }
    files_.removeLeftovers(folder_);
}

void ReceiptFiles::write(const std::string& id, std::string_view sealed) {
    if (const auto written = files_.write(folder_ / id, sealed); !written) {
        fail(written.error());
    }
}

std::optional<std::string> ReceiptFiles::read(const std::string& id, std::int64_t size) {
    auto content = files_.read(folder_ / id, static_cast<std::uint64_t>(size));
    if (!content || static_cast<std::int64_t>(content->size()) != size) {
        return std::nullopt;
    }
    return std::move(*content);
}

bool ReceiptFiles::has(const std::string& id, std::int64_t size) {
    const auto entry = files_.stat(folder_ / id);
    return entry && entry->size == static_cast<std::uint64_t>(size);
}

void ReceiptFiles::remove(const std::string& id) noexcept {
    (void)files_.remove(folder_ / id); // what stays behind goes at the next start
}

std::vector<std::string> ReceiptFiles::ids() {
    const auto entries = files_.list(folder_);
    if (!entries) {
        fail(entries.error());
    }
    std::vector<std::string> ids;
    for (const FileEntry& entry : *entries) {
        ids.push_back(entry.name);
    }
    return ids;
}

} // namespace fiscarel::server
