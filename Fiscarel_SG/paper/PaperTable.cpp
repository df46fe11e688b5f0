#include "Fiscarel_SG/paper/PaperStrip.h"

#include <algorithm>
#include <numeric>

namespace fiscarel::paper {

using namespace outputs;

namespace {

using Weight = ReportRow::Weight;
using Kind = ReportColumn::Kind;

constexpr double columnGap = 10;
constexpr double leastAmountWidth = 58; ///< so that amounts of all tables stand below each other
constexpr double rowPadding = 2.6;
constexpr double detailPadding = 1.3;
constexpr double detailIndent = 10;
constexpr double groupSpace = 7;
constexpr double tableSpace = 9;
constexpr double hairline = 0.4;
constexpr double strongLine = 0.8;
constexpr double leastTextWidth = 96;
constexpr double mostLabelWidth = 0.24 * contentWidth;
constexpr double mostAmountsWidth = 0.72 * contentWidth;
constexpr double mostRowHeight = 260; ///< higher rows are broken

Type textType(Weight weight) {
    switch (weight) {
    case Weight::sum:
        return Type::strong;
    case Weight::group:
        return Type::group;
    case Weight::detail:
        return Type::detail;
    case Weight::plain:
        break;
    }
    return Type::body;
}

Type noteType(Weight weight) { return weight == Weight::detail ? Type::detailNote : Type::note; }

struct Column {
    Kind kind = Kind::text;
    double natural = 0; ///< of its widest text
    double left = 0;
    double width = 0;

    double right() const { return left + width; }
};

/// A page number takes this much room.
constexpr auto anyPageNumber = u"000";

double naturalWidth(const ReportCell& cell, Weight weight) {
    const QString text =
        cell.pageOf.empty() ? paperText(cell.text) : QString::fromUtf16(anyPageNumber);
    // Notes take the width they are given, unless there is nothing else.
    const Type type = text.isEmpty() ? noteType(weight) : textType(weight);
    double widest = 0;
    for (const QString& line : (text.isEmpty() ? paperText(cell.note) : text).split(u'\n')) {
        widest = std::max(widest, widthOf(type, line));
    }
    return widest;
}

/// Makes columns narrower, all in the same measure, until they fit.
void squeeze(std::vector<Column>& columns, Kind kind, double most) {
    double sum = 0;
    for (const Column& column : columns) {
        sum += column.kind == kind ? column.width : 0;
    }
    for (Column& column : columns) {
        if (column.kind == kind && sum > most) {
            column.width *= most / sum;
        }
    }
}

/// Text columns share what the others leave, by their content.
void shareRest(std::vector<Column>& columns) {
    double rest = contentWidth - columnGap * static_cast<double>(columns.size() - 1);
    double wanted = 0;
    for (const Column& column : columns) {
        rest -= column.kind == Kind::text ? 0 : column.width;
        wanted += column.kind == Kind::text ? std::max(column.natural, leastTextWidth) : 0;
    }
    if (wanted <= 0) { // nothing but short columns: the last label takes the rest
        const auto last =
            std::ranges::find(columns.rbegin(), columns.rend(), Kind::label, &Column::kind);
        if (last != columns.rend()) {
            last->width += std::max(0.0, rest);
        }
        return;
    }
    for (Column& column : columns) {
        if (column.kind == Kind::text) {
            column.width = rest * std::max(column.natural, leastTextWidth) / wanted;
        }
    }
}

std::vector<Column> columnsOf(const ReportTable& table) {
    std::vector<Column> columns;
    double texts = 0;
    double others = 0;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        Column column{.kind = table.columns[i].kind};
        if (table.hasHead) {
            column.natural = widthOf(Type::head, paperText(table.columns[i].head));
        }
        for (const ReportRow& row : table.rows) {
            if (i < row.cells.size()) {
                column.natural = std::max(column.natural, naturalWidth(row.cells[i], row.weight));
            }
        }
        column.natural += 0.5; // against rounding
        if (column.kind == Kind::amount) {
            column.natural = std::max(column.natural, leastAmountWidth);
        }
        column.width =
            column.kind == Kind::label ? std::min(column.natural, mostLabelWidth) : column.natural;
        // Two long texts beside each other each keep some room.
        column.natural = std::min(column.natural, contentWidth / 2);
        texts += column.kind == Kind::text ? 1 : 0;
        others += column.kind == Kind::number ? column.width : 0;
        columns.push_back(column);
    }
    squeeze(columns, Kind::amount, mostAmountsWidth);
    double amounts = 0;
    for (const Column& column : columns) {
        amounts += column.kind == Kind::amount ? column.width : 0;
    }
    squeeze(
        columns, Kind::label,
        std::max(leastTextWidth / 2, contentWidth - amounts - others - texts * leastTextWidth
                                         - columnGap * static_cast<double>(columns.size() - 1)));
    shareRest(columns);
    double left = 0;
    for (Column& column : columns) {
        column.left = left;
        left += column.width + columnGap;
    }
    return columns;
}

struct Line {
    QString text;
    Type type = Type::body;
    Anchor pageOf = {};
};

/// The lines of a cell, text and note.
std::vector<Line> linesOf(const ReportCell& cell, const Column& column, Weight weight) {
    const Type type = textType(weight);
    std::vector<Line> lines;
    if (!cell.pageOf.empty()) {
        lines.push_back(
            {QString(), weight == Weight::detail ? Type::detail : Type::body, cell.pageOf});
        return lines;
    }
    for (const QString& line : wrapped(type, paperText(cell.text), column.width)) {
        lines.push_back({line, type});
    }
    for (const QString& line : wrapped(noteType(weight), paperText(cell.note), column.width)) {
        lines.push_back({line, noteType(weight)});
    }
    return lines;
}

/// Takes as many lines of a cell as fit into a height and places them; the height they take.
double placeLines(Strip& strip, std::vector<Line>& lines, const Column& column, double top,
                  double most) {
    double height = 0;
    std::size_t taken = 0;
    for (; taken < lines.size(); ++taken) {
        const Line& line = lines[taken];
        const double step = leading(line.type);
        if (height > 0 && height + step > most) {
            break;
        }
        const bool onRight = column.kind == Kind::amount || column.kind == Kind::number;
        const double left = onRight ? column.right() - widthOf(line.type, line.text) : column.left;
        strip.texts.push_back({.at = QPointF(left, top + height + baseline(line.type)),
                               .text = line.text,
                               .type = line.type,
                               .pageOf = line.pageOf});
        height += step;
    }
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(taken));
    return height;
}

