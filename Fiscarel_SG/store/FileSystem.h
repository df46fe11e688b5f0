#pragma once

#include "TaxCore/base/Moment.h"

#include <tl/expected.hpp>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

using taxcore::Moment;

/// Why something with a file did not work.
struct FileError {
    int code = 0; ///< errno
    std::filesystem::path path;

    /// Whether there is no such file, and nothing else went wrong.
    bool isMissing() const noexcept;
    /// The reason alone, one German sentence: "Auf dem Datenträger ist kein Platz mehr."
    std::string reason() const;
    /// The same with the file: "«daten.json»: Der Zugriff ist nicht erlaubt."
    std::string description() const;
};

template <class T>
using FileResult = tl::expected<T, FileError>;

/// A file as its folder tells of it.
struct FileEntry {
    std::string name;       ///< within its folder
    std::uint64_t size = 0; ///< bytes
    Moment modified;

    bool operator==(const FileEntry&) const = default;
};

/// A regular file open for reading.
class FileReader {
  public:
    FileReader() = default;
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;
    virtual ~FileReader() = default;

    /// Bytes, when it was opened.
    virtual std::uint64_t size() const = 0;
    /// Fills `into` with what stands at an offset; how many bytes, fewer only where the file ends.
    virtual FileResult<std::size_t> read(std::uint64_t offset, std::span<char> into) = 0;
};

/// What `FileDraft::place` does with a file that has the name already.
enum class IfTaken { refuse, replace };

/// Content in the making, in a hidden file beside the one it is to become; removed at the end
/// unless it was placed.
class FileDraft {
  public:
    FileDraft() = default;
    FileDraft(const FileDraft&) = delete;
    FileDraft& operator=(const FileDraft&) = delete;
    virtual ~FileDraft() = default;

    virtual FileResult<void> write(std::uint64_t offset, std::string_view bytes) = 0;
    /// Puts all that was written on the disk and closes the file; nothing can be written after.
    virtual FileResult<void> finish() = 0;
    /// Finishes, gives the file the name it was begun for, and puts that on the disk. A new name is
    /// not there when that fails.
    virtual FileResult<void> place(IfTaken ifTaken) = 0;
};

/// What the program does with files. Every operation is whole or not at all, also when the program
/// or the machine stops in its midst; what had to be on the disk is on it when the call returns.
/// Any thread may call.
class FileSystem {
  public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// The content of a file of at most `mostBytes`.
    virtual FileResult<std::string> read(const std::filesystem::path& file,
                                         std::uint64_t mostBytes) = 0;
    /// Puts a file in place, over an older one of that name; only the user may read it.
    virtual FileResult<void> write(const std::filesystem::path& file, std::string_view bytes) = 0;
    /// Copies a regular file of at most `mostBytes` to a name that is not taken yet.
    virtual FileResult<void> copy(const std::filesystem::path& from,
                                  const std::filesystem::path& to, std::uint64_t mostBytes) = 0;
    /// Opens a regular file for reading piece by piece.
    virtual FileResult<std::unique_ptr<FileReader>> open(const std::filesystem::path& file) = 0;
    /// Begins a file that is written piece by piece; only the user may read it.
    virtual FileResult<std::unique_ptr<FileDraft>> draft(const std::filesystem::path& file) = 0;
    /// Bytes that can still be written to the disk of a folder.
    virtual FileResult<std::uint64_t> freeSpace(const std::filesystem::path& folder) = 0;
    /// Gives a file a second name that is not taken yet.
    virtual FileResult<void> link(const std::filesystem::path& file,
                                  const std::filesystem::path& second) = 0;
    /// Takes a file away; an error when there is none.
    virtual FileResult<void> remove(const std::filesystem::path& file) = 0;
    /// What the folder tells of a file, or of what a link leads to.
    virtual FileResult<FileEntry> stat(const std::filesystem::path& file) = 0;
    /// The regular files of a folder by name, without hidden ones.
    virtual FileResult<std::vector<FileEntry>> list(const std::filesystem::path& folder) = 0;
    /// Makes a folder, and those above it, for the user alone.
    virtual FileResult<void> makeFolder(const std::filesystem::path& folder) = 0;
    /// Removes what an interrupted `write`, `copy` or `draft` left in a folder.
    virtual void removeLeftovers(const std::filesystem::path& folder) = 0;
};

} // namespace fiscarel
