#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/OtherCards.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WealthCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/regions/CaseCalculator.h"

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

/// "am 31. Dezember": the day on which wealth counts.
std::string wealthDay(const PageContext& context) {
    return isLiechtenstein(context) ? "am 1. Januar" : "am 31. Dezember";
}

FieldsCard cashCard(const PageContext& context) {
    return fieldsCard("Bargeld und Edelmetalle", {},
                      bindAll(wholeCase(), {amount<&TaxCase::cash>(
                                               "Bargeld, Gold und Edelmetalle",
                                               "Bestand " + wealthDay(context)
                                                   + ". Edelmetalle und ausländisches Geld zum "
                                                     "Kurs dieses Tages in Franken.")}));
}

ListCard insurancesCard(const PageContext& context) {
    ListCard card = listCard<InsurancePolicy>(
        within<&TaxCase::insurances>(wholeCase()),
        {.title = "Lebens- und Rentenversicherungen",
         .help = isLiechtenstein(context)
                     ? "Nur Versicherungen mit einem Rückkaufswert; Guthaben bei der Pensionskasse "
                       "gehören nicht hierher."
                     : "Nur Versicherungen mit einem Rückkaufswert; solche der Pensionskasse und "
                       "der Säule 3a gehören nicht hierher.",
         .itemName = "Versicherung",
         .emptyText = "Keine Lebensversicherung erfasst.",
         .offersLastYear = true},
        {text<&InsurancePolicy::company>("Gesellschaft", "Versicherungsgesellschaft gemäss "
                                                         "Police."),
         integer<&InsurancePolicy::startYear>("Abschlussjahr", {}, "Beginn gemäss Police."),
         integer<&InsurancePolicy::endYear>("Ablaufjahr", {}, "Ende gemäss Police."),
         amount<&InsurancePolicy::sumInsured>("Versicherungssumme", "Summe gemäss Police."),
         amount<&InsurancePolicy::surrenderValue>("Rückkaufswert",
                                                  "Steuerwert " + wealthDay(context)
                                                      + " gemäss Bescheinigung der Gesellschaft.")},
        [](const InsurancePolicy& policy) {
            return RowSummary{named(policy.company, "Versicherung"),
                              policy.endYear ? "bis " + std::to_string(*policy.endYear)
                                             : std::string(),
                              rowMoney(policy.surrenderValue)};
        });
    card.total = [](const TaxCase& taxCase) {
        return "Total " + plainMoney(totalOf(taxCase.insurances, &InsurancePolicy::surrenderValue));
    };
    return card;
}

/// What a vehicle is worth by the rules; without them only an entered value is known.
std::optional<Decimal> worthOf(const Vehicle& vehicle, const PageContext& context) {
    return context.calculator != nullptr ? context.calculator->vehicleValue(vehicle, context.year)
                                         : vehicle.taxValueOverride;
}

std::string depreciation(const PageContext& context) {
    return sentence(context.stGallen,
                    [](const RuleBook& rules) {
                        return "Der Steuerwert ist der Kaufpreis abzüglich "
                               + percentText(rules.cantonalExtra.fahrzeugAbschreibungProJahr)
                               + " pro Jahr seit dem Kauf.";
                    })
           + sentence(context.liechtenstein, [](const LIRules& rules) {
                 return "Der Steuerwert nimmt jedes Jahr um "
                        + MoneyFormat::number(rules.fahrzeugAbschreibungProzent)
                        + "% des Restwerts ab.";
             });
}

Figures vehicleFigures(const PageContext& context) {
    return [context](const TaxCase& taxCase, const TaxResult& result) {
        std::vector<Figure> figures;
        for (const Vehicle& vehicle : taxCase.vehicles) {
            const auto worth = worthOf(vehicle, context);
            const bool isWorth = worth && !worth->isZero();
            figures.push_back(
                {named(vehicle.description, "Fahrzeug"), isWorth ? plainMoney(*worth) : noFigure,
                 isWorth && vehicle.taxValueOverride ? "wie eingetragen" : std::string()});
        }
        // One vehicle says it all.
        const std::string code = isLiechtenstein(context) ? "770" : "fahrzeuge";
        const TaxLine* const line = result.line(code);
        if (figures.size() > 1) {
            figures.push_back({"Fahrzeuge im Vermögen",
                               line != nullptr ? plainMoney(line->canton) : noFigure,
                               {}});
        }
        return figures;
    };
}

