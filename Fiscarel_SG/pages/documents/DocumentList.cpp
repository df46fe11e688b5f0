#include "Fiscarel_SG/pages/documents/DocumentList.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/pages/documents/DocumentDetails.h"
#include "Fiscarel_SG/pages/documents/DocumentFilter.h"
#include "Fiscarel_SG/pages/documents/DocumentTable.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int allKinds = -1;

} // namespace

DocumentList::DocumentList(AppStore& store, DocumentDesk& desk, QWidget* parent)
    : QWidget(parent), store_(store), desk_(desk), model_(new DocumentModel(store, desk, this)),
      filter_(new DocumentFilter(*model_, this)), filters_(new QWidget(this)),
      search_(new QLineEdit(filters_)), kind_(new QComboBox(filters_)),
      group_(new QComboBox(filters_)), readingLine_(new QWidget(this)), reading_(new QLabel(this)),
      waitingLine_(new QWidget(this)), waiting_(new QLabel(this)), first_(new QPushButton(this)),
      empty_(new QLabel(this)), table_(new DocumentTable(this)),
      details_(new DocumentDetails(store, desk, *model_, this)) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    QVBoxLayout& card = addCard(*outer, u"Belege dieses Jahres"_s);
    addFilters(card);
    addReadingLine(card);
    addWaitingLine(card);
    empty_->setObjectName(u"documentsEmpty"_s);
    empty_->setWordWrap(true);
    look::setRole(empty_, "faint");
    card.addWidget(empty_);
    addTable(card);
    card.addWidget(details_);
    connect(details_, &DocumentDetails::openWanted, this, &DocumentList::documentWanted);
    connect(details_, &DocumentDetails::moveWanted, this, &DocumentList::move);
    connect(details_, &DocumentDetails::replaceWanted, this, &DocumentList::replaceWanted);
    connect(details_, &DocumentDetails::removeWanted, this, &DocumentList::removeSelected);
    connect(&desk.readings(), &DocumentReadings::changed, this, [this](const Uuid& id) {
        refreshReading();
        refreshWaiting();
        if (!desk_.readings().progress(id)) {
            filterKinds();
        }
        if (const auto ids = selected(); ids.size() == 1 && ids.front() == id) {
            details_->show(ids);
        }
    });
    settled_.setSingleShot(true);
    settled_.setInterval(QApplication::doubleClickInterval());
    connect(&settled_, &QTimer::timeout, this, [this] {
        const std::vector<Uuid> now = selected();
        if (now != std::exchange(seen_, now) && details_->isVisible()) {
            Q_EMIT detailsShown(details_);
        }
    });
    refresh();
}

void DocumentList::setRoom(int height) {
    constexpr int beside = 270; // heading, filters and details
    constexpr int most = 8;
    constexpr int least = 4;
    table_->setMostLines(std::clamp((height - beside) / DocumentDelegate::rowHeight, least, most));
}

void DocumentList::addFilters(QVBoxLayout& card) {
    search_->setObjectName(u"searchDocuments"_s);
    search_->setAccessibleName(u"In Belegen suchen"_s);
    search_->setPlaceholderText(u"Suchen in Text, Titel und Aussteller"_s);
    search_->setClearButtonEnabled(true);
    kind_->setObjectName(u"filterKind"_s);
    kind_->setAccessibleName(u"Nur Belege einer Art"_s);
    kind_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    kind_->addItem(u"Alle Arten"_s, allKinds);
    group_->setObjectName(u"filterState"_s);
    group_->setAccessibleName(u"Nur Belege in einem Stand"_s);
    for (const auto& [text, group] :
         {std::pair{u"Jeder Stand"_s, DocumentFilter::Group::all},
          std::pair{u"Offen"_s, DocumentFilter::Group::open},
          std::pair{u"Übernommen"_s, DocumentFilter::Group::applied},
          std::pair{u"Nicht lesbar"_s, DocumentFilter::Group::unreadable}}) {
        group_->addItem(text, static_cast<int>(group));
    }
    auto* const line = new QHBoxLayout(filters_);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addWidget(search_, 1);
    line->addWidget(kind_);
    line->addWidget(group_);
    card.addWidget(filters_);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter_->setWords(text);
        refreshEmpty();
    });
    connect(kind_, &QComboBox::currentIndexChanged, this, [this] {
        const int kind = kind_->currentData().toInt();
        filter_->setKind(kind == allKinds ? std::optional<StoredDocument::Kind>()
                                          : static_cast<StoredDocument::Kind>(kind));
        refreshEmpty();
    });
    connect(group_, &QComboBox::currentIndexChanged, this, [this] {
        filter_->setGroup(static_cast<DocumentFilter::Group>(group_->currentData().toInt()));
        refreshEmpty();
    });
}

