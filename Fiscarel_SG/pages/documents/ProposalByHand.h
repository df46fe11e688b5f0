#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/store/StoredDocument.h"
#endif

#include <QWidget>

class QVBoxLayout;

namespace fiscarel::pages {

class ProposalDesk;

/// In the place of proposals where there are none: what was read, and doors to where the amounts
/// are entered by hand.
class ProposalByHand final : public QWidget {
    Q_OBJECT

  public:
    /// `desk` must outlive it.
    ProposalByHand(ProposalDesk& desk, QWidget* parent);

    /// Offers the doors for a kind of document.
    void showKind(StoredDocument::Kind kind);

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  private:
    void sayWhatWasRead();

    ProposalDesk& desk_;
    QVBoxLayout* column_;
    QWidget* doors_ = nullptr;
};

} // namespace fiscarel::pages
