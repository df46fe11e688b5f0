#include "tests/documents/corpus/kit/Paper.h"

#include <QFontMetricsF>

namespace corpus {
namespace {

constexpr double millimetresPerPoint = 25.4 / 72;

QFont fontOf(const Type& type, const QString& family, double pixels) {
    QFont font(type.family.isEmpty() ? family : type.family);
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setBold(type.bold);
    font.setItalic(type.italic);
    return font;
}

} // namespace

void Paper::newPage(bool landscape) {
    pages_.push_back({landscape, {}});
    y = 20;
}

QSizeF Paper::pageSize(int page) const {
    return pages_[static_cast<size_t>(page)].landscape ? QSizeF(297, 210) : QSizeF(210, 297);
}

void Paper::put(double x, double baseline, const QString& text, const Type& type) {
    Type set = type;
    if (set.family.isEmpty()) {
        set.family = family;
    }
    if (!text.isEmpty()) {
        pages_.back().marks.push_back({text, set, QRectF(x, baseline, 0, 0), type.colour});
    }
}

void Paper::fill(double x, double top, double width, double height, const QColor& colour) {
    pages_.back().marks.push_back({{}, {}, QRectF(x, top, width, height), colour});
}

void Paper::line(double x1, double y1, double x2, double y2, double width) {
    const bool level = y1 == y2;
    fill(level ? x1 : x1 - width / 2, level ? y1 - width / 2 : y1, level ? x2 - x1 : width,
         level ? width : y2 - y1);
}

void Paper::box(double x, double top, double width, double height, double pen) {
    line(x, top, x + width, top, pen);
    line(x, top + height, x + width, top + height, pen);
    line(x, top, x, top + height, pen);
    line(x + width, top, x + width, top + height, pen);
}

double Paper::width(const QString& text, const Type& type) const {
    constexpr double reference = 200;
    const QFontMetricsF metrics(fontOf(type, family, reference));
    return metrics.horizontalAdvance(text) * type.size * millimetresPerPoint / reference;
}

Type Paper::fitted(const QString& text, Type type, double limit) const {
    constexpr double smallest = 5.5;
    while (type.size > smallest && width(text, type) > limit) {
        type.size -= 0.25;
    }
    return type;
}

void Paper::lineOf(const QString& text, const Type& type) {
    y += type.size * millimetresPerPoint * leading;
    const double x = type.align == Align::right    ? right
                     : type.align == Align::centre ? (left + right) / 2
                                                   : left;
    put(x, y, text, type);
}

QStringList Paper::wrapped(const QString& text, const Type& type, double limit) const {
    QStringList lines;
    QString current;
    for (const QString& word : text.split(' ')) {
        const QString longer = current.isEmpty() ? word : current + " " + word;
        if (!current.isEmpty() && width(longer, type) > limit) {
            lines += current;
            current = word;
        } else {
            current = longer;
        }
    }
    lines += current;
    return lines;
}

void Paper::paragraph(const QString& text, const Type& type, double limit) {
    for (const QString& part : wrapped(text, type, limit > 0 ? limit : right - left)) {
        lineOf(part, type);
    }
}

void Paper::row(const QStringList& cells, const std::vector<Column>& columns, const Type& type) {
    y += type.size * millimetresPerPoint * leading;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        Type cell = type;
        const Column& column = columns[static_cast<size_t>(i)];
        cell.align = column.align;
        put(column.x, y, cells[i], cell);
    }
}

void Paper::entry(const QString& label, const QString& value, const Type& type, bool dotted) {
    row({label, value}, {{left}, {right, Align::right}}, type);
    if (dotted) {
        const double dot = width(".", type);
        const double from = left + width(label, type) + 2;
        const double until = right - width(value, type) - 2;
        const int count = static_cast<int>((until - from) / dot);
        put(from, y, QString(std::max(0, count), '.'), type);
    }
}

