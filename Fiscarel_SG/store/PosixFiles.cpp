#include "Fiscarel_SG/store/PosixFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <utility>

namespace fiscarel {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view leftoverSuffix = ".unfertig";
constexpr mode_t onlyUser = 0600;
constexpr mode_t onlyUserFolder = 0700;

tl::unexpected<FileError> failed(const fs::path& path, int code = errno) {
    return tl::unexpected(FileError{code, path});
}

/// An open file, closed at the end.
class Descriptor {
  public:
    Descriptor(const fs::path& path, int flags, mode_t mode = 0)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    explicit operator bool() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }
    /// Closes now, to learn what went wrong; some file systems report a failed write only here.
    bool close() noexcept { return ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return true;
}

FileResult<void> syncFolder(const fs::path& folder) {
    const Descriptor open(folder, O_RDONLY | O_DIRECTORY);
    // Some file systems cannot sync a folder; they keep their own order.
    if (!open || (::fsync(open.number()) != 0 && errno != EINVAL)) {
        return failed(folder);
    }
    return {};
}

/// A name for content that is not complete yet, in the folder of its file.
fs::path leftoverName(const fs::path& file) {
    thread_local std::mt19937_64 random{std::random_device{}()};
    return file.parent_path() / ("." + std::to_string(random()) + std::string(leftoverSuffix));
}

/// A regular file open for reading; pipes and devices would never end.
struct Source {
    Descriptor file;
    struct stat status = {};

    explicit Source(const fs::path& path) : file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY) {}
    /// The reason why it is not to be read, or 0.
    int problem(std::uint64_t mostBytes) {
        if (!file || ::fstat(file.number(), &status) != 0) {
            return errno;
        }
        if (!S_ISREG(status.st_mode)) {
            return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        }
        return static_cast<std::uint64_t>(status.st_size) > mostBytes ? EFBIG : 0;
    }
};

/// Hands a file's bytes to `use` piece by piece; errno or 0.
template <class Use>
int readPieces(const Descriptor& file, std::uint64_t mostBytes, const Use& use) {
    std::array<char, std::size_t{1} << 16U> buffer{};
    for (std::uint64_t done = 0;;) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count == 0) {
            return 0;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        done += static_cast<std::uint64_t>(count);
        if (done > mostBytes) {
            return EFBIG;
        }
        if (!use(std::string_view(buffer.data(), static_cast<std::size_t>(count)))) {
            return errno;
        }
    }
}

/// Gives a file a new name that is not taken; errno or 0.
int renameToFree(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    // Network file systems know no such renaming; a second name does not replace anything either.
    if (::link(from.c_str(), to.c_str()) != 0) {
        return errno;
    }
    ::unlink(from.c_str());
    return 0;
}

/// Syncs the folder of a file that was not there before; when that fails it shall not be there.
FileResult<void> syncNew(const fs::path& file) {
    auto synced = syncFolder(file.parent_path());
    if (!synced) {
        ::unlink(file.c_str());
    }
    return synced;
}

/// Fills a hidden file with `fill(descriptor)`, syncs it and hands it to `place`, which gives it
/// its name; both return errno or 0. The folder is then to be synced.
template <class Fill, class Place>
FileResult<void> placeNew(const fs::path& target, const Fill& fill, const Place& place) {
    const fs::path hidden = leftoverName(target);
    int problem = 0;
    {
        Descriptor file(hidden, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, onlyUser);
        if (!file) {
            return failed(target);
        }
        problem = fill(file);
        if (problem == 0 && (::fsync(file.number()) != 0 || !file.close())) {
            problem = errno;
        }
    }
    if (problem == 0) {
        problem = place(hidden);
    }
    if (problem != 0) {
        ::unlink(hidden.c_str());
        return failed(target, problem);
    }
    return {};
}

Moment momentOf(const timespec& time) { return Moment{static_cast<std::int64_t>(time.tv_sec)}; }

} // namespace

FileResult<std::string> PosixFiles::read(const fs::path& file, std::uint64_t mostBytes) {
    Source source(file);
    if (const int problem = source.problem(mostBytes)) {
        return failed(file, problem);
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(source.status.st_size));
    const int problem = readPieces(source.file, mostBytes, [&](std::string_view piece) {
        bytes += piece;
        return true;
    });
    if (problem != 0) {
        return failed(file, problem);
    }
    return bytes;
}

FileResult<void> PosixFiles::write(const fs::path& file, std::string_view bytes) {
    return placeNew(
               file,
               [&](const Descriptor& open) { return writeAll(open.number(), bytes) ? 0 : errno; },
               [&](const fs::path& hidden) {
                   return ::rename(hidden.c_str(), file.c_str()) == 0 ? 0 : errno;
               })
        .and_then([&] { return syncFolder(file.parent_path()); });
}

FileResult<void> PosixFiles::copy(const fs::path& from, const fs::path& to,
                                  std::uint64_t mostBytes) {
    Source source(from);
    if (const int problem = source.problem(mostBytes)) {
        return failed(from, problem);
    }
    return placeNew(
               to,
               [&](const Descriptor& open) {
                   return readPieces(source.file, mostBytes, [&](std::string_view piece) {
                       return writeAll(open.number(), piece);
                   });
               },
               [&](const fs::path& hidden) { return renameToFree(hidden, to); })
        .and_then([&] { return syncNew(to); });
}

FileResult<void> PosixFiles::link(const fs::path& file, const fs::path& second) {
    if (::link(file.c_str(), second.c_str()) != 0) {
        return failed(second);
    }
    return syncNew(second);
}

FileResult<void> PosixFiles::remove(const fs::path& file) {
    if (::unlink(file.c_str()) != 0) {
        return failed(file);
    }
    return {};
}

FileResult<FileEntry> PosixFiles::stat(const fs::path& file) {
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0) {
        return failed(file);
    }
    return FileEntry{file.filename().string(), static_cast<std::uint64_t>(status.st_size),
                     momentOf(status.st_mtim)};
}

FileResult<std::vector<FileEntry>> PosixFiles::list(const fs::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
    if (!open) {
        return failed(folder);
    }
    std::vector<FileEntry> entries;
    while (const dirent* entry = ::readdir(open.get())) {
        const std::string name = std::begin(entry->d_name);
        struct stat status = {};
        if (!name.starts_with('.') && ::stat((folder / name).c_str(), &status) == 0
            && S_ISREG(status.st_mode)) {
            entries.push_back(
                {name, static_cast<std::uint64_t>(status.st_size), momentOf(status.st_mtim)});
        }
    }
    std::ranges::sort(entries, {}, &FileEntry::name);
    return entries;
}

FileResult<void> PosixFiles::makeFolder(const fs::path& folder) {
    struct stat status = {};
    if (::stat(folder.c_str(), &status) == 0) {
        return S_ISDIR(status.st_mode) ? FileResult<void>{} : failed(folder, ENOTDIR);
    }
    if (folder.has_parent_path() && folder.parent_path() != folder) {
        if (auto above = makeFolder(folder.parent_path()); !above) {
            return above;
        }
    }
    if (::mkdir(folder.c_str(), onlyUserFolder) != 0) {
        return errno == EEXIST ? FileResult<void>{} : failed(folder);
    }
    (void)syncFolder(folder.parent_path()); // it is there, whatever a sync tells
    return {};
}

void PosixFiles::removeLeftovers(const fs::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
        const std::string_view name = std::begin(entry->d_name);
        if (name.starts_with('.') && name.ends_with(leftoverSuffix)) {
            ::unlink((folder / name).c_str());
        }
    }
}

} // namespace fiscarel
