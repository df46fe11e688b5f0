#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/TaxResult.h"
#include "TaxCore/rulebook/RuleBook.h"

#include <tl/expected.hpp>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace taxcore {

/// Computes the return and the bill of a household in the canton of St.Gallen: cantonal, municipal
/// and church tax together with the federal direct tax. A plain value; any thread may use it.
class TaxCalculator {
  public:
    /// A calculator on the rule book of the year for canton "SG"; the rule book's error when it
    /// does not load.
    static tl::expected<TaxCalculator, RuleBook::LoadError> forYear(int year);

    explicit TaxCalculator(std::shared_ptr<const RuleBook> rules) : rules_(std::move(rules)) {}

    const RuleBook& rules() const noexcept { return *rules_; }

    /// The complete return. Never fails: missing entries count as 0, and what is cut or cannot be
    /// computed is told in the result's notices. Amounts keep full precision; only the named
    /// roundings of the tariffs apply.
    TaxResult calculate(const TaxCase& taxCase) const;

    /// How a line of the return (its code with the person's number) or a figure of the bill (its
    /// field's name) came about; absent for an unknown code. A line left out because it is 0 is
    /// explained too, when anything led to the 0.
    std::optional<Derivation> explain(const TaxCase& taxCase, std::string_view code) const;

    /// The derivations of all lines and figures, in the order of the computation.
    std::vector<Derivation> explainAll(const TaxCase& taxCase) const;

    /// One person's work expenses for the jurisdiction of the parameters; all zero without a salary
    /// certificate. StG SG Art. 39, DBG Art. 26
    static WorkExpenseBreakdown workExpenses(const std::vector<SalaryCertificate>& salaries,
                                             const WorkExpenses& p,
                                             const BerufskostenParams& params);

    /// The bill for taxable amounts in francs; municipality and parish may be null.
    TaxBill computeBill(const TaxCase& taxCase, const Decimal& taxableIncomeCanton,
                        const Decimal& taxableIncomeFederal, const Decimal& taxableWealth,
                        const Municipality* municipality, const Parish* parish) const;

    /// Church multiplier of the household in percent. StV SG Art. 2 Abs. 1
    Decimal churchRate(const TaxCase& taxCase, const Parish* parish) const;

    /// Age on 31 December of the year.
    static int age(Date of, int atEndOf) noexcept;

    /// The stage of education usual at the end of the year; without a birth date `schule`.
    static ChildEducation suggestedEducation(const std::optional<Date>& birth, int year) noexcept;

  private:
    std::shared_ptr<const RuleBook> rules_;
};

} // namespace taxcore
