#include "TaxCore/rulebook/LIRules.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/rulebook/Tariffs.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <thread>
#include <utility>

namespace taxcore {
namespace {

using testing::RuleCopy;
using testing::shippedLIRules;

using Stufe = LIRules::Stufe;

constexpr const char* file = "li-2025.json";

TEST(LIRules, areReadOnceEvenFromManyThreads) {
    std::array<std::shared_ptr<const LIRules>, 8> read;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < read.size(); ++i) {
        threads.emplace_back(
            [&, i] { read.at(i) = LIRules::load(i % 2 == 0 ? 2025 : 2026).value_or(nullptr); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (std::size_t i = 0; i < read.size(); ++i) {
        ASSERT_NE(read.at(i), nullptr);
        EXPECT_EQ(*read.at(i), *shippedLIRules(i % 2 == 0 ? 2025 : 2026));
    }
    EXPECT_EQ(LIRules::load(2025).value(), LIRules::load(2025).value());
    EXPECT_NE(LIRules::load(2025).value(), LIRules::load(2026).value());
}

TEST(LIRules, ofAYearWithoutAFileNameIt) {
    const RuleCopy copy;
    copy.remove("li-2026.json");
    const std::array loads{LIRules::load(2024), LIRules::load(2024, RuleFiles(FISCAREL_RULES_DIR)),
                           LIRules::load(2026, RuleFiles(copy.folder()))};
    const std::array names{"li-2024.json", "li-2024.json", "li-2026.json"};
    for (std::size_t i = 0; i < loads.size(); ++i) {
        ASSERT_FALSE(loads.at(i));
        EXPECT_EQ(loads.at(i).error().kind, RuleLoadError::Kind::missing);
        EXPECT_EQ(loads.at(i).error().description(),
                  std::string("Regeldatei fehlt: ") + names.at(i));
    }
    EXPECT_TRUE(LIRules::load(2025, RuleFiles(copy.folder())));
}

/// The rules of 2025 after one change to their file.
tl::expected<std::shared_ptr<const LIRules>, RuleLoadError> loadChanged(std::string_view find,
                                                                        std::string_view put) {
    const RuleCopy copy;
    copy.replace(file, find, put);
    return LIRules::load(2025, RuleFiles(copy.folder()));
}

TEST(LIRules, needEveryKey) {
    std::set<std::string_view> keys;
    testing::addRequiredKeys<LIRules>(keys);
    EXPECT_EQ(fieldCount<LIRules>, 31U);
    EXPECT_EQ(keys.size(), 31U + 3U + 2U + 2U) << "tariff, step, municipality; `bis` may be absent";
    for (const std::string_view name : keys) {
        const auto loaded = loadChanged("\"" + std::string(name) + "\":", "\"other\":");
        ASSERT_FALSE(loaded) << name;
        EXPECT_EQ(loaded.error().kind, RuleLoadError::Kind::invalid) << name;
        EXPECT_EQ(loaded.error().fileName, file);
        EXPECT_NE(loaded.error().detail.find(name), std::string::npos) << loaded.error().detail;
    }
}

TEST(LIRules, namePlaceOfAFaultAndReadNoHalfFile) {
    struct Row {
        const char* find;
        const char* put;
        const char* place;
    };
    for (const Row& row : {
             Row{R"("jahr": 2025)", R"("jahr": 2025.5)", "«jahr»"},
             Row{R"("vorlaeufig": false)", R"("vorlaeufig": 0)", "«vorlaeufig»"},
             Row{R"("bis": 15855)", R"("bis": "15855")", "«tarif.alleinstehend[0].bis»"},
             Row{R"("zuschlag": 150)", R"("zuschlag": null)", "«gemeinden[0].zuschlag»"},
             Row{"[0, 750, 1880,", "[0, 750, \"1880\",", "«fahrkostenMatrix[0][2]»"},
             Row{"[0, 750, 1880,", "0, [750, 1880,", "«fahrkostenMatrix[0]»"},
             Row{R"("gemeinden": [)",
                 R"("gemeinden": [)"
                 "\x01",
                 ""},
         }) {
        const auto loaded = loadChanged(row.find, row.put);
        ASSERT_FALSE(loaded) << row.put;
        EXPECT_EQ(loaded.error().kind, RuleLoadError::Kind::invalid);
        EXPECT_NE(loaded.error().detail.find(row.place), std::string::npos)
            << row.place << " is not in " << loaded.error().detail;
    }
}

/// Resolutions of the municipal councils as of autumn 2025, as cited in the files; 2026 still
/// states them, provisionally.
TEST(LIRules, holdTheElevenMunicipalities) {
    const std::array<std::pair<const char*, int>, 11> expected{{{"Vaduz", 150},
                                                                {"Triesen", 150},
                                                                {"Balzers", 150},
                                                                {"Triesenberg", 150},
                                                                {"Schaan", 150},
                                                                {"Planken", 150},
                                                                {"Eschen", 160},
                                                                {"Mauren", 160},
                                                                {"Gamprin", 150},
                                                                {"Ruggell", 160},
                                                                {"Schellenberg", 150}}};
    for (const auto& [year, provisional] : {std::pair(2025, false), std::pair(2026, true)}) {
        const auto rules = shippedLIRules(year);
        EXPECT_EQ(rules->vorlaeufig, provisional);
        ASSERT_EQ(rules->gemeinden.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(rules->gemeinden[i].name, expected.at(i).first) << "in this order";
            EXPECT_EQ(rules->zuschlag(expected.at(i).first), expected.at(i).second)
                << expected.at(i).first;
        }
    }
}

/// Two municipalities and two places of one name, and a table of fares with gaps.
LIRules smallRules() {
    LIRules rules;
    rules.gemeinden = {{"Mühle", 170}, {"Berg", 150}, {"Mühle", 180}};
    rules.fahrkostenOrte = {"A", "Ö", "A", "D"};
    rules.fahrkostenMatrix = {{0, 12, 13, 14}, {21, 0}, {31, 32, 0, 34}};
    return rules;
}

TEST(LIRules, knowAMunicipalityByItsExactName) {
    const LIRules rules = smallRules();
    EXPECT_EQ(rules.zuschlag("Mühle"), 170) << "the first of two";
    EXPECT_EQ(rules.zuschlag("Berg"), 150);
    for (const char* name : {"", "Berg ", " Berg", "berg", "Ber", "Muhle", "MÜHLE"}) {
        EXPECT_EQ(rules.zuschlag(name), std::nullopt) << "«" << name << "»";
    }
}

TEST(LIRules, lookAFareUpByStartAndDestination) {
    struct Row {
        const char* from;
        const char* to;
        std::optional<Decimal> fare;
    };
    const LIRules rules = smallRules();
    for (const Row& row : {Row{"A", "Ö", 12}, Row{"Ö", "A", 21}, Row{"A", "A", 0},
                           Row{"A", "D", 14}, Row{"Ö", "D", std::nullopt}, // the row is too short
                           Row{"D", "A", std::nullopt},                    // no such row
                           Row{"A", "X", std::nullopt}, Row{"X", "A", std::nullopt},
                           Row{"a", "Ö", std::nullopt}, Row{"A", "Ö ", std::nullopt}}) {
        EXPECT_EQ(rules.fahrkostenInland(row.from, row.to), row.fare) << row.from << "–" << row.to;
    }
    EXPECT_EQ(shippedLIRules(2025)->fahrkostenInland("Vaduz", "Balzers"), 1'880)
        << "the fare of the published example";
    EXPECT_EQ(LIRules().fahrkostenInland("", ""), std::nullopt);
}

/// A tariff without an open step, and one whose steps are told apart by their tax.
LIRules::Tarif smallTariff() {
    LIRules::Tarif tariff;
    tariff.alleinstehend = {{1'000, 0, 0}, {2'000, 0.1_dec, 50}, {std::nullopt, 0.3333_dec, 400}};
    tariff.verheiratet = {{1'000, 0.01_dec, 0}, {2'000, 0.02_dec, 0}};
    return tariff;
}

TEST(LITariff, takesTheFirstStepWhoseBoundIsNotExceeded) {
    using enum LITariffKind;
    struct Row {
        LITariffKind kind;
        Decimal income;
        Decimal tax;
    };
    const LIRules::Tarif tariff = smallTariff();
    for (const Row& row :
         {Row{alleinstehend, -10'000, 0}, Row{alleinstehend, 0, 0}, Row{alleinstehend, 1'000, 0},
          Row{alleinstehend, 1'000.05_dec, 50},        // 50.005
          Row{alleinstehend, 2'000, 150},              // the bound belongs to the step
          Row{alleinstehend, 2'010, 269.95_dec},       // 269.933
          Row{alleinstehend, 2'000.05_dec, 266.6_dec}, // 266.6167
          Row{verheiratet, 1'000, 10}, Row{verheiratet, 1'010, 20.2_dec},
          Row{verheiratet, 1'002.5_dec, 20.05_dec}, Row{verheiratet, 1'001.25_dec, 20.05_dec},
          Row{verheiratet, 2'000, 40}, Row{verheiratet, 2'000.01_dec, 0}, // above the last bound
          Row{alleinerziehend, 50'000, 0}}) {
        EXPECT_EQ(Tariffs::landessteuer(row.income, row.kind, tariff), row.tax)
            << rawValue(row.kind) << " " << row.income;
    }
    LIRules::Tarif deep;
    deep.alleinstehend = {{std::nullopt, 0.01_dec, 500}};
    EXPECT_EQ(Tariffs::landessteuer(40'000, alleinstehend, deep), 0) << "never below 0";
}

TEST(LITariff, tellsTheStepThatApplied) {
    const std::vector<Stufe> steps = smallTariff().alleinstehend;
    EXPECT_EQ(Tariffs::stufeFor(1'000, steps), &steps[0]);
    EXPECT_EQ(Tariffs::stufeFor(1'001, steps), &steps[1]);
    EXPECT_EQ(Tariffs::stufeFor(2'000, steps), &steps[1]);
    EXPECT_EQ(Tariffs::stufeFor(2'001, steps), &steps[2]);
    EXPECT_EQ(Tariffs::stufeFor(2'001, smallTariff().verheiratet), nullptr);
    EXPECT_EQ(Tariffs::stufeFor(1, {}), nullptr);
}

/// The steps of SteG Art. 19 Abs. 1 (LBGl. 2010 Nr. 340) as in force in 2018, printed for instance
/// at taxsummaries.pwc.com/liechtenstein/individual/taxes-on-personal-income. They are those for
/// one person; single parents have one and a half times the bounds and deductions, couples twice.
LIRules::Tarif tariffOf2018() {
    const std::array<Stufe, 9> single{{{15'000, 0, 0},
                                       {20'000, 0.01_dec, 150},
                                       {40'000, 0.03_dec, 550},
                                       {70'000, 0.04_dec, 950},
                                       {100'000, 0.05_dec, 1'650},
                                       {130'000, 0.06_dec, 2'650},
                                       {160'000, 0.065_dec, 3'300},
                                       {200'000, 0.07_dec, 4'100},
                                       {std::nullopt, 0.08_dec, 6'100}}};
    const auto times = [&](const Decimal& factor) {
        std::vector<Stufe> steps;
        for (const Stufe& step : single) {
            steps.push_back({step.bis ? std::optional(*step.bis * factor) : std::nullopt, step.satz,
                             step.abzug * factor});
        }
        return steps;
    };
    return {.alleinstehend = times(1), .alleinerziehend = times(1.5_dec), .verheiratet = times(2)};
}

/// An example published for 2018: a couple, a municipality with a surcharge of 170 %.
TEST(LITariff, meetsThePublishedExampleOf2018) {
    const Decimal national =
        Tariffs::landessteuer(45'620, LITariffKind::verheiratet, tariffOf2018());
    EXPECT_EQ(national, 268.6_dec);
    const Decimal municipal = Tariffs::gemeindezuschlag(national, 170);
    EXPECT_EQ(municipal, 456.6_dec); // 456.62
    EXPECT_EQ(national + municipal, 725.2_dec);
}

/// The tariff in force since 2025 is the former one, every bound and deduction raised by the same
/// 5.7 % and rounded to full francs; the rates stayed.
TEST(LITariff, isThatOf2018AdjustedForInflation) {
    const LIRules::Tarif before = tariffOf2018();
    for (const int year : {2025, 2026}) {
        const LIRules::Tarif& now = shippedLIRules(year)->tarif;
        for (const LITariffKind kind : allValues<LITariffKind>()) {
            SCOPED_TRACE(std::to_string(year) + " " + std::string(rawValue(kind)));
            const auto& old = before.steps(kind);
            const auto& steps = now.steps(kind);
            ASSERT_EQ(steps.size(), old.size());
            for (std::size_t i = 0; i < steps.size(); ++i) {
                EXPECT_EQ(steps[i].satz, old[i].satz) << i;
                EXPECT_EQ(steps[i].abzug, toWholeFrancs(old[i].abzug * 1.057_dec)) << i;
                ASSERT_EQ(steps[i].bis.has_value(), old[i].bis.has_value()) << i;
                EXPECT_EQ(steps[i].bis.value_or(0),
                          toWholeFrancs(old[i].bis.value_or(0) * 1.057_dec))
                    << i;
            }
        }
    }
}

TEST(LITariff, roundsTheSurchargeToFiveRappen) {
    struct Row {
        Decimal national;
        Decimal percent;
        Decimal surcharge;
    };
    for (const Row& row :
         {Row{0, 150, 0}, Row{100, 150, 150}, Row{268.6_dec, 160, 429.75_dec}, // 429.76
          Row{0.05_dec, 150, 0.1_dec},                                         // 0.075
          Row{12.35_dec, 162.5_dec, 20.05_dec}}) {                             // 20.06875
        EXPECT_EQ(Tariffs::gemeindezuschlag(row.national, row.percent), row.surcharge)
            << row.national << " " << row.percent;
    }
}

} // namespace
} // namespace taxcore
