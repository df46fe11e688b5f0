#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <string>
#include <vector>

namespace fiscarel {

/// An amount of one of several people.
struct PersonAmount {
    std::string name; ///< as printed
    FoundAmount found;
};

/// The amounts of a document that states one for each of several people: children, spouses. They
/// are named by the row of the amount, by the heading of its column, or by a line above it that
/// goes for all that follows. Names are those beside a birth date or a label such as "Kind", two
/// that "und" joins, and others of the same family. Empty when fewer than two people have one.
std::vector<PersonAmount> findPersonAmounts(const DocumentRows& document, const Wanted& wanted);

} // namespace fiscarel
