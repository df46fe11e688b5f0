#pragma once

#include "Fiscarel_SG/pages/account/CloudPanel.h"

class QLabel;
class QProgressBar;

namespace fiscarel::pages {

class TextRows;

/// Signed in, with the key: how the backup stands.
class ReadyPanel final : public CloudPanel {
    Q_OBJECT

  public:
    ReadyPanel(CloudService& service, QWidget* parent);

    void follow() override;
    void takeKeyboard() override;

  private:
    void addState();
    void addSpace();
    void addAccount();
    void showState();
    void showSpace();
    void showLists();
    void askForNewKey();
    void askToSignOut();

    QLabel* deletion_ = nullptr;
    QLabel* state_ = nullptr;
    QLabel* problem_ = nullptr;
    QLabel* documents_ = nullptr;
    QPushButton* check_ = nullptr;
    QWidget* spacePart_ = nullptr;
    QLabel* space_ = nullptr;
    QProgressBar* bar_ = nullptr;
    TextRows* devices_;
    TextRows* leftOut_;
    QPushButton* newKey_ = nullptr;
    QPushButton* signOut_ = nullptr;
};

} // namespace fiscarel::pages
