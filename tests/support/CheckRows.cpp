#include "tests/support/CheckRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>

namespace taxcore::testing {

namespace {

std::string sourceOf(const std::string& file) {
    std::ifstream in(std::string(FISCAREL_SOURCE_DIR) + "/TaxCore/review/" + file);
    EXPECT_TRUE(in.good()) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> matches(const std::string& text, const std::regex& pattern) {
    std::vector<std::string> found;
    for (auto at = std::sregex_iterator(text.begin(), text.end(), pattern);
         at != std::sregex_iterator(); ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

/// The ids, still without numbers, that stand in the findings of a source file.
std::vector<std::string> stemsOf(const std::string& file) {
    static const std::regex finding(R"(\bc_?\.(info|warning|error)\()");
    static const std::regex stem(
        R"#(\bc_?\.(?:info|warning|error)\(\s*\{\s*(?:adult\.id\(|itemId\()?\s*"([a-z0-9-]+)")#");
    const std::string source = sourceOf(file);
    std::vector<std::string> stems = matches(source, stem);
    EXPECT_EQ(stems.size(), matches(source, finding).size())
        << file << ": a finding without its id";
    return stems;
}

bool belongsTo(const std::string& id, const std::string& stem) {
    return std::regex_match(id, std::regex(stem + R"((-\d+){0,2})"));
}

} // namespace

void expectAllChecks(const std::vector<std::string>& files, const std::vector<LevelledRow>& rows,
                     const std::vector<std::string>& elsewhere) {
    static const std::set<std::string> pages{"family",  "income", "work",
                                             "pension", "other",  "wealth"};
    std::vector<CheckRow> checks;
    std::vector<std::string> ids = elsewhere;
    for (const auto& [level, row] : rows) {
        checks.push_back(row);
        ids.emplace_back(row.id);
        TaxCase hit = row.household();
        row.triggers(hit);
        for (const Notice& notice : reviewed(hit)) {
            EXPECT_TRUE(notice.id != row.id || notice.level == level) << row.id;
            EXPECT_TRUE(notice.id != row.id || pages.contains(notice.area.value_or(""))) << row.id;
        }
    }
    expectChecks(checks);
    std::vector<std::string> stems;
    for (const std::string& file : files) {
        std::ranges::copy(stemsOf(file), std::back_inserter(stems));
    }
    for (const std::string& stem : stems) {
        EXPECT_TRUE(
            std::ranges::any_of(ids, [&](const std::string& id) { return belongsTo(id, stem); }))
            << stem << " has no row";
    }
    for (const std::string& id : ids) {
        EXPECT_TRUE(std::ranges::any_of(
            stems, [&](const std::string& stem) { return belongsTo(id, stem); }))
            << id << " is not given by these files";
    }
}

} // namespace taxcore::testing
