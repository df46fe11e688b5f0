#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"
#include "TaxCore/model/Enumerations.h"

#include <optional>
#include <string>

namespace taxcore {

/// One adult of the household. Empty texts mean "not entered".
struct Person {
    std::string firstName;
    std::string lastName;
    std::optional<Date> birthDate;
    Confession confession = Confession::keine;
    std::string profession; ///< as written on the form
    EmploymentKind employment = EmploymentKind::unselbstaendig;
    std::string employer;
    bool hasPensionFund = true; ///< decides the maximum of pillar 3a

    /// First and last name without empty parts; "Person" when both are empty.
    std::string displayName() const;

    bool operator==(const Person&) const = default;
};
TAXCORE_RECORD(Person, firstName, lastName, birthDate, confession, profession, employment, employer,
               hasPensionFund);

/// One child of the household; amounts in francs of the tax year.
struct Child {
    Uuid id = Uuid::random();
    std::string firstName;
    std::string lastName;
    std::optional<Date> birthDate;
    ChildEducation education = ChildEducation::schule;
    std::string school;
    std::string educationUntil;
    bool livesInHousehold = true;
    Decimal childcareCosts; ///< external childcare paid
    /// Care days on which meals were included in the price.
    int childcareDaysWithMealsIncluded = 0;
    std::string childcareProvider;
    Decimal educationCosts;
    Decimal scholarships;

    bool operator==(const Child&) const = default;
};
TAXCORE_RECORD(Child, id, firstName, lastName, birthDate, education, school, educationUntil,
               livesInHousehold, childcareCosts, childcareDaysWithMealsIncluded, childcareProvider,
               educationCosts, scholarships);

} // namespace taxcore
