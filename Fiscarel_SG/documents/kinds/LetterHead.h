#pragma once

#include "Fiscarel_SG/documents/kinds/PageRuns.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <string>

namespace fiscarel {

/// Whether a row tells whom to ask at the sender's, or who that is.
bool namesContact(const Row& row);

/// Whether a word parts what a line of contacts strings together: "·", "|".
bool isSeparator(const RowWord& word);

/// Whether folded words name a company, institution or practice rather than a person.
bool namesCompany(const std::string& folded);

/// "Herr", "Madame": what stands before a person's name.
const Labels& salutations();

/// The name in an address on a page above a height (points): two or three lines above a town, no
/// company; empty when there is none.
PlacedText findAddressee(const PageRows& page, double above);

/// Who sent a paper: the first of a line that tells sender, street and town; the first company at
/// the top; the first of the contact line at the foot; else the first line of words. Never the one
/// whom it is addressed to. Empty when there is none.
PlacedText findIssuer(const PageRows& page, const PlacedText& addressee);

} // namespace fiscarel
