#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Review.h"
#include "tests/engine/CheckTables.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

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
    /// All notices or those of one id, its place left aside.
    void add(const std::vector<Notice>& notices, const std::string& only = "") {
        for (const Notice& notice : notices) {
            const std::string id = testing::stem(notice.id);
            if (only.empty() || id == only) {
                texts_.try_emplace(id, std::string(rawValue(notice.level)) + ", "
                                           + notice.area.value_or("no page") + "\n  " + notice.title
                                           + "\n  " + notice.message + "\n");
            }
        }
    }
    std::string toString() const {
        std::string all;
        for (const auto& [id, text] : texts_) {
            all.append(id).append(": ").append(text);
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

INSTANTIATE_TEST_SUITE_P(Regions, ReviewGolden, ::testing::Values("sg", "li"));

/// A household with documents and a year before, both of which give rise to notices.
std::vector<Notice> reviewWithMore() {
    TaxCase taxCase = testing::spotlessHousehold();
    taxCase.capitalPayments.emplace_back() = {.kind = CapitalPayment::Kind::saeule2,
                                              .amount = 50'000,
                                              .date = Date::of(taxCase.year, 6, 30)};
    TaxCase before = testing::spotlessLiechtenstein();
    before.year = taxCase.year - 1;
    before.civilStatus = CivilStatus::ledig;
    before.deductions1.pensionBuyIn = 20'000;
    return testing::reviewed(
        taxCase, {&before},
        {{"Lohnausweis", before.year, true}, {"Zinsausweis", taxCase.year, false}});
}

/// A buy-in into pillar 3a after a year that left no gap.
std::vector<Notice> reviewOfBuyInWithoutGap() {
    TaxCase before = testing::spotlessHousehold();
    before.deductions1.pillar3a = 7'258;
    TaxCase taxCase = before;
    ++taxCase.year;
    taxCase.deductions1.pillar3aBuyIn = 1'000;
    return testing::reviewed(taxCase, {&before});
}

TEST(ReviewGoldenTexts, readTheSame) {
    Texts texts;
    using namespace testing;
    for (const auto& rows : {amountRows(), familyRows(), incomeRows(), otherPageRows(),
                             pensionRows(), scopeRows(), wealthRows(), workRows()}) {
        for (const CheckRow& row : rows) {
            TaxCase taxCase = row.household();
            row.triggers(taxCase);
            texts.add(reviewed(taxCase), stem(row.id));
        }
    }
    texts.add(reviewWithMore());
    texts.add(reviewOfBuyInWithoutGap());
    for (const char* region : {"sg", "li"}) {
        for (const Household& household : householdsOf(region)) {
            const Review review = reviewOf(household.taxCase);
            texts.add(reviewed(household.taxCase)); // with those that a tip replaces
            texts.add(review.tips);
        }
    }
    expectGolden("review-texts.txt", texts.toString());
}

} // namespace
} // namespace taxcore
