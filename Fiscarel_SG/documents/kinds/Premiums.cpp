#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/RecordsByKind.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;
using enum Concept;

const Wanted& grossPremiums() {
    static const Wanted wanted{
        {"Total Prämien brutto", "Bruttoprämie*", "Prämien brutto", "Total Prämien",
         "Total der Prämien", "Prämien total", "Total primes", "Total des primes", "Totale premi",
         "Totale dei premi", "Bezahlte Prämien", "Primes payées", "Premi pagati", "Prämientotal",
         "Jahresprämie total", "Jahresprämie", "Prime annuelle", "Premio annuo"},
        {"netto", "nettes", "netti", "nach", "Verbilligung*", "net", "zu Ihren Lasten",
         "monatlich*", "Monatsprämie*"},
        true,
        {{premium, total, gross},
         {premium, gross},
         {premium, total},
         {premium, paid},
         {premium, yearly}},
        {net, reduction, costSharing, other, benefit, refunded, basicInsurance, extraInsurance}};
    return wanted;
}
/// A total that does not say of what.
const Wanted& plainTotals() {
    static const Wanted wanted{{"Total", "Totale", "Gesamttotal", "Total général", "Summe"},
                               {"netto", "nettes", "netti", "nach", "net"},
                               false,
                               {{total, amount}, {total}},
                               {net, reduction, costSharing, other, benefit, refunded}};
    return wanted;
}
const Wanted& netPremiums() {
    static const Wanted wanted{{"Total Prämien netto", "Nettoprämie*", "Prämien netto",
                                "Prämien nach Verbilligung", "Netto zu Ihren Lasten", "Total netto",
                                "Primes nettes", "Total net", "Premi netti", "Totale netto",
                                "Netto"},
                               {},
                               true,
                               {{premium, net}},
                               {other}};
    return wanted;
}
const Wanted& reductions() {
    static const Wanted wanted{{"Prämienverbilligung*", "Individuelle Prämienverbilligung", "IPV",
                                "Réduction de prime*", "Réduction des primes",
                                "Riduzione dei premi", "Riduzione individuale*",
                                "Riduzione del premio", "Subside*", "Verbilligung"},
                               {"nach", "après", "dopo", "netto", "nettes", "netti"},
                               true,
                               {{reduction, premium}, {reduction}},
                               {other, costSharing}};
    return wanted;
}
/// Premiums by law.
const std::vector<Wanted>& singlePremiums() {
    static const std::vector<Concept> notMeant{net,     reduction, costSharing, other,
                                               benefit, total,     refunded};
    static const Labels without{"Franchise", "Selbstbehalt", "franchigia", "quote-part"};
    static const std::vector<Wanted> rows{
        {{}, without, false, {{basicInsurance}}, notMeant},
        {{}, without, false, {{extraInsurance}}, notMeant},
        {{},
         without,
         false,
         {{premium}},
         {net, reduction, costSharing, other, benefit, total, refunded, accident, basicInsurance,
          extraInsurance}},
    };
    return rows;
}

/// The premiums by law, one for each row.
std::vector<FoundAmount> findSingles(const std::vector<RowRange>& ranges) {
    std::vector<FoundAmount> singles;
    for (const Wanted& wanted : singlePremiums()) {
        for (FoundAmount& one : findAmounts(ranges, wanted)) {
            const bool isKnown = std::ranges::any_of(singles, [&](const FoundAmount& other) {
                return other.page == one.page && other.row == one.row
                       && other.amount.first == one.amount.first;
            });
            if (!isKnown && one.value() >= 1) {
                singles.push_back(std::move(one));
            }
        }
    }
    return singles;
}

/// Premiums − reduction = net, where all three are printed.
std::vector<ProposalCheck> premiumChecks(const std::vector<RowRange>& ranges,
                                         const FoundAmount& gross) {
    auto checks = witnessChecks(ranges, grossPremiums(), gross);
    const auto reduction = findLast(ranges, reductions());
    const auto net = findLast(ranges, netPremiums());
    if (reduction && net) {
        const Decimal computed = gross.value() - reduction->value().abs();
        const bool holds = computed == net->value();
        checks.push_back({"Prämien − Verbilligung: " + shown(gross.value()) + " − "
                              + shown(reduction->value().abs()) + " = " + shown(computed)
                              + (holds ? "" : ", netto steht aber " + shown(net->value())),
                          holds});
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
            const bool isLarger = largest == nullptr || amount.amount.value > largest->amount.value;
            largest = isLarger ? &amount : largest;
        }
    }
    if (count >= 3 && sum == largest->amount.value * 2) {
        found.amount = *largest;
    }
}

