#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/account/CloudPanel.h"
#include "Fiscarel_SG/paper/PaperDocument.h"
#endif

class QLabel;

namespace fiscarel::pages {

class AskedField;

/// The new recovery key: first it is shown, to be printed or written down; then it is typed back
/// from there, without being seen.
class NewKeyPanel final : public CloudPanel {
    Q_OBJECT

  public:
    NewKeyPanel(CloudService& service, QWidget* parent);

    void follow() override;
    void takeKeyboard() override;

  private:
    void addKey();
    void addCheck();
    void addCancel(QHBoxLayout& line);
    void showStep(bool isCheck);
    void copy();
    void print();
    void save();
    void confirm();
    void tell(const QString& sentence, const char* role);
    paper::PaperDocument sheet() const;

    QWidget* shownPart_;
    QWidget* checkPart_;
    QLabel* message_ = nullptr;
    QPushButton* next_ = nullptr;
    AskedField* typed_ = nullptr;
};

} // namespace fiscarel::pages
