#include "TaxCore/base/Text.h"
#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

namespace {

void checkName(CheckContext& c, const Adult& adult) {
    if (isBlank(adult.person.firstName) || isBlank(adult.person.lastName)) {
        c.warning(
            {adult.id("name-fehlt"), "family", "Name fehlt",
             "Bitte Vor- und Nachnamen von Person " + std::to_string(adult.number) + " eintragen.",
             FieldPath("person", isBlank(adult.person.firstName) ? "firstName" : "lastName")
                 .of(adult.number)});
    }
}

} // namespace

void checkFamily(CheckContext& c) {
    for (const Adult& adult : c.adults) {
        checkName(c, adult);
    }
}

} // namespace taxcore::review
