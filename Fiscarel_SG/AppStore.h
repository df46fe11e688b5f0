#pragma once

#ifndef Q_MOC_RUN // its parser stumbles over the headers of C++20
#include "Fiscarel_SG/Persistence.h"
#include "Fiscarel_SG/store/History.h"
#include "Fiscarel_SG/store/LaunchArguments.h"
#include "Fiscarel_SG/store/Settings.h"
#include "Fiscarel_SG/store/Timer.h"
#include "Fiscarel_SG/store/UnreadTexts.h"
#include "Fiscarel_SG/store/WorkQueue.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "TaxCore/review/Review.h"
#endif

#include <QObject>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel {

/// All state of the program, on the main thread: the cases by year, the documents, the selected
/// year and what was computed for it. Pages read from here and change through here and nowhere
/// else; every change of a case is followed by a calculation and a save after a short quiet.
class AppStore final : public QObject {
    Q_OBJECT

  public:
    /// What the store works with; all must outlive it.
    struct Services {
        Persistence* persistence = nullptr; ///< null in demo mode: nothing is read or written
        WorkQueue& writer;
        const Clock& clock;
        Timers& timers;
        Settings& settings;
    };

    static constexpr std::chrono::milliseconds quietBeforeRecalculation{120};
    static constexpr std::chrono::milliseconds quietBeforeSaving{600};

    /// Reads the state, or makes the demo household, and computes the selected year.
    AppStore(const Services& services, LaunchArguments launch, QObject* parent = nullptr);
    /// Saves what is still to be saved and waits for it.
    ~AppStore() override;
    AppStore(const AppStore&) = delete;
    AppStore& operator=(const AppStore&) = delete;
    AppStore(AppStore&&) = delete;
    AppStore& operator=(AppStore&&) = delete;

    // What there is.

    int year() const noexcept { return year_; }
    const std::map<int, taxcore::TaxCase>& cases() const noexcept { return state_.cases; }
    /// The selected year's case.
    const taxcore::TaxCase& current() const;
    const std::vector<StoredDocument>& documents() const noexcept { return state_.documents; }
    std::vector<StoredDocument> documentsForYear() const;
    /// The documents whose values stand in fields of the current case, by the fields' paths.
    const std::map<std::string, Uuid>& fieldSources() const;
    const std::map<int, std::set<std::string>>& transferChecked() const noexcept {
        return state_.transferChecked;
    }
    /// The state as it is saved and uploaded.
    const PersistedState& snapshot() const noexcept { return state_; }

    /// Of the last calculation of the current case; null when its rules do not load.
    const taxcore::TaxResult* result() const noexcept { return result_ ? &*result_ : nullptr; }
    /// All that is to be said of that result; empty without one.
    const taxcore::Review& review() const noexcept { return review_; }
    /// What the user is to look at: first the fields with text that nobody can read, then the
    /// notices of the review.
    std::vector<taxcore::Notice> notices() const;
    const std::vector<taxcore::Notice>& tips() const noexcept { return review_.tips; }
    const Decimal& marginalRate() const noexcept { return review_.marginalRate.total; }
    /// The calculator of the current case's region and year; null, with `loadError` set, when the
    /// rules do not load.
    const taxcore::CaseCalculator* calculator();

    std::optional<Moment> lastSaved() const noexcept { return lastSaved_; }
    /// Why the last save did not work, one German sentence; absent while all is well.
    const std::optional<std::string>& saveProblem() const noexcept { return saveProblem_; }
    /// Whether something is not on the disk yet.
    bool hasUnsavedChanges() const;
    /// Why data or rules could not be loaded or an import failed, German.
    const std::optional<std::string>& loadError() const noexcept { return loadError_; }
    void dismissLoadError();
    /// Whether the state file was unusable and nothing has been decided yet: the user is to be
    /// offered a backup.
    bool awaitsRecovery() const noexcept { return gate_ != Gate::open; }
    /// Whether that is because a newer program wrote it: only the user may replace it.
    bool isOfNewerProgram() const noexcept { return gate_ == Gate::closed; }

    bool isDemo() const noexcept { return isDemo_; }
    /// Whether the user has never chosen a region.
    bool needsRegionChoice() const noexcept { return needsRegionChoice_; }
    taxcore::TaxRegion defaultRegion() const;

    // Changes.

