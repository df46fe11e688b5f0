#include "cli/Commands.h"

#include "TaxCore/demo/DemoData.h"
#include "cli/Batch.h"
#include "cli/DerivationText.h"
#include "cli/Input.h"
#include "cli/Output.h"
#include "cli/ReturnText.h"

#include <algorithm>
#include <cstdio>
#include <thread>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

/// Faults of a file are told with its name.
std::string about(const std::string& file, const std::string& sentence) {
    return file == "-" ? sentence : file + ": " + sentence;
}

} // namespace

int newCase(const NewOptions& options) {
    TaxCase taxCase{.year = options.year};
    if (options.region == TaxRegion::liechtenstein) {
        taxCase.region = options.region;
        taxCase.municipality = "Vaduz";
    }
    return print(toJson(taxCase));
}

int demo(const DemoOptions& options) {
    return print(toJson(DemoData::household(options.region, options.year)));
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
    const auto in = openInput(options.file);
    if (!in) {
        return fail(in.error());
    }
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    const unsigned threads = options.threads == 0 ? cores : options.threads;
    return computeBatch(in->get(), stdout, threads)
               ? exitCode::done
               : fail("Die Ein- oder Ausgabe ist abgebrochen.");
}

} // namespace fiscarel::cli
