#include "tests/support/RuleCopy.h"

#include "TaxCore/rulebook/RuleCache.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace taxcore::testing {

namespace {

namespace fs = std::filesystem;

} // namespace

std::shared_ptr<const RuleBook> shippedRules(int year) {
    static RuleBookCache cache;
    return RuleBook::load(year, "SG", cache, RuleFiles(FISCAREL_RULES_DIR)).value();
}

std::shared_ptr<const LIRules> shippedLIRules(int year) {
    static RuleCache<int, LIRules> cache;
    if (auto kept = cache.get(year)) {
        return kept;
    }
    std::shared_ptr<const LIRules> rules =
        LIRules::load(year, RuleFiles(FISCAREL_RULES_DIR)).value();
    cache.put(year, rules);
    return rules;
}

RuleCopy::RuleCopy() {
    std::string pattern = (fs::temp_directory_path() / "rules-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    folder_ = pattern;
    fs::copy(FISCAREL_RULES_DIR, folder_, fs::copy_options::recursive);
}

RuleCopy::~RuleCopy() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string RuleCopy::text(const std::string& file) const {
    std::ifstream stream(folder_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void RuleCopy::write(const std::string& file, std::string_view text) const {
    std::ofstream(folder_ / file, std::ios::binary) << text;
}

void RuleCopy::remove(const std::string& file) const { fs::remove(folder_ / file); }

void RuleCopy::replace(const std::string& file, std::string_view find, std::string_view put) const {
    std::string content = text(file);
    const auto at = content.find(find);
    if (at == std::string::npos) {
        throw std::runtime_error(file + " does not hold " + std::string(find));
    }
    write(file, content.replace(at, find.size(), put));
}

} // namespace taxcore::testing
