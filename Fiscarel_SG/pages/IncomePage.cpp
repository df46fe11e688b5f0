#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

#include <algorithm>

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

constexpr std::string_view boxesHelp =
    "Die Nummern entsprechen den Ziffern auf dem amtlichen Lohnausweis.";

forms::Field<SalaryCertificate> netSalaryField() {
    auto field = amount<&SalaryCertificate::netSalaryOverride>(
        "Nettolohn (Ziffer 11)", "Leer lassen: Der Nettolohn ergibt sich aus den Ziffern 8, 9, "
                                 "10.1 und 10.2. Ein Betrag hier ersetzt die Rechnung.");
    field.computed = [](const SalaryCertificate& salary) {
        const Decimal net = salary.netSalary();
        return net.isZero() ? Value() : Value(net);
    };
    return field;
}

/// In Liechtenstein the net salary is no entry; it is told so that the certificate can be compared.
forms::Field<SalaryCertificate> buyInField(bool abroad) {
    auto field = amount<&SalaryCertificate::pensionBuyIn>(
        "BVG Beiträge für den Einkauf (Ziffer 10.2)",
        abroad ? "Einkäufe in die Pensionskasse, die über den Lohn bezahlt wurden. Bitte auf "
                 "der Seite Vorsorge nicht nochmals eintragen."
               : "Einkäufe in die Pensionskasse, die über den Lohn bezahlt wurden. Sie sind im "
                 "Nettolohn schon berücksichtigt; bitte auf der Seite Vorsorge nicht nochmals "
                 "eintragen.");
    if (abroad) {
        field.note = [](const SalaryCertificate& salary) {
            const Decimal net = salary.netSalary();
            return net.isZero() || net == salary.grossSalary
                       ? std::string()
                       : "Zum Vergleichen: netto bleiben " + francsText(net) + " (Ziffer 11).";
        };
    }
    return field;
}

/// In the order of the official form.
std::vector<forms::Field<SalaryCertificate>> salaryFields(const PageContext& context) {
    using Salary = SalaryCertificate;
    const bool abroad = isLiechtenstein(context);
    const auto swissOnly = [&](forms::Field<Salary> field) {
        return onlyStGallen(context, std::move(field));
    };
    return {
        text<&Salary::employer>("Arbeitgeber", "Name der Firma, unten auf dem Lohnausweis."),
        check<&Salary::isMainEmployment>(
            "Haupterwerb",
            abroad ? "Bei mehreren Stellen die hauptsächliche; die anderen sind Nebenerwerb."
                   : "Bei mehreren Stellen die hauptsächliche. Für die anderen, den Nebenerwerb, "
                     "gelten eigene Berufskosten."),
        check<&Salary::employerInLiechtenstein>(
            "Arbeitgeber mit Sitz in Liechtenstein",
            abroad ? "Ankreuzen, wenn die Firma ihren Sitz in Liechtenstein hat; leer lassen für "
                     "Arbeitgeber in der Schweiz oder in Österreich."
                   : "Ankreuzen, wenn die Firma ihren Sitz in Liechtenstein hat. Der Lohn wird "
                     "trotzdem ganz hier erklärt."),
        date<&Salary::periodFrom>("Beschäftigt von (Feld E)",
                                  "Der erste Tag, für den dieser Lohnausweis gilt."),
        date<&Salary::periodTo>("Beschäftigt bis (Feld E)",
                                "Der letzte Tag, für den dieser Lohnausweis gilt."),
        swissOnly(check<&Salary::fieldF>(
            "Unentgeltliche Beförderung zum Arbeitsort (Feld F)",
            "Nur ankreuzen, wenn Feld F angekreuzt ist. Der Abzug für den Arbeitsweg entfällt "
            "dann.")),
        swissOnly(check<&Salary::fieldG>("Kantinenverpflegung / Lunch-Checks (Feld G)",
                                         "Nur ankreuzen, wenn Feld G angekreuzt ist. Für die "
                                         "Verpflegung gilt dann der tiefere Ansatz.")),
        amount<&Salary::grossSalary>(
            "Bruttolohn total (Ziffer 8)",
            abroad ? "Der ganze Lohn vor den Abzügen; er wird in Liechtenstein besteuert."
                   : "Der ganze Lohn vor den Abzügen, mit Bonus, Naturalleistungen und über den "
                     "Lohn bezahlten Familienzulagen."),
        amount<&Salary::socialContributions>(
            "Beiträge AHV/IV/EO/ALV/NBUV (Ziffer 9)",
            "Was der Arbeitgeber für die Sozialversicherungen abgezogen hat."),
        amount<&Salary::pensionContributions>("BVG ordentliche Beiträge (Ziffer 10.1)",
                                              "Ihre ordentlichen Beiträge an die Pensionskasse."),
        buyInField(abroad),
        swissOnly(netSalaryField()),
        swissOnly(amount<&Salary::flatRateExpenses>(
            "Spesen pauschal (Ziffern 13.1.2 / 13.2.3)",
            "Pauschal ausbezahlte Spesen. Stehen sie auf dem Ausweis des Haupterwerbs, entfällt "
            "die Pauschale für übrige Berufskosten.")),
        text<&Salary::remarks>("Bemerkungen (Ziffer 15)",
                               "Was der Arbeitgeber in Ziffer 15 schreibt, etwa zu "
                               "Geschäftswagen oder Beteiligungen."),
    };
}

