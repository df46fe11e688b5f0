#pragma once

#include <QTableView>
#include <cstddef>
#include <optional>

namespace fiscarel::forms {

class RecordModel;

/// The grid of a table of records, edited by the keyboard: the tabulator goes from cell to cell and
/// leaves the grid behind the last and before the first one; what spreadsheets copy is pasted over
/// cells, also while one of them is being edited.
class RecordTable final : public QTableView {
    Q_OBJECT

  public:
    /// The model outlives the table.
    RecordTable(RecordModel& model, QWidget* parent);

    /// Puts the keyboard into the empty row; with the first entry there a record begins.
    void beginRecord();
    /// Of the current row; absent in the empty row and without a current one.
    std::optional<std::size_t> currentRecord() const;
    /// As high as its rows, up to a limit.
    void fitHeight();
    /// With which all columns are in sight, in pixels.
    int wishedWidth() const;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  Q_SIGNALS:
    /// Another cell has the keyboard.
    void moved();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    /// Whether the next cell is beyond the grid.
    bool isAtEdge(bool next) const;
    void paste();

    class FirstColumn;

    RecordModel& model_;
    FirstColumn* firstColumn_ = nullptr;
    int wishedColumns_ = 0;
};

} // namespace fiscarel::forms
