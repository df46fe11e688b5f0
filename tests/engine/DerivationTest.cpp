#include "TaxCore/base/RecordPath.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace taxcore {
namespace {

std::vector<TaxCase> households() {
    std::vector<TaxCase> cases;
    for (const int year : RuleBook::supportedYears) {
        cases.push_back(DemoData::family(year));
    }
    for (const auto& file : testing::readCaseFiles("sg")) {
        cases.push_back(file.household);
    }
    return cases;
}

/// The value of a rule-book key in any of the records of one authority.
template <class... Records>
std::optional<Decimal> ruleValue(const std::string& key, const Records&... records) {
    std::optional<std::string> text;
    ((text = text ? text : detail::valueAtPath(records, key)), ...);
    return text ? std::optional(Decimal::parse(*text).value()) : std::nullopt;
}

/// Checks the derivations of one household against the case, the rule book and the result.
class Derivations {
  public:
    explicit Derivations(const TaxCase& taxCase)
        : taxCase_(taxCase), calculator_(TaxCalculator::forYear(taxCase.year).value()),
          result_(calculator_.calculate(taxCase)), all_(calculator_.explainAll(taxCase)) {}

    const TaxResult& result() const { return result_; }
    const std::vector<Derivation>& all() const { return all_; }

    const Derivation* find(std::string_view code) const {
        const auto found = std::ranges::find(all_, code, &Derivation::code);
        return found == all_.end() ? nullptr : &*found;
    }

    void expectEndsIn(std::string_view code, const Decimal& canton, const Decimal& federal) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        EXPECT_EQ(derivation->canton, canton) << code;
        EXPECT_EQ(derivation->federal.value_or(derivation->canton), federal) << code;
    }

    /// Inputs name the field they were read from and carry its value.
    void expectInput(const DerivationStep& step) const {
        const auto text = valueAt(taxCase_, *step.path);
        ASSERT_TRUE(text.has_value()) << *step.path;
        if (step.kind == DerivationStep::Kind::input) {
            EXPECT_EQ(Decimal::parse(*text).value(), step.canton) << *step.path;
        }
    }

    /// Rule values are those of the rule book under the key that is named.
    void expectRule(const DerivationStep& step) const {
        const RuleBook& rules = calculator_.rules();
        const auto canton =
            ruleValue(*step.ruleKey, rules.cantonal, rules.cantonalExtra, rules.municipalities);
        const auto federal = ruleValue(*step.ruleKey, rules.federal, rules.federalRules);
        EXPECT_TRUE(canton || federal) << *step.ruleKey;
        EXPECT_EQ(canton.value_or(*step.canton), *step.canton) << *step.ruleKey;
        EXPECT_EQ(federal.value_or(step.federal.value_or(*step.canton)),
                  step.federal.value_or(*step.canton))
            << *step.ruleKey;
        EXPECT_TRUE(step.lawCanton || step.lawFederal) << *step.ruleKey;
    }

    /// Other lines are quoted with the amount they have (deductions with a minus).
    void expectLine(const DerivationStep& step) const {
        const TaxLine* line = result_.line(*step.code);
        const Derivation* derivation = find(*step.code);
        ASSERT_TRUE(line != nullptr || derivation != nullptr) << *step.code;
        const Decimal canton = line != nullptr ? line->canton : derivation->canton;
        const Decimal federal = line != nullptr ? line->federalOrCanton()
                                                : derivation->federal.value_or(derivation->canton);
        // The bill quotes the taxable income of one jurisdiction.
        const bool known =
            step.canton->abs() == canton.abs() || step.canton->abs() == federal.abs();
        EXPECT_TRUE(known) << *step.code << " " << *step.canton;
        EXPECT_FALSE(step.text.empty()) << *step.code;
    }

    bool citesLaw(std::string_view code) const {
        const Derivation* derivation = find(code);
        return derivation != nullptr
               && std::ranges::any_of(derivation->steps, [](const DerivationStep& step) {
                      return step.lawCanton || step.lawFederal;
                  });
    }

  private:
    const TaxCase& taxCase_;
    TaxCalculator calculator_;
    TaxResult result_;
    std::vector<Derivation> all_;
};

TEST(Derivation, everyLineAndFigureOfEveryHouseholdIsDerived) {
    for (const TaxCase& taxCase : households()) {
        SCOPED_TRACE(taxCase.municipality + " " + std::to_string(taxCase.year));
        const Derivations derivations(taxCase);
        for (const TaxLine& line : derivations.result().fields()) {
            derivations.expectEndsIn(line.code, line.canton, line.federalOrCanton());
            const bool lawful =
                line.kind == TaxLine::Kind::income || line.kind == TaxLine::Kind::deduction;
            if (lawful && line.code != "uebrigeAbzuege") {
                EXPECT_TRUE(derivations.citesLaw(line.code)) << line.code;
            }
        }
        const TaxBill& bill = derivations.result().bill;
        const std::set<std::string_view> lines{"taxableIncomeCanton", "taxableIncomeFederal",
                                               "taxableWealth"};
        forEachField(bill, [&](std::string_view name, const auto& value) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, Decimal>) {
                if (!lines.contains(name)) {
                    derivations.expectEndsIn(name, value, value);
                }
            }
        });
        derivations.expectEndsIn("total", bill.total(), bill.total());
        derivations.expectEndsIn("cantonAndMunicipalityTotal", bill.cantonAndMunicipalityTotal(),
                                 bill.cantonAndMunicipalityTotal());
    }
}

TEST(Derivation, everyStepCanBeTracedToItsSource) {
    std::size_t traced = 0;
    for (const TaxCase& taxCase : households()) {
        SCOPED_TRACE(taxCase.municipality + " " + std::to_string(taxCase.year));
        const Derivations derivations(taxCase);
        std::set<std::string> codes;
        for (const Derivation& derivation : derivations.all()) {
            SCOPED_TRACE(derivation.code);
            EXPECT_TRUE(codes.insert(derivation.code).second);
            for (const DerivationStep& step : derivation.steps) {
                traced += step.path || step.ruleKey || step.code ? 1U : 0U;
                if (step.path) {
                    derivations.expectInput(step);
                }
                if (step.ruleKey) {
                    derivations.expectRule(step);
                }
                if (step.code) {
                    derivations.expectLine(step);
                }
            }
        }
    }
    EXPECT_GT(traced, 4000U);
}

TEST(Derivation, namesCapThresholdAndRounding) {
    const TaxCase demo = DemoData::family(2025);
    const auto kindsOf = [&](std::string_view code) {
        std::set<DerivationStep::Kind> kinds;
        const Derivation derivation = TaxCalculator::forYear(2025)->explain(demo, code).value();
        for (const DerivationStep& step : derivation.steps) {
            kinds.insert(step.kind);
        }
        return kinds;
    };
    EXPECT_TRUE(kindsOf("saeule3a1").contains(DerivationStep::Kind::cap));
    EXPECT_TRUE(kindsOf("krankheitAbzug").contains(DerivationStep::Kind::threshold));
    EXPECT_TRUE(kindsOf("fahrzeuge").contains(DerivationStep::Kind::rounding));
    EXPECT_TRUE(kindsOf("cantonIncome").contains(DerivationStep::Kind::rounding));
    EXPECT_FALSE(TaxCalculator::forYear(2025)->explain(demo, "gibtEsNicht").has_value());
}

} // namespace
} // namespace taxcore