/// Whether an amount "to be borne by you" is a premium: the total, or what remains of it.
bool isPremium(const std::vector<RowRange>& ranges, const Decimal& value) {
    const auto reduction = findLast(ranges, reductions());
    const Decimal taken = reduction ? reduction->value().abs() : Decimal();
    for (const Wanted* wanted : {&grossPremiums(), &plainTotals()}) {
        for (const FoundAmount& gross : findAmounts(ranges, *wanted)) {
            if (gross.value() == value || gross.value() - taken == value) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

void proposePremiums(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    auto gross = findLast(ranges, grossPremiums());
    if (gross) {
        takeWholeOfRow(*gross);
    }
    const auto single = findSingles(ranges);
    Decimal sum;
    for (const FoundAmount& one : single) {
        sum = sum + one.value();
    }
    for (const FoundAmount& one : single) {
        if (single.size() > 2 && one.value() + one.value() == sum) {
            sum = one.value(); // the total of the others, by another word
            break;
        }
    }
    // A total that the reduction is taken off already is not what was to be paid before it.
    const auto reduced = findLast(ranges, reductions());
    const bool isNet =
        gross && reduced && single.size() > 1 && gross->value() + reduced->value().abs() == sum;
    if (gross && gross->value() >= 1 && !isNet) {
        draft.add(records.of(Record::householdDeductions, gross->page->number),
                  "healthInsurancePremiums", gross->value(),
                  evidenceOf(*gross, grossPremiums(), context.isKindClear,
                             premiumChecks(ranges, *gross)));
        return;
    }
    // Without such a total the single premiums are added up.
    for (FoundAmount one : findAmounts(ranges, plainTotals())) {
        takeWholeOfRow(one);
        if (one.value() >= 1 && (single.empty() || one.value() == sum)) {
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
    if (single.size() > 1) {
        evidence.reason = "Summe der einzelnen Prämien.";
        evidence.confidence = Confidence::low;
    }
    draft.add(records.of(Record::householdDeductions, single.back().page->number),
              "healthInsurancePremiums", sum, std::move(evidence));
}

/// What the insured paid themselves is a cost of illness.
void proposeCostSharing(const KindContext& context, ProposalDraft& draft) {
    static const Wanted own{
        {"Total Kostenbeteiligung*", "Nicht erstattete Kosten", "Nicht vergütete Kosten",
         "Frais non remboursés", "Costi non rimborsati", "Spese non rimborsate",
         "Total Kosten zu Ihren Lasten", "Ihre Kostenbeteiligung", "Kostenbeteiligung*",
         "zu Ihren Lasten", "Selbst bezahlt*", "Eigenanteil", "Participation aux coûts",
         "Participation aux frais", "à votre charge", "Partecipazione ai costi", "a suo carico"},
        {"Prämie*", "Primes", "Premi", "Netto*"},
        true,
        {{costSharing, total}, {costSharing}},
        {premium, other}};
    const auto ranges = wholeDocument(context.document);
    auto all = findAmounts(ranges, own);
    std::erase_if(all, [&](const FoundAmount& one) {
        return one.value() < 1 || isPremium(ranges, one.value());
    });
    if (all.empty()) {
        return;
    }
    const auto found = std::optional(all.back());
    std::vector<ProposalCheck> checks;
    if (const auto check = columnCheck(*found)) {
        checks.push_back(*check);
    }
    const int record = draft.addRecord(recordWith(context.facts, Record::medicalCost,
                                                  "Kostenbeteiligung " + context.facts.issuer.text,
                                                  found->page->number));
    draft.record(record).advice = "Was die Kasse nicht vergütet hat. Rechnungen, die darin schon "
                                  "enthalten sind, nicht noch einmal eintragen.";
    Evidence evidence = evidenceOf(*found, own, context.isKindClear, std::move(checks));
    if (evidence.confidence == Confidence::high) {
        evidence.confidence = Confidence::medium; // it may be entered already, bill by bill
    }
    draft.add(record, "gross", found->value(), std::move(evidence));
    draft.add(record, "provider", context.facts.issuer.text,
              {.witness = Witness::position,
               .confidence = Confidence::medium,
               .reason = "Steht oben auf dem Dokument.",
               .page = context.facts.issuer.page,
               .box = context.facts.issuer.box});
}

} // namespace fiscarel
