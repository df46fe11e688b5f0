#include "reader/Paper.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace fiscarel::reader {

namespace {

// Paper is told from what it lies on by its edges, not by its brightness: half of a sheet in shadow
// may be darker than a table in the light, but along its edges paper is brighter than what lies
// next to it.

constexpr int coarseSide = 400; // pixels of the longer side, to find the edges
constexpr int fineSide = 1600;  // to place them

enum Side : std::uint8_t { top, right, bottom, left };
constexpr std::array sides{top, right, bottom, left};

bool isUpright(Side side) { return side == left || side == right; }

/// A picture without writing, and how it was scaled.
struct Blank {
    PixPtr grey;
    double factor = 0;

    int width() const { return widthOf(grey); }
    int height() const { return heightOf(grey); }
    double brightness(double x, double y) const {
        const int atX = std::clamp(static_cast<int>(x), 0, width() - 1);
        const int atY = std::clamp(static_cast<int>(y), 0, height() - 1);
        const l_uint32* const line =
            pixGetData(grey.get()) + std::ptrdiff_t{pixGetWpl(grey.get())} * atY;
        return GET_DATA_BYTE(line, atX);
    }
};

/// Closing with a bright brush lets the writing vanish from the paper.
Blank blankOf(const PixPtr& grey, int longest) {
    constexpr int writing = 50; // of its height in parts of the picture
    const double factor = double(longest) / std::max(widthOf(grey), heightOf(grey));
    const auto scale = static_cast<float>(factor);
    const PixPtr small(pixScale(grey.get(), scale, scale));
    const int brush = longest / writing | 1;
    return {.grey = PixPtr(small ? pixCloseGray(small.get(), brush, brush) : nullptr),
            .factor = factor};
}

/// How surely paper begins at a point of a side, from 0 to 1: by how much darker it is outside.
double edgeAt(const Blank& blank, Side side, double x, double y, double reach) {
    constexpr double clear = 0.2; // of the brightness
    constexpr double darkest = 24;
    const double dx = side == left ? reach : side == right ? -reach : 0;
    const double dy = side == top ? reach : side == bottom ? -reach : 0;
    const double inside = blank.brightness(x + dx, y + dy);
    const double outside = blank.brightness(x - dx, y - dy);
    return std::clamp((inside - outside) / (clear * std::max(inside, darkest)), 0.0, 1.0);
}

/// A straight line across the picture: where it meets the two edges that it runs between.
struct Line {
    double from = 0; ///< x at the top or y at the left
    double to = 0;   ///< x at the bottom or y at the right
    double votes = 0;

