#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"

#include <algorithm>

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

std::string lastDay(const PageContext& context) {
    return "31. Dezember " + std::to_string(context.year);
}

std::string confessionHelp() {
    return "Sie bestimmt die Kirchensteuer. Wer zu keiner der genannten Kirchen gehört, wählt «"
           + std::string(label(Confession::keine)) + "» oder «"
           + std::string(label(Confession::andere)) + "» und bezahlt keine.";
}

std::vector<forms::Field<Person>> personFields(const PageContext& context) {
    const auto isEmployed = [](const TaxCase&, const Person& person) {
        return person.employment == EmploymentKind::unselbstaendig || !person.employer.empty();
    };
    return {
        text<&Person::firstName>("Vorname", "Wie im Ausweis."),
        text<&Person::lastName>("Name", "Wie im Ausweis."),
        date<&Person::birthDate>("Geburtsdatum", "Wie im Ausweis, zum Beispiel 1.3.1984."),
        onlyStGallen(context, choice<&Person::confession>("Konfession", confessionHelp())),
        text<&Person::profession>("Beruf", "So, wie er auf der Steuererklärung stehen soll."),
        choice<&Person::employment>(
            "Erwerb",
            "Wer angestellt ist, wählt «unselbständig», auch mit einem kleinen Geschäft nebenbei."),
        text<&Person::employer>("Arbeitgeber",
                                "Der Arbeitgeber am " + lastDay(context)
                                    + ". Weitere Stellen ergeben sich aus den Lohnausweisen.")
            .usableWhen(isEmployed),
    };
}

Section adultSection(const PageContext& context, int number) {
    return personSection(number, {fieldsCard("Personalien", {},
                                             bindAll(personPlace(number), personFields(context)))});
}

/// "Fr. 6’800 pro Kind", or the two amounts by stage of education.
std::string childDeductionOf(const DeductionParams& params) {
    if (params.kinderabzugEinheitlich > 0) {
        return francsText(params.kinderabzugEinheitlich) + " pro Kind";
    }
    return francsText(params.kinderabzugVorschule) + " (noch nicht schulpflichtig) bzw. "
           + francsText(params.kinderabzugAusbildung) + " (Kindergarten, Schule, Ausbildung)";
}

std::string childrenHelp(const PageContext& context) {
    const std::string whose = "Kinder, für deren Unterhalt Sie aufkommen.";
    if (isLiechtenstein(context)) {
        return whose + sentence(context.liechtenstein, [](const LIRules& rules) {
                   return "Kinderabzug: " + francsText(rules.kinderabzug) + " pro Kind.";
               });
    }
    return whose + sentence(context.stGallen, [](const RuleBook& rules) {
               return "Kinderabzug Kanton: " + childDeductionOf(rules.cantonal)
                      + ". Bund: " + childDeductionOf(rules.federal) + " und "
                      + francsText(rules.federalRules.tarif.abzugProKind)
                      + " Abzug vom Steuerbetrag. Vermögen: "
                      + francsText(rules.cantonalExtra.vermoegen.sozialabzugProKind)
                      + " pro minderjähriges Kind.";
           });
}

/// The education goes with the birth date until another one is chosen.
forms::Field<Child> birthDateField(const PageContext& context) {
    auto field = date<&Child::birthDate>(
        "Geburtsdatum", "Kinder, die nach dem " + lastDay(context)
                            + " geboren sind, zählen erst im nächsten Steuerjahr.");
    field.set = [set = field.set, year = context.year](Child& child, const Value& value) {
        const bool follows = child.education == usualEducation(child.birthDate, year);
        set(child, value);
        if (follows) {
            child.education = usualEducation(child.birthDate, year);
        }
    };
    return field;
}

/// The name all adults of the household share; empty when they differ or have none.
std::string familyName(const TaxCase& taxCase) {
    const std::string& name = taxCase.person1.lastName;
    return taxCase.isJoint() && taxCase.person2.lastName != name ? std::string() : name;
}

