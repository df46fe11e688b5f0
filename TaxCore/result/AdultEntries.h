#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/FieldPath.h"

#include <string_view>

namespace taxcore {

/// What a case holds of one adult, and where it stands there. It refers to the case, which must
/// outlive it. Calculations and checks build their own view of a person on it.
struct AdultEntries {
    int number; ///< 1 or 2
    const Person& person;
    const PersonIncome& income;
    const PersonDeductions& deductions;

    FieldPath incomePath(std::string_view field) const {
        return FieldPath("income", field).of(number);
    }
    FieldPath deductionPath(std::string_view field) const {
        return FieldPath("deductions", field).of(number);
    }
    FieldPath workPath(std::string_view field) const {
        return FieldPath("deductions", "work", field).of(number);
    }
};

/// Calls `use` for each adult who counts: person 1, and person 2 in a joint household.
/// StG SG Art. 20, DBG Art. 9
template <class Use>
void forEachAdult(const TaxCase& taxCase, const Use& use) {
    use(AdultEntries{1, taxCase.person1, taxCase.income1, taxCase.deductions1});
    if (taxCase.isJoint()) {
        use(AdultEntries{2, taxCase.person2, taxCase.income2, taxCase.deductions2});
    }
}

} // namespace taxcore
