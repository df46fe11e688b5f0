#pragma once

#include <QTableView>
#include <cstddef>
#include <optional>

class QScrollBar;

namespace fiscarel::forms {

class RecordModel;

/// The grid of a table of records, edited by the keyboard: the tabulator goes from cell to cell and
/// leaves the grid behind the last and before the first one; what spreadsheets copy is pasted over
/// cells, also while one of them is being edited.
class RecordTable final : public QTableView {
    Q_OBJECT

  public:
    static constexpr int rowHeight = 30;
    static constexpr int cellMargin = 8; ///< between the edge of a cell and its text

    /// The model outlives the table.
    RecordTable(RecordModel& model, QWidget* parent);

    /// Puts the keyboard into the empty row; with the first entry there a record begins.
    void beginRecord();
    /// Puts the keyboard into a cell to edit it.
    void editAt(const QModelIndex& cell);
    /// Of the current row; absent in the empty row and without a current one.
    std::optional<std::size_t> currentRecord() const;
    /// As high as its rows, up to a limit.
    void fitHeight();
    /// With which all columns are in sight, in pixels.
    int wishedWidth() const;
    /// Where the columns begin, within the table.
    int leftOfColumns() const { return viewport()->x(); }
    /// Of the first column, while it stays over the others; 0 otherwise.
    int frozenWidth() const;
    /// Scrolls the columns; to be placed below the table and what belongs to it.
    QScrollBar& columnBar() noexcept { return *columnBar_; }
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  Q_SIGNALS:
    /// Another cell has the keyboard.
    void moved();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    /// Whether the next cell is beyond the grid.
    bool isAtEdge(bool next) const;
    void paste();
    void followColumnBar();

    class FirstColumn;

    RecordModel& model_;
    FirstColumn* firstColumn_ = nullptr;
    QScrollBar* columnBar_;
    int wishedColumns_ = 0;
};

} // namespace fiscarel::forms
