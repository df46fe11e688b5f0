#include "Fiscarel_SG/documents/kinds/WageHolders.h"

#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/WageYear.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <set>

namespace fiscarel {

bool isOfPrincipality(const DocumentRows& document) {
    static const Labels names{"Fürstentum Liechtenstein", "PEID", "PEID-Nr", "BPVG"};
    return isAnyIn(document.folded, names);
}

void readHolder(const Row& row, SalaryForm& form) {
    constexpr int recentYear = 2020; // where the paper tells none
    constexpr int youngest = 10;     // years; later days are of an employment
    for (const RowWord& word : row.words) {
        const auto day = parseDay(word.text);
        const int year = form.year.value_or(recentYear);
        if (day && !form.birthDate && day->year() + youngest < year) {
            form.birthDate = day;
        }
    }
    if (form.socialSecurityNumber.empty()) {
        form.socialSecurityNumber = socialSecurityNumberIn(row);
    }
}

bool namesSeveralInsured(const PageRows& page) {
    std::set<std::string> numbers;
    for (const Row& row : page.rows) {
        if (std::string number = socialSecurityNumberIn(row); !number.empty()) {
            numbers.insert(std::move(number));
        }
    }
    return numbers.size() > 1;
}

void readAroundWage(const DocumentRows& document, double top, SalaryForm& form) {
    const SalaryForm own = form;
    const DocumentFacts facts = readFacts(document);
    readFormHeader(*form.page, top, form);
    form.isPension = false;
    form.isLiechtenstein = isOfPrincipality(document);
    form.year = facts.year ? facts.year : form.year;
    const bool isHeld = !own.person.empty() || own.birthDate || !own.socialSecurityNumber.empty();
    if (isHeld) {
        form.person = own.person;
        form.birthDate = own.birthDate;
        form.socialSecurityNumber = own.socialSecurityNumber;
    } else if (form.person.empty()) {
        form.person = facts.person.text;
    }
    form.employer = own.employer.empty() ? form.employer : own.employer;
}

} // namespace fiscarel
