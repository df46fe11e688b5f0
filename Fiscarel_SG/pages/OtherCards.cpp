#include "Fiscarel_SG/pages/OtherCards.h"

#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/DeductionRules.h"

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

// Children.

/// Childcare matters below the age limit; what is entered always stands there.
bool showsChildcare(const RuleBook* rules, const TaxCase& taxCase, const Child& child) {
    const bool entered = !child.childcareCosts.isZero() || child.childcareDaysWithMealsIncluded != 0
                         || !child.childcareProvider.empty();
    return entered || rules == nullptr || isWithinChildcareAge(child, taxCase.year, rules->cantonal)
           || isWithinChildcareAge(child, taxCase.year, rules->federal);
}

/// School and training; before it there are no costs.
bool hasEducation(const TaxCase&, const Child& child) {
    return child.education != ChildEducation::vorschule || !child.educationCosts.isZero()
           || !child.scholarships.isZero();
}

void addChildcareFields(std::vector<Field<Child>>& fields, const PageContext& context) {
    const std::string limit = sentence(context.stGallen, [](const RuleBook& rules) {
        return "Abziehbar bis zum " + std::to_string(rules.cantonal.kinderbetreuungAltersgrenze)
               + ". Geburtstag, höchstens " + amountOf(rules, &DeductionParams::kinderbetreuungMax)
               + " pro Kind.";
    });
    const std::string meals = sentence(context.stGallen, [](const RuleBook& rules) {
        return "Wenn die Rechnung das Essen nicht separat ausweist, werden "
               + amountOf(rules, &DeductionParams::kinderbetreuungVerpflegungKuerzungProTag)
               + " pro Tag abgezogen.";
    });
    const auto add = [&](Field<Child> field) {
        const RuleBook* const rules = context.stGallen;
        field = onlyStGallen(context, std::move(field));
        if (!isLiechtenstein(context)) {
            field.shown = [rules](const TaxCase& taxCase, const Child& child) {
                return showsChildcare(rules, taxCase, child);
            };
        }
        fields.push_back(std::move(field));
    };
    add(amount<&Child::childcareCosts>(
        "Betreuungskosten",
        "Bezahlte Drittbetreuung (Kita, Hort, Tagesfamilie) während Arbeit oder Ausbildung, "
        "gemäss Jahresbestätigung."
            + limit));
    add(integer<&Child::childcareDaysWithMealsIncluded>("Betreuungstage mit Essen im Preis", "Tage",
                                                        "Anzahl Tage gemäss Rechnung." + meals));
    add(text<&Child::childcareProvider>("Betreut durch",
                                        "Name und Ort der Kita, des Horts oder der Tagesfamilie."));
}

std::string educationLimit(const PageContext& context) {
    return sentence(context.stGallen,
                    [](const RuleBook& rules) {
                        const DeductionParams& canton = rules.cantonal;
                        return "Beim Kanton zählt, was "
                               + MoneyFormat::fr(canton.ausbildungskostenSelbstbehalt)
                               + " übersteigt, höchstens "
                               + MoneyFormat::fr(canton.ausbildungskostenMax) + " pro Kind"
                               + (rules.federal.ausbildungskostenMax.isZero()
                                      ? "; der Bund kennt den Abzug nicht."
                                      : ".");
                    })
           + sentence(context.liechtenstein, [](const LIRules& rules) {
                 return "Höchstens " + MoneyFormat::fr(rules.ausbildungKindMax) + " pro Kind.";
             });
}

RowSummary childSummary(const Child& child) {
    return {childName(child), std::string(label(child.education)),
            rowMoney(child.childcareCosts + child.educationCosts)};
}

// Medical costs.

std::string medicalHelp(const PageContext& context) {
    return "Rechnungen von Ärzten, Zahnärzten, Apotheken und Spitälern mit dem, was die "
           "Krankenkasse zurückbezahlt hat; die Liste der Kasse führt sie auf."
           + sentence(context.stGallen,
                      [](const RuleBook& rules) {
                          return "Abziehbar ist, was den Selbstbehalt übersteigt (Kanton "
                                 + percentText(rules.cantonal.krankheitSelbstbehaltSatz) + ", Bund "
                                 + percentText(rules.federal.krankheitSelbstbehaltSatz)
                                 + " des Nettoeinkommens).";
                      })
           + sentence(context.liechtenstein, [](const LIRules& rules) {
                 return "Abziehbar sind höchstens " + MoneyFormat::fr(rules.krankheitMaxProPerson)
                        + " pro Person, ohne Selbstbehalt.";
             });
}

