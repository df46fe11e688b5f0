#pragma once

#include <cstddef>

namespace fiscarel::reader {

/// What the process may still use once it reads a document.
struct Limits {
    std::size_t memoryBytes = std::size_t{2} << 30U; ///< address space; 0: as before
    unsigned cpuSeconds = 600;                       ///< of all threads together
    std::size_t fileBytes = 0; ///< that may be written to a file which stands open already
};

/// Gives up, for this process and for good, everything that reading a document does not need: it
/// opens files for reading only, has no network, starts no program and leaves no core. False when
/// the system refuses.
bool confine(const Limits& limits);

} // namespace fiscarel::reader
