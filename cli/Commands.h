#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/model/Enumerations.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel::cli {

// Each command returns the exit code: 0, or 1 after a German message on standard error.
// Years of new cases must be supported ones.

struct NewOptions {
    int year = 0;
    taxcore::TaxRegion region = taxcore::TaxRegion::stGallen;
};
/// Prints a new case as JSON.
int newCase(const NewOptions& options);

struct DemoOptions {
    int year = 0;
    taxcore::TaxRegion region = taxcore::TaxRegion::stGallen;
};
/// Prints the demo household as a case.
int demo(const DemoOptions& options);

struct ComputeOptions {
    std::string file = "-";
    std::optional<int> year; ///< given: the file is a state file
    bool json = false;
    std::string why; ///< code or Ziffer of a line to derive
};
/// Computes one case.
int compute(const ComputeOptions& options);

struct CheckOptions {
    std::string file = "-";
    std::optional<int> year; ///< given: the file is a state file, whose other years count, too
    bool json = false;
    bool curve = false;                    ///< adds the tax over the income
    std::optional<taxcore::Decimal> buyIn; ///< adds the best plan for a buy-in of so many francs
    int person = 1;                        ///< whose pension fund
};
/// Prints notices, savings tips and the marginal rate of one case.
int check(const CheckOptions& options);

struct ListOptions {
    std::string file = "-";
    std::optional<int> year; ///< given: the file is a state file, with its ticks and documents
    bool csv = false;
};
/// Prints the transfer list of one case.
int list(const ListOptions& options);

struct ReportOptions {
    std::string file = "-";
    std::optional<int> year; ///< given: the file is a state file, whose documents count, too
    std::string out;         ///< the PDF file to write, over an older one
};
/// Writes the report of one case as a PDF file, whole or not at all. Needs no display.
int report(const ReportOptions& options);

struct ReadOptions {
    std::vector<std::string> files;
    bool json = false;
};
/// Reads documents and prints what stands in them: kind, issuer, amounts, proposals, barcodes and
/// text. As JSON one result, or one a line for several files. Returns 1 when one cannot be read at
/// all; the others are read all the same.
int readDocuments(const ReadOptions& options);

struct BatchOptions {
    std::string file = "-";
    unsigned threads = 0; ///< 0: all cores
};
/// Computes one case a line.
int batch(const BatchOptions& options);

} // namespace fiscarel::cli
