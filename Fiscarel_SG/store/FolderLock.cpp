#include "Fiscarel_SG/store/FolderLock.h"

#include "Fiscarel_SG/store/PosixFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace fiscarel {

FolderLock::FolderLock(FolderLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
    std::swap(file_, other.file_);
    return *this;
}

FolderLock::~FolderLock() {
    if (file_ >= 0) {
        ::close(file_);
    }
}

std::optional<FolderLock> FolderLock::acquire(const std::filesystem::path& folder) {
    (void)PosixFiles().makeFolder(folder);
    const int file =
        ::open((folder / ".sperre").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    FolderLock lock(file);
    if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return std::nullopt;
    }
    return lock;
}

} // namespace fiscarel