std::string detailOf(const SalaryCertificate& salary) {
    const std::string period = periodText(salary.periodFrom, salary.periodTo);
    return std::string(salary.isMainEmployment ? "Haupterwerb" : "Nebenerwerb")
           + (period.empty() ? "" : ", ") + period;
}

/// Net in St.Gallen, gross in Liechtenstein: what is taxed.
Decimal taxedSalary(const SalaryCertificate& salary, bool abroad) {
    return abroad ? salary.grossSalary : salary.netSalary();
}

ListCard salariesCard(const PageContext& context, int number) {
    const bool abroad = isLiechtenstein(context);
    const auto list = within<&PersonIncome::salaries>(incomePlace(number));
    ListCard card = listCard<SalaryCertificate>(
        list,
        {.title = "Lohnausweise",
         .help = "Ein Eintrag pro Arbeitgeber. " + std::string(boxesHelp),
         .itemName = "Lohnausweis",
         .emptyText = "Noch kein Lohnausweis erfasst."},
        salaryFields(context), [abroad](const SalaryCertificate& salary) {
            return RowSummary{named(salary.employer, "Lohnausweis"), detailOf(salary),
                              rowMoney(taxedSalary(salary, abroad))};
        });
    // The employer named among the persons is the one at the end of the year.
    beginWith<SalaryCertificate>(
        card, list, [number](SalaryCertificate& salary, const TaxCase& taxCase) {
            const std::string& employer = entriesOf(taxCase, number).person.employer;
            if (std::ranges::find(incomeOf(taxCase, number).salaries, employer,
                                  &SalaryCertificate::employer)
                == incomeOf(taxCase, number).salaries.end()) {
                salary.employer = employer;
            }
        });
    card.total = [number, abroad](const TaxCase& taxCase) {
        Decimal total;
        for (const SalaryCertificate& salary : incomeOf(taxCase, number).salaries) {
            total += taxedSalary(salary, abroad);
        }
        return (abroad ? "Total Bruttolohn " : "Total Nettolohn ") + plainMoney(total);
    };
    if (!abroad) {
        const std::string person = std::to_string(number);
        card.figures = [number, main = "haupterwerb" + person, side = "nebenerwerb" + person](
                           const TaxCase& taxCase, const TaxResult& result) {
            // Without a side job the total says it all.
            return std::ranges::all_of(incomeOf(taxCase, number).salaries,
                                       &SalaryCertificate::isMainEmployment)
                       ? std::vector<Figure>{}
                       : linesOf({{main, "Haupterwerb"}, {side, "Nebenerwerb"}})(taxCase, result);
        };
    }
    return card;
}

