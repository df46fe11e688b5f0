#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

class QVBoxLayout;

namespace fiscarel::pages {

class DoorRow;

/// What a row of a list shows.
struct RowContent {
    QString name; ///< of the widget, for finding it; may be empty
    QString title;
    QString detail; ///< small, under the title; may be empty
    QStringList figures;
    const char* figureRole = "figure"; ///< of the last figure
    bool isDoor = true;
    QString action; ///< what a screen reader says it does
    QColor marker;  ///< invalid: none
    QString sign;   ///< beside the marker

    bool operator==(const RowContent&) const = default;
};

/// Rows under each other. Those that stay are kept when others come, so that the keyboard stays
/// where it is.
class DoorList final : public QWidget {
    Q_OBJECT

  public:
    /// `columns`: the least widths of the columns of figures.
    DoorList(std::vector<int> columns, QWidget* parent);

    /// Names of the columns, above them.
    void setHeader(const QString& title, const QStringList& figures);
    void setRows(std::vector<RowContent> rows);

  Q_SIGNALS:
    /// The user opened the row at a position.
    void chosen(int index);

  private:
    std::vector<int> columns_;
    QVBoxLayout* column_;
    DoorRow* header_ = nullptr;
    std::vector<DoorRow*> rows_;
    std::vector<RowContent> shown_;
};

} // namespace fiscarel::pages
