#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace taxcore {
namespace {

using testing::shippedRules;

namespace dom = simdjson::dom;

/// A multiplier as it stands in the file, in thousandths.
std::int64_t thousandths(dom::element json) { return std::llround(double(json) * 1000); }

std::string text(dom::element json) { return std::string(std::string_view(json)); }

std::int64_t rappen(const Decimal& francs) { return (francs * 100).toInteger().value(); }

/// `dividend` / `divisor` to nearest, halves up; neither is negative.
std::int64_t nearest(std::int64_t dividend, std::int64_t divisor) {
    return (2 * dividend + divisor) / (2 * divisor);
}

struct Confessions {
    Confession first;
    Confession second;
};

constexpr std::array couples{
    Confessions{Confession::roemischKatholisch, Confession::roemischKatholisch},
    Confessions{Confession::evangelischReformiert, Confession::evangelischReformiert},
    Confessions{Confession::roemischKatholisch, Confession::evangelischReformiert},
    Confessions{Confession::evangelischReformiert, Confession::keine},
    Confessions{Confession::christkatholisch, Confession::christkatholisch},
};

/// Checks the bills of the households of one year against the multipliers as the file states them,
/// in integers: a simple tax in Rappen times thousandths of a percent.
class BillCheck {
  public:
    BillCheck(int year, dom::element list)
        : rules_(shippedRules(year)), canton_(thousandths(list["kantonSteuerfuss"])),
          christkatholisch_(thousandths(list["christkatholisch"])),
          wealthPerMille_(thousandths(list["vermoegenEinfacheSteuerPromille"])) {}

