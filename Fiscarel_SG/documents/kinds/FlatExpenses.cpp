#include "Fiscarel_SG/documents/kinds/FlatExpenses.h"

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"

#include <algorithm>

namespace fiscarel {

void readFlatExpenses(const DocumentRows& document, SalaryForm& form) {
    if (!isProven(form)) {
        return;
    }
    // What expenses alone are called may be effective ones.
    static const Wanted expenses{
        {"Pauschalspesen*", "Spesenpauschale*", "Pauschale Spesen*", "Repräsentationspauschale*",
         "Autopauschale*", "frais forfaitaires", "forfait de frais", "forfait pour frais",
         "forfait de représentation", "indemnité forfaitaire*", "spese forfettarie",
         "spese forfetarie", "forfait spese", "forfait per spese", "indennità forfettaria"},
        {"effekti*", "effecti*", "effettiv*", "pro Monat", "par mois", "al mese", "monatlich*",
         "mensuel*", "mensil*"}};
    const auto found = findAmounts(wholeDocument(document), expenses, Digits::firm);
    const bool isOne = !found.empty() && std::ranges::all_of(found, [&](const FoundAmount& one) {
        return one.value() == found.front().value();
    });
    // What is paid out with the last wage may be of its month alone.
    const bool isPaidOut = isOne
                           && findPrinted(document, form.value(SalaryBox::net).value_or(Decimal())
                                                        + found.front().value());
    const bool isOwn = isOne && !isPaidOut && found.front().value() >= 1
                       && found.front().value() < form.value(SalaryBox::gross).value_or(Decimal());
    if (isOwn && !form.boxes.contains(SalaryBox::otherFlat)) {
        form.boxes[SalaryBox::otherFlat] = found.front().amount;
        if (found.front().page != form.page) {
            form.elsewhere[SalaryBox::otherFlat] = found.front().page;
        }
    }
}

} // namespace fiscarel
