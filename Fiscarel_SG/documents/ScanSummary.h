#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

// What a document is known by in a list. The proposals tell it where there are some: they know its
// places. The rules of words take the first number and the first line for it.

/// What it is about in francs: the main value of its first record, with that of the others of the
/// same kind, such as the balances of all accounts; of a statement its total; of unsure values
/// none. Without proposals the first credible amount found by words.
std::optional<Decimal> mainAmount(const ScanResult& scan);

/// Who made the document out: employer, bank, insurer, doctor … Else the line found by words.
std::optional<std::string> issuerName(const ScanResult& scan);

/// What it could be called in a list: "Lohnausweis – Schreinerei Muster AG"; empty when it is of no
/// kind or its proposals do not say who made it out.
std::string titleFor(StoredDocument::Kind kind, const ScanResult& scan);

/// The amounts found by words as far as they may be told: none beside proposals, which know better,
/// and none that is rather a day, a year or the number of a box.
std::vector<ExtractedField> credibleFields(const ScanResult& scan);

/// What kind of document it is taken for: what is proposed counts while neither the user nor an
/// earlier taking over has decided. A kind other than the one read by words was decided as well.
StoredDocument::Kind firstKind(const StoredDocument& document, const ScanResult& scan);

/// What a proposed record calls the one it comes from; empty when it does not.
std::string sourceName(const ScanResult& scan, std::size_t record);

} // namespace fiscarel
