#include "cli/Commands.h"

#include "TaxCore/demo/DemoData.h"
#include "cli/Batch.h"
#include "cli/DerivationText.h"
#include "cli/Input.h"
#include "cli/Output.h"
#include "cli/ReturnText.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <thread>
#include <vector>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

/// Faults of a file are told with its name.
std::string about(const std::string& file, const std::string& sentence) {
    return file == "-" ? sentence : file + ": " + sentence;
}

/// The codes of the lines that stand under a number of the form.
std::vector<std::string> codesOfZiffer(const TaxResult& result, const std::string& ziffer) {
    std::vector<std::string> codes;
    for (const TaxLine& line : result.fields()) {
        if (line.ziffer == ziffer) {
            codes.push_back(line.code);
        }
    }
    return codes;
}

/// The codes of the lines of the return, and of other figures that are not 0.
std::vector<std::string> knownCodes(const TaxResult& result, const std::vector<Derivation>& all) {
    const auto isAmount = [](const std::optional<Decimal>& value) {
        return value && !value->isZero();
    };
    std::vector<std::string> codes;
    for (const Derivation& derivation : all) {
        if (result.line(derivation.code) != nullptr || isAmount(derivation.canton)
            || isAmount(derivation.federal)) {
            codes.push_back(derivation.code);
        }
    }
    return codes;
}

std::string possible(const std::vector<std::string>& codes) {
    std::string text = " Mögliche Angaben: ";
    for (const std::string& code : codes) {
        text += (&code == &codes.front() ? "" : ", ") + code;
    }
    return text + ".";
}

/// How the line or figure that is asked for came about.
int explain(const CaseCalculator& calculator, const TaxCase& taxCase,
            const ComputeOptions& options) {
    const std::vector<Derivation> all = calculator.explainAll(taxCase);
    const TaxResult result = calculator.calculate(taxCase);
    auto found = std::ranges::find(all, options.why, &Derivation::code);
    if (found == all.end()) {
        const auto codes = codesOfZiffer(result, options.why);
        if (codes.size() > 1) {
            return failAtLength("Die Ziffer «" + options.why + "» steht für mehrere Zeilen."
                                + possible(codes));
        }
        if (!codes.empty()) {
            found = std::ranges::find(all, codes.front(), &Derivation::code);
        }
    }
    if (found == all.end()) {
        return failAtLength("Eine Zeile «" + options.why
                            + "» gibt es in dieser Steuererklärung nicht."
                            + possible(knownCodes(result, all)));
    }
    return print(options.json ? toJson(*found) : derivationText(*found, taxCase.taxRegion()));
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
        return explain(*calculator, *taxCase, options);
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
