#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"
#include "tests/support/Csv.h"

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace taxcore::testing {

/// Stands for a missing note, form, area or saving.
inline constexpr const char* none = "–";

/// A row of a layout table for one person (0: the household).
struct LayoutRow {
    CsvRow cells;
    int person = 0;
};

/// What the return of a region is held to, beside the tables `return-layout-….csv` and
/// `notices-….csv`: the texts that depend on the household.
struct RegionLayout {
    TaxRegion region;
    std::vector<std::string> sections; ///< titles in the order of the forms
    std::vector<std::string> notes;    ///< each must stand under some line of some household

    /// The row that a line belongs to: its code and, where the label has variants, the variant.
    std::string (*keyOf)(const TaxLine&, const TaxCase&);
    /// The label with its placeholders filled in.
    std::string (*labelOf)(const LayoutRow&, const TaxCase&, const TaxResult&);
    std::string (*noteOf)(const LayoutRow&, const TaxCase&, const TaxResult&);
    /// The note as it is compared: `noteOf` where only its gist is fixed.
    std::string (*shownNote)(const TaxLine&);
    /// Households on which the calculation remarks something, by their name in the notices' table.
    std::map<std::string, TaxCase> (*remarkable)();

    friend void PrintTo(const RegionLayout& layout, std::ostream* out) {
        *out << label(layout.region);
    }
};

/// `text` with the first `placeholder`, if any, exchanged for a value.
std::string replaced(std::string text, const std::string& placeholder, const std::string& value);

RegionLayout layoutOfStGallen();
RegionLayout layoutOfLiechtenstein();

} // namespace taxcore::testing
