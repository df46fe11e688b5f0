#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WealthCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/DeductionRules.h"

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

bool isOwnUse(const TaxCase&, const RealEstate& property) {
    return property.use != PropertyUse::vermietet;
}

/// Rooms count only in the household's own home.
bool isHome(const TaxCase& taxCase, const RealEstate& property) {
    return isOwnUse(taxCase, property) && property.isPrimaryResidence;
}

/// Rent counts whatever the use, so that an entry never hides.
bool showsRent(const TaxCase&, const RealEstate& property) {
    return property.use != PropertyUse::selbstbewohnt || !property.rentalIncome.isZero();
}

std::vector<Field<RealEstate>> commonFields(bool liechtenstein) {
    return {
        text<&RealEstate::description>("Bezeichnung", "Etwa «Einfamilienhaus» oder «Wohnung»."),
        text<&RealEstate::municipality>("Gemeinde", "Wo die Liegenschaft liegt."),
        text<&RealEstate::canton>(
            "Kanton", liechtenstein ? "FL für Liechtenstein, sonst das Kürzel des Kantons oder "
                                      "Landes. Nur mit FL zählt sie als Grundeigentum im Inland."
                                    : "Kürzel des Kantons, etwa SG. Liegt sie ausserhalb des "
                                      "Kantons, wird sie dort besteuert."),
        text<&RealEstate::parcelNumber>(
            "Parzellennummer", "Grundstücknummer gemäss Grundbuch oder Schätzungsanzeige."),
        decimal<&RealEstate::sharePerson1>(
            "Anteil Person 1", "%",
            "Eigentumsanteil gemäss Grundbuch. Er steht nur auf dem Formular; die Beträge unten "
            "sind die des Haushalts."),
        std::move(decimal<&RealEstate::sharePerson2>("Anteil Person 2", "%",
                                                     "Eigentumsanteil gemäss Grundbuch."))
            .when([](const TaxCase& taxCase, const RealEstate&) { return taxCase.isJoint(); }),
        amount<&RealEstate::taxValue>(
            liechtenstein ? "Steuerschätzwert" : "Steuerwert",
            liechtenstein
                ? "Steuerschätzwert am 1. Januar gemäss Schätzungsverfügung; im Ausland der Wert "
                  "nach dortigem Bescheid."
                : "Amtlicher Steuerwert (Verkehrswert) gemäss Schätzungsanzeige des "
                  "Grundbuchamts."),
    };
}

std::string rentalValueHelp(const PageContext& context) {
    return "Voller Mietwert gemäss Schätzungsanzeige, ohne eigene Kürzung."
           + sentence(context.stGallen, [](const RuleBook& rules) {
                 return "Am Wohnsitz zieht die Berechnung "
                        + percentText(rules.cantonalExtra.liegenschaften.eigenmietwertReduktion)
                        + " ab.";
             });
}

void addUseFields(std::vector<Field<RealEstate>>& fields, const PageContext& context) {
    fields.push_back(choice<&RealEstate::use>("Nutzung", "Selbst bewohnt, vermietet oder beides."));
    fields.push_back(
        amount<&RealEstate::imputedRentalValue>("Eigenmietwert", rentalValueHelp(context))
            .when(isOwnUse));
    fields.push_back(check<&RealEstate::isPrimaryResidence>(
                         "Hauptwohnsitz",
                         "Ankreuzen, wenn der Haushalt dauernd hier wohnt; bei Ferienwohnungen "
                         "nicht.")
                         .when(isOwnUse));
    fields.push_back(integer<&RealEstate::rooms>(
                         "Zimmer", "Zimmer",
                         "Anzahl Zimmer gemäss Schätzungsanzeige; nur nötig, wenn Zimmer dauernd "
                         "unbenutzt sind.")
                         .when(isHome));
    fields.push_back(integer<&RealEstate::unusedRooms>(
                         "davon dauernd unbenutzt", "Zimmer",
                         "Zimmer, die tatsächlich und dauernd leer stehen. Sie senken den "
                         "Eigenmietwert.")
                         .when(isHome));
    fields.push_back(amount<&RealEstate::rentalIncome>(
                         "Mieteinnahmen",
                         "Mieten des Jahres ohne Nebenkosten für Heizung und Warmwasser, gemäss "
                         "Mietverträgen.")
                         .when(showsRent));
}

void addMaintenanceFields(std::vector<Field<RealEstate>>& fields, const PageContext& context) {
    fields.push_back(check<&RealEstate::useFlatRateMaintenance>(
        "Pauschale für den Unterhalt",
        "Pauschale ohne Belege. Sind die tatsächlichen Kosten höher, lohnt es sich, sie "
        "einzutragen."
            + sentence(context.stGallen, [](const RuleBook& rules) {
                  return "Sie beträgt "
                         + percentText(rules.cantonalExtra.liegenschaften.pauschalabzugSatz)
                         + " des Mietwerts und der Mieteinnahmen.";
              })));
    fields.push_back(amount<&RealEstate::actualMaintenanceCosts>(
                         "Tatsächliche Unterhaltskosten",
                         "Unterhalt, Versicherung und Verwaltung gemäss Rechnungen. "
                         "Wertvermehrende Ausgaben zählen nicht.")
                         .when([](const TaxCase&, const RealEstate& property) {
                             return !property.useFlatRateMaintenance
                                    || !property.actualMaintenanceCosts.isZero();
                         }));
}

RowSummary propertySummary(const RealEstate& property, bool liechtenstein) {
    const std::string place = named(property.municipality, property.canton);
    return {named(property.description, "Liegenschaft"),
            liechtenstein ? place : place + ", " + std::string(label(property.use)),
            rowMoney(property.taxValue)};
}

} // namespace

ListCard realEstateCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    std::vector<Field<RealEstate>> fields = commonFields(liechtenstein);
    if (!liechtenstein) {
        addUseFields(fields, context);
        addMaintenanceFields(fields, context);
    }
    const auto list = within<&TaxCase::realEstate>(wholeCase());
    ListCard card = listCard<RealEstate>(
        list,
        {.title = liechtenstein ? "Grundeigentum" : "Liegenschaften",
         .help = "Häuser, Wohnungen und Grundstücke mit den Beträgen des Haushalts.",
         .itemName = "Liegenschaft",
         .emptyText = "Keine Liegenschaft erfasst.",
         .offersLastYear = true},
        std::move(fields), [liechtenstein](const RealEstate& property) {
            return propertySummary(property, liechtenstein);
        });
    card.add = [list, liechtenstein](TaxCase& taxCase) {
        RealEstate& property = list.write(taxCase)->emplace_back();
        if (liechtenstein) {
            property.canton = "FL";
        }
        if (!taxCase.isJoint()) {
            property.sharePerson1 = 100;
            property.sharePerson2 = 0;
        }
    };
    card.total = [](const TaxCase& taxCase) {
        return "Total " + plainMoney(totalOf(taxCase.realEstate, &RealEstate::taxValue));
    };
    card.figures = liechtenstein
                       ? linesOf({{"700", {}}, {"705", {}}})
                       : linesOf({{"liegenschaftsertrag", {}}, {"liegenschaftskosten", {}}});
    return card;
}

} // namespace fiscarel::pages
