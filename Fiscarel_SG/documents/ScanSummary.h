#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"

namespace fiscarel {

// What a document is known by in a list. The proposals tell it where there are some: they know its
// places. The rules of words take the first number and the first line for it.

/// The first amount of the first record, of a statement its total; of unsure ones none. Without
/// proposals the first amount found by words.
std::optional<Decimal> mainAmount(const ScanResult& scan);

/// Who made the document out: employer, bank, insurer, doctor … Else the line found by words.
std::optional<std::string> issuerName(const ScanResult& scan);

/// What a proposed record calls the one it comes from; empty when it does not.
std::string sourceName(const ScanResult& scan, std::size_t record);

} // namespace fiscarel
