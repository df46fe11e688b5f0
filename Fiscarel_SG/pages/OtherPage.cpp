#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/OtherCards.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

FieldsCard furtherEducationCard(const PageContext& context, int number) {
    const std::string limit =
        sentence(context.stGallen,
                 [](const RuleBook& rules) {
                     return "Abziehbar bis " + amountOf(rules, &DeductionParams::weiterbildungMax)
                            + ".";
                 })
        + sentence(context.liechtenstein, [](const LIRules& rules) {
              return "Abziehbar bis " + MoneyFormat::fr(rules.weiterbildungMax) + " pro Person.";
          });
    const std::string flatRate = sentence(context.stGallen, [](const RuleBook& rules) {
        const Decimal& federal = rules.federal.weiterbildungPauschal;
        return "Sie beträgt " + MoneyFormat::fr(rules.cantonal.weiterbildungPauschal)
               + (federal.isZero()
                      ? " und gilt nur beim Kanton; beim Bund zählen die Kosten."
                      : " beim Kanton und " + MoneyFormat::fr(federal) + " beim Bund.");
    });
    std::vector<Field<PersonDeductions>> fields{amount<&PersonDeductions::furtherEducation>(
        "Aus- und Weiterbildungskosten",
        "Selbst bezahlte Kurse, Lehrmittel und Prüfungen für den Beruf, gemäss Rechnungen. "
        "Was der Arbeitgeber bezahlt hat, zählt nicht."
            + limit)};
    if (!isLiechtenstein(context)) {
        fields.push_back(check<&PersonDeductions::furtherEducationFlatRate>(
            "Pauschale statt der Kosten", "Pauschale ohne Belege." + flatRate));
    }
    Figures figures = [number](const TaxCase& taxCase, const TaxResult& result) {
        std::vector<Figure> shown;
        const PersonDeductions& entered = entriesOf(taxCase, number).deductions;
        addDeducted(shown, result, {"weiterbildung" + std::to_string(number), "Abzug"},
                    entered.furtherEducationFlatRate ? Decimal(0) : entered.furtherEducation);
        return shown;
    };
    if (isLiechtenstein(context)) {
        figures = [number](const TaxCase& taxCase, const TaxResult& result) {
            const bool last = number == (taxCase.isJoint() ? 2 : 1);
            return last ? linesOf({{"625", taxCase.isJoint() ? "Abzug für beide" : "Abzug"}})(
                       taxCase, result)
                        : std::vector<Figure>{};
        };
    }
    return fieldsCard("Berufsorientierte Aus- und Weiterbildung", {},
                      bindAll(deductionsPlace(number), fields), std::move(figures));
}

FieldsCard maintenanceCard(const PageContext& context) {
    return fieldsCard(
        "Unterhaltsbeiträge und Renten", {},
        bindAll(within<&TaxCase::householdDeductions>(wholeCase()),
                {amount<&HouseholdDeductions::alimonyPaidPartner>(
                     "Unterhalt an geschiedene oder getrennte Partner",
                     "Bezahlte Unterhaltsbeiträge gemäss Urteil oder Vereinbarung; sie sind voll "
                     "abziehbar. Name und Adresse der Person gehören zu den Belegen."),
                 amount<&HouseholdDeductions::alimonyPaidChildren>(
                     "Unterhalt für minderjährige Kinder",
                     "Bezahlte Alimente gemäss Urteil oder Unterhaltsvertrag. Abziehbar sind sie "
                     "bis zur Volljährigkeit; diese Kinder bitte nicht als eigene Kinder "
                     "erfassen."),
                 onlyStGallen(context, amount<&HouseholdDeductions::annuityPayments>(
                                           "Renten und dauernde Lasten",
                                           "Bezahlte Leibrenten und dauernde Lasten gemäss "
                                           "Vertrag. Einzutragen ist der abziehbare Teil."))}),
        isLiechtenstein(context) ? linesOf({{"628", "Abziehbar"}})
                                 : linesOf({{"unterhaltPartner", "Abzug Unterhalt Partner"},
                                            {"unterhaltBezahltKinder", "Abzug Unterhalt Kinder"},
                                            {"rentenleistungen", "Abzug Renten"}}));
}

/// Only tells where debt interest is entered and what counts of it.
FieldsCard debtInterestCard() {
    return {.title = "Schuldzinsen",
            .help = "Schuldzinsen erfassen Sie auf der Seite «Vermögen» bei den Schulden.",
            .fields = {},
            .figures = debtInterestFigures,
            .shown = {}};
}