    void check(dom::element municipality, dom::element parish, CivilStatus status,
               const Confessions& confessions) {
        TaxCase household;
        household.year = rules_->year;
        household.civilStatus = status;
        household.person1.confession = confessions.first;
        household.person2.confession = confessions.second;
        const Municipality* found = rules_->municipalities.municipality(text(municipality["name"]));
        ASSERT_NE(found, nullptr);
        const Parish* foundParish = found->parish(text(parish["name"]));
        ASSERT_NE(foundParish, nullptr);
        // Amounts drift from household to household, so that all ways of rounding come up.
        ++households_;
        const std::int64_t income = 30'000 + 137 * households_;
        const std::int64_t wealth = 80'000 + 1'013 * households_;
        const TaxBill bill = TaxCalculator(rules_).computeBill(household, income, income, wealth,
                                                               found, foundParish);

        const std::int64_t first = churchMultiplier(confessions.first, parish);
        const std::int64_t second = churchMultiplier(confessions.second, parish);
        const std::int64_t church = status == CivilStatus::ledig ? first : (first + second) / 2;
        const std::int64_t local = thousandths(municipality["steuerfuss"]);
        const std::int64_t onIncome = rappen(bill.simpleIncomeTax);
        const std::int64_t onWealth = nearest(wealth * wealthPerMille_, 10'000);
        EXPECT_GT(onIncome, 0);
        EXPECT_EQ(rappen(bill.simpleWealthTax), onWealth);
        expectTax(bill.cantonIncome, onIncome * canton_);
        expectTax(bill.cantonWealth, onWealth * canton_);
        expectTax(bill.municipalityIncome, onIncome * local);
        expectTax(bill.municipalityWealth, onWealth * local);
        expectTax(bill.churchIncome, onIncome * church);
        expectTax(bill.churchWealth, onWealth * church);
    }

    /// How many amounts lay in the middle between two steps of 5 Rappen.
    int halves() const noexcept { return halves_; }

  private:
    std::int64_t churchMultiplier(Confession confession, dom::element parish) const {
        switch (confession) {
        case Confession::roemischKatholisch:
            return thousandths(parish["kath"]);
        case Confession::evangelischReformiert:
            return thousandths(parish["evang"]);
        case Confession::christkatholisch:
            return christkatholisch_;
        default:
            return 0;
        }
    }

    void expectTax(const Decimal& tax, std::int64_t unrounded) {
        constexpr std::int64_t fiveRappen = 500'000;
        halves_ += unrounded % fiveRappen == fiveRappen / 2 ? 1 : 0;
        EXPECT_EQ(rappen(tax), 5 * nearest(unrounded, fiveRappen));
    }

    std::shared_ptr<const RuleBook> rules_;
    std::int64_t canton_;
    std::int64_t christkatholisch_;
    std::int64_t wealthPerMille_;
    std::int64_t households_ = 0;
    int halves_ = 0;
};

TEST(Municipalities, eachBillIsTheSimpleTaxTimesItsOwnMultipliers) {
    for (const int year : RuleBook::supportedYears) {
        dom::parser parser;
        const dom::element list =
            parser.load(FISCAREL_RULES_DIR "/sg-steuerfuesse-" + std::to_string(year) + ".json");
        BillCheck bills(year, list);
        std::size_t municipalities = 0;
        for (const dom::element municipality : list["municipalities"]) {
            ++municipalities;
            const dom::array parishes = municipality["parishes"];
            EXPECT_GT(parishes.size(), 0U) << municipality["name"];
            for (const dom::element parish : parishes) {
                for (const Confessions& confessions : couples) {
                    for (const auto status : {CivilStatus::ledig, CivilStatus::verheiratet}) {
                        SCOPED_TRACE(std::to_string(year) + " " + text(parish["name"]) + " "
                                     + std::string(rawValue(status)) + " "
                                     + std::string(rawValue(confessions.first)) + " "
                                     + std::string(rawValue(confessions.second)));
                        bills.check(municipality, parish, status, confessions);
                    }
                }
            }
        }
        EXPECT_EQ(municipalities, 75U);
        EXPECT_EQ(shippedRules(year)->municipalities.municipalities.size(), municipalities);
        EXPECT_GT(bills.halves(), 0) << "no rounding of a half was seen";
    }
}

/// Another letter case, of the letters that occur in names.
std::string inCase(std::string name, bool upper) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> umlauts{
        {{"ä", "Ä"}, {"ö", "Ö"}, {"ü", "Ü"}}};
    for (const auto& [small, capital] : umlauts) {
        const auto& from = upper ? small : capital;
        for (auto at = name.find(from); at != std::string::npos; at = name.find(from)) {
            name.replace(at, from.size(), upper ? capital : small);
        }
    }
    std::ranges::transform(name, name.begin(), [&](char c) {
        const bool letter = upper ? c >= 'a' && c <= 'z' : c >= 'A' && c <= 'Z';
        return letter ? static_cast<char>(c ^ ('a' ^ 'A')) : c;
    });
    return name;
}

TEST(Municipalities, areFoundInAnyLetterCaseAndParishesOnlyInTheirOwn) {
    const MunicipalityList& list = shippedRules(2026)->municipalities;
    EXPECT_EQ(inCase("Altstätten", true), "ALTSTÄTTEN");
    EXPECT_EQ(inCase("BÜTSCHWIL-Ganterschwil", false), "bütschwil-ganterschwil");
    for (const Municipality& municipality : list.municipalities) {
        for (const bool upper : {true, false}) {
            EXPECT_EQ(list.municipality(inCase(municipality.name, upper)), &municipality)
                << municipality.name;
            for (const Parish& parish : municipality.parishes) {
                EXPECT_EQ(municipality.parish(parish.name), &parish);
                EXPECT_EQ(municipality.parish(inCase(parish.name, upper)), nullptr) << parish.name;
            }
        }
    }
}

TEST(Municipalities, areNotFoundUnderAnotherName) {
    const MunicipalityList& list = shippedRules(2026)->municipalities;
    ASSERT_NE(list.municipality("Altstätten"), nullptr);
    constexpr std::string_view whole = "Altstätten";
    for (const std::string_view name : std::initializer_list<std::string_view>{
             "", " Altstätten", "Altstätten ", "Altstatten", "Altstötten", "Altstaetten",
             whole.substr(0, 5), "Altstättenn", "Altst\xC3", "Altst\xE4tten",
             "Bütschwil–Ganterschwil", "St. Gallen", "St.Gallen Centrum"}) {
        EXPECT_EQ(list.municipality(name), nullptr) << "«" << name << "»";
    }
}

} // namespace
} // namespace taxcore
