#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#endif

#include <string>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QProgressBar;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// The lines of the return in the order of the authority's program, each to copy and to tick.
class TransferPage final : public look::PageWidget {
    Q_OBJECT

  public:
    TransferPage(AppStore& store, QWidget* parent);

    void refresh() override;
    void refreshResult() override;

  private:
    /// One line to be transferred.
    struct Row {
        std::string id; ///< as it is kept when ticked: code and value
        QString ziffer;
        QString label;
        QString person; ///< whose line it is, where each person has their own
        QString canton;
        QString federal; ///< empty where it is the same

        bool operator==(const Row&) const = default;
    };

    std::vector<Row> rowsOfResult() const;
    void rebuild();
    void addRow(const Row& row, int at);
    QWidget* makeTick(const Row& row);
    QWidget* makeLabel(const Row& row);
    QWidget* makeValue(const QString& value);
    QWidget* makeCopy(const Row& row, const QString& value);
    void showProgress();

    AppStore& store_;
    look::PageFrame* frame_;
    QLabel* progressText_;
    QProgressBar* progress_;
    QCheckBox* openOnly_;
    QWidget* table_ = nullptr;
    std::vector<Row> rows_;
    std::vector<QCheckBox*> ticks_;
    std::vector<std::vector<QWidget*>> cells_;
};

} // namespace fiscarel::pages
