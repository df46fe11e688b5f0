#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"
#include "Fiscarel_SG/documents/kinds/PremiumParts.h"
#include "Fiscarel_SG/documents/kinds/PremiumWords.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/kinds/RecordsByKind.h"
#include "Fiscarel_SG/documents/kinds/StatedPremiums.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;
using enum Concept;

/// Premiums − reduction = net; absent where one of both is not printed.
std::optional<ProposalCheck> reductionCheck(const std::vector<RowRange>& ranges,
                                            const Decimal& gross) {
    const auto reduction = findLast(ranges, reductions());
    const auto net = findLast(ranges, netPremiums());
    return reduction && net
               ? std::optional(reducedCheck(gross, reduction->value().abs(), net->value()))
               : std::nullopt;
}

std::vector<ProposalCheck> premiumChecks(const std::vector<RowRange>& ranges,
                                         const FoundAmount& gross) {
    auto checks = witnessChecks(ranges, grossPremiums(), gross);
    if (auto check = reductionCheck(ranges, gross.value())) {
        checks.push_back(std::move(*check));
    }
    return checks;
}

/// Of a row with the premiums by law and all together the latter: what the others add up to.
void takeWholeOfRow(FoundAmount& found) {
    Decimal sum;
    const RowAmount* largest = nullptr;
    int count = 0;
    for (const RowAmount& amount : found.rowOf().amounts) {
        if (amount.amount.isFirm()) {
            sum = sum + amount.amount.value;
            ++count;
            const bool isLarger =
                largest == nullptr || amount.amount.value.abs() > largest->amount.value.abs();
            largest = isLarger ? &amount : largest;
        }
    }
    if (count >= 3 && sum == largest->amount.value * 2) {
        found.amount = *largest;
    }
}

/// Whether a label is of costs alone, and not of premiums too as "to be borne by you" may be.
bool isOfCosts(const std::string& label) {
    static const Labels words{"*kostenbeteiligung*", "participation aux coûts",
                              "participation aux frais", "partecipazione ai costi"};
    return isAnyIn(foldWords(label), words);
}

/// Whether an amount "to be borne by you" is a premium: the total, or what remains of it.
bool isPremium(const std::vector<RowRange>& ranges, const ScanResult& result,
               const FoundAmount& found) {
    const Decimal value = found.value();
    Decimal premiums;
    Decimal reduced;
    for (const Proposal& one : result.proposals) {
        const Decimal proposed = Decimal::parse(one.value).value_or(Decimal());
        premiums = one.field == "healthInsurancePremiums" ? proposed : premiums;
        reduced = one.field == "premiumReduction" ? proposed : reduced;
    }
    if (value == premiums || value == premiums - reduced) {
        return true;
    }
    const auto reduction = findLast(ranges, reductions());
    const Decimal taken = reduction ? reduction->value().abs() : Decimal();
    for (const Wanted* wanted : {&grossPremiums(), &plainTotals()}) {
        for (const FoundAmount& gross : findAmounts(ranges, *wanted)) {
            const bool isItself = areSame(gross, found) && isOfCosts(found.label);
            if (!isItself && (gross.value() == value || gross.value() - taken == value)) {
                return true;
            }
        }
    }
    return false;
}

bool differ(const std::vector<FoundAmount>& found) {
    return std::ranges::any_of(found, [&](const FoundAmount& one) {
        return one.value().abs() != found.front().value().abs();
    });
}

Decimal sumOf(const std::vector<FoundAmount>& found) {
    Decimal sum;
    for (const FoundAmount& one : found) {
        sum = sum + one.value().abs();
    }
    return sum;
}

/// Where an amount is printed.
std::optional<FoundAmount> printedAt(const std::vector<RowRange>& ranges, const Decimal& value) {
    for (const RowRange& range : ranges) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            for (const RowAmount& amount : row.amounts) {
                if (amount.amount.isFirm() && amount.amount.value == value) {
                    const std::size_t last = amount.first == 0 ? 0 : amount.first - 1;
                    return FoundAmount{.page = range.page,
                                       .row = at,
                                       .amount = amount,
                                       .label = textBetween(row, 0, last)};
                }
            }
        }
    }
    return std::nullopt;
}

