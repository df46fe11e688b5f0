#pragma once

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

/// The case in a text: a single case, or with `year` the one of that year in a state file. A fault
/// also when the text is the other kind of file or the case of another year.
tl::expected<taxcore::TaxCase, Fault> readCase(const std::string& text, std::optional<int> year);

/// The calculator for a case; a fault when its year cannot be computed.
tl::expected<taxcore::CaseCalculator, Fault> calculatorFor(const taxcore::TaxCase& taxCase);

/// Whether rules of a year ship with the program.
bool isSupportedYear(int year);
/// The years for which they do: "2025 und 2026".
std::string supportedYears();

} // namespace fiscarel::cli