std::vector<forms::Field<Child>> childFields(const PageContext& context) {
    const auto isTaught = [](const TaxCase&, const Child& child) {
        return child.education == ChildEducation::schule
               || child.education == ChildEducation::ausbildung || !child.school.empty();
    };
    const auto isTrained = [](const TaxCase&, const Child& child) {
        return child.education == ChildEducation::ausbildung || !child.educationUntil.empty();
    };
    return {
        text<&Child::firstName>("Vorname", "Wie im Ausweis oder im Familienbüchlein."),
        text<&Child::lastName>("Name", "Auch wenn er gleich lautet wie Ihrer."),
        birthDateField(context),
        choice<&Child::education>(
            "Ausbildung", "Der Stand am " + lastDay(context)
                              + ", vorgeschlagen nach dem Geburtsdatum. Er entscheidet über den "
                                "Kinderabzug; nur bei «"
                              + std::string(label(ChildEducation::keine)) + "» entfällt er."),
        text<&Child::school>("Schule oder Lehrbetrieb",
                             "Zum Beispiel «Primarschule Sevelen» oder der Name des Lehrbetriebs.")
            .usableWhen(isTaught),
        text<&Child::educationUntil>("Ausbildung bis",
                                     "Wann die Ausbildung voraussichtlich endet, zum Beispiel "
                                     "«Juli 2028». Es steht im Lehr- oder Studienvertrag.")
            .usableWhen(isTrained),
        check<&Child::livesInHousehold>("Wohnt im gleichen Haushalt",
                                        "Die Steuererklärung fragt danach; am Kinderabzug ändert "
                                        "sich hier nichts."),
    };
}

ListCard childrenCard(const PageContext& context) {
    const auto list = within<&TaxCase::children>(wholeCase());
    ListCard card = listCard<Child>(
        list,
        {.title = "Kinder",
         .help = childrenHelp(context),
         .itemName = "Kind",
         .emptyText = "Noch kein Kind erfasst.",
         .offersLastYear = true},
        childFields(context), [](const Child& child) {
            return RowSummary{childName(child),
                              (child.birthDate ? dayText(child.birthDate) + " · " : std::string())
                                  + std::string(label(child.education)),
                              {}};
        });
    beginWith<Child>(card, list, [](Child& child, const TaxCase& taxCase) {
        child.lastName = familyName(taxCase);
    });
    card.figures = isLiechtenstein(context)
                       ? linesOf({{"600", "Kinderabzug"}})
                       : linesOf({{"kinderabzugVorschule", "Kinderabzug Vorschulalter"},
                                  {"kinderabzugAusbildung", "Kinderabzug Schule und Ausbildung"},
                                  {"vermoegensabzugKinder", "Abzug vom Vermögen"}});
    return card;
}

bool paysChurchTax(const Person& person) {
    return person.confession != Confession::keine && person.confession != Confession::andere;
}

/// Why the church's multiplier is not that of the parish.
std::string churchNote(const TaxCase& taxCase) {
    if (!taxCase.isJoint() || taxCase.person1.confession == taxCase.person2.confession) {
        return {};
    }
    const bool first = paysChurchTax(taxCase.person1);
    if (first && paysChurchTax(taxCase.person2)) {
        return "Je zur Hälfte nach den beiden Konfessionen.";
    }
    return "Der halbe Steuerfuss: Nur " + personName(taxCase, first ? 1 : 2)
           + " bezahlt Kirchensteuer.";
}

/// Of these two the multiplier differs from parish to parish. StV SG Art. 1
bool needsParish(const TaxCase& taxCase) {
    return std::ranges::any_of(taxCase.persons(), [](const Person& person) {
        return person.confession == Confession::roemischKatholisch
               || person.confession == Confession::evangelischReformiert;
    });
}