ProposalCheck togetherCheck(const Decimal& sum) {
    return {"Die Beträge aller Personen ergeben zusammen " + shown(sum), true};
}

/// The one of several amounts that holds the others: those of each person, or of each and their
/// parts; else the printed sum of all.
std::optional<FoundAmount> wholeOf(const std::vector<RowRange>& ranges,
                                   const std::vector<FoundAmount>& found) {
    const Decimal sum = sumOf(found);
    for (const FoundAmount& one : found) {
        const Decimal value = one.value().abs();
        if (found.size() > 2 && (value * 2 == sum || (found.size() > 4 && value * 3 == sum))) {
            return one;
        }
    }
    return found.size() > 1 ? printedAt(ranges, sum) : std::nullopt;
}

/// The largest of several amounts, where those above it in its column add up to it, or to the same
/// amount elsewhere; of two where the other is one of these.
std::optional<FoundAmount> summedUp(const std::vector<FoundAmount>& found) {
    const auto largest = std::ranges::max_element(found, {}, &FoundAmount::value);
    if (found.size() == 2 && isPartOf(*largest, found[largest == found.begin() ? 1 : 0])) {
        return *largest;
    }
    if (found.size() <= 2) {
        return std::nullopt;
    }
    const PageRows& page = *largest->page;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        for (const RowAmount& amount : page.rows[at].amounts) {
            const bool isSame = amount.amount.isFirm() && amount.amount.value == largest->value();
            if (isSame && columnCheck({.page = &page, .row = at, .amount = amount})) {
                return *largest;
            }
        }
    }
    return std::nullopt;
}

/// The amounts for every wording of what is wanted, each once.
std::vector<FoundAmount> findAll(const std::vector<RowRange>& ranges, const Wanted& wanted) {
    std::vector<FoundAmount> all;
    const auto take = [&](const Wanted& one) {
        for (FoundAmount& found : findAmounts(ranges, one)) {
            const bool isKnown = std::ranges::any_of(
                all, [&](const FoundAmount& other) { return areSame(found, other); });
            if (!isKnown && found.value().abs() >= 1) {
                all.push_back(std::move(found));
            }
        }
    };
    Wanted one = wanted;
    one.meanings.clear();
    for (const Label& label : wanted.labels) {
        one.labels = {label};
        take(one);
    }
    one.labels.clear();
    one.meanings = wanted.meanings;
    take(one);
    return all;
}

/// The last row whose columns are headed reduction and net, where gross − reduction = net: that of
/// all people, if its column adds up.
std::optional<PremiumRow> findPremiumRow(const std::vector<RowRange>& ranges) {
    std::optional<PremiumRow> last;
    for (const RowRange& range : ranges) {
        for (std::size_t at = range.first; range.page->number != 0 && at < range.end; ++at) {
            const auto& amounts = range.page->rows[at].amounts;
            const auto isUnder = [&](const RowAmount& amount, Concept meant) {
                return namesAny(headingOver(*range.page, at, amount), {meant},
                                range.page->isRecognised);
            };
            for (std::size_t i = 0; i + 2 < amounts.size(); ++i) {
                const RowAmount& taken = amounts[i + 1];
                const bool isRow = amounts[i].amount.value - taken.amount.value.abs()
                                       == amounts[i + 2].amount.value
                                   && taken.amount.isFirm() && isUnder(taken, reduction)
                                   && isUnder(amounts[i + 2], net);
                if (isRow) {
                    const FoundAmount whole{
                        .page = range.page, .row = at, .amount = amounts[i], .label = "Brutto"};
                    FoundAmount part = whole;
                    part.amount = taken;
                    part.label = "Verbilligung";
                    last = PremiumRow{whole, part, {}};
                    last->checks.push_back(reducedCheck(whole.value(), part.value().abs(),
                                                        amounts[i + 2].amount.value));
                }
            }
        }
    }
    return last;
}

