#include "Fiscarel_SG/documents/kinds/AssetCosts.h"

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// Whether a row states what managing or keeping securities cost, and that it may be deducted.
bool statesCosts(const PageRows& page, const Row& row) {
    static const Labels costs{
        "*vermögensverwaltung*", "Depotgebühr*",         "Depotkosten",
        "Depotspesen",           "Depotführung*",        "*verwahrung*",
        "Verwaltungskosten",     "Verwaltungsgebühr*",   "Verwaltungshonorar*",
        "frais de garde",        "droits de garde",      "frais de dépôt",
        "frais de gestion",      "gestion de fortune",   "diritti di custodia",
        "spese di deposito",     "spese di custodia",    "spese di gestione",
        "costi di gestione",     "gestione patrimoniale"};
    static const Labels denials{"nicht", "non", "pas", "kein*", "ne sont"};
    return hasFirmAmount(row) && isAnyIn(row.folded, costs) && !isAnyIn(row.folded, denials)
           && namesAny(row, {Concept::deductible}, page.isRecognised)
           && !isProse(row, page.isRecognised);
}

} // namespace

void proposeAssetCosts(const KindContext& context, ProposalDraft& draft) {
    std::optional<FoundAmount> costs;
    for (const PageRows& page : context.document.pages) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            if (!statesCosts(page, row)) {
                continue;
            }
            if (row.amounts.size() != 1 || row.amounts[0].first == 0
                || (costs && costs->value() != row.amounts[0].amount.value)) {
                return; // several, of which none is all
            }
            costs = FoundAmount{.page = &page,
                                .row = at,
                                .amount = row.amounts[0],
                                .label = textBetween(row, 0, row.amounts[0].first - 1)};
        }
    }
    if (!costs || costs->value() <= 0) {
        return;
    }
    const int record = draft.addRecord(
        recordWith(context.facts, ProposedRecord::Kind::householdDeductions,
                   "Vermögensverwaltung " + context.facts.issuer.text, costs->page->number));
    draft.record(record).advice = "Abziehbar sind nur Kosten der Verwahrung und Verwaltung; ein "
                                  "eingetragener Betrag ersetzt die Pauschale.";
    static const Wanted specific{{}, {}, true};
    draft.add(record, "actualAssetManagementCosts", costs->value(),
              evidenceOf(*costs, specific, context.isKindClear));
}

} // namespace fiscarel
