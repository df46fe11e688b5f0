#pragma once

#include <filesystem>
#include <string>

namespace faults {

/// What the driver's exit code tells.
enum class Outcome {
    saved = 10,   ///< the store reported that all is on the disk
    notSaved,     ///< it reported that something is not
    notDone,      ///< it reported that importing, restoring or exporting failed
    refused,      ///< the lock is held by another program
    killed = 137, ///< by the shim
};
/// Added to the code when the state file could not be read at the start.
inline constexpr int startedUnusable = 20;

/// The names and places that driver and tests agree on.
inline constexpr const char* enteredName = "Neu";
inline constexpr const char* documentName = "Lohnausweis 2025.pdf";
inline constexpr const char* restoredBackup = "daten-2026-02-20.json";
inline constexpr const char* exportName = "Export.json";
/// The scenario that holds the folder until its input ends.
inline constexpr const char* holdScenario = "hold";

/// Runs a scenario below a work folder as the program would; the exit code.
int runScenario(const std::string& name, const std::filesystem::path& work);

} // namespace faults
