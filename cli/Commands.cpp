#include "cli/Commands.h"

#include "TaxCore/demo/DemoData.h"
#include "cli/Batch.h"
#include "cli/DerivationText.h"
#include "cli/Input.h"
#include "cli/ReturnText.h"

#include <cerrno>
#include <cstdio>
#include <thread>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

int print(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return written && std::fflush(stdout) == 0 ? 0
                                               : fail("Die Ausgabe lässt sich nicht schreiben.");
}

/// Faults of a file are told with its name.
std::string about(const std::string& file, const std::string& sentence) {
    return file == "-" ? sentence : file + ": " + sentence;
}

} // namespace

int newCase(const NewOptions& options) {
    TaxCase taxCase{.year = options.year};
    if (options.region == rawValue(TaxRegion::liechtenstein)) {
        taxCase.region = TaxRegion::liechtenstein;
        taxCase.municipality = "Vaduz";
    }
    return print(toJson(taxCase));
}

int demo(const DemoOptions& options) {
    if (options.region != rawValue(TaxRegion::stGallen)) {
        return fail("Einen Demohaushalt gibt es hier erst für den Kanton St.Gallen.");
    }
    return print(toJson(DemoData::family(options.year)));
}

int compute(const ComputeOptions& options) {
    const auto text = readText(options.file);
    if (!text) {
        return fail(text.error());
    }
    const auto taxCase = readCase(*text, options.year);
    if (!taxCase) {
        return fail(about(options.file, taxCase.error()));
    }
    const auto calculator = calculatorFor(*taxCase);
    if (!calculator) {
        return fail(about(options.file, calculator.error()));
    }
    if (!options.why.empty()) {
        const auto derivation = calculator->explain(*taxCase, options.why);
        if (!derivation) {
            return fail("Eine Zeile «" + options.why
                        + "» gibt es in dieser Steuererklärung nicht.");
        }
        return print(options.json ? toJson(*derivation)
                                  : derivationText(*derivation, taxCase->taxRegion()));
    }
    const TaxResult result = calculator->calculate(*taxCase);
    return print(options.json ? toJson(result) : returnText(*taxCase, result));
}

int batch(const BatchOptions& options) {
    std::FILE* in = stdin;
    if (options.file != "-") {
        in = std::fopen(options.file.c_str(), "rbe");
        if (in == nullptr) {
            return fail(readText(options.file).error());
        }
    }
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    const bool done = computeBatch(in, stdout, options.threads == 0 ? cores : options.threads);
    if (in != stdin) {
        std::fclose(in);
    }
    return done ? 0 : fail("Die Ein- oder Ausgabe ist abgebrochen.");
}

} // namespace fiscarel::cli
