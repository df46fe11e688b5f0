#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckContext.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"

#include <optional>
#include <string>

namespace taxcore::review {

namespace {

constexpr std::string_view page = "wealth";
/// Loans among relatives bear no interest now and then; larger ones usually do.
constexpr int debtThatCosts = 10'000;
/// Percent of the debt; not even overdue credit cards are much dearer.
constexpr int highestInterest = 10;
/// Nobody still drives a car bought before; an earlier year is a slip.
constexpr int firstPurchaseYear = 1950;

void checkDebt(CheckContext& c, const Debt& debt, int index) {
    const std::string name = called(debt, index);
    const FieldPath interest = FieldPath("debts", "interest").at(index);
    if (debt.interest.isZero() && debt.amount > debtThatCosts) {
        c.warning({itemId("schuld-ohne-zins", index), page, "Schuld ohne Zins",
                   "Für die " + name + " (" + MoneyFormat::fr(debt.amount)
                       + ") ist kein Zins erfasst. Bezahlte Schuldzinsen sind abziehbar; bitte "
                         "ergänzen, falls es welche gab.",
                   interest});
    } else if (debt.amount.isZero() && debt.interest > 0) {
        c.info({itemId("zins-ohne-schuld", index), page, "Zins ohne Schuld",
                "Für die " + name
                    + " ist ein Zins erfasst, aber kein Betrag. Das stimmt, wenn sie im "
                      "Lauf des Jahres zurückbezahlt wurde; sonst fehlt der Betrag am "
                      "31. Dezember.",
                FieldPath("debts", "amount").at(index)});
    } else if (debt.amount > 0 && debt.interest * 100 > debt.amount * highestInterest) {
        c.warning({itemId("schuldzins-hoch", index), page, "Sehr hoher Schuldzins",
                   "Der Zins der " + name + " (" + MoneyFormat::fr(debt.interest)
                       + ") ist mehr als " + std::to_string(highestInterest)
                       + "% der Schuld. Ist eine Amortisation dabei? Sie ist nicht abziehbar.",
                   interest});
    }
}

FieldPath propertyPath(int index, std::string_view field) {
    return FieldPath("realEstate", field).at(index);
}

/// Whether the calculation takes a property into the wealth.
bool counts(const CheckContext& c, const RealEstate& property) {
    return c.liechtenstein == nullptr || !isInLiechtenstein(property)
           || c.taxCase.liExtras().useRealEstateFromList;
}

void checkPropertyValue(CheckContext& c, const RealEstate& property, int index) {
    if (counts(c, property) && property.taxValue.isZero()) {
        c.warning({itemId("liegenschaft-ohne-steuerwert", index), page, "Steuerwert fehlt",
                   "Bei " + called(property, index)
                       + " fehlt der amtliche Steuerwert. Er steht auf der Schätzungsanzeige.",
                   propertyPath(index, "taxValue")});
    }
}

void checkPropertyYield(CheckContext& c, const RealEstate& property, int index) {
    const std::string name = called(property, index);
    if (property.use != PropertyUse::vermietet && property.imputedRentalValue.isZero()) {
        c.warning({itemId("eigenmietwert-fehlt", index), page, "Eigenmietwert fehlt",
                   name
                       + " wird selbst bewohnt, der Eigenmietwert ist aber 0. Bitte den vollen "
                         "Wert der Schätzungsanzeige eintragen.",
                   propertyPath(index, "imputedRentalValue")});
    }
    if (property.use == PropertyUse::selbstbewohnt && property.rentalIncome > 0) {
        c.warning({itemId("miete-selbstbewohnt", index), page, "Mieteinnahmen bei Eigengebrauch",
                   name
                       + " ist als selbst bewohnt erfasst, hat aber Mieteinnahmen. Wird ein Teil "
                         "vermietet? Dann bitte die Nutzung ändern.",
                   propertyPath(index, "use")});
    }
    if (property.use != PropertyUse::selbstbewohnt && property.rentalIncome.isZero()) {
        c.warning({itemId("miete-fehlt", index), page, "Mieteinnahmen fehlen",
                   name
                       + " ist ganz oder teilweise vermietet, es sind aber keine Mieteinnahmen "
                         "erfasst.",
                   propertyPath(index, "rentalIncome")});
    }
}

/// Whether the property's unused rooms and municipality matter: the household lives there.
bool isHome(const RealEstate& property) {
    return property.isPrimaryResidence && property.use != PropertyUse::vermietet;
}

void checkUnusedRooms(CheckContext& c, const RealEstate& property, int index) {
    if (isHome(property) && property.unusedRooms > 0 && property.unusedRooms >= property.rooms) {
        c.warning({itemId("zimmer-unbenutzt", index), page, "Zu viele unbenutzte Zimmer",
                   "Bei " + called(property, index) + " sind "
                       + std::to_string(property.unusedRooms) + " von "
                       + std::to_string(property.rooms)
                       + " Zimmern als unbenutzt erfasst. Bitte beide Zahlen prüfen.",
                   propertyPath(index, "unusedRooms")});
    }
}

void checkShares(CheckContext& c, const RealEstate& property, int index) {
    const Decimal sum = property.sharePerson1 + property.sharePerson2;
    if (c.taxCase.isJoint() && sum != 100) {
        c.warning({itemId("eigentumsanteile-summe", index), page, "Eigentumsanteile",
                   "Die Anteile an " + called(property, index) + " ergeben zusammen "
                       + MoneyFormat::number(sum)
                       + "% statt 100%. Gehört ein Teil jemandem ausserhalb des Haushalts, dürfen "
                         "es weniger sein; erfasst werden dann nur die eigenen Beträge.",
                   propertyPath(index, "sharePerson1")});
    }
}

/// The shares only stand on the form: what is in the list counts, whoever owns it.
void checkOwner(CheckContext& c, const RealEstate& property, int index) {
    const bool ownedByOther = property.sharePerson1 <= 0 && property.sharePerson2 > 0;
    if (!c.taxCase.isJoint() && ownedByOther && counts(c, property)) {
        c.warning(
            {itemId("liegenschaft-nicht-gemeinsam", index), page, "Liegenschaft von Person 2",
             called(property, index)
                 + " gehört nach den Anteilen ganz Person 2. Der Haushalt wird nicht gemeinsam "
                   "besteuert, die Liegenschaft zählt hier aber voll. Bitte Anteile oder "
                   "Zivilstand prüfen, sonst den Eintrag entfernen.",
             propertyPath(index, "sharePerson1")});
    }
}

/// Whether two municipalities are the same, as the list of the canton spells them.
bool isSameMunicipality(const RuleBook& rules, std::string_view a, std::string_view b) {
    const Municipality* first = rules.municipalities.municipality(a);
    return first == nullptr ? a == b : first == rules.municipalities.municipality(b);
}

void checkHomeMunicipality(CheckContext& c, const RealEstate& property, int index) {
    const bool elsewhere =
        !isBlank(property.municipality)
        && !isSameMunicipality(*c.stGallen, property.municipality, c.taxCase.municipality);
    // One outside the canton is told apart.
    if (isHome(property) && isInStGallen(property) && elsewhere) {
        c.warning({itemId("hauptwohnsitz-gemeinde", index), page,
                   "Hauptwohnsitz in anderer Gemeinde",
                   called(property, index) + " ist als Hauptwohnsitz erfasst, liegt aber nicht in "
                       + c.taxCase.municipality
                       + ". Ferienwohnungen und Liegenschaften andernorts bitte nicht als "
                         "Hauptwohnsitz erfassen.",
                   propertyPath(index, "isPrimaryResidence")});
    }
}

void checkHomes(CheckContext& c) {
    int homes = 0;
    forEachItem(c.taxCase.realEstate, [&](const RealEstate& property, int index) {
        homes += isHome(property) ? 1 : 0;
        if (isHome(property) && homes == 2) {
            c.warning({"hauptwohnsitz-mehrfach", page, "Mehrere Hauptwohnsitze",
                       "Mehr als eine Liegenschaft ist als Hauptwohnsitz erfasst. Der tiefere "
                       "Eigenmietwert gilt nur für eine.",
                       propertyPath(index, "isPrimaryResidence")});
        }
    });
}

/// A home in Liechtenstein without its code counts as abroad.
void checkLiechtensteinCanton(CheckContext& c, const RealEstate& property, int index) {
    if (!isInLiechtenstein(property) && mayBeAtHome(property, *c.liechtenstein)) {
        c.warning({itemId("li-liegenschaft-ausland", index), page, "Liegenschaft im Ausland?",
                   called(property, index)
                       + " zählt als Liegenschaft im Ausland, weil als Kanton nicht FL eingetragen "
                         "ist. Liegt sie in Liechtenstein, bitte FL eintragen.",
                   propertyPath(index, "canton")});
    }
}

void checkLiechtensteinList(CheckContext& c) {
    const LIExtras extras = c.taxCase.liExtras();
    bool home = false;
    for (const RealEstate& property : c.taxCase.realEstate) {
        home = home || (isInLiechtenstein(property) && !property.taxValue.isZero());
    }
    if (home && !extras.useRealEstateFromList) {
        c.warning({"li-liegenschaften-ausgeschaltet", page, "Liegenschaften zählen nicht",
                   "Liegenschaften in Liechtenstein sind erfasst, ihre Übernahme in das Vermögen "
                   "ist aber ausgeschaltet. So fehlen sie in der Berechnung.",
                   FieldPath("li", "useRealEstateFromList")});
    }
}

void checkProperties(CheckContext& c) {
    forEachItem(c.taxCase.realEstate, [&](const RealEstate& property, int index) {
        checkPropertyValue(c, property, index);
        checkShares(c, property, index);
        checkOwner(c, property, index);
        if (c.stGallen != nullptr) {
            checkPropertyYield(c, property, index);
            checkUnusedRooms(c, property, index);
            checkHomeMunicipality(c, property, index);
        } else {
            checkLiechtensteinCanton(c, property, index);
        }
    });
    if (c.stGallen != nullptr) {
        checkHomes(c);
    } else {
        checkLiechtensteinList(c);
    }
}

void checkVehicle(CheckContext& c, const Vehicle& vehicle, int index) {
    if (vehicle.taxValueOverride) {
        return;
    }
    const std::string name = itemName(vehicle.description, "Fahrzeug", index);
    const FieldPath year = FieldPath("vehicles", "purchaseYear").at(index);
    if (vehicle.purchasePrice.isZero()) {
        c.warning({itemId("fahrzeug-ohne-preis", index), page, "Fahrzeug ohne Preis",
                   "Bei " + name + " fehlt der Kaufpreis, aus dem der Steuerwert berechnet wird.",
                   FieldPath("vehicles", "purchasePrice").at(index)});
    }
    if (!vehicle.purchaseYear) {
        c.info({itemId("fahrzeug-ohne-kaufjahr", index), page, "Fahrzeug ohne Kaufjahr",
                "Bei " + name + " fehlt das Kaufjahr. Das Fahrzeug zählt deshalb wie neu gekauft.",
                year});
    } else if (*vehicle.purchaseYear > c.taxCase.year
               || *vehicle.purchaseYear < firstPurchaseYear) {
        c.warning({itemId("fahrzeug-kaufjahr", index), page, "Kaufjahr des Fahrzeugs",
                   "Das Kaufjahr " + std::to_string(*vehicle.purchaseYear) + " von " + name
                       + " passt nicht zum Steuerjahr " + std::to_string(c.taxCase.year)
                       + ". Bitte prüfen; ein später gekauftes Fahrzeug gehört noch nicht hierher.",
                   year});
    }
}

void checkInsurance(CheckContext& c, const InsurancePolicy& policy, int index) {
    const std::string name = called(policy, index);
    if (policy.endYear && *policy.endYear < c.taxCase.year) {
        c.warning({itemId("versicherung-abgelaufen", index), page, "Versicherung abgelaufen",
                   "Die " + name + " ist " + std::to_string(*policy.endYear)
                       + " abgelaufen. Falls das stimmt, bitte den Eintrag entfernen.",
                   FieldPath("insurances", "endYear").at(index)});
    }
    if (policy.startYear && *policy.startYear > c.taxCase.year) {
        c.warning({itemId("versicherung-beginn", index), page, "Versicherung beginnt später",
                   "Die " + name + " beginnt erst " + std::to_string(*policy.startYear)
                       + " und hat in diesem Jahr keinen Wert. Bitte das Jahr prüfen.",
                   FieldPath("insurances", "startYear").at(index)});
    }
}

} // namespace

bool mayBeAtHome(const RealEstate& property, const LIRules& rules) {
    const bool untouched = isBlank(property.municipality)
                           && (isBlank(property.canton) || property.canton == RealEstate().canton);
    return untouched || rules.zuschlag(property.municipality).has_value();
}

void checkWealth(CheckContext& c) {
    checkSecurities(c);
    forEachItem(c.taxCase.insurances, [&](const InsurancePolicy& policy, int index) {
        checkInsurance(c, policy, index);
    });
    forEachItem(c.taxCase.vehicles,
                [&](const Vehicle& vehicle, int index) { checkVehicle(c, vehicle, index); });
    checkProperties(c);
    forEachItem(c.taxCase.debts, [&](const Debt& debt, int index) {
        if (c.stGallen != nullptr && !debt.isBusiness) {
            checkDebt(c, debt, index);
        }
    });
}

} // namespace taxcore::review
