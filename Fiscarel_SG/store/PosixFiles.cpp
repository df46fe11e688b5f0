#include "Fiscarel_SG/store/PosixFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
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

/// An empty folder is the working one.
FileResult<void> syncFolder(const fs::path& folder) {
    const Descriptor open(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
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

class PosixReader final : public FileReader {
  public:
    explicit PosixReader(fs::path path) : path_(std::move(path)), source_(path_) {}

    FileResult<void> check(std::uint64_t mostBytes) {
        const int problem = source_.problem(mostBytes);
        return problem == 0 ? FileResult<void>{} : failed(path_, problem);
    }
    std::uint64_t size() const override {
        return static_cast<std::uint64_t>(source_.status.st_size);
    }
    FileResult<std::size_t> read(std::uint64_t offset, std::span<char> into) override {
        std::size_t done = 0;
        while (done < into.size()) {
            const ssize_t count = ::pread(source_.file.number(), into.data() + done,
                                          into.size() - done, static_cast<off_t>(offset + done));
            if (count == 0) {
                break;
            }
            if (count < 0 && errno != EINTR) {
                return failed(path_);
            }
            done += count < 0 ? 0 : static_cast<std::size_t>(count);
        }
        return done;
    }

  private:
    fs::path path_;
    Source source_;
};

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

class PosixDraft final : public FileDraft {
  public:
    explicit PosixDraft(fs::path target)
        : target_(std::move(target)), hidden_(leftoverName(target_)),
          file_(hidden_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, onlyUser), exists_(file_) {}
    ~PosixDraft() override {
        if (exists_) {
            ::unlink(hidden_.c_str());
        }
    }
    PosixDraft(const PosixDraft&) = delete;
    PosixDraft& operator=(const PosixDraft&) = delete;

    bool exists() const noexcept { return exists_; }

    FileResult<void> write(std::uint64_t offset, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count =
                ::pwrite(file_.number(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
            if (count < 0 && errno != EINTR) {
                return failed(target_);
            }
            const auto done = count < 0 ? 0 : static_cast<std::size_t>(count);
            bytes.remove_prefix(done);
            offset += done;
        }
        return {};
    }

    FileResult<void> finish() override {
        if (file_ && (::fsync(file_.number()) != 0 || !file_.close())) {
            return failed(target_);
        }
        return {};
    }

    FileResult<void> place(IfTaken ifTaken) override {
        if (auto finished = finish(); !finished) {
            return finished;
        }
        if (ifTaken == IfTaken::replace) {
            if (::rename(hidden_.c_str(), target_.c_str()) != 0) {
                return failed(target_);
            }
            exists_ = false;
            return syncFolder(target_.parent_path()); // what was replaced cannot come back
        }
        if (const int problem = renameToFree(hidden_, target_)) {
            return failed(target_, problem);
        }
        exists_ = false;
        return syncNew(target_);
    }

  private:
    const fs::path target_;
    const fs::path hidden_;
    Descriptor file_;
    bool exists_;
};

/// Hands a file's bytes to `use(offset, piece)`, which says whether it goes on well.
template <class Use>
FileResult<void> readPieces(FileReader& file, const fs::path& path, std::uint64_t mostBytes,
                            const Use& use) {
    std::array<char, std::size_t{1} << 16U> buffer{};
    for (std::uint64_t offset = 0;;) {
        const auto count = file.read(offset, buffer);
        if (!count) {
            return tl::unexpected(count.error());
        }
        if (offset + *count > mostBytes) {
            return failed(path, EFBIG);
        }
        if (auto used = use(offset, std::string_view(buffer.data(), *count)); !used) {
            return used;
        }
        if (*count < buffer.size()) {
            return {};
        }
        offset += *count;
    }
}

Moment momentOf(const timespec& time) { return Moment{static_cast<std::int64_t>(time.tv_sec)}; }

} // namespace

FileResult<std::string> PosixFiles::read(const fs::path& file, std::uint64_t mostBytes) {
    PosixReader reader(file);
    if (auto checked = reader.check(mostBytes); !checked) {
        return tl::unexpected(checked.error());
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(reader.size()));
    const auto add = [&](std::uint64_t, std::string_view piece) {
        bytes += piece;
        return FileResult<void>{};
    };
    return readPieces(reader, file, mostBytes, add).map([&] { return std::move(bytes); });
}

FileResult<void> PosixFiles::write(const fs::path& file, std::string_view bytes) {
    return draft(file).and_then([&](const std::unique_ptr<FileDraft>& content) {
        return content->write(0, bytes).and_then([&] { return content->place(IfTaken::replace); });
    });
}

FileResult<void> PosixFiles::copy(const fs::path& from, const fs::path& to,
                                  std::uint64_t mostBytes) {
    PosixReader reader(from);
    if (auto checked = reader.check(mostBytes); !checked) {
        return checked;
    }
    return draft(to).and_then([&](const std::unique_ptr<FileDraft>& content) {
        const auto add = [&](std::uint64_t offset, std::string_view piece) {
            return content->write(offset, piece);
        };
        return readPieces(reader, from, mostBytes, add).and_then([&] {
            return content->place(IfTaken::refuse);
        });
    });
}

FileResult<std::unique_ptr<FileReader>> PosixFiles::open(const fs::path& file) {
    auto reader = std::make_unique<PosixReader>(file);
    return reader->check(std::numeric_limits<std::uint64_t>::max()).map([&] {
        return std::unique_ptr<FileReader>(std::move(reader));
    });
}

FileResult<std::unique_ptr<FileDraft>> PosixFiles::draft(const fs::path& file) {
    auto content = std::make_unique<PosixDraft>(file);
    if (!content->exists()) {
        return failed(file);
    }
    return content;
}

FileResult<std::uint64_t> PosixFiles::freeSpace(const fs::path& folder) {
    struct statvfs status = {};
    if (::statvfs(folder.c_str(), &status) != 0) {
        return failed(folder);
    }
    return std::uint64_t{status.f_bavail} * status.f_frsize;
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
