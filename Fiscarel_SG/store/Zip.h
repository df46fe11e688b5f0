#pragma once

#include "Fiscarel_SG/store/FileSystem.h"

#include <tl/expected.hpp>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Why something with a ZIP file did not work.
struct ZipFault {
    enum class Kind {
        file,      ///< `file` tells
        stopped,   ///< as was asked for
        noArchive, ///< no ZIP file, or its end is missing
        damaged,   ///< an entry does not read, or not as what it says it is
        internal,  ///< memory, or a name that cannot be written
    };

    Kind kind = Kind::internal;
    std::optional<FileError> file;
};

template <class T>
using ZipResult = tl::expected<T, ZipFault>;

/// Writes a ZIP file, in the large form where it has to be.
class ZipWriter {
  public:
    enum class Packing { stored, deflated };

    /// Both must outlive it.
    ZipWriter(FileSystem& files, FileDraft& draft);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;
    ZipWriter(ZipWriter&&) = delete;
    ZipWriter& operator=(ZipWriter&&) = delete;

    /// Adds an entry of these bytes, which must stay until all is written.
    ZipResult<void> add(const std::string& name, std::string_view bytes, Packing packing);
    /// Adds an entry with the content of a file, which is read when all is written.
    ZipResult<void> add(const std::string& name, const std::filesystem::path& file,
                        Packing packing);
    /// Writes all entries. `goesOn` is told with each piece how many bytes of them were read so
    /// far, and stops the writing by false.
    ZipResult<void> write(std::function<bool(std::uint64_t)> goesOn);

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// What a ZIP file says of an entry; none of it need be true.
struct ZipEntry {
    std::uint64_t index = 0;
    std::string name; ///< in UTF-8
    std::uint64_t size = 0;
    bool isLink = false;
    bool isEncrypted = false;
    bool isReadable = false; ///< stored or deflated
};

/// Reads a ZIP file that may have been made to do harm.
class ZipReader {
  public:
    /// Refuses files whose table of entries is larger than any we write. `files` must outlive it.
    static ZipResult<ZipReader> open(FileSystem& files, const std::filesystem::path& file);
    ~ZipReader();
    ZipReader(ZipReader&& other) noexcept;
    ZipReader& operator=(ZipReader&& other) noexcept;
    ZipReader(const ZipReader&) = delete;
    ZipReader& operator=(const ZipReader&) = delete;

    std::uint64_t count() const;
    ZipEntry entry(std::uint64_t index) const;
    /// Hands an entry's content to `use` piece by piece until that says false, at most as much as
    /// the entry says it has. Whether all of it was read, and was what it should be.
    ZipResult<bool> read(const ZipEntry& entry, const std::function<bool(std::string_view)>& use);

  private:
    struct Parts;
    explicit ZipReader(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> parts_;
};

} // namespace fiscarel
