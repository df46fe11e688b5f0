#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace fiscarel::cli {

/// What a batch answers to a line of its input, given with its number from 1: one line of JSON with
/// its line feed. Called from several threads at once.
using LineAnswer = std::function<std::string(std::size_t number, std::string_view line)>;

/// The result of the case in a line, or {"line": n, "error": "…"} when it cannot be computed.
std::string caseAnswer(std::size_t number, std::string_view line);

/// Answers `in` line by line to `out`, in order, on up to `threads` threads. A line of more than
/// 16 MB, or whose answer throws a std::exception, gives an error line and the rest goes on. Memory
/// stays bounded however long the input is. False when reading, writing or the memory failed; `out`
/// then holds the answers up to some line.
bool computeBatch(std::FILE* in, std::FILE* out, unsigned threads,
                  const LineAnswer& answer = caseAnswer);

} // namespace fiscarel::cli
