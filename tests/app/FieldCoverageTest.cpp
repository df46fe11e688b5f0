#include "Fiscarel_SG/pages/InputPages.h"
#include "tests/support/InputPaths.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace fiscarel {
namespace {

using namespace taxcore;

forms::PageContext contextOf(const TaxCase& taxCase) {
    forms::PageContext context{.year = taxCase.year, .region = taxCase.taxRegion()};
    if (context.region == TaxRegion::liechtenstein) {
        context.liechtenstein = LIRules::load(context.year).value().get();
    } else {
        context.stGallen = RuleBook::load(context.year, "SG").value().get();
    }
    return context;
}

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
        return pages::inputPages(contextOf(household(region)));
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

/// A field edits what its path says: a change of the value is a change there and nowhere else.
TEST_P(FieldCoverageTest, everyFieldChangesTheEntryOfItsPathOnly) {
    const auto another = [](const forms::BoundField& field, const TaxCase& taxCase) {
        const forms::Value old = field.get(taxCase);
        if (const auto* flag = std::get_if<bool>(&old)) {
            return forms::Value(!*flag);
        }
        if (const auto* count = std::get_if<int>(&old)) {
            return forms::Value(*count + 1);
        }
        if (const auto* amount = std::get_if<Decimal>(&old)) {
            return forms::Value(*amount + 1);
        }
        if (std::holds_alternative<Date>(old)) {
            return forms::Value(Date::of(2020, 2, 29).value());
        }
        const auto text = std::get<std::string>(old);
        for (const forms::Option& option : field.options) {
            if (option.raw != text) {
                return forms::Value(option.raw);
            }
        }
        return forms::Value(text + "x");
    };
    for (const TaxRegion region : regions) {
        const TaxCase before = household(region);
        for (const forms::Page& page : pagesOf(region)) {
            for (const forms::BoundField& field : testing::fieldsOf(page, before)) {
                TaxCase after = before;
                const forms::Value value = another(field, before);
                field.set(after, value);
                EXPECT_EQ(field.get(after), value) << field.path;
                const auto changes = diff(before, after);
                ASSERT_EQ(changes.size(), 1U) << field.path;
                EXPECT_EQ(changes.front().path, field.path);
            }
        }
    }
}

TEST_P(FieldCoverageTest, everyFieldHasALabelAndSwissSpelling) {
    for (const TaxRegion region : regions) {
        const TaxCase taxCase = household(region);
        for (const forms::Page& page : pagesOf(region)) {
            for (const forms::BoundField& field : testing::fieldsOf(page, taxCase)) {
                EXPECT_FALSE(field.label.empty()) << field.path;
                const std::string texts = field.label + field.help;
                for (const char* foreign : {"ß", "„", "“", "\"", "  "}) {
                    EXPECT_EQ(texts.find(foreign), std::string::npos) << field.path << foreign;
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Years, FieldCoverageTest, ::testing::ValuesIn(RuleBook::supportedYears),
                         [](const auto& year) { return std::to_string(year.param); });

} // namespace
} // namespace fiscarel
