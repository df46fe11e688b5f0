#pragma once

#include <cstddef>
#include <cstdio>

namespace fiscarel::cli {

/// Computes one case per line of `in` and writes one result per line to `out`, in order, on
/// `threads` threads. A line that cannot be computed gives {"line": n, "error": "…"} and the rest
/// goes on. Memory stays bounded however long the input is. False when reading or writing failed.
bool computeBatch(std::FILE* in, std::FILE* out, unsigned threads);

} // namespace fiscarel::cli