void Paper::rule(double width) {
    y += 1.5;
    line(left, y, right, y, width);
}

void Paper::draw(int page, QPainter& painter, double scale) const {
    for (const Mark& mark : pages_[static_cast<size_t>(page)].marks) {
        if (mark.text.isEmpty()) {
            painter.fillRect(QRectF(mark.place.topLeft() * scale, mark.place.size() * scale),
                             mark.colour);
            continue;
        }
        const double pixels = mark.type.size * millimetresPerPoint * scale;
        painter.setFont(fontOf(mark.type, family, pixels));
        painter.setPen(mark.colour);
        const double advance =
            QFontMetricsF(painter.font(), painter.device()).horizontalAdvance(mark.text);
        const double shift = mark.type.align == Align::right    ? advance
                             : mark.type.align == Align::centre ? advance / 2
                                                                : 0;
        painter.save();
        painter.translate(mark.place.topLeft() * scale);
        painter.rotate(mark.type.turn);
        painter.drawText(QPointF(-shift, 0), mark.text);
        painter.restore();
    }
}

QStringList Paper::texts(int page) const {
    QStringList texts;
    for (const Mark& mark : pages_[static_cast<size_t>(page)].marks) {
        if (!mark.text.isEmpty()) {
            texts += mark.text;
        }
    }
    return texts;
}

QRectF Paper::inkOf(const Mark& mark) const {
    constexpr double reference = 200;
    const QFontMetricsF metrics(fontOf(mark.type, family, reference));
    const double scale = mark.type.size * millimetresPerPoint / reference;
    const double advance = metrics.horizontalAdvance(mark.text) * scale;
    const double shift = mark.type.align == Align::right    ? advance
                         : mark.type.align == Align::centre ? advance / 2
                                                            : 0;
    const QRectF ink = metrics.tightBoundingRect(mark.text);
    return {mark.place.x() - shift, mark.place.y() + ink.top() * scale, advance,
            ink.height() * scale};
}

QStringList Paper::clashes(int page) const {
    constexpr double touch = 0.3; // less than this hides no stroke of a letter
    constexpr double apart = 1;   // less than this on a line reads as one word
    const QRectF sheet(QPointF(3, 3), pageSize(page) - QSizeF(6, 6));
    std::vector<std::pair<QRectF, const Mark*>> inks;
    std::vector<const Mark*> fills;
    QStringList found;
    for (const Mark& mark : pages_[static_cast<size_t>(page)].marks) {
        if (mark.text.isEmpty()) {
            for (const auto& [ink, below] : inks) {
                if (mark.place.intersects(ink.adjusted(touch, touch, -touch, -touch))) {
                    found += below->text + " covered";
                }
            }
            fills.push_back(&mark);
            continue;
        }
        if (mark.type.turn != 0 || mark.text.trimmed().isEmpty()) {
            continue;
        }
        const QRectF ink = inkOf(mark);
        if (!sheet.contains(ink)) {
            found += mark.text + " beyond the edge";
        }
        for (const auto& [other, earlier] : inks) {
            const double level =
                std::min(ink.bottom(), other.bottom()) - std::max(ink.top(), other.top());
            const double gap =
                std::max(ink.left(), other.left()) - std::min(ink.right(), other.right());
            const bool sameLine = qAbs(mark.place.y() - earlier->place.y()) < touch;
            if (level > touch && gap < (sameLine ? apart : -touch)) {
                found += earlier->text + " / " + mark.text;
            }
        }
        for (const Mark* fill : fills) {
            const bool legible = qAbs(qGray(fill->colour.rgb()) - qGray(mark.colour.rgb())) > 100;
            if (!legible && fill->place.intersects(ink.adjusted(touch, touch, -touch, -touch))) {
                found += mark.text + " on a line or a dark ground";
            }
        }
        inks.emplace_back(ink, &mark);
    }
    return found;
}

} // namespace corpus
