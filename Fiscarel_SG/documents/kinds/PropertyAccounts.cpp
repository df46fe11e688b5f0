#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/ColumnTotal.h"
#include "Fiscarel_SG/documents/kinds/PaymentList.h"
#include "Fiscarel_SG/documents/kinds/Property.h"
#include "Fiscarel_SG/documents/kinds/RecordsByKind.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;

namespace {

using Record = ProposedRecord::Kind;
using enum Concept;

/// What tenants paid, without what they pay towards heating and the like.
const Wanted& rents() {
    static const Wanted wanted{
        {},
        {"Nebenkosten*", "NK",         "akonto",    "Akonto*",      "acompte*",
         "acconti",      "acconto",    "Garantie*", "Kaution*",     "*depot",
         "dépôt",        "deposito",   "garanzia",  "cauzione",     "impayé*",
         "ausstehend*",  "Rückstand*", "Leerstand", "arretrat*",    "Vorjahr*",
         "brutto*",      "bruts",      "lordi",     "Mieterschaft", "locataire"},
        true,
        {{rent, net}, {rent, paid}, {rent, total}, {rent, yearly}, {rent}},
        {other, rentalValue, upkeep}};
    return wanted;
}

/// Upkeep that a paper says may be deducted.
const Wanted& deductibleUpkeep() {
    static const Wanted wanted{
        {},
        {"nicht", "non", "wertvermehrend*", "plus-value", "Vorjahr*", "Eigenmietwert*"},
        true,
        {{upkeep, deductible}, {deductible}},
        {other, rentalValue}};
    return wanted;
}

/// Upkeep, where nothing is said of deducting.
const Wanted& plainUpkeep() {
    static const Wanted wanted{{},
                               {"nicht", "non", "wertvermehrend*", "plus-value", "Vorjahr*"},
                               true,
                               {{upkeep, total}, {upkeep}},
                               {other, rentalValue, rent}};
    return wanted;
}

/// Hides what a rent is told to be without: "ohne Nebenkosten", "hors charges".
DocumentRows withoutExclusions(DocumentRows document) {
    static const Labels excluded{
        "ohne Nebenkosten*", "ohne NK",       "exkl Nebenkosten*", "exklusive Nebenkosten*",
        "exkl NK",           "exklusive NK",  "ohne Akonto*",      "hors charges",
        "sans charges",      "sans acomptes", "sans les charges",  "charges non comprises",
        "senza spese",       "senza acconti", "senza le spese",    "escluse le spese",
        "spese escluse"};
    for (PageRows& page : document.pages) {
        for (Row& row : page.rows) {
            const auto place = findLabel(row, excluded, page.isRecognised);
            for (std::size_t i = place ? place->first : 1; place && i <= place->last; ++i) {
                row.words[i].folded.clear();
            }
        }
    }
    return document;
}

/// The amount of a column's total, else the one beside words; of several that differ what they come
/// to, where that is printed.
std::optional<FoundAmount> findOne(const DocumentRows& document, const Wanted& wanted) {
    if (auto total = columnTotal(document, wanted)) {
        return total;
    }
    std::vector<FoundAmount> found;
    for (SummedAmount& whole :
         wholesOf(document, findAmounts(wholeDocument(document), wanted, Digits::firm))) {
        found.push_back(std::move(whole.found));
    }
    const bool isOne = std::ranges::all_of(
        found, [&](const FoundAmount& one) { return one.value() == found.front().value(); });
    if (found.empty() || isOne) {
        return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
    }
    Decimal sum;
    for (const FoundAmount& one : found) {
        sum = sum + one.value();
    }
    return foundPrinted(document, sum);
}

void proposeAmount(const KindContext& context, const FoundAmount& found, const char* field,
                   const Wanted& wanted, RecordsByKind& records, ProposalDraft& draft) {
    std::vector<ProposalCheck> checks;
    if (auto check = columnCheck(found)) {
        checks.push_back(std::move(*check));
    }
    Evidence evidence = evidenceOf(found, wanted, context.isKindClear, std::move(checks));
    draft.add(records.of(Record::realEstate, found.page->number), field, found.value().abs(),
              std::move(evidence));
}

} // namespace

bool hasDeductibleColumn(const DocumentRows& document) {
    return columnTotal(document, deductibleUpkeep()).has_value();
}

bool tellsDeductibleUpkeep(const DocumentRows& document) {
    return findOne(document, deductibleUpkeep()).has_value();
}

bool proposeManagement(const KindContext& context, ProposalDraft& draft) {
    const DocumentRows document = withoutExclusions(context.document);
    const auto rent = findOne(document, rents());
    auto cost = findOne(document, deductibleUpkeep());
    const Wanted& wanted = cost ? deductibleUpkeep() : plainUpkeep();
    if (!cost && rent) {
        cost = findOne(document, plainUpkeep());
    }
    RecordsByKind records(context, draft);
    if (rent) {
        proposeAmount(context, *rent, "rentalIncome", rents(), records, draft);
    }
    if (cost) {
        proposeAmount(context, *cost, "actualMaintenanceCosts", wanted, records, draft);
    }
    if (const auto property = records.existing(Record::realEstate)) {
        nameProperty(document, *property, draft);
    }
    return rent || cost;
}

} // namespace fiscarel
