#include "tests/support/Households.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/support/CaseFile.h"

namespace taxcore::testing {

std::vector<TaxCase> householdsOf(TaxRegion region) {
    std::vector<TaxCase> cases;
    for (const int year : RuleBook::supportedYears) {
        cases.push_back(DemoData::household(region, year));
    }
    for (const CaseFile& file : readCaseFiles(std::string(rawValue(region)))) {
        cases.push_back(file.household);
    }
    return cases;
}

std::string nameOf(const TaxCase& taxCase) {
    return taxCase.person1.displayName() + ", " + taxCase.municipality + " "
           + std::to_string(taxCase.year);
}

std::string suiteName(TaxRegion region) {
    return region == TaxRegion::liechtenstein ? "Liechtenstein" : "StGallen";
}

} // namespace taxcore::testing
