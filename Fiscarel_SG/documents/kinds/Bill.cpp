#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/BillWords.h"
#include "Fiscarel_SG/documents/kinds/ChildCareHints.h"
#include "Fiscarel_SG/documents/kinds/DonationList.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/KindWords.h"
#include "Fiscarel_SG/documents/kinds/PersonParts.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Kind = StoredDocument::Kind;
using Record = ProposedRecord::Kind;
using enum Concept;

/// Where the amount, the payee and the day of a kind of bill go.
struct BillTarget {
    Kind kind;
    Record record;
    const char* title;
    const char* amount;
    const char* payee; ///< empty: the record has none
    const char* day;
    const char* advice;
    bool isShared = false; ///< communes or employers may bear a part, which is not deductible
};

constexpr const char* noProof =
    "Ein Rechnungsbetrag ist noch kein Beweis der Zahlung: nur eintragen, was bezahlt wurde.";

constexpr std::array targets{
    BillTarget{Kind::arztrechnung, Record::medicalCost, "Behandlung", "gross", "provider", "date",
               "Was die Krankenkasse zurückbezahlt, gehört in die Spalte der Vergütungen."},
    BillTarget{Kind::spende, Record::donation, "Spende", "amount", "recipient", "date", ""},
    BillTarget{Kind::kinderbetreuung, Record::child, "Kinderbetreuung", "childcareCosts",
               "childcareProvider", "", "", true},
    BillTarget{Kind::weiterbildung, Record::personDeductions, "Weiterbildung", "furtherEducation",
               "", "", "", true},
    BillTarget{Kind::liegenschaft, Record::realEstate, "Unterhalt der Liegenschaft",
               "actualMaintenanceCosts", "", "", "Abziehbar ist nur werterhaltender Unterhalt."},
};

std::vector<ProposalCheck> totalChecks(const std::vector<RowRange>& ranges,
                                       const FoundAmount& total) {
    std::vector<ProposalCheck> checks;
    const auto tax = findLast(ranges, billTaxes());
    const auto net = findLast(ranges, billNets());
    if (tax && net && tax->value() > 0 && net->value() <= total.value()
        && tax->value() < net->value()) {
        const Decimal computed = net->value() + tax->value();
        const bool holds = (computed - total.value()).abs() <= Decimal(5) / 100; // to five cents
        checks.push_back({sumText({net->value(), tax->value()}, computed)
                              + (holds ? ", der Betrag mit Mehrwertsteuer"
                                       : ", als Total steht aber " + shown(total.value())),
                          holds});
    }
    if (const auto column = columnCheck(total); checks.empty() && column) {
        checks.push_back(*column);
    }
    return checks;
}

/// Whether a bill is for living somewhere, of which only the care is a cost of illness.
bool isOfHome(const KindContext& context) {
    return context.kind == Kind::arztrechnung && isAnyIn(context.document.folded, homesOfCare());
}

class BillMapper {
  public:
    BillMapper(const KindContext& context, const BillTarget& target, ProposalDraft& draft)
        : context_(context), target_(target), draft_(draft),
          ranges_(wholeDocument(context.document)) {}

    void propose() {
        bool isPayable = context_.bill && context_.bill->bill.amount;
        if (target_.isShared && !isPayable && proposeEachPerson()) {
            return;
        }
        if (target_.kind == Kind::spende && !isPayable && proposeEachReceipt()) {
            return;
        }
        printed_ = bestTotal();
        const bool isList = target_.kind == Kind::spende && !isPayable && printed_ && wanted_;
        if (isList && proposeRecipients(context_, *printed_, *wanted_, draft_)) {
            return;
        }
        isPayable = isPayable && !isReminder_ // the code demands its costs too
                    && !isOwnCare_ && !isPaidInParts();
        if (!isPayable && (!printed_ || printed_->value() < 1)) {
            return;
        }
        const int page = isPayable ? context_.bill->page : printed_->page->number;
        const std::string payee = payeeName();
        std::string title = target_.title;
        title += payee.empty() ? std::string() : ' ' + payee;
        ProposedRecord record = recordWith(context_.facts, target_.record, std::move(title), page);
        record.advice = advice(isPayable);
        tellChild(record);
        if (target_.kind == Kind::arztrechnung) { // treated in the old year, billed in the new one
            const auto& day = context_.bill && context_.bill->bill.date ? context_.bill->bill.date
                                                                        : context_.facts.issued;
            record.year = day ? std::optional(day->year()) : record.year;
        }
        record_ = draft_.addRecord(std::move(record));
        if (isPayable) {
            proposePayable();
        } else {
            proposePrinted();
        }
        proposeWords(payee, isPayable);
    }

