#include "Fiscarel_SG/store/ArchiveParts.h"

#include <utility>

namespace fiscarel::archive {

tl::unexpected<ArchiveFault> fault(std::string message) {
    return tl::unexpected(ArchiveFault{.message = std::move(message)});
}

tl::unexpected<ArchiveFault> fault(const FileError& error) { return fault(error.description()); }

tl::unexpected<ArchiveFault> stopped() {
    return tl::unexpected(ArchiveFault{.isStopped = true, .message = "Auf Wunsch abgebrochen."});
}

std::string megabytes(std::uint64_t bytes) {
    constexpr std::uint64_t megabyte = std::uint64_t{1} << 20U;
    const std::uint64_t tenths = (bytes * 10 + megabyte - 1) / megabyte;
    return tenths < 100 ? std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB"
                        : std::to_string((tenths + 9) / 10) + " MB";
}

std::optional<std::string> tooMuch(std::size_t count, std::uint64_t bytes) {
    if (count > maxArchiveDocuments) {
        return "Ein Archiv fasst höchstens " + std::to_string(maxArchiveDocuments) + " Belege.";
    }
    if (bytes > maxArchiveSize) {
        return "Ein Archiv fasst höchstens " + megabytes(maxArchiveSize) + " an Belegen.";
    }
    return std::nullopt;
}

} // namespace fiscarel::archive