std::vector<Figure> tariffAndMultipliers(const TaxCase& taxCase, const TaxResult& result) {
    const auto percent = [&](const Decimal& rate) {
        return result.municipality ? MoneyFormat::number(rate) + "%" : noFigure;
    };
    std::vector<Figure> figures{{"Tarif", std::string(label(result.bill.kind)), {}},
                                {"Steuerfuss Kanton", percent(result.bill.cantonRate), {}},
                                {"Steuerfuss Gemeinde", percent(result.bill.municipalityRate), {}}};
    if (std::ranges::any_of(taxCase.persons(), paysChurchTax)) {
        figures.push_back({"Steuerfuss Kirche",
                           result.bill.churchRate > 0 ? percent(result.bill.churchRate) : noFigure,
                           churchNote(taxCase)});
    }
    return figures;
}

std::vector<Figure> tariffAndSurcharge(const TaxCase& taxCase, const TaxResult& result) {
    return {
        {"Tarif", std::string(label(liTariffOf(taxCase))), {}},
        {"Gemeindesteuerzuschlag", MoneyFormat::number(result.bill.municipalityRate) + "%", {}}};
}

/// What decides over tariff and multipliers stands first, as it is preset.
FieldsCard householdCard(const PageContext& context) {
    const bool abroad = isLiechtenstein(context);
    auto parishField = onlyStGallen(
        context, parish<&TaxCase::parish>(
                     "Kirchgemeinde", "Die Kirchgemeinde am Wohnort; sie bestimmt den Steuerfuss "
                                      "der Kirche. Sie steht auf der letzten Steuerrechnung."));
    if (!abroad) {
        parishField.shown = [](const TaxCase& taxCase, const TaxCase&) {
            return taxCase.parish || needsParish(taxCase);
        };
    }
    return fieldsCard(
        "Haushalt und Wohnort", {},
        bindAll(wholeCase(),
                {choice<&TaxCase::civilStatus>(
                     "Zivilstand",
                     "Der Zivilstand am " + lastDay(context)
                         + ". Ehepaare und eingetragene Partnerschaften werden gemeinsam "
                           "besteuert; dann erscheinen die Felder der zweiten Person. Wer "
                           "getrennt lebt, wählt «getrennt»."),
                 municipality<&TaxCase::municipality>(
                     abroad ? "Gemeinde" : "Politische Gemeinde",
                     "Die Wohngemeinde am " + lastDay(context)
                         + (abroad ? ". Sie bestimmt den Gemeindesteuerzuschlag."
                                   : ". Sie bestimmt den Steuerfuss der Gemeinde, auch nach einem "
                                     "Umzug während des Jahres.")),
                 std::move(parishField)}),
        abroad ? Figures(tariffAndSurcharge) : Figures(tariffAndMultipliers));
}

FieldsCard accountCard(const PageContext& context) {
    const bool abroad = isLiechtenstein(context);
    return fieldsCard(
        "Steuerkonto", {},
        bindAll(wholeCase(),
                {text<&TaxCase::registerNumber>(
                     "Registernummer", abroad ? "Ihre Nummer bei der Steuerverwaltung; sie steht "
                                                "auf der Steuererklärung und auf jeder Rechnung."
                                              : "Ihre Nummer beim Steueramt; sie steht auf der "
                                                "ersten Seite der Steuererklärung und auf jeder "
                                                "Steuerrechnung."),
                 iban<&TaxCase::iban>("IBAN für Rückerstattungen",
                                      abroad ? "Auf dieses Konto zahlt die Steuerverwaltung "
                                               "Guthaben zurück."
                                             : "Auf dieses Konto werden die Verrechnungssteuer und "
                                               "zu viel bezahlte Steuern zurückerstattet.")}));
}

} // namespace

Page familyPage(const PageContext& context) {
    return {.id = "family",
            .title = "Familie",
            .help = "Wer zum Haushalt gehört und wo Sie am " + lastDay(context) + " wohnten.",
            .sections = {Section{.cards = {householdCard(context)}}, adultSection(context, 1),
                         adultSection(context, 2),
                         Section{.title = [](const TaxCase&) { return "Kinder und Steuerkonto"; },
                                 .cards = {childrenCard(context), accountCard(context)}}}};
}

} // namespace fiscarel::pages
