#include "Fiscarel_SG/store/Backups.h"

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::string_view dailyPrefix = "daten-";
constexpr std::string_view suffix = ".json";

/// Whether a text looks like `pattern`, in which "0" stands for any digit.
bool looksLike(std::string_view text, std::string_view pattern) {
    return text.size() == pattern.size() && std::ranges::equal(text, pattern, [](char c, char p) {
               return p == '0' ? c >= '0' && c <= '9' : c == p;
           });
}

} // namespace

std::optional<BackupName> BackupName::parse(std::string_view fileName) {
    constexpr std::string_view day = "0000-00-00";
    constexpr std::string_view second = "-0000-00-00-000000";
    if (!fileName.ends_with(suffix)) {
        return std::nullopt;
    }
    fileName.remove_suffix(suffix.size());
    if (fileName.starts_with(dailyPrefix) && looksLike(fileName.substr(dailyPrefix.size()), day)) {
        return BackupName{{}, std::string(fileName.substr(dailyPrefix.size())), {}};
    }
    if (fileName.size() <= second.size()
        || !looksLike(fileName.substr(fileName.size() - second.size()), second)) {
        return std::nullopt;
    }
    const std::string_view stamp = fileName.substr(fileName.size() - second.size() + 1);
    return BackupName{std::string(fileName.substr(0, fileName.size() - second.size())),
                      std::string(stamp.substr(0, day.size())),
                      std::string(stamp.substr(day.size() + 1))};
}

BackupName BackupName::daily(const LocalTime& time) { return {{}, time.dayStamp(), {}}; }

BackupName BackupName::labelled(std::string_view label, const LocalTime& time) {
    return {std::string(label), time.dayStamp(), time.secondStamp().substr(11)};
}

std::string BackupName::fileName() const {
    return isDaily() ? std::string(dailyPrefix) + day + std::string(suffix)
                     : label + "-" + day + "-" + time + std::string(suffix);
}

std::vector<std::string> backupsToPrune(const std::vector<FileEntry>& entries) {
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const FileEntry& entry : entries) {
        names.push_back(entry.name);
    }
    std::ranges::sort(names, std::greater<>{});
    std::vector<std::string> pruned;
    std::set<std::string> labels;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto parsed = BackupName::parse(names[i]);
        const bool isNewest = parsed && labels.insert(parsed->label).second;
        if (i >= backupsKept && !isNewest) {
            pruned.push_back(names[i]);
        }
    }
    return pruned;
}

std::string_view BackupFile::label() const {
    using Row = std::pair<std::string_view, std::string_view>;
    static constexpr std::array rows{
        Row{"", "Stand des Tages"},
        Row{backup::beforeCloud, "vor der Übernahme aus der Cloud"},
        Row{backup::beforeReset, "vor dem Zurücksetzen eines Jahres"},
        Row{backup::beforeImport, "vor einem Import"},
        Row{backup::beforeRestore, "vor einer Wiederherstellung"},
        Row{backup::beforeNewBeginning, "vor einem Neubeginn"},
        Row{backup::unreadable, "unlesbare Datei"},
    };
    const auto found = std::ranges::find(rows, std::string_view(name.label), &Row::first);
    return found != rows.end() ? found->second : "Sicherung";
}

std::vector<BackupFile> backupsAmong(const std::vector<FileEntry>& entries) {
    std::vector<BackupFile> backups;
    for (const FileEntry& entry : entries) {
        if (auto name = BackupName::parse(entry.name)) {
            backups.push_back({std::move(*name), entry.size, entry.modified});
        }
    }
    // By the day and time of the names, which survive copying; a daily backup holds the end of its
    // day.
    std::ranges::stable_sort(backups, std::greater<>{}, [](const BackupFile& file) {
        return file.name.day + (file.name.isDaily() ? "~" : file.name.time);
    });
    return backups;
}

} // namespace fiscarel