void DocumentList::addReadingLine(QVBoxLayout& card) {
    reading_->setObjectName(u"readingNow"_s);
    look::setRole(reading_, "faint");
    auto* const stop = new QPushButton(u"Alle abbrechen"_s, readingLine_);
    stop->setObjectName(u"cancelAllReadings"_s);
    look::setRole(stop, "link");
    auto* const line = new QHBoxLayout(readingLine_);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(reading_, 1);
    line->addWidget(stop);
    card.addWidget(readingLine_);
    connect(stop, &QPushButton::clicked, this, [this] { desk_.readings().cancelAll(); });
}

void DocumentList::addWaitingLine(QVBoxLayout& card) {
    waiting_->setObjectName(u"documentsWaiting"_s);
    first_->setObjectName(u"checkFirst"_s);
    look::setRole(first_, "link");
    auto* const line = new QHBoxLayout(waitingLine_);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(12);
    line->addWidget(waiting_);
    line->addWidget(first_);
    line->addStretch(1);
    card.addWidget(waitingLine_);
    connect(first_, &QPushButton::clicked, this, &DocumentList::checkFirst);
}

void DocumentList::addTable(QVBoxLayout& card) {
    auto* const delegate = new DocumentDelegate(*filter_, table_);
    table_->setObjectName(u"documents"_s);
    table_->setAccessibleName(u"Belege dieses Jahres"_s);
    table_->setItemDelegate(delegate);
    table_->setModel(filter_);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    card.addWidget(table_);
    connect(delegate, &DocumentDelegate::cancelWanted, this,
            [this](const Uuid& id) { desk_.readings().cancel(id); });
    connect(delegate, &DocumentDelegate::checkWanted, this, &DocumentList::documentWanted);
    connect(delegate, &DocumentDelegate::moveWanted, this, &DocumentList::move);
    connect(table_, &DocumentTable::openWanted, this, [this](const QModelIndex& index) {
        if (const auto* const row = filter_->rowAt(index.row())) {
            Q_EMIT documentWanted(Uuid(row->id));
        }
    });
    connect(table_, &DocumentTable::removeWanted, this, &DocumentList::removeSelected);
    connect(table_, &DocumentTable::renameWanted, details_, &DocumentDetails::rename);
    connect(table_, &DocumentTable::selected, this, &DocumentList::showSelected);
    connect(table_, &DocumentTable::selected, &settled_, qOverload<>(&QTimer::start));
    connect(table_, &QWidget::customContextMenuRequested, this, &DocumentList::showMenu);
}

void DocumentList::refresh() {
    const std::vector<Uuid> before = selected();
    model_->update();
    filterKinds();
    select(before);
    refreshReading();
    refreshWaiting();
    refreshEmpty();
    showSelected();
}

/// Kinds to choose from: those that are there.
void DocumentList::filterKinds() {
    std::set<StoredDocument::Kind> kinds;
    for (int line = 0; line < model_->rowCount(); ++line) {
        if (const auto kind = model_->rowAt(line)->kind) {
            kinds.insert(*kind);
        }
    }
    const int chosen = kind_->currentData().toInt();
    {
        const QSignalBlocker quiet(kind_);
        kind_->clear();
        kind_->addItem(u"Alle Arten"_s, allKinds);
        for (const StoredDocument::Kind kind : kinds) {
            kind_->addItem(qs(taxcore::label(kind)), static_cast<int>(kind));
        }
        kind_->setCurrentIndex(std::max(0, kind_->findData(chosen)));
    }
    if (kind_->currentData().toInt() != chosen) { // its last document went
        Q_EMIT kind_->currentIndexChanged(kind_->currentIndex());
    }
}

void DocumentList::refreshReading() {
    const std::size_t count = desk_.readings().count();
    readingLine_->setVisible(count > 0);
    reading_->setText(count == 1 ? u"1 Beleg wird gelesen …"_s
                                 : u"%1 Belege werden gelesen …"_s.arg(count));
}