  private:
    /// A record for each child or student the document tells the costs of.
    bool proposeEachPerson() {
        const Wanted& wanted = ownTotals();
        auto parts = findPersonAmounts(context_.document, wanted);
        if (parts.empty()) {
            parts = findPeopleInProse(context_.document, wanted);
        }
        const auto together = togetherCheck(context_.document, parts);
        for (const PersonAmount& part : parts) {
            ProposedRecord record =
                recordWith(context_.facts, target_.record, target_.title + (' ' + part.person.name),
                           part.found.page->number);
            record.personName = part.person.name;
            record.birthDate = part.person.birthDate;
            record_ = draft_.addRecord(std::move(record));
            const auto& check = together ? together : part.check;
            draft_.add(record_, target_.amount, part.found.value(),
                       evidenceOf(part.found, wanted, context_.isKindClear,
                                  check ? std::vector{*check} : std::vector<ProposalCheck>()));
            proposeWords(payeeName(), false);
        }
        return !parts.empty();
    }

    /// A record for each of several receipts on a page: the same words, each with a day of its own.
    bool proposeEachReceipt() {
        for (const Wanted* wanted : {&billTotals(), &ownTotals(), &plainBillTotals()}) {
            const auto all = findAmounts(ranges_, *wanted, Digits::firm);
            const auto days = daysBelow(all);
            if (days.size() < 2 || !haveOneLabel(all) || wholeOfParts(context_.document, all)) {
                continue;
            }
            for (std::size_t i = 0; i < all.size(); ++i) {
                const FoundAmount& one = all[i];
                record_ = draft_.addRecord(recordWith(context_.facts, target_.record,
                                                      target_.title + (' ' + payeeName()),
                                                      one.page->number));
                Evidence evidence = evidenceOf(one, *wanted, context_.isKindClear);
                draft_.add(record_, target_.amount, one.value(), evidence);
                evidence.confidence = Confidence::medium;
                evidence.checks.clear();
                draft_.add(record_, target_.day, days[i], evidence);
                draft_.add(record_, target_.payee, payeeName(), evidence);
            }
            return true;
        }
        return false;
    }

    /// The only child a paper tells, rather than the parent it is addressed to.
    void tellChild(ProposedRecord& record) const {
        if (target_.record != Record::child) {
            return;
        }
        const People people(context_.document);
        if (people.born().size() == 1) {
            record.personName = people.born().begin()->second.name;
            record.birthDate = people.born().begin()->second.birthDate;
        }
    }

    /// A party's members give as others do.
    const Wanted& ownTotals() const {
        static const Labels parties{"Partei",
                                    "*partei",
                                    "politische Parteien",
                                    "politischen Parteien",
                                    "parti",
                                    "partis politiques",
                                    "partito",
                                    "partiti",
                                    "political party"};
        return ownBillTotals(target_.kind, isAnyIn(context_.document.folded, parties));
    }

    /// Whether the code of a bill is for one of several instalments.
    bool isPaidInParts() {
        const auto parts =
            printed_ ? instalmentsOf(ranges_, printed_->value(), *context_.bill->bill.amount)
                     : std::nullopt;
        isSpread_ = parts && !parts->areOfOneYear;
        return parts.has_value();
    }

    std::string payeeName() const {
        return context_.bill && !context_.bill->bill.payee.empty() ? context_.bill->bill.payee
                                                                   : context_.facts.issuer.text;
    }

    std::string advice(bool isPayable) const {
        std::string text = isPayable ? noProof : "";
        if (*target_.advice != 0) {
            text += text.empty() ? target_.advice : ' ' + std::string(target_.advice);
        }
        return text;
    }

