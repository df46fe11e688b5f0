#include "Fiscarel_SG/documents/kinds/BillTotal.h"

#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/BillWords.h"
#include "Fiscarel_SG/documents/kinds/KindWords.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;
using enum Concept;

/// Whether an amount is the number of a bill or a client.
bool isNumberOf(const FoundAmount& one) {
    return !one.amount.amount.isFirm() && one.value() >= 100'000;
}

class TotalFinder {
  public:
    TotalFinder(const KindContext& context, bool isShared)
        : document_(context.document), kind_(context.kind), isShared_(isShared),
          isGift_(kind_ == Kind::spende),
          isOfHome_(kind_ == Kind::arztrechnung && isAnyIn(document_.folded, homesOfCare())),
          own_(ownTotalsOf(context)), ranges_(wholeDocument(document_)) {}

    std::optional<BillTotal> find() {
        auto found = best();
        if (!found) {
            return std::nullopt;
        }
        total_.found = std::move(*found);
        total_.isDoubtful |= isOfHome_ && !total_.isOwnCare;
        if (!total_.isPlain) {
            addChecks();
        }
        return std::move(total_);
    }

  private:
    std::optional<FoundAmount> best() {
        if (isShared_) {
            total_.wanted = &deductibleParts();
            auto part = findLast(ranges_, deductibleParts(), Digits::firm);
            if (part && part->value() >= 1) {
                total_.isDeductible = true;
                return part;
            }
        }
        if (kind_ == Kind::liegenschaft) {
            if (auto total = totalWithTax(ranges_)) {
                total_.wanted = &billTotals();
                return taken(std::move(*total));
            }
        }
        if (auto share = kind_ == Kind::arztrechnung ? ownShare() : std::nullopt) {
            return share;
        }
        if (auto sum = isGift_ ? sumInProse(ranges_, own_) : std::nullopt) {
            total_.wanted = &own_;
            return taken(std::move(*sum));
        }
        for (const Digits digits : {Digits::firm, Digits::any}) {
            if (auto found = byWords(digits)) {
                return billed(std::move(*found));
            }
        }
        total_.isPlain = true;
        static const std::vector<Concept> barred{refunded, other, possible, opening};
        auto sum = provenSum(ranges_, barred);
        return sum ? sum : onlyAmount(ranges_, barred);
    }

    /// An amount that others lead to, whose check, if it has one, speaks for the total.
    FoundAmount taken(SummedAmount sum) {
        if (sum.check) {
            total_.checks.push_back(std::move(*sum.check));
        }
        return std::move(sum.found);
    }

    std::optional<FoundAmount> byWords(Digits digits) {
        for (const Wanted* wanted : {&billTotals(), &own_}) {
            auto all = findAmounts(ranges_, *wanted, digits);
            std::erase_if(all, isNumberOf);
            if (!all.empty() && all.back().value() >= 1) {
                total_.wanted = wanted;
                return isShared_ ? afterShares(wholeOf(all)) : beforeAdvance(wholeOf(all));
            }
        }
        total_.wanted = &plainBillTotals();
        auto all = amountsOf(plainBillTotals(), digits);
        std::erase_if(all, isNumberOf);
        const auto proven = std::ranges::find_if(
            all, [](const FoundAmount& one) { return columnCheck(one).has_value(); });
        if (proven != all.end()) {
            return std::move(*proven);
        }
        return all.empty() ? std::nullopt : std::optional(wholeOf(all));
    }

    /// Amounts of a franc or more.
    std::vector<FoundAmount> amountsOf(const Wanted& wanted, Digits digits) const {
        auto all = findAmounts(ranges_, wanted, digits);
        std::erase_if(all, [](const FoundAmount& one) { return one.value() < 1; });
        return all;
    }

    /// What others leave to the patient, where the bill tells their parts too.
    std::optional<FoundAmount> ownShare() {
        for (const Wanted* wanted : {&ownShares(), &paidShares()}) {
            for (FoundAmount& one : sharesBy(*wanted)) {
                auto check = remainderCheck(one);
                check = check ? std::move(check) : columnCheck(one);
                check = check ? std::move(check) : sharesCheck(ranges_, one);
                if (check) {
                    total_.wanted = wanted;
                    return taken({std::move(one), std::move(check)});
                }
            }
        }
        total_.wanted = &ownShares();
        auto all = amountsOf(ownShares(), Digits::firm);
        if (all.empty()) {
            return std::nullopt;
        }
        total_.isOwnCare = isOfHome_;
        if (auto whole = isOfHome_ ? std::nullopt : totalBelow(all.back())) {
            auto check = columnCheck(*whole); // what the insurer does not cover comes on top
            return taken({std::move(*whole), std::move(check)});
        }
        return std::move(all.back());
    }

    /// The amounts of each wording, whatever others are found.
    std::vector<FoundAmount> sharesBy(const Wanted& wanted) const {
        std::vector<FoundAmount> shares;
        for (const Label& label : wanted.labels) {
            Wanted one = wanted;
            one.labels = {label};
            std::ranges::move(amountsOf(one, Digits::firm), std::back_inserter(shares));
        }
        return shares;
    }

    /// A total without what was credited again and what a reminder costs.
    FoundAmount billed(FoundAmount total) {
        if (auto corrected = afterCorrection(total)) {
            return taken(std::move(*corrected));
        }
        if (auto gift = isGift_ ? withoutAlien(total, own_) : std::nullopt) {
            return taken(std::move(*gift));
        }
        auto bare = withoutReminder(total);
        if (!bare) {
            return total;
        }
        total_.isReminder = true;
        total_.isUnsettled |= !bare->check.has_value();
        return taken(std::move(*bare));
    }

