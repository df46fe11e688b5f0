#pragma once

#include "Fiscarel_SG/pages/overview/CardFrame.h"

class QHBoxLayout;

namespace fiscarel::pages {

/// A few words in the place of figures, and at most one thing to do.
class MessageCard final : public CardFrame {
    Q_OBJECT

  public:
    MessageCard(const QString& title, QWidget* parent);

    void setText(const QString& text);
    /// A button; the first one stands out.
    QPushButton* addButton(const QString& text, const QString& name);

  private:
    QLabel* text_;
    QHBoxLayout* buttons_ = nullptr;
};

} // namespace fiscarel::pages
