#pragma once

// Words in entered texts and names for list items, for the checks.

#include "TaxCore/model/TaxCase.h"

#include <string>
#include <string_view>
#include <vector>

namespace taxcore::review {

/// Whether a text is or holds a word in exactly this spelling; words are runs of letters and
/// digits.
bool hasWord(std::string_view text, std::string_view word);

/// The words of a text in small letters, umlauts spelled out and accents taken off: "Grüne, Höfe"
/// gives "gruene" and "hoefe". Characters beyond the Latin alphabet stay as they are.
std::vector<std::string> plainWords(std::string_view text);

/// How a sentence speaks of a list item: its name in guillemets, or what it is with its number.
std::string itemName(std::string_view name, std::string_view kind, int index);
/// The same with what it is before the name too: "Lohnausweis «Muster AG»" or "Lohnausweis 2".
std::string itemWithKind(std::string_view kind, std::string_view name, int index);

// How a sentence speaks of the items of the case.

/// The first name, as people are called; else "Kind 2".
std::string called(const Child& child, int index);
/// "Lohnausweis «Muster AG»" or "Lohnausweis 2".
std::string called(const SalaryCertificate& certificate, int index);
/// "«Kantonalbank, Sparkonto»" or "Eintrag 2".
std::string called(const SecurityEntry& entry, int index);
/// "«Einfamilienhaus»" or "Liegenschaft 2".
std::string called(const RealEstate& property, int index);

} // namespace taxcore::review
