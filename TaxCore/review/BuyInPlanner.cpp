#include "TaxCore/base/Rounding.h"
#include "TaxCore/review/Advisor.h"
#include "TaxCore/review/PensionLimits.h"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

namespace taxcore {

namespace {

constexpr std::size_t parts = 400; ///< into which the sum is cut to search

/// Searches how to spread a sum over some years.
class BuyInSearch {
  public:
    BuyInSearch(const CaseCalculator& calculator, TaxCase taxCase, int person, const Decimal& sum)
        : calculator_(calculator), changed_(std::move(taxCase)),
          buyIn_((person == 2 ? changed_.deductions2 : changed_.deductions1).pensionBuyIn),
          before_(buyIn_), sum_(sum), tax_(taxWith(0)) {
        for (std::size_t k = 0; k <= parts; ++k) {
            savings_[k] = saving(part(k));
        }
        rows_.push_back({savings_, {}});
        limit_ = mostUseful();
    }

    /// The best plan over a number of years; to be asked in ascending order.
    BuyInPlan plan(std::size_t years) {
        while (rows_.size() < years) {
            rows_.push_back(nextRow(rows_.back().best));
        }
        BuyInPlan plan;
        plan.years = static_cast<int>(years);
        std::size_t left = parts;
        for (std::size_t year = years; year > 1; --year) {
            const std::size_t k = rows_[year - 1].choice[left];
            plan.payments.push_back(part(k));
            left -= k;
        }
        plan.payments.push_back(part(left));
        std::ranges::sort(plan.payments, std::greater<>{});
        // What cutting to full francs left over belongs to the largest payment.
        const Decimal paid =
            std::accumulate(plan.payments.begin(), plan.payments.end(), Decimal(0));
        plan.payments.front() += sum_ - paid;
        for (const Decimal& payment : plan.payments) {
            plan.saving += saving(payment);
            plan.beyondLimit += notBelowZero(payment - limit_);
        }
        return plan;
    }

  private:
    using Savings = std::array<Decimal, parts + 1>;
    /// By parts of the sum: the most that some years save, and what the last of them pays.
    struct Row {
        Savings best;
        std::array<std::size_t, parts + 1> choice;
    };

    Row nextRow(const Savings& fewer) const {
        Row row{};
        for (std::size_t total = 0; total <= parts; ++total) {
            row.best[total] = fewer[total]; // nothing in the last year
            for (std::size_t k = 1; k <= total; ++k) {
                const Decimal sum = fewer[total - k] + savings_[k];
                if (sum > row.best[total]) {
                    row.best[total] = sum;
                    row.choice[total] = k;
                }
            }
        }
        return row;
    }

    Decimal part(std::size_t k) const {
        return (sum_ * static_cast<int>(k) / static_cast<int>(parts)).roundDown(0);
    }

    TaxResult resultWith(const Decimal& payment) {
        buyIn_ = before_ + payment;
        return calculator_.calculate(changed_);
    }
    Decimal taxWith(const Decimal& payment) { return Advisor::totalTax(resultWith(payment)); }
    Decimal saving(const Decimal& payment) { return tax_ - taxWith(payment); }

    /// The taxable incomes before they are rounded, so that every franc shows.
    std::pair<Decimal, Decimal> taxableWith(const Decimal& payment) {
        const TaxResult result = resultWith(payment);
        if (calculator_.liechtenstein() != nullptr) {
            return {notBelowZero(result.value("575") - result.value("640")), 0};
        }
        const TaxLine* taxable = result.line("steuerbaresEinkommen");
        return taxable != nullptr ? std::pair(taxable->canton, taxable->federalOrCanton())
                                  : std::pair<Decimal, Decimal>();
    }

    /// The least payment of one year, in full francs, after which more of the sum lowers no taxable
    /// income; the sum where all of it does.
    Decimal mostUseful() {
        const auto lowest = taxableWith(sum_);
        Decimal enough = sum_.roundDown(0);
        if (taxableWith(enough) != lowest) {
            return sum_;
        }
        Decimal tooLittle = -1;
        while (enough - tooLittle > 1) {
            const Decimal middle = ((enough + tooLittle) / 2).roundDown(0);
            (taxableWith(middle) == lowest ? enough : tooLittle) = middle;
        }
        return enough;
    }

    const CaseCalculator& calculator_;
    TaxCase changed_;
    Decimal& buyIn_;
    Decimal before_;
    Decimal sum_;
    Decimal tax_;
    Savings savings_;
    Decimal limit_; ///< of a year's payment: what lies above lowers no taxable income
    std::vector<Row> rows_;
};

/// Why a person may not buy into a pension fund, as the end of a sentence; absent where they may.
std::optional<std::string> obstacleOf(const CaseCalculator& calculator, const TaxCase& taxCase,
                                      const review::Adult& adult,
                                      const std::vector<const TaxCase*>& otherYears) {
    if (!adult.person.hasPensionFund) {
        return "Es ist keine Pensionskasse angekreuzt.";
    }
    if (!review::hasPensionContributions(adult.income) && !review::hasNetSalaryOnly(adult.income)) {
        return "Kein Lohnausweis zeigt Beiträge an eine Pensionskasse (Ziffer 10.1).";
    }
    if (review::ageOf(adult, taxCase.year).value_or(0) > review::referenceAge) {
        return "Das Referenzalter von " + std::to_string(review::referenceAge)
               + " Jahren ist überschritten.";
    }
    if (calculator.stGallen() != nullptr && review::drewPensionCapitalLately(taxCase, otherYears)) {
        return "Im Steuerjahr oder in den " + std::to_string(review::yearsWithoutCapital)
               + " Jahren davor wurde Kapital aus der Pensionskasse bezogen; der Abzug würde in "
                 "der Regel gestrichen (Art. 79b Abs. 3 BVG).";
    }
    return std::nullopt;
}

/// How many years from that of the case on the person may still buy in; the year of the reference
/// age counts.
int yearsLeft(const review::Adult& adult, int year) {
    constexpr int longest = 20;
    const auto age = review::ageOf(adult, year);
    return age ? std::min(longest, review::referenceAge - *age + 1) : longest;
}

} // namespace

BuyInPlanning Advisor::planBuyIn(const CaseCalculator& calculator, const TaxCase& taxCase,
                                 const BuyInRequest& request) {
    const std::vector<review::Adult> adults = review::adultsOf(taxCase);
    const auto adult = std::ranges::find(adults, request.person, &review::Adult::number);
    const auto impossible = [&](const std::string& who, const std::string& reason) {
        return BuyInPlanning{{}, "Für " + who + " ist kein Einkauf möglich: " + reason};
    };
    if (adult == adults.end()) {
        return impossible("Person " + std::to_string(request.person),
                          "Sie gehört nicht zu diesem Haushalt.");
    }
    if (request.sum <= 0) {
        return impossible(adult->called(), "Die Summe muss grösser als 0 sein.");
    }
    if (const auto obstacle = obstacleOf(calculator, taxCase, *adult, request.otherYears)) {
        return impossible(adult->called(), *obstacle);
    }
    BuyInPlanning planning;
    BuyInSearch search(calculator, taxCase, request.person, request.sum);
    const int most = std::clamp(request.mostYears, 1, yearsLeft(*adult, taxCase.year));
    for (int years = 1; years <= most; ++years) {
        planning.plans.push_back(search.plan(static_cast<std::size_t>(years)));
    }
    return planning;
}

const BuyInPlan& Advisor::bestPlan(const std::vector<BuyInPlan>& plans) {
    return *std::ranges::max_element(plans, {}, &BuyInPlan::saving);
}

} // namespace taxcore
