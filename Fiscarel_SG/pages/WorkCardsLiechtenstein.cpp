#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WorkCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/liechtenstein/WorkCosts.h"

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

namespace {

LICommute commuteOf(const TaxCase& taxCase, int number) {
    return number == 1 ? taxCase.liExtras().commute1 : taxCase.liExtras().commute2;
}

bool isAbroad(const TaxCase&, const LICommute& commute) {
    return commute.mode == LICommute::Mode::ausland;
}
bool isAtHome(const TaxCase& taxCase, const LICommute& commute) {
    return !isAbroad(taxCase, commute);
}

/// Only places of the table have a fare.
forms::Field<LICommute> placeField(const LIRules* rules, forms::Field<LICommute> field) {
    if (rules != nullptr) {
        field.editor = Editor::choice;
        field.options.push_back({"", "– kein Ort gewählt", {}});
        for (const std::string& place : rules->fahrkostenOrte) {
            field.options.push_back({place, place, {}});
        }
    }
    return std::move(field).usableWhen(isAtHome);
}

std::string kilometresHelp(const LIRules* rules) {
    return "Hin- und Rückweg zusammen." + sentence(rules, [](const LIRules& book) {
               return "Es gelten " + MoneyFormat::number(book.fahrRappenBis10000)
                      + " Rappen pro Kilometer, über 10’000 km im Jahr "
                      + MoneyFormat::number(book.fahrRappenUeber10000) + " Rappen; höchstens "
                      + MoneyFormat::number(book.fahrMaxKmProTag) + " km pro Tag.";
           });
}

std::vector<forms::Field<LICommute>> commuteFields(const LIRules* rules) {
    return {
        choice<&LICommute::mode>("Arbeitsort",
                                 "In Liechtenstein zählt die Tabelle der Fahrkosten, im Ausland "
                                 "zählen die Kilometer."),
        placeField(rules, text<&LICommute::from>("Von (Wohnort)",
                                                 "Der Ort der Tabelle, an dem Sie wohnen.")),
        placeField(rules, text<&LICommute::to>("Nach (Arbeitsort)",
                                               "Der Ort der Tabelle, an dem Sie arbeiten.")),
        decimal<&LICommute::kmPerDay>("Kilometer pro Tag", "km", kilometresHelp(rules))
            .usableWhen(isAbroad),
        integer<&LICommute::workDays>(
            "Arbeitstage", "Tage",
            "Tage mit Fahrt zur Arbeit, ohne Home-Office und Ferien."
                + sentence(rules,
                           [](const LIRules& book) { return mostDaysText(book.fahrMaxTage); })),
        amount<&LICommute::reimbursed>("Vom Arbeitgeber vergütete Fahrkosten",
                                       "Was der Arbeitgeber im Jahr an den Arbeitsweg bezahlt hat; "
                                       "es wird von den Fahrkosten abgezogen."),
    };
}

/// Why the costs are what they are, when that is not plain from the entries.
std::string commuteNote(const LIRules* rules, const LICommute& commute, const TaxResult& result) {
    if (rules == nullptr || commute.mode == LICommute::Mode::ausland) {
        return {};
    }
    if (li::usesFareTable(commute, *rules)) {
        const TaxLine* line = result.line("580");
        return line != nullptr ? line->note.value_or("") : std::string();
    }
    return commute.from.empty() || commute.to.empty()
               ? std::string()
               : "Die Strecke steht nicht in der Tabelle – keine Fahrkosten.";
}

/// Cards stand while the person has a salary, or entries that would otherwise be out of sight.
FieldsCard personCard(int number, std::string title, std::string help,
                      const std::vector<forms::Field<LICommute>>& fields, Figures figures) {
    FieldsCard card = fieldsCard(std::move(title), std::move(help),
                                 bindAll(commutePlace(number), fields), std::move(figures));
    card.shown = [number](const TaxCase& taxCase) {
        return hasSalary(taxCase, number) || commuteOf(taxCase, number) != LICommute{};
    };
    return card;
}

FieldsCard commuteCard(const LIRules* rules, int number) {
    return personCard(
        number, "Arbeitsweg", {}, commuteFields(rules),
        workFigure(number, "Fahrkosten", &WorkExpenseBreakdown::commute,
                   [=](const TaxCase& taxCase, const TaxResult& result, const WorkResult&) {
                       return commuteNote(rules, commuteOf(taxCase, number), result);
                   }));
}

FieldsCard mealsCard(const LIRules* rules, int number) {
    const std::string help = "Arbeitstage, an denen Sie über Mittag nicht nach Hause konnten."
                             + sentence(rules, [](const LIRules& book) {
                                   return francsText(book.verpflegungProTag)
                                          + " pro Tag, im Jahr höchstens "
                                          + francsText(book.verpflegungMax) + ".";
                               });
    const auto note = [=](const TaxCase& taxCase, const TaxResult&, const WorkResult& work) {
        const int days = commuteOf(taxCase, number).mealDays;
        const bool isCut = rules != nullptr && !work.isZero(&WorkExpenseBreakdown::meals)
                           && rules->verpflegungProTag * days > rules->verpflegungMax;
        return isCut ? "Gekürzt auf " + francsText(rules->verpflegungMax) + " im Jahr."
                     : std::string();
    };
    return personCard(
        number, "Verpflegung", {},
        {integer<&LICommute::mealDays>("Tage mit auswärtiger Verpflegung", "Tage", help)},
        workFigure(number, "Verpflegung", &WorkExpenseBreakdown::meals, note));
}

FieldsCard totalCard(const LIRules* rules, int number) {
    return {.title = "Gewinnungskosten",
            .help = withRules(rules,
                              [](const LIRules& book) {
                                  return "Ohne Nachweis gilt die Pauschale von "
                                         + francsText(book.gewinnungskostenPauschal)
                                         + " pro Person, höchstens der Lohn.";
                              }),
            .figures =
                [number](const TaxCase&, const TaxResult& result) {
                    std::vector<Figure> told;
                    if (const auto work = workResultOf(result, number)) {
                        told.push_back({"Ergänzung bis zur Pauschale",
                                        work->isZero(&WorkExpenseBreakdown::other)
                                            ? noFigure
                                            : work->text(&WorkExpenseBreakdown::other),
                                        {}});
                        told.push_back({"Abzug total", work->total(), {}});
                    }
                    return told;
                },
            .shown = [number](const TaxCase& taxCase) { return hasSalary(taxCase, number); }};
}

} // namespace

std::vector<Card> workCardsLiechtenstein(const LIRules* rules, int number) {
    return {needsSalaryCard(number), commuteCard(rules, number), mealsCard(rules, number),
            totalCard(rules, number)};
}

} // namespace fiscarel::pages
