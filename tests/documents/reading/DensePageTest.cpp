// Pages with as many words as are read of one: what is told there is found as on any other, and
// within the time a test may take.

#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <functional>

namespace fiscarel {
namespace {

std::string cents(int value) {
    return std::to_string(value / 100) + '.' + std::to_string(value % 100 + 100).substr(1);
}

/// A table of other amounts than those asked for, five in a row.
void addTable(DrawnPage& page, double y, int rows) {
    for (int i = 0; i < rows; ++i) {
        for (int column = 0; column < 5; ++column) {
            page.right(200 + 60 * column, y + 2 * i, cents(10'000 + 7 * i + 1'013 * column));
        }
    }
}

struct Dense {
    const char* what;
    std::function<void(DrawnPage& page)> draw;
    const char* field;
    const char* value;
};

TEST(DensePages, tellWhatOthersTell) {
    const std::vector<Dense> papers{
        {"the amount in the column of those below",
         [](DrawnPage& page) {
             page.text(20, 20, "Bescheinigung Säule 3a 2024, gebundene Vorsorge");
             page.text(20, 40, "Einbezahlte Beiträge").right(440, 40, "7'056.00");
             addTable(page, 60, 590);
         },
         "pillar3a", "7056"},
        {"a product among hundreds of numbers and amounts",
         [](DrawnPage& page) {
             page.text(20, 20, "Bescheinigung Säule 3a 2024, gebundene Vorsorge");
             page.text(20, 40, "Einbezahlte Beiträge");
             for (int i = 0; i < 1400; ++i) {
                 page.text(200 + 10 * i, 40, cents(90'001 + 2 * i));
             }
             constexpr double x = 14'200;
             page.text(x, 40, "12").text(x + 5, 40, "×").text(x + 10, 40, "588.00");
             page.text(x + 40, 40, "7'056.00");
         },
         "pillar3a", "7056"},
    };
    for (const Dense& paper : papers) {
        DrawnPage page(2);
        paper.draw(page);
        EXPECT_EQ(valueOf(page.proposed(), paper.field), paper.value) << paper.what;
    }
}

} // namespace
} // namespace fiscarel
