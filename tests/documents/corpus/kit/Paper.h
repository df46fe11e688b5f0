#pragma once

#include <QColor>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <vector>

namespace corpus {

enum class Align { left, right, centre };

/// How a text is set; sizes in points.
struct Type {
    double size = 9.5;
    bool bold = false;
    Align align = Align::left;
    bool italic = false;
    QColor colour = Qt::black;
    QString family;  ///< empty: the paper's
    double turn = 0; ///< degrees, clockwise
};

/// A column of a table: where it stands (its right edge when aligned right), in millimetres.
struct Column {
    double x = 0;
    Align align = Align::left;
};

/// Pages as a list of what stands on them, in millimetres, so that a printer and a picture show
/// the same. A cursor `y` walks down the page for the papers that flow.
class Paper {
  public:
    QString family = "Liberation Sans";
    double left = 22;
    double right = 190;
    double y = 20;
    double leading = 1.35; ///< line height, times the size of the type

    void newPage(bool landscape = false);
    int pageCount() const { return static_cast<int>(pages_.size()); }
    QSizeF pageSize(int page) const; ///< millimetres

    void put(double x, double baseline, const QString& text, const Type& type = {});
    void line(double x1, double y1, double x2, double y2, double width = 0.2);
    void box(double x, double y, double width, double height, double pen = 0.2);
    void fill(double x, double y, double width, double height, const QColor& colour = Qt::black);

    double width(const QString& text, const Type& type = {}) const;
    /// The type, set smaller until the text fits, but never too small to read.
    Type fitted(const QString& text, Type type, double width) const;
    /// A line at the cursor; moves on.
    void lineOf(const QString& text, const Type& type = {});
    /// Wrapped text at the cursor, as wide as the margins or `width`.
    void paragraph(const QString& text, const Type& type = {}, double width = 0);
    /// Cells of a table at the cursor.
    void row(const QStringList& cells, const std::vector<Column>& columns, const Type& type = {});
    /// Label left, value right-aligned at `right`, dots between when `dotted`.
    void entry(const QString& label, const QString& value, const Type& type = {},
               bool dotted = false);
    void rule(double width = 0.2);
    void space(double millimetres) { y += millimetres; }

    /// Draws a page where one millimetre is `scale` units of the painter.
    void draw(int page, QPainter& painter, double scale) const;
    /// All texts of a page, for tests.
    QStringList texts(int page) const;
    /// Pairs of upright texts that run into or touch each other, texts that a line crosses or
    /// something covers, and texts beyond the edges, for tests.
    QStringList clashes(int page) const;

  private:
    struct Mark {
        QString text; ///< empty for a filled rectangle
        Type type;
        QRectF place; ///< of a text: its anchor
        QColor colour;
    };
    struct Page {
        bool landscape = false;
        std::vector<Mark> marks;
    };
    QRectF inkOf(const Mark& mark) const;
    QStringList wrapped(const QString& text, const Type& type, double width) const;

    std::vector<Page> pages_;
};

} // namespace corpus
