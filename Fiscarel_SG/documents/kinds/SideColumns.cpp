#include "Fiscarel_SG/documents/kinds/SideColumns.h"

#include "Fiscarel_SG/documents/kinds/AccountRows.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// Whether rows below a heading tell the interest of accounts that stand above them with their
/// numbers: "Conto risparmio  CH12...  47'480.25", "interessi creditori lordi  243.65". A course
/// of one account does not.
bool tellsInterestBelow(const PageRows& page, std::size_t heading) {
    constexpr std::size_t rows = 16;
    std::size_t accounts = 0;
    std::size_t interests = 0;
    for (std::size_t at = heading + 1; at < std::min(page.rows.size(), heading + rows); ++at) {
        const Row& row = page.rows[at];
        if (row.words.empty() || !hasFirmAmount(row)) {
            continue;
        }
        const bool isOfInterest =
            namesAny(row, {Concept::interest, Concept::debtInterest}, page.isRecognised);
        const bool hasOwn = hasNumber(row) && !isOfInterest;
        const bool isBalance =
            !hasOwn && accounts == 0
            && namesAny(row, {Concept::balance, Concept::withholding}, page.isRecognised);
        if (namesAny(row, {Concept::opening}, page.isRecognised) || parseDay(row.words[0].text)
            || isBalance) {
            return false;
        }
        accounts += hasOwn ? 1U : 0U;
        interests += isOfInterest && accounts > 0 ? 1U : 0U;
    }
    return interests > 0;
}

} // namespace

void addSides(const PageRows& page, AccountHeading& heading) {
    using enum Figure;
    static const Labels kept{"Aktiva",
                             "Aktiven",
                             "actif",
                             "actifs",
                             "attivo",
                             "attivi",
                             "crédit",
                             "credito",
                             "Haben",
                             "Guthaben",
                             "Vermögen",
                             "avoir",
                             "avoirs",
                             "avere",
                             "averi",
                             "zu Ihren Gunsten",
                             "suo favore",
                             "en votre faveur",
                             "favore del cliente"};
    static const Labels owed{"Passiva",
                             "Passiven",
                             "passif",
                             "passifs",
                             "passivo",
                             "passivi",
                             "débit",
                             "debito",
                             "Soll",
                             "Schuld*",
                             "Verbindlichkeit*",
                             "doit",
                             "dette",
                             "dettes",
                             "dare",
                             "debiti",
                             "suo carico",
                             "en notre faveur",
                             "zu unseren Gunsten",
                             "favore della banca"};
    std::optional<std::size_t> credit;
    std::optional<std::size_t> debit;
    bool hasInterest = heading.count() < 2 && heading.figures.size() >= 2
                       && tellsInterestBelow(page, heading.row());
    bool hasBalance = false;
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        const Row& cell = heading.table.columns[i].cell;
        const auto& figure = heading.figures[i];
        const bool isOfInterest = isAnyIn(cell.folded, wordsFor(Concept::interest))
                                  || figure == interest || figure == debtInterest;
        hasInterest |= isOfInterest;
        if (isOfInterest || cell.words.size() > 6) {
            continue;
        }
        if (isAnyIn(cell.folded, kept)) {
            credit = i;
        } else if (isAnyIn(cell.folded, owed)) {
            debit = i;
        } else {
            hasBalance |= figure == balance || figure == debt;
        }
    }
    if (credit && debit && hasInterest && !hasBalance) {
        heading.figures[*credit] = balance;
        heading.figures[*debit] = debt;
    }
}

} // namespace fiscarel
