// Feeds arbitrary short texts to what tells amounts and days from other words. An amount that is
// read must be one that can be printed.

#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace fiscarel;
using fiscarel::testing::require;
using taxcore::Decimal;

namespace {

/// "-1234.50"
std::string printedPlainly(const Decimal& amount) {
    const std::string text = amount.toString();
    const std::size_t point = text.find('.');
    return text + (point == std::string::npos ? ".00" : point + 2 == text.size() ? "0" : "");
}

void checkAmount(std::string_view text, bool isRecognised) {
    const auto amount = parseAmount(text, isRecognised);
    if (!amount) {
        return;
    }
    require(amount->value == amount->value.roundPlain(2), "an amount has whole cents");
    require(amount->value.abs() < Decimal(1'000'000'000'000), "an amount has twelve digits");
    if (!amount->wasCorrected) {
        const auto printed = parseAmount(printedPlainly(amount->value));
        require(printed && printed->value == amount->value, "an amount reads again as printed");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    checkAmount(text, false);
    checkAmount(text, true);
    (void)parseDay(text);
    (void)isDayOfYear(text);
    (void)isFrancs(text);
    std::vector<std::string_view> words;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        words.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    require(wordsWithoutAmount(words).size() == words.size(), "every word is told of");
    const std::string folded = foldWords(text);
    require(foldWords(folded) == folded, "folded words stay as they are");
    return 0;
}
