#include "TaxCore/stgallen/Notices.h"

#include "TaxCore/base/MoneyFormat.h"

#include <string>

namespace taxcore::notices {

namespace {

std::string withCurrency(const Decimal& amount) { return MoneyFormat::chf(amount, 0, true); }
std::string perPerson(std::string_view id, int person) {
    return std::string(id) + std::to_string(person);
}

} // namespace

Notice imputedRentFederal() {
    return {.id = "eigenmietwert-bund",
            .level = Notice::Level::info,
            .title = "Eigenmietwert Bundessteuer",
            .message = "Die Berechnung verwendet für die Bundessteuer denselben Eigenmietwert wie "
                       "für den Kanton. Die Veranlagungsbehörde nimmt allfällige Anpassungen von "
                       "Amtes wegen vor.",
            .area = "wealth"};
}

Notice debtInterestLimit(const Decimal& limit, const Decimal& allowance) {
    return {.id = "schuldzinsen-limit",
            .level = Notice::Level::warning,
            .title = "Schuldzinsen begrenzt",
            .message = "Private Schuldzinsen sind nur bis zum Vermögensertrag plus "
                       + MoneyFormat::fr(allowance) + " abziehbar. Abgezogen werden "
                       + withCurrency(limit) + ".",
            .area = "wealth"};
}

Notice pillar3aWithoutEarnings(int person) {
    return {.id = perPerson("3a-ohne-erwerb-", person),
            .level = Notice::Level::warning,
            .title = "Säule 3a ohne Erwerbseinkommen",
            .message = "Beiträge an die Säule 3a sind nur mit AHV-pflichtigem Erwerbseinkommen "
                       "abziehbar (Person "
                       + std::to_string(person) + ").",
            .area = "pension"};
}

Notice pillar3aMaximum(int person, const Decimal& maximum) {
    return {.id = perPerson("3a-max-", person),
            .level = Notice::Level::warning,
            .title = "Säule 3a über Maximum",
            .message = "Person " + std::to_string(person) + ": Abziehbar sind höchstens "
                       + withCurrency(maximum) + ". Der Mehrbetrag muss zurückgefordert werden.",
            .area = "pension"};
}

Notice pillar3aBuyInLimit(int person) {
    return {.id = perPerson("3a-einkauf-", person),
            .level = Notice::Level::warning,
            .title = "Einkauf Säule 3a begrenzt",
            .message = "Ein 3a-Einkauf ist pro Jahr höchstens im Umfang des kleinen 3a-Maximums "
                       "abziehbar.",
            .area = "pension"};
}

Notice medicalBelowThreshold(const Decimal& costs, const Decimal& threshold) {
    return {.id = "krankheit-selbstbehalt",
            .level = Notice::Level::info,
            .title = "Krankheitskosten unter dem Selbstbehalt",
            .message = "Die selbst bezahlten Krankheitskosten (" + withCurrency(costs)
                       + ") liegen unter dem Selbstbehalt von " + withCurrency(threshold)
                       + ". Es ergibt sich kein Abzug.",
            .area = "other"};
}

Notice donationsBelowMinimum(const Decimal& minimum) {
    return {.id = "spenden-min",
            .level = Notice::Level::info,
            .title = "Spenden unter " + MoneyFormat::fr(minimum),
            .message = "Freiwillige Zuwendungen sind erst ab gesamthaft " + MoneyFormat::fr(minimum)
                       + " pro Jahr abziehbar.",
            .area = "other"};
}

Notice childDeductionWithMaintenance() {
    return {.id = "kinderabzug-unterhalt",
            .level = Notice::Level::warning,
            .title = "Kinderabzug und Unterhaltsbeiträge",
            .message = "Für Kinder, für die Unterhaltsbeiträge abgezogen werden, entfällt der "
                       "Kinderabzug. Diese Kinder nicht als Kinder erfassen.",
            .area = "family"};
}

Notice unknownMunicipality(std::string_view name, int year) {
    return {.id = "gemeinde",
            .level = Notice::Level::error,
            .title = "Gemeinde unbekannt",
            .message = "Die Gemeinde «" + std::string(name) + "» ist nicht in der Steuerfuss-Liste "
                       + std::to_string(year) + " enthalten.",
            .area = "family"};
}

Notice missingMultiplier() {
    return {.id = "steuerfuss-fehlt",
            .level = Notice::Level::error,
            .title = "Steuerfuss fehlt",
            .message = "Ohne Gemeinde kann die Gemeindesteuer nicht berechnet werden.",
            .area = "family"};
}

Notice mixedConfessions() {
    return {.id = "konfession-gemischt",
            .level = Notice::Level::info,
            .title = "Konfessionell gemischte Ehe",
            .message = "Die Kirchensteuer wird je zur Hälfte nach der Religionszugehörigkeit der "
                       "Ehegatten erhoben (Art. 2 StV). Auf Verlangen ist eine Aufteilung nach "
                       "allen Familienmitgliedern möglich.",
            .area = "family"};
}

} // namespace taxcore::notices