FieldsCard businessCard(const PageContext& context, int number) {
    const bool abroad = isLiechtenstein(context);
    return fieldsCard(
        "Selbständigkeit und Mandate", "Ein Verlust steht mit einem Minus davor.",
        bindAll(
            incomePlace(number),
            {amount<&PersonIncome::selfEmployment>(
                 "Selbständige Erwerbstätigkeit",
                 "Der Gewinn des Jahres nach Abzug der AHV-Beiträge, gemäss der Erfolgsrechnung "
                 "Ihres Geschäfts."),
             amount<&PersonIncome::partnership>(
                 abroad ? "Anteil an Personengesellschaften" : "Kollektiv-/Kommanditgesellschaften",
                 "Ihr Anteil am Gewinn, gemäss dem Abschluss der Gesellschaft."),
             amount<&PersonIncome::boardFees>(
                 abroad ? "Organentschädigungen" : "Sitzungsgelder, VR-Honorare",
                 "Entschädigungen für Verwaltungsrat, Vorstand, Kommission oder Behörde, die "
                 "auf keinem der Lohnausweise oben stehen.")}));
}

FieldsCard firstPillarCard(const PageContext& context, int number) {
    std::string help = "Alters-, Hinterlassenen- und Invalidenrenten der AHV und IV im ganzen "
                       "Jahr, gemäss der Rentenbescheinigung der Ausgleichskasse.";
    if (isLiechtenstein(context)) {
        help += sentence(context.liechtenstein, [](const LIRules& rules) {
            return "Davon sind " + MoneyFormat::number(rules.rentenFreibetragProzent)
                   + "% frei; das rechnet das Programm.";
        });
    } else {
        help += " Ergänzungsleistungen und Hilflosenentschädigungen sind steuerfrei.";
    }
    return fieldsCard(
        "AHV und IV", {},
        bindAll(incomePlace(number), {amount<&PersonIncome::ahvPension>("AHV/IV-Renten", help)}),
        isLiechtenstein(context) ? linesOf({{"630", "Freibetrag (Haushalt)"}}) : Figures());
}

ListCard pensionsCard(int number) {
    ListCard card = listCard<PensionIncome>(
        within<&PersonIncome::pensions>(incomePlace(number)),
        {.title = "Weitere Renten und Pensionen",
         .help = "Pensionskasse, SUVA, Militärversicherung, Leibrenten und ausländische Renten.",
         .itemName = "Rente",
         .emptyText = "Keine weiteren Renten erfasst.",
         .offersLastYear = true},
        {text<&PensionIncome::label>("Bezeichnung", "Wer die Rente bezahlt und wofür, zum Beispiel "
                                                    "«Pensionskasse, Altersrente»."),
         amount<&PensionIncome::amount>("Betrag im Jahr", "Der ganze Betrag des Jahres, gemäss der "
                                                          "Rentenbescheinigung."),
         decimal<&PensionIncome::taxablePercent>(
             "Steuerbarer Anteil", "%",
             "Meist die ganze Rente. Leibrenten und einzelne ältere Renten sind nur zum Teil "
             "steuerbar; der Anteil steht auf der Bescheinigung.")},
        [](const PensionIncome& pension) {
            return RowSummary{named(pension.label, "Rente"),
                              pension.taxablePercent == 100
                                  ? std::string()
                                  : MoneyFormat::number(pension.taxablePercent) + "% steuerbar",
                              rowMoney(pension.amount)};
        });
    card.total = [number](const TaxCase& taxCase) {
        Decimal taxable;
        for (const PensionIncome& pension : incomeOf(taxCase, number).pensions) {
            taxable += pension.amount * pension.taxablePercent / 100;
        }
        return "Total steuerbar " + plainMoney(taxable);
    };
    return card;
}

FieldsCard replacementCard(int number) {
    return fieldsCard(
        "Taggelder und Arbeitslosigkeit",
        "Nur was direkt an Sie bezahlt wurde und auf keinem Lohnausweis steht.",
        bindAll(incomePlace(number),
                {amount<&PersonIncome::dailyAllowances>(
                     "Taggelder",
                     "Taggelder bei Krankheit, Unfall, Mutterschaft oder Dienst, gemäss der "
                     "Bescheinigung der Versicherung oder der Ausgleichskasse."),
                 amount<&PersonIncome::unemployment>(
                     "Arbeitslosenentschädigung",
                     "Gemäss der Bescheinigung der Arbeitslosenkasse für das ganze Jahr.")}));
}

