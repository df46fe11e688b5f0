#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/cloud/CloudService.h"
#endif

#include <QFrame>

class QLabel;
class QPushButton;

namespace fiscarel::pages {

/// Asks before one side takes much away from the other. Hidden while there is no question.
class QuestionCard final : public QFrame {
    Q_OBJECT

  public:
    /// `service` must outlive it.
    QuestionCard(CloudService& service, QWidget* parent);

    void follow();

  private:
    CloudService& service_;
    QLabel* title_;
    QLabel* text_;
    QLabel* outcome_;
    QPushButton* keep_;
    QPushButton* take_;
};

} // namespace fiscarel::pages