/// What was taken off the premiums: of all people together.
void proposeReduction(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    auto found = findAmounts(ranges, reductions());
    std::erase_if(found, [](const FoundAmount& one) { return one.value().abs() < 1; });
    if (auto card = found.empty() ? reductionInCard(ranges) : std::nullopt) {
        found.push_back(std::move(*card));
    }
    if (found.empty()) {
        return;
    }
    FoundAmount chosen = found.back();
    const auto all = findAll(ranges, reductions());
    const auto whole = differ(all) ? wholeOf(ranges, all) : std::nullopt;
    const auto summed = std::ranges::find_if(
        found, [](const FoundAmount& one) { return columnCheck(one).has_value(); });
    const bool isDisputed = !whole && summed == found.end() && differ(found);
    chosen = whole ? *whole : summed != found.end() ? *summed : chosen;
    takeWholeOfRow(chosen);
    auto checks = witnessChecks(ranges, reductions(), chosen);
    if (whole) {
        checks.push_back(togetherCheck(chosen.value().abs()));
    }
    Evidence evidence =
        evidenceOf(chosen, reductions(), context.isKindClear && !isDisputed, std::move(checks));
    if (isDisputed) {
        evidence.confidence = Confidence::low;
        evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
    }
    draft.add(records.of(Record::householdDeductions, chosen.page->number), "premiumReduction",
              chosen.value().abs(), std::move(evidence));
}

/// Proposes from a table with premium, reduction and net as columns, or from sentences that tell
/// as much.
bool proposeProven(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    auto row = findPremiumRow(ranges);
    row = row ? std::move(row) : findStatedPremiums(ranges);
    if (!row) {
        return false;
    }
    const int record = records.of(Record::householdDeductions, row->gross.page->number);
    draft.add(record, "healthInsurancePremiums", row->gross.value(),
              evidenceOf(row->gross, grossPremiums(), context.isKindClear, row->checks));
    if (!row->reduction) {
        proposeReduction(context, records, draft);
    } else if (row->reduction->value().abs() >= 1) {
        draft.add(record, "premiumReduction", row->reduction->value().abs(),
                  evidenceOf(*row->reduction, reductions(), context.isKindClear, row->checks));
    }
    return true;
}

/// The amount above a reduction that less it is the total below it: what the premiums were before.
std::optional<FoundAmount> beforeReduction(const FoundAmount& total,
                                           const std::optional<FoundAmount>& reduced) {
    const bool isBetween = reduced && reduced->page == total.page && reduced->row < total.row
                           && reduced->value().abs() >= 1;
    if (!isBetween) {
        return std::nullopt;
    }
    return printedAt({{total.page, 0, reduced->row}}, total.value() + reduced->value().abs());
}

/// A total of the premiums by its words; false where there is none.
bool proposeTotal(const KindContext& context, RecordsByKind& records, ProposalDraft& draft,
                  const std::vector<FoundAmount>& single, const Decimal& sum) {
    const auto ranges = wholeDocument(context.document);
    auto totals = findAmounts(ranges, grossPremiums());
    std::erase_if(totals, [](const FoundAmount& one) { return one.value() < 1; });
    if (totals.empty()) {
        return false;
    }
    FoundAmount gross = totals.back();
    takeWholeOfRow(gross);
    const bool areSeveral = differ(totals) && !single.empty();
    const auto whole = differ(totals) ? wholeOf(ranges, totals) : std::nullopt;
    gross = whole ? *whole : gross;
    // A total that the reduction is taken off already is not what was to be paid before it.
    const auto reduced = findLast(ranges, reductions());
    if (reduced && single.size() > 1 && gross.value() + reduced->value().abs() == sum) {
        return false;
    }
    if (auto before = beforeReduction(gross, reduced)) {
        gross = std::move(*before);
    }
    auto checks = premiumChecks(ranges, gross);
    if (whole) {
        checks.push_back(togetherCheck(gross.value()));
    }
    Evidence evidence = evidenceOf(gross, grossPremiums(), context.isKindClear, std::move(checks));
    if (areSeveral && !whole) {
        evidence.confidence = Confidence::low;
        evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
    }
    draft.add(records.of(Record::householdDeductions, gross.page->number),
              "healthInsurancePremiums", gross.value(), std::move(evidence));
    return true;
}

