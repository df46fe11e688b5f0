#include "reader/Straighten.h"

#include "reader/Paper.h"
#include "reader/Warp.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <vector>

namespace fiscarel::reader {

namespace {

constexpr double pointsPerInch = 72;
constexpr double workingDpi = 150;
constexpr double readingDpi = 300;

double distance(const Point& a, const Point& b) { return std::hypot(a.x - b.x, a.y - b.y); }

Corners rectangle(double width, double height) {
    return {Point{0, 0}, Point{width, 0}, Point{width, height}, Point{0, height}};
}

/// A working copy and how the source leads to it.
struct Work {
    PixPtr grey;
    Mapping fromSource;
    double dpi = 0;
};

Work workingCopy(const Picture& source) {
    const auto factor = static_cast<float>(workingDpi / source.dpi);
    return {.grey = PixPtr(pixScale(source.grey.get(), factor, factor)),
            .fromSource = Mapping::scaling(double{factor}),
            .dpi = workingDpi};
}

/// Cuts the paper out and lays it flat. A sheet of about the form of A4 is taken for one.
bool layFlat(Work& work) {
    constexpr double a4 = 297.0 / 210;
    constexpr double tolerance = 0.15;
    const auto corners = findPaper(work.grey);
    if (!corners) {
        return false;
    }
    const auto& [leftTop, rightTop, rightBottom, leftBottom] = *corners;
    double width = (distance(leftTop, rightTop) + distance(leftBottom, rightBottom)) / 2;
    double height = (distance(leftTop, leftBottom) + distance(rightTop, rightBottom)) / 2;
    const double form = std::max(width, height) / std::min(width, height);
    if (std::abs(form / a4 - 1) < tolerance) {
        (width < height ? height : width) = std::min(width, height) * a4;
        work.dpi = std::min(width, height) / (210 / 25.4);
    }
    const Corners flat = rectangle(width, height);
    PixPtr cut = warped(work.grey, Mapping::between(flat, *corners), static_cast<int>(width),
                        static_cast<int>(height));
    if (!cut) {
        return false;
    }
    work.grey = std::move(cut);
    work.fromSource = Mapping::between(*corners, flat).after(work.fromSource);
    return true;
}

PixPtr blackAndWhite(const PixPtr& grey) {
    constexpr int tile = 200;
    Pix* result = nullptr;
    pixOtsuAdaptiveThreshold(grey.get(), tile, tile, 1, 1, 0.1F, nullptr, &result);
    return PixPtr(result);
}

/// The square of a picture that holds most ink.
PixPtr inkiest(const PixPtr& grey, const PixPtr& ink) {
    constexpr int steps = 6;
    const int side = std::min(widthOf(ink), heightOf(ink)) / 2;
    int most = -1;
    PixPtr best;
    for (int i = 0; i <= steps; ++i) {
        for (int j = 0; j <= steps; ++j) {
            Box* box = boxCreate((widthOf(ink) - side) * i / steps,
                                 (heightOf(ink) - side) * j / steps, side, side);
            const PixPtr part(pixClipRectangle(ink.get(), box, nullptr));
            int count = 0;
            if (part && pixCountPixels(part.get(), &count, nullptr) == 0 && count > most) {
                most = count;
                best.reset(pixClipRectangle(grey.get(), box, nullptr));
            }
            boxDestroy(&box);
        }
    }
    return best;
}

/// Which of some quarter turns lets the writing be read best.
int mostLegible(const std::vector<int>& turns, const Work& work, const PixPtr& ink,
                Recognition& recognition) {
    const PixPtr part = inkiest(work.grey, ink);
    int best = turns.front();
    int most = -1;
    for (const int quarters : turns) {
        const PixPtr turned(part ? pixRotateOrth(part.get(), quarters) : nullptr);
        const int letters = turned ? recognition.legibleLetters(turned, work.dpi) : 0;
        if (letters > most) {
            best = quarters;
            most = letters;
        }
    }
    return best;
}

/// Quarter turns clockwise that set the writing upright. What rises above small letters and hangs
/// below them tells it cheaply; when that is not clear the recogniser is asked. Rules, boxes and
/// small print mislead that one, too, so that what it says is tried before a page is turned.
int turnsOf(const PixPtr& ink, const Work& work, Recognition& recognition) {
    constexpr float sure = 6;
    float up = 0;
    float left = 0;
    if (pixOrientDetect(ink.get(), &up, &left, 0, 0) == 0 && up >= sure
        && up > std::abs(left) * 1.5F) {
        return 0;
    }
    const auto told = recognition.quarterTurns(work.grey, work.dpi);
    if (!told) {
        return mostLegible({0, 2, 1, 3}, work, ink, recognition);
    }
    return *told == 0 ? 0 : mostLegible({*told, 0, (*told + 2) % 4}, work, ink, recognition);
}

/// Where the pixels of a picture of this size stand after quarter turns clockwise.
Mapping quarterTurn(double width, double height, int quarters) {
    const Corners from = rectangle(width, height);
    const bool isOnSide = quarters % 2 != 0;
    const Corners to = rectangle(isOnSide ? height : width, isOnSide ? width : height);
    Corners turned;
    for (std::size_t i = 0; i < turned.size(); ++i) {
        turned[i] = to[(i + static_cast<std::size_t>(quarters)) % turned.size()];
    }
    return Mapping::between(from, turned);
}

void turn(Work& work, PixPtr& ink, int quarters) {
    work.fromSource =
        quarterTurn(widthOf(work.grey), heightOf(work.grey), quarters).after(work.fromSource);
    work.grey.reset(pixRotateOrth(work.grey.get(), quarters));
    ink.reset(pixRotateOrth(ink.get(), quarters));
}

/// The skew of the lines in radians clockwise; 0 when it does not show.
double skewOf(const PixPtr& ink) {
    constexpr float sure = 2.5F;
    constexpr double least = 0.1; // degrees
    float degrees = 0;
    float confidence = 0;
    if (pixFindSkew(ink.get(), &degrees, &confidence) != 0 || confidence < sure
        || std::abs(double{degrees}) < least) {
        return 0;
    }
    return double{degrees} * std::numbers::pi / 180;
}

} // namespace

Upright findUpright(const Picture& source, bool mayBePhoto, Recognition& recognition) {
    constexpr double coarse = 240;
    constexpr double fine = 360;
    Upright upright{
        .width = widthOf(source.grey), .height = heightOf(source.grey), .dpi = source.dpi};
    Work work = workingCopy(source);
    if (!work.grey) {
        return upright;
    }
    upright.isPhoto = mayBePhoto && layFlat(work);
    PixPtr ink = blackAndWhite(work.grey);
    const int turns = ink ? turnsOf(ink, work, recognition) : 0;
    if (turns != 0) {
        turn(work, ink, turns);
    }
    const double skew = ink && work.grey ? skewOf(ink) : 0;
    if (!work.grey) {
        return upright;
    }
    upright.isUnchanged =
        !upright.isPhoto && turns == 0 && skew == 0 && source.dpi >= coarse && source.dpi <= fine;
    if (upright.isUnchanged) {
        return upright;
    }
    const double factor = readingDpi / work.dpi;
    const Point centre{widthOf(work.grey) / 2.0, heightOf(work.grey) / 2.0};
    upright.fromSource =
        Mapping::scaling(factor).after(Mapping::rotation(skew, centre)).after(work.fromSource);
    upright.width = static_cast<int>(widthOf(work.grey) * factor);
    upright.height = static_cast<int>(heightOf(work.grey) * factor);
    upright.dpi = readingDpi;
    return upright;
}

Mapping wayBack(const Picture& source, const Upright& upright) {
    const Corners whole = rectangle(widthOf(source.grey), heightOf(source.grey));
    Corners mapped;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        mapped[i] = upright.fromSource(whole[i]);
    }
    return Mapping::between(mapped, whole);
}

