#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"

#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// What a QR-bill tells. Swiss Implementation Guidelines for the QR-bill 2.x; bill information by
/// the Swico syntax "S1"
struct QrBill {
    std::string iban; ///< without blanks; empty when its check digits do not fit
    std::string payee;
    std::string payeeTown;
    std::optional<taxcore::Decimal> amount; ///< absent when left open
    std::string currency;                   ///< CHF or EUR
    std::string debtor;
    std::string reference; ///< without blanks
    std::string message;

    // From the bill information, where the biller gives it.
    std::string invoiceNumber;
    std::optional<taxcore::Date> date;
    std::optional<taxcore::Decimal> totalByTax; ///< the net amounts and their tax together
    std::optional<taxcore::Decimal> discountPercent;
};

/// Reads the content of a QR code; lines end with LF or CR LF, may have blanks around them, and
/// the last ones may be missing. Absent for anything that is no QR-bill, also one with an
/// unreadable amount.
std::optional<QrBill> parseQrBill(std::string_view bytes);

} // namespace fiscarel
