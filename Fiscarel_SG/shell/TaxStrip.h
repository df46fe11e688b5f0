#pragma once

#include <QPushButton>

class QLabel;

namespace fiscarel::shell {

class TaxBar;

/// The tax bar in one line, for windows too narrow for it: the total and its change. Checked while
/// the bar is open above it.
class TaxStrip final : public QPushButton {
    Q_OBJECT

  public:
    /// Follows a bar.
    TaxStrip(const TaxBar& bar, QWidget* parent);

    QSize sizeHint() const override;

  private:
    void refresh();

    const TaxBar& bar_;
    QLabel* name_;
    QLabel* total_;
    QLabel* change_;
    QLabel* more_;
};

} // namespace fiscarel::shell
