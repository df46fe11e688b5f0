#pragma once

#include "Fiscarel_SG/pages/account/CloudPanel.h"

class QLabel;
class QTimer;

namespace fiscarel::pages {

class AskedField;
class ServerChoice;

/// Nobody is signed in: what the backup is, and the address.
class AddressPanel final : public CloudPanel {
    Q_OBJECT

  public:
    AddressPanel(CloudService& service, QWidget* parent);

    void follow() override;
    void takeKeyboard() override;

  private:
    void explain();
    void request();

    AskedField* address_;
    ServerChoice* server_;
};

/// A code was sent: it is waited for.
class CodePanel final : public CloudPanel {
    Q_OBJECT

  public:
    CodePanel(CloudService& service, QWidget* parent);

    void follow() override;
    void takeKeyboard() override;

  private:
    void verify();
    void sendAgain();

    AskedField* code_;
    QPushButton* again_;
    QPushButton* back_;
    QTimer* pause_; ///< until a code can be sent again
};

} // namespace fiscarel::pages