    /// Selects a year, remembers it and makes sure of its case.
    void setYear(int year);
    /// Makes a case for a year that has none: carried over from the year before where there is one.
    void ensureCase(int year);
    /// Writes the current case. `name` is the German name of what was edited, for undoing. A case
    /// equal to the current one changes nothing.
    void setCurrent(taxcore::TaxCase taxCase, std::string name = "Angabe");
    /// The same for a change made in place.
    void edit(std::string name, const std::function<void(taxcore::TaxCase&)>& change);
    /// A field of a year holds text that cannot be read, so that the case keeps its former value;
    /// absent: no longer. The text is kept for the session.
    void setUnread(int year, const std::string& path, std::optional<UnreadText> text);
    /// The same for fields by their paths, told as one.
    void setUnread(int year, std::map<std::string, std::optional<UnreadText>> texts);
    /// Of a field of the selected year; null when what stands there can be read.
    const std::string* unreadText(const std::string& path) const {
        return unread_.at(current(), path);
    }
    /// Tells which fields of the selected year there are to go to; texts in others, as in those of
    /// another region, wait unsaid.
    void showUnread(const std::function<bool(const std::string& path)>& isThere);
    /// Years and fields with such text that there are to go to.
    std::vector<UnreadTexts::Place> unreadPlaces() const { return unread_.places(state_.cases); }
    /// The next keystroke in the same field begins an edit of its own.
    void endMerging() noexcept { history_.endMerging(); }
    std::optional<std::string> undoName() const { return history_.undoName(); }
    std::optional<std::string> redoName() const { return history_.redoName(); }
    /// Takes the last edit back and selects its year; its name, absent when there was none.
    std::optional<std::string> undo();
    std::optional<std::string> redo();

    /// Moves the current case to a region; a municipality the region does not know is replaced.
    void setRegion(taxcore::TaxRegion region);
    /// The user's first choice: also the region of new cases from now on.
    void chooseInitialRegion(taxcore::TaxRegion region);
    /// Replaces the current case by an empty one once a labelled backup is written; when that fails
    /// the case stays and `loadError` says why.
    void resetYear();
    /// Takes a year's case away, as an edit that can be undone. The selected year then has a new
    /// one.
    void removeYear(int year);
    /// A year's case made from an earlier one.
    static taxcore::TaxCase carryOver(const taxcore::TaxCase& from, int to);
    /// Ticks a row of a year's transfer list.
    void setTransferChecked(int year, const std::string& row, bool checked);

    // Documents.

    /// Copies files among the documents of a year, else of the selected one. Those that arrived are
    /// handed to `added`; what went wrong with others stands in `loadError`.
    void importDocuments(const std::vector<std::filesystem::path>& files,
                         std::function<void(std::vector<Uuid>)> added = {},
                         std::optional<int> year = std::nullopt);
    void updateDocument(const Uuid& id, const std::function<void(StoredDocument&)>& change);
    /// Takes a document's values over into the current case, in one step that can be undone:
    /// `taxCase` is the case with them, `applied` what the document then stands behind. Without
    /// effect for a document that is gone.
    void applyDocument(const Uuid& id, taxcore::TaxCase taxCase, std::vector<AppliedValue> applied);
    /// Can be undone until the program ends; the file goes then.
    void deleteDocument(const Uuid& id);
    /// Tells everybody that files of documents were missing and are there now.
    void documentFilesArrived() { Q_EMIT documentsChanged(); }
    /// Where a document's file lies; absent in demo mode and when it is missing.
    std::optional<std::filesystem::path> fileOf(const StoredDocument& document) const;

    // Calculating and saving.

    /// Computes result, review and tips now.
    void recalculate();
    void scheduleSave();
    /// Hands the state to the writer at once. Says nothing; see `lastSaved` and `saveProblem`.
    void saveNow();
    /// Saves what waits and waits for it; whether everything is on the disk.
    bool flush();
    /// Replaces the state by one received from the cloud; does not call `onLocalSave`. The files of
    /// documents that are gone in it go at the end, as with those the user deletes.
    void applyRemote(PersistedState state);

    // Backups and exports; `done` gets nothing or a German sentence.