QString spokenRow(const ReportRow& row) {
    QStringList parts;
    for (const ReportCell& cell : row.cells) {
        if (!cell.text.empty()) {
            parts << paperText(cell.text);
        }
    }
    return parts.join(u' ');
}

/// Without the columns that have a head but nothing under it.
ReportTable withoutEmptyColumns(ReportTable table) {
    for (std::size_t i = table.columns.size(); i-- > 0 && table.hasHead;) {
        const bool isUsed = std::ranges::any_of(table.rows, [&](const ReportRow& row) {
            return i < row.cells.size()
                   && !(row.cells[i].text.empty() && row.cells[i].note.empty()
                        && row.cells[i].pageOf.empty());
        });
        if (isUsed) {
            continue;
        }
        const auto at = static_cast<std::ptrdiff_t>(i);
        table.columns.erase(table.columns.begin() + at);
        for (ReportRow& row : table.rows) {
            if (i < row.cells.size()) {
                row.cells.erase(row.cells.begin() + at);
            }
        }
    }
    return table;
}

Strip headStrip(const ReportTable& table, const std::vector<Column>& columns) {
    Strip strip{
        .spaceBefore = tableSpace, .staysWithNext = true, .kind = PaperBlock::Kind::tableHead};
    double height = 0;
    std::vector<std::vector<Line>> cells;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        auto& lines = cells.emplace_back();
        for (const QString& line :
             wrapped(Type::head, paperText(table.columns[i].head), columns[i].width)) {
            lines.push_back({line, Type::head});
        }
        height = std::max(height, leading(Type::head) * static_cast<double>(lines.size()));
    }
    for (std::size_t i = 0; i < columns.size(); ++i) { // they stand on the line
        const double own = leading(Type::head) * static_cast<double>(cells[i].size());
        placeLines(strip, cells[i], columns[i], height - own, height);
    }
    strip.height = height + 3;
    strip.rules.push_back(
        {QRectF(0, strip.height - strongLine, contentWidth, strongLine), PaperRule::Ink::strong});
    return strip;
}

