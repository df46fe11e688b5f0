#pragma once

#include "Fiscarel_SG/documents/Proposal.h"
#include "TaxCore/model/TaxCase.h"

namespace fiscarel {

/// Whom of a return's adults a document names.
enum class NamedAdult {
    none,    ///< it names nobody
    first,   ///< person 1
    second,  ///< person 2 of a joint return
    both,    ///< either of them as well as the other
    nobody,  ///< somebody else
    unknown, ///< the return knows no adult by name or birth date yet
};

/// By birth date where both tell it, else by name: its first name, written out or as an initial, or
/// the last name where no first name is told.
NamedAdult namedAdult(const taxcore::TaxCase& taxCase, const ProposedRecord& record);

/// Whether a document names somebody who is neither an adult nor a child of the return.
bool namesStranger(const taxcore::TaxCase& taxCase, const ProposedRecord& record);

/// Whether a document gives an adult whose first name it tells another last name than the return.
bool hasOtherLastName(const taxcore::Person& person, const ProposedRecord& record);

/// Whether two records name different people.
bool nameDifferentPeople(const ProposedRecord& one, const ProposedRecord& other);

} // namespace fiscarel
