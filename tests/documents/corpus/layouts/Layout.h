#pragma once

#include "tests/documents/corpus/kit/Draft.h"

#include <functional>
#include <vector>

namespace corpus {

/// One way in which an issuer sets one kind of paper.
struct Layout {
    const char* group;
    const char* name;
    bool held = false;
    const char* languages = "de"; ///< separated by commas
    bool payload = false;
    std::function<void(Draft&)> draw;
};

std::vector<Layout> salaryForms();
std::vector<Layout> salaryPapers();
std::vector<Layout> pensionPapers();
std::vector<Layout> pillarPapers();
std::vector<Layout> buyInPapers();
std::vector<Layout> premiumPapers();
std::vector<Layout> bankPapers();
std::vector<Layout> statementPapers();
std::vector<Layout> billPapers();
std::vector<Layout> donationPapers();
std::vector<Layout> childcarePapers();
std::vector<Layout> coursePapers();
std::vector<Layout> insurancePapers();
std::vector<Layout> propertyPapers();
std::vector<Layout> otherPapers();
std::vector<Layout> plainPapers();
std::vector<Layout> scriptedMoneyPapers();
std::vector<Layout> scriptedWorkPapers();
std::vector<Layout> scriptedLifePapers();
std::vector<Layout> townFamilyPapers();
std::vector<Layout> townWealthPapers();
std::vector<Layout> valleyBankPapers();
std::vector<Layout> valleyWorkPapers();
std::vector<Layout> valleyLifePapers();
std::vector<Layout> alpCarePapers();
std::vector<Layout> alpWealthPapers();
std::vector<Layout> alpLifePapers();
std::vector<Layout> lakeBankPapers();
std::vector<Layout> lakeCardPapers();
std::vector<Layout> lakeHousePapers();
std::vector<Layout> lakeLetters();
std::vector<Layout> riverWorkPapers();
std::vector<Layout> riverLetterPapers();
std::vector<Layout> riverHealthPapers();

/// Every layout of the training set or of the held-out set.
std::vector<Layout> layoutsOf(bool held);

} // namespace corpus
