#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/RecordsView.h"
#endif

class QModelIndex;

namespace fiscarel::forms {

class DocumentClip;
class HelpButton;
class RecordModel;
class RecordTable;
class SumRow;

/// A list of records edited as a table: by keyboard, and by pasting from a spreadsheet. F1 tells
/// what belongs into the column with the keyboard.
class TableView final : public RecordsView {
    Q_OBJECT

  public:
    /// On the page of the id.
    TableView(ListCard card, AppStore& store, const std::string& pageId, QWidget* parent);

    void refresh() override;
    bool reveal(const std::string& path) override;
    void toggleHelp();
    int wishedWidth() const override;

  private:
    void addTools(QHBoxLayout& line);
    /// What can do nothing to the current row looks so.
    void refreshTools();
    void moveSelected(int by);
    void showHelp();
    void showProblem();
    void goTo(const QModelIndex& cell);
    void bringProblemInSight();
    void refreshSums();

    RecordModel* model_;
    RecordTable* table_;
    SumRow* sums_;
    QLabel* problem_;
    QLabel* help_;
    HelpButton* helpButton_;
    DocumentClip* clip_; ///< of the cell with the keyboard
    QPushButton* duplicate_ = nullptr;
    QPushButton* up_ = nullptr;
    QPushButton* down_ = nullptr;
    QPushButton* remove_ = nullptr;
};

} // namespace fiscarel::forms
