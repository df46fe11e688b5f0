#pragma once

// Suggestions in the making; shared by the regions' tips, never seen outside.

#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/Advisor.h"
#include "TaxCore/review/CheckContext.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore::review {

/// Francs of costs in an example: hardly anybody spends as much as the maximum.
inline constexpr int exampleCosts = 1'000;

/// A lawful change of the case that may save tax.
struct Suggestion {
    std::string id;
    std::string_view area;
    std::string title;
    std::string message; ///< German; what to do
    std::string law;     ///< the articles that allow it
    std::optional<FieldPath> path;
    std::function<void(TaxCase&)> change = {};
    bool inTheYear = false; ///< takes a payment or an act before the tax year ends
};

/// Both sides of a law for a sentence: "StG SG Art. 44, DBG Art. 32 Abs. 1".
std::string cited(const Law& law);

/// An amount in a sentence: "CHF 7’258".
std::string money(const Decimal& amount);

class TipContext {
  public:
    TipContext(const CaseCalculator& calculator, const TaxCase& taxCase, const TaxResult& base,
               Date today, const std::vector<const TaxCase*>& otherYears);

    const TaxCase& taxCase() const noexcept { return taxCase_; }
    const TaxResult& base() const noexcept { return base_; }
    const RuleBook* stGallen() const noexcept { return calculator_.stGallen(); }
    const LIRules* liechtenstein() const noexcept { return calculator_.liechtenstein(); }
    const std::vector<Adult>& adults() const noexcept { return adults_; }

    /// The household's cases of other years, as far as they are known.
    const std::vector<const TaxCase*>& otherYears() const noexcept { return otherYears_; }

    /// What the household would pay for the changed case.
    Decimal taxWith(const std::function<void(TaxCase&)>& change) const;

    /// Computes the changed case and keeps the suggestion when it saves something.
    void suggest(Suggestion suggestion);
    /// The same where one changed case does not tell the saving; the change is not looked at.
    void suggest(Suggestion suggestion, const Decimal& saving);

    /// The tips that are still open, then the missed ones, each group with the largest saving
    /// first.
    std::vector<Notice> ordered() &&;

  private:
    const CaseCalculator& calculator_;
    const TaxCase& taxCase_;
    const TaxResult& base_;
    Date today_;
    const std::vector<const TaxCase*>& otherYears_;
    std::vector<Adult> adults_;
    std::vector<Notice> tips_;
};

/// The part of a case that belongs to a person, for changes.
PersonDeductions& deductionsOf(TaxCase& taxCase, int person);

/// The end of a message: what costs of an example save.
std::string exampleSaves(const Decimal& costs);

/// Costs of a training that are not entered, for every child whose parents may bear such costs: at
/// school beyond the compulsory one or in training. The ids begin with `stem`; `deductible` tells
/// what the region's `law` deducts, and `example` is what the parents pay in the example.
void enterChildEducation(TipContext& c, std::string_view stem, const Law& law,
                         const std::string& deductible, const Decimal& example);

/// A vehicle whose computed value is below the one entered; `law` is the region's.
void computeVehicleValue(TipContext& c, const Law& law);

void suggestStGallen(TipContext& c);
/// The part about pillars 2 and 3a and capital payments.
void suggestPensionInStGallen(TipContext& c);
/// The part about children, further education, gifts, medical costs and spouses.
void suggestFamilyInStGallen(TipContext& c);
void suggestLiechtenstein(TipContext& c);

} // namespace taxcore::review
