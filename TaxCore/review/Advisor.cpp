#include "TaxCore/review/Advisor.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/TipContext.h"

#include <algorithm>

namespace taxcore {

namespace {

constexpr int marginalSpan = 1'000; ///< francs over which a marginal rate is measured

MarginalRate difference(const TaxBill& upper, const TaxBill& lower) {
    const auto share = [&](const Decimal& above, const Decimal& below) {
        return (above - below) / marginalSpan;
    };
    return {share(upper.total(), lower.total()), share(upper.cantonTotal(), lower.cantonTotal()),
            share(upper.municipalityTotal(), lower.municipalityTotal()),
            share(upper.churchTotal(), lower.churchTotal()), share(upper.federal, lower.federal)};
}

/// The surcharge follows the national tax without a rounding of its own.
MarginalRate liechtensteinRate(const LIRules& rules, const TaxCase& taxCase, const TaxBill& bill) {
    const Decimal& taxable = bill.taxableIncomeCanton;
    const LITariffKind kind = liTariffOf(taxCase);
    const Decimal national =
        (Tariffs::landessteuer(taxable, kind, rules.tarif)
         - Tariffs::landessteuer(notBelowZero(taxable - marginalSpan), kind, rules.tarif))
        / marginalSpan;
    const Decimal municipal = national * bill.municipalityRate / 100;
    return {.total = national + municipal,
            .canton = national,
            .municipality = municipal,
            .church = {},
            .federal = {}};
}

/// Where the steps of the tariffs lie on the axis of the canton's taxable income.
class StepFinder {
  public:
    StepFinder(std::vector<TariffStep>& steps, const Decimal& highest)
        : steps_(steps), highest_(highest) {}

    /// A couple's tariff is that for half its income, so its steps lie at twice those of the
    /// single.
    void addStGallen(const RuleBook& rules, const TaxBill& bill) {
        const SGTariffTable& table = rules.sgTariff;
        const int persons = bill.kind == TariffKind::joint ? 2 : 1;
        Decimal slope;
        for (std::size_t row = 0; row + 1 < table.single.size(); ++row) {
            const Decimal next = table.single[row + 1] - table.single[row];
            if (next != slope) {
                slope = next;
                add((Decimal(table.from) + Decimal(table.step) * static_cast<int>(row)) * persons,
                    "Kanton: je weitere 100 Franken "
                        + MoneyFormat::chf(slope * 100 / table.step, 2, false)
                        + " einfache Steuer");
            }
        }
        const bool joint = bill.kind == TariffKind::joint;
        add(joint ? rules.sgTariff.jointFlatFrom : rules.sgTariff.singleFlatFrom,
            "Kanton: fester Satz vom ganzen Einkommen");
    }

    /// `shift`: what the canton's income lies above the federal one.
    void addFederal(const FederalTariff& tariff, TariffKind kind, const Decimal& shift) {
        for (const FederalBracket& bracket : Tariffs::bracketsOf(tariff, kind)) {
            add(bracket.ab + shift,
                "Bund: je weitere 100 Franken " + MoneyFormat::chf(bracket.proHundert, 2, false));
        }
        add((kind == TariffKind::joint ? tariff.verheiratetFlatAb : tariff.alleinstehendFlatAb)
                + shift,
            "Bund: fester Satz vom ganzen Einkommen");
    }

    void addLiechtenstein(const std::vector<LIRules::Stufe>& tariff) {
        for (std::size_t i = 0; i + 1 < tariff.size(); ++i) {
            if (tariff[i].bis) {
                add(*tariff[i].bis,
                    "Landessteuer: Satz " + MoneyFormat::number(tariff[i + 1].satz * 100) + "%");
            }
        }
    }

  private:
    void add(const Decimal& income, std::string text) {
        if (income > 0 && income <= highest_) {
            steps_.push_back({toWholeFrancs(income), std::move(text)});
        }
    }

    std::vector<TariffStep>& steps_;
    Decimal highest_;
};

} // namespace

Decimal Advisor::totalTax(const TaxResult& result) {
    const auto& separate = result.capitalPaymentTax;
    return result.bill.total() + (separate ? separate->canton + separate->federal : Decimal(0));
}

std::vector<Notice> Advisor::tips(const CaseCalculator& calculator, const TaxCase& taxCase,
                                  const TaxResult& base, Date today,
                                  const std::vector<const TaxCase*>& otherYears) {
    review::TipContext context(calculator, taxCase, base, today, otherYears);
    if (context.stGallen() != nullptr) {
        review::suggestStGallen(context);
    } else {
        review::suggestLiechtenstein(context);
    }
    return std::move(context).ordered();
}

MarginalRate Advisor::marginalRate(const CaseCalculator& calculator, const TaxCase& taxCase,
                                   const TaxResult& base) {
    const TaxBill& bill = base.bill;
    if (const LIRules* rules = calculator.liechtenstein()) {
        return liechtensteinRate(*rules, taxCase, bill);
    }
    const auto lowered = [](const Decimal& income) { return notBelowZero(income - marginalSpan); };
    return difference(bill, calculator.billFor(taxCase, base, lowered(bill.taxableIncomeCanton),
                                               lowered(bill.taxableIncomeFederal)));
}

IncomeCurve Advisor::incomeCurve(const CaseCalculator& calculator, const TaxCase& taxCase,
                                 const TaxResult& base, const Decimal& highest, int count) {
    const Decimal shift = base.bill.taxableIncomeCanton - base.bill.taxableIncomeFederal;
    const auto billAt = [&](const Decimal& income) {
        return calculator.billFor(taxCase, base, income, notBelowZero(income - shift));
    };
    IncomeCurve curve;
    const Decimal end = notBelowZero(highest);
    const int last = std::max(count, 2) - 1;
    for (int i = 0; i <= last; ++i) {
        const Decimal income = toWholeFrancs(end * i / last);
        const TaxBill bill = billAt(income);
        const TaxBill lower = billAt(notBelowZero(income - marginalSpan));
        curve.points.push_back({income, bill.total(), difference(bill, lower).total});
    }
    StepFinder steps(curve.steps, end);
    if (const RuleBook* rules = calculator.stGallen()) {
        steps.addStGallen(*rules, base.bill);
        steps.addFederal(rules->federalRules.tarif, base.bill.kind, shift);
    } else if (const LIRules* li = calculator.liechtenstein()) {
        steps.addLiechtenstein(li->tarif.steps(liTariffOf(taxCase)));
    }
    std::ranges::stable_sort(curve.steps, {}, &TariffStep::income);
    return curve;
}

} // namespace taxcore