    std::optional<FoundAmount> bestTotal() {
        if (target_.isShared) {
            wanted_ = &deductibleParts();
            if (auto part = findLast(ranges_, *wanted_, Digits::firm); part && part->value() >= 1) {
                isDeductible_ = true;
                return part;
            }
        }
        if (target_.record == Record::realEstate) {
            if (auto total = totalWithTax(ranges_)) {
                wanted_ = &billTotals();
                checks_.push_back(*total->check);
                return total->found;
            }
        }
        if (auto share = target_.kind == Kind::arztrechnung ? ownShare() : std::nullopt) {
            return share;
        }
        if (target_.kind == Kind::spende) {
            if (auto sum = sumInProse(ranges_, ownTotals())) {
                wanted_ = &ownTotals();
                checks_.push_back(std::move(*sum->check));
                return std::move(sum->found);
            }
        }
        for (const Digits digits : {Digits::firm, Digits::any}) {
            if (auto found = bestTotal(digits)) {
                return billed(std::move(*found));
            }
        }
        isPlain_ = true;
        static const std::vector<Concept> barred{refunded, other, possible, opening};
        auto sum = provenSum(ranges_, barred);
        return sum ? sum : onlyAmount(ranges_, barred);
    }

    /// Whether an amount is the number of a bill or a client.
    static bool isNumberOf(const FoundAmount& one) {
        return !one.amount.amount.isFirm() && one.value() >= 100'000;
    }

    std::optional<FoundAmount> bestTotal(Digits digits) {
        for (const Wanted* wanted : {&billTotals(), &ownTotals()}) {
            auto all = findAmounts(ranges_, *wanted, digits);
            std::erase_if(all, isNumberOf);
            if (!all.empty() && all.back().value() >= 1) {
                wanted_ = wanted;
                return target_.isShared ? afterShares(wholeOf(all)) : beforeAdvance(wholeOf(all));
            }
        }
        wanted_ = &plainBillTotals();
        auto all = findAmounts(ranges_, plainBillTotals(), digits);
        std::erase_if(all,
                      [](const FoundAmount& one) { return one.value() < 1 || isNumberOf(one); });
        for (const FoundAmount& one : all) {
            if (columnCheck(one)) {
                return one;
            }
        }
        return all.empty() ? std::nullopt : std::optional(wholeOf(all));
    }

    /// What others leave to the patient, where the bill tells their parts too.
    std::optional<FoundAmount> ownShare() {
        for (const Wanted* wanted : {&ownShares(), &paidShares()}) {
            for (FoundAmount& one : sharesBy(*wanted)) {
                auto check = remainderCheck(one);
                check = check ? std::move(check) : columnCheck(one);
                check = check ? std::move(check) : sharesCheck(ranges_, one);
                if (check) {
                    wanted_ = wanted;
                    checks_.push_back(std::move(*check));
                    return std::move(one);
                }
            }
        }
        wanted_ = &ownShares();
        auto all = findAmounts(ranges_, ownShares(), Digits::firm);
        std::erase_if(all, [](const FoundAmount& one) { return one.value() < 1; });
        isOwnCare_ = !all.empty() && isOfHome(context_);
        auto whole = all.empty() || isOwnCare_ ? std::nullopt : totalBelow(all.back());
        if (whole) { // what the insurer does not cover comes on top
            checks_.push_back(*columnCheck(*whole));
            return whole;
        }
        return all.empty() ? std::nullopt : std::optional(std::move(all.back()));
    }

    /// The amounts of each wording, whatever others are found.
    std::vector<FoundAmount> sharesBy(const Wanted& wanted) const {
        std::vector<FoundAmount> shares;
        for (const Label& label : wanted.labels) {
            Wanted one = wanted;
            one.labels = {label};
            for (FoundAmount& found : findAmounts(ranges_, one, Digits::firm)) {
                if (found.value() >= 1) {
                    shares.push_back(std::move(found));
                }
            }
        }
        return shares;
    }

    /// A total without what was credited again and what a reminder costs.
    FoundAmount billed(FoundAmount total) {
        if (auto corrected = afterCorrection(total)) {
            checks_.push_back(std::move(*corrected->check));
            return std::move(corrected->found);
        }
        if (auto gift =
                target_.kind == Kind::spende ? withoutAlien(total, ownTotals()) : std::nullopt) {
            checks_.push_back(std::move(*gift->check));
            return std::move(gift->found);
        }
        auto bare = withoutReminder(total);
        if (!bare) {
            return total;
        }
        isReminder_ = true;
        isShared_ |= !bare->check.has_value();
        if (bare->check) {
            checks_.push_back(std::move(*bare->check));
        }
        return std::move(bare->found);
    }