std::vector<Figure> medicalFigures(const TaxCase&, const TaxResult& result) {
    std::vector<Figure> figures;
    const bool isEntered = result.line("krankheitskosten") != nullptr;
    for (const auto& [code, label] : {std::pair("krankheitskosten", "Krankheits- und Unfallkosten"),
                                      std::pair("krankheitSelbstbehalt", "Selbstbehalt"),
                                      std::pair("krankheitAbzug", "Abziehbar")}) {
        const TaxLine* const line = result.line(code);
        figures.push_back({label,
                           line != nullptr ? sideBySide(line->canton, line->federal)
                           : isEntered     ? plainMoney(0)
                                           : noFigure,
                           line != nullptr ? line->note.value_or("") : std::string()});
    }
    return figures;
}

/// Donations to parties or to others.
Decimal giftsOf(const TaxCase& taxCase, bool toParties) {
    Decimal sum;
    for (const Donation& gift : taxCase.householdDeductions.donations) {
        sum += gift.isPoliticalParty == toParties ? gift.amount : Decimal(0);
    }
    return sum;
}

std::string donationHelp(const PageContext& context) {
    if (isLiechtenstein(context)) {
        return "Freiwillige Zuwendungen an steuerbefreite gemeinnützige Organisationen."
               + sentence(context.liechtenstein, [](const LIRules& rules) {
                     return "Eine Spende zählt ab " + MoneyFormat::fr(rules.spendeMinEinzel)
                            + ", alle zusammen bis " + MoneyFormat::number(rules.spendenMaxProzent)
                            + "% des Erwerbs.";
                 });
    }
    const RuleBook* const rules = context.stGallen;
    const std::string organisations =
        "Spenden an steuerbefreite gemeinnützige Organisationen in der Schweiz sind ";
    if (rules == nullptr) {
        return organisations + "abziehbar.";
    }
    return organisations + "ab " + amountOf(*rules, &DeductionParams::freiwilligeZuwendungenMin)
           + " pro Jahr abziehbar, höchstens "
           + percentText(rules->cantonal.freiwilligeZuwendungenMaxSatz)
           + " des Nettoeinkommens. Spenden an Parteien zählen für sich: Ehepaare bis "
           + amountOf(*rules, &DeductionParams::parteispendenGemeinsam) + ", andere bis "
           + amountOf(*rules, &DeductionParams::parteispendenAlleinstehend) + ".";
}

Figures donationFigures(bool liechtenstein) {
    return [liechtenstein](const TaxCase& taxCase, const TaxResult& result) {
        std::vector<Figure> figures;
        addDeducted(figures, result, {liechtenstein ? "620" : "zuwendungen", "Spenden abziehbar"},
                    giftsOf(taxCase, false));
        if (!liechtenstein) {
            addDeducted(figures, result, {"parteispenden", "Parteispenden abziehbar"},
                        giftsOf(taxCase, true));
        }
        return figures;
    };
}

} // namespace

ListCard childrenCard(const PageContext& context) {
    std::vector<Field<Child>> fields;
    addChildcareFields(fields, context);
    fields.push_back(
        amount<&Child::educationCosts>(
            "Ausbildungskosten",
            "Selbst getragene Kosten der Ausbildung: Schulgeld, Lehrmittel, Fahrten, auswärtige "
            "Unterkunft, gemäss Rechnungen."
                + educationLimit(context))
            .usableWhen(hasEducation));
    fields.push_back(amount<&Child::scholarships>(
                         "Stipendien",
                         "Erhaltene Stipendien und Beiträge gemäss Verfügung; sie werden von den "
                         "Ausbildungskosten abgezogen.")
                         .usableWhen(hasEducation));
    ListCard card = listCard<Child>(
        within<&TaxCase::children>(wholeCase()),
        {.title = "Kosten der Kinder",
         .help = isLiechtenstein(context)
                     ? "Ausbildung. Die Kinder selbst erfassen Sie auf der Seite «Familie»."
                     : "Betreuung und Ausbildung. Die Kinder selbst erfassen Sie auf der Seite "
                       "«Familie».",
         .itemName = "Kind",
         .emptyText = "Noch keine Kinder erfasst. Kinder fügen Sie auf der Seite «Familie» hinzu."},
        std::move(fields), childSummary);
    card.figures = isLiechtenstein(context)
                       ? linesOf({{"610", "Abzug Ausbildungskosten"}})
                       : linesOf({{"kinderbetreuung", "Abzug Kinderbetreuung"},
                                  {"ausbildungskosten", "Abzug Ausbildungskosten"}});
    return withFixedItems(std::move(card));
}

