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
bool hasRent(const TaxCase&, const RealEstate& property) {
    return property.use != PropertyUse::selbstbewohnt || !property.rentalIncome.isZero();
}

template <auto member>
Field<RealEstate> shareOf(int number, const std::string& help) {
    auto field = decimal<member>("Anteil Person " + std::to_string(number), "%", help);
    field.labelFor = [number](const TaxCase& taxCase) {
        return "Anteil " + personName(taxCase, number);
    };
    return field;
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
        shareOf<&RealEstate::sharePerson1>(
            1, "Eigentumsanteil gemäss Grundbuch. Er steht nur auf dem Formular; die Beträge unten "
               "sind die des Haushalts."),
        shareOf<&RealEstate::sharePerson2>(2, "Eigentumsanteil gemäss Grundbuch.")
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
    return "Der volle amtliche Mietwert gemäss Schätzungsanzeige, ohne eigene Kürzung."
           + sentence(context.stGallen, [](const RuleBook& rules) {
                 return "Am Wohnsitz zieht das Programm davon "
                        + percentText(rules.cantonalExtra.liegenschaften.eigenmietwertReduktion)
                        + " ab; ein schon gekürzter Wert würde ein zweites Mal gekürzt.";
             });
}

/// "Es zählen 18’900 − 30% = 13’230."; empty where the whole value counts.
std::string rentalValueNote(const RealEstate& property,
                            const CantonExtraParams::Liegenschaften& params) {
    const Decimal taxed = taxedRentalValue(property, params);
    if (taxed == property.imputedRentalValue || property.use == PropertyUse::vermietet) {
        return {};
    }
    RealEstate fullyUsed = property;
    fullyUsed.unusedRooms = 0;
    const bool hasUnused = taxedRentalValue(fullyUsed, params) != taxed;
    return "Es zählen " + plainMoney(property.imputedRentalValue) + " − "
           + percentText(params.eigenmietwertReduktion)
           + (hasUnused ? " − unbenutzte Zimmer = " : " = ") + plainMoney(taxed) + ".";
}

Field<RealEstate> rentalValueField(const PageContext& context) {
    auto field = amount<&RealEstate::imputedRentalValue>("Eigenmietwert (voller amtlicher Wert)",
                                                         rentalValueHelp(context));
    if (context.stGallen != nullptr) {
        field.note = [params = context.stGallen->cantonalExtra.liegenschaften](
                         const RealEstate& property) { return rentalValueNote(property, params); };
    }
    return std::move(field).usableWhen(isOwnUse);
}

void addUseFields(std::vector<Field<RealEstate>>& fields, const PageContext& context) {
    fields.push_back(choice<&RealEstate::use>("Nutzung", "Selbst bewohnt, vermietet oder beides."));
    fields.push_back(rentalValueField(context));
    fields.push_back(check<&RealEstate::isPrimaryResidence>(
                         "Hauptwohnsitz",
                         "Ankreuzen, wenn der Haushalt dauernd hier wohnt; bei Ferienwohnungen "
                         "nicht.")
                         .usableWhen(isOwnUse));
    fields.push_back(integer<&RealEstate::rooms>(
                         "Zimmer", "Zimmer",
                         "Anzahl Zimmer gemäss Schätzungsanzeige; nur nötig, wenn Zimmer dauernd "
                         "unbenutzt sind.")
                         .usableWhen(isHome));
    fields.push_back(integer<&RealEstate::unusedRooms>(
                         "davon dauernd unbenutzt", "Zimmer",
                         "Zimmer, die tatsächlich und dauernd leer stehen. Sie senken den "
                         "Eigenmietwert.")
                         .usableWhen(isHome));
    fields.push_back(amount<&RealEstate::rentalIncome>(
                         "Mieteinnahmen",
                         "Mieten des Jahres ohne Nebenkosten für Heizung und Warmwasser, gemäss "
                         "Mietverträgen.")
                         .usableWhen(hasRent));
}

/// The case does not know when a building was built. DBG Art. 32 Abs. 4,
/// Liegenschaftskostenverordnung Art. 5 Abs. 2
std::string flatRateNote(const RealEstate& property,
                         const CantonExtraParams::Liegenschaften& params) {
    return property.useFlatRateMaintenance
               ? "Gerechnet wird mit " + percentText(params.pauschalabzugSatz)
                     + " bei Kanton und Bund. Ist das Gebäude am Jahresende höchstens zehn Jahre "
                       "alt, gelten beim Bund 10%: Bitte in der Steuererklärung so einsetzen; die "
                       "Bundessteuer wird dann etwas höher als hier."
               : std::string();
}

void addMaintenanceFields(std::vector<Field<RealEstate>>& fields, const PageContext& context) {
    auto flatRate = check<&RealEstate::useFlatRateMaintenance>(
        "Pauschale für den Unterhalt",
        "Pauschale ohne Belege. Sind die tatsächlichen Kosten höher, lohnt es sich, sie "
        "einzutragen."
            + sentence(context.stGallen, [](const RuleBook& rules) {
                  return "Sie beträgt "
                         + percentText(rules.cantonalExtra.liegenschaften.pauschalabzugSatz)
                         + " des Mietwerts und der Mieteinnahmen.";
              }));
    if (context.stGallen != nullptr) {
        flatRate.note = [params = context.stGallen->cantonalExtra.liegenschaften](
                            const RealEstate& property) { return flatRateNote(property, params); };
    }
    fields.push_back(std::move(flatRate));
    fields.push_back(amount<&RealEstate::actualMaintenanceCosts>(
                         "Tatsächliche Unterhaltskosten",
                         "Unterhalt, Versicherung und Verwaltung gemäss Rechnungen. "
                         "Wertvermehrende Ausgaben zählen nicht.")
                         .usableWhen([](const TaxCase&, const RealEstate& property) {
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
    beginWith<RealEstate>(card, list,
                          [liechtenstein](RealEstate& property, const TaxCase& taxCase) {
                              property.municipality = taxCase.municipality;
                              if (liechtenstein) {
                                  property.canton = "FL";
                              }
                              if (!taxCase.isJoint()) {
                                  property.sharePerson1 = 100;
                                  property.sharePerson2 = 0;
                              }
                          });
    card.total = [](const TaxCase& taxCase) {
        return "Total " + plainMoney(totalOf(taxCase.realEstate, &RealEstate::taxValue));
    };
    card.figures =
        liechtenstein
            ? linesOf({{"700", "Grundeigentum im Inland"}, {"705", "Grundeigentum im Ausland"}})
            : linesOf({{"liegenschaftsertrag", "Ertrag im Einkommen"},
                       {"liegenschaftskosten", "Abzug Unterhalt und Verwaltung", true}});
    return card;
}

} // namespace fiscarel::pages