    /// What the amounts found are parts of: their sum, wherever it is printed; a sum below them, of
    /// donations, which lists call by many names, also where it includes others that are no fees,
    /// and of what others share where something was given back in between.
    FoundAmount wholeOf(const std::vector<FoundAmount>& all) {
        if (target_.kind == Kind::spende || (target_.isShared && haveOneLabel(all))) {
            auto whole = wholeOfParts(context_.document, all);
            if (!whole && target_.kind == Kind::spende) {
                whole = wholeOfList(context_.document, all.back(), *wanted_);
            }
            if (whole) {
                if (whole->check) {
                    checks_.push_back(std::move(*whole->check));
                }
                return std::move(whole->found);
            }
        }
        Decimal sum;
        for (const FoundAmount& one : all) {
            sum = sum + one.value();
        }
        static const Wanted pure{{}, {}, true, {}, {}, {meals, membership, tax, notDeductible}};
        auto whole = totalBelow(all.back());
        const bool isWider = target_.kind == Kind::spende || target_.isShared;
        const bool isWhole =
            whole
            && (whole->value() == sum
                || (isWider && !includesAlien(*whole, pure)
                    && (!target_.isShared || takesOff(*whole) || isPaidCourse(*whole))));
        isDisputed_ |= !isWhole && !columnCheck(all.back())
                       && (target_.isShared || target_.kind == Kind::spende)
                       && std::ranges::any_of(all, [&](const FoundAmount& one) {
                              return one.value() != all.back().value();
                          });
        return isWhole ? std::move(*whole) : all.back();
    }

    /// Whether a total says what was paid for a course with all that belongs to it.
    bool isPaidCourse(const FoundAmount& whole) const {
        return target_.kind == Kind::weiterbildung
               && namesAny(whole.rowOf(), {paid}, whole.page->isRecognised);
    }

    /// What remains of a total when others bear a part of it, if both stand below; else it is the
    /// total, but doubtful.
    FoundAmount afterShares(const FoundAmount& whole) {
        Decimal rest = whole.value();
        const PageRows& page = *whole.page;
        for (std::size_t at = whole.row + 1; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            if (row.amounts.empty() || !row.amounts.back().amount.isFirm()) {
                continue;
            }
            const Decimal value = row.amounts.back().amount.value.abs();
            if (namesAny(row, {publicShare, reduction, refunded}, page.isRecognised)) {
                rest = rest - value;
                isShared_ = true;
            } else if (isShared_ && value == rest) {
                FoundAmount net = whole;
                net.row = at;
                net.amount = row.amounts.back();
                net.label = textBetween(row, 0, net.amount.first == 0 ? 0 : net.amount.first - 1);
                isShared_ = false;
                return net;
            }
        }
        return whole;
    }

    /// The amount of the QR-bill, with the printed one beside it.
    void proposePayable() {
        const QrBill& bill = context_.bill->bill;
        const Decimal amount = *bill.amount;
        Evidence evidence{.witness = Witness::payload,
                          .confidence = Confidence::high,
                          .reason = "Aus dem QR-Code der Rechnung gelesen.",
                          .page = context_.bill->page,
                          .box = context_.bill->box};
        if (bill.currency != "CHF") {
            evidence.checks.push_back(
                {"Der Betrag lautet auf " + bill.currency + ", nicht auf Franken", false});
        }
        if (const auto place = findPrinted(context_.document, amount)) {
            evidence.checks.push_back(printedCheck(amount, place->amount->amount));
            if (printed_ && wanted_->isSpecific && printed_->value() != amount
                && !isPrintedForm(amount, printed_->amount.amount)) {
                evidence.checks.push_back(printedCheck(amount, printed_->amount.amount));
            }
        } else if (printed_) {
            evidence.checks.push_back(printedCheck(amount, printed_->amount.amount));
        }
        if (bill.totalByTax) {
            const bool holds = (*bill.totalByTax - amount).abs() <= Decimal(5) / 100;
            evidence.checks.push_back({"Mit Mehrwertsteuer kommt die Rechnung auf "
                                           + shown(*bill.totalByTax)
                                           + (holds ? "" : ", zu zahlen ist aber " + shown(amount)),
                                       holds});
        }
        const bool isSeconded = std::ranges::any_of(evidence.checks, &ProposalCheck::passed);
        if (bill.currency != "CHF") {
            evidence.confidence = Confidence::low; // the return takes francs
        } else if (!context_.isKindClear || !isSeconded) {
            evidence.confidence = Confidence::medium; // the amount is sure, what it is for is not
        }
        draft_.add(record_, target_.amount, amount, std::move(evidence));
    }

