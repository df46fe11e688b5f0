#include "Fiscarel_SG/documents/kinds/AccountEntries.h"

#include "Fiscarel_SG/documents/kinds/BankShares.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;

/// The amounts of one figure of all entries, and whether the document prints what they add up to.
class FigureSum {
  public:
    FigureSum(const std::vector<AccountEntry>& entries, Figure figure) {
        for (const AccountEntry& entry : entries) {
            if (const auto& found = at(entry.figures, figure); found && !found->value().isZero()) {
                parts_.push_back(&*found);
                sum_ = sum_ + found->value().abs();
            }
        }
    }

    /// Absent when fewer than two amounts add up to one that is printed beyond them.
    std::optional<ProposalCheck> check(const DocumentRows& document) const {
        if (parts_.size() < 2) {
            return std::nullopt;
        }
        if (!findSum(document, sum_)) {
            return std::nullopt;
        }
        std::vector<Decimal> values(parts_.size());
        std::ranges::transform(parts_, values.begin(),
                               [](const FoundAmount* part) { return part->value().abs(); });
        return ProposalCheck{togetherText(values, sum_), true};
    }

  private:
    std::vector<const FoundAmount*> parts_;
    Decimal sum_;
};

/// Whether an entry without a number only tells what all others come to, as a letter before them
/// does: "Ihre Guthaben betragen insgesamt".
bool isSummary(const std::vector<AccountEntry>& entries, const AccountEntry& entry) {
    if (!entry.number.empty()) {
        return false;
    }
    std::size_t sums = 0; // of at least two amounts
    for (std::size_t i = 0; i < figureCount; ++i) {
        Decimal sum;
        std::size_t count = 0;
        for (const AccountEntry& other : entries) {
            if (&other != &entry && other.figures[i]) {
                sum = sum + other.figures[i]->value().abs();
                ++count;
            }
        }
        const auto& own = entry.figures[i];
        if (own && !own->value().isZero() && own->value().abs() != sum) {
            return false;
        }
        sums += own && !own->value().isZero() && count >= 2 ? 1U : 0U;
    }
    return sums > 0;
}

std::vector<AccountEntry> withoutSummaries(const std::vector<AccountEntry>& entries) {
    std::vector<AccountEntry> kept;
    std::ranges::copy_if(entries, std::back_inserter(kept),
                         [&](const AccountEntry& entry) { return !isSummary(entries, entry); });
    return kept;
}

/// Whether two entries tell of the same: what is left or owed and what it brought or cost, and the
/// number where both have one.
bool isSame(const AccountEntry& one, const AccountEntry& other) {
    using enum Figure;
    std::size_t same = 0;
    for (const Figure figure : {balance, interest, debt, debtInterest}) {
        const auto& a = at(one.figures, figure);
        const auto& b = at(other.figures, figure);
        if (a.has_value() != b.has_value() || (a && a->value() != b->value())) {
            return false;
        }
        same += a && !a->value().isZero() ? 1U : 0U;
    }
    return same >= 2 && (one.number.empty() || other.number.empty() || one.number == other.number);
}

/// Whether an entry tells a part of what another one does, as a quarter's summary does of a year.
bool isPart(const AccountEntry& whole, const AccountEntry& part) {
    using enum Figure;
    if (whole.number.empty() || whole.number != part.number) {
        return false;
    }
    bool isLess = false;
    for (const Figure figure : {balance, debt}) {
        const auto& a = at(whole.figures, figure);
        const auto& b = at(part.figures, figure);
        if (a.has_value() != b.has_value() || (a && a->value() != b->value())) {
            return false;
        }
    }
    for (const Figure figure : {interest, debtInterest}) {
        const auto& a = at(whole.figures, figure);
        const auto& b = at(part.figures, figure);
        if (a.has_value() != b.has_value() || (a && a->value().abs() < b->value().abs())) {
            return false;
        }
        isLess |= a && b->value().abs() < a->value().abs();
    }
    return isLess;
}

std::vector<AccountEntry> withoutParts(const std::vector<AccountEntry>& entries) {
    std::vector<AccountEntry> kept;
    std::ranges::copy_if(entries, std::back_inserter(kept), [&](const AccountEntry& entry) {
        return std::ranges::none_of(
            entries, [&](const AccountEntry& other) { return isPart(other, entry); });
    });
    return kept;
}

