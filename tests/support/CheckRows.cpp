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

void expectAllChecks(const std::vector<std::string>& files, const std::vector<CheckRow>& rows,
                     const std::set<std::string>& elsewhere) {
    expectChecks(rows);
    std::set<std::string> given;
    for (const std::string& file : files) {
        given.merge(idsIn(file));
    }
    std::set<std::string> tried;
    for (const std::string& id : elsewhere) {
        tried.insert(stem(id));
    }
    for (const CheckRow& row : rows) {
        tried.insert(stem(row.id));
    }
    EXPECT_EQ(tried, given);
}

void expectAllChecks(const std::vector<std::string>& files, const std::vector<LevelledRow>& rows,
                     const std::set<std::string>& elsewhere) {
    for (const auto& [level, row] : rows) {
        TaxCase hit = row.household();
        row.triggers(hit);
        for (const Notice& notice : reviewed(hit)) {
            EXPECT_TRUE(notice.id != row.id || notice.level == level) << row.id;
        }
    }
    expectAllChecks(files, withoutLevels(rows), elsewhere);
}

} // namespace taxcore::testing