ListCard vehiclesCard(const PageContext& context) {
    ListCard card = listCard<Vehicle>(
        within<&TaxCase::vehicles>(wholeCase()),
        {.title = "Fahrzeuge",
         .help = "Autos, Motorräder und andere private Fahrzeuge." + depreciation(context),
         .itemName = "Fahrzeug",
         .emptyText = "Kein Fahrzeug erfasst.",
         .offersLastYear = true},
        {text<&Vehicle::description>("Fahrzeug", "Marke und Modell gemäss Fahrzeugausweis."),
         amount<&Vehicle::purchasePrice>("Kaufpreis", "Bezahlter Preis gemäss Kaufvertrag."),
         integer<&Vehicle::purchaseYear>("Kaufjahr", {},
                                         "Jahr des Kaufs; ohne Angabe zählt das Fahrzeug als neu."),
         amount<&Vehicle::taxValueOverride>(
             "Anderer Steuerwert",
             "Nur ausfüllen, wenn der berechnete Wert nicht stimmt, etwa nach einem Schaden.")},
        [context](const Vehicle& vehicle) {
            const auto worth = worthOf(vehicle, context);
            return RowSummary{named(vehicle.description, "Fahrzeug"),
                              vehicle.purchaseYear ? "Kauf " + std::to_string(*vehicle.purchaseYear)
                                                   : std::string(),
                              worth ? rowMoney(*worth) : std::string()};
        });
    card.figures = vehicleFigures(context);
    return card;
}

FieldsCard householdGoodsCard(const PageContext& context) {
    return fieldsCard(
        "Hausrat", {},
        bindAll(within<&TaxCase::li>(wholeCase()),
                {amount<&LIExtras::householdGoods>(
                    "Hausrat",
                    "Wert der Möbel und Gegenstände am 1. Januar, in der Regel gemäss Police der "
                    "Hausratversicherung."
                        + sentence(context.liechtenstein,
                                   [](const LIRules& rules) {
                                       return "Hausrat und Fahrzeuge sind zusammen bis "
                                              + MoneyFormat::fr(
                                                  rules.hausratFahrzeugFreibetragVerheiratet)
                                              + " für Verheiratete und "
                                              + MoneyFormat::fr(
                                                  rules.hausratFahrzeugFreibetragUebrige)
                                              + " für die übrigen frei.";
                                   }))}),
        linesOf({{"771", "Hausrat und Fahrzeuge"}, {"772", "Freibetrag"}}));
}

FieldsCard realEstateChoiceCard() {
    return fieldsCard(
        "Grundeigentum in Liechtenstein", {},
        bindAll(within<&TaxCase::li>(wholeCase()),
                {check<&LIExtras::useRealEstateFromList>(
                    "Liegenschaften aus der Liste übernehmen",
                    "Angekreuzt zählen die Liegenschaften mit Kanton FL zum Vermögen. Ohne "
                    "Häkchen bleiben sie weg.")}));
}

FieldsCard otherAssetsCard(const PageContext& context) {
    const std::string day = wealthDay(context);
    return fieldsCard(
        "Weitere Vermögenswerte", {},
        bindAll(
            wholeCase(),
            {amount<&TaxCase::undividedEstatesWealth>(
                 "Anteile an unverteilten Erbschaften",
                 "Ihr Anteil am Vermögen " + day + ", gemäss Aufstellung der Erbengemeinschaft."),
             amount<&TaxCase::businessAssets>(
                 "Betriebsvermögen",
                 "Aktiven des eigenen Geschäfts gemäss Bilanz; die Geschäftsschulden stehen "
                 "bei den Schulden."),
             amount<&TaxCase::otherAssets>(
                 "Übrige Vermögenswerte",
                 "Wert " + day
                     + " von Booten, Pferden, Kunst, Sammlungen und anderem, was oben keinen "
                       "Platz hat. "
                     + (isLiechtenstein(context) ? "Hausrat hat sein eigenes Feld."
                                                 : "Hausrat gehört nicht dazu.")),
             text<&TaxCase::otherAssetsDescription>("Worum es sich handelt",
                                                    "Bezeichnung der übrigen Vermögenswerte.")}));
}

