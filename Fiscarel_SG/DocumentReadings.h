#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/documents/ScanCache.h"
#include "Fiscarel_SG/store/StoredDocument.h"
#endif

#include <QObject>
#include <QThreadPool>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

namespace fiscarel {

class AppStore;

/// Reads documents in the background, two at a time, and attaches to them what was read. On the
/// main thread; lives as long as the program, whichever page is seen.
class DocumentReadings final : public QObject {
    Q_OBJECT

  public:
    /// Reads a file and waits for it; called off the main thread, several at once.
    using Scan = std::function<ScanResult(const std::filesystem::path&, const ReadingOptions&)>;

    /// How far a reading is.
    struct Progress {
        bool isUnderWay = false; ///< else it waits for others
        int page = 0;            ///< pages read
        int pages = 0;           ///< 0: not known yet

        bool operator==(const Progress&) const = default;
    };

    /// `store` and `cache` must outlive it.
    DocumentReadings(AppStore& store, ScanCache& cache, Scan scan = &DocumentScanner::scan,
                     QObject* parent = nullptr);
    /// Ends what is under way at once; such documents stay unread.
    ~DocumentReadings() override;
    DocumentReadings(const DocumentReadings&) = delete;
    DocumentReadings& operator=(const DocumentReadings&) = delete;
    DocumentReadings(DocumentReadings&&) = delete;
    DocumentReadings& operator=(DocumentReadings&&) = delete;

    /// Lets a document be read, or found among what was read before.
    void read(const Uuid& id);
    /// Reads it even when it was read before.
    void readAgain(const Uuid& id);
    /// Fetches what was read of a document before, if it is still kept.
    void recall(const Uuid& id);
    void cancel(const Uuid& id);
    void cancelAll();

    /// Absent when a document is not being read.
    std::optional<Progress> progress(const Uuid& id) const;
    /// How many documents are being read or wait for it.
    std::size_t count() const noexcept { return jobs_.size(); }
    /// What was read; null while that is not known.
    std::shared_ptr<const ScanResult> result(const Uuid& id) const;
    /// What kind of document it is taken for, decided or proposed; absent when nothing is known.
    std::optional<StoredDocument::Kind> kind(const StoredDocument& document) const;
    /// The documents of the household, each as the kind it is taken for.
    std::vector<StoredDocument> documentsByKind() const;
    /// Whether the file was found to be none that can be opened.
    bool isBroken(const Uuid& id) const;

  Q_SIGNALS:
    /// The progress or the result of a document is another one.
    void changed(const taxcore::Uuid& id);

  private:
    struct Job {
        int number = 0;
        std::stop_source stop;
        Progress progress;
    };
    /// What comes back from another thread.
    struct Outcome {
        std::optional<std::string> hash;
        std::optional<ScanResult> result;
    };

    void start(const Uuid& id, bool again);
    Outcome work(const std::filesystem::path& file, const ReadingOptions& options, bool again);
    bool hasContent(const std::string& hash);
    void proceeded(const Uuid& id, int number, int page, int pages);
    void finished(const Uuid& id, int number, Outcome outcome);
    void attach(const Uuid& id, const ScanResult& result);
    void keep(const Uuid& id, ScanResult result);
    void dropGone();

    AppStore& store_;
    ScanCache& cache_;
    const Scan scan_;
    std::map<Uuid, Job> jobs_;
    int lastNumber_ = 0;
    std::map<Uuid, std::shared_ptr<const ScanResult>> results_;
    std::map<Uuid, std::string> hashes_;
    std::set<Uuid> recalled_;
    std::stop_source end_;
    QThreadPool readers_;
    QThreadPool helpers_; ///< for what takes no time beside reading
};

} // namespace fiscarel
