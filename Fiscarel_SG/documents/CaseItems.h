#pragma once

#include "Fiscarel_SG/documents/Applying.h"

namespace fiscarel {

/// Where a proposed record stands in a case.
struct ItemPlace {
    std::string path; ///< "income1.salaries[0]", "deductions2"
    bool isNew = false;
};

/// Where the pages have the fields of a kind of record: "income1.salaries[0]", "deductions1".
std::string firstPlaceOf(ProposedRecord::Kind kind);

/// The place of a record in the case; makes a new item, linked to `document`, where none is named.
/// Absent when the item is gone or can only be made by the user.
std::optional<ItemPlace> placeOf(taxcore::TaxCase& taxCase, ProposedRecord::Kind kind,
                                 const RecordTarget& target, const Uuid& document);

} // namespace fiscarel
