#pragma once

// Words in entered texts, names for list items and shared sentences, for the checks and tips.

#include "TaxCore/base/Iban.h"
#include "TaxCore/model/TaxCase.h"

#include <string>
#include <string_view>
#include <vector>

namespace taxcore::review {

/// Whether a text is or holds a word in exactly this spelling; words are runs of letters and
/// digits.
bool hasWord(std::string_view text, std::string_view word);

/// A text in small letters, umlauts spelled out and accents taken off: "Grüne, Höfe" gives "gruene,
/// hoefe". Characters beyond the Latin alphabet stay as they are.
std::string plainText(std::string_view text);
/// The words of a text as `plainText` gives it.
std::vector<std::string> plainWords(std::string_view text);

/// How a sentence speaks of a list item: its name in guillemets, or what it is with its number.
std::string itemName(std::string_view name, std::string_view kind, int index);
/// The same with what it is before the name too, perhaps with a word between them: "Lohnausweis
/// «Muster AG»", "Schuld bei «Bank»" or "Schuld 2".
std::string itemWithKind(std::string_view kind, std::string_view name, int index,
                         std::string_view between = "");

// How a sentence speaks of the items of the case.

/// The first name, as people are called; else "Kind 2".
std::string called(const Child& child, int index);
/// "Lohnausweis «Muster AG»" or "Lohnausweis 2".
std::string called(const SalaryCertificate& certificate, int index);
/// "«Kantonalbank, Sparkonto»" or "Eintrag 2".
std::string called(const SecurityEntry& entry, int index);
/// "«Einfamilienhaus»" or "Liegenschaft 2".
std::string called(const RealEstate& property, int index);
/// "Spende an «Rotes Kreuz»" or "Spende 2".
std::string called(const Donation& donation, int index);
/// "Rechnung «Zahnarzt»" or "Rechnung 2".
std::string called(const MedicalCost& bill, int index);
/// "Schuld bei «Bank»" or "Schuld 2".
std::string called(const Debt& debt, int index);
/// "Versicherung «Muster Leben»" or "Versicherung 2".
std::string called(const InsurancePolicy& policy, int index);

/// What is wrong with an IBAN, one German sentence.
std::string sentenceOn(IbanFault fault);

} // namespace taxcore::review
