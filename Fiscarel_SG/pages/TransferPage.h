#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/outputs/TransferList.h"
#endif

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QModelIndex;
class QProgressBar;
class QTableView;
class QTimer;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class TransferModel;

/// The return and its enclosures in the order of the authority's program, each field to copy and to
/// tick. Keys: Ctrl+C copies and goes on, the space bar ticks, Enter shows where a value comes
/// from.
class TransferPage final : public look::PageWidget {
    Q_OBJECT

  public:
    TransferPage(AppStore& store, QWidget* parent);

    void refresh() override;
    void refreshResult() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addHead();
    void addTable();
    void shape();
    outputs::TransferList makeList() const;
    void fillForms(const outputs::TransferList& list);
    void showProgress();
    std::vector<QString> namesOfEntries(const outputs::TransferList& list) const;
    void click(const QModelIndex& index);
    void tick(int line, bool checked);
    void copy(const QModelIndex& index);
    void copyAndGoOn();
    void openReason(int line);
    void goTo(int line, int column);
    int nextRow(int line) const;
    void print();
    std::string title() const;

    AppStore& store_;
    look::PageFrame* frame_;
    QLabel* progressText_;
    QProgressBar* progress_;
    QCheckBox* openOnly_;
    QComboBox* form_;
    QTableView* table_;
    TransferModel* model_;
    QTimer* copiedTimer_;
};

} // namespace fiscarel::pages
