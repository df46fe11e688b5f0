#include "TaxCore/liechtenstein/Notices.h"

#include "TaxCore/base/MoneyFormat.h"

#include <string>

namespace taxcore::li::notices {

Notice unknownMunicipality() {
    return {.id = "li-gemeinde",
            .level = Notice::Level::error,
            .title = "Gemeinde wählen",
            .message = "Bitte die Wohngemeinde in Liechtenstein wählen – der Gemeindezuschlag "
                       "fehlt."};
}

Notice pensionFundMaximum(const Decimal& maximum) {
    return {.id = "li-pk-max",
            .level = Notice::Level::info,
            .title = "Pensionskasse über 18 %",
            .message = "Abziehbar sind höchstens 18 % des Erwerbs ("
                       + MoneyFormat::chf(maximum, 0, true) + ")."};
}

Notice provisionalSurcharge(int year) {
    return {.id = "li-vorlaeufig",
            .level = Notice::Level::info,
            .title = "Gemeindezuschlag vorläufig",
            .message = "Die Gemeinden legen den Zuschlag für " + std::to_string(year)
                       + " Ende Jahr fest. Bis dahin rechnet Fiscarel mit dem Vorjahr."};
}

} // namespace taxcore::li::notices
