#include "Fiscarel_SG/DocumentIntake.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/DocumentReadings.h"

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

void DocumentIntake::take(Paths picked) {
    std::ranges::move(picked, std::back_inserter(picked_));
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
    pool_.start([this, picked = std::exchange(picked_, {}), known = std::move(known),
                 stop = end_.get_token()] {
        Gathered all = gatherDocuments(picked, stop);
        std::vector<Twin> twins = takeTwins(all.files, known, stop);
        QMetaObject::invokeMethod(
            this,
            [this, all = std::move(all), twins = std::move(twins)]() mutable {
                gathered(all, std::move(twins));
            },
            Qt::QueuedConnection);
    });
    Q_EMIT changed();
}

void DocumentIntake::gathered(const Gathered& gathered, std::vector<Twin> twins) {
    isGathering_ = false;
    QStringList told = message_.split(u'\n', Qt::SkipEmptyParts);
    told << messagesOf(gathered);
    told.removeDuplicates();
    message_ = told.join(u'\n');
    std::ranges::move(twins, std::back_inserter(twins_));
    addComing(gathered.files);
    Q_EMIT changed();
    take({}); // what was picked meanwhile
}

void DocumentIntake::addComing(const Paths& files) {
    if (!isCopying_) {
        done_ = 0;
        total_ = 0;
    }
    total_ += files.size();
    coming_.insert(coming_.end(), files.begin(), files.end());
    copyNext();
}

void DocumentIntake::copyNext() {
    if (isCopying_ || coming_.empty()) {
        return;
    }
    isCopying_ = true;
    const auto end =
        coming_.begin() + static_cast<std::ptrdiff_t>(std::min(copiedAtOnce, coming_.size()));
    const Paths some(coming_.begin(), end);
    coming_.erase(coming_.begin(), end);
    // The store's work may end after us.
    store_.importDocuments(
        some, [self = QPointer(this), count = some.size()](const std::vector<taxcore::Uuid>& ids) {
            if (self.isNull()) {
                return;
            }
            self->isCopying_ = false;
            self->done_ += count;
            for (const taxcore::Uuid& id : ids) {
                self->readings_.read(id);
            }
            self->copyNext();
            Q_EMIT self->changed();
        });
    if (store_.isDemo()) { // which takes nothing and says so
        isCopying_ = false;
        coming_.clear();
    }
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
    addComing(files);
    Q_EMIT changed();
}

void DocumentIntake::dropTwins() {
    twins_.clear();
    Q_EMIT changed();
}

} // namespace fiscarel