/// The entries without those of a page that only tells again what pages before it told of all.
std::vector<AccountEntry> withoutRepeats(std::vector<AccountEntry> entries) {
    std::vector<AccountEntry> kept;
    for (std::size_t first = 0; first < entries.size();) {
        const int page = entries[first].range.page->number;
        std::size_t end = first;
        while (end < entries.size() && entries[end].range.page->number == page) {
            ++end;
        }
        std::vector<bool> isTaken(kept.size(), false);
        const bool isRepeat = std::all_of(entries.begin() + static_cast<std::ptrdiff_t>(first),
                                          entries.begin() + static_cast<std::ptrdiff_t>(end),
                                          [&](const AccountEntry& entry) {
                                              for (std::size_t i = 0; i < kept.size(); ++i) {
                                                  if (!isTaken[i] && isSame(kept[i], entry)) {
                                                      isTaken[i] = true;
                                                      return true;
                                                  }
                                              }
                                              return false;
                                          });
        for (; first < end; ++first) {
            if (!isRepeat) {
                kept.push_back(std::move(entries[first]));
            }
        }
    }
    return kept;
}

class EntryProposer {
  public:
    EntryProposer(const KindContext& context, const std::vector<AccountEntry>& entries,
                  ProposalDraft& draft)
        : context_(context), entries_(withoutRepeats(withoutParts(withoutSummaries(entries)))),
          draft_(draft) {
        for (std::size_t i = 0; i < figureCount; ++i) {
            sums_[i] = FigureSum(entries_, static_cast<Figure>(i)).check(context.document);
        }
    }

    void propose() {
        for (const AccountEntry& entry : entries_) {
            const bool isProven =
                isSummed(entry)
                || (!entry.number.empty()
                    && std::ranges::any_of(interestChecks(entry.figures), &ProposalCheck::passed));
            if (isStatement() && entries_.size() > 1 && !isProven) {
                continue; // its lists are many, only a total or its tax tells which one was read
            }
            if (at(entry.figures, Figure::debt) || at(entry.figures, Figure::debtInterest)) {
                proposeDebt(entry);
            }
            using enum Figure;
            if (std::ranges::any_of(
                    std::array{balance, interest, taxedInterest, untaxedInterest},
                    [&](Figure one) { return at(entry.figures, one).has_value(); })) {
                proposeAccount(entry);
            }
        }
    }

  private:
    bool isStatement() const { return context_.kind == StoredDocument::Kind::steuerauszug; }

    bool isSummed(const AccountEntry& entry) const {
        using enum Figure;
        return std::ranges::any_of(
            std::array{balance, interest, debt, debtInterest, taxedInterest, untaxedInterest},
            [&](Figure figure) {
                return at(entry.figures, figure) && sums_[static_cast<std::size_t>(figure)];
            });
    }

    void addAmount(int record, std::string field, const FoundAmount& found, Figure figure,
                   std::vector<ProposalCheck> checks) {
        if (const auto& sum = sums_[static_cast<std::size_t>(figure)]) {
            checks.push_back(*sum);
        }
        const bool isProven = std::ranges::any_of(checks, &ProposalCheck::passed);
        Evidence evidence =
            evidenceOf(found, wantedOf(figure), context_.isKindClear, std::move(checks));
        if (isStatement() && !isProven) {
            evidence.confidence = Confidence::low;
        }
        draft_.add(record, std::move(field), found.value(), std::move(evidence));
    }

    std::string titleOf(const AccountEntry& entry) const {
        const std::string& name = !entry.number.empty()     ? entry.number
                                  : !entry.security.empty() ? entry.security
                                                            : context_.facts.issuer.text;
        return (entry.pieces ? "Wertschrift " : "Konto ") + name;
    }

