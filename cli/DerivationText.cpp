#include "cli/DerivationText.h"

#include "TaxCore/result/UnitText.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <algorithm>
#include <vector>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t kindWidth = 20;
constexpr std::size_t textWidth = 46;
constexpr std::size_t amountWidth = 16;
constexpr std::size_t sourceWidth = 78;

std::string cell(std::string_view text) { return cli::cell(text, amountWidth); }

/// Which amounts a derivation shows, and over what.
struct Columns {
    bool canton = false;
    bool federal = false;
    std::string heading; ///< of the single column

    std::string head() const {
        return canton && federal ? cell("Kanton") + cell("Bund") : cell(heading);
    }
    std::string row(const std::optional<Decimal>& cantonal,
                    const std::optional<Decimal>& federation, Unit unit) const {
        const auto text = [&](const std::optional<Decimal>& amount) {
            return cell(amount ? unitText(*amount, unit) : "");
        };
        if (canton && federal) {
            return text(cantonal) + text(federation);
        }
        return text(cantonal ? cantonal : federation);
    }
    std::size_t width() const { return amountWidth * (canton && federal ? 2 : 1); }
};

Columns columnsOf(const Derivation& derivation, TaxRegion region) {
    const bool francs = derivation.unit == Unit::francs;
    switch (derivation.sides()) {
    case Derivation::Sides::parted:
        return {true, true, {}};
    case Derivation::Sides::alike:
        return {true, false, "Kanton und Bund"};
    case Derivation::Sides::federal:
        return {false, true, "Bund"};
    case Derivation::Sides::canton:
        break;
    }
    return {true, false,
            region == TaxRegion::stGallen ? "Kanton" : (francs ? "CHF" : "Liechtenstein")};
}

std::string stepSource(const DerivationStep& step) {
    std::string source;
    const auto add = [&](std::string_view mark, const std::optional<std::string>& text) {
        if (text) {
            source += (source.empty() ? "" : " · ") + std::string(mark) + *text;
        }
    };
    add("Feld ", step.path);
    add("siehe ", step.code);
    add("Regel ", step.ruleKey);
    add("", step.lawCanton);
    add("", step.lawFederal);
    return source;
}

/// A text in lines of its column, the amounts beside the last.
std::string stepText(const DerivationStep& step, const Columns& columns) {
    const std::string indent(kindWidth, ' ');
    std::string lines = wrapped(printable(step.text), textWidth, indent);
    lines.replace(0, std::min(lines.size(), indent.size()),
                  padRight("  " + std::string(label(step.kind)), kindWidth));
    if (lines.ends_with('\n')) {
        lines.pop_back();
    }
    const std::size_t last = lines.rfind('\n') + 1;
    const std::string amounts =
        step.unit ? columns.row(step.canton, step.federal, *step.unit) : std::string();
    std::string text =
        lines.substr(0, last)
        + withoutTrailingBlanks(padRight(lines.substr(last), kindWidth + textWidth) + amounts);
    if (const std::string source = stepSource(step); !source.empty()) {
        text += wrapped(source, sourceWidth, indent);
    }
    return text;
}

} // namespace

std::string derivationText(const Derivation& derivation, TaxRegion region) {
    constexpr std::size_t width = kindWidth + textWidth;
    const Columns columns = columnsOf(derivation, region);
    std::string text = heading(printable(derivation.label) + " (" + derivation.code + ")");
    text += "\n" + withoutTrailingBlanks(padRight("", width) + columns.head());
    for (const DerivationStep& step : derivation.steps) {
        text += stepText(step, columns);
    }
    text += std::string(width, ' ') + std::string(columns.width(), '-') + "\n";
    return text + padRight("  Ergebnis", width)
           + columns.row(derivation.canton, derivation.federal, derivation.unit) + "\n";
}

} // namespace fiscarel::cli
