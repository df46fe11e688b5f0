#pragma once

#include "Fiscarel_SG/store/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::server {

/// The sealed documents as files of one folder, each named by its identifier. What was written is
/// on the disk when the call returns. Any thread may call.
class ReceiptFiles {
  public:
    ReceiptFiles(FileSystem& files, std::filesystem::path folder);

    /// Throws `std::runtime_error` when the disk does not take it.
    void write(const std::string& id, std::string_view sealed);
    std::optional<std::string> read(const std::string& id, std::int64_t size);
    /// Whether the file is there with that size.
    bool has(const std::string& id, std::int64_t size);
    /// A file that is gone already is fine.
    void remove(const std::string& id) noexcept;
    std::vector<std::string> ids();

  private:
    FileSystem& files_;
    std::filesystem::path folder_;
};

} // namespace fiscarel::server
