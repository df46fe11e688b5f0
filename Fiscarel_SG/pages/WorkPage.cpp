#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WorkCards.h"

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

std::string mostDaysText(int most) {
    constexpr int percent = 60; // an example: three days of five
    return "Höchstens " + std::to_string(most) + " Tage. Das gilt bei vollem Pensum; bei "
           + std::to_string(percent) + "% sind es " + std::to_string(most * percent / 100) + ".";
}

FieldsCard needsSalaryCard(int number) {
    return {.title = "Berufskosten",
            .help = "Berufskosten sind nur bei unselbständiger Erwerbstätigkeit abziehbar. "
                    "Erfassen Sie zuerst den Lohnausweis unter «Einkommen».",
            .shown = [number](const TaxCase& taxCase) { return !hasSalary(taxCase, number); }};
}

Page workPage(const PageContext& context) {
    const auto cards = [&](int number) {
        return isLiechtenstein(context) ? workCardsLiechtenstein(context.liechtenstein, number)
                                        : workCardsStGallen(context.stGallen, number);
    };
    return {.id = "work",
            .title = "Berufskosten",
            .help = isLiechtenstein(context)
                        ? "Arbeitsweg und Verpflegung; daneben steht, was davon zählt."
                        : "Was der Beruf kostet; daneben steht, was davon bei Kanton und Bund "
                          "zählt.",
            .sections = {personSection(1, cards(1)), personSection(2, cards(2))}};
}

} // namespace fiscarel::pages
