#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QPushButton;
class QVBoxLayout;
class QScrollArea;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::shell {

/// "Warum?": how a line or a figure came about, step by step, with the law. Entries and other lines
/// lead on.
class ReasonDialog final : public QDialog {
    Q_OBJECT

  public:
    ReasonDialog(AppStore& store, QWidget* parent);

    /// Shows the derivation of a line's code or a figure of the bill; false when there is none.
    bool explain(const std::string& code);

  Q_SIGNALS:
    void fieldWanted(const QString& path);

  private:
    AppStore& store_;
    QLabel* title_;
    QScrollArea* scroll_;
    QPushButton* close_ = nullptr;
};

} // namespace fiscarel::shell
