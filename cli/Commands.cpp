#include "cli/Commands.h"

#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/ReviewedDocuments.h"
#include "TaxCore/demo/DemoData.h"
#include "cli/Batch.h"
#include "cli/DerivationText.h"
#include "cli/Input.h"
#include "cli/Output.h"
#include "cli/ReturnText.h"
#include "cli/ReviewText.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <thread>
#include <vector>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

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
    const auto show = [&](const Derivation& derivation) {
        return print(options.json ? toJson(derivation)
                                  : derivationText(derivation, taxCase.taxRegion()));
    };
    if (const auto derivation = calculator.explain(taxCase, options.why)) {
        return show(*derivation);
    }
    const TaxResult result = calculator.calculate(taxCase);
    const auto codes = codesOfZiffer(result, options.why);
    if (codes.size() > 1) {
        return failAtLength("Die Ziffer «" + options.why + "» steht für mehrere Zeilen."
                            + possible(codes));
    }
    if (!codes.empty()) {
        if (const auto derivation = calculator.explain(taxCase, codes.front())) {
            return show(*derivation);
        }
    }
    return failAtLength("Eine Zeile «" + options.why + "» gibt es in dieser Steuererklärung nicht."
                        + possible(knownCodes(result, calculator.explainAll(taxCase))));
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
    const auto read = readForComputing(options.file, options.year);
    if (!read) {
        return fail(read.error());
    }
    if (!options.why.empty()) {
        return explain(read->calculator, read->taxCase, options);
    }
    const TaxResult result = read->calculator.calculate(read->taxCase);
    return print(options.json ? toJson(result) : returnText(read->taxCase, result));
}

int check(const CheckOptions& options) {
    const auto read = readForComputing(options.file, options.year);
    if (!read) {
        return fail(read.error());
    }
    const TaxResult result = read->calculator.calculate(read->taxCase);
    ReviewInput input{read->calculator, read->taxCase, result, SystemClock().local().date,
                      reviewedDocuments(read->rest.documents, read->taxCase.year)};
    for (const auto& [year, other] : read->rest.cases) {
        input.otherYears.push_back(&other);
    }
    Review review = Review::of(input);
    if (options.curve) {
        constexpr int points = 200;
        const Decimal highest = std::max(result.bill.taxableIncomeCanton * 2, Decimal(100'000));
        review.curve =
            Advisor::incomeCurve(read->calculator, read->taxCase, result, highest, points);
    }
    if (options.buyIn) {
        review.buyInPlanning = Advisor::planBuyIn(
            read->calculator, read->taxCase,
            {.person = options.person, .sum = *options.buyIn, .otherYears = input.otherYears});
    }
    return print(options.json ? toJson(review) : reviewText(read->taxCase, review));
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
