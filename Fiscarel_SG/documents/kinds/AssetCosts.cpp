#include "Fiscarel_SG/documents/kinds/AssetCosts.h"

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace fiscarel {

namespace {

enum class Told { nothing, costs, deductible };

/// Whether a row states what managing or keeping securities cost, and that it may be deducted.
Told costsIn(const PageRows& page, const Row& row) {
    static const Labels costs{"*vermögensverwaltung*",
                              "Depotgebühr*",
                              "Depotkosten",
                              "Depotspesen",
                              "Depotführung*",
                              "*verwahrung*",
                              "Verwaltungskosten",
                              "Verwaltungsgebühr*",
                              "Verwaltungshonorar*",
                              "frais de garde",
                              "droits de garde",
                              "frais de dépôt",
                              "frais de gestion",
                              "gestion de fortune",
                              "diritti di custodia",
                              "spese di deposito",
                              "spese di custodia",
                              "spese di gestione",
                              "costi di gestione",
                              "gestione patrimoniale",
                              "amministrazione del deposito",
                              "amministrazione titoli",
                              "administration du dépôt",
                              "administration des titres"};
    static const Labels denials{"nicht", "non", "pas", "kein*", "ne sont"};
    static const Labels others{"*konto",    "*kontoführung*", "compte",    "comptes", "conto",
                               "conti",     "*karte*",        "carte*",    "carta",   "*courtage*",
                               "courtages", "Liegenschaft*",  "immeuble*", "stabile"};
    if (!hasFirmAmount(row) || !isAnyIn(row.folded, costs) || isAnyIn(row.folded, denials)
        || isProse(row, page.isRecognised)) {
        return Told::nothing;
    }
    if (namesAny(row, {Concept::deductible}, page.isRecognised)) {
        return Told::deductible;
    }
    // "Vermögensverwaltungsmandat, Wert 31.12.   250'000.00" is what is kept, not what it costs.
    static const Labels expenses{"*gebühr*",  "*kosten*", "*spesen*", "*honorar*",
                                 "*entgelt*", "frais",    "droits",   "honorair*",
                                 "spese",     "diritti",  "costi",    "onorari*"};
    static const Labels kept{"Wert*",   "*wert",  "*werte", "Bestand*", "Guthaben",
                             "valeur*", "valore", "avoir",  "averi",    "value"};
    return isAnyIn(row.folded, others) || isAnyIn(row.folded, kept)
                   || !isAnyIn(row.folded, expenses)
               ? Told::nothing
               : Told::costs;
}

/// The rows that state such costs; where some say that they may be deducted, these alone.
std::vector<FoundAmount> allCosts(const DocumentRows& document) {
    std::vector<FoundAmount> plain;
    std::vector<FoundAmount> deductible;
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const Told told = costsIn(page, row);
            if (told == Told::nothing) {
                continue;
            }
            const auto isFirm = [](const RowAmount& one) { return one.amount.isFirm(); };
            const auto amount = std::ranges::find_if(row.amounts, isFirm);
            if (std::ranges::count_if(row.amounts, isFirm) != 1 || amount->first == 0) {
                return {};
            }
            (told == Told::deductible ? deductible : plain)
                .push_back({.page = &page,
                            .row = at,
                            .amount = *amount,
                            .label = textBetween(row, 0, amount->first - 1)});
        }
    }
    return deductible.empty() ? plain : deductible;
}

/// Whether each is told to be of a part of the year.
bool areOfPeriods(const std::vector<FoundAmount>& costs) {
    static const Labels periods{"*Quartal*", "*Halbjahr*", "*semester", "*semestre", "trimestre"};
    return std::ranges::all_of(
        costs, [](const FoundAmount& one) { return isAnyIn(one.rowOf().folded, periods); });
}

/// What they come to: the one that all others add up to or that is named the total, else their sum,
/// where they stand in one column; absent where of several none is all.
std::optional<FoundAmount> wholeOf(const std::vector<FoundAmount>& costs, std::string& sumOfAll) {
    if (costs.empty()) {
        return std::nullopt;
    }
    Decimal sum;
    std::vector<Decimal> values;
    bool isColumn = true;
    for (const FoundAmount& one : costs) {
        sum = sum + one.value();
        values.push_back(one.value());
        isColumn = isColumn && one.page == costs.front().page && one.value() > 0
                   && std::abs(one.amount.place.right - costs.front().amount.place.right)
                          <= alignment(*one.page);
    }
    const bool areTold = costs.size() == 2 && costs[0].value() == costs[1].value(); // twice
    if (costs.size() == 1 || (areTold && !areOfPeriods(costs))) {
        return costs.front();
    }
    const auto whole = std::ranges::max_element(costs, {}, &FoundAmount::value);
    const bool isTotal = isAnyIn(whole->rowOf().folded, wordsFor(Concept::total));
    if ((whole->value() * 2 == sum && !areTold) || isTotal || columnCheck(*whole)) {
        return *whole;
    }
    if (!isColumn) {
        return std::nullopt;
    }
    FoundAmount all = costs.front();
    all.amount.amount.value = sum;
    sumOfAll = togetherText(values, sum);
    return all;
}

} // namespace

bool statesAssetCosts(const PageRows& page, const Row& row) {
    return costsIn(page, row) != Told::nothing;
}

void proposeAssetCosts(const KindContext& context, ProposalDraft& draft) {
    std::string sumOfAll;
    const auto costs = wholeOf(allCosts(context.document), sumOfAll);
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
    if (!sumOfAll.empty()) { // says how, but proves nothing
        draft.result().proposals.back().reason += " " + sumOfAll + ".";
    }
}

} // namespace fiscarel
