#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <string>
#include <vector>

namespace fiscarel::pages {

class DoorList;

/// What stands on the input pages and what is open there; each row leads to its page.
class ProgressCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit ProgressCard(QWidget* parent);

    void refresh(const taxcore::TaxCase& taxCase, const std::vector<taxcore::Notice>& notices);

  Q_SIGNALS:
    void pageWanted(const QString& id);

  private:
    DoorList* pages_;
    std::vector<std::string> ids_;
};

} // namespace fiscarel::pages
