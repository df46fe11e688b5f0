#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/cloud/CloudService.h"
#endif

#include <QWidget>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace fiscarel::pages {

/// What the card of the backup shows in one phase.
class CloudPanel : public QWidget {
    Q_OBJECT

  public:
    /// `service` must outlive it.
    CloudPanel(CloudService& service, QWidget* parent);

    /// The status changed within the phase.
    virtual void follow() = 0;
    /// Puts the keyboard where the user goes on; nothing where there is nothing to do.
    virtual void takeKeyboard() {}

  protected:
    CloudService& service() const noexcept { return service_; }
    const CloudStatus& status() const { return service_.status(); }
    bool isWorking() const { return status().activity == CloudStatus::Activity::working; }
    QVBoxLayout& column() noexcept { return *column_; }
    /// A line of buttons at the end of the column, to be filled from the left.
    QHBoxLayout& addButtons();
    QPushButton* addButton(QHBoxLayout& line, const QString& text, const char* name,
                           const char* role = nullptr);

  private:
    CloudService& service_;
    QVBoxLayout* column_;
};

} // namespace fiscarel::pages
