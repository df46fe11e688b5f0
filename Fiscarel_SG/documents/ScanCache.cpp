#include "Fiscarel_SG/documents/ScanCache.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

/// Raised when reading learns something, so that what was read before is read again.
constexpr std::string_view generation = "-4";
constexpr std::uint64_t largest = std::uint64_t{8} << 20U; ///< of one result

} // namespace

ScanCache::ScanCache(FileSystem& files, std::filesystem::path folder, std::uint64_t mostBytes)
    : files_(files), folder_(std::move(folder)), mostBytes_(mostBytes) {}

std::filesystem::path ScanCache::fileOf(std::string_view hash) const {
    return folder_ / (std::string(hash) + std::string(generation) + ".json");
}

std::optional<ScanResult> ScanCache::find(std::string_view hash) {
    const auto bytes = files_.read(fileOf(hash), largest);
    auto result =
        bytes ? taxcore::fromJson<ScanResult>(*bytes) : tl::unexpected(taxcore::JsonError{});
    return result ? std::optional(std::move(*result)) : std::nullopt;
}

void ScanCache::keep(std::string_view hash, const ScanResult& result) {
    const std::string bytes = taxcore::toJson(result);
    if (bytes.size() > largest) {
        return;
    }
    const std::scoped_lock lock(writing_);
    if (files_.makeFolder(folder_) && files_.write(fileOf(hash), bytes)) {
        prune();
    }
}

void ScanCache::forget(std::string_view hash) {
    const std::scoped_lock lock(writing_);
    static_cast<void>(files_.remove(fileOf(hash)));
}

void ScanCache::prune() {
    auto entries = files_.list(folder_);
    if (!entries) {
        return;
    }
    std::uint64_t size = 0;
    for (const FileEntry& entry : *entries) {
        size += entry.size;
    }
    std::ranges::sort(*entries, {}, [](const FileEntry& entry) { return entry.modified.seconds; });
    for (const FileEntry& entry : *entries) {
        if (size <= mostBytes_) {
            break;
        }
        if (files_.remove(folder_ / entry.name)) {
            size -= entry.size;
        }
    }
}

} // namespace fiscarel
