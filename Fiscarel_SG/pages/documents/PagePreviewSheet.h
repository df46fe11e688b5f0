#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/documents/Proposal.h"
#endif

#include <QImage>
#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

namespace fiscarel::pages {

/// A recognised value on a page.
struct PreviewMark {
    int id = 0;
    int page = 0; ///< from 1
    PageBox box;
    QString name; ///< what a pointer over it is told
    Proposal::Confidence confidence = Proposal::Confidence::low;
};

/// One page of a document on the screen with the marks on it; until its picture is there, an empty
/// sheet of its shape.
class PagePreviewSheet final : public QWidget {
    Q_OBJECT

  public:
    PagePreviewSheet(int page, QWidget* parent);

    int page() const noexcept { return page_; }
    /// Pixels of the widest picture asked for so far; 0: none.
    int asked() const noexcept { return asked_; }
    void setAsked(int width) { asked_ = width; }
    /// A null picture: the page cannot be shown, unless a picture is there already.
    void setImage(const QImage& image);
    void setMarks(std::vector<PreviewMark> marks);
    /// The mark that stands out; -1: none.
    void emphasise(int id);
    /// A place without a mark that stands out.
    void setPlace(const std::optional<PageBox>& place);
    /// Its width in pixels; the height follows. Height for a width of 1 as in `shape`.
    void setSheetWidth(int width);
    /// Height by width; of an A4 page until the picture is there.
    double shape() const noexcept { return shape_; }
    void setShape(double shape);
    /// Where a box lies, pixels.
    QRect placeOf(const PageBox& box) const;

  Q_SIGNALS:
    void markClicked(int id);
    /// The picture has another shape than was supposed.
    void shapeFound();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    const PreviewMark* markAt(QPoint point) const;

    int page_;
    int asked_ = 0;
    double shape_;
    bool isUnreadable_ = false;
    QImage image_;
    QImage scaled_; ///< for the present size
    std::vector<PreviewMark> marks_;
    int emphasised_ = -1;
    std::optional<PageBox> place_;
};

} // namespace fiscarel::pages
