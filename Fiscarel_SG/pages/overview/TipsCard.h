#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <vector>

class QLabel;

namespace fiscarel::pages {

class DoorList;

/// The tips that save most among those still possible.
class TipsCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit TipsCard(QWidget* parent);

    /// `tips`: the open ones first, by saving.
    void refresh(const std::vector<taxcore::Notice>& tips, int year);

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  private:
    QLabel* nothing_;
    DoorList* list_;
    QPushButton* all_ = nullptr;
    std::vector<taxcore::Notice> shown_;
};

} // namespace fiscarel::pages
