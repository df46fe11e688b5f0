#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/review/PensionLimits.h"

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

FieldsCard pensionFundCard(const PageContext& context, int number) {
    std::string pensionFundHelp = "Wer bei einer Pensionskasse versichert ist, kreuzt hier an; auf "
                                  "dem Lohnausweis steht der Beitrag in Ziffer 10.1.";
    std::string buyInHelp = "Nur privat bezahlte Einkäufe gemäss Bescheinigung der Pensionskasse. "
                            "Einkäufe über den Lohn stehen schon im Lohnausweis (Ziffer 10.2).";
    if (isLiechtenstein(context)) {
        buyInHelp += sentence(context.liechtenstein, [](const LIRules& rules) {
            return "Beiträge und Einkäufe des Haushalts zählen zusammen bis "
                   + MoneyFormat::number(rules.pensionskasseMaxProzent)
                   + "% des Erwerbseinkommens.";
        });
    } else {
        pensionFundHelp += " Davon hängt das Maximum der Säule 3a ab.";
        buyInHelp += " Sie sind voll abziehbar; danach darf "
                     + std::to_string(review::yearsWithoutCapital)
                     + " Jahre lang kein Kapital bezogen werden.";
    }
    return fieldsCard(
        "Pensionskasse", {},
        joined(bindAll(personPlace(number),
                       {check<&Person::hasPensionFund>("Einer Pensionskasse angeschlossen",
                                                       pensionFundHelp)}),
               bindAll(deductionsPlace(number), {amount<&PersonDeductions::pensionBuyIn>(
                                                    "Einkauf in die Pensionskasse", buyInHelp)})));
}

/// Whether the year knows buy-ins into pillar 3a; what is entered always stands there.
bool mayBuyIn(const TaxCase& taxCase, const PersonDeductions& deductions) {
    return taxCase.year >= review::firstYearOfPillar3aBuyIn || !deductions.pillar3aBuyIn.isZero();
}

/// The maximum of pillar 3a and what may still be paid in, by the earnings entered.
void addPillar3aMaximum(std::vector<Figure>& figures, const RuleBook& rules,
                        const AdultEntries& adult) {
    const auto canton = review::pillar3aMaximumOf({adult}, rules.cantonal.saeule3a);
    const auto federal = review::pillar3aMaximumOf({adult}, rules.federal.saeule3a);
    if (!canton || !federal) {
        figures.push_back({"Höchstbetrag", plainMoney(0),
                           "Ohne AHV-pflichtiges Erwerbseinkommen gibt es keinen Abzug."});
        return;
    }
    const auto left = [&](const Decimal& maximum) {
        return notBelowZero(maximum - adult.deductions.pillar3a).roundDown(0);
    };
    figures.push_back({"Höchstbetrag", sideBySide(*canton, *federal),
                       adult.person.hasPensionFund ? "mit Pensionskasse" : "ohne Pensionskasse"});
    figures.push_back({"Noch möglich", sideBySide(left(*canton), left(*federal)), {}});
}

Figures pillar3aFigures(const RuleBook* rules, int number) {
    return [rules, number](const TaxCase& taxCase, const TaxResult& result) {
        std::vector<Figure> figures;
        const AdultEntries adult = entriesOf(taxCase, number);
        if (rules != nullptr) {
            addPillar3aMaximum(figures, *rules, adult);
        }
        const std::string person = std::to_string(number);
        addDeducted(figures, result, {"saeule3a" + person, "Abzug Säule 3a"},
                    adult.deductions.pillar3a);
        if (mayBuyIn(taxCase, adult.deductions)) {
            addDeducted(figures, result, {"einkauf3a" + person, "Abzug Einkauf Säule 3a"},
                        adult.deductions.pillar3aBuyIn);
        }
        return figures;
    };
}

