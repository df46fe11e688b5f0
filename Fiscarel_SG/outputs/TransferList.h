#pragma once

#include "Fiscarel_SG/outputs/TransferRow.h"
#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace fiscarel::outputs {

/// What the list is made of; all is only read.
struct TransferInput {
    const taxcore::CaseCalculator& calculator; ///< of the case's region and year
    const taxcore::TaxCase& taxCase;
    const taxcore::TaxResult& result; ///< of that case
    const std::vector<StoredDocument>& documents;
    const std::set<std::string>& ticks; ///< of the case's year, see `TransferRow::id`
};

/// An entry that stands on no form.
struct NotTransferred {
    std::string path;
    std::string value;      ///< as entered
    std::string reason;     ///< one German sentence
    bool isInitial = false; ///< the value of a new record: nothing that anybody misses

    bool operator==(const NotTransferred&) const = default;
};

/// Something ticked that is no more: the authority's program still holds the old values.
struct GoneRow {
    std::string label; ///< German
    std::vector<std::string> oldValues;
    std::vector<std::string> ticks; ///< to be taken away when it is cleared there

    bool operator==(const GoneRow&) const = default;
};

/// The return and its enclosures, field by field.
struct TransferList {
    std::vector<TransferRow> rows; ///< form by form, within a form by page, part and Ziffer
    std::vector<NotTransferred> notTransferred;
    std::vector<std::string> unexplained; ///< entries neither in a row nor with a reason: none
    std::vector<GoneRow> gone;

    std::size_t doneCount() const;
    /// The forms in their order.
    std::vector<std::string> forms() const;

    bool operator==(const TransferList&) const = default;
};

/// Makes the list of a computed case. Amounts in francs are cut to whole francs, not rounded.
TransferList makeTransferList(const TransferInput& input);

} // namespace fiscarel::outputs
