#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/BillTotal.h"
#include "Fiscarel_SG/documents/kinds/BillWords.h"
#include "Fiscarel_SG/documents/kinds/ChildCareHints.h"
#include "Fiscarel_SG/documents/kinds/DonationList.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/PersonParts.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Kind = StoredDocument::Kind;
using Record = ProposedRecord::Kind;

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
        printed_ = findBillTotal(context_, target_.isShared);
        if (target_.kind == Kind::spende && !isPayable && printed_
            && proposeRecipients(context_, printed_->found, *printed_->wanted, draft_)) {
            return;
        }
        if (printed_) { // the code demands the costs of a reminder too, and what is no care
            isPayable =
                isPayable && !printed_->isReminder && !printed_->isOwnCare && !isPaidInParts();
        }
        if (!isPayable && (!printed_ || printed_->found.value() < 1)) {
            return;
        }
        const int page = isPayable ? context_.bill->page : printed_->found.page->number;
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
        proposeWords(isPayable);
    }

  private:
    /// A record for each child or student the document tells the costs of.
    bool proposeEachPerson() {
        const Wanted& wanted = ownTotalsOf(context_);
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
            proposeWords(false);
        }
        return !parts.empty();
    }

    /// A record for each of several receipts on a page: the same words, each with a day of its own.
    bool proposeEachReceipt() {
        for (const Wanted* wanted : {&billTotals(), &ownTotalsOf(context_), &plainBillTotals()}) {
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

    /// Whether the code of a bill is for one of several instalments.
    bool isPaidInParts() {
        const auto parts =
            instalmentsOf(ranges_, printed_->found.value(), *context_.bill->bill.amount);
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

    /// The amount of the QR-bill, with the printed one beside it.
    void proposePayable() {
        const QrBill& bill = context_.bill->bill;
        const Decimal amount = *bill.amount;
        const bool isForeign = bill.currency != "CHF";
        Evidence evidence = evidenceOfCode();
        if (isForeign) {
            evidence.checks.push_back(
                {"Der Betrag lautet auf " + bill.currency + ", nicht auf Franken", false});
        }
        const auto place = findPrinted(context_.document, amount);
        if (place) {
            evidence.checks.push_back(printedCheck(amount, place->amount->amount));
        }
        if (printed_) {
            const PrintedAmount& total = printed_->found.amount.amount;
            if (!place
                || (printed_->wanted->isSpecific && total.value != amount
                    && !isPrintedForm(amount, total))) {
                evidence.checks.push_back(printedCheck(amount, total));
            }
        }
        if (bill.totalByTax) {
            const bool holds = areSameRounded(*bill.totalByTax, amount);
            evidence.checks.push_back({"Mit Mehrwertsteuer kommt die Rechnung auf "
                                           + shown(*bill.totalByTax)
                                           + (holds ? "" : ", zu zahlen ist aber " + shown(amount)),
                                       holds});
        }
        const bool isSeconded = std::ranges::any_of(evidence.checks, &ProposalCheck::passed);
        if (isForeign) {
            evidence.confidence = Confidence::low; // the return takes francs
        } else if (!context_.isKindClear || !isSeconded) {
            evidence.confidence = Confidence::medium; // the amount is sure, what it is for is not
        }
        draft_.add(record_, target_.amount, amount, std::move(evidence));
    }

    Evidence evidenceOfCode() const {
        return {.witness = Witness::payload,
                .confidence = Confidence::high,
                .reason = "Aus dem QR-Code der Rechnung gelesen.",
                .page = context_.bill->page,
                .box = context_.bill->box};
    }

    void proposePrinted() {
        if (target_.isShared && !printed_->isPlain) {
            settleGivenBack(context_.document, *printed_);
        }
        Evidence evidence = evidenceOfPrinted();
        doubtWhose(evidence);
        draft_.add(record_, target_.amount, printed_->found.value(), std::move(evidence));
    }

    Evidence evidenceOfPrinted() const {
        const FoundAmount& found = printed_->found;
        if (printed_->isPlain) {
            return plainEvidence(found, context_.isKindClear);
        }
        auto checks = printed_->checks;
        const bool isProven = !checks.empty();
        if (target_.kind == Kind::kinderbetreuung && !printed_->isDeductible && hasMeals(found)) {
            checks.push_back(
                {"Im Betrag sind Mahlzeiten enthalten, die nicht abziehbar sind", false});
        }
        Evidence evidence =
            evidenceOf(found, *printed_->wanted, context_.isKindClear && !printed_->isUnsettled,
                       std::move(checks));
        if ((printed_->isReminder && !isProven) || printed_->isDoubtful || isSpread_
            || isAfterAdvance(found)) {
            evidence.confidence = Confidence::low;
        }
        return evidence;
    }

    /// Of several children or students each has an amount of their own.
    void doubtWhose(Evidence& evidence) const {
        if (target_.record == Record::child
            && mayBeOfSeveralChildren(context_.document, context_.facts.issuer.text,
                                      printed_->found)) {
            evidence.confidence = Confidence::low;
            evidence.reason += " Das Dokument scheint mehrere Kinder zu betreffen.";
        }
        if (target_.kind == Kind::weiterbildung && namesTwo(context_.document)) {
            evidence.confidence = Confidence::low; // each deducts their own
            evidence.reason += " Das Dokument nennt zwei Personen.";
        }
    }

    void proposeWords(bool isPayable) {
        const bool isExact = isPayable && !context_.bill->bill.payee.empty();
        const Evidence words = isExact ? evidenceOfCode()
                                       : Evidence{.witness = Witness::position,
                                                  .confidence = Confidence::medium,
                                                  .reason = "Steht oben auf dem Dokument.",
                                                  .page = context_.facts.issuer.page,
                                                  .box = context_.facts.issuer.box};
        if (*target_.payee != 0) {
            draft_.add(record_, target_.payee, payeeName(), words);
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
    std::optional<BillTotal> printed_;
    bool isSpread_ = false; ///< instalments of several years
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
