#include "tests/support/RuleReport.h"

#include <algorithm>

namespace taxcore::testing {

std::string join(const std::string& path, std::string_view key) {
    return path.empty() ? std::string(key) : path + "." + std::string(key);
}

std::string item(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

bool isProperName(const std::string& name) {
    return !name.empty() && name.front() != ' ' && name.back() != ' ';
}

void checkNames(const std::vector<std::string>& names, const std::string& key, RuleReport& report) {
    report.require(std::set<std::string>(names.begin(), names.end()).size() == names.size(), key,
                   "two of one name");
    report.require(std::ranges::all_of(names, isProperName), key, "blank in a name");
}

const Range& rangeOf(std::string_view key, std::span<const Range> ranges) {
    const std::string name = lowered(key);
    return *std::ranges::find_if(
        ranges, [&](const Range& range) { return name.find(range.part) != std::string::npos; });
}

void checkCitations(const std::vector<std::string>& citations, const std::string& key,
                    RuleReport& report) {
    report.require(!citations.empty(), key, "no citation");
    for (const std::string& citation : citations) {
        report.require(citation.find_first_not_of(" \t\n") != std::string::npos, key,
                       "empty citation");
    }
}

std::string exchanged(std::string name, std::string_view from, std::string_view to) {
    const auto at = name.find(from);
    return at == std::string::npos ? std::string() : name.replace(at, from.size(), to);
}

} // namespace taxcore::testing
