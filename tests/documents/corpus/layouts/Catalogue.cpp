#include "tests/documents/corpus/layouts/Layout.h"

namespace corpus {

std::vector<Layout> layoutsOf(bool held) {
    std::vector<Layout> chosen;
    for (const auto& group :
         {salaryForms(),         salaryPapers(),       pensionPapers(),      pillarPapers(),
          buyInPapers(),         premiumPapers(),      bankPapers(),         statementPapers(),
          billPapers(),          donationPapers(),     childcarePapers(),    coursePapers(),
          insurancePapers(),     propertyPapers(),     otherPapers(),        plainPapers(),
          scriptedMoneyPapers(), scriptedWorkPapers(), scriptedLifePapers(), townFamilyPapers(),
          townWealthPapers(),    valleyBankPapers(),   valleyWorkPapers(),   valleyLifePapers(),
          alpCarePapers(),       alpWealthPapers(),    alpLifePapers(),      lakeBankPapers(),
          lakeCardPapers(),      lakeHousePapers(),    lakeLetters(),        riverWorkPapers(),
          riverLetterPapers(),   riverHealthPapers()}) {
        for (const Layout& layout : group) {
            if (layout.held == held) {
                chosen.push_back(layout);
            }
        }
    }
    return chosen;
}

} // namespace corpus
