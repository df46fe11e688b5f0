#include "Fiscarel_SG/documents/rows/PageSlope.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace fiscarel {

namespace {

constexpr double steepest = 6.0;    // degrees
constexpr double coarseStep = 0.25; // degrees
constexpr double fineStep = 0.05;
constexpr std::size_t enoughWords = 8;
constexpr std::size_t mostWords = 3'000;
constexpr double clearlyBetter = 1.08;

double typicalHeight(const PageReading& page) {
    std::vector<double> heights;
    for (const PageWord& word : page.words) {
        heights.push_back(word.place.height());
    }
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return std::max(*middle, 1.0);
}

/// The usual slope from a word to its neighbour on the right; 0 where too few have one. It is
/// coarse, but no table whose rows are offset deceives it.
double slopeOfNeighbours(const PageReading& page) {
    std::vector<double> slopes;
    for (const PageWord& word : page.words) {
        const PageWord* next = nullptr;
        for (const PageWord& other : page.words) {
            const double gap = other.place.left - word.place.right;
            const double shared = std::min(word.place.bottom, other.place.bottom)
                                  - std::max(word.place.top, other.place.top);
            if (gap >= 0 && gap < word.place.height() && shared > 0.5 * word.place.height()
                && (next == nullptr || other.place.left < next->place.left)) {
                next = &other;
            }
        }
        if (next != nullptr) {
            const auto middle = [](double a, double b) { return (a + b) / 2; };
            const double across = middle(next->place.left, next->place.right)
                                  - middle(word.place.left, word.place.right);
            const double down = middle(next->place.top, next->place.bottom)
                                - middle(word.place.top, word.place.bottom);
            slopes.push_back(down / std::max(across, 1.0));
        }
    }
    if (slopes.size() < enoughWords) {
        return 0;
    }
    const auto median = slopes.begin() + static_cast<std::ptrdiff_t>(slopes.size() / 2);
    std::nth_element(slopes.begin(), median, slopes.end());
    return *median;
}

/// How sharply the words fall into lines under a slope: the sum of squares of a histogram.
double sharpness(const PageReading& page, double slope, double cell) {
    double low = 1e9;
    double high = -1e9;
    const auto level = [slope](const PageWord& word) {
        const double x = (word.place.left + word.place.right) / 2;
        return (word.place.top + word.place.bottom) / 2 - slope * x;
    };
    for (const PageWord& word : page.words) {
        low = std::min(low, level(word));
        high = std::max(high, level(word));
    }
    const double cells = std::min((high - low) / cell, 20'000.0);
    std::vector<double> histogram(static_cast<std::size_t>(cells) + 2);
    for (const PageWord& word : page.words) {
        // Shared between two cells, so that a line on a border counts like any other.
        const double at = std::clamp((level(word) - low) / cell, 0.0, cells);
        const auto index = static_cast<std::size_t>(at);
        const double part = at - static_cast<double>(index);
        histogram[index] += 1 - part;
        histogram[index + 1] += part;
    }
    double sum = 0;
    for (const double count : histogram) {
        sum += count * count;
    }
    return sum;
}

} // namespace

double slopeOfLines(const PageReading& page) {
    if (page.words.size() < enoughWords || page.words.size() > mostWords) {
        return 0;
    }
    const double coarse = slopeOfNeighbours(page);
    if (!page.isRecognised && std::abs(coarse) < 0.001) {
        return 0; // a text layer that stands straight
    }
    const double cell = typicalHeight(page) / 2;
    const auto slopeOf = [](double degrees) { return std::tan(degrees * std::numbers::pi / 180); };
    const double straight = sharpness(page, 0, cell);
    double best = straight;
    double angle = 0;
    const auto search = [&](double from, double to, double step) {
        for (double at = from; at <= to + step / 2; at += step) {
            if (const double value = sharpness(page, slopeOf(at), cell); value > best) {
                best = value;
                angle = at;
            }
        }
    };
    const double near = std::atan(coarse) * 180 / std::numbers::pi;
    search(std::max(near - 1, -steepest), std::min(near + 1, steepest), coarseStep);
    search(angle - coarseStep, angle + coarseStep, fineStep);
    return best > straight * clearlyBetter ? slopeOf(angle) : 0;
}

} // namespace fiscarel
