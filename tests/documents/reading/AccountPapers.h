#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

using Records = std::vector<std::map<std::string, std::string>>;

/// Words from the left, then what ends at the right edges that follow them.
struct TableRow {
    const char* words;
    std::vector<std::pair<double, const char*>> cells = {};
};

/// A paper of accounts, loans or securities, and the amounts each record is to have.
struct Paper {
    const char* what;
    std::vector<TableRow> rows;
    Records amounts;
};

/// The amounts that each record of an answer has, without texts.
Records amountsOf(const ScanResult& result);

/// Draws each paper under the name of a bank and compares what is proposed from it.
void expectRead(const std::vector<Paper>& papers);

} // namespace fiscarel
