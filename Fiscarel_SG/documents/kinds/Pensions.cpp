#include "Fiscarel_SG/documents/kinds/Pensions.h"

#include "Fiscarel_SG/documents/kinds/PensionAmounts.h"
#include "Fiscarel_SG/documents/kinds/PensionColumns.h"
#include "Fiscarel_SG/documents/kinds/PensionWords.h"
#include "Fiscarel_SG/documents/kinds/People.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <set>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;
using enum Concept;

constexpr int mostFrancs = 100'000'000;

const Wanted& pensions() {
    static const Wanted wanted{
        {"Total Renten", "Total Rente", "Ausbezahlte Renten", "Rentenleistungen*",
         "Rentenzahlungen", "Bruttorente", "Rente brutto", "Ausgerichtete Renten",
         "Ausbezahlte Rente", "Jahresrente", "Jahresbetrag", "Total des rentes", "Rentes versées",
         "Rente annuelle", "Totale rendite", "Rendite versate", "Rendita annua"},
        {"Rentenart", "Quellensteuer", "Hilflosen*"},
        true,
        {{pension, total},
         {pension, paid},
         {pension, yearly},
         {pension, amount},
         {pension},
         {amount, paid}},
        {other, possible, rate}};
    return wanted;
}

/// Where the amount of a benefit goes.
struct BenefitTarget {
    Record record;
    const char* title;
    const char* field;
};

constexpr BenefitTarget fundsPension{Record::pension, "Rente", "amount"};
constexpr BenefitTarget statePension{Record::personIncome, "AHV/IV-Rente", "ahvPension"};
constexpr BenefitTarget unemployment{Record::personIncome, "Arbeitslosentaggeld", "unemployment"};
constexpr BenefitTarget dailyAllowances{Record::personIncome, "Taggeld", "dailyAllowances"};

/// Reads papers on pensions and on allowances.
class BenefitPaper {
  public:
    BenefitPaper(const KindContext& context, const BenefitTarget& target, Benefit benefit,
                 ProposalDraft& draft)
        : context_(context), draft_(draft), amounts_(pensionAmounts(context.document, benefit)),
          people_(context.document), target_(target), benefit_(benefit) {
        for (PensionAmount& one : amounts_) {
            one.isBarred |= context.facts.year && beginsAfter(one.words, *context.facts.year);
        }
        hasBegun_ = context.facts.year && beginsWithin(context.document, *context.facts.year);
        if (hasBegun_) {
            barWholeYears();
        }
    }

    bool proposePension(bool isProvenOnly) {
        return put(pensionsInColumns(context_.document, people_, amounts_)) || proposePeople()
               || proposeBlocks() || proposeTold() || proposeProven() || proposeForTax()
               || proposePaid() || (!isProvenOnly && proposeNamed());
    }

    bool proposeAllowances() { return proposeProven() || proposeForTax(); }

  private:
    using Parts = std::vector<std::pair<NamedPerson, const PensionAmount*>>;

    /// Twelve times what was paid for some months only was not paid.
    void barWholeYears() {
        std::set<Decimal> years;
        for (const PensionAmount& one : amounts_) {
            if (one.months == 12) {
                years.insert(one.found.value());
            }
        }
        for (PensionAmount& one : amounts_) {
            one.isBarred |= years.contains(one.found.value());
        }
    }

    /// A couple's pensions, a row each.
    bool proposePeople() {
        Parts parts;
        for (const PensionAmount& one : amounts_) {
            const Row& row = one.found.rowOf();
            const auto named = people_.in(row);
            const bool isOwn = one.canBePension() && named.size() == 1 && !one.found.isBelow
                               && !findLabel(row, childrenWords(), one.found.page->isRecognised);
            if (!isOwn) {
                continue;
            }
            if (std::ranges::any_of(parts, [&](const auto& part) {
                    return part.first.folded == named[0].folded;
                })) {
                return false; // which of the two is the year's is not told
            }
            parts.emplace_back(named[0], &one);
        }
        return put(parts);
    }

