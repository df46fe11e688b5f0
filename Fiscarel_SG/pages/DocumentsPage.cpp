#include "Fiscarel_SG/pages/DocumentsPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/look/Written.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/EnclosuresCard.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int titleColumn = 0;
constexpr int noteColumn = 2;

bool isOwnWords(int column) { return column == titleColumn || column == noteColumn; }

/// Lets only the user's own words be edited.
class OwnWords final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        return isOwnWords(index.column()) ? QStyledItemDelegate::createEditor(parent, option, index)
                                          : nullptr;
    }
};

} // namespace

DocumentsPage::DocumentsPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Belege"_s,
          u"Lohnausweise, Bescheinigungen und Rechnungen als PDF oder Foto. Sie bleiben auf diesem "
          "Computer."_s,
          this)),
      list_(new QTreeWidget(this)), tools_(new QWidget(this)) {
    setAcceptDrops(true);
    QVBoxLayout& drop = addCard(frame_->column(), u"Belege hinzufügen"_s,
                                u"Dateien hierher ziehen oder auswählen."_s);
    auto* const pick = new QPushButton(u"Dateien auswählen …"_s, this);
    pick->setObjectName(u"pickDocuments"_s);
    drop.addWidget(pick, 0, Qt::AlignLeft);
    QVBoxLayout& card = addCard(frame_->column(), u"Belege dieses Jahres"_s);
    list_->setObjectName(u"documents"_s);
    list_->setAccessibleName(u"Belege dieses Jahres"_s);
    list_->setHeaderLabels({u"Titel"_s, u"Art"_s, u"Notiz"_s, u"Hinzugefügt"_s});
    list_->setItemDelegate(new OwnWords(list_));
    list_->setRootIsDecorated(false);
    list_->setMinimumHeight(320);
    list_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setStretchLastSection(false);
    for (const int column : {1, 2, 3}) {
        list_->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    empty_ = &addLabel(card, u"Noch keine Belege. Was Sie ablegen, steht danach hier."_s, "faint");
    card.addWidget(list_);
    auto* const line = new QHBoxLayout(tools_);
    line->setContentsMargins(0, 0, 0, 0);
    auto* const open = new QPushButton(u"Öffnen"_s, this);
    open->setObjectName(u"openDocument"_s);
    auto* const remove = new QPushButton(u"Entfernen"_s, this);
    remove->setObjectName(u"removeDocument"_s);
    line->addWidget(open);
    line->addWidget(remove);
    auto* const note = new QLabel(u"Ein entfernter Beleg lässt sich bis zum Beenden des Programms "
                                  "mit Ctrl+Z zurückholen."_s,
                                  this);
    note->setWordWrap(true);
    look::setRole(note, "small");
    line->addSpacing(8);
    line->addWidget(note, 1);
    card.addWidget(tools_);
    const auto enableTools = [this, open, remove] {
        open->setEnabled(selectedFile().has_value());
        remove->setEnabled(selected() != nullptr);
    };
    enableTools();
    connect(list_, &QTreeWidget::currentItemChanged, this, enableTools);
    enclosures_ = new EnclosuresCard(store, this);
    frame_->column().addWidget(enclosures_);
    frame_->column().addStretch(1);
    connect(enclosures_, &EnclosuresCard::fieldWanted, this, &DocumentsPage::fieldWanted);
    connect(pick, &QPushButton::clicked, this, &DocumentsPage::pick);
    connect(open, &QPushButton::clicked, this, &DocumentsPage::openSelected);
    connect(remove, &QPushButton::clicked, this, &DocumentsPage::removeSelected);
    connect(list_, &QTreeWidget::itemActivated, this, &DocumentsPage::openSelected);
    connect(list_, &QTreeWidget::itemChanged, this, &DocumentsPage::editItem);
    refresh();
}

void DocumentsPage::refresh() {
    const QSignalBlocker quiet(list_);
    list_->clear();
    ids_.clear();
    for (const StoredDocument& document : store_.documentsForYear()) {
        const bool missing = !store_.isDemo() && !store_.fileOf(document);
        auto* const item = new QTreeWidgetItem(
            list_,
            {qs(document.title), qs(taxcore::label(document.kind)), qs(document.note),
             missing ? u"Datei fehlt"_s
                     : look::written(
                         QDateTime::fromSecsSinceEpoch(document.importedAt.seconds).date())});
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        ids_.push_back(document.id);
    }
    empty_->setVisible(ids_.empty());
    list_->setVisible(!ids_.empty());
    tools_->setVisible(!ids_.empty());
    enclosures_->refresh();
}

const taxcore::Uuid* DocumentsPage::selected() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    return row >= 0 && row < static_cast<int>(ids_.size()) ? &ids_[static_cast<std::size_t>(row)]
                                                           : nullptr;
}

void DocumentsPage::editItem(QTreeWidgetItem* item, int column) {
    const int row = list_->indexOfTopLevelItem(item);
    if (row >= 0 && isOwnWords(column)) {
        const taxcore::Uuid id = ids_[static_cast<std::size_t>(row)];
        store_.updateDocument(id, [&](StoredDocument& document) {
            (column == titleColumn ? document.title : document.note) = utf8(item->text(column));
        });
    }
}

void DocumentsPage::pick() {
    std::vector<std::filesystem::path> files;
    for (const QString& file : QFileDialog::getOpenFileNames(
             this, u"Belege auswählen"_s, QString(),
             u"Belege (*.pdf *.png *.jpg *.jpeg *.tif *.tiff *.webp *.heic);;Alle Dateien (*)"_s)) {
        files.emplace_back(utf8(file));
    }
    store_.importDocuments(files);
}

std::optional<std::filesystem::path> DocumentsPage::selectedFile() const {
    const auto* const id = selected();
    const auto found = id == nullptr
                           ? store_.documents().end()
                           : std::ranges::find(store_.documents(), *id, &StoredDocument::id);
    return found != store_.documents().end() ? store_.fileOf(*found) : std::nullopt;
}

void DocumentsPage::openSelected() {
    if (const auto file = selectedFile()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(qs(file->string())));
    }
}

void DocumentsPage::removeSelected() {
    if (const auto* id = selected()) {
        store_.deleteDocument(*id);
    }
}

void DocumentsPage::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    }
}

void DocumentsPage::dropEvent(QDropEvent* event) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            files.emplace_back(utf8(url.toLocalFile()));
        }
    }
    event->acceptProposedAction();
    store_.importDocuments(files);
}

} // namespace fiscarel::pages
