#include "Fiscarel_SG/documents/kinds/SumText.h"

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <algorithm>

namespace fiscarel {

namespace {

constexpr std::ptrdiff_t mostShown = 6; ///< summands in a sentence

std::ptrdiff_t countOf(const std::vector<taxcore::Decimal>& parts) {
    return std::ranges::count_if(parts, [](const auto& part) { return !part.isZero(); });
}

} // namespace

std::string sumText(const std::vector<taxcore::Decimal>& parts, const taxcore::Decimal& sum) {
    std::string text;
    for (const taxcore::Decimal& part : parts) {
        if (part.isZero()) {
            continue;
        }
        text +=
            text.empty() ? shown(part) : (part.isNegative() ? " − " : " + ") + shown(part.abs());
    }
    return text + " = " + shown(sum);
}

std::string partsText(const std::string& what, const std::vector<taxcore::Decimal>& parts,
                      const taxcore::Decimal& sum) {
    return countOf(parts) <= mostShown ? sumText(parts, sum) + ", die Summe der " + what
                                       : "Die " + std::to_string(parts.size()) + ' ' + what
                                             + " ergeben zusammen " + shown(sum);
}

std::string togetherText(const std::vector<taxcore::Decimal>& parts, const taxcore::Decimal& sum) {
    return countOf(parts) <= mostShown ? sumText(parts, sum) + ", alle zusammen"
                                       : "Alle zusammen ergeben " + shown(sum);
}

std::string productText(int count, const taxcore::Decimal& one) {
    return std::to_string(count) + " × " + shown(one) + " = " + shown(one * count);
}

std::string withheldText(const taxcore::Decimal& income, const taxcore::Decimal& tax) {
    return "35 % von " + shown(income) + " = " + shown(tax) + ", die Verrechnungssteuer";
}

} // namespace fiscarel
