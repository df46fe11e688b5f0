#include "TaxCore/review/PensionLimits.h"

#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/DeductionRules.h"

#include <algorithm>

namespace taxcore::review {

namespace {

constexpr int referenceAge = 65;
constexpr int lastAgeOfPillar3a = 70;

} // namespace

bool isTooOldForPillar3a(const Adult& adult, int year) {
    return ageOf(adult, year).value_or(0) > lastAgeOfPillar3a;
}

std::optional<Decimal> pillar3aMaximumOf(const Adult& adult, const Saeule3aParams& params) {
    const Decimal earned = taxcore::Adult(adult).earned();
    const Decimal& unemployment = adult.income.unemployment;
    if (earned <= 0 && unemployment <= 0) {
        return std::nullopt;
    }
    return pillar3aMaximum(adult.person.hasPensionFund, earned + unemployment, params);
}

bool hasPensionContributions(const PersonIncome& income) {
    return std::ranges::any_of(income.salaries, [](const SalaryCertificate& certificate) {
        return certificate.pensionContributions > 0;
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

} // namespace taxcore::review
