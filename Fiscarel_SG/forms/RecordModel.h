#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/UnreadCells.h"
#endif

#include <QAbstractTableModel>
#include <QString>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

/// The records of a list as rows, their fields as columns. Behind the last record stands an empty
/// row: writing into it makes a new record. Reads from the store and writes to it; each cell
/// written and each paste is undone as one. What cannot be read stays in its cell, marked, while
/// the case keeps the former value; the store is told.
class RecordModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The card, which stands on the page of the id, outlives the model.
    RecordModel(const ListCard& card, AppStore& store, std::string pageId, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Writes a cell from its text, or a box from its state. A text that cannot be read stays in
    /// the cell. The same text again writes nothing.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// What a choice holds, as it stands in the case.
    static constexpr int rawRole = Qt::UserRole;
    /// Why what stands in a cell cannot be read, in German; invalid when it can.
    static constexpr int problemRole = Qt::UserRole + 1;

    /// What the empty row says in its first column.
    static QString invitation();
    /// The field of a column, bound to the first record, with the options of the case.
    const BoundField& column(int index) const { return columns_[static_cast<std::size_t>(index)]; }
    /// What is to be told below the table, in German, while a cell is the current one: a word on
    /// what was last written, or why a cell cannot be read; empty when there is nothing to say.
    QString problem(const QModelIndex& current) const;
    /// A cell became the current one.
    void reach(const QModelIndex& current);
    /// Gives up a text that cannot be read, for the value the cell holds. Whether there was one.
    bool dropText(const QModelIndex& index);
    /// Writes cells from a text of lines and tabs, as spreadsheets copy them, from a cell on; new
    /// rows as needed, 2’000 at most. What cannot be read stays in its cell; that, and what was too
    /// much, is told as the problem.
    void paste(const QModelIndex& from, const QString& text);
    /// The entries changed.
    void reload();

  Q_SIGNALS:
    void problemChanged();
    /// Something that cannot be read was just put into a cell.
    void textKept();

  private:
    std::size_t records() const;
    QVariant emptyRow(const QModelIndex& index, int role) const;
    QVariant unreadCell(const UnreadCells::Unread& unread, const QModelIndex& index,
                        int role) const;
    void addRecords(TaxCase& taxCase, std::size_t lastRow) const;
    void writeCell(TaxCase& taxCase, std::size_t row, int column, const Value& value) const;
    void keepText(const QModelIndex& index, const QString& text);
    void followTexts();
    void learnColumns();
    /// What choices offer follows the case.
    void nameOptions();
    void tell(const QString& sentence);

    const ListCard& card_;
    AppStore& store_;
    const int year_;
    std::vector<BoundField> columns_;
    std::vector<Value> usualChoices_; ///< of a new record, by column; absent for other fields
    std::size_t shownRecords_ = 0;
    UnreadCells unread_;
    QString told_; ///< of what was last written; empty when there is nothing to say
};

} // namespace fiscarel::forms
