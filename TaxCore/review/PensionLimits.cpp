#include "TaxCore/review/PensionLimits.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/DeductionRules.h"

#include <algorithm>

namespace taxcore::review {

namespace {

constexpr int lastAgeOfPillar3a = 70;
constexpr int firstAgeOfBenefits3a = 60; // five years before the reference age

/// Whether one of the household's cases is as asked for.
template <class Is>
bool anyCase(const TaxCase& taxCase, const std::vector<const TaxCase*>& otherYears, const Is& is) {
    return is(taxCase)
           || std::ranges::any_of(otherYears, [&](const TaxCase* other) { return is(*other); });
}

} // namespace

bool isTooOldForPillar3a(const Adult& adult, int year) {
    return ageOf(adult, year).value_or(0) > lastAgeOfPillar3a;
}

bool isTooYoungForPillar3a(const Adult& adult, int year) {
    return ageOf(adult, year).value_or(firstContributionAge) < firstContributionAge;
}

std::optional<Decimal> pillar3aMaximumOf(const Adult& adult, const Saeule3aParams& params) {
    const Decimal earned = taxcore::Adult(adult).earned();
    const Decimal& unemployment = adult.income.unemployment;
    if (earned <= 0 && unemployment <= 0) {
        return std::nullopt;
    }
    const bool hasFund = adult.person.hasPensionFund || hasPensionContributions(adult.income);
    return pillar3aMaximum(hasFund, earned + unemployment, params);
}

std::optional<Decimal> pillar3aGapOf(const TaxCase& earlier, int person) {
    const std::vector<Adult> adults = adultsOf(earlier);
    const auto adult = std::ranges::find(adults, person, &Adult::number);
    const auto calculator = CaseCalculator::forCase(earlier);
    const RuleBook* const rules = calculator ? calculator->stGallen() : nullptr;
    if (adult == adults.end() || rules == nullptr) {
        return std::nullopt;
    }
    if (isTooOldForPillar3a(*adult, earlier.year) || isTooYoungForPillar3a(*adult, earlier.year)) {
        return Decimal(0);
    }
    const auto maximum = pillar3aMaximumOf(*adult, rules->cantonal.saeule3a);
    return notBelowZero(maximum.value_or(0) - adult->deductions.pillar3a);
}

bool mayHaveDrawnPillar3a(const Adult& adult, const TaxCase& taxCase,
                          const std::vector<const TaxCase*>& otherYears) {
    return anyCase(taxCase, otherYears, [&](const TaxCase& other) {
        return other.year <= taxCase.year
               && ageOf(adult, other.year).value_or(0) >= firstAgeOfBenefits3a
               && std::ranges::any_of(other.capitalPayments, [](const CapitalPayment& payment) {
                      return payment.kind == CapitalPayment::Kind::saeule3a && payment.amount > 0;
                  });
    });
}

bool hasPensionContributions(const PersonIncome& income) {
    return std::ranges::any_of(income.salaries, [](const SalaryCertificate& certificate) {
        return certificate.pensionContributions > 0;
    });
}

bool hasNetSalaryOnly(const PersonIncome& income) {
    return std::ranges::any_of(income.salaries, [](const SalaryCertificate& certificate) {
        return certificate.netSalaryOverride && certificate.socialContributions.isZero();
    });
}

bool mayBuyIntoPensionFund(const Adult& adult, int year) {
    return adult.person.hasPensionFund && hasPensionContributions(adult.income)
           && ageOf(adult, year).value_or(0) <= referenceAge;
}

bool isPensionCapital(const CapitalPayment& payment) {
    return payment.kind == CapitalPayment::Kind::saeule2 && payment.amount > 0;
}

bool drewPensionCapital(const TaxCase& taxCase) {
    return std::ranges::any_of(taxCase.capitalPayments, isPensionCapital);
}

bool drewPensionCapitalLately(const TaxCase& taxCase,
                              const std::vector<const TaxCase*>& otherYears) {
    return anyCase(taxCase, otherYears, [&](const TaxCase& other) {
        return other.year <= taxCase.year && other.year >= taxCase.year - yearsWithoutCapital
               && drewPensionCapital(other);
    });
}

} // namespace taxcore::review
