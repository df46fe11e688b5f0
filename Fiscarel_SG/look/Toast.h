#pragma once

#include <QLabel>
#include <QTimer>

namespace fiscarel::look {

/// A short message that floats above the lower edge of a widget for a few seconds and moves
/// nothing. Screen readers are told.
class Toast final : public QLabel {
    Q_OBJECT

  public:
    /// `room` is what it floats over and belongs to.
    explicit Toast(QWidget* room);

    void say(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();

    QTimer gone_;
};

} // namespace fiscarel::look
