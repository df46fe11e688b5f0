#pragma once

#include "Fiscarel_SG/documents/PageReading.h"
#include "Fiscarel_SG/documents/ScanResult.h"

namespace fiscarel {

/// Concludes from what stands in a document what it proposes for the return: payloads of barcodes
/// first, then amounts by their place beside a label, then amounts behind a label in the text.
/// Fills `proposedKind`, `kindIsCertain`, `records` and `proposals` of `result`, whose other fields
/// stand already. Never throws on what a document holds; callable from any thread.
void propose(const DocumentReading& reading, ScanResult& result);

} // namespace fiscarel
