#pragma once

#include "Fiscarel_SG/pages/account/CloudPanel.h"

namespace fiscarel::pages {

class AskedField;

/// A further machine: the account's recovery key is asked for.
class JoinPanel final : public CloudPanel {
    Q_OBJECT

  public:
    JoinPanel(CloudService& service, QWidget* parent);

    void follow() override;
    void takeKeyboard() override;

  private:
    void addWayOut();
    void join();
    void beginAnew();

    AskedField* key_;
    QPushButton* lost_;
    QPushButton* leave_;
    QWidget* wayOut_;
    QPushButton* anew_ = nullptr;
};

} // namespace fiscarel::pages
