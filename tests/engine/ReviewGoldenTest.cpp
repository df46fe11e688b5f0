#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Review.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace taxcore {
namespace {

/// Levels and ids of the notices, ids and savings of the tips, one to a line.
std::string reviewOf(const std::string& name, const TaxCase& taxCase) {
    const auto calculator = CaseCalculator::forCase(taxCase).value();
    const TaxResult result = calculator.calculate(taxCase);
    const Review review =
        Review::of({calculator, taxCase, result, Date::of(taxCase.year + 1, 3, 1).value()});
    std::string text = name + " " + std::to_string(taxCase.year) + "\n";
    for (const Notice& notice : review.notices) {
        text += "  " + std::string(rawValue(notice.level)) + " " + notice.id
                + (notice.path ? " @ " + *notice.path : "") + "\n";
    }
    for (const Notice& tip : review.tips) {
        text += "  tip " + tip.id + " " + tip.saving.value().toString() + "\n";
    }
    return text;
}

/// What the review says of every household of the tests. A change is looked at line by line; then
/// FISCAREL_UPDATE_GOLDEN=1 writes the file anew.
class ReviewGolden : public ::testing::TestWithParam<const char*> {};

TEST_P(ReviewGolden, saysWhatItSaidOfEveryHousehold) {
    const std::string region = GetParam();
    const bool liechtenstein = region == "li";
    std::string text;
    for (const int year : RuleBook::supportedYears) {
        text += reviewOf("demo",
                         DemoData::household(
                             liechtenstein ? TaxRegion::liechtenstein : TaxRegion::stGallen, year));
    }
    for (const auto& file : testing::readCaseFiles(region)) {
        text += reviewOf(file.path.stem().string(), file.household);
    }
    const std::filesystem::path golden =
        std::filesystem::path(FISCAREL_TEST_DIR) / "data" / ("review-" + region + ".txt");
    if (std::getenv("FISCAREL_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(golden) << text;
    }
    std::ifstream in(golden);
    const std::string expected{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(text, expected) << golden;
}

INSTANTIATE_TEST_SUITE_P(Regions, ReviewGolden, ::testing::Values("sg", "li"));

} // namespace
} // namespace taxcore