ListCard medicalCostsCard(const PageContext& context) {
    std::vector<Field<MedicalCost>> fields{
        date<&MedicalCost::date>("Datum", "Datum der Rechnung oder der Behandlung."),
        text<&MedicalCost::provider>("Rechnung von",
                                     "Arzt, Zahnarzt, Apotheke oder Spital, gemäss Rechnung."),
        amount<&MedicalCost::gross>("Rechnung", "Betrag der Rechnung.").summed(),
        amount<&MedicalCost::reimbursed>(
            "Zurückerstattet", "Was Krankenkasse oder Unfallversicherung daran bezahlt hat, gemäss "
                               "deren Abrechnung.")
            .summed()};
    if (!isLiechtenstein(context)) {
        fields.push_back(check<&MedicalCost::isDisabilityRelated>(
            "Behinderung",
            "Ankreuzen, wenn die Kosten mit einer Behinderung zusammenhängen; sie sind ohne "
            "Selbstbehalt abziehbar."));
    }
    const auto household = within<&TaxCase::householdDeductions>(wholeCase());
    ListCard card =
        listCard<MedicalCost>(within<&HouseholdDeductions::medicalCosts>(household),
                              {.title = "Krankheits- und Unfallkosten",
                               .help = medicalHelp(context),
                               .itemName = "Rechnung",
                               .isTable = true},
                              std::move(fields), [](const MedicalCost& bill) {
                                  return RowSummary{named(bill.provider, "Rechnung"),
                                                    dayText(bill.date), rowMoney(bill.selfPaid())};
                              });
    card.figures = isLiechtenstein(context) ? linesOf({{"615", "Abziehbar"}}) : medicalFigures;
    return card;
}

FieldsCard disabilityCard(const PageContext& context) {
    const RuleBook* const rules = context.stGallen;
    const std::string diet = rules != nullptr
                                 ? "Pauschale lebensnotwendige Diät "
                                       + amountOf(*rules, &DeductionParams::diaetPauschale)
                                       + " (z.B. Zöliakie)"
                                 : "Pauschale lebensnotwendige Diät (z.B. Zöliakie)";
    return fieldsCard(
        "Diät und Behinderung", {},
        bindAll(
            within<&TaxCase::householdDeductions>(wholeCase()),
            {onlyStGallen(context, check<&HouseholdDeductions::dietFlatRate>(
                                       diet, "Für eine dauernde, ärztlich verordnete Diät; "
                                             "das Arztzeugnis gehört zu den Belegen. Die "
                                             "Pauschale zählt zu den Krankheitskosten.")),
             onlyStGallen(context, amount<&HouseholdDeductions::disabilityFlatRate>(
                                       "Pauschale für Behinderung",
                                       "Pauschale anstelle der tatsächlichen behinderungsbedingten "
                                       "Kosten, gemäss Fragebogen des Arztes. Sie ist ohne "
                                       "Selbstbehalt abziehbar."))}),
        isLiechtenstein(context) ? Figures{}
                                 : linesOf({{"behinderung", "Behinderungsbedingte Kosten"}}));
}

ListCard donationsCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    const auto household = within<&TaxCase::householdDeductions>(wholeCase());
    ListCard card = listCard<Donation>(
        within<&HouseholdDeductions::donations>(household),
        {.title = "Spenden", .help = donationHelp(context), .itemName = "Spende", .isTable = true},
        {date<&Donation::date>("Datum", "Tag der Zahlung gemäss Spendenbestätigung."),
         text<&Donation::recipient>("Empfänger", "Name der Organisation oder Partei."),
         amount<&Donation::amount>("Betrag", "Betrag gemäss Spendenbestätigung oder Bankbeleg.")
             .summed(),
         check<&Donation::isPoliticalParty>(
             "Partei", liechtenstein ? "Ankreuzen bei Spenden an politische Parteien; sie sind "
                                       "nicht abziehbar."
                                     : "Ankreuzen bei Beiträgen und Spenden an politische "
                                       "Parteien; sie stehen in Ziffer 16.3.")},
        [](const Donation& gift) {
            return RowSummary{named(gift.recipient, "Spende"), dayText(gift.date),
                              rowMoney(gift.amount)};
        });
    card.figures = donationFigures(liechtenstein);
    return card;
}

} // namespace fiscarel::pages