Picture straightened(const Picture& source, const Upright& upright) {
    Picture page{.dpi = upright.dpi, .toPage = Mapping::scaling(pointsPerInch / upright.dpi)};
    if (upright.isUnchanged) {
        page.grey = shared(source.grey);
        return page;
    }
    const Mapping back = wayBack(source, upright);
    PixPtr pixels = shared(source.grey);
    Mapping toPixels = back;
    // What shrinks by much is averaged first, or thin strokes would fall between the pixels.
    const double shrink = source.dpi / upright.dpi;
    if (shrink > 1.5) {
        const auto factor = static_cast<float>(1 / shrink);
        pixels.reset(pixScale(source.grey.get(), factor, factor));
        toPixels = Mapping::scaling(double{factor}).after(back);
    }
    page.grey = warped(pixels, toPixels, upright.width, upright.height);
    if (upright.isPhoto && page.grey) {
        // The paper between the writing, by closing: grey writing must not pass for paper.
        constexpr int reduction = 4;
        constexpr int brush = 15;
        constexpr int white = 230;
        PixPtr even(pixBackgroundNormMorph(page.grey.get(), nullptr, reduction, brush, white));
        if (even) {
            page.grey = std::move(even);
        }
    }
    return page;
}

} // namespace fiscarel::reader
