#include "Fiscarel_SG/pages/documents/DocumentModel.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/KnownYears.h"
#include "Fiscarel_SG/documents/DocumentYears.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Written.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QDateTime>
#include <QPointer>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

DocumentModel::DocumentModel(AppStore& store, DocumentDesk& desk, QObject* parent)
    : QAbstractTableModel(parent), store_(store), desk_(desk) {
    connect(&desk.readings(), &DocumentReadings::changed, this, &DocumentModel::readingChanged);
}

void DocumentModel::update() {
    std::vector<Entry> entries;
    for (StoredDocument& document : store_.documentsForYear()) {
        Entry& entry = entries.emplace_back();
        entry.row = makeRow(document);
        entry.document = std::move(document);
    }
    std::ranges::reverse(entries);
    const auto sameDocument = [](const Entry& a, const Entry& b) { return a.row.id == b.row.id; };
    for (Entry& entry : entries) { // what was made of a document stays
        const int line = lineOf(entry.row.id);
        if (line >= 0) {
            Entry& old = entries_[static_cast<std::size_t>(line)];
            entry.picture = std::move(old.picture);
            entry.isPictureWanted = old.isPictureWanted;
            if (entry.document.recognizedText == old.document.recognizedText
                && entry.row.title == old.row.title && entry.row.issuer == old.row.issuer) {
                entry.words = std::move(old.words);
            }
        }
    }
    if (std::ranges::equal(entries, entries_, sameDocument)) {
        entries_ = std::move(entries);
        if (!entries_.empty()) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
        }
    } else {
        beginResetModel();
        entries_ = std::move(entries);
        endResetModel();
    }
    for (const Entry& entry : entries_) {
        if (entry.document.recognizedText) {
            desk_.readings().recall(entry.row.id);
        }
    }
}

DocumentModel::Row DocumentModel::makeRow(const StoredDocument& document) const {
    Row row{.id = document.id,
            .title = qs(document.title),
            .issuer = qs(document.issuer.value_or("")),
            .kind = desk_.readings().kind(document),
            .amount = document.amount,
            .progress = desk_.readings().progress(document.id),
            .isBroken = desk_.readings().isBroken(document.id)};
    row.isKindProposed = row.kind && row.kind != document.kind;
    describe(document, row);
    return row;
}

/// How it stands, and what is to be said of it.
void DocumentModel::describe(const StoredDocument& document, Row& row) const {
    const auto scan = desk_.readings().result(document.id);
    const QString problem = scan && scan->problem ? qs(*scan->problem) : QString();
    const std::string text = document.recognizedText.value_or("");
    row.otherYear =
        scan && !document.isApplied ? otherYear(*scan, document.year) : std::optional<int>();
    row.canMove = row.otherYear && isKnownYear(store_, *row.otherYear);
    if (row.progress) {
        row.state = DocumentState::reading;
    } else if (!store_.isDemo() && !store_.fileOf(document)) {
        row.state = DocumentState::missing;
    } else if (document.isApplied) {
        row.state = DocumentState::applied;
    } else if (!document.recognizedText) {
        row.state = DocumentState::unread;
    } else {
        row.state = text.empty() ? DocumentState::unreadable : DocumentState::open;
    }
    row.isWarning = true;
    if (row.state == DocumentState::missing) {
        row.detail = u"Die Datei liegt nicht mehr im Datenordner."_s;
    } else if (!problem.isEmpty()) {
        row.detail = problem;
    } else if (row.state == DocumentState::unreadable) {
        row.detail = u"Auf diesem Beleg liess sich kein Text lesen."_s;
    } else if (row.otherYear) {
        row.detail =
            u"Beleg von %1, nicht vom Steuerjahr %2."_s.arg(*row.otherYear).arg(document.year);
        row.advice = row.canMove ? QString() : u"Bitte entfernen oder trotzdem ablegen."_s;
    } else {
        row.isWarning = false;
        row.detail =
            document.note.empty()
                ? u"Hinzugefügt "_s
                      + look::written(
                          QDateTime::fromSecsSinceEpoch(document.importedAt.seconds).date())
                : qs(document.note);
    }
}

