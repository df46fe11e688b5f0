#pragma once

#include <QFrame>
#include <QString>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fiscarel::pages {

/// A card with a heading, a line of help and a column of content.
class CardFrame : public QFrame {
    Q_OBJECT

  public:
    /// `help` may be empty.
    CardFrame(const QString& title, const QString& help, QWidget* parent);

    QVBoxLayout& column() noexcept { return *column_; }
    void setTitle(const QString& title);

  protected:
    static constexpr int inset = 8; ///< of texts, as far as the title of a row from its edge

    /// Text that wraps, at the end of the card.
    QLabel* addText(const QString& text, const char* role);
    /// A button that looks like a link, at the end of the card.
    QPushButton* addLink(const QString& text, const QString& name);
    /// A widget as far in as the texts; rows that are doors reach further out.
    void addInset(QWidget* widget, Qt::Alignment alignment = {});
    void addLine();

  private:
    QVBoxLayout* column_;
    QLabel* title_;
};

} // namespace fiscarel::pages
