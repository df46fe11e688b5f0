#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// How much of one more franc goes to the tax; fractions of 1.
struct MarginalRate {
    Decimal total;
    Decimal canton; ///< in Liechtenstein the national tax
    Decimal municipality;
    Decimal church;
    Decimal federal;

    bool operator==(const MarginalRate&) const = default;
};
TAXCORE_RECORD(MarginalRate, total, canton, municipality, church, federal);

/// One point of the tax over the income.
struct CurvePoint {
    Decimal income;   ///< taxable income of the canton, francs
    Decimal tax;      ///< of the year, francs
    Decimal marginal; ///< fraction that goes from the last 1,000 francs

    bool operator==(const CurvePoint&) const = default;
};
TAXCORE_RECORD(CurvePoint, income, tax, marginal);

/// An income at which a tariff goes over to its next step.
struct TariffStep {
    Decimal income;   ///< taxable income of the canton, francs
    std::string text; ///< German: whose tariff and what begins

    bool operator==(const TariffStep&) const = default;
};
TAXCORE_RECORD(TariffStep, income, text);

/// The tax of a household over its taxable income, all else equal.
struct IncomeCurve {
    std::vector<CurvePoint> points; ///< ascending
    std::vector<TariffStep> steps;  ///< ascending, within the points

    bool operator==(const IncomeCurve&) const = default;
};
TAXCORE_RECORD(IncomeCurve, points, steps);

/// A sum paid into the pension fund over some years, each like the year of the case.
struct BuyInPlan {
    int years = 1;
    std::vector<Decimal> payments; ///< francs a year, the largest first
    Decimal saving;                ///< francs of tax over all the years
    /// Francs of the payments that lower no taxable income: what lies above the most that a year
    /// deducts (Liechtenstein, SteG Art. 16), or above the taxable income itself.
    Decimal beyondLimit;

    bool operator==(const BuyInPlan&) const = default;
};
TAXCORE_RECORD(BuyInPlan, years, payments, saving, beyondLimit);

/// What is asked of the planner of buy-ins.
struct BuyInRequest {
    int person = 1;    ///< 1 or 2
    Decimal sum;       ///< francs
    int mostYears = 5; ///< at least 1, at most 20
    /// The household's cases of other years, as far as they are known.
    std::vector<const TaxCase*> otherYears = {};
};

/// The plans of a buy-in, or why there are none.
struct BuyInPlanning {
    std::vector<BuyInPlan> plans; ///< by the number of years, from one on
    /// Why the person may not buy in or there is nothing to plan; a German sentence. Without it
    /// there is one plan at least.
    std::optional<std::string> impossible;

    bool operator==(const BuyInPlanning&) const = default;
};
TAXCORE_RECORD(BuyInPlanning, plans, impossible);

/// Advice on a computed case. Every figure comes from the calculator itself, none is estimated.
struct Advisor {
    Advisor() = delete;

    /// Everything the household pays for the year: the bill and the tax on capital payments.
    static Decimal totalTax(const TaxResult& result);

    /// Lawful ways to pay less, as notices of level `tip` with the saving in francs: the difference
    /// of two full calculations, to the Rappen. Each stands by itself; savings do not add up. What
    /// saves nothing is left out. `today` tells whether a payment or an act in the tax year is
    /// still possible; where it is not, the tip is `missed` and its message says so. First come the
    /// tips that are still open, then the missed ones, each group by its savings, the largest
    /// first. `otherYears` are the household's cases of other years, as far as they are known.
    static std::vector<Notice> tips(const CaseCalculator& calculator, const TaxCase& taxCase,
                                    const TaxResult& base, Date today,
                                    const std::vector<const TaxCase*>& otherYears = {});

    /// What the last 1,000 francs of taxable income cost, by recipient.
    static MarginalRate marginalRate(const CaseCalculator& calculator, const TaxCase& taxCase,
                                     const TaxResult& base);

    /// The tax at `count` (at least 2) taxable incomes in whole francs, evenly from 0 to `highest`
    /// (below 0 counts as 0); the federal income keeps its distance from the canton's.
    static IncomeCurve incomeCurve(const CaseCalculator& calculator, const TaxCase& taxCase,
                                   const TaxResult& base, const Decimal& highest, int count);

    /// The best way to pay a sum into a person's pension fund over some years, one plan per number
    /// of years, up to the last year in which the person may buy in; each is searched in 400ths of
    /// the sum, cut to full francs. What is entered as a buy-in already stays in every year. The
    /// years are taken to be like that of the case. No plan, but the reason, for somebody without a
    /// pension fund or past the reference age, for somebody whose certificates show neither
    /// contributions to a fund nor only the net salary, in St.Gallen also when the household drew
    /// pension-fund capital in the year or the three before, for a person who does not count in the
    /// household, and for a sum that is not above 0. BVG Art. 13, 79b, DBG Art. 33 Abs. 1 Bst. d
    static BuyInPlanning planBuyIn(const CaseCalculator& calculator, const TaxCase& taxCase,
                                   const BuyInRequest& request);
    /// The plan that saves most; of equal ones the one with the fewest years. `plans` must hold one
    /// at least and outlive what is returned.
    static const BuyInPlan& bestPlan(const std::vector<BuyInPlan>& plans);
};

} // namespace taxcore