    /// A couple's pensions, a block of rows each under the name.
    bool proposeBlocks() {
        Parts parts;
        for (const PensionAmount& one : amounts_) {
            const auto person = one.canBePension() && one.isProven() && one.months > 0
                                    ? ownerAbove(one.found)
                                    : std::nullopt;
            if (!person) {
                continue;
            }
            const auto known = std::ranges::find_if(
                parts, [&](const auto& part) { return part.first.folded == person->folded; });
            if (known == parts.end()) {
                parts.emplace_back(*person, &one);
            } else if (known->second->found.value() != one.found.value()) {
                return false;
            }
        }
        return put(parts);
    }

    /// A couple's pensions, of which a sentence tells one behind each name.
    bool proposeTold() {
        Parts parts;
        for (const PersonAmount& told : findPeopleInProse(context_.document, pensions())) {
            const auto own = std::ranges::find_if(amounts_, [&](const PensionAmount& one) {
                return one.canBePension() && areSame(one.found, told.found);
            });
            if (own == amounts_.end()) {
                return false;
            }
            parts.emplace_back(told.person, &*own);
        }
        return put(parts);
    }

    /// The person whom the nearest row above that is one's heading names.
    std::optional<NamedPerson> ownerAbove(const FoundAmount& found) const {
        for (std::size_t at = found.row; at-- > 0;) {
            const Row& row = found.page->rows[at];
            const auto named = people_.in(row);
            if (named.size() == 1 && (named.front().birthDate || headsBlock(row))) {
                return named.front();
            }
            if (auto spouse = people_.spouseOf(row)) {
                return spouse;
            }
        }
        return std::nullopt;
    }

    /// Whether a row with a name is about that person alone: a short one without amounts.
    static bool headsBlock(const Row& row) {
        static const std::set<std::string> joins{"und", "et", "e", "&"};
        constexpr std::size_t mostWords = 6;
        return row.words.size() <= mostWords && !hasFirmAmount(row)
               && !findLabel(row, childrenWords(), false)
               && std::ranges::none_of(row.words, [](const RowWord& word) {
                      return joins.contains(word.folded) || word.text == "&";
                  });
    }

    static const Labels& childrenWords() {
        static const Labels words{"*kinderrente*", "Kind",   "Kinder",    "enfant*",
                                  "d'enfant*",     "figli*", "completiv*"};
        return words;
    }

    /// A record for each of several people.
    bool put(const Parts& parts) {
        if (parts.size() < 2) {
            return false;
        }
        for (const auto& [person, amount] : parts) {
            const int record = addRecord(*amount, person.name);
            draft_.record(record).birthDate = person.birthDate;
            draft_.record(record).socialSecurityNumber.clear();
            put(record, *amount,
                amount->isProven() || amount->isPart ? Confidence::high : Confidence::medium);
        }
        return true;
    }

    /// How much speaks for a proven amount being what was paid in the year.
    static int weightOf(const PensionAmount& one) {
        const bool isRecognised = one.found.page->isRecognised;
        int weight = one.months == 0 ? 12 : 12 - one.months; // a part of a year before a whole one
        weight += one.isForTax ? 20 : 0;
        weight += findLabel(one.words, wordsFor(gross), isRecognised) ? -1 : 0;
        weight += findLabel(one.words, wordsFor(paid), isRecognised) ? 3 : 0;
        weight += findLabel(one.words, wordsFor(total), isRecognised) ? 2 : 0;
        return weight;
    }

    /// The amount that arithmetic proves: a sum before its parts.
    bool proposeProven() {
        const PensionAmount* best = nullptr;
        bool isDisputed = false;
        for (const PensionAmount& one : amounts_) {
            if (!one.canBePension() || !one.isProven() || one.isPart) {
                continue;
            }
            const bool isOther = best != nullptr && best->found.value() != one.found.value();
            const int ahead = best == nullptr ? 1 : weightOf(one) - weightOf(*best);
            isDisputed = isOther && ahead == 0 ? true : ahead > 0 ? false : isDisputed;
            best = ahead > 0 ? &one : best;
        }
        if (best == nullptr) {
            return false;
        }
        static const std::vector<Concept> whole{paid, total};
        const PensionAmount* more = largerThan(*best, whole);
        best = more != nullptr ? more : best;
        const bool isLess = largerThan(*best, {pension}) != nullptr;
        const bool isSure = !isLess && more == nullptr && saysWhatItIs(*best);
        const bool isDoubtful = isDisputed || (more == nullptr && isLess) || isOfSeveral(*best);
        put(addRecord(*best, {}), *best,
            isDoubtful ? Confidence::low
            : isSure   ? Confidence::high
                       : Confidence::medium);
        return true;
    }

