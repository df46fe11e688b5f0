#include "Fiscarel_SG/Persistence.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace fiscarel {

namespace {

namespace fs = std::filesystem;

/// An absolute path in an environment variable; the directory standard says to pass over others.
std::optional<fs::path> folderFrom(const char* variable) {
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): at the start
    const fs::path path = value != nullptr ? value : "";
    return path.is_absolute() ? std::optional(path) : std::nullopt;
}

fs::path homeFolder() {
    if (auto home = folderFrom("HOME")) {
        return *home;
    }
    const passwd* const user = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe): at the start
    return user != nullptr ? fs::path(user->pw_dir) : fs::current_path();
}

} // namespace

fs::path Persistence::defaultRoot() {
    const auto data = folderFrom("XDG_DATA_HOME");
    return (data ? *data : homeFolder() / ".local" / "share") / "Brennick";
}

Persistence::Persistence(FileSystem& files, const Clock& clock, fs::path root)
    : files_(files), clock_(clock), root_(std::move(root)) {
    for (const fs::path& folder : {root_, documentsFolder(), backupsFolder()}) {
        (void)files_.makeFolder(folder);
        files_.removeLeftovers(folder);
    }
}

LoadedState Persistence::load() {
    replaced_ = Replaced::usable;
    const auto bytes = files_.read(stateFile(), taxcore::maxJsonSize);
    if (!bytes && bytes.error().code == ENOENT) {
        return NoState{};
    }
    auto state = bytes ? decodeState(*bytes)
                       : tl::unexpected(StateFault{.message = bytes.error().description()});
    if (!state) {
        replaced_ = Replaced::unusable;
        // What fails now is tried again before the file is written over.
        (void)keep(stateFile(), backup::unreadable);
        return UnusableState{.reason = state.error().message, .isNewer = state.error().isNewer};
    }
    return std::move(*state);
}

/// Whether a backup is the file itself under a second name, which only a file that does not read
/// gets; of such files no more can be told.
bool Persistence::isSecondName(const BackupFile& backup, const FileEntry& file) {
    return backup.size == file.size && backup.written == file.modified
           && !files_.read(backupsFolder() / backup.fileName(), taxcore::maxJsonSize);
}

/// Copies a file among the backups under a label, unless one of that label has its content. A file
/// that is not there needs no copy.
FileResult<void> Persistence::keep(const fs::path& file, std::string_view label) {
    const auto bytes = files_.read(file, taxcore::maxJsonSize);
    const auto entry = files_.stat(file);
    if (!bytes && bytes.error().isMissing()) {
        return {};
    }
    for (const BackupFile& other : backups()) {
        if (other.name.label == label
            && (bytes ? other.size == bytes->size()
                            && files_.read(backupsFolder() / other.fileName(), taxcore::maxJsonSize)
                                   == *bytes
                      : entry && isSecondName(other, *entry))) {
            return {};
        }
    }
    const auto name = freeBackupName(label);
    if (!name) {
        return tl::unexpected(name.error());
    }
    const auto kept = bytes ? files_.write(*name, *bytes) : tl::unexpected(bytes.error());
    // What does not read, or finds no room for a copy, can still get a second name: the next save
    // puts a new file in place and leaves the old one under that name.
    return kept || files_.link(file, *name) ? FileResult<void>{} : kept;
}

FileResult<void> Persistence::beginAnew() {
    if (replaced_ == Replaced::keptAside) {
        return {};
    }
    if (auto kept = keep(stateFile(), backup::unreadable); !kept) {
        return kept;
    }
    const fs::path today = backupsFolder() / BackupName::daily(clock_.local()).fileName();
    if (auto kept = keep(today, backup::beforeNewBeginning); !kept) {
        return kept;
    }
    replaced_ = Replaced::keptAside;
    return {};
}

FileResult<void> Persistence::save(std::string_view encoded) {
    if (replaced_ == Replaced::unusable) {
        if (auto ready = beginAnew(); !ready) {
            return ready;
        }
    }
    return files_.write(stateFile(), encoded);
}

void Persistence::backupIfNeeded(std::string_view encoded) {
    const fs::path today = backupsFolder() / BackupName::daily(clock_.local()).fileName();
    (void)files_.write(today, encoded);
    const auto entries = files_.list(backupsFolder());
    for (const std::string& name : backupsToPrune(entries.value_or(std::vector<FileEntry>{}))) {
        (void)files_.remove(backupsFolder() / name);
    }
}

/// The name for a backup taken now; a second one within a second gets the next second's.
FileResult<fs::path> Persistence::freeBackupName(std::string_view label) {
    for (Moment moment = clock_.now();; ++moment.seconds) {
        fs::path name =
            backupsFolder() / BackupName::labelled(label, clock_.localTime(moment)).fileName();
        if (const auto taken = files_.stat(name); !taken) {
            // A name that cannot be looked at may well be taken.
            return taken.error().isMissing() ? FileResult<fs::path>(std::move(name))
                                             : tl::unexpected(taken.error());
        }
    }
}

FileResult<void> Persistence::backup(std::string_view encoded, std::string_view label) {
    const auto name = freeBackupName(label);
    return name ? files_.write(*name, encoded) : tl::unexpected(name.error());
}

std::vector<BackupFile> Persistence::backups() {
    return backupsAmong(files_.list(backupsFolder()).value_or(std::vector<FileEntry>{}));
}

tl::expected<PersistedState, std::string> Persistence::read(const fs::path& file) {
    const auto bytes = files_.read(file, taxcore::maxJsonSize);
    if (!bytes) {
        return tl::unexpected(bytes.error().description());
    }
    return decodeState(*bytes).map_error([](const StateFault& fault) { return fault.message; });
}

tl::expected<PersistedState, std::string> Persistence::read(const BackupFile& file) {
    return read(backupsFolder() / file.fileName());
}

tl::expected<BackupContent, std::string> Persistence::inspect(const BackupFile& file) {
    return read(file).map([](const PersistedState& state) {
        BackupContent content;
        for (const auto& [year, taxCase] : state.cases) {
            content.years.push_back(year);
        }
        content.documents = state.documents.size();
        return content;
    });
}

FileResult<std::string> Persistence::importFile(const fs::path& file) {
    std::string name = freshDocumentName(file.filename());
    return files_.copy(file, documentsFolder() / name, maxDocumentSize).map([&] {
        return std::move(name);
    });
}

std::optional<fs::path> Persistence::fileOf(const StoredDocument& document) const {
    return isPlainFileName(document.fileName) ? std::optional(documentsFolder() / document.fileName)
                                              : std::nullopt;
}

void Persistence::remove(const StoredDocument& document) {
    if (const auto file = fileOf(document)) {
        (void)files_.remove(*file);
    }
}

FileResult<void> Persistence::exportAll(const fs::path& file, std::string_view encoded) {
    return files_.write(file, encoded);
}

ArchiveResult<ArchiveReport> Persistence::exportArchive(const fs::path& file,
                                                        const PersistedState& state,
                                                        const ArchiveProgress& progress) {
    std::vector<ArchiveDocument> documents;
    for (const StoredDocument& document : state.documents) {
        documents.push_back({document.fileName, documentsFolder() / document.fileName});
    }
    return writeArchive(files_, file, encodeState(state), documents, progress);
}

ArchiveResult<ArchiveContent> Persistence::importArchive(const fs::path& file,
                                                         const BeforePlacing& beforePlacing,
                                                         const ArchiveProgress& progress) {
    return readArchive(files_, file, documentsFolder(), beforePlacing, progress);
}

} // namespace fiscarel
