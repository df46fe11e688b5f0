#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"
#include "Fiscarel_SG/store/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// What was read from documents, by their content: files in a folder of its own, which may vanish
/// at any time, since everything in it can be read again. Any thread may call; what goes wrong with
/// a file only costs another reading.
class ScanCache {
  public:
    static constexpr std::uint64_t usualSize = std::uint64_t{64} << 20U;

    /// Nothing is made before it is needed. When the files take more than `mostBytes`, the oldest
    /// go. `files` must outlive the cache.
    ScanCache(FileSystem& files, std::filesystem::path folder, std::uint64_t mostBytes = usualSize);

    /// What was read from a document; absent when it has to be read again. `hash` is what
    /// `contentHash` makes.
    std::optional<ScanResult> find(std::string_view hash);
    void keep(std::string_view hash, const ScanResult& result);
    void forget(std::string_view hash);

  private:
    std::filesystem::path fileOf(std::string_view hash) const;
    void prune();

    FileSystem& files_;
    const std::filesystem::path folder_;
    const std::uint64_t mostBytes_;
    std::mutex writing_;
};

} // namespace fiscarel
