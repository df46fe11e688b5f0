#include "TaxCore/base/RecordPath.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "tests/support/Households.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <set>

namespace taxcore {
namespace {

/// The households of a region, all with a record of what only Liechtenstein asks for, so that paths
/// into it lead somewhere.
std::vector<TaxCase> households(TaxRegion region) {
    std::vector<TaxCase> cases = testing::householdsOf(region);
    for (TaxCase& taxCase : cases) {
        if (region == TaxRegion::liechtenstein) {
            taxCase.setLiExtras(taxCase.liExtras());
        }
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

/// A rule value on each side that has one of its own.
struct RuleValue {
    std::optional<Decimal> canton;
    std::optional<Decimal> federal;
};

RuleValue ruleOf(const TaxCase& taxCase, const std::string& key) {
    if (taxCase.taxRegion() == TaxRegion::liechtenstein) {
        return {ruleValue(key, *LIRules::load(taxCase.year).value()), std::nullopt};
    }
    const auto calculator = TaxCalculator::forYear(taxCase.year).value();
    const RuleBook& rules = calculator.rules();
    return {
        ruleValue(key, rules.cantonal, rules.cantonalExtra, rules.municipalities, rules.sgTariff),
        ruleValue(key, rules.federal, rules.federalRules)};
}

/// Checks the derivations of one household against the case, the rules and the result.
class Derivations {
  public:
    explicit Derivations(const TaxCase& taxCase)
        : taxCase_(taxCase), calculator_(CaseCalculator::forCase(taxCase).value()),
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
        const auto [canton, federal] = ruleOf(taxCase_, *step.ruleKey);
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

    /// What a cap limits is never above it: the intermediate result that follows, else the amount.
    void expectCapped(std::string_view code) const {
        const Derivation* derivation = find(code);
        ASSERT_NE(derivation, nullptr) << code;
        const auto& steps = derivation->steps;
        for (auto cap = steps.begin(); cap != steps.end(); ++cap) {
            if (cap->kind != DerivationStep::Kind::cap) {
                continue;
            }
            const auto part = std::find_if(cap, steps.end(), [](const DerivationStep& step) {
                return step.kind == DerivationStep::Kind::step;
            });
            const bool whole = part == steps.end();
            const auto expectSide = [&](const std::optional<Decimal>& limited,
                                        const std::optional<Decimal>& limit) {
                ASSERT_EQ(limited.has_value(), limit.has_value()) << code;
                EXPECT_TRUE(!limit || *limited <= *limit) << code << ": " << cap->text;
            };
            expectSide(whole ? derivation->canton : part->canton, cap->canton);
            expectSide(whole ? derivation->federal : part->federal, cap->federal);
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
    CaseCalculator calculator_;
    TaxResult result_;
    std::vector<Derivation> all_;
};

/// What the tests ask of the derivations of a region beyond those of its lines.
struct Scope {
    TaxRegion region;
    std::set<std::string_view> figures; ///< of the bill, under their own names
    std::vector<std::string_view> sums;
    std::size_t traced; ///< fewer steps with a source would mean that little was looked at

    friend void PrintTo(const Scope& scope, std::ostream* out) { *out << label(scope.region); }
};

class Derived : public ::testing::TestWithParam<Scope> {};

TEST_P(Derived, everyLineAndFigureOfEveryHousehold) {
    for (const TaxCase& taxCase : households(GetParam().region)) {
        SCOPED_TRACE(testing::nameOf(taxCase));
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
        std::set<std::string_view> left = GetParam().figures;
        const auto expectFigure = [&](std::string_view name, const Decimal& value) {
            if (left.erase(name) > 0) {
                derivations.expectEndsIn(name, value, value);
            }
        };
        const TaxBill& bill = derivations.result().bill;
        forEachField(bill, [&](std::string_view name, const auto& value) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, Decimal>) {
                expectFigure(name, value);
            }
        });
        expectFigure("total", bill.total());
        expectFigure("cantonAndMunicipalityTotal", bill.cantonAndMunicipalityTotal());
        EXPECT_EQ(left, std::set<std::string_view>{});
        for (const std::string_view sum : GetParam().sums) {
            derivations.expectSum(sum);
        }
    }
}

TEST_P(Derived, fromWhereEveryStepCanBeTracedTo) {
    std::size_t traced = 0;
    for (const TaxCase& taxCase : households(GetParam().region)) {
        SCOPED_TRACE(testing::nameOf(taxCase));
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
                EXPECT_EQ(step.text.find_first_not_of(' '), 0U) << step.text;
                EXPECT_NE(step.text.back(), ' ') << step.text;
            }
        }
    }
    EXPECT_GT(traced, GetParam().traced);
}

INSTANTIATE_TEST_SUITE_P(
    Derivation, Derived,
    ::testing::Values(
        Scope{TaxRegion::stGallen,
              {"simpleIncomeTax", "simpleIncomeRatePercent", "simpleWealthTax", "cantonRate",
               "municipalityRate", "churchRate", "cantonIncome", "municipalityIncome",
               "churchIncome", "cantonWealth", "municipalityWealth", "churchWealth",
               "federalBeforeChildReduction", "federalChildReduction", "federal", "total",
               "cantonAndMunicipalityTotal"},
              {"totalEinkuenfte", "totalAbzuege", "totalVermoegen", "cantonTotal",
               "municipalityTotal", "churchTotal", "cantonAndMunicipalityTotal", "total",
               "totalRate"},
              4000},
        Scope{TaxRegion::liechtenstein,
              {"cantonRate", "municipalityRate", "simpleIncomeTax", "simpleIncomeRatePercent",
               "cantonIncome", "municipalityIncome", "total"},
              {"575", "640", "771", "800", "880", "680"},
              1500}),
    [](const ::testing::TestParamInfo<Scope>& tested) {
        return testing::suiteName(tested.param.region);
    });

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
    for (const TaxCase& taxCase : households(TaxRegion::stGallen)) {
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

/// There is one tax authority in Liechtenstein, and its law.
TEST(Derivation, ofLiechtensteinTellsOneSideAndItsLaw) {
    for (const TaxCase& taxCase : households(TaxRegion::liechtenstein)) {
        const auto all = CaseCalculator::forCase(taxCase)->explainAll(taxCase);
        for (const Derivation& derivation : all) {
            SCOPED_TRACE(testing::nameOf(taxCase) + ": " + derivation.code);
            EXPECT_TRUE(derivation.canton && !derivation.federal);
            for (const DerivationStep& step : derivation.steps) {
                EXPECT_FALSE(step.federal || step.lawFederal) << step.text;
                EXPECT_EQ(step.canton.has_value(), step.unit.has_value()) << step.text;
                EXPECT_TRUE(!step.lawCanton || step.lawCanton->starts_with("SteG Art. "))
                    << *step.lawCanton;
            }
        }
    }
}

const Decimal* amountOf(const Derivation& derivation, std::string_view text) {
    const auto found = std::ranges::find(derivation.steps, text, &DerivationStep::text);
    return found == derivation.steps.end() || !found->canton ? nullptr : &*found->canton;
}

/// Taxable total, rate and deduction lead to the tax that is told, and the total lies in the step.
TEST(Derivation, nationalTaxFollowsFromItsSteps) {
    std::set<Decimal> rates;
    for (const TaxCase& taxCase : households(TaxRegion::liechtenstein)) {
        SCOPED_TRACE(testing::nameOf(taxCase));
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        const auto derivation = calculator.explain(taxCase, "660").value();
        const Decimal* taxable = amountOf(derivation, "Steuerbarer Gesamterwerb");
        const Decimal* rate = amountOf(derivation, "Satz der Stufe, vom ganzen Betrag");
        const Decimal* deduction = amountOf(derivation, "− Abzug der Stufe");
        ASSERT_TRUE(taxable && rate && deduction);
        const Decimal tax = std::max(*taxable * *rate - *deduction, Decimal(0));
        EXPECT_EQ((tax * 20).roundPlain(0) / 20, derivation.canton);
        if (const Decimal* bound = amountOf(derivation, "Die Stufe reicht bis")) {
            EXPECT_LE(*taxable, *bound);
        }
        rates.insert(*rate);
    }
    EXPECT_GE(rates.size(), 6U);
}

/// The parts of the insurance line that are told add up to it.
TEST(Derivation, insuranceFollowsFromItsParts) {
    for (const TaxCase& taxCase : households(TaxRegion::liechtenstein)) {
        SCOPED_TRACE(testing::nameOf(taxCase));
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        const auto derivation = calculator.explain(taxCase, "590").value();
        const Decimal* social = amountOf(derivation, "Sozialversicherungen");
        const Decimal* pension = amountOf(derivation, "Pensionskasse abziehbar");
        const Decimal* premiums = amountOf(derivation, "Private Versicherungen abziehbar");
        ASSERT_TRUE(social && pension && premiums);
        EXPECT_EQ(*social + *pension + *premiums, derivation.canton);
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
