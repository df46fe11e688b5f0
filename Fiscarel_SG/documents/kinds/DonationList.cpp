#include "Fiscarel_SG/documents/kinds/DonationList.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

/// What a row names before its amount, where that may be a recipient; empty where it says what was
/// given or when.
std::string recipientIn(const Row& row, const RowAmount& amount, bool isRecognised) {
    static const std::vector<Concept> gifts{Concept::donation, Concept::membership, Concept::tax,
                                            Concept::fee,      Concept::total,      Concept::paid,
                                            Concept::amount};
    std::size_t end = amount.first;
    while (end > 0 && isFrancs(row.words[end - 1].text)) {
        --end;
    }
    std::size_t first = 0;
    while (first < end && row.words[first].folded.empty()) { // a bullet
        ++first;
    }
    std::string name = end >= first + 2 ? textBetween(row, first, end - 1) : std::string();
    const bool isNamed =
        startsWithCapital(name) && !hasDigit(name) && !namesAny(row, gifts, isRecognised);
    return isNamed ? name : std::string();
}

/// The rows above a total that add up to it, from above, each labelled with its recipient; most of
/// these are called what institutions are.
std::vector<FoundAmount> recipientsOf(const FoundAmount& total) {
    const PageRows& page = *total.page;
    std::vector<FoundAmount> rows;
    Decimal sum;
    std::size_t institutions = 0;
    for (std::size_t at = total.row; at-- > 0 && page.number != 0 && sum < total.value();) {
        const Row& row = page.rows[at];
        if (row.amounts.empty()) {
            continue;
        }
        const RowAmount& amount = row.amounts.back();
        std::string name = recipientIn(row, amount, page.isRecognised);
        const bool isInColumn =
            std::abs(amount.place.right - total.amount.place.right) <= alignment(page);
        if (!isInColumn || !amount.amount.isFirm() || amount.amount.value < 1 || name.empty()) {
            return {};
        }
        sum = sum + amount.amount.value;
        institutions += namesCompany(foldWords(name)) ? 1U : 0U;
        rows.push_back({.page = &page, .row = at, .amount = amount, .label = std::move(name)});
    }
    std::ranges::reverse(rows);
    const bool isList = rows.size() >= 2 && institutions * 2 >= rows.size();
    return isList && sum == total.value() ? rows : std::vector<FoundAmount>();
}

} // namespace

bool proposeRecipients(const KindContext& context, const FoundAmount& total, const Wanted& wanted,
                       ProposalDraft& draft) {
    const auto rows = recipientsOf(total);
    std::vector<Decimal> values(rows.size());
    std::ranges::transform(rows, values.begin(), &FoundAmount::value);
    const ProposalCheck together{togetherText(values, total.value()), true};
    for (const FoundAmount& one : rows) {
        const int record = draft.addRecord(recordWith(context.facts, ProposedRecord::Kind::donation,
                                                      "Spende " + one.label, one.page->number));
        Evidence evidence = evidenceOf(one, wanted, context.isKindClear, {together});
        draft.add(record, "amount", one.value(), evidence);
        evidence.confidence = Proposal::Confidence::medium;
        evidence.checks.clear();
        draft.add(record, "recipient", one.label, evidence);
    }
    return !rows.empty();
}

} // namespace fiscarel
