#include "cli/Output.h"

#include "cli/Printable.h"

#include <cstdio>

namespace fiscarel::cli {

int print(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return written && std::fflush(stdout) == 0 ? exitCode::done
                                               : fail("Die Ausgabe lässt sich nicht schreiben.");
}

int fail(const std::string& sentence, int code) {
    std::fprintf(stderr, "%s\n", printable(sentence).c_str());
    return code;
}

} // namespace fiscarel::cli
