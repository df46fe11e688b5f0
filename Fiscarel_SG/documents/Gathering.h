#pragma once

#include "TaxCore/base/Uuid.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <vector>

namespace fiscarel {

// What the user picks or drops, made into files that can be documents. Touches the disk: not for
// the main thread.

/// The endings of files that can be read, in small letters without their points.
const std::vector<std::string>& documentEndings();

/// What came of what was picked.
struct Gathered {
    std::vector<std::filesystem::path> files;      ///< in the order picked, folders by name
    std::vector<std::filesystem::path> unreadable; ///< picked files of a kind that cannot be read
    std::vector<std::filesystem::path> empty;      ///< picked folders without anything to read
    bool isCut = false;                            ///< folders held more than is taken at once
};

/// At most so many files are taken at once.
inline constexpr std::size_t mostGathered = 500;

/// Files as they are, folders with all that is within, down to a depth of ten. Hidden files and
/// folders and those behind links are passed over, and files in folders that cannot be read.
Gathered gatherDocuments(const std::vector<std::filesystem::path>& picked,
                         const std::stop_token& stop = {});

/// A document that is there already.
struct KnownFile {
    taxcore::Uuid id;
    std::filesystem::path file;
};

/// A file with the content of another one.
struct Twin {
    std::filesystem::path file;
    std::optional<taxcore::Uuid> of; ///< absent: of `other`, which is among the new files as well
    std::filesystem::path other;
};

/// Takes those out of `files` that have the content of a known document or of an earlier one of
/// them.
std::vector<Twin> takeTwins(std::vector<std::filesystem::path>& files,
                            const std::vector<KnownFile>& known, const std::stop_token& stop = {});

} // namespace fiscarel