    void proposeAccount(const AccountEntry& entry) {
        const auto& balance = at(entry.figures, Figure::balance);
        const auto& interest = at(entry.figures, Figure::interest);
        const int record = draft_.addRecord(
            recordWith(context_.facts, Record::security, titleOf(entry), entry.range.page->number));
        proposeNames(record, entry);
        if (balance) {
            std::vector<ProposalCheck> checks;
            if (const auto check = movementCheck(entry.range, *balance)) {
                checks.push_back(*check);
            }
            if (entry.pieces) {
                checks.push_back(*entry.pieces);
            }
            addAmount(record, "taxValue", *balance, Figure::balance, std::move(checks));
        }
        if (entry.quantity) {
            static const Wanted pieces{{}, {}, true};
            std::vector<ProposalCheck> checks;
            if (entry.pieces) {
                checks.push_back(*entry.pieces);
            }
            draft_.add(
                record, "quantity", entry.quantity->value(),
                evidenceOf(*entry.quantity, pieces, context_.isKindClear, std::move(checks)));
        }
        if (interest && !interest->value().isZero()) {
            const auto& tax = at(entry.figures, Figure::withholding);
            // Interest up to 200 francs a year is free of it. VStG Art. 5 Abs. 1 Bst. c
            // What the bank's own shares and notes bring is no customer's balance.
            const bool isTaxed = tax ? !tax->value().isZero() : isTaxedUntold(entry, *interest);
            const auto checks = interestChecks(entry.figures);
            addAmount(record, isTaxed ? "incomeWithWithholding" : "incomeWithoutWithholding",
                      *interest, Figure::interest, checks);
            Confidence& confidence = draft_.result().proposals.back().confidence;
            if (!tax && entry.number.empty() && (isStatement() || entry.isDepot)) {
                confidence = Confidence::low; // whose it is decides
            } else if (!tax && isTaxed && confidence == Confidence::high) {
                confidence = Confidence::medium; // sure is the amount, not the tax
            }
        }
        proposeIncome(record, entry);
    }

    /// Whether tax is withheld from interest where the paper tells none of it: from over 200 francs
    /// a year (VStG Art. 5 para. 1 c), what the bank's own shares and notes bring, but not what
    /// others owe whom the bank lends it to in trust.
    bool isTaxedUntold(const AccountEntry& entry, const FoundAmount& interest) const {
        static const Labels trust{"Treuhand*", "treuhänderisch*", "fiduciaire*", "fiduciari*",
                                  "fiduciary"};
        const auto& rows = entry.range.page->rows;
        const bool isInTrust =
            std::any_of(rows.begin() + static_cast<std::ptrdiff_t>(entry.range.first),
                        rows.begin() + static_cast<std::ptrdiff_t>(entry.range.end),
                        [](const Row& row) { return isAnyIn(row.folded, trust); });
        return (interest.value() > 200 || isOfShares(entry)) && !isOfLiechtenstein(entry)
               && !isInTrust;
    }

    static bool isOfShares(const AccountEntry& entry) {
        return entry.range.first < entry.range.end
               && mentionsShares(entry.range.page->rows[entry.range.first]);
    }

    /// Whether an account, or where it has no number the bank's others, are of Liechtenstein, which
    /// withholds nothing.
    bool isOfLiechtenstein(const AccountEntry& entry) const {
        const auto isOne = [](const AccountEntry& one) { return one.number.starts_with("LI"); };
        return isOne(entry) || (entry.number.empty() && std::ranges::any_of(entries_, isOne));
    }

    /// Income of columns that tell of the tax.
    void proposeIncome(int record, const AccountEntry& entry) {
        const auto& taxed = at(entry.figures, Figure::taxedInterest);
        const auto& untaxed = at(entry.figures, Figure::untaxedInterest);
        if (taxed && !taxed->value().isZero()) {
            Figures figures = entry.figures;
            at(figures, Figure::interest) = taxed;
            addAmount(record, "incomeWithWithholding", *taxed, Figure::taxedInterest,
                      interestChecks(figures));
        }
        if (untaxed && !untaxed->value().isZero()) {
            addAmount(record, "incomeWithoutWithholding", *untaxed, Figure::untaxedInterest, {});
        }
    }

    Evidence wordsOf(const AccountEntry& entry) const {
        const int page = entry.range.page->number;
        return {.witness = page == 0 ? Witness::text : Witness::position,
                .confidence = Confidence::medium,
                .reason = "Steht beim Konto.",
                .page = page};
    }

    void proposeNames(int record, const AccountEntry& entry) {
        const Evidence words = wordsOf(entry);
        draft_.add(record, "kind", std::string(entry.isDepot ? "wertschrift" : "konto"), words);
        Evidence checked = words;
        if (!entry.number.empty()) {
            const bool isSound = !taxcore::ibanFault(entry.number);
            checked.checks.push_back({isSound ? "Die Prüfziffer der IBAN stimmt"
                                              : "Die Prüfziffer der IBAN stimmt nicht",
                                      isSound});
            checked.confidence = isSound ? Confidence::high : Confidence::low;
        }
        draft_.add(record, "ibanOrValor", entry.number.empty() ? entry.security : entry.number,
                   checked);
        draft_.add(record, "institution", context_.facts.issuer.text,
                   issuerEvidence(context_.facts));
        proposeDescription(record, entry.range, words);
    }

