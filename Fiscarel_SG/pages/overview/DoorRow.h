#pragma once

#include <QPushButton>
#include <QString>
#include <QStringList>
#include <vector>

class QLabel;
class QHBoxLayout;

namespace fiscarel::pages {

/// A row of a list: a title with a line below it and figures in columns. As a door the whole row is
/// a button; else it only shows.
class DoorRow final : public QPushButton {
    Q_OBJECT

  public:
    /// `columns`: the least widths of the columns of figures.
    DoorRow(const std::vector<int>& columns, QWidget* parent);

    /// A coloured square before the title and the sign it goes by without colour.
    void setMarker(const QColor& color, const QString& sign);
    void setTitle(const QString& title);
    /// Small text under the title; empty for none.
    void setDetail(const QString& detail);
    void setFigures(const QStringList& figures);
    /// The role of a figure, for the style sheet.
    void setFigureRole(std::size_t column, const char* role);
    void setTitleRole(const char* role);
    void setDoor(bool isDoor);
    /// What a screen reader says behind the row's texts: "Herkunft zeigen".
    void setAction(const QString& action);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    void nameIt();

    QHBoxLayout* line_;
    QLabel* marker_ = nullptr;
    QLabel* sign_ = nullptr;
    QLabel* title_;
    QLabel* detail_;
    std::vector<QLabel*> figures_;
    QString action_;
};

} // namespace fiscarel::pages