/// What the premiums of a sentence come to: "1'288.20 per l'assicurazione obbligatoria e 820.55 per
/// le complementari, in totale 2'108.75".
std::optional<SummedAmount> wholeInProse(const std::vector<RowRange>& ranges,
                                         const std::vector<FoundAmount>& single) {
    constexpr std::size_t farthest = 3; // rows from a part to the sum
    const bool isTold = !single.empty() && single.front().isBelow;
    auto sum = isTold ? sumInProse(ranges, grossPremiums()) : std::nullopt;
    const bool isOfThese = sum && sum->found.page == single.front().page
                           && sum->found.row >= single.front().row
                           && sum->found.row - single.front().row <= farthest
                           && sum->found.value() > single.front().value();
    return isOfThese ? std::move(sum) : std::nullopt;
}

/// Whether the heading over an amount says that it is of treatments.
bool isOfTreatments(const FoundAmount& found) {
    const Row heading = headingOver(*found.page, found.row, found.amount);
    return found.page->number != 0
           && namesAny(heading, {invoice, benefit, refunded, costSharing, medical},
                       found.page->isRecognised);
}

/// The premiums before what is taken off.
void proposeGross(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    const auto single = singlePremiumsIn(ranges);
    if (const auto told = wholeInProse(ranges, single)) {
        Evidence evidence =
            evidenceOf(told->found, grossPremiums(), context.isKindClear, {*told->check});
        // A letter may tell what was billed after a reduction.
        evidence.confidence = std::max(evidence.confidence, Confidence::medium);
        draft.add(records.of(Record::householdDeductions, told->found.page->number),
                  "healthInsurancePremiums", told->found.value(), std::move(evidence));
        return;
    }
    Decimal sum = sumOf(single);
    auto whole = single.size() > 2 ? wholeOf(ranges, single) : std::nullopt;
    whole = whole ? std::move(whole) : summedUp(single);
    const bool isAmong = whole && std::ranges::any_of(single, [&](const FoundAmount& one) {
                             return areSame(one, *whole);
                         });
    sum = isAmong ? whole->value() : sum; // the total of the others, by another word
    if (proposeTotal(context, records, draft, single, sum)) {
        return;
    }
    // Without such a total the single premiums are added up.
    const auto all = withUnnamed(single);
    sum = isAmong ? sum : sumOf(all);
    for (FoundAmount one : findAmounts(ranges, plainTotals())) {
        takeWholeOfRow(one);
        if (one.value() >= 1
            && (single.empty() ? !isOfTreatments(one)
                               : one.value() == sum || one.value() == sumOf(single))) {
            draft.add(
                records.of(Record::householdDeductions, one.page->number),
                "healthInsurancePremiums", one.value(),
                evidenceOf(one, plainTotals(), context.isKindClear, premiumChecks(ranges, one)));
            return;
        }
    }
    if (single.empty()) {
        return;
    }
    Evidence evidence = evidenceOf(single.back(), singlePremiums().back(), context.isKindClear);
    if (whole) {
        const auto column = columnCheck(*whole);
        evidence = evidenceOf(*whole, singlePremiums().back(), context.isKindClear,
                              {column ? *column : togetherCheck(whole->value())});
    } else if (all.size() > 1) {
        evidence.reason = "Summe der einzelnen Prämien.";
        evidence.confidence = Confidence::low;
        if (auto check = reductionCheck(ranges, sum); check && check->passed) {
            evidence.checks.push_back(std::move(*check));
            evidence.confidence = Confidence::medium;
        } else if (printedAt(ranges, sum)) {
            evidence.checks.push_back(
                {"Diese Summe steht auch auf dem Dokument: " + shown(sum), true});
            evidence.confidence = Confidence::medium;
        }
    }
    draft.add(records.of(Record::householdDeductions, single.back().page->number),
              "healthInsurancePremiums", sum, std::move(evidence));
}

