#pragma once

#ifndef Q_MOC_RUN
#include "TaxCore/base/Decimal.h"
#endif

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::shell {

/// The live figures of the year: what is to be paid, to whom, on what, and what changed since the
/// page was opened. Every figure is a door to where it comes from.
class TaxBar final : public QWidget {
    Q_OBJECT

  public:
    TaxBar(AppStore& store, QWidget* parent);

    /// What stands at the top of the bar.
    struct Summary {
        QString name;   ///< "Steuern 2025"
        QString total;  ///< "CHF 16’384.05"; "–" when it cannot be computed
        QString change; ///< "−312 seit Öffnen dieser Seite"; empty without one
        const char* changeRole = "good";
    };
    Summary summary() const;

    void refresh();
    /// The change is counted from the figures of now.
    void beginPage();

  Q_SIGNALS:
    void reasonWanted(const QString& code);
    /// The figures are those of now.
    void refreshed();

  private:
    struct Row {
        QPushButton* name = nullptr;
        QLabel* amount = nullptr;
        std::string code;
    };

    void addRow();
    void setRow(std::size_t index, const QString& name, const QString& amount, std::string code);
    std::optional<taxcore::Decimal> total() const;

    AppStore& store_;
    QLabel* total_;
    QLabel* totalName_;
    QPushButton* why_; ///< leads to where the total comes from
    QLabel* change_;
    QLabel* marginal_;
    QLabel* taxable_; ///< heading of what is taxed
    QVBoxLayout* column_;
    std::vector<Row> rows_;
    std::optional<taxcore::Decimal> atPageStart_;
};

} // namespace fiscarel::shell
