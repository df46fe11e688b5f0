#pragma once

#include <QFrame>
#include <QPointer>
#include <QTimer>
#include <functional>

class QLabel;
class QPushButton;

namespace fiscarel::look {

/// A short message that floats above the lower edge of a widget for a few seconds and moves
/// nothing; pages below it can be scrolled free of it meanwhile. Screen readers are told. It may
/// offer an answer, which the tabulator reaches from where the keyboard is.
class Toast final : public QFrame {
    Q_OBJECT

  public:
    /// `room` is what it floats over and belongs to.
    explicit Toast(QWidget* room);

    void say(const QString& text);
    /// The same with a button: `act` is called when it is chosen. Stays longer, and while the
    /// keyboard or the mouse is on it.
    void offer(const QString& text, const QString& answer, std::function<void()> act);
    /// Takes an offer away that no longer holds; a message without one stays.
    void withdraw();
    /// Puts the answer into the order of the tabulator: behind what has the keyboard when this is
    /// first called for it.
    void joinKeyboardOrder();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void show(const QString& text, int milliseconds);
    void place();
    void rise();
    void keepPagesFree(int height);
    /// The keyboard goes back to where it was.
    void leave();
    void choose();
    void timeUp();

    QLabel* text_;
    QPushButton* answer_;
    std::function<void()> act_; ///< empty: nothing is offered
    QPointer<QWidget> before_;  ///< what had the keyboard before the answer
    QTimer gone_;
};

} // namespace fiscarel::look
