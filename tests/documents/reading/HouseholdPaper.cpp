#include "tests/documents/reading/HouseholdPaper.h"

namespace fiscarel {

std::vector<std::string> amountsOf(const std::vector<Put>& puts) {
    static const std::vector<std::string> words{
        "childcareProvider", "provider", "employer", "company", "from", "to", "recipient", "label"};
    const ScanResult result = proposedFrom(puts);
    std::vector<std::string> amounts;
    for (std::size_t i = 0; i < result.records.size(); ++i) {
        for (const std::string& value : valuesOf(result, i, words)) {
            amounts.push_back(result.records[i].personName + ": " + value);
        }
    }
    return amounts;
}

} // namespace fiscarel
