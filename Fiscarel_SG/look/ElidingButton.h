#pragma once

#include <QPushButton>

namespace fiscarel::look {

/// A button that shortens a text that has no room with an ellipsis, and then tells it whole in its
/// tool tip; its text stays the whole one.
class ElidingButton final : public QPushButton {
    Q_OBJECT

  public:
    explicit ElidingButton(QWidget* parent, const QString& text = {});

    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString shownText() const;
};

} // namespace fiscarel::look