    /// "Sparkonto", "Privatkonto Plus": the word that names the account.
    void proposeDescription(int record, const RowRange& range, const Evidence& words) {
        static const Labels names{
            "Sparkonto*",         "Privatkonto*",       "Jugendsparkonto",     "Mietkautionskonto",
            "Mietzinskonto",      "Lohnkonto",          "Anlagesparkonto",     "Kontokorrent",
            "Depositenkonto",     "Aktionärssparkonto", "Mitgliedersparkonto", "Compte privé",
            "Compte d'épargne",   "Compte épargne",     "Conto privato",       "Conto risparmio",
            "Conto di risparmio", "Zahlungskonto",      "Geschenksparkonto",   "*konto"};
        const auto name = [&](std::size_t at) {
            const Row& row = range.page->rows[at];
            const auto place = findLabel(row, names, range.page->isRecognised);
            std::string text = place ? textBetween(row, place->first, place->last) : std::string();
            std::erase_if(text, [](char c) { return c == '(' || c == ')' || c == ','; });
            return text;
        };
        // The name stands beside the number or right above it; the last rows may name the next one.
        const bool isAbove = range.first > 0 && !hasFirmAmount(range.page->rows[range.first - 1]);
        std::string found = range.first < range.end ? name(range.first) : std::string();
        found = found.empty() && isAbove ? name(range.first - 1) : std::move(found);
        for (std::size_t at = range.first + 1; at < range.end && found.empty(); ++at) {
            found = name(at);
        }
        if (!found.empty()) {
            draft_.add(record, "description", found, words);
        }
    }

    void proposeDebt(const AccountEntry& entry) {
        const auto isNothing = [&](Figure figure) {
            const auto& found = at(entry.figures, figure);
            return !found || found->value().isZero();
        };
        if (isNothing(Figure::debt) && isNothing(Figure::debtInterest)) {
            return; // an account's row for interest that nobody owes
        }
        const bool isListed = !entry.creditor.empty();
        const std::string creditor = isListed ? entry.creditor : context_.facts.issuer.text;
        const int record = draft_.addRecord(recordWith(
            context_.facts, Record::debt, "Schuld " + creditor, entry.range.page->number));
        Evidence words = wordsOf(entry);
        words.reason = "Steht bei der Schuld.";
        draft_.add(record, "creditor", creditor, isListed ? words : issuerEvidence(context_.facts));
        for (const Figure figure : {Figure::debt, Figure::debtInterest}) {
            const auto& found = at(entry.figures, figure);
            if (found && !found->value().isZero()) {
                FoundAmount owed = *found;
                owed.amount.amount.value = owed.value().abs();
                addAmount(record, figure == Figure::debt ? "amount" : "interest", owed, figure, {});
            }
        }
    }

    const KindContext& context_;
    std::vector<AccountEntry> entries_;
    ProposalDraft& draft_;
    std::array<std::optional<ProposalCheck>, figureCount> sums_;
};

} // namespace

void settle(AccountEntry& entry) {
    Figures& figures = entry.figures;
    auto& balance = at(figures, Figure::balance);
    auto& debt = at(figures, Figure::debt);
    auto& interest = at(figures, Figure::interest);
    auto& debtInterest = at(figures, Figure::debtInterest);
    const bool isOwed = entry.isLoan || (balance && balance->value() < 0);
    if (isOwed && balance) {
        debt = debt ? debt : balance;
        balance.reset();
    }
    if (debt && balance) {
        balance.reset(); // of a loan's account
    }
    // Interest beside a debt is the debt's, unless tax was withheld from it.
    if (debt && !balance && interest && (entry.isLoan || !at(figures, Figure::withholding))) {
        debtInterest = debtInterest ? debtInterest : interest;
        interest.reset();
    }
    if (entry.isLoan) {
        interest.reset();
    }
    if (at(figures, Figure::taxedInterest) || at(figures, Figure::untaxedInterest)) {
        interest.reset();
    }
    if (interest && interest->value() < 0) { // charged
        debtInterest = debtInterest ? debtInterest : interest;
        interest.reset();
    }
}

void proposeEntries(const KindContext& context, const std::vector<AccountEntry>& entries,
                    ProposalDraft& draft) {
    EntryProposer(context, entries, draft).propose();
}

} // namespace fiscarel
