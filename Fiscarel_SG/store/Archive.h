#pragma once

#include "Fiscarel_SG/store/FileSystem.h"
#include "Fiscarel_SG/store/PersistedState.h"

#include <tl/expected.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// The name the file dialog proposes for an archive.
inline constexpr std::string_view archiveFileName = "Fiscarel-SG-Archiv.zip";

/// More documents than this, or more than this of bytes, are neither written nor read.
inline constexpr std::size_t maxArchiveDocuments = 20'000;
inline constexpr std::uint64_t maxArchiveSize = std::uint64_t{8} << 30U;

/// Told how many bytes of how many are done; false stops the work, which then leaves no trace.
using ArchiveProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// What became of an archive.
struct ArchiveReport {
    std::size_t documents = 0;    ///< files written into the archive, or added from it
    std::size_t alreadyThere = 0; ///< files that lay among the documents already
    std::size_t missing = 0;      ///< documents whose file is not to be had
    std::size_t passedOver = 0;   ///< entries of an archive that mean nothing to the program

    bool operator==(const ArchiveReport&) const = default;
};

/// Why an archive was not written or read.
struct ArchiveFault {
    bool isStopped = false; ///< as `ArchiveProgress` asked for
    std::string message;    ///< one German sentence
};

template <class T>
using ArchiveResult = tl::expected<T, ArchiveFault>;

/// A file that goes into an archive.
struct ArchiveDocument {
    std::string fileName; ///< as its record has it
    std::filesystem::path file;
};

/// Writes everything of a household into one ZIP file: the state as "daten.json" and the documents
/// as "Belege/<file name>". Documents without a file are counted and left out. The file appears
/// whole or not at all, over an older one of that name; only the user may read it. Needs little
/// memory however much there is.
ArchiveResult<ArchiveReport> writeArchive(FileSystem& files, const std::filesystem::path& target,
                                          std::string_view encoded,
                                          const std::vector<ArchiveDocument>& documents,
                                          const ArchiveProgress& progress = {});

struct ArchiveContent {
    PersistedState state; ///< with the names the documents' files have here
    ArchiveReport report;
};

/// Called when an archive proved to be good, before anything of it is put in place; a German
/// sentence keeps it from being read.
using BeforePlacing = std::function<tl::expected<void, std::string>()>;

/// Reads an archive, trusting nothing in it, and copies the files its documents name into
/// `documentsFolder`: all of them or none. A file that is there with the same content is kept; one
/// with other content stays as well, and the archive's gets a fresh name.
ArchiveResult<ArchiveContent> readArchive(FileSystem& files, const std::filesystem::path& source,
                                          const std::filesystem::path& documentsFolder,
                                          const BeforePlacing& beforePlacing = {},
                                          const ArchiveProgress& progress = {});

} // namespace fiscarel
