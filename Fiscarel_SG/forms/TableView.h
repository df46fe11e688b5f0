#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/CardView.h"
#endif

#include <QAbstractTableModel>

class QTableView;

namespace fiscarel::forms {

/// The records of a list as rows, their fields as columns. Behind the last record stands an empty
/// row: writing into it makes a new record.
class RecordModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    RecordModel(const ListCard& card, AppStore& store, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    const BoundField& column(int index) const { return columns_[static_cast<std::size_t>(index)]; }
    /// What could not be read when text was last written; empty when it could.
    const QString& problem() const noexcept { return problem_; }
    /// Writes cells from a text of lines and tabs, as spreadsheets copy them, from a cell on; new
    /// rows as needed. What cannot be read stays as it was and is counted.
    int paste(const QModelIndex& from, const QString& text);
    /// The entries changed.
    void reload();

  private:
    std::size_t records() const;
    QVariant emptyRow(const QModelIndex& index, int role) const;
    /// A cell's text as a value; absent, with the problem set, when it cannot be read.
    std::optional<Value> read(const BoundField& field, const QString& text);
    void writeCell(TaxCase& taxCase, std::size_t row, int column, const Value& value) const;

    const ListCard& card_;
    AppStore& store_;
    std::vector<BoundField> columns_;
    std::size_t shownRecords_ = 0;
    QString problem_;
};

/// A list of records edited as a table: by keyboard, and by pasting from a spreadsheet.
class TableView final : public CardView {
    Q_OBJECT

  public:
    TableView(ListCard card, AppStore& store, const EditorContext& context, QWidget* parent);

    void refresh() override;
    bool reveal(const std::string& path) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void removeSelected();
    void duplicateSelected();
    void moveSelected(int by);
    void beginRecord();
    void showRows();
    int currentRecord() const;

    const ListCard card_;
    RecordModel* model_;
    QTableView* table_;
    QLabel* total_;
    QLabel* problem_;
};

} // namespace fiscarel::forms