    double at(double part) const { return from + (to - from) * part; }
};

/// How surely paper begins at each pixel of a side: by steps along it, then across.
std::vector<std::vector<float>> edgesOf(const Blank& blank, Side side, int step) {
    const bool upright = isUpright(side);
    const int across = upright ? blank.width() : blank.height();
    const int along = upright ? blank.height() : blank.width();
    std::vector<std::vector<float>> edges;
    for (int i = 0; i < along; i += step) {
        std::vector<float>& row = edges.emplace_back();
        for (int j = 0; j < across; ++j) {
            row.push_back(static_cast<float>(upright ? edgeAt(blank, side, j, i, 1)
                                                     : edgeAt(blank, side, i, j, 1)));
        }
    }
    return edges;
}

/// The lines along which paper may end at a side, best first.
std::vector<Line> linesOf(const Blank& blank, Side side) {
    constexpr std::size_t most = 8;
    constexpr int step = 2;
    constexpr double slope = 0.25;
    constexpr double apart = 8;
    const auto edges = edgesOf(blank, side, step);
    const int across = isUpright(side) ? blank.width() : blank.height();
    const auto lean = static_cast<int>(slope * (isUpright(side) ? blank.height() : blank.width()));
    std::vector<Line> lines;
    for (int from = -step; from < across; from += step) {
        for (int to = from - lean; to <= from + lean; to += step) {
            Line line{.from = double(from), .to = double(to)};
            for (std::size_t i = 0; i < edges.size(); ++i) {
                const auto j = static_cast<int>(
                    line.at(static_cast<double>(i) / static_cast<double>(edges.size())) + 0.5);
                if (j >= 0 && j < across) {
                    line.votes += double{edges[i][static_cast<std::size_t>(j)]};
                }
            }
            lines.push_back(line);
        }
    }
    std::ranges::stable_sort(lines, std::ranges::greater{}, &Line::votes);
    std::vector<Line> best;
    for (const Line& line : lines) {
        const bool isNew = std::ranges::none_of(best, [&](const Line& other) {
            return std::abs(line.from - other.from) + std::abs(line.to - other.to) < 2 * apart;
        });
        if (isNew) {
            best.push_back(line);
        }
        if (best.size() == most) {
            break;
        }
    }
    return best;
}

/// Where a line across meets one that runs down, in a picture of this size.
Point meeting(const Line& across, const Line& down, double width, double height) {
    const double slopeAcross = (across.to - across.from) / width;
    const double slopeDown = (down.to - down.from) / height;
    const double x = (down.from + slopeDown * across.from) / (1 - slopeDown * slopeAcross);
    return {x, across.from + slopeAcross * x};
}

double areaOf(const Corners& corners) {
    double twice = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& a = corners[i];
        const Point& b = corners[(i + 1) % corners.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return std::abs(twice) / 2;
}

/// The part of a side, from 0 to 1, along which paper ends.
double support(const Blank& blank, Side side, const Corners& corners) {
    constexpr int samples = 60;
    constexpr double reach = 1.5;
    const Point& from = corners[side];
    const Point& to = corners[(side + 1U) % corners.size()];
    double found = 0;
    for (int i = 0; i < samples; ++i) {
        const double part = (i + 0.5) / samples;
        found += edgeAt(blank, side, from.x + (to.x - from.x) * part + 0.5,
                        from.y + (to.y - from.y) * part + 0.5, reach);
    }
    return found / samples;
}

bool isWithin(const Corners& corners, double width, double height) {
    constexpr double beyond = 3; // pixels
    return std::ranges::all_of(corners, [&](const Point& at) {
        return at.x >= -beyond && at.y >= -beyond && at.x <= width + beyond
               && at.y <= height + beyond;
    });
}

/// How well corners enclose a sheet: by how surely paper ends along its sides, and by its size,
/// since boxes on a form have edges, too; 0 when they do not.
double scoreOf(const Blank& blank, const Corners& corners) {
    constexpr double smallest = 0.2; // of the picture
    constexpr double largest = 0.97;
    constexpr double leastOfSide = 0.45;
    constexpr double leastOfAll = 0.65;
    constexpr double worthOfArea = 0.6;
    const double area = areaOf(corners) / (double{1} * blank.width() * blank.height());
    if (corners[0].x >= corners[1].x || corners[0].y >= corners[3].y || area < smallest
        || area > largest || !isWithin(corners, blank.width(), blank.height())) {
        return 0;
    }
    double sum = 0;
    for (const Side side : sides) {
        const double part = support(blank, side, corners);
        if (part < leastOfSide) {
            return 0;
        }
        sum += part;
    }
    const double all = sum / sides.size();
    return all < leastOfAll ? 0 : all + worthOfArea * area;
}

/// The sheet between four lines; none when no four enclose one.
std::optional<Corners> sheetIn(const Blank& blank) {
    const double width = blank.width();
    const double height = blank.height();
    std::array<std::vector<Line>, 4> lines;
    for (const Side side : sides) {
        lines[side] = linesOf(blank, side);
    }
    std::optional<Corners> best;
    double bestScore = 0;
    const auto consider = [&](const Line& above, const Line& below, const Line& before,
                              const Line& after) {
        const Corners corners{
            meeting(above, before, width, height), meeting(above, after, width, height),
            meeting(below, after, width, height), meeting(below, before, width, height)};
        if (const double score = scoreOf(blank, corners); score > bestScore) {
            best = corners;
            bestScore = score;
        }
    };
    for (const Line& above : lines[top]) {
        for (const Line& below : lines[bottom]) {
            for (const Line& before : lines[left]) {
                for (const Line& after : lines[right]) {
                    consider(above, below, before, after);
                }
            }
        }
    }
    return best;
}

/// A line by points of an edge, those left out that lie off what the others make.
std::optional<Line> lineThrough(std::vector<Point> points, double length) {
    constexpr std::size_t fewest = 8;
    constexpr int rounds = 3;
    constexpr double least = 1.5; // pixels
    Line line;
    for (int round = 0; round < rounds; ++round) {
        if (points.size() < fewest) {
            return std::nullopt;
        }
        // `x` runs along the edge, `y` across it.
        double x = 0;
        double y = 0;
        double xx = 0;
        double xy = 0;
        for (const Point& at : points) {
            x += at.x;
            y += at.y;
            xx += at.x * at.x;
            xy += at.x * at.y;
        }
        const auto n = static_cast<double>(points.size());
        const double slope = (n * xy - x * y) / (n * xx - x * x);
        line.from = (y - slope * x) / n;
        line.to = line.from + slope * length;
        std::vector<double> off;
        for (const Point& at : points) {
            off.push_back(std::abs(line.from + slope * at.x - at.y));
        }
        std::vector<double> sorted = off;
        const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::ranges::nth_element(sorted, middle);
        const double bound = std::max(least, 2 * *middle);
        std::size_t at = 0;
        std::erase_if(points, [&](const Point&) { return off[at++] > bound; });
    }
    return line;
}

/// The edge of a side, placed to a pixel, near where it was found.
std::optional<Line> placed(const Blank& blank, Side side, const Point& from, const Point& to) {
    constexpr int samples = 60;
    constexpr int search = 12;
    constexpr double reach = 1.5;
    constexpr double clear = 0.3;
    constexpr double margin = 0.04; // at the corners
    std::vector<Point> points;
    for (int i = 0; i < samples; ++i) {
        const double part = margin + (1 - 2 * margin) * (i + 0.5) / samples;
        const double x = from.x + (to.x - from.x) * part;
        const double y = from.y + (to.y - from.y) * part;
        double best = clear;
        std::optional<Point> point;
        for (int off = -search; off <= search; ++off) {
            const double atX = isUpright(side) ? x + off : x;
            const double atY = isUpright(side) ? y : y + off;
            const double edge = edgeAt(blank, side, atX, atY, reach);
            if (edge > best) {
                best = edge;
                point = isUpright(side) ? Point{atY, atX} : Point{atX, atY};
            }
        }
        if (point) {
            points.push_back(*point);
        }
    }
    return lineThrough(std::move(points), isUpright(side) ? blank.height() : blank.width());
}

/// The corners placed in a finer picture; as they were where the edges do not show there.
Corners refined(const Blank& blank, const Corners& corners) {
    std::array<Line, 4> lines;
    for (const Side side : sides) {
        const auto line = placed(blank, side, corners[side], corners[(side + 1U) % 4]);
        if (!line) {
            return corners;
        }
        lines[side] = *line;
    }
    const double width = blank.width();
    const double height = blank.height();
    return {meeting(lines[top], lines[left], width, height),
            meeting(lines[top], lines[right], width, height),
            meeting(lines[bottom], lines[right], width, height),
            meeting(lines[bottom], lines[left], width, height)};
}

Corners scaled(Corners corners, double factor) {
    for (Point& corner : corners) {
        corner = {corner.x * factor, corner.y * factor};
    }
    return corners;
}

} // namespace

std::optional<Corners> findPaper(const PixPtr& grey) {
    if (std::max(widthOf(grey), heightOf(grey)) < coarseSide) {
        return std::nullopt;
    }
    const Blank coarse = blankOf(grey, coarseSide);
    const auto corners = coarse.grey ? sheetIn(coarse) : std::nullopt;
    if (!corners) {
        return std::nullopt;
    }
    const Blank fine = blankOf(grey, fineSide);
    if (!fine.grey) {
        return std::nullopt;
    }
    return scaled(refined(fine, scaled(*corners, fine.factor / coarse.factor)), 1 / fine.factor);
}

} // namespace fiscarel::reader
