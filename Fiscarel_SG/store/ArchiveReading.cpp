#include "Fiscarel_SG/store/ArchiveParts.h"
#include "Fiscarel_SG/store/DocumentFiles.h"
#include "Fiscarel_SG/store/Zip.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace fiscarel {

using namespace archive;

namespace {

namespace fs = std::filesystem;

/// A name from an archive as it can be shown.
std::string shown(std::string_view name) {
    constexpr std::size_t most = 80;
    std::string text = cleaned(name, '?');
    const bool isLong = text.size() > most;
    cutTo(text, most);
    return "«" + text + (isLong ? "…" : "") + "»";
}

/// What the program reads of an archive.
struct Table {
    std::optional<ZipEntry> state;
    std::map<std::string, ZipEntry> documents; ///< by plain file name
    std::size_t passedOver = 0;
};

/// Whether unpacking a name as it stands could write outside of the folder it is unpacked to. We
/// never do that, but whoever made it meant no good.
bool leadsOutside(std::string_view name) {
    if (name.starts_with('/') || name.find('\\') != std::string_view::npos) {
        return true;
    }
    while (!name.empty()) {
        const std::size_t end = std::min(name.find('/'), name.size());
        if (name.substr(0, end) == "..") {
            return true;
        }
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return false;
}

/// The sentence that refuses an entry that concerns us; absent for a good one.
std::optional<std::string> refusal(const ZipEntry& entry) {
    if (entry.isEncrypted) {
        return "Das Archiv ist mit einem Passwort verschlüsselt; es lässt sich nur "
               "unverschlüsselt einlesen.";
    }
    if (entry.isLink) {
        return "Das Archiv enthält unter dem Namen " + shown(entry.name)
               + " einen Verweis statt einer Datei.";
    }
    if (!entry.isReadable) {
        return "Das Archiv ist in einem Verfahren gepackt, das dieses Programm nicht kennt.";
    }
    return std::nullopt;
}

ArchiveResult<Table> tableOf(const ZipReader& zip) {
    if (zip.count() > maxArchiveDocuments + 2) { // and the state, and the folder itself
        return fault(*tooMuch(maxArchiveDocuments + 1, 0));
    }
    Table table;
    for (std::uint64_t i = 0; i < zip.count(); ++i) {
        ZipEntry entry = zip.entry(i);
        const std::string name = entry.name;
        if (leadsOutside(name)) {
            return fault("Das Archiv enthält den unzulässigen Namen " + shown(name) + ".");
        }
        const bool isState = name == stateEntry;
        const std::string_view plain = name.starts_with(documentsPrefix)
                                           ? std::string_view(name).substr(documentsPrefix.size())
                                           : std::string_view();
        if (!isState && !isPlainFileName(plain)) {
            table.passedOver += name.ends_with('/') ? 0U : 1U;
            continue;
        }
        if (auto refused = refusal(entry)) {
            return fault(std::move(*refused));
        }
        const bool isFirst = isState ? !std::exchange(table.state, std::move(entry))
                                     : table.documents.emplace(plain, std::move(entry)).second;
        if (!isFirst) {
            return fault("Das Archiv enthält den Namen " + shown(name) + " zweimal.");
        }
    }
    if (!table.state) {
        return fault("Das Archiv enthält keine Daten dieses Programms.");
    }
    return table;
}

/// The content of an existing file, compared with pieces in order.
class Comparison {
  public:
    explicit Comparison(FileReader& file) : file_(file) {}

    bool equals(std::string_view piece) {
        buffer_.resize(piece.size());
        const auto count = file_.read(done_, buffer_);
        done_ += piece.size();
        return count && std::string_view(buffer_.data(), *count) == piece;
    }

  private:
    FileReader& file_;
    std::uint64_t done_ = 0;
    std::vector<char> buffer_;
};

/// One reading of an archive: first everything is prepared in hidden files, then they get their
/// names. What was not placed goes with it.
class Import {
  public:
    Import(FileSystem& files, const fs::path& source, const fs::path& folder,
           const ArchiveProgress& progress)
        : files_(files), source_(source), folder_(folder), progress_(progress) {}

    ArchiveResult<void> prepare();
    ArchiveResult<void> place();
    ArchiveContent& content() noexcept { return content_; }

  private:
    ArchiveFault readingFault(const ZipFault& problem, std::string_view name = {}) const;
    ArchiveResult<void> readState();
    void choose();
    ArchiveResult<void> checkRoom() const;
    ArchiveResult<void> take(const std::string& name, const ZipEntry& entry);
    ArchiveResult<bool> isThere(const ZipEntry& entry, FileReader& file);
    ArchiveResult<void> stage(const std::string& name, const ZipEntry& entry);
    ArchiveResult<bool> unpack(const ZipEntry& entry,
                               const std::function<bool(std::string_view)>& use);

    FileSystem& files_;
    const fs::path& source_;
    const fs::path& folder_;
    const ArchiveProgress& progress_;
    std::optional<ZipReader> zip_;
    Table table_;
    std::uint64_t total_ = 0; ///< bytes of all that is read
    std::uint64_t done_ = 0;
    std::map<std::string, std::string> renamed_; ///< from the name in the archive
    struct Staged {
        std::unique_ptr<FileDraft> draft;
        fs::path file;
    };
    std::vector<Staged> staged_;
    ArchiveContent content_;
};

ArchiveFault Import::readingFault(const ZipFault& problem, std::string_view name) const {
    using Kind = ZipFault::Kind;
    const std::string archive = "«" + source_.filename().string() + "»";
    switch (problem.kind) {
    case Kind::file:
        return {.message = problem.file->description()};
    case Kind::stopped:
        return stopped().value();
    case Kind::noArchive:
        return {.message = archive
                           + " ist kein Archiv dieses Programms, oder es ist nicht "
                             "vollständig."};
    case Kind::damaged:
        return {.message = "Das Archiv ist beschädigt: " + shown(name)
                           + " lässt sich nicht unversehrt auspacken."};
    case Kind::internal:
        break;
    }
    return {.message = archive + " liess sich nicht lesen."};
}

ArchiveResult<void> Import::prepare() {
    auto zip = ZipReader::open(files_, source_);
    if (!zip) {
        return tl::unexpected(readingFault(zip.error()));
    }
    zip_ = std::move(*zip);
    auto table = tableOf(*zip_);
    if (!table) {
        return tl::unexpected(std::move(table).error());
    }
    table_ = std::move(*table);
    content_.report.passedOver = table_.passedOver;
    if (auto read = readState(); !read) {
        return read;
    }
    choose();
    if (auto room = checkRoom(); !room) {
        return room;
    }
    for (const auto& [name, entry] : table_.documents) {
        if (auto taken = take(name, entry); !taken) {
            return taken;
        }
    }
    return {};
}

/// Hands an entry's content on and tells how far it is; whether `use` took all of it.
ArchiveResult<bool> Import::unpack(const ZipEntry& entry,
                                   const std::function<bool(std::string_view)>& use) {
    bool goesOn = true;
    std::uint64_t ofEntry = 0;
    auto read = zip_->read(entry, [&](std::string_view piece) {
        ofEntry += piece.size();
        goesOn = !progress_ || progress_(std::min(done_ + ofEntry, total_), total_);
        return goesOn && use(piece);
    });
    if (!goesOn) {
        return stopped();
    }
    if (!read) {
        return tl::unexpected(readingFault(read.error(), entry.name));
    }
    return *read;
}

ArchiveResult<void> Import::readState() {
    const ZipEntry& entry = *table_.state;
    if (entry.size > taxcore::maxJsonSize) {
        return fault("Die Daten im Archiv sind grösser als " + megabytes(taxcore::maxJsonSize)
                     + ".");
    }
    total_ = entry.size;
    std::string json;
    const auto read = unpack(entry, [&](std::string_view piece) {
        json += piece;
        return true;
    });
    if (!read) {
        return tl::unexpected(read.error());
    }
    done_ = entry.size;
    auto state = decodeState(json);
    if (!state) {
        return fault(std::move(state).error().message);
    }
    content_.state = std::move(*state);
    return {};
}

/// Keeps those entries that a document of the state names.
void Import::choose() {
    std::set<std::string_view> wanted;
    for (const StoredDocument& document : content_.state.documents) {
        if (!wanted.insert(document.fileName).second
            || table_.documents.contains(document.fileName)) {
            continue;
        }
        const bool isHere = isPlainFileName(document.fileName)
                            && files_.open(folder_ / document.fileName).has_value();
        ++(isHere ? content_.report.alreadyThere : content_.report.missing);
    }
    content_.report.passedOver += std::erase_if(
        table_.documents, [&](const auto& entry) { return !wanted.contains(entry.first); });
    for (const auto& [name, entry] : table_.documents) {
        total_ += std::min(entry.size, maxArchiveSize + 1);
    }
}

/// Whether the documents stay within all limits; what they then do is held to what they say here.
ArchiveResult<void> Import::checkRoom() const {
    for (const auto& [name, entry] : table_.documents) {
        if (entry.size > maxDocumentSize) {
            return fault("Der Beleg " + shown(name) + " im Archiv ist grösser als "
                         + megabytes(maxDocumentSize) + ".");
        }
    }
    const std::uint64_t bytes = total_ - done_;
    if (auto problem = tooMuch(table_.documents.size(), bytes)) {
        return fault(std::move(*problem));
    }
    const auto free = files_.freeSpace(folder_);
    if (!free) {
        return fault(free.error());
    }
    if (bytes > *free) {
        return fault("Für die Belege des Archivs fehlen auf dem Datenträger "
                     + megabytes(bytes - *free) + " Platz.");
    }
    return {};
}

ArchiveResult<void> Import::take(const std::string& name, const ZipEntry& entry) {
    std::string own = name;
    if (const auto existing = files_.open(folder_ / name);
        existing || !existing.error().isMissing()) {
        const auto same = existing && (*existing)->size() == entry.size
                              ? isThere(entry, **existing)
                              : ArchiveResult<bool>(false);
        if (!same) {
            return tl::unexpected(same.error());
        }
        if (*same) {
            ++content_.report.alreadyThere;
            done_ += entry.size;
            return {};
        }
        own = freshDocumentName(name);
        renamed_.emplace(name, own);
    }
    return stage(own, entry).map([&] {
        ++content_.report.documents;
        done_ += entry.size;
    });
}

ArchiveResult<bool> Import::isThere(const ZipEntry& entry, FileReader& file) {
    Comparison comparison(file);
    return unpack(entry, [&](std::string_view piece) { return comparison.equals(piece); });
}

ArchiveResult<void> Import::stage(const std::string& name, const ZipEntry& entry) {
    const fs::path file = folder_ / name;
    auto draft = files_.draft(file);
    if (!draft) {
        return fault(draft.error());
    }
    FileResult<void> written;
    std::uint64_t offset = 0;
    const auto unpacked = unpack(entry, [&](std::string_view piece) {
        written = (*draft)->write(offset, piece);
        offset += piece.size();
        return written.has_value();
    });
    if (!unpacked) {
        return tl::unexpected(unpacked.error());
    }
    if (written) {
        written = (*draft)->finish();
    }
    if (!written) {
        return fault(written.error());
    }
    staged_.push_back({std::move(*draft), file});
    return {};
}

ArchiveResult<void> Import::place() {
    for (auto staged = staged_.begin(); staged != staged_.end(); ++staged) {
        if (auto placed = staged->draft->place(IfTaken::refuse); !placed) {
            std::for_each(staged_.begin(), staged,
                          [&](const Staged& other) { (void)files_.remove(other.file); });
            return fault(placed.error());
        }
    }
    for (StoredDocument& document : content_.state.documents) {
        if (const auto found = renamed_.find(document.fileName); found != renamed_.end()) {
            document.fileName = found->second;
        }
    }
    return {};
}

} // namespace

ArchiveResult<ArchiveContent> readArchive(FileSystem& files, const fs::path& source,
                                          const fs::path& documentsFolder,
                                          const BeforePlacing& beforePlacing,
                                          const ArchiveProgress& progress) {
    Import import(files, source, documentsFolder, progress);
    if (auto prepared = import.prepare(); !prepared) {
        return tl::unexpected(std::move(prepared).error());
    }
    if (beforePlacing) {
        if (auto ready = beforePlacing(); !ready) {
            return fault(std::move(ready).error());
        }
    }
    if (auto placed = import.place(); !placed) {
        return tl::unexpected(std::move(placed).error());
    }
    return std::move(import.content());
}

} // namespace fiscarel
