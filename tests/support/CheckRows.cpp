#include "tests/support/CheckRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>

namespace taxcore::testing {

std::string stem(const std::string& id) {
    static const std::regex place(R"((-[0-9]+)+$|-[a-z]+[A-Z0-9.\[].*$)");
    return std::regex_replace(id, place, "");
}

namespace {

/// An id is the only text in a check that is written in small letters with hyphens.
std::set<std::string> idsIn(const std::string& file) {
    static const std::regex id(R"re("([a-z0-9]+(-[a-z0-9]+)*-[a-z0-9]*[a-z])")re");
    std::ifstream in(std::string(FISCAREL_SOURCE_DIR "/TaxCore/review/") + file);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::set<std::string> ids;
    for (std::sregex_iterator at(text.begin(), text.end(), id), end; at != end; ++at) {
        ids.insert((*at)[1]);
    }
    EXPECT_FALSE(ids.empty()) << file;
    return ids;
}

} // namespace

std::vector<CheckRow> withoutLevels(const std::vector<LevelledRow>& rows) {
    std::vector<CheckRow> checks;
    std::ranges::transform(rows, std::back_inserter(checks), &LevelledRow::row);
    return checks;
}

void expectAllChecks(const std::vector<std::string>& files, const std::vector<LevelledRow>& rows,
                     const std::set<std::string>& elsewhere) {
    static const std::set<std::string> pages{"family",  "income", "work",
                                             "pension", "other",  "wealth"};
    for (const auto& [level, row] : rows) {
        TaxCase hit = row.household();
        row.triggers(hit);
        for (const Notice& notice : reviewed(hit)) {
            EXPECT_TRUE(notice.id != row.id || notice.level == level) << row.id;
            EXPECT_TRUE(notice.id != row.id || pages.contains(notice.area.value_or(""))) << row.id;
        }
    }
    const std::vector<CheckRow> checks = withoutLevels(rows);
    expectChecks(checks);
    expectEveryCheckIsTried(files, checks, elsewhere);
}

void expectEveryCheckIsTried(const std::vector<std::string>& files,
                             const std::vector<CheckRow>& rows,
                             const std::set<std::string>& others) {
    std::set<std::string> given;
    for (const std::string& file : files) {
        given.merge(idsIn(file));
    }
    std::set<std::string> tried;
    for (const std::string& id : others) {
        tried.insert(stem(id));
    }
    for (const CheckRow& row : rows) {
        tried.insert(stem(row.id));
    }
    EXPECT_EQ(tried, given);
}

} // namespace taxcore::testing
