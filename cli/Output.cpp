#include "cli/Output.h"

#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <cstdio>

namespace fiscarel::cli {

int print(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return written && std::fflush(stdout) == 0 ? exitCode::done
                                               : fail("Die Ausgabe lässt sich nicht schreiben.");
}

void tell(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", printable(sentence).c_str());
}

int fail(const std::string& sentence, int code) {
    tell(sentence);
    return code;
}

int failAtLength(const std::string& message) {
    std::fputs(wrapped(printable(message), lineWidth, "").c_str(), stderr);
    return exitCode::failed;
}

} // namespace fiscarel::cli
