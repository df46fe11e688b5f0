#pragma once

#include "Fiscarel_SG/look/QtText.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QString>

namespace fiscarel::pages {

// Amounts as the overview writes them.

/// To the Rappen: "1’234.50".
inline QString rappen(const taxcore::Decimal& amount) {
    return qs(taxcore::MoneyFormat::chf(amount, 2, false));
}

/// Whole francs: "1’235".
inline QString francs(const taxcore::Decimal& amount) {
    return qs(taxcore::MoneyFormat::chf(amount, 0, false));
}

/// A difference, with its sign: "+312", "−312"; `places` after the point.
inline QString change(const taxcore::Decimal& amount, int places) {
    const taxcore::Decimal shown = amount.roundPlain(places);
    const QString digits = qs(taxcore::MoneyFormat::chf(shown.abs(), places, false));
    return shown > 0 ? u'+' + digits : shown < 0 ? u'−' + digits : digits;
}

/// The role of a difference of taxes: less is good.
inline const char* changeRole(const taxcore::Decimal& amount) {
    return amount < 0 ? "good" : amount > 0 ? "warning" : "figure";
}

} // namespace fiscarel::pages