Section personalIncome(const PageContext& context, int number) {
    return personSection(number, {salariesCard(context, number), businessCard(context, number),
                                  firstPillarCard(context, number), pensionsCard(number),
                                  replacementCard(number)});
}

FieldsCard familyIncomeCard(const PageContext& context) {
    return fieldsCard(
        "Familie und Unterhalt", {},
        bindAll(
            within<&TaxCase::householdIncome>(wholeCase()),
            {onlyStGallen(context, amount<&HouseholdIncome::familyAllowancesDirect>(
                                       "Direkt ausbezahlte Familienzulagen",
                                       "Kinder- und Ausbildungszulagen, die nicht über den Lohn "
                                       "kamen, gemäss der Bescheinigung der Ausgleichskasse.")),
             amount<&HouseholdIncome::alimonyReceivedSelf>(
                 "Unterhaltsbeiträge für sich",
                 "Alimente des geschiedenen oder getrennten Partners für Sie selbst."),
             amount<&HouseholdIncome::alimonyReceivedChildren>(
                 "Unterhaltsbeiträge für minderjährige Kinder",
                 "Alimente für Kinder bis zum Monat, in dem sie volljährig werden.")}));
}

FieldsCard otherIncomeCard(const PageContext& context) {
    const auto hasOther = [](const TaxCase&, const HouseholdIncome& income) {
        return !income.otherIncome.isZero() || !isBlank(income.otherIncomeDescription);
    };
    const bool abroad = isLiechtenstein(context);
    return fieldsCard(
        "Übrige Einkünfte",
        abroad
            ? "Zinsen, Dividenden und Mieten gehören nicht hierher: In Liechtenstein zählt dafür "
              "der Sollertrag des Vermögens."
            : "Zinsen, Dividenden und Mieten gehören nicht hierher: Sie stehen auf der Seite "
              "Vermögen.",
        bindAll(within<&TaxCase::householdIncome>(wholeCase()),
                {amount<&HouseholdIncome::undividedEstates>(
                     "Ertrag aus unverteilten Erbschaften",
                     "Ihr Anteil am Ertrag der Erbengemeinschaft, gemäss deren Abrechnung."),
                 amount<&HouseholdIncome::otherIncome>(
                     "Weitere Einkünfte", "Was auf dieser Seite sonst keinen Platz hat, etwa "
                                          "Einnahmen aus Untermiete oder Gelegenheitsarbeit."),
                 text<&HouseholdIncome::otherIncomeDescription>(
                     "Bezeichnung der weiteren Einkünfte", "In wenigen Worten, woher sie stammen.")
                     .usableWhen(hasOther),
                 onlyStGallen(context, amount<&HouseholdIncome::qualifiedParticipationIncome>(
                                           "Erträge aus Beteiligungen ab 10% (Privatvermögen)",
                                           "Der ganze Ertrag; die Teilbesteuerung rechnet das "
                                           "Programm. Was im Wertschriftenverzeichnis als "
                                           "Beteiligung steht, hier bitte nicht nochmals.")),
                 onlyStGallen(context, amount<&HouseholdIncome::simplifiedSettlementIncome>(
                                           "Vereinfacht abgerechnete Einkünfte",
                                           "Kleine Löhne, deren Steuer schon der Arbeitgeber "
                                           "abgerechnet hat, etwa im Haushalt. Sie stehen nur zur "
                                           "Information."))}),
        abroad ? Figures() : linesOf({{"teilbesteuerung", "Abzug Teilbesteuerung"}}));
}

} // namespace

Page incomePage(const PageContext& context) {
    return {.id = "income",
            .title = "Einkommen",
            .help = "Was der Haushalt im Jahr " + std::to_string(context.year)
                    + " verdient und sonst erhalten hat.",
            .sections = {personalIncome(context, 1), personalIncome(context, 2),
                         Section{.title = [](const TaxCase&) { return "Haushalt"; },
                                 .cards = {familyIncomeCard(context), otherIncomeCard(context)}}}};
}

} // namespace fiscarel::pages
