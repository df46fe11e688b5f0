#pragma once

#include "TaxCore/model/TaxCase.h"

#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace taxcore::testing {

using Texts = std::map<std::string, std::string>;

/// One expected line of the return: amounts as exact text, the federal one where it differs.
struct ExpectedLine {
    std::string code;
    std::string canton;
    std::optional<std::string> federal;
};

/// A household with its expected return, as it stands in `tests/cases`. The expectations were
/// derived by hand from law and rule files; the derivation stands in the file.
struct CaseFile {
    std::filesystem::path path;
    TaxCase household;
    std::vector<ExpectedLine> lines; ///< all lines in display order
    Texts bill;
    std::string withholdingTaxRefund;
    std::string withholdingIncomeA;
    std::optional<Texts> capitalPaymentTax;
    std::map<std::string, std::vector<Texts>> work; ///< by jurisdiction, per person
    std::map<std::string, Texts> insurance;         ///< by jurisdiction
    std::vector<std::string> notices;               ///< ids, sorted

    /// How the test runner names the case.
    friend void PrintTo(const CaseFile& file, std::ostream* out) {
        *out << file.path.stem().string();
    }
};

/// All case files below a folder of `tests/cases`, sorted by path. A file that does not read fails
/// the process: a case that is not run must not go unnoticed.
std::vector<CaseFile> readCaseFiles(const std::string& folder);

} // namespace taxcore::testing
