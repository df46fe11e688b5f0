#include "Fiscarel_SG/documents/kinds/PlainAmount.h"

#include <functional>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

void eachAmount(const std::vector<RowRange>& ranges, const std::vector<Concept>& barred,
                const std::function<void(FoundAmount)>& take) {
    for (const RowRange& range : ranges) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (row.amounts.empty() || namesAny(row, barred, range.page->isRecognised)) {
                continue;
            }
            for (const RowAmount& amount : row.amounts) {
                if (amount.amount.isFirm() && amount.amount.value >= 1) {
                    take({.page = range.page, .row = at, .amount = amount, .isBelow = true});
                }
            }
        }
    }
}

} // namespace

std::optional<FoundAmount> onlyAmount(const std::vector<RowRange>& ranges,
                                      const std::vector<Concept>& barred) {
    constexpr std::size_t mostTimes = 2; // told twice; more are instalments
    std::optional<FoundAmount> only;
    std::size_t times = 0;
    bool differ = false;
    eachAmount(ranges, barred, [&](FoundAmount found) {
        differ |= only && only->value() != found.value();
        only = std::move(found);
        ++times;
    });
    return differ || times > mostTimes ? std::nullopt : only;
}

std::optional<FoundAmount> provenSum(const std::vector<RowRange>& ranges,
                                     const std::vector<Concept>& barred) {
    std::optional<FoundAmount> last;
    eachAmount(ranges, barred, [&](FoundAmount found) {
        if (columnCheck(found)) {
            last = std::move(found);
        }
    });
    return last;
}

Evidence plainEvidence(const FoundAmount& found, bool isKindClear) {
    const PageRows& page = *found.page;
    Evidence evidence{.witness = page.number == 0 ? Witness::text : Witness::position,
                      .confidence = isKindClear && page.number != 0 && !page.isRecognised
                                        ? Confidence::medium
                                        : Confidence::low,
                      .reason = "Der einzige Betrag, der in Frage kommt.",
                      .page = page.number,
                      .box = page.number == 0 ? std::nullopt : pageBox(found.amount.printed, page)};
    if (auto check = columnCheck(found)) {
        evidence.reason = "Summe der Beträge darüber.";
        evidence.checks.push_back(std::move(*check));
    }
    return evidence;
}

} // namespace fiscarel