    using Done = std::function<void(std::optional<std::string>)>;
    using Inspected = tl::expected<BackupContent, std::string>;
    void listBackups(std::function<void(std::vector<BackupFile>)> done);
    void inspectBackup(const BackupFile& file, std::function<void(Inspected)> done);
    /// The newest backup that decodes; absent when there is none.
    void findNewestGoodBackup(std::function<void(std::optional<BackupFile>)> done);
    /// Writes a labelled backup of the state; `done` learns how it went.
    void writeBackup(std::string_view label, std::function<void(const FileResult<void>&)> done);
    /// Replaces the state by that of a backup or an exported file, after a labelled backup.
    void restoreBackup(const BackupFile& file, Done done);
    void importExported(const std::filesystem::path& file, Done done);
    void exportAll(const std::filesystem::path& file, Done done);

    using Archived = ArchiveResult<ArchiveReport>;
    using ArchiveDone = std::function<void(Archived)>;
    /// Writes state and documents into one file. `progress` is called on the main thread, now and
    /// then; false stops the work soon after.
    void exportArchive(const std::filesystem::path& file, ArchiveProgress progress,
                       ArchiveDone done);
    /// Replaces the state by that of an archive, after a labelled backup, and adds its documents.
    void importArchive(const std::filesystem::path& file, ArchiveProgress progress,
                       ArchiveDone done);

    /// Called on the main thread after every save that did not come from the cloud.
    std::function<void()> onLocalSave;
    /// Called on the main thread when the user deletes a document.
    std::function<void(const StoredDocument&)> onDocumentDeleted;

  Q_SIGNALS:
    void yearChanged();
    /// The fields of the current case that changed, as paths; none: the whole case.
    void currentChanged(const std::vector<std::string>& paths);
    void resultChanged();
    void documentsChanged();
    void unreadChanged();
    void transferChanged(int year);
    void historyChanged();
    /// An edit was undone or redone: the fields that changed in the year it belongs to, which is
    /// now the selected one. None when it concerned the list of documents.
    void stepTaken(const std::vector<std::string>& paths);
    void saveStateChanged();
    void loadErrorChanged();
    void regionChoiceChanged();

  private:
    /// Whether the state file may be written.
    enum class Gate {
        open,
        untilEdit, ///< it did not read: not before the user edits or chooses
        closed,    ///< a newer program wrote it: not before the user chooses another state
    };

    static constexpr std::string_view notSaved = "Die Änderungen sind nicht gespeichert: ";

    void load();
    void save(bool fromCloud);
    void adopt(PersistedState state);
    void announceAdopted(bool fromCloud);
    /// After a change by the user.
    void edited();
    void openGate();
    void changeCase(taxcore::TaxCase taxCase, Edit edit);
    void keepSelectedCase();
    void announce(const Edit& edit);
    std::optional<std::string> step(std::optional<Edit> (History::*take)(PersistedState&));
    void scheduleRecalculate();
    void saved(const FileResult<void>& outcome, bool fromCloud);
    void setLoadError(std::string message);
    void replaceBy(std::function<tl::expected<PersistedState, std::string>()> read,
                   std::string_view label, Done done);
    std::function<FileResult<void>()> backupWork(std::string_view label) const;
    BeforePlacing keepOwn(std::string_view label) const;
    void replace(PersistedState state);
    taxcore::TaxCase freshCase(int year) const;
    void removeDeletedFiles();

    const Services services_;
    const bool isDemo_;
    PersistedState state_;
    int year_ = 0;
    mutable taxcore::TaxCase missingCase_; ///< what `current` shows when there is no case
    std::map<std::pair<taxcore::TaxRegion, int>, taxcore::CaseCalculator> calculators_;
    mutable std::optional<std::map<std::string, Uuid>> fieldSources_; ///< absent: to be made
    std::optional<taxcore::TaxResult> result_;
    taxcore::Review review_;
    std::optional<Moment> lastSaved_;
    std::optional<std::string> saveProblem_;
    std::optional<std::string> loadError_;
    bool needsRegionChoice_ = false;
    Gate gate_ = Gate::open;
    std::string gateReason_; ///< while the gate is closed
    int savesUnderWay_ = 0;
    History history_;
    UnreadTexts unread_;
    std::vector<StoredDocument> deleted_; ///< their files go at the end
    std::unique_ptr<Timer> calcTimer_;
    std::unique_ptr<Timer> saveTimer_;
};

} // namespace fiscarel
