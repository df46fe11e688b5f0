#include "Fiscarel_SG/store/Zip.h"

#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <span>
#include <utility>

namespace fiscarel {

namespace {

namespace fs = std::filesystem;

/// What an archive of the largest size kept here needs at most for its table of entries, bytes.
constexpr std::uint64_t mostTableBytes = std::uint64_t{32} << 20U;
constexpr std::size_t pieceSize = std::size_t{1} << 16U;

/// What our side of the library's callbacks keeps: the library itself only hands numbers through.
struct Problem {
    std::optional<FileError> file;
    bool wasStopped = false;
};

/// One of the library's errors, which has to be freed.
class LibraryError {
  public:
    LibraryError() { zip_error_init(&error_); }
    ~LibraryError() { zip_error_fini(&error_); }
    LibraryError(const LibraryError&) = delete;
    LibraryError& operator=(const LibraryError&) = delete;

    zip_error_t* get() noexcept { return &error_; }
    zip_int64_t set(int code, int system = 0) {
        zip_error_set(&error_, code, system);
        return -1;
    }

  private:
    zip_error_t error_{};
};

/// Moves a position as the library asks, within a size; 0, or -1 with the error set.
zip_int64_t seekTo(std::uint64_t& position, std::uint64_t size, void* data, zip_uint64_t length,
                   LibraryError& error) {
    const zip_int64_t target =
        zip_source_seek_compute_offset(position, size, data, length, error.get());
    if (target < 0) {
        return -1;
    }
    position = static_cast<std::uint64_t>(target);
    return 0;
}

/// A file as the library reads it.
class ReadingSide {
  public:
    /// `goesOn` is told how many bytes were read; false stops.
    ReadingSide(FileSystem& files, fs::path file, Problem& problem,
                std::function<bool(std::size_t)> goesOn)
        : files_(files), file_(std::move(file)), problem_(problem), goesOn_(std::move(goesOn)) {}

    static zip_int64_t call(void* self, void* data, zip_uint64_t length,
                            zip_source_cmd_t command) noexcept {
        return static_cast<ReadingSide*>(self)->answer(data, length, command);
    }

  private:
    zip_int64_t answer(void* data, zip_uint64_t length, zip_source_cmd_t command) {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            position_ = 0;
            return open();
        case ZIP_SOURCE_READ:
            return read({static_cast<char*>(data), static_cast<std::size_t>(length)});
        case ZIP_SOURCE_CLOSE:
            reader_.reset();
            return 0;
        case ZIP_SOURCE_STAT:
            return stat(*static_cast<zip_stat_t*>(data));
        case ZIP_SOURCE_SEEK:
            return seek(data, length);
        case ZIP_SOURCE_TELL:
            return static_cast<zip_int64_t>(position_);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(error_.get(), data, length);
        case ZIP_SOURCE_FREE:
            return 0;
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(
                ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        default:
            return error_.set(ZIP_ER_OPNOTSUPP);
        }
    }

    zip_int64_t failed(FileError error) {
        const int code = error.code;
        problem_.file = std::move(error);
        return error_.set(ZIP_ER_READ, code);
    }

    zip_int64_t open() {
        auto opened = files_.open(file_);
        if (!opened) {
            return failed(std::move(opened).error());
        }
        reader_ = std::move(*opened);
        size_ = reader_->size();
        return 0;
    }

    zip_int64_t read(std::span<char> into) {
        auto count = reader_->read(position_, into);
        if (!count) {
            return failed(std::move(count).error());
        }
        if (!goesOn_(*count)) {
            problem_.wasStopped = true;
            return error_.set(ZIP_ER_CANCELLED);
        }
        position_ += *count;
        return static_cast<zip_int64_t>(*count);
    }

    zip_int64_t stat(zip_stat_t& status) {
        zip_stat_init(&status);
        if (!reader_) { // also asked for before and after reading
            auto opened = files_.open(file_);
            if (!opened) {
                return failed(std::move(opened).error());
            }
            size_ = (*opened)->size();
        }
        status.size = size_;
        status.valid = ZIP_STAT_SIZE;
        return sizeof status;
    }

    zip_int64_t seek(void* data, zip_uint64_t length) {
        return seekTo(position_, size_, data, length, error_);
    }

    FileSystem& files_;
    const fs::path file_;
    Problem& problem_;
    const std::function<bool(std::size_t)> goesOn_;
    std::unique_ptr<FileReader> reader_;
    std::uint64_t size_ = 0;
    std::uint64_t position_ = 0;
    LibraryError error_;
};

/// A draft as the library writes it; to the library an archive that is empty so far.
class WritingSide {
  public:
    WritingSide(FileDraft& draft, Problem& problem) : draft_(draft), problem_(problem) {}

    static zip_int64_t call(void* self, void* data, zip_uint64_t length,
                            zip_source_cmd_t command) noexcept {
        return static_cast<WritingSide*>(self)->answer(data, length, command);
    }

