#include "TaxCore/base/RecordPath.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
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

    /// The result is told for the sides that the figure concerns, as it stands.
    void expectEndsIn(std::string_view code, const Decimal& canton, const Decimal& federal) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        EXPECT_TRUE(derivation->canton || derivation->federal) << code;
        EXPECT_EQ(derivation->canton.value_or(canton), canton) << code;
        EXPECT_EQ(derivation->federal.value_or(federal), federal) << code;
    }

    /// Inputs name the field they were read from and carry its value.
    void expectInput(const DerivationStep& step) const {
        const auto text = valueAt(taxCase_, *step.path);
        ASSERT_TRUE(text.has_value()) << *step.path;
        if (step.kind == DerivationStep::Kind::input) {
            EXPECT_EQ(Decimal::parse(*text).value(), step.canton ? *step.canton : *step.federal)
                << *step.path;
        }
    }

    /// Rule values are those of the rule book under the key that is named, and cite the law of each
    /// side they are told for.
    void expectRule(const DerivationStep& step) const {
        const RuleBook& rules = calculator_.rules();
        const auto canton = ruleValue(*step.ruleKey, rules.cantonal, rules.cantonalExtra,
                                      rules.municipalities, rules.sgTariff);
        const auto federal = ruleValue(*step.ruleKey, rules.federal, rules.federalRules);
        ASSERT_TRUE(canton || federal) << *step.ruleKey;
        if (step.canton) {
            EXPECT_EQ(canton ? canton : federal, step.canton) << *step.ruleKey;
        }
        if (step.federal) {
            EXPECT_EQ(federal ? federal : canton, step.federal) << *step.ruleKey;
        }
        EXPECT_TRUE(step.lawCanton || step.lawFederal) << *step.ruleKey;
        EXPECT_TRUE(step.canton || !step.lawCanton) << *step.ruleKey;
        EXPECT_TRUE(step.federal || !step.lawFederal) << *step.ruleKey;
    }

    /// Other lines are quoted, side by side, with the amount they have (a minus for what is taken
    /// off).
    void expectLine(const DerivationStep& step) const {
        const TaxLine* line = result_.line(*step.code);
        const Derivation* derivation = find(*step.code);
        ASSERT_TRUE(line != nullptr || derivation != nullptr) << *step.code;
        const auto expectSide = [&](const std::optional<Decimal>& told, const Decimal& amount) {
            if (told) {
                EXPECT_EQ(told->abs(), amount.abs()) << *step.code;
            }
        };
        EXPECT_TRUE(step.canton || step.federal) << *step.code;
        if (line != nullptr) {
            expectSide(step.canton, line->canton);
            expectSide(step.federal, line->federalOrCanton());
        } else {
            expectSide(step.canton,
                       derivation->canton ? *derivation->canton : *derivation->federal);
            expectSide(step.federal,
                       derivation->federal ? *derivation->federal : *derivation->canton);
        }
        EXPECT_FALSE(step.text.empty()) << *step.code;
    }

    /// Something of the household stands behind every amount: an entry, a decision that rests on
    /// one, or another line.
    void expectGrounds(std::string_view code) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        EXPECT_TRUE(std::ranges::any_of(derivation->steps, [](const DerivationStep& step) {
            return step.path || step.code;
        })) << code;
    }

    /// A sum of lines is the sum of the lines it names.
    void expectSum(std::string_view code) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        const auto side = [&](std::optional<Decimal> DerivationStep::*amount) {
            Decimal sum;
            for (const DerivationStep& step : derivation->steps) {
                sum += step.code ? (step.*amount).value_or(0) : Decimal(0);
            }
            return sum;
        };
        if (derivation->canton) {
            EXPECT_EQ(side(&DerivationStep::canton).abs(), derivation->canton->abs()) << code;
        }
        if (derivation->federal) {
            EXPECT_EQ(side(&DerivationStep::federal).abs(), derivation->federal->abs()) << code;
        }
    }

    /// An amount is never above the caps it names.
    void expectCapped(std::string_view code) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        for (const DerivationStep& step : derivation->steps) {
            if (step.kind == DerivationStep::Kind::cap) {
                EXPECT_LE(derivation->canton.value(), step.canton.value()) << code;
                EXPECT_LE(derivation->federal.value(), step.federal.value()) << code;
            }
        }
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
            if (!line.canton.isZero() || !line.federalOrCanton().isZero()) {
                derivations.expectGrounds(line.code);
            }
            derivations.expectCapped(line.code);
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
        for (const std::string_view sum : {"totalEinkuenfte", "totalAbzuege", "totalVermoegen",
                                           "cantonTotal", "municipalityTotal", "churchTotal",
                                           "cantonAndMunicipalityTotal", "total", "totalRate"}) {
            derivations.expectSum(sum);
        }
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

/// The text of every step of a derivation with the sides it is told for.
std::string told(const TaxCase& taxCase, std::string_view code) {
    const auto derivation = TaxCalculator::forYear(taxCase.year)->explain(taxCase, code).value();
    std::string text;
    for (const DerivationStep& step : derivation.steps) {
        text += step.text + " [" + (step.canton ? "K" : "") + (step.federal ? "B" : "")
                + (step.lawCanton ? "k" : "") + (step.lawFederal ? "b" : "") + "]\n";
    }
    return text;
}

TEST(Derivation, tellsOnlyTheSidesThatAFigureOrRuleConcerns) {
    const TaxCase demo = DemoData::family(2025);
    const auto has = [&](std::string_view code, std::string_view line) {
        EXPECT_NE(told(demo, code).find(line), std::string::npos) << told(demo, code);
    };
    has("cantonIncome", "Steuerfuss Kanton [K]");
    has("cantonIncome", "Einfache Steuer mal Steuerfuss [k]");
    has("simpleIncomeTax", "Einfache Steuer laut Tarif [Kk]");
    has("federalBeforeChildReduction", "Je weitere 100 Franken [Bb]");
    has("zweiverdiener", "Fester Betrag [Kk]");
    has("zweiverdiener", "Anteil am tieferen Einkommen [Bb]");
    has("kinderabzugAusbildung", "Abzug pro Kind [Kk]");
    has("kinderabzugAusbildung", "Einheitlicher Abzug pro Kind [Bb]");
    has("wertschriften", "Steuerwert [K]");
    has("municipalityRate", "Steuerfuss der Gemeinde [Kk]");
    has("saeule3a1", "Maximum mit Pensionskasse [KBkb]");
}

/// Rule, cut income and bracket lead to the tax that is told: worked out again from the steps.
TEST(Derivation, federalTariffFollowsFromItsSteps) {
    for (const TaxCase& taxCase : households()) {
        const auto derivation = TaxCalculator::forYear(taxCase.year)
                                    ->explain(taxCase, "federalBeforeChildReduction")
                                    .value();
        std::map<std::string, Decimal> values;
        for (const DerivationStep& step : derivation.steps) {
            if (step.federal) {
                values[step.text] = *step.federal;
            }
        }
        const Decimal income = values.at("Massgebender Betrag");
        Decimal tax;
        if (values.contains("Je weitere 100 Franken")) {
            tax = values.at("Steuer an ihrem Beginn")
                  + (income - values.at("Die Stufe beginnt bei")) / 100
                        * values.at("Je weitere 100 Franken");
        } else if (values.contains("Fester Satz vom ganzen Betrag")) {
            tax = income * values.at("Fester Satz vom ganzen Betrag");
        }
        EXPECT_EQ((tax * 20).roundDown(0) / 20, derivation.federal) << taxCase.municipality;
    }
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
