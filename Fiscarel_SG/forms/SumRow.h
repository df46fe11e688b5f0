#pragma once

#include <QStringList>
#include <QWidget>

namespace fiscarel::forms {

class RecordTable;

/// The line below a table with the sum of each column that has one, under that column wherever it
/// is scrolled to.
class SumRow final : public QWidget {
    Q_OBJECT

  public:
    /// The table outlives it.
    SumRow(const RecordTable& table, QWidget* parent);

    /// By column; empty where there is no sum.
    void setSums(const QStringList& sums);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintSum(QPainter& painter, int column) const;

    const RecordTable& table_;
    QStringList sums_;
};

} // namespace fiscarel::forms