FieldsCard pillar3aCard(const PageContext& context, int number) {
    const std::string limits = sentence(context.stGallen, [](const RuleBook& rules) {
        const Saeule3aParams& params = rules.cantonal.saeule3a;
        return "Mit Pensionskasse sind höchstens " + MoneyFormat::fr(params.mitPensionskasse)
               + " in die Säule 3a abziehbar. Ohne Pensionskasse "
               + percentText(params.ohnePensionskasseSatz) + " des Erwerbseinkommens, höchstens "
               + MoneyFormat::fr(params.ohnePensionskasseMax) + ".";
    });
    const std::string buyInLimit = sentence(context.stGallen, [](const RuleBook& rules) {
        return "Er ist pro Jahr bis " + MoneyFormat::fr(rules.cantonal.saeule3a.mitPensionskasse)
               + " abziehbar.";
    });
    Field<PersonDeductions> buyIn = onlyStGallen(
        context,
        amount<&PersonDeductions::pillar3aBuyIn>(
            "Einkauf in die Säule 3a",
            "Nachträglicher Einkauf für Jahre mit Beitragslücken, gemäss Bescheinigung der "
            "Stiftung. Der ordentliche Beitrag des Jahres muss voll einbezahlt sein."
                + buyInLimit));
    if (!isLiechtenstein(context)) {
        buyIn.shown = mayBuyIn;
    }
    return fieldsCard(
        "Säule 3a", {},
        bindAll(
            deductionsPlace(number),
            {onlyStGallen(context, amount<&PersonDeductions::pillar3a>(
                                       "Beiträge an die Säule 3a",
                                       "Einzahlungen des Jahres gemäss Bescheinigung der Bank oder "
                                       "Versicherung (Formular 21 EDP)."
                                           + limits)),
             std::move(buyIn)}),
        isLiechtenstein(context) ? Figures{} : pillar3aFigures(context.stGallen, number));
}

/// What the household's premiums may count for.
std::string premiumLimit(const PageContext& context) {
    return sentence(context.stGallen,
                    [](const RuleBook& rules) {
                        const VersicherungParams& canton = rules.cantonal.versicherungen;
                        const VersicherungParams& federal = rules.federal.versicherungen;
                        return "Höchstens " + MoneyFormat::fr(canton.gemeinsam)
                               + " für Ehepaare und " + MoneyFormat::fr(canton.alleinstehend)
                               + " für Alleinstehende, dazu " + MoneyFormat::fr(canton.proKind)
                               + " pro Kind (Bund: " + MoneyFormat::fr(federal.gemeinsam) + ", "
                               + MoneyFormat::fr(federal.alleinstehend) + " und "
                               + MoneyFormat::fr(federal.proKind)
                               + "); ohne Beiträge an die 2. Säule und die Säule 3a mehr.";
                    })
           + sentence(context.liechtenstein, [](const LIRules& rules) {
                 return "Höchstens " + MoneyFormat::fr(rules.privatVerheiratet)
                        + " für Verheiratete und " + MoneyFormat::fr(rules.privatAlleinstehend)
                        + " für die übrigen, dazu pro Kind "
                        + MoneyFormat::fr(rules.privatKindBis16) + " bis 16 Jahre, "
                        + MoneyFormat::fr(rules.privatKind17bis20) + " bis 20 und "
                        + MoneyFormat::fr(rules.privatKindAb21) + " darüber.";
             });
}

Figures premiumFigures(bool liechtenstein) {
    return [liechtenstein](const TaxCase&, const TaxResult& result) {
        std::vector<Figure> figures;
        const InsuranceByJurisdiction& insurance = result.insurance;
        if (insurance.canton) {
            const auto& federal = insurance.federal;
            const auto side = [&](std::string label, auto value) {
                figures.push_back({std::move(label),
                                   sideBySide(value(*insurance.canton),
                                              value(federal.value_or(*insurance.canton))),
                                   {}});
            };
            side(liechtenstein ? "Prämien abzüglich Verbilligung" : "Prämien und Sparzinsen",
                 [](const InsuranceBreakdown& b) { return b.paid; });
            side("Höchstbetrag", [](const InsuranceBreakdown& b) { return b.maximum; });
            side("Abziehbar", [](const InsuranceBreakdown& b) { return b.deduction(); });
        }
        if (liechtenstein) {
            const TaxLine* const total = result.line("590");
            figures.push_back({"Versicherungsbeiträge total",
                               total != nullptr ? plainMoney(total->canton) : noFigure,
                               total != nullptr ? total->note.value_or("") : std::string(), true});
        }
        return figures;
    };
}