/// Tells what is to be done next.
void DocumentList::refreshWaiting() {
    int open = 0;
    int applied = 0;
    for (int line = 0; line < model_->rowCount(); ++line) {
        const DocumentState state = model_->rowAt(line)->state;
        open += state == DocumentState::open ? 1 : 0;
        applied += state == DocumentState::applied ? 1 : 0;
    }
    waitingLine_->setVisible(open > 0);
    waiting_->setText(open == 1 ? u"1 Beleg wartet auf Ihre Prüfung."_s
                                : u"%1 Belege warten auf Ihre Prüfung."_s.arg(open));
    first_->setText(applied > 0 ? u"Nächsten prüfen …"_s
                    : open == 1 ? u"Prüfen …"_s
                                : u"Ersten prüfen …"_s);
}

/// The first one as the list is sorted; where the filters hide them all, the first there is.
void DocumentList::checkFirst() {
    const auto open = [this](const DocumentModel::Row* row) {
        if (row == nullptr || row->state != DocumentState::open) {
            return false;
        }
        const Uuid id = row->id;
        select({id});
        Q_EMIT documentWanted(id);
        return true;
    };
    for (int line = 0; line < filter_->rowCount(); ++line) {
        if (open(filter_->rowAt(line))) {
            return;
        }
    }
    for (int line = 0; line < model_->rowCount(); ++line) {
        if (open(model_->rowAt(line))) {
            return;
        }
    }
}

void DocumentList::refreshEmpty() {
    const bool isEmpty = model_->rowCount() == 0;
    const bool isShown = filter_->rowCount() > 0;
    filters_->setVisible(!isEmpty);
    table_->setVisible(isShown);
    empty_->setVisible(!isShown);
    empty_->setText(
        isEmpty ? u"Noch keine Belege für %1. Was Sie oben ablegen, steht danach hier."_s.arg(
            store_.year())
                : u"Kein Beleg entspricht der Suche und den Filtern."_s);
    if (!isShown) {
        details_->show({});
    }
}

std::vector<Uuid> DocumentList::selected() const {
    std::vector<Uuid> ids;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
        if (const auto* const row = filter_->rowAt(index.row())) {
            ids.push_back(row->id);
        }
    }
    return ids;
}

void DocumentList::select(const std::vector<Uuid>& ids) {
    if (selected() == ids) {
        return;
    }
    QItemSelection selection;
    QModelIndex first;
    for (const Uuid& id : ids) {
        const QModelIndex index = filter_->mapFromSource(model_->index(model_->lineOf(id), 0));
        if (index.isValid()) {
            selection.select(index, index);
            first = first.isValid() ? first : index;
        }
    }
    if (first.isValid()) {
        table_->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    }
    table_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect
                                                    | QItemSelectionModel::Rows);
}

void DocumentList::showSelected() { details_->show(selected()); }

void DocumentList::removeSelected() {
    const std::vector<Uuid> ids = selected();
    const auto* const first = ids.empty() ? nullptr : model_->rowAt(model_->lineOf(ids.front()));
    const QString title = first != nullptr ? first->title : QString();
    for (const Uuid& id : ids) {
        store_.deleteDocument(id);
    }
    if (ids.size() == 1) {
        Q_EMIT undoOffered(u"«%1» entfernt."_s.arg(title));
    } else if (!ids.empty()) { // each is a step of its own
        Q_EMIT told(
            u"%1 Belege entfernt. Mit Ctrl+Z lässt sich einer um den anderen zurückholen."_s.arg(
                ids.size()));
    }
}

void DocumentList::move(const Uuid& id) {
    const int line = model_->lineOf(id);
    const auto* const row = model_->rowAt(line);
    if (row == nullptr || !row->canMove) {
        return;
    }
    const int year = *row->otherYear;
    const QString title = row->title;
    store_.updateDocument(Uuid(id), [&](StoredDocument& document) { document.year = year; });
    Q_EMIT told(u"«%1» liegt jetzt im Steuerjahr %2."_s.arg(title).arg(year));
}

void DocumentList::showMenu(const QPoint& at) {
    if (selected().empty()) {
        return;
    }
    QMenu menu(this);
    for (QPushButton* const button : details_->findChildren<QPushButton*>()) {
        if (button->isVisible() && button->isEnabled()) {
            menu.addAction(button->text(), button, &QPushButton::click);
        }
    }
    menu.exec(table_->viewport()->mapToGlobal(at));
}

} // namespace fiscarel::pages
