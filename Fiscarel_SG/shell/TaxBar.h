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

    void refresh();
    /// The change is counted from the figures of now.
    void beginPage();

  Q_SIGNALS:
    void reasonWanted(const QString& code);
    void pageWanted(const QString& id);

  private:
    struct Row {
        QPushButton* name = nullptr;
        QLabel* amount = nullptr;
        std::string code;
    };

    void addRow(const QString& name);
    void setRow(std::size_t index, const QString& name, const QString& amount, std::string code);
    std::optional<taxcore::Decimal> total() const;

    AppStore& store_;
    QLabel* total_;
    QLabel* totalName_;
    QLabel* change_;
    QLabel* marginal_;
    QVBoxLayout* column_;
    std::vector<Row> rows_;
    std::optional<taxcore::Decimal> atPageStart_;
};

} // namespace fiscarel::shell
