#include "tests/documents/reading/Layouts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

TEST(Layout, amountsFindTheirLabelsHoweverAPageIsSet) {
    std::vector<Layout> layouts = placesOfLabels();
    for (const auto& part : {columnsAndTimes(), peopleAndTraps()}) {
        layouts.insert(layouts.end(), part.begin(), part.end());
    }
    for (const Layout& layout : layouts) {
        const ScanResult result = proposedFrom(layout.puts);
        EXPECT_EQ(result.proposedKind, layout.kind) << layout.name;
        std::vector<std::string> values;
        for (const Proposal& one : result.proposals) {
            if (one.value.find_first_not_of("0123456789.") == std::string::npos) {
                values.push_back(one.field + '=' + one.value);
            }
        }
        std::vector<std::string> wanted = layout.wanted;
        std::ranges::sort(values);
        std::ranges::sort(wanted);
        std::erase_if(values, [](const std::string& one) { return one.starts_with("parcel"); });
        EXPECT_EQ(values, wanted) << layout.name;
    }
}

TEST(Layout, papersThatOnlyLookLikeOneGiveNothing) {
    const std::vector<std::vector<Line>> papers{
        {{"Muster AG"},
         {"Lohnabrechnung März 2024"},
         {"Monatslohn", "6’000.00"},
         {"Bruttolohn", "6’000.00"},
         {"AHV/IV/EO/ALV", "-384.00"},
         {"Pensionskasse", "-416.00"},
         {"Nettolohn", "5’200.00"}},
        {{"Kartencenter Muster"},
         {"Kreditkartenabrechnung"},
         {"Saldo letzte Rechnung", "500.00"},
         {"Einkäufe", "320.00"}},
        {{"Muster Versicherungen"},
         {"Hausratversicherung, Police 4711"},
         {"Versicherungssumme", "80’000.00"},
         {"Jahresprämie", "240.00"}},
        {{"Bank Muster"},
         {"Hypothekarofferte"},
         {"Kredit", "500’000.00"},
         {"Zins 1.9 % p.a.", "9’500.00"}},
        {{"Gemeinde Muster, Steueramt"},
         {"Steuerrechnung 2024"},
         {"Staats- und Gemeindesteuer", "8’400.00"},
         {"Total zu bezahlen", "8’400.00"}},
    };
    for (const std::vector<Line>& lines : papers) {
        EXPECT_TRUE(proposedFrom(lines).proposals.empty()) << lines[1].label;
    }
}

TEST(Layout, placesTellWhereAnAmountReallyStands) {
    const ScanResult result = proposedFrom(placesOfLabels().front().puts);
    const Proposal* fund = proposalOf(result, "pensionContributions");
    ASSERT_NE(fund, nullptr);
    ASSERT_TRUE(fund->box);
    EXPECT_EQ(fund->box->x, Decimal(672) / 1000); // 400 of 595 points
}

} // namespace
} // namespace fiscarel
