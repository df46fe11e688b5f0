#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class QHBoxLayout;
class QScrollArea;
class QVBoxLayout;

namespace fiscarel::look {

/// Title and one line of help above a scrolling column of cards. Fills its parent, which must have
/// no layout yet.
class PageFrame final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int cardSpacing = 14; ///< between cards, pixels

    /// `help` may be empty.
    PageFrame(const QString& title, const QString& help, QWidget* parent);

    /// A column for content that is made anew at the end of the cards; `old`, what stood there
    /// before, goes. The widget that owns the column is kept in `old`.
    QVBoxLayout& renew(QWidget*& old);
    /// Where the cards go.
    QVBoxLayout& column() noexcept { return *column_; }
    /// Scrolls so that a widget within can be seen.
    void show(QWidget* widget);
    /// Scrolls so that a widget within stands at the top, so far as there is enough below it; the
    /// keyboard goes on from there.
    void showTop(QWidget* widget);
    /// Scrolls so that a part of a card, which has the keyboard, can be seen whole; of one taller
    /// than the page its beginning.
    void showWhole(QWidget* part);
    /// Lets the cards get this wide, in pixels, where the window has room; less than they are
    /// changes nothing.
    void widen(int width);
    /// Lets as much at the end be scrolled free of what floats above the lower edge, in pixels.
    void keepFree(int height);
    /// How far it is scrolled, in pixels.
    int position() const;
    /// Scrolls there once the cards have their places.
    void setPosition(int position);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void limitWidth();
    void keepInSight();
    void bringWholeInSight();

    QScrollArea* scroll_;
    QHBoxLayout* centred_;
    QVBoxLayout* column_;
    QWidget* cards_;
    int wished_ = 0; ///< width of the cards
    bool isWholeSought_ = false;
    QPointer<QWidget> sought_; ///< what is to stay in sight while the page takes its form
};

} // namespace fiscarel::look
