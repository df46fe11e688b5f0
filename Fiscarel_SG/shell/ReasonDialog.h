#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QScrollArea;

namespace taxcore {
struct DerivationStep;
}

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

    /// Fills the dialog with the derivation of a line, by its code, or of a figure of the bill;
    /// false, and nothing changes, when there is none.
    bool explain(const std::string& code);

  Q_SIGNALS:
    /// The user wants to see the entry at a path; the dialog has closed.
    void fieldWanted(const QString& path);

  private:
    bool fill(const std::string& code);
    void goOn(const std::string& code);
    void goBack();
    void connectDoor(QPushButton& door, const taxcore::DerivationStep& step);

    AppStore& store_;
    QLabel* title_;
    QScrollArea* scroll_;
    QPushButton* back_ = nullptr;
    QPushButton* close_ = nullptr;
    std::vector<std::string> way_; ///< the lines that led here; the last is shown
};

} // namespace fiscarel::shell
