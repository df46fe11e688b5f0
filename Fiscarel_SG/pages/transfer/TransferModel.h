#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/outputs/TransferList.h"
#endif

#include <QAbstractTableModel>
#include <QString>
#include <cstddef>
#include <string>
#include <vector>

namespace fiscarel::pages {

/// The transfer list as the table shows it: headings of forms and parts, rows, what is to be
/// cleared in the authority's program, and what stands on no form.
class TransferModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { tick, ziffer, label, canton, copyCanton, federal, copyFederal, columns };

    /// What of the list is shown.
    struct Filter {
        bool openOnly = false;
        std::string form; ///< empty: all forms

        bool operator==(const Filter&) const = default;
    };

    explicit TransferModel(QObject* parent) : QAbstractTableModel(parent) {}

    /// `notTransferred`: the names of its entries, in their order.
    void show(outputs::TransferList list, std::vector<QString> notTransferred,
              const Filter& filter);
    const outputs::TransferList& list() const noexcept { return list_; }

    /// The row of the list that a line of the table shows; null for headings and the like.
    const outputs::TransferRow* rowAt(int line) const;
    const outputs::GoneRow* goneAt(int line) const;
    const outputs::NotTransferred* notTransferredAt(int line) const;
    bool isHeading(int line) const;
    /// Whether the value is a text, which may take the place of the federation's column too; it is
    /// copied behind that.
    bool isWide(int line) const;
    /// Which line shows the row of a key; -1: none.
    int lineOf(const std::string& key) const;
    /// What is copied at an index; empty where there is nothing.
    QString copiedAt(const QModelIndex& index) const;
    /// Says «kopiert» at an index, or nowhere.
    void setCopied(const QModelIndex& index);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    /// The user ticks a row.
    void ticked(int line, bool checked);

  private:
    struct Line {
        enum class Kind { form, part, row, gone, none };

        Kind kind = Kind::row;
        QString text;       ///< of a heading
        std::size_t at = 0; ///< in its list

        bool operator==(const Line&) const = default;
    };

    void addRows(std::vector<Line>& lines, const Filter& filter) const;
    std::vector<Line> linesOf(const Filter& filter) const;
    QVariant headingData(const Line& line, int column, int role) const;
    QVariant rowData(const outputs::TransferRow& row, const QModelIndex& index, int role) const;
    QVariant otherData(const Line& line, int column, int role) const;
    QString textOf(const outputs::TransferRow& row, const QModelIndex& index) const;

    outputs::TransferList list_;
    std::vector<QString> notTransferred_;
    std::vector<Line> lines_;
    QPersistentModelIndex copied_;
};

} // namespace fiscarel::pages
