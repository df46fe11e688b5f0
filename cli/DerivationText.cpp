#include "cli/DerivationText.h"

#include "TaxCore/base/MoneyFormat.h"
#include "cli/TextTable.h"

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t labelledWidth = 66;
constexpr std::size_t amountWidth = 16;
constexpr std::size_t sourceWidth = 72;

std::string cell(const std::string& text) { return padLeft(text, amountWidth); }

/// Amounts and rates with the decimals they have, up to six.
std::string exact(const Decimal& value) {
    constexpr int most = 6;
    const std::string plain = value.roundPlain(most).toString();
    const std::size_t point = plain.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : plain.size() - point - 1;
    return MoneyFormat::chf(value, static_cast<int>(decimals), false);
}

std::string stepSource(const DerivationStep& step) {
    std::string source;
    const auto add = [&](std::string_view mark, const std::optional<std::string>& text) {
        if (text) {
            source += (source.empty() ? "" : " · ") + std::string(mark) + *text;
        }
    };
    add("Feld ", step.path);
    add("Zeile ", step.code);
    add("Regel ", step.ruleKey);
    add("", step.lawCanton);
    add("", step.lawFederal);
    return source;
}

} // namespace

std::string derivationText(const Derivation& derivation) {
    const auto amounts = [&](const std::optional<Decimal>& canton,
                             const std::optional<Decimal>& federal) {
        return canton ? cell(exact(*canton)) + cell(exact(federal.value_or(*canton))) : "";
    };
    constexpr std::size_t width = labelledWidth;
    std::string text = heading(derivation.label + " (" + derivation.code + ")");
    text += "\n" + withoutTrailingBlanks(padRight("", width) + cell("Kanton") + cell("Bund"));
    for (const DerivationStep& step : derivation.steps) {
        const std::string kind = std::string(label(step.kind));
        const std::string line = "  " + padRight(kind, 18) + step.text;
        text += withoutTrailingBlanks(padRight(line, width) + amounts(step.canton, step.federal));
        if (const std::string source = stepSource(step); !source.empty()) {
            text += wrapped(source, sourceWidth, std::string(20, ' '));
        }
    }
    text += std::string(width, ' ') + std::string(2 * amountWidth, '-') + "\n";
    return text + padRight("  Ergebnis", width) + amounts(derivation.canton, derivation.federal)
           + "\n";
}

} // namespace fiscarel::cli