/// The row as one strip, or as several when it is very high.
std::vector<Strip> rowStrips(const ReportRow& row, std::vector<Column> columns) {
    const bool isDetail = row.weight == Weight::detail;
    if (isDetail && !columns.empty()) {
        columns.front().left += detailIndent;
        columns.front().width -= detailIndent;
    }
    std::vector<std::vector<Line>> cells;
    for (std::size_t i = 0; i < columns.size() && i < row.cells.size(); ++i) {
        cells.push_back(linesOf(row.cells[i], columns[i], row.weight));
    }
    const double padding = isDetail ? detailPadding : rowPadding;
    const Type type = textType(row.weight);
    std::vector<Strip> strips;
    do {
        Strip strip{.kind = PaperBlock::Kind::row};
        double height = 0;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            // A cell of small letters stands on the same line as the others.
            const double lowered =
                cells[i].empty() ? 0 : baseline(type) - baseline(cells[i].front().type);
            height = std::max(height, lowered
                                          + placeLines(strip, cells[i], columns[i],
                                                       padding + lowered, mostRowHeight));
        }
        strip.height = height + 2 * padding;
        strips.push_back(std::move(strip));
    } while (std::ranges::any_of(cells, [](const auto& lines) { return !lines.empty(); }));
    Strip& first = strips.front();
    first.spaceBefore = row.weight == Weight::group ? groupSpace : 0;
    first.anchor = row.anchor;
    first.link = row.link;
    if (!row.code.empty()) {
        first.spots.push_back({QRectF(0, 0, contentWidth, first.height), row.code, spokenRow(row)});
    }
    if (row.weight == Weight::sum) {
        first.rules.push_back({QRectF(0, 0, contentWidth, strongLine), PaperRule::Ink::strong});
    }
    if (!isDetail) {
        Strip& last = strips.back();
        last.rules.push_back(
            {QRectF(0, last.height - hairline, contentWidth, hairline), PaperRule::Ink::light});
    }
    return strips;
}

} // namespace

void addLines(Strip& strip, Type type, const QStringList& lines, double top, double left) {
    double y = top;
    for (const QString& line : lines) {
        strip.texts.push_back(
            {.at = QPointF(left, y + baseline(type)), .text = line, .type = type});
        y += leading(type);
    }
    strip.height = std::max(strip.height, y);
}

std::vector<Strip> tableStrips(const ReportTable& whole) {
    std::vector<Strip> strips;
    const ReportTable table = withoutEmptyColumns(whole);
    if (table.rows.empty() || table.columns.empty()) {
        return strips;
    }
    std::size_t group = 0; ///< where the group of the row begins, from 1
    const std::vector<Column> columns = columnsOf(table);
    if (table.hasHead) {
        strips.push_back(headStrip(table, columns));
    }
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const ReportRow& row = table.rows[i];
        const bool sumFollows =
            i + 1 < table.rows.size() && table.rows[i + 1].weight == Weight::sum;
        const bool lastFollows =
            i + 2 == table.rows.size() && table.rows[i + 1].weight == Weight::plain;
        std::vector<Strip> parts = rowStrips(row, columns);
        const bool isFirst = i == 0 && table.rows.size() > 1; // no row stands alone under the head
        parts.back().staysWithNext =
            row.weight == Weight::group || sumFollows || lastFollows || isFirst;
        group = row.weight == Weight::group    ? strips.size() + 1
                : row.weight == Weight::detail ? group
                                               : 0;
        for (Strip& part : parts) {
            part.headBefore = table.hasHead ? strips.size() : 0;
            part.groupBefore = group > 0 ? strips.size() + 1 - group : 0;
            strips.push_back(std::move(part));
        }
    }
    if (!table.hasHead) {
        strips.front().spaceBefore = tableSpace;
    }
    return strips;
}

} // namespace fiscarel::paper
