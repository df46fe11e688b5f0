#include "TaxCore/model/TaxCase.h"

#include "TaxCore/base/Rounding.h"

#include <algorithm>

namespace taxcore {

namespace {

bool isDeductible(const Child& child) noexcept { return child.education != ChildEducation::keine; }

} // namespace

std::string Person::displayName() const {
    if (firstName.empty() && lastName.empty()) {
        return "Person";
    }
    const bool both = !firstName.empty() && !lastName.empty();
    return firstName + (both ? " " : "") + lastName;
}

Decimal SalaryCertificate::netSalary() const {
    if (netSalaryOverride) {
        return *netSalaryOverride;
    }
    return notBelowZero(grossSalary - socialContributions - pensionContributions - pensionBuyIn);
}

Decimal MedicalCost::selfPaid() const { return notBelowZero(gross - reimbursed); }

std::vector<std::reference_wrapper<const Person>> TaxCase::persons() const {
    if (isJoint()) {
        return {person1, person2};
    }
    return {person1};
}

std::vector<std::reference_wrapper<const Child>> TaxCase::deductibleChildren() const {
    std::vector<std::reference_wrapper<const Child>> deductible;
    std::ranges::copy_if(children, std::back_inserter(deductible), isDeductible);
    return deductible;
}

bool TaxCase::isSingleParent() const noexcept {
    return !isJoint() && std::ranges::any_of(children, isDeductible);
}

TariffKind TaxCase::tariffKind() const noexcept {
    return isJoint() || isSingleParent() ? TariffKind::joint : TariffKind::single;
}

} // namespace taxcore
