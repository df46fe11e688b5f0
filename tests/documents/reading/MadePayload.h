#pragma once

#include "Fiscarel_SG/documents/PageReading.h"

#include <string>
#include <vector>

namespace fiscarel {

/// zlib data of a text.
std::string packed(const std::string& text);
/// A ZIP file with one entry; only its local header, as far as readers need it.
std::string zipped(const std::string& text);
/// The parts of a certificate's barcode, `count` of them, with their headers of fourteen bytes.
std::vector<PageSymbol> certificateSymbols(const std::string& xml, int count,
                                           const std::string& document = "ab01");
/// The parts of a statement's barcode in structured append.
std::vector<PageSymbol> statementSymbols(const std::string& xml, int count);
PageSymbol qrSymbol(const std::string& content);

/// A certificate with boxes 8, 9, 10.1 and 11, and one with boxes 8 and 11.
std::string certificateXml(const std::string& net = "56343.00");
std::string pensionXml();
/// A statement with an account, a security and a debt.
std::string statementXml(const std::string& total = "39351.02");
/// A QR-bill; `end` separates its lines.
std::string billText(const std::string& amount, const std::string& end = "\n",
                     const std::string& information = "");

} // namespace fiscarel
