#pragma once

#include "Fiscarel_SG/store/FileSystem.h"

namespace fiscarel {

/// The files of this machine. New content goes to a hidden file in the same folder, is synced,
/// takes its name, and the folder is synced.
class PosixFiles final : public FileSystem {
  public:
    FileResult<std::string> read(const std::filesystem::path& file,
                                 std::uint64_t mostBytes) override;
    FileResult<void> write(const std::filesystem::path& file, std::string_view bytes) override;
    FileResult<void> copy(const std::filesystem::path& from, const std::filesystem::path& to,
                          std::uint64_t mostBytes) override;
    FileResult<std::unique_ptr<FileReader>> open(const std::filesystem::path& file) override;
    FileResult<std::unique_ptr<FileDraft>> draft(const std::filesystem::path& file) override;
    FileResult<std::uint64_t> freeSpace(const std::filesystem::path& folder) override;
    FileResult<void> link(const std::filesystem::path& file,
                          const std::filesystem::path& second) override;
    FileResult<void> remove(const std::filesystem::path& file) override;
    FileResult<FileEntry> stat(const std::filesystem::path& file) override;
    FileResult<std::vector<FileEntry>> list(const std::filesystem::path& folder) override;
    FileResult<void> makeFolder(const std::filesystem::path& folder) override;
    void removeLeftovers(const std::filesystem::path& folder) override;
};

} // namespace fiscarel
