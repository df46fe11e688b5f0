#include "reader/Scan.h"

#include "reader/WorkList.h"

#include <QString>
#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <thread>
#include <utility>
#include <vector>

namespace fiscarel::reader {

namespace {

std::string trimmed(const std::string& text) {
    return QString::fromStdString(text).trimmed().toStdString();
}

/// What the threads share. They keep it alive, since they may outlast the reading.
struct Shared {
    Shared(std::string_view file, Deadline end, unsigned allowed)
        : bytes(file), deadline(end), threads(allowed) {}

    const std::string_view bytes;
    const Deadline deadline;
    const unsigned threads;

    std::mutex mutex;
    std::condition_variable changed;
    // guarded by the mutex:
    bool isOpen = false; ///< the tasks are known
    std::optional<Fault> fault;
    int pageCount = 0;
    std::string textLayer;
    bool isRecognised = false; ///< the text layer does not tell enough
    int scans = 0;             ///< pages whose text is to be recognised
    int total = 0;             ///< tasks
    int finished = 0;
    WorkList work;
    std::vector<PageFound> found;
    std::optional<Fault> flaw; ///< what went wrong with some page
};

std::string memoryFault() { return "Dieses Dokument braucht beim Lesen zu viel Speicher."; }

/// Opens the document, reads its text layer and lists what is to do.
std::unique_ptr<Document> openAndPlan(Shared& shared) {
    auto opened = openDocument(shared.bytes, shared.deadline);
    if (!opened) {
        const std::lock_guard lock(shared.mutex);
        shared.fault = std::move(opened.error());
        return nullptr;
    }
    const Document& document = **opened;
    const int count = document.pageCount();
    std::vector<PageTask> tasks;
    std::string layer;
    for (int page = 1; page <= std::min(count, bounds::textPages); ++page) {
        if (std::chrono::steady_clock::now() > shared.deadline) {
            break;
        }
        tasks.push_back(
            {.page = page,
             .wantsSymbols = page <= bounds::barcodePages || page > count - bounds::literalPages,
             .text = document.text(page)});
        if (layer.size() < bounds::textBytes) {
            layer += tasks.back().text.text;
            layer += '\n';
        }
    }
    layer = trimmed(layer);
    const bool isRecognised = hasLittleText(layer);
    int scans = 0;
    for (PageTask& task : tasks) {
        const bool isScan = isReadFromPicture(document, task.page, task.text, isRecognised);
        task.wantsRecognition = isScan && scans < bounds::recognisedPages;
        task.hasSpareThread = tasks.size() < shared.threads;
        scans += isScan ? 1 : 0;
    }
    const std::lock_guard lock(shared.mutex);
    shared.pageCount = count;
    shared.textLayer = std::move(layer);
    shared.isRecognised = isRecognised;
    shared.scans = scans;
    shared.total = static_cast<int>(tasks.size());
    for (const PageTask& task : tasks) {
        shared.found.push_back({.reading = {.number = task.page, .words = task.text.words}});
    }
    shared.work = WorkList(std::move(tasks));
    shared.isOpen = true;
    return std::move(*opened);
}

void workOff(Shared& shared, const Document& document) {
    Recognition recognition;
    while (std::chrono::steady_clock::now() < shared.deadline) {
        std::optional<PageTask> task;
        {
            const std::lock_guard lock(shared.mutex);
            task = shared.work.next();
        }
        if (!task) {
            return;
        }
        const auto at = static_cast<std::size_t>(task->page - 1);
        const bool wantsRecognition = task->wantsRecognition;
        std::optional<PageFound> found;
        std::optional<Fault> flaw;
        try {
            found = readPage(document, std::move(*task), recognition, shared.deadline);
            if (wantsRecognition && !recognition.isInstalled()) {
                flaw = "Die Texterkennung ist nicht vollständig installiert: Eingescannte Seiten "
                       "lassen sich nicht lesen.";
            }
        } catch (const std::bad_alloc&) {
            flaw = memoryFault();
        } catch (const std::exception&) {
            flaw = "Eine Seite ist beschädigt und wurde nicht gelesen.";
        }
        const std::lock_guard lock(shared.mutex);
        if (found) {
            shared.work.add(*found);
            shared.found[at] = std::move(*found);
        }
        if (flaw && !shared.flaw) {
            shared.flaw = std::move(flaw);
        }
        ++shared.finished;
        shared.changed.notify_all();
    }
}

/// The first thread opens and plans; each further one opens the document for itself.
void runThread(const std::shared_ptr<Shared>& shared, bool isFirst) {
    try {
        std::unique_ptr<Document> document;
        if (isFirst) {
            document = openAndPlan(*shared);
            shared->changed.notify_all();
        } else if (auto opened = openDocument(shared->bytes, shared->deadline)) {
            document = std::move(*opened);
        }
        if (document) {
            workOff(*shared, *document);
        }
    } catch (const std::exception&) {
        const std::lock_guard lock(shared->mutex);
        if (isFirst && !shared->isOpen) {
            shared->fault = memoryFault();
        }
    }
    shared->changed.notify_all();
}

Scanned resultOf(Shared& shared) {
    Scanned result;
    result.reading.pageCount = shared.pageCount;
    result.text = shared.textLayer;
    result.reading.text = shared.textLayer;
    bool hasWords = false;
    bool hidesText = false;
    for (PageFound& page : shared.found) {
        const bool isLiteral = page.reading.number <= bounds::literalPages;
        if (!page.recognisedText.empty()) {
            result.reading.text += '\n' + page.recognisedText;
            if (shared.isRecognised && isLiteral) {
                result.text += '\n' + page.recognisedText;
            }
        }
        for (const FoundSymbol& symbol : page.symbols) {
            if (isLiteral && symbol.symbol.symbology != PageSymbol::Symbology::code128) {
                result.barcodes.push_back(shortText(symbol));
            }
        }
        hasWords |= !page.reading.words.empty();
        hidesText |= page.hidesText;
        result.reading.pages.push_back(std::move(page.reading));
    }
    if (hidesText && !hasWords) {
        result.reading.text.clear(); // nobody sees it on paper
        result.text.clear();
    }
    return result;
}

/// The threads that read. Those that are not waited for go on by themselves: they may hang.
class Crew {
  public:
    explicit Crew(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}
    ~Crew() {
        for (std::thread& thread : threads_) {
            thread.detach();
        }
    }
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    void add(bool opens) {
        threads_.emplace_back([shared = shared_, opens] { runThread(shared, opens); });
    }
    /// Waits for threads that have nothing left to do, so that none is in the midst of ending when
    /// the process ends.
    void end() {
        for (std::thread& thread : std::exchange(threads_, {})) {
            thread.join();
        }
    }

