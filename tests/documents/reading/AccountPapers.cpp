#include "tests/documents/reading/AccountPapers.h"

#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {

Records amountsOf(const ScanResult& result) {
    Records amounts(result.records.size());
    for (const Proposal& proposal : result.proposals) {
        for (const char* field :
             {"taxValue", "quantity", "incomeWithWithholding", "incomeWithoutWithholding", "amount",
              "interest", "actualAssetManagementCosts"}) {
            if (proposal.field == field) {
                amounts[static_cast<std::size_t>(proposal.recordIndex)][field] = proposal.value;
            }
        }
    }
    return amounts;
}

void expectRead(const std::vector<Paper>& papers) {
    for (const Paper& paper : papers) {
        DrawnPage page;
        page.text(60, 40, "Muster Bank AG");
        double y = 80;
        for (const TableRow& row : paper.rows) {
            page.text(60, y, row.words);
            for (const auto& [edge, words] : row.cells) {
                page.right(edge, y, words);
            }
            y += 16;
        }
        EXPECT_EQ(amountsOf(page.proposed()), paper.amounts) << paper.what;
    }
}

} // namespace fiscarel
