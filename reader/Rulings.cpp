#include "reader/Rulings.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace fiscarel::reader {

namespace {

enum class Way { across, down };

int inPixels(double inches, double dpi) { return static_cast<int>(std::lround(inches * dpi)); }

/// A page byte by byte, to look to either side of a pixel.
class Page {
  public:
    Page(const Picture& picture, Way way)
        : bytes_(bytesOf(picture.grey)), width_(widthOf(picture.grey)),
          height_(heightOf(picture.grey)), step_(way == Way::across ? width_ : 1), way_(way) {
        for (std::size_t i = 0; i < reaches_.size(); ++i) {
            margin_ = std::max(1, inPixels(0.0085 * static_cast<double>(i + 1), picture.dpi));
            reaches_[i] = step_ * margin_;
        }
    }

    /// Where the page is darker than shortly to either side of a line that runs that way.
    PixPtr darkerThanBeside() const {
        const bool hasRoom = std::min(width_, height_) > 2 * margin_;
        PixPtr dark(hasRoom ? pixCreate(width_, height_, 1) : nullptr);
        if (!dark) {
            return nullptr;
        }
        const int marginX = way_ == Way::across ? 0 : margin_;
        const int marginY = way_ == Way::across ? margin_ : 0;
        std::vector<std::uint8_t> isDark(static_cast<std::size_t>(width_));
        for (int y = marginY; y < height_ - marginY; ++y) {
            markDarker(bytes_.data() + std::ptrdiff_t{width_} * y + marginX, width_ - 2 * marginX,
                       isDark.data() + marginX);
            l_uint32* const row =
                pixGetData(dark.get()) + std::ptrdiff_t{pixGetWpl(dark.get())} * y;
            for (int x = marginX; x < width_ - marginX; ++x) {
                if (isDark[static_cast<std::size_t>(x)] != 0) {
                    SET_DATA_BIT(row, x);
                }
            }
        }
        return dark;
    }

    /// The paper beside a pixel of a line.
    std::uint8_t paperAt(int x, int y) const {
        const std::uint8_t* const at = bytes_.data() + std::ptrdiff_t{width_} * y + x;
        const int own = way_ == Way::across ? y : x;
        const int last = (way_ == Way::across ? height_ : width_) - 1;
        std::uint8_t paper = *at;
        for (int i = std::max(-margin_, -own); i <= std::min(margin_, last - own); ++i) {
            paper = std::max(paper, at[step_ * i]);
        }
        return paper;
    }

  private:
    /// One pixel after the other, without a branch: this looks at every pixel of a page.
    void markDarker(const std::uint8_t* at, int count, std::uint8_t* isDark) const {
        constexpr std::uint8_t contrast = 14; // of 255: fainter ones do no harm
        const auto [near, middle, far] = reaches_;
        for (int x = 0; x < count; ++x, ++at) {
            const std::uint8_t before = std::max(std::max(at[-near], at[-middle]), at[-far]);
            const std::uint8_t behind = std::max(std::max(at[near], at[middle]), at[far]);
            const std::uint8_t paper = std::max(std::min(before, behind), contrast);
            isDark[x] = static_cast<std::uint8_t>(paper - contrast) >= *at ? 1 : 0;
        }
    }

    std::vector<std::uint8_t> bytes_;
    int width_;
    int height_;
    std::ptrdiff_t step_; ///< from a pixel to the next across the line
    int margin_ = 0;      ///< pixels to the farthest, as many as the rim must be wide
    Way way_;
    std::array<std::ptrdiff_t, 3> reaches_{}; ///< lines are thinner than the farthest
};

/// The lines that run one way: long, thin, and hardly slanted.
PixPtr linesOf(const Page& page, double dpi, Way way) {
    const bool isAcross = way == Way::across;
    // Strokes of large letters are shorter, and so are the runs of a slanted hairline longer.
    const int run = inPixels(isAcross ? 0.25 : 0.35, dpi);
    const int gap = inPixels(0.016, dpi); // of noise, or where lines cross
    const PixPtr dark = page.darkerThanBeside();
    const PixPtr whole(!dark      ? nullptr
                       : isAcross ? pixCloseSafeBrick(nullptr, dark.get(), gap, 1)
                                  : pixCloseSafeBrick(nullptr, dark.get(), 1, gap));
    PixPtr lines(!whole     ? nullptr
                 : isAcross ? pixOpenCompBrick(nullptr, whole.get(), run, 1)
                            : pixOpenCompBrick(nullptr, whole.get(), 1, run));
    if (!lines) {
        return nullptr;
    }
    Boxa* boxes = pixConnCompBB(lines.get(), 8);
    for (int i = 0; boxes != nullptr && i < boxaGetCount(boxes); ++i) {
        Box* box = boxaGetBox(boxes, i, L_CLONE);
        int width = 0;
        int height = 0;
        boxGetGeometry(box, nullptr, nullptr, &width, &height);
        const int length = isAcross ? width : height;
        const int breadth = isAcross ? height : width;
        constexpr double slant = 0.02;
        if (length < inPixels(0.5, dpi) || breadth > inPixels(0.02, dpi) + slant * length) {
            pixClearInRect(lines.get(), box);
        }
        boxDestroy(&box);
    }
    boxaDestroy(&boxes);
    return lines;
}

/// Puts the paper on either side in the place of lines.
void wipe(PixPtr& grey, const Page& page, const PixPtr& lines, Way way) {
    int isEmpty = 1;
    if (!lines || pixZero(lines.get(), &isEmpty) != 0 || isEmpty != 0) {
        return;
    }
    constexpr int rim = 2; // pixels of blur around a line
    const PixPtr mask(way == Way::across ? pixDilateBrick(nullptr, lines.get(), 1, 2 * rim + 1)
                                         : pixDilateBrick(nullptr, lines.get(), 2 * rim + 1, 1));
    PixPtr clean(pixCopy(nullptr, grey.get()));
    if (!mask || !clean) {
        return;
    }
    const int width = widthOf(clean);
    const int height = heightOf(clean);
    for (int y = 0; y < height; ++y) {
        const l_uint32* const marks =
            pixGetData(mask.get()) + std::ptrdiff_t{pixGetWpl(mask.get())} * y;
        l_uint32* const row = pixGetData(clean.get()) + std::ptrdiff_t{pixGetWpl(clean.get())} * y;
        for (int x = 0; x < width; ++x) {
            if (GET_DATA_BIT(marks, x) != 0) {
                SET_DATA_BYTE(row, x, page.paperAt(x, y));
            }
        }
    }
    grey = std::move(clean);
}

} // namespace

void wipeRulings(Picture& picture) {
    if (!picture || pixGetDepth(picture.grey.get()) != 8) {
        return;
    }
    for (const Way way : {Way::across, Way::down}) {
        const Page page(picture, way);
        wipe(picture.grey, page, linesOf(page, picture.dpi, way), way);
    }
}

} // namespace fiscarel::reader