void DocumentModel::readingChanged(const taxcore::Uuid& id) {
    const int line = lineOf(id);
    if (line >= 0) {
        Entry& entry = entries_[static_cast<std::size_t>(line)];
        entry.row = makeRow(entry.document);
        Q_EMIT dataChanged(index(line, 0), index(line, columns - 1));
    }
}

const DocumentModel::Row* DocumentModel::rowAt(int line) const {
    return line >= 0 && line < rowCount() ? &entries_[static_cast<std::size_t>(line)].row : nullptr;
}

int DocumentModel::lineOf(const Uuid& id) const {
    const auto found =
        std::ranges::find(entries_, id, [](const Entry& entry) { return entry.row.id; });
    return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

bool DocumentModel::hasWords(int line, const std::vector<std::string>& words) const {
    const Entry& entry = entries_[static_cast<std::size_t>(line)];
    if (!words.empty() && !entry.words) {
        entry.words =
            searched(entry.document.title + "\n" + entry.document.issuer.value_or("") + "\n"
                     + entry.document.note + "\n" + entry.document.recognizedText.value_or(""));
    }
    return std::ranges::all_of(words, [&](const std::string& word) {
        return entry.words->find(word) != std::string::npos;
    });
}

QImage DocumentModel::picture(int line, int width) {
    Entry& entry = entries_[static_cast<std::size_t>(line)];
    if (!std::exchange(entry.isPictureWanted, true)) {
        if (const auto file = store_.fileOf(entry.document)) {
            desk_.images().request(*file, 1, width,
                                   [self = QPointer(this), id = entry.row.id](const QImage& image) {
                                       if (!self.isNull()) {
                                           self->setPicture(id, image);
                                       }
                                   });
        }
    }
    return entry.picture;
}

void DocumentModel::setPicture(const Uuid& id, const QImage& image) {
    if (const int line = lineOf(id); line >= 0) {
        entries_[static_cast<std::size_t>(line)].picture = image;
        Q_EMIT dataChanged(index(line, title), index(line, title), {Qt::DecorationRole});
    }
}

int DocumentModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int DocumentModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns);
}

QString DocumentModel::stateText(const Row& row) const {
    switch (row.state) {
    case DocumentState::reading:
        if (!row.progress->isUnderWay) {
            return u"Wartet …"_s;
        }
        return row.progress->pages > 0
                   ? u"Seite %1 von %2"_s.arg(std::min(row.progress->page + 1, row.progress->pages))
                         .arg(row.progress->pages)
                   : u"Wird gelesen …"_s;
    case DocumentState::open:
        return u"Offen"_s;
    case DocumentState::unread:
        return u"Nicht gelesen"_s;
    case DocumentState::unreadable:
        return u"Nicht lesbar"_s;
    case DocumentState::missing:
        return u"Datei fehlt"_s;
    case DocumentState::applied:
        return u"Übernommen"_s;
    }
    return {};
}

QVariant DocumentModel::data(const QModelIndex& index, int role) const {
    const Row& row = entries_[static_cast<std::size_t>(index.row())].row;
    if (role == Qt::TextAlignmentRole && index.column() == amount) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role == Qt::AccessibleTextRole && index.column() == title) {
        return u"%1, %2"_s.arg(row.title, row.detail);
    }
    if (role == Qt::AccessibleTextRole && index.column() == kind && row.isKindProposed) {
        return u"%1, vorgeschlagen"_s.arg(qs(taxcore::label(*row.kind)));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case title:
        return row.title;
    case issuer:
        return row.issuer;
    case kind:
        return row.kind ? qs(taxcore::label(*row.kind)) : QString();
    case amount:
        return row.amount ? qs(taxcore::MoneyFormat::chf(*row.amount, 2, false)) : QString();
    case state:
        return stateText(row);
    default:
        return {};
    }
}

QVariant DocumentModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>((section == amount ? Qt::AlignRight : Qt::AlignLeft)
                                | Qt::AlignVCenter);
    }
    static const QStringList names{u"Titel"_s, u"Aussteller"_s, u"Art"_s, u"Betrag"_s, u"Stand"_s};
    return role == Qt::DisplayRole ? QVariant(names.value(section)) : QVariant();
}

} // namespace fiscarel::pages
