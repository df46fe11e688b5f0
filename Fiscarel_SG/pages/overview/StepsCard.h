#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <vector>

namespace fiscarel::pages {

/// The most urgent of what is open, each with the way there.
class StepsCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit StepsCard(QWidget* parent);

    /// `notices`: the gravest first.
    void refresh(const std::vector<taxcore::Notice>& notices);

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  private:
    void add(const taxcore::Notice& notice);

    QWidget* content_ = nullptr;
    QPushButton* all_;
    std::vector<taxcore::Notice> shown_;
};

} // namespace fiscarel::pages