    /// The amount that is said to be taxed, where arithmetic proves none.
    bool proposeForTax() {
        const PensionAmount* only = nullptr;
        for (const PensionAmount& one : amounts_) {
            if (!one.isForTax || !one.canBePension()) {
                continue;
            }
            if (only != nullptr && only->found.value() != one.found.value()) {
                return false;
            }
            only = &one;
        }
        if (only == nullptr) {
            return false;
        }
        put(addRecord(*only, {}), *only, isOfSeveral(*only) ? Confidence::low : Confidence::medium);
        return true;
    }

    /// Of a pension that began within the year the only amount said to be paid.
    bool proposePaid() {
        if (!hasBegun_) {
            return false;
        }
        std::vector<const PensionAmount*> said;
        for (const PensionAmount& one : amounts_) {
            if (one.canBePension() && namesAny(one.words, {paid}, one.found.page->isRecognised)) {
                said.push_back(&one);
            }
        }
        if (said.size() == 1) {
            put(addRecord(*said[0], {}), *said[0],
                isOfSeveral(*said[0]) ? Confidence::low : Confidence::medium);
        }
        return said.size() == 1;
    }

    /// What some months prove may be a part of the year: then a larger amount counts that says
    /// so.
    const PensionAmount* largerThan(const PensionAmount& proven,
                                    const std::vector<Concept>& concepts) const {
        const auto larger = std::ranges::find_if(amounts_, [&](const PensionAmount& one) {
            return one.canBePension() && !one.isProven() && one.found.value() > proven.found.value()
                   && namesAny(one.words, concepts, one.found.page->isRecognised);
        });
        return proven.months == 0 || larger == amounts_.end() ? nullptr : &*larger;
    }

    static bool saysWhatItIs(const PensionAmount& one) {
        static const std::vector<Concept> concepts{pension, paid, total, yearly};
        return one.isForTax || namesAny(one.words, concepts, one.found.page->isRecognised);
    }

    /// Whether an amount may be that of a couple, or hold what an employer got.
    bool isOfSeveral(const PensionAmount& one) const {
        static const Labels couples{"Ehepaar*", "Ehegatten", "époux", "couple", "coniugi"};
        const bool isShared =
            benefit_ == Benefit::allowances && !one.isForTax && namesEmployer(context_.document);
        return isShared || people_.born().size() >= 2 || areSideBySide()
               || findLabel(one.words, couples, one.found.page->isRecognised);
    }

    /// Whether a row names people in cells of their own.
    bool areSideBySide() const {
        return std::ranges::any_of(context_.document.pages, [&](const PageRows& page) {
            return std::ranges::any_of(
                page.rows, [&](const Row& row) { return !people_.inCells(row).empty(); });
        });
    }

    /// The amount whose words are a pension's, where arithmetic proves none.
    bool proposeNamed() {
        const auto ranges = wholeDocument(context_.document);
        auto found = findAmounts(ranges, pensions());
        std::erase_if(found, [&](const FoundAmount& one) {
            return one.value().abs() < 1 || one.value().abs() >= mostFrancs || isRuledOut(one);
        });
        if (found.empty()) {
            return proposeOnly();
        }
        const auto summed = std::ranges::find_if(
            found, [](const FoundAmount& one) { return columnCheck(one).has_value(); });
        FoundAmount chosen = summed == found.end() ? found.back() : *summed;
        bool isDisputed =
            summed == found.end() && std::ranges::any_of(found, [&](const FoundAmount& one) {
                return one.value() != chosen.value();
            });
        if (auto whole = totalBelow(chosen)) { // supplements are part of it
            chosen = std::move(*whole);
            isDisputed = false;
        }
        Evidence evidence = evidenceOf(chosen, pensions(), context_.isKindClear && !isDisputed,
                                       witnessChecks(ranges, pensions(), chosen));
        if (isDisputed) {
            evidence.confidence = Confidence::low;
            evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
        }
        add(addRecord({.found = chosen}, {}), chosen.value().abs(), std::move(evidence));
        return true;
    }

