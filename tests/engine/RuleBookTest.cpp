#include "TaxCore/rulebook/RuleBook.h"

#include "TaxCore/base/Rounding.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

namespace taxcore {
namespace {

using testing::addRequiredKeys;
using testing::RuleCopy;
using testing::shippedRules;

const RuleFiles shipped(FISCAREL_RULES_DIR);

void expectSameRules(const RuleBook& a, const RuleBook& b) {
    EXPECT_EQ(a.year, b.year);
    EXPECT_TRUE(a.cantonal == b.cantonal && a.cantonalExtra == b.cantonalExtra);
    EXPECT_TRUE(a.federal == b.federal && a.federalRules == b.federalRules);
    EXPECT_TRUE(a.sgTariff == b.sgTariff && a.municipalities == b.municipalities);
}

TEST(RuleBook, isReadOnce) {
    RuleBookCache cache;
    const auto book = RuleBook::load(2025, "SG", cache, shipped).value();
    EXPECT_EQ(RuleBook::load(2025, "SG", cache, shipped).value(), book);
    EXPECT_EQ(RuleBook::load(2025, "SG", cache, RuleFiles("/nowhere")).value(), book);
    EXPECT_EQ(cache.get(2025, "SG"), book);
    EXPECT_NE(RuleBook::load(2026, "SG", cache, shipped).value()->year, book->year);
}

TEST(RuleBook, isKeptUnderTheCantonAsAskedFor) {
    RuleBookCache cache;
    const auto upper = RuleBook::load(2026, "SG", cache, shipped).value();
    EXPECT_EQ(cache.get(2026, "sg"), nullptr);
    const auto lower = RuleBook::load(2026, "sg", cache, shipped).value();
    EXPECT_NE(upper, lower);
    EXPECT_EQ(upper->canton, "SG");
    EXPECT_EQ(lower->canton, "sg");
    EXPECT_EQ(RuleBook::load(2026, "SG", cache, shipped).value(), upper);
    expectSameRules(*upper, *lower);
}

TEST(RuleBook, namesAMissingFileAndKeepsNothing) {
    for (const std::string file : {"sg-params-2026.json", "dbst-2026.json", "sg-tarif-2026.json",
                                   "sg-steuerfuesse-2026.json"}) {
        const RuleCopy copy;
        const RuleFiles files(copy.folder());
        copy.remove(file);
        RuleBookCache cache;
        const auto book = RuleBook::load(2026, "SG", cache, files);
        ASSERT_FALSE(book) << file;
        EXPECT_EQ(book.error().kind, RuleLoadError::Kind::missing);
        EXPECT_EQ(book.error().fileName, file);
        EXPECT_EQ(book.error().description(), "Regeldatei fehlt: " + file);
        EXPECT_EQ(cache.get(2026, "SG"), nullptr);
        EXPECT_TRUE(RuleBook::load(2025, "SG", cache, files)) << "the other year needs no " << file;

        std::filesystem::copy(std::filesystem::path(FISCAREL_RULES_DIR) / file,
                              copy.folder() / file);
        EXPECT_TRUE(RuleBook::load(2026, "SG", cache, files)) << "the failure was kept";
    }
    RuleBookCache cache;
    const auto none = RuleBook::load(2026, "SG", cache, RuleFiles("/nowhere"));
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error().fileName, "sg-params-2026.json") << "the first of all";
}

/// The error of a load after one change to the files of 2025.
tl::expected<void, RuleLoadError> loadChanged(const std::string& file, std::string_view find,
                                              std::string_view put) {
    const RuleCopy copy;
    copy.replace(file, find, put);
    RuleBookCache cache;
    return RuleBook::load(2025, "SG", cache, RuleFiles(copy.folder())).map([](const auto&) {});
}

TEST(RuleBook, needsEveryKey) {
    std::map<std::string, std::set<std::string_view>> keys;
    addRequiredKeys<DeductionParams>(keys["sg-params-2025.json"]);
    addRequiredKeys<CantonExtraParams>(keys["sg-params-2025.json"]);
    addRequiredKeys<DeductionParams>(keys["dbst-2025.json"]);
    addRequiredKeys<FederalRules>(keys["dbst-2025.json"]);
    addRequiredKeys<SGTariffTable>(keys["sg-tarif-2025.json"]);
    addRequiredKeys<MunicipalityList>(keys["sg-steuerfuesse-2025.json"]);
    for (const auto& [file, names] : keys) {
        for (const std::string_view name : names) {
            const std::string key = "\"" + std::string(name) + "\":";
            const auto loaded = loadChanged(file, key, "\"other\":");
            ASSERT_FALSE(loaded) << file << " without " << key;
            EXPECT_EQ(loaded.error().kind, RuleLoadError::Kind::invalid);
            EXPECT_EQ(loaded.error().fileName, file);
            EXPECT_NE(loaded.error().detail.find(name), std::string::npos)
                << key << " is not named: " << loaded.error().detail;
        }
    }
}

TEST(RuleBook, namesFileAndPlaceOfAFault) {
    struct Row {
        const char* file;
        const char* find;
        const char* put;
        const char* place;
    };
    for (const Row& row : {
             Row{"sg-params-2025.json", R"("einfacheSteuerPromille":)", R"("promille":)",
                 "«vermoegen.einfacheSteuerPromille»"},
             Row{"sg-params-2025.json", R"("satzGemeinsam": 0.02)", R"("satzGemeinsam": "0.02")",
                 "«kapitalleistung.satzGemeinsam»"},
             Row{"sg-params-2025.json", R"("liegenschaften": {)",
                 R"("liegenschaften": 1, "frueher": {)", "«liegenschaften»"},
             Row{"sg-params-2025.json", R"("art": "betrag")", R"("art": "Betrag")",
                 "«zweiverdiener.art»"},
             Row{"sg-params-2025.json", R"("arbeitstageMax": 220)", R"("arbeitstageMax": 220.5)",
                 "«berufskosten.arbeitstageMax»"},
             Row{"dbst-2025.json", R"("steuer": 138.6)", R"("steuer": null)",
                 "«tarif.alleinstehend[1].steuer»"},
             Row{"sg-tarif-2025.json", "0, 4, 8,", "0, 4, \"8\",", "«single[2]»"},
             Row{"sg-steuerfuesse-2025.json", R"("steuerfuss": 107)", R"("steuerfuss": true)",
                 "«municipalities[0].steuerfuss»"},
             Row{"sg-steuerfuesse-2025.json", R"("steuerfuss": 107)", R"("steuerfuss": 01)",
                 "«municipalities[0].steuerfuss»"},
         }) {
        const auto loaded = loadChanged(row.file, row.find, row.put);
        ASSERT_FALSE(loaded) << row.put;
        EXPECT_EQ(loaded.error().kind, RuleLoadError::Kind::invalid);
        const std::string text = loaded.error().description();
        EXPECT_TRUE(text.starts_with("Regeldatei " + std::string(row.file) + ": ")) << text;
        EXPECT_NE(text.find(row.place), std::string::npos) << row.place << " is not in " << text;
    }
}

TEST(RuleBook, mayBeLoadedFromManyThreads) {
    RuleBookCache cache;
    constexpr std::size_t threadCount = 8;
    std::array<std::shared_ptr<const RuleBook>, threadCount> books;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < threadCount; ++i) {
        threads.emplace_back([&, i] {
            const int year = RuleBook::supportedYears.at(i % RuleBook::supportedYears.size());
            books.at(i) = RuleBook::load(year, "SG", cache, shipped).value_or(nullptr);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const auto& book : books) {
        ASSERT_NE(book, nullptr);
        expectSameRules(*book, *shippedRules(book->year));
        const auto kept = cache.get(book->year, "SG");
        ASSERT_NE(kept, nullptr);
        expectSameRules(*book, *kept);
    }
}

/// Rows for 10'000 to 10'300: one more than the threshold for one lets through, one less than that
/// for a couple.
SGTariffTable smallTable() {
    SGTariffTable table;
    table.step = 100;
    table.from = 10'000;
    table.flatRateAbove = 0.0812345_dec;
    table.singleFlatFrom = 10'200;
    table.jointFlatFrom = 10'400;
    table.single = {7, 17, 27, 37};
    table.joint = {3, 13, 23, 33};
    return table;
}

TEST(CantonalTariff, isLookedUpByTheIncomeCutToTheStep) {
    struct Row {
        Decimal income;
        Decimal single;
        Decimal joint;
    };
    const SGTariffTable table = smallTable();
    for (const Row& row :
         {Row{-50'000, 0, 0}, Row{0, 0, 0}, Row{9'999, 0, 0}, Row{9'999.99_dec, 0, 0},
          Row{10'000, 7, 3}, Row{10'099, 7, 3}, Row{10'099.95_dec, 7, 3}, Row{10'100, 17, 13},
          Row{10'200, 27, 23}, Row{10'299.95_dec, 27, 23}, Row{10'300, 836.72_dec, 33},
          Row{10'399, 836.72_dec, 33}, Row{10'400, 844.84_dec, 844.84_dec},
          Row{10'499, 844.84_dec, 844.84_dec}, Row{1'000'000, 81'234.5_dec, 81'234.5_dec}}) {
        EXPECT_EQ(Tariffs::sgSimpleIncomeTax(row.income, TariffKind::single, table), row.single)
            << row.income;
        EXPECT_EQ(Tariffs::sgSimpleIncomeTax(row.income, TariffKind::joint, table), row.joint)
            << row.income;
    }
    SGTariffTable whole = table;
    whole.jointFlatFrom = 10'300;
    EXPECT_EQ(Tariffs::sgSimpleIncomeTax(10'300, TariffKind::joint, whole), 33) << "the last row";
    EXPECT_EQ(Tariffs::sgSimpleIncomeRate(10'099, TariffKind::single, table), 0.0007_dec);
    EXPECT_EQ(Tariffs::sgSimpleIncomeRate(9'999, TariffKind::single, table), 0);
    for (const int income : {-200, 0, 99}) {
        EXPECT_EQ(Tariffs::sgSimpleIncomeRate(income, TariffKind::single, table), 0) << income;
    }
}

TEST(CantonalTariff, taxesWealthToTheRappen) {
    struct Row {
        Decimal wealth;
        Decimal tax;
    };
    for (const Row& row :
         {Row{-1, 0}, Row{-1'000'000, 0}, Row{0, 0}, Row{100'000, 170}, Row{100'002, 170},
          Row{100'003, 170.01_dec}, Row{5, 0.01_dec}, Row{2, 0}, Row{12'345'678, 20'987.65_dec}}) {
        EXPECT_EQ(Tariffs::sgSimpleWealthTax(row.wealth, 1.7_dec), row.tax) << row.wealth;
    }
    EXPECT_EQ(Tariffs::sgSimpleWealthTax(50, 1.7_dec), 0.09_dec) << "half a Rappen goes up";
}

/// From 1'000 francs; from 5'000 on one tenth of everything.
FederalTariff smallTariff() {
    FederalTariff tariff;
    tariff.alleinstehend = {{1'000, 20, 2.47_dec}, {2'000, 44.7_dec, 3.03_dec}};
    tariff.alleinstehendFlatAb = 5'000;
    tariff.verheiratet = {{2'000, 1'234.57_dec, 0.01_dec}};
    tariff.verheiratetFlatAb = 6'000;
    tariff.flatSatz = 0.1_dec;
    tariff.abzugProKind = 10;
    tariff.minimum = 25;
    return tariff;
}

TEST(FederalTariff, cutsIncomeToHundredAndTaxToFiveRappen) {
    struct Row {
        TariffKind kind;
        Decimal income;
        Decimal tax;
    };
    using enum TariffKind;
    const FederalTariff tariff = smallTariff();
    for (const Row& row :
         {Row{single, -5'000, 0}, Row{single, 0, 0}, Row{single, 999.95_dec, 0},
          Row{single, 1'000, 20}, Row{single, 1'100, 22.45_dec},              // 22.47
          Row{single, 1'199.95_dec, 22.45_dec}, Row{single, 1'200, 24.9_dec}, // 24.94
          Row{single, 1'999, 42.2_dec},                                       // 42.23
          Row{single, 2'000, 44.7_dec}, Row{single, 4'999, 132.55_dec},       // 132.57
          Row{single, 5'000, 500}, Row{single, 5'199, 510}, Row{joint, 1'999, 0},
          Row{joint, 2'000, 1'234.55_dec},                                 // 1'234.57
          Row{joint, 2'200, 1'234.55_dec},                                 // 1'234.59
          Row{joint, 2'300, 1'234.6_dec}, Row{joint, 5'999, 1'234.95_dec}, // 1'234.96
          Row{joint, 6'000, 600}}) {
        EXPECT_EQ(Tariffs::federalIncomeTax(row.income, row.kind, tariff), row.tax)
            << rawValue(row.kind) << " " << row.income;
    }
    const FederalTariff& shippedTariff = shippedRules(2026)->federalRules.tarif;
    EXPECT_EQ(Tariffs::federalIncomeTax(50'099.9_dec, single, shippedTariff), 400.8_dec);
    EXPECT_GT(Tariffs::federalIncomeTax(50'100, single, shippedTariff), 400.8_dec);
    EXPECT_EQ(cutToFiveRappen(1'234.57_dec), 1'234.55_dec);
    EXPECT_EQ(cutToFiveRappen(-0.01_dec), -0.05_dec);
    EXPECT_EQ(toFiveRappen(1'234.575_dec), 1'234.6_dec);
}

TEST(FederalTariff, isNotLeviedBelowItsMinimum) {
    struct Row {
        Decimal income;
        int children;
        Decimal tax;
    };
    FederalTariff tariff = smallTariff();
    // 20, 24.90, 27.40, 42.20 and 500 before the 10 francs per child
    for (const Row& row :
         {Row{1'000, 0, 0}, Row{1'200, 0, 0}, Row{1'300, 0, 27.4_dec}, Row{1'300, 1, 0},
          Row{1'900, 1, 32.2_dec}, Row{1'900, 2, 0}, Row{1'300, 5, 0}, Row{5'000, 47, 30},
          Row{5'000, 48, 0}, Row{5'000, 51, 0}}) {
        EXPECT_EQ(
            Tariffs::federalIncomeTaxNet(row.income, TariffKind::single, row.children, tariff),
            row.tax)
            << row.income << " with " << row.children;
    }
    tariff.minimum = 24.9_dec;
    EXPECT_EQ(Tariffs::federalIncomeTaxNet(1'200, TariffKind::single, 0, tariff), 24.9_dec)
        << "the minimum itself is levied";
    tariff.minimum = -100;
    EXPECT_EQ(Tariffs::federalIncomeTaxNet(1'200, TariffKind::single, 3, tariff), 0);
}

TEST(Tariffs, neverFallAndNowhereTakeMoreThanAFractionOfAnIncrease) {
    for (const int year : RuleBook::supportedYears) {
        const auto rules = shippedRules(year);
        for (const TariffKind kind : allValues<TariffKind>()) {
            Decimal cantonal;
            Decimal federal;
            for (int income = 0; income <= 1'200'000; income += 100) {
                const Decimal canton = Tariffs::sgSimpleIncomeTax(income, kind, rules->sgTariff);
                const Decimal tax =
                    Tariffs::federalIncomeTax(income, kind, rules->federalRules.tarif);
                ASSERT_TRUE(canton >= cantonal && canton - cantonal <= 13)
                    << year << " " << rawValue(kind) << " " << income;
                ASSERT_TRUE(tax >= federal && tax - federal <= 13.25_dec)
                    << year << " " << rawValue(kind) << " " << income;
                cantonal = canton;
                federal = tax;
            }
            EXPECT_EQ(cantonal, 1'200'000 * 0.085_dec);
            EXPECT_EQ(federal, 1'200'000 * 0.115_dec);
        }
    }
}

} // namespace
} // namespace taxcore
