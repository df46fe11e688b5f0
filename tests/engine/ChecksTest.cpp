#include "tests/support/RandomCase.h"
#include "tests/support/ReviewCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>

namespace taxcore {
namespace {

TEST(Checks, findNothingInAHouseholdInOrder) {
    EXPECT_EQ(testing::reviewedIds(testing::spotlessHousehold()), std::set<std::string>{});
    EXPECT_EQ(testing::reviewedIds(testing::spotlessLiechtenstein()), std::set<std::string>{});
}

/// Whatever a case holds, the review ends, no id stands twice and every path leads to a field.
TEST(Checks, nameEachFaultOnceAndLeadToFieldsWhateverIsEntered) {
    testing::RandomCase random(20251231);
    for (int i = 0; i < 800; ++i) {
        TaxCase taxCase = random.next();
        taxCase.year = 2025 + i % 2;
        SCOPED_TRACE(i);
        std::set<std::string> ids;
        for (const Notice& notice : testing::reviewed(taxCase)) {
            EXPECT_TRUE(ids.insert(notice.id).second) << notice.id;
            EXPECT_TRUE(!notice.path || valueAt(taxCase, *notice.path)) << *notice.path;
        }
    }
}

TEST(Checks, tellOfItemsByTheirNameOrTheirNumber) {
    struct Row {
        const char* id;
        std::function<void(TaxCase&)> change;
        const char* begins;
    };
    const auto give = [](const char* recipient) {
        return [=](TaxCase& c) {
            c.householdDeductions.donations.push_back(
                {.date = Date::of(2024, 1, 1), .recipient = recipient, .amount = 200});
        };
    };
    const std::vector<Row> rows{
        {"spende-anderes-jahr-1", give("Hilfswerk"), "Die Spende an «Hilfswerk» trägt"},
        {"spende-anderes-jahr-1", give(" "), "Die Spende 1 trägt"},
        {"rechnung-anderes-jahr-1",
         [](TaxCase& c) {
             c.householdDeductions.medicalCosts.push_back(
                 {.date = Date::of(2024, 1, 1), .gross = 300});
         },
         "Die Rechnung 1 trägt"},
        {"schuld-ohne-zins-1", [](TaxCase& c) { c.debts.push_back({.amount = 90'000}); },
         "Für die Schuld 1 (Fr. 90’000) ist kein"},
        {"versicherung-abgelaufen-1", [](TaxCase& c) { c.insurances.push_back({.endYear = 2020}); },
         "Die Versicherung 1 ist 2020"},
        {"iban-pruefziffer-1",
         [](TaxCase& c) { c.securities[0].ibanOrValor = "CH93 0076 2011 6238 5295"; },
         "«Kantonalbank, Sparkonto»: Die IBAN ist zu kurz oder zu lang"},
        {"nicht-berechnet-steueranrechnung-1",
         [](TaxCase& c) { c.securities[0].description = "STEUERRÜCKBEHALT USA"; },
         "«Kantonalbank, STEUERRÜCKBEHALT USA» nennt"},
    };
    for (const Row& row : rows) {
        TaxCase taxCase = testing::spotlessHousehold();
        row.change(taxCase);
        const auto notices = testing::reviewed(taxCase);
        const auto found = std::ranges::find(notices, row.id, &Notice::id);
        ASSERT_NE(found, notices.end()) << row.id;
        EXPECT_TRUE(found->message.starts_with(row.begins)) << found->message;
    }
}

/// The ids that a calculation's notices can have, as they stand in its source; those that end in a
/// hyphen take the number of a person.
std::set<std::string> idsOfCalculation(const std::string& folder) {
    static const std::regex id(R"re((?:\.id = |perPerson\()"([^"]+)")re");
    std::ifstream in(FISCAREL_SOURCE_DIR "/TaxCore/" + folder + "/Notices.cpp");
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::set<std::string> ids;
    for (std::sregex_iterator at(text.begin(), text.end(), id), end; at != end; ++at) {
        const std::string found = (*at)[1];
        for (const char* person : {"1", "2"}) {
            ids.insert(found.ends_with('-') ? found + person : found);
        }
    }
    return ids;
}

TEST(Checks, leadFromEveryNoticeOfTheCalculationToAField) {
    const std::set<std::string> withoutField{"li-pk-max"};
    std::size_t tried = 0;
    for (const auto& [folder, taxCase] :
         {std::pair("stgallen", testing::spotlessHousehold()),
          std::pair("liechtenstein", testing::spotlessLiechtenstein())}) {
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        TaxResult result = calculator.calculate(taxCase);
        for (const std::string& id : idsOfCalculation(folder)) {
            result.notices.emplace_back().id = id;
        }
        for (const Notice& notice :
             Checks::of({calculator, taxCase, result, Date::of(2026, 3, 1).value()})) {
            ++tried;
            EXPECT_EQ(notice.path.has_value(), !withoutField.contains(notice.id)) << notice.id;
            EXPECT_TRUE(!notice.path || valueAt(taxCase, *notice.path)) << *notice.path;
            EXPECT_TRUE(!notice.id.ends_with("-2") || notice.path->starts_with("deductions2."))
                << notice.id;
        }
    }
    EXPECT_EQ(tried, 17U);
}

} // namespace
} // namespace taxcore
