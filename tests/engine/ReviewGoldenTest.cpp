#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Review.h"
#include "tests/support/CaseFile.h"
#include "tests/support/CheckRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace taxcore {
namespace {

struct Household {
    std::string name;
    TaxCase taxCase;
};

/// The invented household of each year and those of the test cases.
std::vector<Household> householdsOf(const std::string& region) {
    std::vector<Household> all;
    for (const int year : RuleBook::supportedYears) {
        all.push_back(
            {"demo", DemoData::household(
                         region == "li" ? TaxRegion::liechtenstein : TaxRegion::stGallen, year)});
    }
    for (const auto& file : testing::readCaseFiles(region)) {
        all.push_back({file.path.stem().string(), file.household});
    }
    return all;
}

Review reviewOf(const TaxCase& taxCase) {
    const auto calculator = CaseCalculator::forCase(taxCase).value();
    const TaxResult result = calculator.calculate(taxCase);
    return Review::of({calculator, taxCase, result, Date::of(taxCase.year + 1, 3, 1).value()});
}

/// Levels and ids of the notices, ids and savings of the tips, one to a line.
std::string linesOf(const Household& household) {
    const Review review = reviewOf(household.taxCase);
    std::string text = household.name + " " + std::to_string(household.taxCase.year) + "\n";
    for (const Notice& notice : review.notices) {
        text += "  " + std::string(rawValue(notice.level)) + " " + notice.id
                + (notice.path ? " @ " + *notice.path : "") + "\n";
    }
    for (const Notice& tip : review.tips) {
        text += "  tip " + tip.id + " " + tip.saving.value().toString() + "\n";
    }
    return text;
}

/// What every notice and tip reads, as first said.
class Texts {
  public:
    void add(const Notice& notice) {
        texts_.try_emplace(testing::stem(notice.id), std::string(rawValue(notice.level)) + ", "
                                                         + notice.area.value_or("no page") + "\n  "
                                                         + notice.title + "\n  " + notice.message
                                                         + "\n");
    }
    std::string toString() const {
        std::string all;
        for (const auto& [id, text] : texts_) {
            all += id + ": " + text;
        }
        return all;
    }

  private:
    std::map<std::string, std::string> texts_; ///< by the id without its place
};

/// A change is looked at line by line; then FISCAREL_UPDATE_GOLDEN=1 writes the file anew.
void expectGolden(const std::string& file, const std::string& text) {
    const auto golden = std::filesystem::path(FISCAREL_TEST_DIR) / "data" / file;
    if (std::getenv("FISCAREL_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(golden) << text;
    }
    std::ifstream in(golden);
    const std::string expected{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(text, expected) << golden;
}

/// What the review says of every household of the tests.
class ReviewGolden : public ::testing::TestWithParam<const char*> {};

TEST_P(ReviewGolden, saysWhatItSaidOfEveryHousehold) {
    std::string text;
    for (const Household& household : householdsOf(GetParam())) {
        text += linesOf(household);
    }
    expectGolden("review-" + std::string(GetParam()) + ".txt", text);
}

TEST_P(ReviewGolden, saysItInTheSameWords) {
    Texts texts;
    for (const Household& household : householdsOf(GetParam())) {
        const Review review = reviewOf(household.taxCase);
        std::ranges::for_each(review.notices, [&](const Notice& notice) { texts.add(notice); });
        std::ranges::for_each(review.tips, [&](const Notice& tip) { texts.add(tip); });
    }
    expectGolden("review-texts-" + std::string(GetParam()) + ".txt", texts.toString());
}

INSTANTIATE_TEST_SUITE_P(Regions, ReviewGolden, ::testing::Values("sg", "li"));

} // namespace
} // namespace taxcore
