// What the store does with files: saving, documents, backups and exports.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/store/DocumentLinks.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <memory>

namespace fiscarel {

using namespace taxcore;

namespace {

constexpr std::string_view demoStays = "Der Demohaushalt lässt sich nicht ersetzen.";
constexpr std::string_view demoHasNone = "Der Demohaushalt hat keine Sicherungen.";
constexpr std::string_view demoNotExported = "Der Demohaushalt lässt sich nicht exportieren.";

/// Progress of work on the queue, told on the main thread: the next figure only when the last one
/// was heard, and the answer to it when there is one.
ArchiveProgress onMainThread(WorkQueue& queue, ArchiveProgress progress) {
    if (!progress) {
        return {};
    }
    struct Exchange {
        std::atomic<bool> isOnTheWay = false;
        std::atomic<bool> goesOn = true;
    };
    return [&queue, progress = std::move(progress),
            exchange = std::make_shared<Exchange>()](std::uint64_t done, std::uint64_t total) {
        if (!exchange->isOnTheWay.exchange(true)) {
            queue.report([progress, exchange, done, total] {
                if (exchange->goesOn && !progress(done, total)) {
                    exchange->goesOn = false;
                }
                exchange->isOnTheWay = false;
            });
        }
        return exchange->goesOn.load();
    };
}

} // namespace

// Saving.

void AppStore::scheduleSave() {
    if (!isDemo_ && gate_ == Gate::open) {
        saveTimer_->start(quietBeforeSaving);
        Q_EMIT saveStateChanged();
    }
}

void AppStore::saveNow() { save(false); }

void AppStore::save(bool fromCloud) {
    saveTimer_->stop();
    if (isDemo_ || gate_ != Gate::open) {
        return;
    }
    ++savesUnderWay_;
    // The user's data is safe once the state file is; the backup follows behind it.
    auto* const persistence = services_.persistence;
    const auto encoded = std::make_shared<const std::string>(encodeState(state_));
    const auto written = std::make_shared<bool>(false);
    services_.writer.post<FileResult<void>>(
        [persistence, encoded, written] {
            auto outcome = persistence->save(*encoded);
            *written = outcome.has_value();
            return outcome;
        },
        [this, fromCloud](const FileResult<void>& outcome) { saved(outcome, fromCloud); });
    services_.writer.post(
        [persistence, encoded, written] {
            if (*written) {
                persistence->backupIfNeeded(*encoded);
            }
        },
        [] {});
    Q_EMIT saveStateChanged();
}

void AppStore::saved(const FileResult<void>& outcome, bool fromCloud) {
    --savesUnderWay_;
    if (outcome) {
        lastSaved_ = services_.clock.now();
        saveProblem_.reset();
    } else {
        saveProblem_ = std::string(notSaved) + outcome.error().description();
    }
    Q_EMIT saveStateChanged();
    if (outcome && !fromCloud && onLocalSave) {
        onLocalSave();
    }
}

bool AppStore::hasUnsavedChanges() const {
    return saveTimer_->isRunning() || savesUnderWay_ > 0 || saveProblem_;
}

bool AppStore::flush() {
    services_.writer.drain(); // what is under way may change something yet
    if (saveTimer_->isRunning() || saveProblem_) {
        saveNow();
    }
    services_.writer.drain();
    return !hasUnsavedChanges();
}

void AppStore::applyRemote(PersistedState state) {
    if (state.version > newestStateVersion) {
        setLoadError("Die Daten aus der Cloud haben die Version " + std::to_string(state.version)
                     + " und stammen von einer neueren Ausgabe des Programms.");
        return;
    }
    if (gate_ == Gate::untilEdit) {
        openGate();
    }
    for (const StoredDocument& document : state_.documents) {
        if (std::ranges::find(state.documents, document.id, &StoredDocument::id)
            == state.documents.end()) {
            deleted_.push_back(document);
        }
    }
    adopt(std::move(state));
    keepSelectedCase();
    announceAdopted(true);
}

/// Computes and saves a state that took the place of ours, and tells everybody.
void AppStore::announceAdopted(bool fromCloud) {
    history_.dropStale(state_);
    calcTimer_->stop();
    recalculate();
    save(fromCloud);
    Q_EMIT historyChanged();
    Q_EMIT documentsChanged();
    Q_EMIT transferChanged(year_);
    Q_EMIT currentChanged({});
}

// Documents.

std::vector<StoredDocument> AppStore::documentsForYear() const {
    std::vector<StoredDocument> ofYear;
    std::ranges::copy_if(state_.documents, std::back_inserter(ofYear),
                         [&](const StoredDocument& document) { return document.year == year_; });
    return ofYear;
}

std::optional<std::filesystem::path> AppStore::fileOf(const StoredDocument& document) const {
    const auto file = isDemo_ ? std::nullopt : services_.persistence->fileOf(document);
    std::error_code ignored;
    return file && std::filesystem::is_regular_file(*file, ignored) ? file : std::nullopt;
}

void AppStore::importDocuments(const std::vector<std::filesystem::path>& files,
                               std::function<void(std::vector<Uuid>)> added,
                               std::optional<int> year) {
    if (isDemo_) {
        setLoadError("Import fehlgeschlagen: Der Demohaushalt nimmt keine Belege auf.");
        return;
    }
    using Imported = std::vector<FileResult<std::string>>;
    services_.writer.post<Imported>(
        [persistence = services_.persistence, files] {
            Imported imported;
            for (const auto& file : files) {
                imported.push_back(persistence->importFile(file));
            }
            return imported;
        },
        [this, files, year = year.value_or(year_),
         added = std::move(added)](const Imported& imported) {
            std::vector<Uuid> ids;
            for (std::size_t i = 0; i < files.size(); ++i) {
                if (!imported[i]) {
                    setLoadError("Import fehlgeschlagen: " + imported[i].error().description());
                    continue;
                }
                StoredDocument& document = state_.documents.emplace_back();
                document.year = year;
                document.title = files[i].stem().string();
                document.fileName = *imported[i];
                document.importedAt = services_.clock.now();
                ids.push_back(document.id);
            }
            if (!ids.empty()) {
                Q_EMIT documentsChanged();
                scheduleRecalculate();
                edited();
            }
            if (added) {
                added(std::move(ids));
            }
        });
}

void AppStore::updateDocument(const Uuid& id, const std::function<void(StoredDocument&)>& change) {
    const auto found = std::ranges::find(state_.documents, id, &StoredDocument::id);
    if (found == state_.documents.end()) {
        return;
    }
    StoredDocument changed = *found;
    change(changed);
    if (changed.applied && changed.applied->empty()) {
        changed.applied.reset();
    }
    if (changed != *found) {
        *found = std::move(changed);
        Q_EMIT documentsChanged();
        scheduleRecalculate();
        edited();
    }
}

void AppStore::deleteDocument(const Uuid& id) {
    const auto found = std::ranges::find(state_.documents, id, &StoredDocument::id);
    if (found == state_.documents.end()) {
        return;
    }
    const StoredDocument document = *found;
    Edit edit{.name = "Beleg «" + document.title + "» löschen",
              .removed = Edit::Removal{document,
                                       static_cast<std::size_t>(found - state_.documents.begin())},
              .at = services_.clock.now()};
    state_.documents.erase(found);
    for (auto& [year, taxCase] : state_.cases) {
        TaxCase cleared = taxCase;
        if (clearDocumentLinks(cleared, id)) {
            edit.cases.push_back({year, std::make_shared<const TaxCase>(std::move(taxCase)),
                                  std::make_shared<const TaxCase>(cleared)});
            taxCase = std::move(cleared);
        }
    }
    announce(edit);
    history_.record(std::move(edit));
    deleted_.push_back(document);
    Q_EMIT historyChanged();
    scheduleRecalculate();
    edited();
    if (onDocumentDeleted) {
        onDocumentDeleted(document);
    }
}

/// The files of the documents that were deleted and not brought back.
void AppStore::removeDeletedFiles() {
    for (const StoredDocument& document : deleted_) {
        const bool isBack = std::ranges::any_of(state_.documents, [&](const StoredDocument& kept) {
            return kept.fileName == document.fileName;
        });
        if (!isBack && !isDemo_ && !saveProblem_) {
            services_.writer.post(
                [persistence = services_.persistence, document] { persistence->remove(document); },
                [] {});
        }
    }
    deleted_.clear();
}

// Backups and exports.

void AppStore::listBackups(std::function<void(std::vector<BackupFile>)> done) {
    if (isDemo_) {
        done({});
        return;
    }
    services_.writer.post<std::vector<BackupFile>>(
        [persistence = services_.persistence] { return persistence->backups(); }, std::move(done));
}

void AppStore::inspectBackup(const BackupFile& file, std::function<void(Inspected)> done) {
    if (isDemo_) {
        done(tl::unexpected(std::string(demoHasNone)));
        return;
    }
    services_.writer.post<Inspected>(
        [persistence = services_.persistence, file] { return persistence->inspect(file); },
        std::move(done));
}

void AppStore::findNewestGoodBackup(std::function<void(std::optional<BackupFile>)> done) {
    if (isDemo_) {
        done(std::nullopt);
        return;
    }
    services_.writer.post<std::optional<BackupFile>>(
        [persistence = services_.persistence] {
            const auto all = persistence->backups();
            const auto good = std::ranges::find_if(all, [&](const BackupFile& file) {
                return file.name.label != backup::unreadable && persistence->inspect(file);
            });
            return good == all.end() ? std::nullopt : std::optional(*good);
        },
        std::move(done));
}

void AppStore::writeBackup(std::string_view label,
                           std::function<void(const FileResult<void>&)> done) {
    services_.writer.post<FileResult<void>>(backupWork(label), std::move(done));
}

/// Work that writes a labelled backup of the state as it is now.
std::function<FileResult<void>()> AppStore::backupWork(std::string_view label) const {
    // What could not be read at the start is among the backups already, and the state is empty.
    if (isDemo_ || gate_ != Gate::open) {
        return [] { return FileResult<void>(); };
    }
    return [persistence = services_.persistence, label = std::string(label),
            encoded = encodeState(state_)] { return persistence->backup(encoded, label); };
}

void AppStore::restoreBackup(const BackupFile& file, Done done) {
    replaceBy([persistence = services_.persistence, file] { return persistence->read(file); },
              backup::beforeRestore, std::move(done));
}

void AppStore::importExported(const std::filesystem::path& file, Done done) {
    replaceBy([persistence = services_.persistence, file] { return persistence->read(file); },
              backup::beforeImport, std::move(done));
}

/// The same, with a German sentence when it does not work.
BeforePlacing AppStore::keepOwn(std::string_view label) const {
    return [write = backupWork(label)] {
        return write().map_error([](const FileError& error) {
            return "Es liess sich keine Sicherung anlegen: " + error.description();
        });
    };
}

void AppStore::replaceBy(std::function<tl::expected<PersistedState, std::string>()> read,
                         std::string_view label, Done done) {
    if (isDemo_) {
        done(std::string(demoStays));
        return;
    }
    using Read = tl::expected<PersistedState, std::string>;
    auto keep = keepOwn(label);
    services_.writer.post<Read>(
        [read = std::move(read), keep = std::move(keep)]() -> Read {
            auto state = read();
            if (state) {
                if (auto kept = keep(); !kept) {
                    return tl::unexpected(std::move(kept).error());
                }
            }
            return state;
        },
        [this, done = std::move(done)](Read state) {
            if (!state) {
                done(std::move(state).error());
                return;
            }
            replace(std::move(*state));
            done(std::nullopt);
        });
}

void AppStore::replace(PersistedState state) {
    openGate();
    adopt(std::move(state));
    ensureCase(year_);
    announceAdopted(false);
}

void AppStore::exportAll(const std::filesystem::path& file, Done done) {
    if (isDemo_) {
        done(std::string(demoNotExported));
        return;
    }
    services_.writer.post<std::optional<std::string>>(
        [file, encoded = encodeState(state_),
         persistence = services_.persistence]() -> std::optional<std::string> {
            const auto written = persistence->exportAll(file, encoded);
            return written ? std::nullopt : std::optional(written.error().description());
        },
        std::move(done));
}

void AppStore::exportArchive(const std::filesystem::path& file, ArchiveProgress progress,
                             ArchiveDone done) {
    if (isDemo_) {
        done(tl::unexpected(ArchiveFault{.message = std::string(demoNotExported)}));
        return;
    }
    auto tell = onMainThread(services_.writer, std::move(progress));
    services_.writer.post<Archived>(
        [file, persistence = services_.persistence, state = state_, tell = std::move(tell)] {
            return persistence->exportArchive(file, state, tell);
        },
        std::move(done));
}

void AppStore::importArchive(const std::filesystem::path& file, ArchiveProgress progress,
                             ArchiveDone done) {
    if (isDemo_) {
        done(tl::unexpected(ArchiveFault{.message = std::string(demoStays)}));
        return;
    }
    using Read = ArchiveResult<ArchiveContent>;
    auto keep = keepOwn(backup::beforeImport);
    auto tell = onMainThread(services_.writer, std::move(progress));
    services_.writer.post<Read>(
        [file, persistence = services_.persistence, keep = std::move(keep),
         tell = std::move(tell)] { return persistence->importArchive(file, keep, tell); },
        [this, done = std::move(done)](Read content) {
            if (!content) {
                done(tl::unexpected(std::move(content).error()));
                return;
            }
            replace(std::move(content->state));
            done(content->report);
        });
}

} // namespace fiscarel
