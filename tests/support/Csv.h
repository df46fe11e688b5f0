#pragma once

#include "TaxCore/base/Decimal.h"

#include <map>
#include <string>
#include <vector>

namespace taxcore::testing {

/// One row of a table of figures, by column.
class CsvRow {
  public:
    /// "federal-tariff.csv:12", for messages.
    const std::string& place() const noexcept { return place_; }

    const std::string& text(const std::string& column) const;
    int integer(const std::string& column) const;
    Decimal amount(const std::string& column) const;

  private:
    friend std::vector<CsvRow> readCsv(const std::string& name);

    std::string place_;
    std::map<std::string, std::string> cells_;
};

/// The rows below the header of a file in `tests/data`. Cells may be quoted, quotes in them
/// doubled. Throws at whatever does not read: a figure that is not compared must not go unnoticed.
std::vector<CsvRow> readCsv(const std::string& name);

} // namespace taxcore::testing
