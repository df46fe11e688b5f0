#include "Fiscarel_SG/DocumentReadings.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/documents/ContentHash.h"
#include "Fiscarel_SG/documents/ScanSummary.h"

#include <QThread>
#include <algorithm>
#include <utility>

namespace fiscarel {

using namespace taxcore;

namespace {

/// One page is read by one thread: two documents keep two cores busy, and more would only make each
/// of them slower.
constexpr int atOnce = 2;

const StoredDocument* find(const AppStore& store, const Uuid& id) {
    const auto found = std::ranges::find(store.documents(), id, &StoredDocument::id);
    return found == store.documents().end() ? nullptr : &*found;
}

/// Whether nothing of a document could be read.
bool hasFailed(const ScanResult& result) { return result.problem && result.text.empty(); }

} // namespace

DocumentReadings::DocumentReadings(AppStore& store, ScanCache& cache, Scan scan, QObject* parent)
    : QObject(parent), store_(store), cache_(cache), scan_(std::move(scan)) {
    readers_.setMaxThreadCount(std::min(atOnce, QThread::idealThreadCount()));
    helpers_.setMaxThreadCount(1);
    connect(&store, &AppStore::documentsChanged, this, &DocumentReadings::dropGone);
}

DocumentReadings::~DocumentReadings() {
    end_.request_stop();
    for (auto& [id, job] : jobs_) {
        job.stop.request_stop();
    }
    for (QThreadPool* const pool : {&readers_, &helpers_}) {
        pool->clear();
        pool->waitForDone();
    }
}

void DocumentReadings::read(const Uuid& id) { start(id, false); }

void DocumentReadings::readAgain(const Uuid& id) { start(id, true); }

void DocumentReadings::start(const Uuid& id, bool again) {
    const StoredDocument* const document = find(store_, id);
    if (document == nullptr || store_.isDemo() || jobs_.contains(id)) {
        return;
    }
    const auto file = store_.fileOf(*document);
    if (!file) {
        keep(id, {.problem = "Die Datei dieses Belegs fehlt im Datenordner."});
        return;
    }
    Job& job = jobs_[id];
    job.number = ++lastNumber_;
    const ReadingOptions options{
        .progress =
            [this, id, number = job.number](int page, int pages) {
                QMetaObject::invokeMethod(
                    this, [this, id, number, page, pages] { proceeded(id, number, page, pages); },
                    Qt::QueuedConnection);
            },
        .stop = job.stop.get_token()};
    readers_.start([this, id, number = job.number, file = *file, options, again] {
        QMetaObject::invokeMethod(
            this,
            [this, id, number, outcome = work(file, options, again)]() mutable {
                finished(id, number, std::move(outcome));
            },
            Qt::QueuedConnection);
    });
    Q_EMIT changed(id);
}

/// Off the main thread.
DocumentReadings::Outcome DocumentReadings::work(const std::filesystem::path& file,
                                                 const ReadingOptions& options, bool again) {
    Outcome outcome;
    if (options.stop.stop_requested()) {
        return outcome;
    }
    options.progress(0, 0);
    outcome.hash = contentHash(file, options.stop);
    if (!again && outcome.hash) {
        outcome.result = cache_.find(*outcome.hash);
    }
    // What failed altogether may work another time; until then it is kept why.
    if ((!outcome.result || hasFailed(*outcome.result)) && !options.stop.stop_requested()) {
        outcome.result = scan_(file, options);
        const bool isKept = outcome.hash && !options.stop.stop_requested();
        if (isKept && (!hasFailed(*outcome.result) || !hasContent(*outcome.hash))) {
            cache_.keep(*outcome.hash, *outcome.result);
        }
    }
    return outcome;
}

/// Whether an earlier reading that worked is kept. Off the main thread.
bool DocumentReadings::hasContent(const std::string& hash) {
    const auto before = cache_.find(hash);
    return before && !hasFailed(*before);
}

void DocumentReadings::proceeded(const Uuid& id, int number, int page, int pages) {
    const auto found = jobs_.find(id);
    if (found != jobs_.end() && found->second.number == number) {
        found->second.progress = {true, page, pages};
        Q_EMIT changed(id);
    }
}

void DocumentReadings::finished(const Uuid& id, int number, Outcome outcome) {
    const auto found = jobs_.find(id);
    if (found == jobs_.end() || found->second.number != number) {
        return; // cancelled meanwhile
    }
    jobs_.erase(found);
    if (outcome.hash) {
        hashes_[id] = *std::move(outcome.hash);
    }
    if (outcome.result) {
        attach(id, *outcome.result);
        keep(id, *std::move(outcome.result));
    } else {
        Q_EMIT changed(id);
    }
}

/// What the state keeps of a reading. What the user chose stays.
void DocumentReadings::attach(const Uuid& id, const ScanResult& result) {
    store_.updateDocument(id, [&](StoredDocument& document) {
        const bool isFirst = document.recognizedText.value_or(std::string()).empty();
        if (isFirst && !document.hasChosenKind()
            && document.kind == StoredDocument::Kind::anderes) {
            document.kind =
                result.kindIsCertain ? result.proposedKind.value_or(result.kind) : result.kind;
        }
        if (isFirst || !result.problem) {
            document.recognizedText = result.text;
            document.issuer = issuerName(result);
            document.amount = mainAmount(result);
        }
    });
}

void DocumentReadings::keep(const Uuid& id, ScanResult result) {
    results_[id] = std::make_shared<const ScanResult>(std::move(result));
    Q_EMIT changed(id);
}

void DocumentReadings::recall(const Uuid& id) {
    const StoredDocument* const document = find(store_, id);
    if (document == nullptr || results_.contains(id) || !recalled_.insert(id).second) {
        return;
    }
    const auto file = store_.fileOf(*document);
    if (!file) {
        return;
    }
    helpers_.start([this, id, file = *file, stop = end_.get_token()] {
        Outcome outcome{.hash = contentHash(file, stop)};
        if (outcome.hash) {
            outcome.result = cache_.find(*outcome.hash);
        }
        QMetaObject::invokeMethod(
            this,
            [this, id, outcome = std::move(outcome)]() mutable {
                if (outcome.hash) {
                    hashes_[id] = *std::move(outcome.hash);
                }
                if (outcome.result && !results_.contains(id) && find(store_, id) != nullptr) {
                    keep(id, *std::move(outcome.result));
                }
            },
            Qt::QueuedConnection);
    });
}

void DocumentReadings::cancel(const Uuid& id) {
    if (auto job = jobs_.extract(id)) {
        job.mapped().stop.request_stop();
        Q_EMIT changed(id);
    }
}

void DocumentReadings::cancelAll() {
    while (!jobs_.empty()) {
        cancel(Uuid(jobs_.begin()->first));
    }
}

std::optional<DocumentReadings::Progress> DocumentReadings::progress(const Uuid& id) const {
    const auto found = jobs_.find(id);
    return found == jobs_.end() ? std::nullopt : std::optional(found->second.progress);
}

std::shared_ptr<const ScanResult> DocumentReadings::result(const Uuid& id) const {
    const auto found = results_.find(id);
    return found == results_.end() ? nullptr : found->second;
}

std::optional<StoredDocument::Kind> DocumentReadings::kind(const StoredDocument& document) const {
    const bool isSaid = document.recognizedText && !document.recognizedText->empty();
    if (!isSaid && !document.isApplied && !document.hasChosenKind()
        && document.kind == StoredDocument::Kind::anderes) {
        return std::nullopt;
    }
    const auto scan = result(document.id);
    return scan != nullptr ? firstKind(document, *scan) : document.kind;
}

std::vector<StoredDocument> DocumentReadings::documentsByKind() const {
    std::vector<StoredDocument> documents = store_.documents();
    for (StoredDocument& document : documents) {
        document.kind = kind(document).value_or(document.kind);
    }
    return documents;
}

bool DocumentReadings::isBroken(const Uuid& id) const {
    const auto scan = result(id);
    return scan != nullptr && scan->problem && scan->pageCount == 0;
}

/// Nothing of a document that was removed is read or kept on.
void DocumentReadings::dropGone() {
    std::set<Uuid> there;
    for (const StoredDocument& document : store_.documents()) {
        there.insert(document.id);
    }
    const auto isGone = [&](const auto& entry) { return !there.contains(entry.first); };
    std::vector<Uuid> unwanted;
    for (const auto& [id, job] : jobs_) {
        if (!there.contains(id)) {
            unwanted.push_back(id);
        }
    }
    std::ranges::for_each(unwanted, [this](const Uuid& id) { cancel(id); });
    std::erase_if(results_, isGone);
    std::erase_if(recalled_, [&](const Uuid& id) { return !there.contains(id); });
    std::erase_if(hashes_, [&](const auto& entry) {
        if (isGone(entry)) {
            helpers_.start([this, hash = entry.second] { cache_.forget(hash); });
            return true;
        }
        return false;
    });
}

} // namespace fiscarel