std::vector<Field<Debt>> debtFields(const PageContext& context) {
    std::vector<Field<Debt>> fields{
        text<&Debt::creditor>("Gläubiger", "Bank oder Person, der Sie das Geld schulden."),
        amount<&Debt::amount>("Schuld", "Betrag " + wealthDay(context)
                                            + " gemäss Zins- und Kapitalausweis.")};
    if (!isLiechtenstein(context)) {
        fields.push_back(amount<&Debt::interest>(
            "Schuldzinsen",
            "Bezahlte Zinsen des Jahres gemäss Zins- und Kapitalausweis, ohne Amortisation."
                + sentence(context.stGallen, [](const RuleBook& rules) {
                      return "Private Schuldzinsen sind bis zum Vermögensertrag plus "
                             + amountOf(rules, &DeductionParams::privateSchuldzinsenZuschlag)
                             + " abziehbar.";
                  })));
        fields.push_back(check<&Debt::isBusiness>(
            "Geschäftsschuld",
            "Ankreuzen bei Schulden des Geschäfts; ihre Zinsen gehören in dessen Rechnung."));
    }
    return fields;
}

ListCard debtsCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    ListCard card = listCard<Debt>(
        within<&TaxCase::debts>(wholeCase()),
        {.title = "Schulden",
         .help = liechtenstein ? "Hypotheken, Darlehen und offene Rechnungen. Schuldzinsen werden "
                                 "nicht abgezogen: Schon die Schuld mindert den Sollertrag."
                               : "Hypotheken, Darlehen und offene Rechnungen mit ihren Zinsen. "
                                 "Leasing zählt nicht.",
         .itemName = "Schuld",
         .emptyText = "Keine Schulden erfasst.",
         .offersLastYear = true},
        debtFields(context), [liechtenstein](const Debt& debt) {
            const std::string interest = liechtenstein || debt.interest.isZero()
                                             ? std::string()
                                             : "Zins " + plainMoney(debt.interest);
            return RowSummary{named(debt.creditor, "Schuld"), interest, rowMoney(debt.amount)};
        });
    card.total = [liechtenstein](const TaxCase& taxCase) {
        const std::string total = "Schulden " + plainMoney(totalOf(taxCase.debts, &Debt::amount));
        return liechtenstein
                   ? total
                   : total + " · Zinsen " + plainMoney(totalOf(taxCase.debts, &Debt::interest));
    };
    card.figures = liechtenstein ? Figures{} : Figures(debtInterestFigures);
    return card;
}

/// Nothing to enter: what all of it comes to.
FieldsCard sumCard(const PageContext& context) {
    return {.title = "Total",
            .help = {},
            .fields = {},
            .figures = isLiechtenstein(context)
                           ? linesOf({{"800", "Total der Vermögenswerte"},
                                      {"820", "Schulden"},
                                      {"880", "Gesamtvermögen"},
                                      {"885", "Sollertrag"}})
                           : linesOf({{"totalVermoegen", "Total der Vermögenswerte"},
                                      {"privatschulden", "Privatschulden"},
                                      {"geschaeftsschulden", {}},
                                      {"vermoegensabzug", {}},
                                      {"vermoegensabzugKinder", {}},
                                      {"steuerbaresVermoegen", "Steuerbares Vermögen"}}),
            .shown = {}};
}

} // namespace

Page wealthPage(const PageContext& context) {
    std::vector<Card> movables{securitiesCard(context), assetManagementCard(context),
                               cashCard(context), insurancesCard(context), vehiclesCard(context)};
    std::vector<Card> property{realEstateCard(context)};
    if (isLiechtenstein(context)) {
        movables.emplace_back(householdGoodsCard(context));
        property.emplace_back(realEstateChoiceCard());
    }
    property.emplace_back(otherAssetsCard(context));
    return {
        .id = "wealth",
        .title = "Vermögen",
        .help = "Was dem Haushalt " + wealthDay(context) + " gehört und was er schuldet.",
        .sections = {{.title = {}, .cards = std::move(movables), .shown = {}},
                     {.title = {}, .cards = std::move(property), .shown = {}},
                     {.title = {}, .cards = {debtsCard(context), sumCard(context)}, .shown = {}}}};
}

} // namespace fiscarel::pages
