#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <tl/expected.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

namespace fiscarel::cli {

/// One German sentence for the user.
using Fault = std::string;

/// Closes a stream, but not standard input.
struct CloseInput {
    void operator()(std::FILE* stream) const noexcept;
};
using InputStream = std::unique_ptr<std::FILE, CloseInput>;

/// Opens a file for reading, or standard input for "-"; a fault also for a folder and for a
/// standard input that is not open. Somebody at a terminal is told that the program waits.
tl::expected<InputStream, Fault> openInput(const std::string& file);

/// The whole text of a file, or of standard input for "-". Larger inputs than any household's file
/// are refused before they fill the memory.
tl::expected<std::string, Fault> readText(const std::string& file);

/// The calculator for a case; a fault when its year cannot be computed.
tl::expected<taxcore::CaseCalculator, Fault> calculatorFor(const taxcore::TaxCase& taxCase);

/// A case with the calculator of its region and year.
struct ReadCase {
    taxcore::TaxCase taxCase;
    PersistedState rest; ///< of a state file: its other years and its documents
    taxcore::CaseCalculator calculator;
};

/// Reads a file or standard input to compute it; with `year` a state file. Faults of what stands in
/// a file are told with its name.
tl::expected<ReadCase, Fault> readForComputing(const std::string& file, std::optional<int> year);

/// Whether rules of a year ship with the program.
bool isSupportedYear(int year);
/// The years for which they do: "2025 und 2026".
std::string supportedYears();

} // namespace fiscarel::cli
