#include "server/ServerLog.h"

#include <unistd.h>

#include <string>

namespace fiscarel::server {

void logLine(std::string_view line) {
    const std::string text = std::string(line) + '\n';
    // In one piece, so that lines of several threads do not mix.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

} // namespace fiscarel::server
