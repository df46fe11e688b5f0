#include "tests/support/LIRuleChecker.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace taxcore::testing {

namespace {

constexpr std::size_t municipalityCount = 11;

/// What a number may be, by the first part its key contains.
const std::array ranges{
    Range{"prozent", 0, 100},     Range{"zuschlag", 0, 300},
    Range{"satz", 0, 1},          Range{"kinderabzug", 1, 1'000'000},
    Range{"abzug", 0, 1'000'000}, Range{"matrix", 0, 20'000},
    Range{"tage", 200, 260},      Range{"rappen", 1, 500},
    Range{"protag", 1, 500},      Range{"", 1, 1'000'000},
};

/// SteG Art. 19: the rates rise with the income, and the deductions, which the law states in whole
/// francs, let each step go on where the one before ends.
void checkSteps(const std::vector<LIRules::Stufe>& steps, const std::string& key,
                RuleReport& report) {
    report.require(!steps.empty() && !steps.back().bis, key, "the last step is not open");
    for (std::size_t i = 1; i < steps.size(); ++i) {
        const LIRules::Stufe& before = steps[i - 1];
        const LIRules::Stufe& step = steps[i];
        const std::string place = item(key, i);
        report.require(before.satz < step.satz, place + ".satz", "does not rise");
        if (!before.bis) {
            report.add(item(key, i - 1) + ".bis", "missing, though a step follows");
            continue;
        }
        report.require(!step.bis || *before.bis < *step.bis, place + ".bis", "does not rise");
        const auto taxAtSeam = [&](const LIRules::Stufe& s) {
            return *before.bis * s.satz - s.abzug;
        };
        report.require((taxAtSeam(step) - taxAtSeam(before)).abs() <= 1, place + ".abzug",
                       "does not continue the step before");
    }
}

void checkFares(const LIRules& rules, RuleReport& report) {
    const auto& matrix = rules.fahrkostenMatrix;
    const std::size_t places = rules.fahrkostenOrte.size();
    const std::string key = "fahrkostenMatrix";
    checkNames(rules.fahrkostenOrte, "fahrkostenOrte", report);
    report.require(places > 0, "fahrkostenOrte", "none");
    report.require(matrix.size() == places, key,
                   std::to_string(matrix.size()) + " rows instead of " + std::to_string(places));
    for (std::size_t i = 0; i < matrix.size(); ++i) {
        report.require(matrix[i].size() == places, item(key, i),
                       std::to_string(matrix[i].size()) + " fares instead of "
                           + std::to_string(places));
        report.require(i >= matrix[i].size() || matrix[i][i].isZero(), item(item(key, i), i),
                       "a fare without a way");
    }
}

} // namespace

void checkLIRules(const LIRules& rules, RuleReport& report) {
    checkRanges(rules, ranges, report);
    checkCitations({rules.quelle}, "quelle", report);
    checkPairs(rules, {}, rules.fahrMaxTage, report);
    checkSteps(rules.tarif.alleinstehend, "tarif.alleinstehend", report);
    checkSteps(rules.tarif.alleinerziehend, "tarif.alleinerziehend", report);
    checkSteps(rules.tarif.verheiratet, "tarif.verheiratet", report);
    std::vector<std::string> names;
    std::ranges::transform(rules.gemeinden, std::back_inserter(names), &LIRules::Gemeinde::name);
    report.require(names.size() == municipalityCount, "gemeinden",
                   std::to_string(names.size()) + " of them");
    checkNames(names, "gemeinden", report);
    checkFares(rules, report);
}

} // namespace taxcore::testing
