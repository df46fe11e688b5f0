#pragma once

#include <QLineEdit>
#include <QToolButton>
#include <functional>

namespace fiscarel::forms {

/// A small button within a line, drawn in the colour of the text.
class InputButton : public QToolButton {
  public:
    enum class Sign { calendar, list };

    InputButton(Sign sign, const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Sign sign_;
};

/// A line edit with a unit or a button at its end, that says when the keyboard comes and goes. A
/// text that is longer than the line ends in "…" while the keyboard is elsewhere.
class InputLine : public QLineEdit {
  public:
    explicit InputLine(QWidget* parent);

    void setUnit(const QString& unit);
    /// How much room units get; lines below each other have the same. Of itself as much as the
    /// longest usual one takes.
    void setUnitRoom(const QString& longest);
    /// The button at the end; owned by the line.
    void setButton(InputButton* button);
    /// Selects everything when the field is clicked or reached by Tab, as figures are mostly
    /// replaced and not corrected.
    void setSelectsAll(bool selectsAll) { selectsAll_ = selectsAll; }
    /// Marks that what stands here cannot be read.
    void setMarked(bool marked);
    /// Puts the same letters and digits in, grouped otherwise, with the cursor behind the one it
    /// stood behind.
    void regroup(const QString& grouped);
    /// Slants the hint, so that nobody takes it for an entry.
    void slantHint();

    std::function<void()> entered;       ///< the keyboard came
    std::function<void()> leaving;       ///< the keyboard went elsewhere, popups of its own aside
    std::function<bool()> escaped;       ///< Escape; true when there was something to restore
    std::function<bool()> listRequested; ///< Alt+Down or F4; true when something was opened

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void keepRoom();
    void paintCut();
    int unitWidth() const;
    QFont unitFont() const;

    QString unit_;
    QString longestUnit_ = QStringLiteral("Personen");
    InputButton* button_ = nullptr;
    bool selectsAll_ = false;
    bool selectsOnRelease_ = false;
    bool marked_ = false;
};

} // namespace fiscarel::forms
