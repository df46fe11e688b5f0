#pragma once

#include "Fiscarel_SG/store/FileSystem.h"

#include <filesystem>
#include <optional>

namespace fiscarel {

/// Holds a data folder for this program; the system lets go of it when the program ends, however it
/// ends.
class FolderLock {
  public:
    FolderLock(FolderLock&& other) noexcept;
    FolderLock& operator=(FolderLock&& other) noexcept;
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

    /// Absent when another program holds the folder. Makes the folder where there is none. On file
    /// systems that know no locks, and in folders that cannot be written, nobody is kept out.
    static std::optional<FolderLock> acquire(const std::filesystem::path& folder);

  private:
    explicit FolderLock(int file) noexcept : file_(file) {}

    int file_ = -1;
};

} // namespace fiscarel
