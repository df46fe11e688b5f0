#pragma once

#include <string>

namespace fiscarel::cli {

/// What the program ends with.
namespace exitCode {
inline constexpr int done = 0;
inline constexpr int failed = 1;
inline constexpr int usage = 2; ///< the call is not understood
} // namespace exitCode

/// Writes a text to standard output; the exit code, `failed` with a sentence when it cannot be
/// written.
int print(const std::string& text);

/// Writes a German sentence, which may quote anything, as one line to standard error.
void tell(const std::string& sentence);

/// Tells on standard error, in one German sentence that may quote anything, why the program ends;
/// returns `code`.
int fail(const std::string& sentence, int code = exitCode::failed);

/// The same for a message too long for one line: it is broken between words. Returns `failed`.
int failAtLength(const std::string& message);

} // namespace fiscarel::cli