FieldsCard premiumsCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    const auto place = within<&TaxCase::householdDeductions>(wholeCase());
    return fieldsCard(
        "Versicherungsprämien",
        liechtenstein ? "Prämien des ganzen Haushalts."
                      : "Prämien des ganzen Haushalts; Zinsen von Sparkonten kommen von selbst "
                        "dazu.",
        bindAll(
            place,
            {amount<&HouseholdDeductions::healthInsurancePremiums>(
                 "Krankenversicherung",
                 "Grund- und Zusatzversicherung aller Personen, vor der Prämienverbilligung. Die "
                 "Summe steht auf der Steuerbescheinigung der Krankenkasse."
                     + premiumLimit(context)),
             amount<&HouseholdDeductions::accidentInsurancePremiums>(
                 "Unfallversicherung",
                 "Private Unfallversicherung gemäss Police oder Prämienrechnung. Was vom Lohn "
                 "abgezogen wurde, gehört nicht hierher."),
             amount<&HouseholdDeductions::lifeInsurancePremiums>(
                 "Lebensversicherung",
                 liechtenstein ? "Prämien privater Lebens- und Rentenversicherungen gemäss "
                                 "Prämienrechnung."
                               : "Prämien der freien Vorsorge (Säule 3b) gemäss Prämienrechnung; "
                                 "die Säule 3a gehört nicht hierher."),
             amount<&HouseholdDeductions::premiumReduction>(
                 "Prämienverbilligung",
                 liechtenstein ? "Erhaltene Prämienverbilligung des Haushalts gemäss Verfügung; "
                                 "sie wird von den Prämien abgezogen."
                               : "Erhaltene individuelle Prämienverbilligung (IPV) des Haushalts. "
                                 "Sie steht auf der Verfügung der SVA oder auf der Bescheinigung "
                                 "der Krankenkasse und wird von den Prämien abgezogen.")}),
        premiumFigures(liechtenstein));
}

std::vector<Figure> capitalTaxFigures(const TaxCase&, const TaxResult& result) {
    const CapitalPaymentTax tax = result.capitalPaymentTax.value_or(CapitalPaymentTax{});
    const auto exact = [&](const Decimal& francs) {
        return result.capitalPaymentTax ? MoneyFormat::chf(francs, 2, false) : noFigure;
    };
    return {{"Steuer Kanton, Gemeinde und Kirche", exact(tax.canton), {}},
            {"Direkte Bundessteuer", exact(tax.federal), {}},
            {"Steuer auf Kapitalleistungen", exact(tax.canton + tax.federal),
             "getrennt vom übrigen Einkommen"}};
}

ListCard capitalPaymentsCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    ListCard card = listCard<CapitalPayment>(
        within<&TaxCase::capitalPayments>(wholeCase()),
        {.title = "Kapitalleistungen aus Vorsorge",
         .help = liechtenstein
                     ? "Sie werden gesondert besteuert und stehen hier nur zur Information."
                     : "Sie werden getrennt vom übrigen Einkommen besteuert; alle des Jahres "
                       "zählen zusammen.",
         .itemName = "Kapitalleistung",
         .emptyText = "Keine Kapitalleistung erhalten."},
        {choice<&CapitalPayment::kind>(
             "Art", "Woher das Kapital kommt: Säule 3a, Pensionskasse oder eine andere Vorsorge."),
         amount<&CapitalPayment::amount>(
             "Ausbezahlter Betrag",
             "Bruttobetrag gemäss Abrechnung oder Meldung der Vorsorgeeinrichtung."),
         date<&CapitalPayment::date>(
             "Datum der Auszahlung",
             "Der Tag steht auf der Abrechnung und entscheidet über das Steuerjahr.")},
        [](const CapitalPayment& payment) {
            return RowSummary{std::string(label(payment.kind)), dayText(payment.date),
                              rowMoney(payment.amount)};
        });
    card.total = [](const TaxCase& taxCase) {
        return "Total " + plainMoney(totalOf(taxCase.capitalPayments, &CapitalPayment::amount));
    };
    card.figures = capitalTaxFigures;
    return card;
}

} // namespace

Page pensionPage(const PageContext& context) {
    Page page{.id = "pension",
              .title = "Vorsorge",
              .help = isLiechtenstein(context)
                          ? "Pensionskasse, Versicherungsprämien und Kapitalleistungen."
                          : "Säule 3a, Pensionskasse, Versicherungsprämien und Kapitalleistungen.",
              .sections = {}};
    for (const int number : {1, 2}) {
        page.sections.push_back(personSection(
            number, {pensionFundCard(context, number), pillar3aCard(context, number)}));
    }
    page.sections.push_back({.title = [](const TaxCase&) { return "Haushalt"; },
                             .cards = {premiumsCard(context), capitalPaymentsCard(context)},
                             .shown = {}});
    return page;
}

} // namespace fiscarel::pages