    /// What the amounts found are parts of: their sum, wherever it is printed; a sum below them, of
    /// donations, which lists call by many names, also where it includes others that are no fees,
    /// and of what others share where something was given back in between.
    FoundAmount wholeOf(const std::vector<FoundAmount>& all) {
        const FoundAmount& last = all.back();
        if (isGift_ || (isShared_ && haveOneLabel(all))) {
            auto whole = wholeOfParts(document_, all);
            if (!whole && isGift_) {
                whole = wholeOfList(document_, last, *total_.wanted);
            }
            if (whole) {
                return taken(std::move(*whole));
            }
        }
        auto whole = totalBelow(last);
        if (whole && isWholeOf(*whole, all)) {
            return std::move(*whole);
        }
        total_.isDoubtful |= (isGift_ || isShared_) && !columnCheck(last)
                             && std::ranges::any_of(all, [&](const FoundAmount& one) {
                                    return one.value() != last.value();
                                });
        return last;
    }

    /// Whether a sum below amounts is what counts rather than the last of them.
    bool isWholeOf(const FoundAmount& whole, const std::vector<FoundAmount>& parts) const {
        Decimal sum;
        for (const FoundAmount& part : parts) {
            sum = sum + part.value();
        }
        static const Wanted pure{{}, {}, true, {}, {}, {meals, membership, tax, notDeductible}};
        const bool mayHaveMore = isGift_ || (isShared_ && (takesOff(whole) || isPaidCourse(whole)));
        return whole.value() == sum || (mayHaveMore && !includesAlien(whole, pure));
    }

    /// Whether a total says what was paid for a course with all that belongs to it.
    bool isPaidCourse(const FoundAmount& whole) const {
        return kind_ == Kind::weiterbildung
               && namesAny(whole.rowOf(), {paid}, whole.page->isRecognised);
    }

    /// What remains of a total when others bear a part of it, if both stand below; else it is the
    /// total, but unsettled.
    FoundAmount afterShares(FoundAmount whole) {
        Decimal rest = whole.value();
        const PageRows& page = *whole.page;
        for (std::size_t at = whole.row + 1; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            if (row.amounts.empty() || !row.amounts.back().amount.isFirm()) {
                continue;
            }
            const RowAmount& amount = row.amounts.back();
            const Decimal value = amount.amount.value.abs();
            if (namesAny(row, {publicShare, reduction, refunded}, page.isRecognised)) {
                rest = rest - value;
                total_.isUnsettled = true;
            } else if (total_.isUnsettled && value == rest) {
                whole.row = at;
                whole.amount = amount;
                whole.label = textBetween(row, 0, amount.first == 0 ? 0 : amount.first - 1);
                total_.isUnsettled = false;
                break;
            }
        }
        return whole;
    }

    /// What else proves the total: the tax or its column, where nothing led to it, and a
    /// repetition.
    void addChecks() {
        auto& checks = total_.checks;
        const FoundAmount& found = total_.found;
        if (checks.empty()) {
            auto check = taxCheck(found.value());
            check = check ? std::move(check) : columnCheck(found);
            if (check) {
                checks.push_back(std::move(*check));
            }
        }
        if (auto repeat = repeatCheck(ranges_, *total_.wanted, found)) {
            checks.push_back(std::move(*repeat));
        }
    }

    /// Whether the net amount and its tax come to a total; absent without both.
    std::optional<ProposalCheck> taxCheck(const Decimal& total) const {
        const auto tax = findLast(ranges_, billTaxes());
        const auto net = findLast(ranges_, billNets());
        if (!tax || !net || tax->value() <= 0 || net->value() > total
            || tax->value() >= net->value()) {
            return std::nullopt;
        }
        const Decimal computed = net->value() + tax->value();
        const bool holds = areSameRounded(computed, total);
        return ProposalCheck{sumText({net->value(), tax->value()}, computed)
                                 + (holds ? ", der Betrag mit Mehrwertsteuer"
                                          : ", als Total steht aber " + shown(total)),
                             holds};
    }

    const DocumentRows& document_;
    Kind kind_;
    bool isShared_;
    bool isGift_;
    bool isOfHome_; ///< a bill for living somewhere, of which only the care is a cost of illness
    const Wanted& own_;
    std::vector<RowRange> ranges_;
    BillTotal total_;
};

} // namespace

std::optional<BillTotal> findBillTotal(const KindContext& context, bool isShared) {
    return TotalFinder(context, isShared).find();
}

void settleGivenBack(const DocumentRows& document, BillTotal& total) {
    const Settled given = afterGivenBack(document, total.found);
    if (!given.rest) {
        total.isUnsettled |= given.isTold && !total.isDeductible && total.checks.empty();
        return;
    }
    total.isUnsettled = false;
    if (given.rest->found.value() != total.found.value()) {
        total.checks.clear();
    }
    total.found = given.rest->found;
    total.checks.push_back(*given.rest->check);
}

const Wanted& ownTotalsOf(const KindContext& context) {
    static const Labels parties{"Partei",
                                "*partei",
                                "politische Parteien",
                                "politischen Parteien",
                                "parti",
                                "partis politiques",
                                "partito",
                                "partiti",
                                "political party"};
    return ownBillTotals(context.kind, isAnyIn(context.document.folded, parties));
}

bool areSameRounded(const Decimal& one, const Decimal& other) {
    return (one - other).abs() <= Decimal(5) / 100;
}

} // namespace fiscarel