FieldsCard householdCard(const PageContext& context) {
    const std::string support = sentence(context.stGallen, [](const RuleBook& rules) {
        const Decimal& canton = rules.cantonal.unterstuetzungsabzug;
        const Decimal& federal = rules.federal.unterstuetzungsabzug;
        return canton.isZero()
                   ? "Der Abzug von " + MoneyFormat::fr(federal)
                         + " pro Person gilt nur beim Bund; die Unterstützung muss mindestens so "
                           "hoch sein."
                   : "Der Abzug beträgt " + amountOf(rules, &DeductionParams::unterstuetzungsabzug)
                         + " pro Person.";
    });
    Field<HouseholdDeductions> cooperation = onlyStGallen(
        context, check<&HouseholdDeductions::significantCooperation>(
                     "Erhebliche Mitarbeit im Beruf oder Betrieb des andern",
                     "Ankreuzen, wenn eine Person im Beruf oder Geschäft der andern regelmässig "
                     "und in erheblichem Mass mitarbeitet. Dann gibt es den Zweiverdienerabzug "
                     "auch ohne zweiten Lohn."));
    if (!isLiechtenstein(context)) {
        cooperation.shown = [](const TaxCase& taxCase, const HouseholdDeductions& deductions) {
            return taxCase.isJoint() || deductions.significantCooperation;
        };
    }
    return fieldsCard(
        "Unterstützung und Mitarbeit", {},
        bindAll(within<&TaxCase::householdDeductions>(wholeCase()),
                {onlyStGallen(context,
                              integer<&HouseholdDeductions::supportedPersons>(
                                  "Unterstützte Personen", "Personen",
                                  "Anzahl erwerbsunfähiger oder nur beschränkt erwerbsfähiger "
                                  "Personen, zu deren Unterhalt Sie beitragen; ohne eigene Kinder "
                                  "und Partner. Belege sind die Zahlungen des Jahres."
                                      + support)),
                 std::move(cooperation)}),
        isLiechtenstein(context) ? Figures{}
                                 : linesOf({{"unterstuetzung", "Abzug für unterstützte Personen"},
                                            {"zweiverdiener", {}}}));
}

FieldsCard otherDeductionsCard(const PageContext& context) {
    return fieldsCard(
        "Übrige Abzüge", {},
        bindAll(
            within<&TaxCase::householdDeductions>(wholeCase()),
            {onlyStGallen(context, amount<&HouseholdDeductions::otherDeductions>(
                                       "Übrige Abzüge",
                                       "Abzüge, für die es kein eigenes Feld gibt. Sie zählen "
                                       "beim Kanton und beim Bund voll.")),
             onlyStGallen(context, text<&HouseholdDeductions::otherDeductionsDescription>(
                                       "Wofür", "Der Grund des Abzugs; er steht so in der "
                                                "Steuererklärung. Bitte die Belege beilegen."))}));
}

} // namespace

std::vector<Figure> debtInterestFigures(const TaxCase& taxCase, const TaxResult& result) {
    Decimal interest;
    for (const Debt& debt : taxCase.debts) {
        interest += debt.isBusiness ? Decimal(0) : debt.interest;
    }
    std::vector<Figure> figures;
    addDeducted(figures, result, {"schuldzinsen", "Abziehbare Schuldzinsen"}, interest);
    return figures;
}

Page otherPage(const PageContext& context) {
    Page page{.id = "other",
              .title = "Weitere Abzüge",
              .help = "Kosten der Kinder, Weiterbildung, Unterhalt, Krankheit und Spenden.",
              .sections = {}};
    page.sections.push_back({.title = {}, .cards = {childrenCard(context)}, .shown = {}});
    for (const int number : {1, 2}) {
        page.sections.push_back(personSection(number, {furtherEducationCard(context, number)}));
    }
    std::vector<Card> household{maintenanceCard(context)};
    if (!isLiechtenstein(context)) {
        household.emplace_back(debtInterestCard());
    }
    household.emplace_back(medicalCostsCard(context));
    household.emplace_back(disabilityCard(context));
    household.emplace_back(donationsCard(context));
    household.emplace_back(householdCard(context));
    household.emplace_back(otherDeductionsCard(context));
    page.sections.push_back({.title = [](const TaxCase&) { return "Haushalt"; },
                             .cards = std::move(household),
                             .shown = {}});
    return page;
}

} // namespace fiscarel::pages
