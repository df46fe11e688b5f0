#include "Fiscarel_SG/outputs/Enclosures.h"

#include "TaxCore/demo/DemoData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel::outputs {
namespace {

using namespace taxcore;
using Kind = StoredDocument::Kind;

StoredDocument document(Kind kind, int year = 2025) {
    StoredDocument made{.year = year};
    made.kind = kind;
    return made;
}

const Enclosure& find(const Checklist& checklist, const std::string& path) {
    const auto found = std::ranges::find(checklist.enclosures, path, &Enclosure::path);
    if (found == checklist.enclosures.end()) {
        throw std::runtime_error("nothing asks for " + path);
    }
    return *found;
}

TEST(Enclosures, linksAndTakenOverValuesCoverAnEntry) {
    TaxCase taxCase = DemoData::family(2025);
    std::vector<StoredDocument> documents{document(Kind::lohnausweis), document(Kind::saeule3a),
                                          document(Kind::bankauszug),
                                          document(Kind::lohnausweis, 2024)};
    taxCase.income1.salaries[0].documentID = documents[0].id;
    documents[1].applied = {{.path = "deductions2.pillar3a"}};
    documents[2].applied = {{.path = "securities[1].taxValue"}, {.path = "debts[0].amount"}};
    const Checklist checklist = makeChecklist(taxCase, documents);
    using Ids = std::vector<Uuid>;
    EXPECT_EQ(find(checklist, "income1.salaries[0]").documents, Ids{documents[0].id});
    EXPECT_EQ(find(checklist, "deductions2.pillar3a").documents, Ids{documents[1].id});
    EXPECT_TRUE(find(checklist, "deductions1.pillar3a").isMissing());
    EXPECT_EQ(find(checklist, "securities[1]").documents, Ids{documents[2].id});
    EXPECT_EQ(find(checklist, "debts[0]").documents, Ids{documents[2].id});
    EXPECT_TRUE(find(checklist, "securities[0]").isMissing());
    EXPECT_TRUE(find(checklist, "income2.salaries[0]").candidates.empty()) << "tied elsewhere";
    EXPECT_EQ(checklist.order(), (Ids{documents[0].id, documents[2].id, documents[1].id}))
        << "by Ziffer 1.1, 11, 13.1, each once";
}

TEST(Enclosures, aDocumentOfItsKindCoversTheOnlyEntryThatAsksForIt) {
    const std::vector<StoredDocument> documents{document(Kind::krankenkasse),
                                                document(Kind::spende), document(Kind::anderes)};
    const Checklist checklist = makeChecklist(DemoData::family(2025), documents);
    using Ids = std::vector<Uuid>;
    EXPECT_EQ(find(checklist, "householdDeductions.healthInsurancePremiums").documents,
              Ids{documents[0].id});
    for (int i = 0; i < 3; ++i) {
        const auto& gift =
            find(checklist, "householdDeductions.donations[" + std::to_string(i) + "]");
        EXPECT_TRUE(gift.isMissing());
        EXPECT_EQ(gift.candidates, Ids{documents[1].id});
    }
    EXPECT_EQ(checklist.others, Ids{documents[2].id});
    EXPECT_EQ(checklist.order().size(), documents.size());
}

TEST(Enclosures, asksOnlyForWhatTheReturnHolds) {
    const auto paths = [](const TaxCase& taxCase) {
        std::set<std::string> asked;
        for (const Enclosure& enclosure : makeChecklist(taxCase, {}).enclosures) {
            asked.insert(enclosure.path);
        }
        return asked;
    };
    EXPECT_TRUE(paths(TaxCase{.year = 2025}).empty());
    TaxCase family = DemoData::family(2025);
    EXPECT_TRUE(paths(family).contains("deductions2.pensionBuyIn"));
    family.civilStatus = CivilStatus::getrennt;
    EXPECT_FALSE(paths(family).contains("deductions2.pensionBuyIn")) << "no joint return";
    EXPECT_FALSE(paths(family).contains("securities[3]")) << "owned by person 2";
    const auto abroad = paths(DemoData::liechtensteinFamily(2025));
    EXPECT_TRUE(abroad.contains("children[0].educationCosts"));
    EXPECT_TRUE(abroad.contains("debts[0]"));
}

} // namespace
} // namespace fiscarel::outputs