/// What somebody bore of the costs; without a name it is of all.
void proposeBorne(const KindContext& context, const FoundAmount& found, const NamedPerson* person,
                  ProposalDraft& draft) {
    std::vector<ProposalCheck> checks;
    if (const auto check = columnCheck(found)) {
        checks.push_back(*check);
    }
    ProposedRecord own =
        recordWith(context.facts, Record::medicalCost,
                   "Kostenbeteiligung " + context.facts.issuer.text, found.page->number);
    if (person != nullptr) {
        own.personName = person->name;
        own.birthDate = person->birthDate;
        own.socialSecurityNumber.clear();
    }
    own.advice = "Was die Kasse nicht vergütet hat. Rechnungen, die darin schon enthalten sind, "
                 "nicht noch einmal eintragen.";
    const int record = draft.addRecord(std::move(own));
    Evidence evidence = evidenceOf(found, costSharings(), context.isKindClear, std::move(checks));
    // It may be entered already, bill by bill.
    evidence.confidence = std::max(evidence.confidence, Confidence::medium);
    draft.add(record, "gross", found.value(), std::move(evidence));
    draft.add(record, "provider", context.facts.issuer.text, issuerEvidence(context.facts));
}

/// Whether the amounts that follow one in a sentence, up to another or its end, are its parts: "mit
/// Fr. 862.15 (Franchise Fr. 300.00, Selbstbehalt Fr. 562.15)".
bool isWholeOfFollowing(const FoundAmount& one, const FoundAmount* next) {
    constexpr std::size_t most = 4; // rows of a sentence
    Decimal sum;
    const auto& rows = one.page->rows;
    for (std::size_t at = one.row; at < std::min(rows.size(), one.row + most); ++at) {
        const Row& row = rows[at];
        for (std::size_t i = at == one.row ? one.amount.last + 1 : 0; i < row.words.size(); ++i) {
            const auto amount = std::ranges::find(row.amounts, i, &RowAmount::first);
            const bool isAmount = amount != row.amounts.end() && isWorthy(*amount);
            if (isAmount && next != nullptr && next->row == at && next->amount.first == i) {
                return sum.isZero() || sum == one.value();
            }
            sum = isAmount ? sum + amount->amount.value : sum;
            if (next == nullptr && endsSentence(row, i)) {
                return sum.isZero() || sum == one.value();
            }
        }
    }
    return sum.isZero() || sum == one.value();
}

bool areWhole(const std::vector<PersonAmount>& parts) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const FoundAmount* next = i + 1 < parts.size() ? &parts[i + 1].found : nullptr;
        if (!isWholeOfFollowing(parts[i].found, next)) {
            return false;
        }
    }
    return true;
}

/// What a sentence tells each of several people to have borne; none where it is of premiums too.
std::vector<PersonAmount> toldOfPeople(const DocumentRows& document) {
    auto parts = findPeopleInProse(document, costSharings());
    const bool areOfPremiums = std::ranges::any_of(parts, [](const PersonAmount& part) {
        return namesAny(part.found.rowOf(), {premium}, part.found.page->isRecognised);
    });
    return areOfPremiums ? std::vector<PersonAmount>() : parts;
}

} // namespace

void proposePremiums(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    if (!proposeProven(context, records, draft)) {
        proposeGross(context, records, draft);
        proposeReduction(context, records, draft);
    }
}

/// What the insured paid themselves is a cost of illness.
void proposeCostSharing(const KindContext& context, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    auto all = findAmounts(ranges, costSharings());
    std::erase_if(all, [&](const FoundAmount& one) {
        return one.value() < 1 || isPremium(ranges, draft.result(), one);
    });
    auto parts = amountsOfPeople(context.document, all);
    if (parts.empty()) {
        parts = toldOfPeople(context.document);
        if (!areWhole(parts)) {
            return; // what each bore is told in parts
        }
    }
    for (const PersonAmount& part : parts) {
        proposeBorne(context, part.found, &part.person, draft);
    }
    if (parts.empty() && !all.empty()) {
        proposeBorne(context, all.back(), nullptr, draft);
    }
}

} // namespace fiscarel
