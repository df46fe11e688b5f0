#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WorkCards.h"

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

FieldsCard parts::needsSalaryCard(int number) {
    return {.title = "Berufskosten",
            .help = "Berufskosten sind nur bei unselbständiger Erwerbstätigkeit abziehbar. "
                    "Erfassen Sie zuerst den Lohnausweis unter «Einkommen».",
            .shown = [number](const TaxCase& taxCase) {
                return incomeOf(taxCase, number).salaries.empty();
            }};
}

Page workPage(const PageContext& context) {
    const auto cards = [&](int number) {
        return parts::isLiechtenstein(context)
                   ? parts::workCardsLiechtenstein(context.liechtenstein, number)
                   : parts::workCardsStGallen(context.stGallen, number);
    };
    return {.id = "work",
            .title = "Berufskosten",
            .help = parts::isLiechtenstein(context)
                        ? "Arbeitsweg und Verpflegung; daneben steht, was davon zählt."
                        : "Was der Beruf kostet; daneben steht, was davon bei Kanton und Bund "
                          "zählt.",
            .sections = {parts::personSection(1, cards(1)), parts::personSection(2, cards(2))}};
}

} // namespace fiscarel::pages