    void proposePrinted() {
        if (isPlain_) {
            Evidence evidence = plainEvidence(*printed_, context_.isKindClear);
            doubtWhose(evidence);
            draft_.add(record_, target_.amount, printed_->value(), std::move(evidence));
            return;
        }
        auto checks = checks_.empty() ? totalChecks(ranges_, *printed_) : checks_;
        if (auto repeat = repeatCheck(ranges_, *wanted_, *printed_)) {
            checks.push_back(std::move(*repeat));
        }
        if (target_.isShared) {
            settleGivenBack(checks);
        }
        const bool isProven = !checks.empty();
        if (target_.kind == Kind::kinderbetreuung && !isDeductible_ && hasMeals(*printed_)) {
            checks.push_back(
                {"Im Betrag sind Mahlzeiten enthalten, die nicht abziehbar sind", false});
        }
        Evidence evidence =
            evidenceOf(*printed_, *wanted_, context_.isKindClear && !isShared_, std::move(checks));
        if ((isReminder_ && !isProven) || isDisputed_ || isSpread_ || isAfterAdvance(*printed_)
            || (isOfHome(context_) && !isOwnCare_)) {
            evidence.confidence = Confidence::low;
        }
        doubtWhose(evidence);
        draft_.add(record_, target_.amount, printed_->value(), std::move(evidence));
    }

    /// Of several children or students each has an amount of their own.
    void doubtWhose(Evidence& evidence) const {
        if (target_.record == Record::child
            && mayBeOfSeveralChildren(context_.document, context_.facts.issuer.text, printed_)) {
            evidence.confidence = Confidence::low;
            evidence.reason += " Das Dokument scheint mehrere Kinder zu betreffen.";
        }
        if (target_.kind == Kind::weiterbildung && namesTwo(context_.document)) {
            evidence.confidence = Confidence::low; // each deducts their own
            evidence.reason += " Das Dokument nennt zwei Personen.";
        }
    }

    /// Takes off what was given back or borne by others; doubtful where no sum proves what remains.
    void settleGivenBack(std::vector<ProposalCheck>& checks) {
        const Settled given = afterGivenBack(context_.document, *printed_);
        if (given.rest) {
            isShared_ = false;
            if (given.rest->found.value() != printed_->value()) {
                checks.clear();
            }
            printed_ = given.rest->found;
            checks.push_back(*given.rest->check);
        } else {
            isShared_ |= given.isTold && !isDeductible_ && checks.empty();
        }
    }

    void proposeWords(const std::string& payee, bool isPayable) {
        const bool isExact = isPayable && !context_.bill->bill.payee.empty();
        Evidence words{.witness = isExact ? Witness::payload : Witness::position,
                       .confidence = isExact ? Confidence::high : Confidence::medium,
                       .reason = isExact ? "Aus dem QR-Code der Rechnung gelesen."
                                         : "Steht oben auf dem Dokument.",
                       .page = isExact ? context_.bill->page : context_.facts.issuer.page,
                       .box = isExact ? context_.bill->box : context_.facts.issuer.box};
        if (*target_.payee != 0) {
            draft_.add(record_, target_.payee, payee, words);
        }
        if (*target_.day == 0) {
            return;
        }
        if (context_.bill && context_.bill->bill.date) {
            draft_.add(record_, target_.day, context_.bill->bill.date, words);
        } else if (context_.facts.issued) {
            draft_.add(record_, target_.day, context_.facts.issued,
                       {.witness = Witness::position,
                        .confidence = Confidence::medium,
                        .reason = "Datum des Dokuments.",
                        .page = words.page});
        }
    }

    const KindContext& context_;
    const BillTarget& target_;
    ProposalDraft& draft_;
    std::vector<RowRange> ranges_;
    std::optional<FoundAmount> printed_;
    const Wanted* wanted_ = nullptr;
    bool isDisputed_ = false; ///< other amounts have the same words
    bool isShared_ = false;   ///< others bear a part that is not taken off
    bool isDeductible_ = false;
    std::vector<ProposalCheck> checks_; ///< that hold for what was printed
    bool isReminder_ = false;           ///< costs of a reminder were taken off
    bool isPlain_ = false;              ///< found without any label
    bool isOwnCare_ = false;            ///< of a home's bill the part for care
    bool isSpread_ = false;             ///< instalments of several years
    int record_ = 0;
};

} // namespace

void proposeBill(const KindContext& context, ProposalDraft& draft) {
    const auto target = std::ranges::find(targets, context.kind, &BillTarget::kind);
    if (target != targets.end()) {
        BillMapper(context, *target, draft).propose();
    }
}

} // namespace fiscarel
