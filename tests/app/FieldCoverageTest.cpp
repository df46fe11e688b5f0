#include "Fiscarel_SG/pages/InputPages.h"
#include "tests/support/InputPages.h"
#include "tests/support/InputPaths.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace fiscarel {
namespace {

using namespace taxcore;

using Pages = std::vector<forms::Page>;

/// On which pages each field stands, once for every time it does.
std::map<std::string, std::vector<std::string>> pagesByField(const Pages& pages,
                                                             const TaxCase& taxCase) {
    std::map<std::string, std::vector<std::string>> found;
    for (const forms::Page& page : pages) {
        for (const forms::BoundField& field : testing::fieldsOf(page, taxCase)) {
            found[field.path].push_back(page.id);
        }
    }
    return found;
}

class FieldCoverageTest : public ::testing::TestWithParam<int> {
  protected:
    static constexpr std::array regions{TaxRegion::stGallen, TaxRegion::liechtenstein};

    static TaxCase household(TaxRegion region) { return testing::fullCase(GetParam(), region); }
    static Pages pagesOf(TaxRegion region) {
        return pages::inputPages(pages::testing::contextOf(region, GetParam()));
    }
};

TEST_P(FieldCoverageTest, everyFieldOfTheCaseStandsOnThePagesOfSomeRegion) {
    std::map<std::string, std::set<std::string>> found;
    for (const TaxRegion region : regions) {
        for (const auto& [path, pages] : pagesByField(pagesOf(region), household(region))) {
            found[path].insert(pages.begin(), pages.end());
        }
    }
    const auto expected = testing::inputPaths(household(TaxRegion::stGallen));
    ASSERT_GT(expected.size(), 100U);
    for (const std::string& path : expected) {
        EXPECT_EQ(found[path].size(), 1U) << path << " is on no page or on different ones";
        found.erase(path);
    }
    for (const auto& [path, pages] : found) {
        ADD_FAILURE() << path << " on page " << *pages.begin() << " is no entry of a case";
    }
}

TEST_P(FieldCoverageTest, noFieldStandsTwiceInARegion) {
    for (const TaxRegion region : regions) {
        for (const auto& [path, pages] : pagesByField(pagesOf(region), household(region))) {
            EXPECT_EQ(pages.size(), 1U)
                << path << " twice on " << pages.front() << " in " << label(region);
        }
    }
}

/// Another value than the one a field holds, as it might be entered.
forms::Value another(const forms::BoundField& field, const TaxCase& taxCase) {
    const forms::Value old = field.get(taxCase);
    if (const auto* flag = std::get_if<bool>(&old)) {
        return !*flag;
    }
    if (const auto* count = std::get_if<int>(&old)) {
        return *count + 3;
    }
    if (const auto* amount = std::get_if<Decimal>(&old)) {
        return *amount + 43.21_dec;
    }
    if (std::holds_alternative<Date>(old)) {
        return Date::of(2020, 2, 29).value();
    }
    const auto text = std::get<std::string>(old);
    for (const forms::Option& option : field.options) {
        if (option.raw != text) {
            return option.raw;
        }
    }
    return "«" + text + "»";
}

/// Writes a value and tells which fields of the case changed by it.
std::vector<std::string> changedBy(const forms::BoundField& field, const TaxCase& before,
                                   const forms::Value& value) {
    TaxCase after = before;
    field.set(after, value);
    EXPECT_EQ(field.get(after), value) << field.path;
    std::vector<std::string> paths;
    for (const FieldChange& change : diff(before, after)) {
        paths.push_back(change.path);
    }
    return paths;
}

/// A field edits what its path says: a change of the value is a change there and nowhere else.
TEST_P(FieldCoverageTest, everyFieldChangesTheEntryOfItsPathOnly) {
    for (const TaxRegion region : regions) {
        const TaxCase before = household(region);
        for (const forms::Page& page : pagesOf(region)) {
            for (const forms::BoundField& field : testing::fieldsOf(page, before)) {
                const std::vector<std::string> here{field.path};
                EXPECT_EQ(changedBy(field, before, another(field, before)), here);
                for (const forms::Option& option : field.options) {
                    EXPECT_LE(changedBy(field, before, option.raw).size(), 1U) << field.path;
                }
                if (field.isOptional) {
                    EXPECT_EQ(changedBy(field, before, forms::Value{}), here);
                }
            }
        }
    }
}

TEST_P(FieldCoverageTest, labelsAreUniqueWithinTheirCardAndTextsAreWhole) {
    for (const TaxRegion region : regions) {
        const TaxCase taxCase = household(region);
        for (const Pages& pages :
             {pagesOf(region), pages::inputPages({.year = GetParam(), .region = region})}) {
            testing::forEachCard(pages, [&](const forms::Section&, const forms::Card& card) {
                std::set<std::string> labels;
                for (const forms::BoundField& field : testing::fieldsOf(card, taxCase)) {
                    EXPECT_FALSE(field.label.empty()) << field.path;
                    EXPECT_TRUE(labels.insert(field.label).second)
                        << field.path << " " << field.label;
                    EXPECT_TRUE(field.help.ends_with('.')) << field.path << ": " << field.help;
                }
            });
            for (const std::string& text : testing::textsOf(pages, taxCase)) {
                for (const char* fault :
                     {"ß", "„", "“", "\"", "%1", "{", "  ", " .", "..", "()", " ,"}) {
                    EXPECT_EQ(text.find(fault), std::string::npos) << fault << " in: " << text;
                }
                EXPECT_TRUE(text.empty() || (text.front() != ' ' && text.back() != ' ')) << text;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Years, FieldCoverageTest, ::testing::ValuesIn(RuleBook::supportedYears),
                         [](const auto& year) { return std::to_string(year.param); });

} // namespace
} // namespace fiscarel
