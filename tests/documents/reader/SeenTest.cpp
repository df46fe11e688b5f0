// Which words of a text layer can be seen on the page as it is drawn.

#include "reader/Seen.h"

#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

namespace fiscarel::reader {
namespace {

constexpr double pixelsPerPoint = 2;

/// A white page of 300 by 200 points.
Picture paper() {
    PixPtr grey(pixCreate(600, 400, 8));
    pixSetAllArbitrary(grey.get(), 255);
    return {.grey = std::move(grey),
            .dpi = 72 * pixelsPerPoint,
            .toPage = Mapping::scaling(1 / pixelsPerPoint)};
}

/// Fills a part of the page, in points, with a grey.
void fill(const Picture& picture, const PagePlace& place, l_uint32 grey) {
    for (int y = static_cast<int>(place.top * pixelsPerPoint); y < place.bottom * pixelsPerPoint;
         ++y) {
        for (int x = static_cast<int>(place.left * pixelsPerPoint);
             x < place.right * pixelsPerPoint; ++x) {
            pixSetPixel(picture.grey.get(), x, y, grey);
        }
    }
}

std::vector<std::string> seen(const Picture& picture, std::vector<PageWord> words) {
    eraseUnseen(picture, words);
    std::vector<std::string> texts;
    for (const PageWord& word : words) {
        texts.push_back(word.text);
    }
    return texts;
}

TEST(Seen, whatLeavesInkOfItsOwnStays) {
    const Picture picture = paper();
    fill(picture, {12, 12, 30, 18}, 0);    // black on white
    fill(picture, {12, 42, 30, 48}, 190);  // light grey on white
    fill(picture, {12, 72, 30, 78}, 250);  // nearly white
    fill(picture, {100, 0, 200, 100}, 40); // a dark ground
    fill(picture, {112, 12, 130, 18}, 255);
    fill(picture, {12, 102, 13, 103}, 0); // a speck
    EXPECT_EQ(seen(picture, {{"Schwarz", {10, 10, 40, 20}},
                             {"Grau", {10, 40, 40, 50}},
                             {"Fastweiss", {10, 70, 40, 80}},
                             {"Weiss", {110, 10, 140, 20}},
                             {"Zugedeckt", {110, 50, 140, 60}},
                             {"Winzig", {12, 102, 13, 103.5}},
                             {"Daneben", {290, 190, 400, 300}},
                             {"Draussen", {-50, -50, -10, -10}}}),
              (std::vector<std::string>{"Schwarz", "Grau", "Weiss"}));
}

TEST(Seen, ofTwoAmountsInOnePlaceNeitherIsKnown) {
    const Picture picture = paper();
    fill(picture, {12, 12, 290, 190}, 0);
    EXPECT_EQ(seen(picture, {{"30’000.00", {10, 10, 60, 20}},
                             {"80’000.00", {12, 10, 62, 20}},
                             {"250.00", {10, 40, 60, 50}},
                             {"250.00", {10.3, 40, 60.3, 50}}, // set twice to look bold
                             {"1’200.00", {10, 70, 60, 80}},
                             {"........", {10, 70, 90, 80}}, // on dots
                             {"Kopie2024", {5, 60, 250, 160}}}),
              (std::vector<std::string>{"250.00", "250.00", "1’200.00", "........", "Kopie2024"}));
}

} // namespace
} // namespace fiscarel::reader