  private:
    std::shared_ptr<Shared> shared_;
    std::vector<std::thread> threads_;
};

std::optional<Fault> problemOf(const Shared& shared) {
    if (shared.finished < shared.total) {
        if (shared.finished == 0) {
            return "Das Lesen dauerte zu lange: Keine Seite wurde ganz gelesen.";
        }
        return "Das Lesen dauerte zu lange: Ganz gelesen "
               + std::string(shared.finished == 1 ? "wurde " : "wurden ")
               + std::to_string(shared.finished) + " von " + std::to_string(shared.pageCount)
               + " Seiten.";
    }
    if (shared.flaw) {
        return shared.flaw;
    }
    if (shared.pageCount > shared.total) {
        return "Das Dokument hat " + std::to_string(shared.pageCount)
               + " Seiten; gelesen wurden die ersten " + std::to_string(shared.total) + ".";
    }
    if (shared.scans > bounds::recognisedPages) {
        return "Das Dokument hat " + std::to_string(shared.scans)
               + " eingescannte Seiten; erkannt wurde der Text der ersten "
               + std::to_string(bounds::recognisedPages) + ".";
    }
    return std::nullopt;
}

} // namespace

bool hasLittleText(std::string_view layer) {
    constexpr qsizetype enough = 40; // characters as one counts them
    return QString::fromUtf8(layer.data(), static_cast<qsizetype>(layer.size())).trimmed().size()
           < enough;
}

bool isReadFromPicture(const Document& document, int page, const PageText& text, bool isAll) {
    constexpr std::size_t few = 3;
    constexpr std::size_t fewOnScan = 12; // a stamp or page number over a scan
    const std::size_t words = text.words.size();
    return isAll || words < few || (words < fewOnScan && document.isScan(page));
}

Scanned scanDocument(std::string_view bytes, const ScanOptions& options) {
    const auto shared = std::make_shared<Shared>(bytes, options.deadline, options.threads);
    Crew crew(shared);
    crew.add(true);
    std::unique_lock lock(shared->mutex);
    const auto isPlanned = [&] { return shared->isOpen || shared->fault; };
    if (!shared->changed.wait_until(lock, options.deadline, isPlanned)) {
        return {.problem = "Das Öffnen dieses Dokuments dauerte zu lange."};
    }
    if (shared->fault) {
        lock.unlock();
        crew.end();
        return {.problem = shared->fault};
    }
    const auto threads = std::min(options.threads, static_cast<unsigned>(shared->total));
    for (unsigned i = 1; i < threads; ++i) {
        crew.add(false);
    }
    // The threads stop at the deadline by themselves; one that hangs in a page is not waited for.
    const auto end = options.deadline + std::chrono::seconds(1);
    for (int told = -1; shared->finished < shared->total;) {
        if (told != shared->finished) {
            told = shared->finished;
            if (options.progress) {
                options.progress(told, shared->total);
            }
        }
        if (!shared->changed.wait_until(lock, end, [&] { return shared->finished != told; })) {
            break;
        }
    }
    Scanned result = resultOf(*shared);
    result.problem = problemOf(*shared);
    const bool isDone = shared->finished == shared->total;
    lock.unlock();
    if (isDone) {
        crew.end();
    }
    return result;
}

} // namespace fiscarel::reader