  private:
    zip_int64_t answer(void* data, zip_uint64_t length, zip_source_cmd_t command) {
        switch (command) {
        case ZIP_SOURCE_WRITE:
            return write({static_cast<const char*>(data), static_cast<std::size_t>(length)});
        case ZIP_SOURCE_SEEK_WRITE:
            return seek(data, length);
        case ZIP_SOURCE_TELL_WRITE:
            return static_cast<zip_int64_t>(position_);
        case ZIP_SOURCE_STAT:
            zip_stat_init(static_cast<zip_stat_t*>(data));
            return sizeof(zip_stat_t);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(error_.get(), data, length);
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(
                ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE,
                ZIP_SOURCE_BEGIN_WRITE, ZIP_SOURCE_WRITE, ZIP_SOURCE_SEEK_WRITE,
                ZIP_SOURCE_TELL_WRITE, ZIP_SOURCE_COMMIT_WRITE, ZIP_SOURCE_ROLLBACK_WRITE,
                ZIP_SOURCE_REMOVE, -1);
        case ZIP_SOURCE_OPEN:
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_FREE:
        case ZIP_SOURCE_BEGIN_WRITE:
        case ZIP_SOURCE_COMMIT_WRITE: // the draft's owner places it, or lets it go
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_REMOVE:
        case ZIP_SOURCE_READ:
        case ZIP_SOURCE_TELL:
            return 0;
        default:
            return error_.set(ZIP_ER_OPNOTSUPP);
        }
    }

    zip_int64_t write(std::string_view bytes) {
        if (auto written = draft_.write(position_, bytes); !written) {
            problem_.file = std::move(written).error();
            return error_.set(ZIP_ER_WRITE, problem_.file->code);
        }
        position_ += bytes.size();
        size_ = std::max(size_, position_);
        return static_cast<zip_int64_t>(bytes.size());
    }

    zip_int64_t seek(void* data, zip_uint64_t length) {
        return seekTo(position_, size_, data, length, error_);
    }

    FileDraft& draft_;
    Problem& problem_;
    std::uint64_t position_ = 0;
    std::uint64_t size_ = 0;
    LibraryError error_;
};

struct Discard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
};
using Library = std::unique_ptr<zip_t, Discard>;

/// Opens an archive over one of the sides above.
template <class Side>
Library openArchive(Side& side, int flags, int& code) {
    LibraryError error;
    zip_source_t* const source = zip_source_function_create(&Side::call, &side, error.get());
    zip_t* const archive =
        source == nullptr ? nullptr : zip_open_from_source(source, flags, error.get());
    if (archive == nullptr && source != nullptr) {
        zip_source_free(source);
    }
    code = zip_error_code_zip(error.get());
    return Library(archive);
}

ZipFault faultOf(int code, const Problem& problem) {
    using enum ZipFault::Kind;
    if (problem.file) {
        return {file, problem.file};
    }
    if (problem.wasStopped) {
        return {stopped, {}};
    }
    switch (code) {
    case ZIP_ER_NOZIP:
    case ZIP_ER_MULTIDISK:
        return {noArchive, {}};
    case ZIP_ER_MEMORY:
    case ZIP_ER_INVAL:
    case ZIP_ER_INTERNAL:
        return {internal, {}};
    default:
        return {damaged, {}};
    }
}

} // namespace

// Writing.

struct ZipWriter::Parts {
    Parts(FileSystem& fileSystem, FileDraft& draft) : files(fileSystem), target(draft, problem) {
        archive = openArchive(target, ZIP_CREATE | ZIP_TRUNCATE, openCode);
    }

    ZipFault fault() const {
        return faultOf(archive ? zip_error_code_zip(zip_get_error(archive.get())) : openCode,
                       problem);
    }
    ZipResult<void> add(const std::string& name, zip_source_t* source, Packing packing);

    FileSystem& files;
    Problem problem;
    WritingSide target;
    std::vector<std::unique_ptr<ReadingSide>> sources;
    std::uint64_t bytesRead = 0;
    std::function<bool(std::uint64_t)> goesOn;
    int openCode = 0;
    Library archive; ///< goes first: it calls the others
};

ZipWriter::ZipWriter(FileSystem& files, FileDraft& draft)
    : parts_(std::make_unique<Parts>(files, draft)) {}
ZipWriter::~ZipWriter() = default;

ZipResult<void> ZipWriter::Parts::add(const std::string& name, zip_source_t* source,
                                      Packing packing) {
    if (source == nullptr) {
        return tl::unexpected(fault());
    }
    const zip_int64_t index = zip_file_add(archive.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return tl::unexpected(fault());
    }
    const auto entry = static_cast<zip_uint64_t>(index);
    constexpr zip_uint32_t onlyUser = zip_uint32_t{S_IFREG | S_IRUSR | S_IWUSR} << 16U;
    const int method = packing == Packing::stored ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
    if (zip_set_file_compression(archive.get(), entry, method, 0) != 0
        || zip_file_set_external_attributes(archive.get(), entry, 0, ZIP_OPSYS_UNIX, onlyUser)
               != 0) {
        return tl::unexpected(fault());
    }
    return {};
}

