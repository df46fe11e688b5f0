#pragma once

#include "TaxCore/base/Uuid.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// How a form wants a value, and how it is written here.
enum class ValueKind {
    francs, ///< whole francs, cut towards zero: "64’120"
    rappen, ///< francs with Rappen where there are some, cut: "480.90", "1’500"
    number, ///< days, kilometres, percent, a year: no grouping
    date,   ///< "17.04.1986"
    text,   ///< as entered, one line
    iban,   ///< in groups of four
    yesNo,  ///< "Ja"; a "no" is not transferred
};

/// Whether a field has been transferred.
enum class Tick {
    open,
    done,
    changed, ///< ticked with another value than it has now
};

/// One field of the authority's form with the value that belongs into it.
struct TransferRow {
    /// What the row is, whatever its value: the code of a line, or the path of an entry in which
    /// items of lists stand by their identity, so that moving them changes nothing.
    std::string key;
    std::string form; ///< "Formular 4 – Berufskosten"
    int page = 0;     ///< of the return; of an enclosure the page that it belongs to
    /// As printed on the form; of an enclosure the one of the return that it belongs to, of a
    /// salary certificate its own. Empty where the form prints none.
    std::string ziffer;
    int person = 0;   ///< 1 or 2; 0: the household
    std::string name; ///< of that person; empty for the household
    std::string part; ///< of the form: a section, or an item of a register
    int item = 0;     ///< position of the part within the form's page
    std::string label;
    ValueKind kind = ValueKind::text;
    std::string value;   ///< as shown; in St.Gallen the canton's
    std::string federal; ///< as shown; empty where the federation's is the same
    std::string note;    ///< German; may be empty
    /// A sum that the authority's program makes itself: to compare rather than to type.
    bool isComputed = false;
    std::string code; ///< of the line that tells how the value came about; empty for plain entries

    // What stands behind the value.
    std::vector<std::string> paths; ///< of the entries, in the order of the calculation
    std::vector<std::string> lines; ///< codes of other lines
    std::vector<taxcore::Uuid> documents;

    Tick tick = Tick::open;
    std::string oldValue;             ///< of a changed row: what was ticked
    std::vector<std::string> formers; ///< ticks of this row with other values

    /// Both values as one text: "9’200", "9’200 / Bund 8’100".
    std::string shown() const;
    /// What is kept when the row is ticked.
    std::string id() const { return key + "=" + shown(); }

    bool operator==(const TransferRow&) const = default;
};

/// A shown value as it is pasted into the authority's program: digits without grouping, an account
/// number without blanks.
std::string pasted(ValueKind kind, std::string_view shown);

} // namespace fiscarel::outputs