    /// Whether the place of an amount says that it is none of the year's pension.
    bool isRuledOut(const FoundAmount& found) const {
        return std::ranges::any_of(amounts_, [&](const PensionAmount& one) {
            return areSame(one.found, found) && !one.canBePension();
        });
    }

    bool proposeOnly() {
        static const std::vector<Concept> barred{balance, opening, interest,   possible,
                                                 other,   rate,    costSharing};
        const auto only = onlyAmount(wholeDocument(context_.document), barred);
        if (!only || isRuledOut(*only)) {
            return false;
        }
        add(addRecord({.found = *only}, {}), only->value(),
            plainEvidence(*only, context_.isKindClear));
        return true;
    }

    int addRecord(const PensionAmount& one, const std::string& person) {
        std::string title = target_.title;
        if (!context_.facts.issuer.text.empty()) {
            title += ' ' + context_.facts.issuer.text;
        }
        ProposedRecord record =
            recordWith(context_.facts, target_.record, std::move(title), one.found.page->number);
        if (!person.empty()) {
            record.personName = person;
        }
        return draft_.addRecord(std::move(record));
    }

    void put(int record, const PensionAmount& one, Confidence most) {
        FoundAmount found = one.found;
        found.isBelow = false;
        const bool isFirst = found.amount.first == 0;
        found.label = isFirst ? one.words.words.empty() ? std::string() : one.words.words[0].text
                              : textBetween(found.rowOf(), 0, found.amount.first - 1);
        Evidence evidence = evidenceOf(found, pensions(), context_.isKindClear, one.checks);
        const bool isSure = found.page->number != 0 && !found.amount.amount.wasCorrected
                            && found.amount.amount.isFirm()
                            && (!found.page->isRecognised || found.amount.certainty >= 0.6);
        evidence.confidence = most == Confidence::high && isSure
                                  ? Confidence::high
                                  : std::max({evidence.confidence, most, Confidence::medium});
        if (most == Confidence::low) { // the figures hold, but not for whom they are
            evidence.checks.clear();
        }
        if (one.found.isBelow) {
            evidence.reason = "Steht so im Text.";
        }
        add(record, found.value(), std::move(evidence));
    }

    void add(int record, const Decimal& value, Evidence evidence) {
        if (benefit_ == Benefit::allowances && saysGrossTaxed(context_.document)) {
            // What contributions take off is deductible (DBG Art. 33 para. 1 d): the user decides.
            evidence.confidence = std::max(evidence.confidence, Confidence::medium);
            evidence.reason += " Laut Dokument ist der Betrag vor den Abzügen anzugeben; üblich "
                               "ist, was ausbezahlt "
                               "wurde.";
        }
        draft_.add(record, target_.field, value, std::move(evidence));
        if (target_.record == Record::pension) {
            draft_.add(record, "label", context_.facts.issuer.text, issuerEvidence(context_.facts));
        }
    }

    const KindContext& context_;
    ProposalDraft& draft_;
    std::vector<PensionAmount> amounts_;
    People people_;
    const BenefitTarget& target_;
    Benefit benefit_;
    bool hasBegun_ = false; ///< within the year
};

} // namespace

bool proposePensions(const KindContext& context, bool isProvenOnly, ProposalDraft& draft) {
    if (context.document.pages.empty()) {
        return false;
    }
    const BenefitTarget& target = isOfTheState(context.document) ? statePension : fundsPension;
    return BenefitPaper(context, target, Benefit::pension, draft).proposePension(isProvenOnly);
}

bool proposeAllowances(const KindContext& context, ProposalDraft& draft) {
    const auto kind = allowanceOf(context.document);
    return kind
           && BenefitPaper(context,
                           *kind == Allowance::unemployment ? unemployment : dailyAllowances,
                           Benefit::allowances, draft)
                  .proposeAllowances();
}

bool provesPension(const DocumentRows& document) {
    return std::ranges::any_of(pensionAmounts(document), [&](const PensionAmount& one) {
        return one.canBePension() && one.isProven() && isAnyIn(document.folded, wordsFor(pension))
               && (one.months == 0 || namesAny(one.words, {pension}, one.found.page->isRecognised));
    });
}

} // namespace fiscarel
