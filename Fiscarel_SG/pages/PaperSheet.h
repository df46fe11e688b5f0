#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/paper/PaperDocument.h"
#endif

#include <QAbstractButton>
#include <QWidget>
#include <memory>
#include <vector>

namespace fiscarel::pages {

/// A line of a sheet that can be clicked or reached by the keyboard; what it says is painted by the
/// sheet under it.
class SheetDoor final : public QAbstractButton {
    Q_OBJECT

  public:
    SheetDoor(const paper::PaperSpot& spot, QWidget* sheet);

    /// Where it lies on its page, points.
    const QRectF& place() const noexcept { return place_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    QRectF place_;
};

/// One page of paper on the screen.
class PaperSheet final : public QWidget {
    Q_OBJECT

  public:
    using Document = std::shared_ptr<const paper::PaperDocument>;

    /// `page` from 0.
    PaperSheet(Document document, std::size_t page, QWidget* parent);

    /// Shows it at so many pixels for a point.
    void setScale(double scale);

  Q_SIGNALS:
    /// The line of this code was clicked.
    void lineClicked(const QString& code);
    /// A link to another place was clicked.
    void linkClicked(const QString& anchor);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    const paper::PaperLink* linkAt(QPointF point) const;

    Document document_;
    const paper::PaperPage& page_;
    double scale_ = 1;
    std::vector<SheetDoor*> doors_;
};

} // namespace fiscarel::pages
