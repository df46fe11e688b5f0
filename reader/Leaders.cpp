#include "reader/Leaders.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace fiscarel::reader {

namespace {

struct Dot {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int middle() const { return top + height / 2; }
    int right() const { return left + width; }
};

/// The specks of ink that are about as large as a full stop, by rows of the picture.
std::vector<Dot> dotsOf(const PixPtr& grey, double dpi) {
    constexpr int tile = 400;
    constexpr std::size_t most = 60'000; // more are noise
    const double smallest = 0.006 * dpi; // inches: type of 6 to 14 points
    const double largest = 0.035 * dpi;
    Pix* binary = nullptr;
    pixOtsuAdaptiveThreshold(grey.get(), tile, tile, 1, 1, 0.1F, nullptr, &binary);
    const PixPtr ink(binary);
    Boxa* boxes = ink ? pixConnCompBB(ink.get(), 8) : nullptr;
    std::vector<Dot> dots;
    for (int i = 0; boxes != nullptr && i < boxaGetCount(boxes); ++i) {
        Dot dot;
        boxaGetBoxGeometry(boxes, i, &dot.left, &dot.top, &dot.width, &dot.height);
        const auto [least, larger] = std::minmax(dot.width, dot.height);
        if (least >= smallest && larger <= largest && larger <= 2 * least) {
            dots.push_back(dot);
        }
    }
    boxaDestroy(&boxes);
    return dots.size() > most ? std::vector<Dot>() : dots;
}

/// Dots that stand in a row, each soon after the other.
class Row {
  public:
    explicit Row(const Dot& dot) : dots_{dot} {}

    bool takes(const Dot& dot, double dpi) const {
        const double gap = dot.left - dots_.back().right();
        const double size = std::max(dot.width, dots_.back().width);
        return gap > 0 && gap <= 0.08 * dpi
               && std::abs(dot.middle() - dots_.back().middle()) <= size && isAsFar(gap);
    }
    void add(const Dot& dot) { dots_.push_back(dot); }
    bool isLeader() const {
        constexpr std::size_t fewest = 6;
        return dots_.size() >= fewest;
    }
    const Dot& last() const { return dots_.back(); }
    const std::vector<Dot>& dots() const { return dots_; }

  private:
    /// Leaders are evenly spaced; full stops between letters are not.
    bool isAsFar(double gap) const {
        constexpr double uneven = 4; // pixels
        if (dots_.size() < 2) {
            return true;
        }
        const double before = dots_.back().left - dots_[dots_.size() - 2].right();
        return std::abs(gap - before) <= uneven;
    }

    std::vector<Dot> dots_;
};

std::vector<Row> leadersOf(std::vector<Dot> dots, double dpi) {
    std::ranges::sort(dots, {}, &Dot::left);
    std::vector<Row> done;
    std::vector<Row> open;
    for (const Dot& dot : dots) {
        // What ended too far to the left goes on no more.
        const auto ended = std::ranges::partition(
            open, [&](const Row& row) { return dot.left - row.last().right() <= 0.08 * dpi; });
        std::ranges::copy_if(ended, std::back_inserter(done), &Row::isLeader);
        open.erase(ended.begin(), ended.end());
        const auto row = std::ranges::find_if(
            open, [&](const Row& candidate) { return candidate.takes(dot, dpi); });
        if (row == open.end()) {
            open.emplace_back(dot);
        } else {
            row->add(dot);
        }
    }
    std::ranges::copy_if(open, std::back_inserter(done), &Row::isLeader);
    return done;
}

} // namespace

void wipeLeaders(Picture& page) {
    constexpr int rim = 2; // pixels of blur around a dot
    if (!page || pixGetDepth(page.grey.get()) != 8) {
        return;
    }
    const std::vector<Row> leaders = leadersOf(dotsOf(page.grey, page.dpi), page.dpi);
    if (leaders.empty()) {
        return;
    }
    page.grey.reset(pixCopy(nullptr, page.grey.get()));
    for (const Row& leader : leaders) {
        for (const Dot& dot : leader.dots()) {
            // The paper beside it: the brightest of its rim.
            const int left = std::max(dot.left - rim, 0);
            const int top = std::max(dot.top - rim, 0);
            const int right = std::min(dot.right() + rim, widthOf(page.grey));
            const int bottom = std::min(dot.top + dot.height + rim, heightOf(page.grey));
            l_uint32 paper = 0;
            for (int x = left; x < right; ++x) {
                for (const int y : {top, bottom - 1}) {
                    l_uint32 value = 0;
                    pixGetPixel(page.grey.get(), x, y, &value);
                    paper = std::max(paper, value);
                }
            }
            Box* box = boxCreate(left, top, right - left, bottom - top);
            pixSetInRectArbitrary(page.grey.get(), box, paper);
            boxDestroy(&box);
        }
    }
}

} // namespace fiscarel::reader
