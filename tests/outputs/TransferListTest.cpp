#include "Fiscarel_SG/outputs/TransferList.h"

#include "Fiscarel_SG/outputs/CaseEntries.h"
#include "Fiscarel_SG/outputs/SharedForms.h"
#include "Fiscarel_SG/outputs/TransferCsv.h"
#include "Fiscarel_SG/outputs/TransferHtml.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/support/Households.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <tuple>

namespace fiscarel::outputs {
namespace {

using namespace taxcore;

constexpr std::array regions{TaxRegion::stGallen, TaxRegion::liechtenstein};

struct Listed {
    explicit Listed(const TaxCase& household, std::set<std::string> checked = {},
                    const std::vector<StoredDocument>& documents = {})
        : taxCase(household), calculator(CaseCalculator::forCase(taxCase).value()),
          result(calculator.calculate(taxCase)), ticks(std::move(checked)),
          list(makeTransferList({calculator, taxCase, result, documents, ticks})) {}

    const TransferRow& row(const std::string& key) const {
        const auto found = std::ranges::find(list.rows, key, &TransferRow::key);
        if (found == list.rows.end()) {
            throw std::runtime_error("no row " + key);
        }
        return *found;
    }

    TaxCase taxCase;
    CaseCalculator calculator;
    TaxResult result;
    std::set<std::string> ticks;
    TransferList list;
};

/// Households of all kinds: the demos and the hand-made ones, and random ones of everyday size.
std::vector<TaxCase> households(TaxRegion region, std::size_t randomOnes) {
    std::vector<TaxCase> cases = taxcore::testing::householdsOf(region);
    taxcore::testing::RandomCase random(20250117);
    for (std::size_t i = 0; i < randomOnes; ++i) {
        TaxCase taxCase = random.next();
        taxCase.year = RuleBook::supportedYears[i % RuleBook::supportedYears.size()];
        taxCase.region = region;
        cases.push_back(std::move(taxCase));
    }
    return cases;
}

class EveryRegion : public ::testing::TestWithParam<TaxRegion> {};

TEST_P(EveryRegion, everyEntryStandsInARowOrHasAReason) {
    std::size_t entries = 0;
    std::map<std::string, std::string> faults; // each pattern once
    for (const TaxCase& taxCase : households(GetParam(), 1'500)) {
        const Listed listed(taxCase);
        entries += entriesOf(taxCase).size();
        for (const std::string& path : listed.list.unexplained) {
            faults.try_emplace(patternOf(path),
                               valueAt(taxCase, path).value_or("") + " in " + path);
        }
        std::set<std::string> seen;
        for (const TransferRow& row : listed.list.rows) {
            seen.insert(row.paths.begin(), row.paths.end());
        }
        for (const NotTransferred& entry : listed.list.notTransferred) {
            EXPECT_FALSE(seen.contains(entry.path)) << entry.path << " told twice";
        }
    }
    EXPECT_GT(entries, 50'000U);
    EXPECT_EQ(faults, (std::map<std::string, std::string>{}));
}

TEST_P(EveryRegion, rowsStandInTheOrderOfTheirForms) {
    for (const TaxCase& taxCase : households(GetParam(), 200)) {
        const Listed listed(taxCase);
        std::set<std::string> keys;
        std::set<std::tuple<std::string, int>> begun;
        const TransferRow* before = nullptr;
        for (const TransferRow& row : listed.list.rows) {
            ASSERT_FALSE(row.form.empty() || row.label.empty() || row.value.empty()) << row.key;
            EXPECT_TRUE(row.page >= 1 && row.page <= 4) << row.key;
            EXPECT_EQ(row.person == 0, row.name.empty()) << row.key;
            EXPECT_TRUE(keys.insert(row.key).second) << row.key << " twice";
            EXPECT_EQ(row.key.find('='), std::string::npos) << row.key;
            if (before != nullptr && before->form == row.form) {
                ASSERT_LE(before->page, row.page) << row.key;
                const bool samePart = before->page == row.page && before->item == row.item
                                      && before->person == row.person;
                const bool isReturn = row.key == row.code && before->key == before->code;
                if ((samePart || isReturn) && before->page == row.page && !row.ziffer.empty()) {
                    EXPECT_FALSE(isZifferBefore(row.ziffer, before->ziffer))
                        << before->ziffer << " before " << row.ziffer;
                    EXPECT_FALSE(isReturn && before->ziffer == row.ziffer
                                 && row.person < before->person)
                        << row.key;
                }
            } else {
                EXPECT_TRUE(begun.insert({row.form, row.page}).second || row.person == 2)
                    << row.form << " begins twice";
            }
            before = &row;
        }
    }
}

TEST_P(EveryRegion, linesTraceBackToWhatTheCalculationUsed) {
    for (const TaxCase& taxCase : households(GetParam(), 100)) {
        const Listed listed(taxCase);
        for (const TransferRow& row : listed.list.rows) {
            EXPECT_FALSE(row.paths.empty() && row.lines.empty() && row.code.empty()) << row.key;
            for (const std::string& path : row.paths) {
                EXPECT_TRUE(valueAt(taxCase, path) || path.starts_with("li.")) << path;
            }
        }
    }
    const Listed demo(DemoData::household(GetParam(), 2025));
    for (const TransferRow& row : demo.list.rows) {
        EXPECT_FALSE(row.paths.empty() && row.lines.empty()) << row.key << " comes from nowhere";
    }
}

/// The list of the invented household as it was read line by line against the forms, with what
/// stands on none. After a change: read it again; FISCAREL_UPDATE_GOLDEN=1 writes the file anew.
TEST_P(EveryRegion, listsTheDemoHouseholdAsRead) {
    const TransferList list = Listed(DemoData::household(GetParam(), 2025)).list;
    std::string text = transferCsv(list);
    std::erase(text, '\r');
    for (const NotTransferred& entry : list.notTransferred) {
        text += "# " + entry.path + " = " + entry.value + ": " + entry.reason + "\n";
    }
    const auto golden = std::filesystem::path(FISCAREL_TEST_DIR) / "data"
                        / ("transfer-" + std::string(rawValue(GetParam())) + ".csv");
    if (std::getenv("FISCAREL_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(golden) << text;
    }
    std::ifstream in(golden);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(in), {})) << golden;
}

INSTANTIATE_TEST_SUITE_P(TransferList, EveryRegion, ::testing::ValuesIn(regions),
                         [](const auto& region) {
                             return taxcore::testing::suiteName(region.param);
                         });

TEST(TransferList, countsZiffernAsTheFormsDo) {
    const char* const inOrder[] = {"",    "E", "F", "1.1",  "2.3",  "3.8",   "3.81", "3.84",
                                   "3.9", "8", "9", "10.1", "10.2", "11.11", "11.3", "30.6"};
    for (std::size_t i = 1; i < std::size(inOrder); ++i) {
        EXPECT_TRUE(isZifferBefore(inOrder[i - 1], inOrder[i])) << inOrder[i];
        EXPECT_FALSE(isZifferBefore(inOrder[i], inOrder[i - 1])) << inOrder[i];
    }
}

TEST(TransferList, showsValuesAsTheFormsWantThem) {
    TaxCase taxCase = DemoData::family(2025);
    taxCase.securities[0].ibanOrValor = "ch9300762011623852957";
    taxCase.securities[1].ibanOrValor = "12345678";
    taxCase.income1.salaries[0].remarks = " Zeile 1\nZeile 2\t ";
    taxCase.householdIncome.otherIncome = -1'234.99_dec;
    const Listed listed(taxCase);
    const auto field = [&](std::size_t at, const std::string& name) {
        return listed.row("securities[" + taxCase.securities[at].id.toString() + "]." + name);
    };
    struct Expected {
        TransferRow row;
        const char* shown;
        const char* pasted;
    };
    const std::string certificate =
        "income1.salaries[" + taxCase.income1.salaries[0].id.toString() + "].";
    const std::vector<Expected> rows{
        {field(0, "taxValue"), "18’264", "18264"}, // 18'264.35: whole francs, cut
        {field(1, "incomeWithWithholding"), "480.90", "480.90"},
        {field(0, "ibanOrValor"), "CH93 0076 2011 6238 5295 7", "CH9300762011623852957"},
        {field(1, "ibanOrValor"), "12345678", "12345678"},
        {field(3, "code"), "BP", "BP"},
        {listed.row("uebrigeEinkuenfte"), "-1’234", "-1234"}, // towards zero
        {listed.row("person1.birthDate"), "17.04.1986", "17.04.1986"},
        {listed.row(certificate + "remarks"), "Zeile 1 Zeile 2", "Zeile 1 Zeile 2"},
        {listed.row("berufskosten1"), "8’220 / Bund 8’669", "8220"},
    };
    for (const Expected& expected : rows) {
        EXPECT_EQ(expected.row.shown(), expected.shown) << expected.row.key;
        EXPECT_EQ(pasted(expected.row.kind, expected.row.value), expected.pasted);
    }
}

TEST(TransferList, aTickHoldsAsLongAsTheValue) {
    TaxCase taxCase = DemoData::family(2025);
    const Listed fresh(taxCase);
    std::set<std::string> ticks;
    for (const TransferRow& row : fresh.list.rows) {
        ticks.insert(row.id());
    }
    EXPECT_EQ(fresh.list.doneCount(), 0U);
    EXPECT_EQ(Listed(taxCase, ticks).list.doneCount(), fresh.list.rows.size());

    std::ranges::reverse(taxCase.securities);
    std::ranges::reverse(taxCase.householdDeductions.medicalCosts);
    EXPECT_EQ(Listed(taxCase, ticks).list.doneCount(), fresh.list.rows.size())
        << "moving items changes no value";

    taxCase.income2.salaries[1].grossSalary += 0.30_dec; // within the same franc
    EXPECT_EQ(Listed(taxCase, ticks).row("nebenerwerb2").tick, Tick::done);

    taxCase.income2.salaries[1].grossSalary += 100;
    const Listed edited(taxCase, ticks);
    const TransferRow& side = edited.row("nebenerwerb2");
    EXPECT_EQ(side.tick, Tick::changed);
    EXPECT_EQ(side.value, "4’031");
    EXPECT_EQ(side.oldValue, "3’931");
    EXPECT_EQ(side.formers, (std::vector<std::string>{"nebenerwerb2=3’931"}));
    EXPECT_EQ(edited.row("haupterwerb2").tick, Tick::done);
    EXPECT_TRUE(edited.list.gone.empty());

    taxCase.income2.salaries.pop_back();
    const Listed removed(taxCase, ticks);
    std::map<std::string, std::size_t> gone;
    for (const GoneRow& row : removed.list.gone) {
        gone[row.label] = row.ticks.size();
        EXPECT_EQ(row.ticks.size(), row.oldValues.size());
    }
    EXPECT_EQ(gone, (std::map<std::string, std::size_t>{
                        {"Nebenerwerb (Nettolohn)", 1}, {"Lohnausweis", 5}, {"Berufskosten", 1}}));
}

TEST(TransferList, namesTheDocumentsBehindAValue) {
    TaxCase taxCase = DemoData::family(2025);
    StoredDocument linked{.year = 2025};
    StoredDocument applied{.year = 2025};
    StoredDocument otherYear{.year = 2024};
    taxCase.securities[2].documentID = linked.id;
    applied.applied = {{.path = "deductions1.pillar3a"}};
    otherYear.applied = applied.applied;
    const Listed listed(taxCase, {}, {linked, applied, otherYear});
    using Documents = std::vector<Uuid>;
    EXPECT_EQ(listed.row("saeule3a1").documents, Documents{applied.id});
    EXPECT_EQ(listed.row("saeule3a2").documents, Documents{});
    EXPECT_EQ(listed.row("wertschriften").documents, Documents{linked.id});
    EXPECT_EQ(
        listed.row("securities[" + taxCase.securities[2].id.toString() + "].taxValue").documents,
        Documents{linked.id});
}

TEST(TransferList, printsEveryRowOnceAndEscaped) {
    TaxCase taxCase = DemoData::family(2025);
    taxCase.person1.profession = "<b>&\"";
    const Listed listed(taxCase);
    const std::string html = transferHtml(listed.list, "A & B");
    std::size_t boxes = 0;
    for (std::size_t at = 0; (at = html.find("☐", at)) != std::string::npos; ++at) {
        ++boxes;
    }
    EXPECT_EQ(boxes, listed.list.rows.size());
    EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;"), std::string::npos);
    EXPECT_NE(html.find("<h2>A &amp; B</h2>"), std::string::npos);
    EXPECT_EQ(html.find("<b>&"), std::string::npos);
}

} // namespace
} // namespace fiscarel::outputs
