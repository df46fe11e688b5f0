#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Why a backup with a label was written; the label begins its name.
namespace backup {
inline constexpr std::string_view beforeCloud = "vor-cloud";
inline constexpr std::string_view beforeReset = "vor-zuruecksetzen";
inline constexpr std::string_view beforeImport = "vor-import";
inline constexpr std::string_view beforeRestore = "vor-wiederherstellung";
inline constexpr std::string_view beforeNewBeginning = "vor-neubeginn";
inline constexpr std::string_view unreadable = "unlesbar";
} // namespace backup

/// What the name of a backup tells.
struct BackupName {
    std::string label; ///< empty: a daily backup
    std::string day;   ///< "2026-03-01"
    std::string time;  ///< "140509"; empty: a daily backup

    /// Absent for files that are no backups of ours.
    static std::optional<BackupName> parse(std::string_view fileName);
    static BackupName daily(const LocalTime& time);
    static BackupName labelled(std::string_view label, const LocalTime& time);

    bool isDaily() const noexcept { return label.empty(); }
    std::string fileName() const;

    bool operator==(const BackupName&) const = default;
};

/// How many files the backups folder keeps, labelled ones included.
inline constexpr std::size_t backupsKept = 30;

/// The names to delete, of all a folder's files: all but the first 30 by descending name, and never
/// the newest daily backup nor the newest of a label. Labelled backups sort before the daily ones,
/// so that the daily ones are deleted first.
std::vector<std::string> backupsToPrune(const std::vector<FileEntry>& entries);

/// A backup as the user chooses from.
struct BackupFile {
    BackupName name;
    std::uint64_t size = 0; ///< bytes
    Moment written;

    std::string fileName() const { return name.fileName(); }
    /// "Stand des Tages", "vor dem Zurücksetzen eines Jahres" …
    std::string_view label() const;
};

/// The backups among a folder's files, the newest first.
std::vector<BackupFile> backupsAmong(const std::vector<FileEntry>& entries);

} // namespace fiscarel
