#include "tests/support/CaseFile.h"

#include <simdjson.h>

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace taxcore::testing {

namespace {

namespace dom = simdjson::dom;

std::string text(dom::element value) { return std::string(std::string_view(value)); }

Texts texts(dom::object object) {
    Texts result;
    for (const auto [key, value] : object) {
        result.emplace(key, text(value));
    }
    return result;
}

CaseFile readCaseFile(dom::parser& parser, const std::filesystem::path& path) {
    const dom::element file = parser.load(path.string());
    CaseFile result;
    result.path = path;
    result.household.year = static_cast<int>(std::int64_t(file["year"]));
    const auto patched = patchFromJson(result.household, simdjson::minify(file["patch"].value()));
    if (!patched) {
        throw std::runtime_error(patched.error().message);
    }
    for (const dom::array line : dom::array(file["lines"])) {
        ExpectedLine& expected = result.lines.emplace_back();
        expected.code = text(line.at(0));
        expected.canton = text(line.at(1));
        if (line.size() > 2) {
            expected.federal = text(line.at(2));
        }
    }
    result.bill = texts(file["bill"]);
    result.withholdingTaxRefund = text(file["withholdingTaxRefund"]);
    result.withholdingIncomeA = text(file["withholdingIncomeA"]);
    if (dom::object tax; file["capitalPaymentTax"].get(tax) == simdjson::SUCCESS) {
        result.capitalPaymentTax = texts(tax);
    }
    for (const auto [jurisdiction, persons] : dom::object(file["work"])) {
        for (const dom::object person : dom::array(persons)) {
            result.work[std::string(jurisdiction)].push_back(texts(person));
        }
    }
    for (const auto [jurisdiction, breakdown] : dom::object(file["insurance"])) {
        result.insurance[std::string(jurisdiction)] = texts(breakdown);
    }
    for (const dom::element id : dom::array(file["notices"])) {
        result.notices.push_back(text(id));
    }
    std::ranges::sort(result.notices);
    if (dom::array(file["derivation"]).size() == 0 || dom::array(file["source"]).size() == 0) {
        throw std::runtime_error("no derivation or no source");
    }
    return result;
}

} // namespace

std::vector<CaseFile> readCaseFiles(const std::string& folder) {
    std::vector<std::filesystem::path> paths;
    const std::filesystem::path root = std::filesystem::path(FISCAREL_TEST_DIR) / "cases" / folder;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (entry.path().extension() == ".json") {
            paths.push_back(entry.path());
        }
    }
    std::ranges::sort(paths);
    dom::parser parser;
    std::vector<CaseFile> files;
    for (const auto& path : paths) {
        try {
            files.push_back(readCaseFile(parser, path));
        } catch (const std::exception& fault) {
            std::cerr << path << ": " << fault.what() << '\n';
            std::abort();
        }
    }
    return files;
}

} // namespace taxcore::testing
