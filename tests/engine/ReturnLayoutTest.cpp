#include "TaxCore/regions/CaseCalculator.h"
#include "tests/support/Households.h"
#include "tests/support/RegionLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace taxcore {
namespace {

using testing::CsvRow;
using testing::LayoutRow;
using testing::none;
using testing::RegionLayout;
using testing::replaced;

TaxResult calculate(const TaxCase& taxCase) {
    return CaseCalculator::forCase(taxCase)->calculate(taxCase);
}

/// Everything around a line's amount in one text, so that a failure shows where two lines differ.
std::string joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : " | ") + part;
    }
    return text;
}

/// The tests hold the return of one region to its tables.
class Region : public ::testing::TestWithParam<RegionLayout> {
  protected:
    const RegionLayout& region() const { return GetParam(); }

    std::vector<CsvRow> table(const std::string& name) const {
        return testing::readCsv(name + "-" + std::string(rawValue(region().region)) + ".csv");
    }

    /// Every household of the tests, with names that tell the spouses apart.
    std::vector<TaxCase> households() const {
        std::vector<TaxCase> cases = testing::householdsOf(region().region);
        for (TaxCase& taxCase : cases) {
            taxCase.person1.firstName = "Anna";
            taxCase.person1.lastName = "Muster";
            taxCase.person2.firstName = "Beat";
            taxCase.person2.lastName = "";
        }
        return cases;
    }

    /// The table of the lines by code and, where the label has variants, the variant.
    std::map<std::string, LayoutRow> layout() const {
        std::map<std::string, LayoutRow> rows;
        for (const CsvRow& cells : table("return-layout")) {
            const std::string& code = cells.text("code");
            const bool perPerson = code.ends_with("{n}");
            for (int person = perPerson ? 1 : 0; person <= (perPerson ? 2 : 0); ++person) {
                const std::string key =
                    replaced(code, "{n}", std::to_string(person)) + cells.text("when");
                EXPECT_TRUE(rows.insert({key, {cells, person}}).second) << cells.place();
            }
        }
        return rows;
    }
};

TEST_P(Region, showsEveryLineAsOnTheForm) {
    const std::map<std::string, LayoutRow> table = layout();
    std::set<std::string> missing;
    for (const auto& [key, row] : table) {
        missing.insert(key);
    }
    std::set<std::string> compared;
    std::set<std::string> notes;
    for (const TaxCase& taxCase : households()) {
        const TaxResult result = calculate(taxCase);
        for (const TaxSection& section : result.sections) {
            for (const TaxLine& line : section.lines) {
                const std::string key = region().keyOf(line, taxCase);
                ASSERT_TRUE(table.contains(key)) << key << " stands in no table";
                const LayoutRow& row = table.at(key);
                const std::string& form = row.cells.text("form");
                const std::string expected = joined(
                    {key, row.cells.text("ziffer"), region().labelOf(row, taxCase, result),
                     row.cells.text("kind"), form.empty() ? none : form, row.cells.text("section"),
                     row.cells.text("page"), region().noteOf(row, taxCase, result)});
                const std::string note = region().shownNote(line);
                const std::string shown = joined(
                    {key, line.ziffer, line.label, std::string(rawValue(line.kind)),
                     line.form.value_or(none), section.title, std::to_string(section.page), note});
                missing.erase(key);
                notes.insert(note);
                if (compared.insert(expected + shown).second) {
                    EXPECT_EQ(shown, expected) << testing::nameOf(taxCase);
                }
            }
        }
    }
    EXPECT_EQ(missing, std::set<std::string>{});
    for (const std::string& note : region().notes) {
        EXPECT_TRUE(notes.contains(note)) << note;
    }
    EXPECT_TRUE(notes.contains(none));
}

TEST_P(Region, showsItsSectionsInTheOrderOfTheForms) {
    bool complete = false;
    for (const TaxCase& taxCase : households()) {
        const TaxResult result = calculate(taxCase);
        std::vector<std::string> titles;
        std::ranges::transform(result.sections, std::back_inserter(titles), &TaxSection::title);
        std::vector<std::string> expected;
        std::ranges::copy_if(region().sections, std::back_inserter(expected),
                             [&](const std::string& title) {
                                 return std::ranges::find(titles, title) != titles.end();
                             });
        EXPECT_EQ(titles, expected);
        complete = complete || titles == region().sections;
    }
    EXPECT_TRUE(complete);
}

TEST_P(Region, wordsItsNoticesAsSettled) {
    std::map<std::string, std::string> expected;
    std::set<std::string> ids;
    for (const CsvRow& row : table("notices")) {
        expected[row.text("household")] +=
            joined({row.text("id"), row.text("level"), row.text("area"), row.text("title"),
                    row.text("message"), none})
            + "\n";
        ids.insert(row.text("id"));
    }
    std::map<std::string, std::string> shown;
    for (const auto& [name, couple] : region().remarkable()) {
        for (const Notice& notice : calculate(couple).notices) {
            shown[name] += joined({notice.id, std::string(rawValue(notice.level)),
                                   notice.area.value_or(none), notice.title, notice.message,
                                   notice.saving ? notice.saving->toString() : none})
                           + "\n";
        }
    }
    EXPECT_EQ(shown, expected);

    std::set<std::string> found;
    for (const TaxCase& taxCase : households()) {
        for (const Notice& notice : calculate(taxCase).notices) {
            found.insert(notice.id);
        }
    }
    EXPECT_EQ(found, ids);
}

INSTANTIATE_TEST_SUITE_P(ReturnLayout, Region,
                         ::testing::Values(testing::layoutOfStGallen(),
                                           testing::layoutOfLiechtenstein()),
                         [](const ::testing::TestParamInfo<RegionLayout>& tested) {
                             return testing::suiteName(tested.param.region);
                         });

} // namespace
} // namespace taxcore
