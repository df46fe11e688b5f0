#pragma once

#include <QString>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace fiscarel::forms {
class InputLine;
}

namespace fiscarel::pages {

/// A line that the user is asked to fill, with what it is called above it, the button that hands it
/// in beside it and what is wrong with it below. The Enter key presses the button.
class AskedField final : public QWidget {
    Q_OBJECT

  public:
    /// Takes the line. `name` is that of the button.
    AskedField(const QString& label, forms::InputLine* line, const QString& answer,
               const char* name, QWidget* parent);

    QString text() const;
    /// Wrong as it stands; empty for nothing. What was typed stays.
    void setProblem(const QString& sentence);
    /// While an answer is waited for nothing can be typed; the keyboard stays.
    void setWaiting(bool isWaiting);
    void takeKeyboard();

  Q_SIGNALS:
    void handedIn();

  private:
    void handIn();

    forms::InputLine* line_;
    QPushButton* answer_;
    QLabel* problem_;
};

} // namespace fiscarel::pages
