#include "Fiscarel_SG/DocumentIntake.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/DocumentReadings.h"
#include "Fiscarel_SG/store/DocumentFiles.h"

#include <QPointer>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <utility>

namespace fiscarel {

namespace {

using namespace Qt::Literals::StringLiterals;
using Paths = std::vector<std::filesystem::path>;

constexpr std::size_t copiedAtOnce = 5;
constexpr std::size_t mostNamed = 5;

/// «a.docx», «b.zip» und 3 weitere
QString namesOf(const Paths& paths) {
    QStringList names;
    for (std::size_t i = 0; i < std::min(paths.size(), mostNamed); ++i) {
        names << u"«%1»"_s.arg(QString::fromStdString(paths[i].filename().string()));
    }
    if (paths.size() > mostNamed) {
        return names.join(u", "_s) + u" und %1 weitere"_s.arg(paths.size() - mostNamed);
    }
    const QString last = names.takeLast();
    return names.isEmpty() ? last : names.join(u", "_s) + u" und "_s + last;
}

QStringList messagesOf(const Gathered& gathered) {
    QStringList sentences;
    if (!gathered.unreadable.empty()) {
        sentences << u"%1 %2 sich leider nicht lesen. Möglich sind PDF, JPEG, PNG, TIFF, WebP und "
                     "HEIC."_s.arg(namesOf(gathered.unreadable),
                                   gathered.unreadable.size() == 1 ? u"lässt"_s : u"lassen"_s);
    }
    if (!gathered.empty.empty()) {
        sentences << (gathered.empty.size() == 1
                          ? u"Im Ordner %1 liegt nichts, was sich lesen lässt."_s
                          : u"In den Ordnern %1 liegt nichts, was sich lesen lässt."_s)
                         .arg(namesOf(gathered.empty));
    }
    if (gathered.isCut) {
        sentences << u"Auf einmal werden höchstens %1 Dateien aufgenommen. Bitte den Rest danach "
                     "hinzufügen."_s.arg(mostGathered);
    }
    return sentences;
}

} // namespace

DocumentIntake::DocumentIntake(AppStore& store, DocumentReadings& readings, QObject* parent)
    : QObject(parent), store_(store), readings_(readings) {
    pool_.setMaxThreadCount(1);
}

DocumentIntake::~DocumentIntake() {
    end_.request_stop();
    pool_.clear();
    pool_.waitForDone();
}

void DocumentIntake::take(Paths files, std::optional<taxcore::Uuid> instead) {
    if (files.empty()) {
        return;
    }
    const int year = store_.year();
    if (!picked_.empty() && picked_.back().year == year && !instead && !picked_.back().instead) {
        std::ranges::move(files, std::back_inserter(picked_.back().files));
    } else {
        picked_.push_back({std::move(files), year, instead});
    }
    gatherNext();
}

void DocumentIntake::gatherNext() {
    if (isGathering_ || picked_.empty()) {
        return;
    }
    isGathering_ = true;
    std::vector<KnownFile> known;
    for (const StoredDocument& document : store_.documents()) {
        if (auto file = store_.fileOf(document)) {
            known.push_back({document.id, *std::move(file)});
        }
    }
    Picked next = std::move(picked_.front());
    picked_.erase(picked_.begin());
    pool_.start([this, picked = std::move(next), known = std::move(known),
                 stop = end_.get_token()]() mutable {
        Gathered all = gatherDocuments(picked.files, stop);
        std::vector<Twin> twins = takeTwins(all.files, known, stop);
        QMetaObject::invokeMethod(
            this,
            [this, all = std::move(all), twins = std::move(twins),
             picked = std::move(picked)]() mutable { gathered(all, std::move(twins), picked); },
            Qt::QueuedConnection);
    });
    Q_EMIT changed();
}

void DocumentIntake::gathered(const Gathered& gathered, std::vector<Twin> twins,
                              const Picked& picked) {
    isGathering_ = false;
    QStringList told = message_.split(u'\n', Qt::SkipEmptyParts);
    told << messagesOf(gathered);
    told.removeDuplicates();
    message_ = told.join(u'\n');
    Paths all = gathered.files;
    std::ranges::transform(twins, std::back_inserter(all), &Twin::file);
    for (const auto& file : all) {
        if (picked.instead) {
            instead_.insert_or_assign(file, *picked.instead);
        } else {
            instead_.erase(file);
        }
    }
    std::ranges::move(twins, std::back_inserter(twins_));
    addComing(gathered.files, picked.year);
    Q_EMIT changed();
    gatherNext(); // what was picked meanwhile
}

void DocumentIntake::addComing(const Paths& files, int year) {
    if (!isCopying_) {
        done_ = 0;
        total_ = 0;
    }
    total_ += files.size();
    std::ranges::transform(files, std::back_inserter(coming_), [&](const auto& file) {
        return Coming{file, year};
    });
    copyNext();
}

/// What takes another one's place goes alone, so that it is known which file has come.
void DocumentIntake::copyNext() {
    if (isCopying_ || coming_.empty()) {
        return;
    }
    isCopying_ = true;
    const int year = coming_.front().year;
    std::optional<taxcore::Uuid> instead;
    if (const auto found = instead_.extract(coming_.front().file)) {
        instead = found.mapped();
    }
    Paths some;
    while (!coming_.empty() && some.size() < (instead ? 1 : copiedAtOnce)
           && coming_.front().year == year
           && (some.empty() || !instead_.contains(coming_.front().file))) {
        some.push_back(std::move(coming_.front().file));
        coming_.erase(coming_.begin());
    }
    // The store's work may end after us.
    store_.importDocuments(
        some,
        [self = QPointer(this), count = some.size(),
         instead](const std::vector<taxcore::Uuid>& ids) {
            if (!self.isNull()) {
                self->done_ += count;
                self->copied(ids, instead);
            }
        },
        year);
    if (store_.isDemo()) { // which takes nothing and says so
        isCopying_ = false;
        coming_.clear();
        instead_.clear();
    }
}

void DocumentIntake::copied(const std::vector<taxcore::Uuid>& ids,
                            std::optional<taxcore::Uuid> instead) {
    isCopying_ = false;
    if (instead && !ids.empty()) {
        replace(*instead, ids.front());
    }
    for (const taxcore::Uuid& id : ids) {
        readings_.read(id);
    }
    copyNext();
    Q_EMIT changed();
}

/// What the user gave the former one goes over to the new one.
void DocumentIntake::replace(const taxcore::Uuid& former, const taxcore::Uuid& now) {
    const auto found = std::ranges::find(store_.documents(), former, &StoredDocument::id);
    if (found == store_.documents().end()) { // another file of the same pick has come before
        return;
    }
    const StoredDocument gone = *found;
    QString title;
    store_.updateDocument(now, [&](StoredDocument& document) {
        document.year = gone.year;
        document.note = gone.note;
        if (!isTitleOfFile(gone.title, gone.fileName)) {
            document.title = gone.title;
        }
        if (gone.hasChosenKind()) {
            document.chooseKind(gone.kind);
        }
        title = QString::fromStdString(document.title);
    });
    store_.deleteDocument(former);
    Q_EMIT replaced(QString::fromStdString(gone.title), title);
}

void DocumentIntake::dismissMessage() {
    message_.clear();
    Q_EMIT changed();
}

void DocumentIntake::keepTwins() {
    Paths files;
    for (Twin& twin : std::exchange(twins_, {})) {
        files.push_back(std::move(twin.file));
    }
    addComing(files, store_.year());
    Q_EMIT changed();
}

void DocumentIntake::dropTwins() {
    for (const Twin& twin : std::exchange(twins_, {})) {
        instead_.erase(twin.file);
    }
    Q_EMIT changed();
}

} // namespace fiscarel
