#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/Page.h"
#endif

#include <QAbstractTableModel>
#include <QString>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

/// The records of a list as rows, their fields as columns. Behind the last record stands an empty
/// row: writing into it makes a new record. Reads from the store and writes to it; each cell
/// written and each paste is undone as one.
class RecordModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The card outlives the model.
    RecordModel(const ListCard& card, AppStore& store, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Writes a cell from its text, or a box from its state; false, with the problem told, when it
    /// cannot be read. The same text again writes nothing.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// What a choice holds, as it stands in the case.
    static constexpr int rawRole = Qt::UserRole;

    /// What the empty row says in its first column.
    static QString invitation();
    /// The field of a column, bound to the first record, with the options of the case.
    const BoundField& column(int index) const { return columns_[static_cast<std::size_t>(index)]; }
    /// Why what was last written could not be read, in German; empty when it could.
    const QString& problem() const noexcept { return problem_; }
    /// Writes cells from a text of lines and tabs, as spreadsheets copy them, from a cell on; new
    /// rows as needed, 2’000 at most. What cannot be read stays as it was; that, and what was too
    /// much, is told as the problem.
    void paste(const QModelIndex& from, const QString& text);
    /// The entries changed.
    void reload();

  Q_SIGNALS:
    void problemChanged();

  private:
    std::size_t records() const;
    QVariant emptyRow(const QModelIndex& index, int role) const;
    void writeCell(TaxCase& taxCase, std::size_t row, int column, const Value& value) const;
    void learnColumns();
    /// What choices offer follows the case.
    void nameOptions();
    void tell(const QString& problem);

    const ListCard& card_;
    AppStore& store_;
    std::vector<BoundField> columns_;
    std::vector<Value> usualChoices_; ///< of a new record, by column; absent for other fields
    std::size_t shownRecords_ = 0;
    QString problem_;
};

} // namespace fiscarel::forms
