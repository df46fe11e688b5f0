#include "Fiscarel_SG/pages/DocumentsPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Toast.h"
#include "Fiscarel_SG/pages/EnclosuresCard.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/pages/documents/DocumentList.h"
#include "Fiscarel_SG/pages/documents/IntakeCard.h"
#include "Fiscarel_SG/pages/documents/MissingCard.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

DocumentsPage::DocumentsPage(AppStore& store, DocumentDesk& desk, QWidget* parent)
    : PageWidget(parent), store_(store), desk_(desk),
      frame_(new look::PageFrame(
          u"Belege"_s,
          u"Lohnausweise, Bescheinigungen und Rechnungen als PDF oder Foto. Sie bleiben auf diesem "
          "Computer."_s,
          this)),
      intake_(new IntakeCard(store, desk, this)), list_(new DocumentList(store, desk, this)),
      missing_(new MissingCard(store, desk.readings(), this)),
      enclosures_(new EnclosuresCard(store, desk.readings(), this)), toast_(new look::Toast(this)) {
    setAcceptDrops(true);
    for (QWidget* const card :
         std::initializer_list<QWidget*>{intake_, list_, missing_, enclosures_}) {
        frame_->column().addWidget(card);
    }
    frame_->column().addStretch(1);
    connect(enclosures_, &EnclosuresCard::fieldWanted, this, &DocumentsPage::fieldWanted);
    connect(list_, &DocumentList::documentWanted, this,
            [this](const taxcore::Uuid& id) { Q_EMIT documentWanted(qs(id.toString()), {}); });
    connect(list_, &DocumentList::undoOffered, this, &DocumentsPage::undoOffered);
    connect(list_, &DocumentList::told, toast_, &look::Toast::say);
    connect(list_, &DocumentList::replaceWanted, intake_, &IntakeCard::pickFiles);
    connect(list_, &DocumentList::detailsShown, frame_, &look::PageFrame::showWhole);
    constexpr int together = 100; // milliseconds, so that many readings are told at once
    read_.setSingleShot(true);
    read_.setInterval(together);
    connect(&desk.readings(), &DocumentReadings::changed, this, &DocumentsPage::readingChanged);
    connect(&read_, &QTimer::timeout, this, [this] {
        missing_->refresh();
        enclosures_->refresh();
    });
    intake_->setSlim(!store.documentsForYear().empty());
}

/// What was read tells of which kind a document is.
void DocumentsPage::readingChanged(const taxcore::Uuid& id) {
    if (!desk_.readings().progress(id) && !read_.isActive()) {
        read_.start();
    }
}

void DocumentsPage::resizeEvent(QResizeEvent* event) {
    PageWidget::resizeEvent(event);
    list_->setRoom(height());
}

void DocumentsPage::refresh() {
    intake_->setSlim(!store_.documentsForYear().empty());
    list_->refresh();
    missing_->refresh();
    enclosures_->refresh();
}

void DocumentsPage::dragEnterEvent(QDragEnterEvent* event) {
    if (IntakeCard::hasFiles(*event->mimeData())) {
        event->acceptProposedAction();
        intake_->setInvites(true);
    }
}

void DocumentsPage::dragLeaveEvent(QDragLeaveEvent* /*event*/) { intake_->setInvites(false); }

void DocumentsPage::dropEvent(QDropEvent* event) {
    intake_->setInvites(false);
    event->acceptProposedAction();
    desk_.intake().take(IntakeCard::filesOf(*event->mimeData()));
}

} // namespace fiscarel::pages
