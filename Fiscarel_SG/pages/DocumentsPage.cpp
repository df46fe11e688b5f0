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
    : PageWidget(parent), desk_(desk),
      frame_(new look::PageFrame(
          u"Belege"_s,
          u"Lohnausweise, Bescheinigungen und Rechnungen als PDF oder Foto. Sie bleiben auf diesem "
          "Computer."_s,
          this)),
      intake_(new IntakeCard(store, desk, this)), list_(new DocumentList(store, desk, this)),
      missing_(new MissingCard(store, this)), enclosures_(new EnclosuresCard(store, this)),
      toast_(new look::Toast(this)) {
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
}

void DocumentsPage::refresh() {
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