ZipResult<void> ZipWriter::add(const std::string& name, std::string_view bytes, Packing packing) {
    Parts& parts = *parts_;
    if (!parts.archive) {
        return tl::unexpected(parts.fault());
    }
    return parts.add(name, zip_source_buffer(parts.archive.get(), bytes.data(), bytes.size(), 0),
                     packing);
}

ZipResult<void> ZipWriter::add(const std::string& name, const fs::path& file, Packing packing) {
    Parts& parts = *parts_;
    if (!parts.archive) {
        return tl::unexpected(parts.fault());
    }
    ReadingSide& side = *parts.sources.emplace_back(std::make_unique<ReadingSide>(
        parts.files, file, parts.problem, [&parts](std::size_t count) {
            parts.bytesRead += count;
            return !parts.goesOn || parts.goesOn(parts.bytesRead);
        }));
    return parts.add(name, zip_source_function(parts.archive.get(), &ReadingSide::call, &side),
                     packing);
}

ZipResult<void> ZipWriter::write(std::function<bool(std::uint64_t)> goesOn) {
    Parts& parts = *parts_;
    parts.goesOn = std::move(goesOn);
    if (!parts.archive || zip_close(parts.archive.get()) != 0) {
        return tl::unexpected(parts.fault());
    }
    (void)parts.archive.release(); // closing has freed it
    return {};
}

// Reading.

struct ZipReader::Parts {
    Parts(FileSystem& files, const fs::path& file)
        : source(files, file, problem, [this](std::size_t count) {
              budget -= std::min<std::uint64_t>(budget, count);
              return budget > 0;
          }) {}

    Problem problem;
    std::uint64_t budget = mostTableBytes; ///< bytes that may still be read
    ReadingSide source;
    Library archive; ///< goes first: it calls the others
};

ZipReader::ZipReader(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}
ZipReader::~ZipReader() = default;
ZipReader::ZipReader(ZipReader&& other) noexcept = default;
ZipReader& ZipReader::operator=(ZipReader&& other) noexcept = default;

ZipResult<ZipReader> ZipReader::open(FileSystem& files, const fs::path& file) {
    auto parts = std::make_unique<Parts>(files, file);
    int code = 0;
    parts->archive = openArchive(parts->source, ZIP_RDONLY, code);
    if (!parts->archive) {
        parts->problem.wasStopped = false; // nobody asked for it: the table is too large
        ZipFault fault = faultOf(code, parts->problem);
        if (fault.kind == ZipFault::Kind::damaged) {
            fault.kind = ZipFault::Kind::noArchive;
        }
        return tl::unexpected(std::move(fault));
    }
    parts->budget = std::numeric_limits<std::uint64_t>::max();
    return ZipReader(std::move(parts));
}

std::uint64_t ZipReader::count() const {
    return static_cast<std::uint64_t>(
        std::max<zip_int64_t>(zip_get_num_entries(parts_->archive.get(), 0), 0));
}

ZipEntry ZipReader::entry(std::uint64_t index) const {
    ZipEntry entry{.index = index};
    zip_t* const archive = parts_->archive.get();
    zip_stat_t status{};
    if (zip_stat_index(archive, index, 0, &status) != 0) {
        return entry;
    }
    entry.name = status.name != nullptr ? status.name : "";
    entry.size = status.size;
    entry.isEncrypted = status.encryption_method != ZIP_EM_NONE;
    entry.isReadable =
        (status.valid & ZIP_STAT_SIZE) != 0
        && (status.comp_method == ZIP_CM_STORE || status.comp_method == ZIP_CM_DEFLATE);
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) == 0) {
        entry.isLink = S_ISLNK(attributes >> 16U);
    }
    return entry;
}

ZipResult<bool> ZipReader::read(const ZipEntry& entry,
                                const std::function<bool(std::string_view)>& use) {
    struct Close {
        void operator()(zip_file_t* open) const noexcept { zip_fclose(open); }
    };
    const std::unique_ptr<zip_file_t, Close> open(
        zip_fopen_index(parts_->archive.get(), entry.index, 0));
    if (!open) {
        const int code = zip_error_code_zip(zip_get_error(parts_->archive.get()));
        return tl::unexpected(faultOf(code, parts_->problem));
    }
    std::array<char, pieceSize> buffer{};
    for (std::uint64_t done = 0;;) {
        const zip_int64_t count = zip_fread(open.get(), buffer.data(), buffer.size());
        if (count < 0) {
            const int code = zip_error_code_zip(zip_file_get_error(open.get()));
            return tl::unexpected(faultOf(code, parts_->problem));
        }
        if (count == 0) {
            return done == entry.size ? ZipResult<bool>(true)
                                      : tl::unexpected(ZipFault{ZipFault::Kind::damaged, {}});
        }
        done += static_cast<std::uint64_t>(count);
        if (done > entry.size) {
            return tl::unexpected(ZipFault{ZipFault::Kind::damaged, {}});
        }
        if (!use({buffer.data(), static_cast<std::size_t>(count)})) {
            return false;
        }
    }
}

} // namespace fiscarel
