#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "TaxCore/base/Uuid.h"
#endif

#include <QTimer>

namespace fiscarel {
class AppStore;
namespace look {
class Toast;
}
} // namespace fiscarel

namespace fiscarel::pages {

class DocumentDesk;
class DocumentList;
class EnclosuresCard;
class IntakeCard;
class MissingCard;

/// The documents of the year: dropped or picked, read, looked through and taken over, and handed in
/// with the return.
class DocumentsPage final : public look::PageWidget {
    Q_OBJECT

  public:
    /// Both must outlive it.
    DocumentsPage(AppStore& store, DocumentDesk& desk, QWidget* parent);

    void refresh() override;
    void refreshResult() override {}

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void readingChanged(const taxcore::Uuid& id);

    AppStore& store_;
    DocumentDesk& desk_;
    look::PageFrame* frame_;
    IntakeCard* intake_;
    DocumentList* list_;
    MissingCard* missing_;
    EnclosuresCard* enclosures_;
    look::Toast* toast_;
    QTimer read_; ///< until the cards tell what was read
};

} // namespace fiscarel::pages
