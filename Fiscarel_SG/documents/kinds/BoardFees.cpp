#include "Fiscarel_SG/documents/kinds/BoardFees.h"

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindEvidence.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

namespace fiscarel {

namespace {

/// The rows of each page up to the first that gives an amount for expenses.
std::vector<RowRange> beforeExpenses(const DocumentRows& document) {
    static const Labels expenses{"*spesen*", "*auslagen*", "Fahrkosten*", "frais",
                                 "débours",  "spese",      "rimbors*",    "expenses"};
    std::vector<RowRange> ranges = wholeDocument(document);
    for (RowRange& range : ranges) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (hasFirmAmount(row) && isAnyIn(row.folded, expenses)) {
                range.end = at;
            }
        }
    }
    return ranges;
}

} // namespace

bool isBoardPaper(const DocumentRows& document) {
    static const Labels fees{"Verwaltungsratshonorar*",
                             "Verwaltungsratsentschädigung*",
                             "Verwaltungsratsvergütung*",
                             "Verwaltungsratsmandat*",
                             "Mitglied des Verwaltungsrat*",
                             "Präsident des Verwaltungsrat*",
                             "Präsidentin des Verwaltungsrat*",
                             "Sitzungsgeld*",
                             "jetons de présence",
                             "honoraires d'administrateur*",
                             "honoraires d'administratrice*",
                             "indemnité d'administrateur",
                             "indemnités d'administrateur*",
                             "mandat d'administrateur",
                             "mandat d'administratrice",
                             "membre du conseil d'administration",
                             "gettoni di presenza",
                             "onorari di amministratore",
                             "onorario di amministratore",
                             "onorario di consigliere",
                             "membro del consiglio di amministrazione",
                             "membro del consiglio d'amministrazione"};
    static const Labels wages{"*lohnausweis*", "Lohnabrechnung*", "certificat de salaire",
                              "fiche de salaire", "certificato di salario"};
    const std::string title = titleWords(document);
    return isAnyIn(title, fees) && !isAnyIn(title, wages);
}

void proposeBoardFees(const KindContext& context, ProposalDraft& draft) {
    using enum Concept;
    static const std::vector<Concept> barred{other, refunded, possible};
    const auto found = provenSum(beforeExpenses(context.document), barred);
    if (!found) {
        return;
    }
    const int record = draft.addRecord(recordWith(context.facts, ProposedRecord::Kind::personIncome,
                                                  "Verwaltungsratshonorar", found->page->number));
    draft.add(record, "boardFees", found->value(), plainEvidence(*found, context.isKindClear));
}

} // namespace fiscarel
