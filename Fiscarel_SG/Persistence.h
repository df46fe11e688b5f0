#pragma once

#include "Fiscarel_SG/store/Archive.h"
#include "Fiscarel_SG/store/Backups.h"
#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/DocumentFiles.h"
#include "Fiscarel_SG/store/FileSystem.h"
#include "Fiscarel_SG/store/PersistedState.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace fiscarel {

/// There is no state file yet.
struct NoState {};
/// The state file could not be used; it stays where it is, and a copy lies among the backups.
struct UnusableState {
    std::string reason;   ///< one German sentence
    bool isNewer = false; ///< of a newer version: not to be written over by edits
};
using LoadedState = std::variant<NoState, PersistedState, UnusableState>;

/// What a backup holds.
struct BackupContent {
    std::vector<int> years; ///< ascending
    std::size_t documents = 0;
};

/// Keeps the state of the program in its data folder: one state file, the copies of imported
/// documents and the backups. Who owns the folder's lock may call, from one thread at a time.
class Persistence {
  public:
    /// Makes the folders; what cannot be made shows when it is used. `files` and `clock` must
    /// outlive it.
    Persistence(FileSystem& files, const Clock& clock, std::filesystem::path root = defaultRoot());

    /// "$XDG_DATA_HOME/Brennick", by default "~/.local/share/Brennick".
    static std::filesystem::path defaultRoot();

    const std::filesystem::path& root() const noexcept { return root_; }
    std::filesystem::path stateFile() const { return root_ / "daten.json"; }
    std::filesystem::path documentsFolder() const { return root_ / "Belege"; }
    std::filesystem::path backupsFolder() const { return root_ / "Sicherungen"; }

    /// Reads the state file. One that cannot be read is copied among the backups, once per content.
    LoadedState load();
    /// Writes the state file. One that was unusable is not written over before `beginAnew` has
    /// worked.
    FileResult<void> save(std::string_view encoded);
    /// Writes today's backup with the bytes of the state file and prunes the backups. What goes
    /// wrong here does not matter to the state and is passed over.
    void backupIfNeeded(std::string_view encoded);

    /// Makes sure that a copy of an unusable state file lies among the backups, and of today's
    /// backup under the label "vor-neubeginn". Copies that are there already are not made again;
    /// once it has worked it does nothing until the next `load`.
    FileResult<void> beginAnew();
    /// Writes a labelled backup with the bytes of a state file.
    FileResult<void> backup(std::string_view encoded, std::string_view label);
    /// The backups, the newest first; empty when the folder does not read.
    std::vector<BackupFile> backups();
    /// What a backup holds; a German sentence when it does not decode.
    tl::expected<BackupContent, std::string> inspect(const BackupFile& file);
    /// The state in a backup, or in a file the user exported; a German sentence when it does not
    /// decode.
    tl::expected<PersistedState, std::string> read(const std::filesystem::path& file);
    tl::expected<PersistedState, std::string> read(const BackupFile& file);

    /// Copies a file of the user among the documents; the name it got there.
    FileResult<std::string> importFile(const std::filesystem::path& file);
    /// Where a document's file lies; absent when its name is no plain file name, which only happens
    /// in states that others made.
    std::optional<std::filesystem::path> fileOf(const StoredDocument& document) const;
    /// Removes a document's file; one that is gone already is no matter.
    void remove(const StoredDocument& document);

    /// Writes the whole state where the user wants it.
    FileResult<void> exportAll(const std::filesystem::path& file, std::string_view encoded);
    /// Writes state and documents into one archive where the user wants it.
    ArchiveResult<ArchiveReport> exportArchive(const std::filesystem::path& file,
                                               const PersistedState& state,
                                               const ArchiveProgress& progress = {});
    /// The state in an archive, its documents copied among ours; see `readArchive`.
    ArchiveResult<ArchiveContent> importArchive(const std::filesystem::path& file,
                                                const BeforePlacing& beforePlacing = {},
                                                const ArchiveProgress& progress = {});

  private:
    /// What the next save replaces.
    enum class Replaced { usable, unusable, keptAside };

    bool isSecondName(const BackupFile& backup, const FileEntry& file);
    FileResult<void> keep(const std::filesystem::path& file, std::string_view label);
    FileResult<std::filesystem::path> freeBackupName(std::string_view label);

    FileSystem& files_;
    const Clock& clock_;
    const std::filesystem::path root_;
    Replaced replaced_ = Replaced::usable;
};

/// The name the file dialog proposes for an export.
inline constexpr std::string_view exportFileName = "Fiscarel-SG-Sicherung.json";

} // namespace fiscarel
