#include "Fiscarel_SG/pages/PageParts.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

#include <algorithm>

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

std::string personName(const TaxCase& taxCase, int number) {
    const Person& person = number == 1 ? taxCase.person1 : taxCase.person2;
    return isBlank(person.firstName) && isBlank(person.lastName)
               ? "Person " + std::to_string(number)
               : person.displayName();
}

bool hasPerson(const TaxCase& taxCase, int number) noexcept {
    return number == 1 || taxCase.isJoint();
}

bool isPersonName(const TaxCase& taxCase, std::string_view text) {
    return std::ranges::any_of(taxCase.persons(),
                               [&](const Person& person) { return person.displayName() == text; });
}

Place<Person> personPlace(int number) {
    return number == 1 ? within<&TaxCase::person1>(wholeCase())
                       : within<&TaxCase::person2>(wholeCase());
}

Place<PersonIncome> incomePlace(int number) {
    return number == 1 ? within<&TaxCase::income1>(wholeCase())
                       : within<&TaxCase::income2>(wholeCase());
}

Place<PersonDeductions> deductionsPlace(int number) {
    return number == 1 ? within<&TaxCase::deductions1>(wholeCase())
                       : within<&TaxCase::deductions2>(wholeCase());
}

Place<WorkExpenses> workPlace(int number) {
    return within<&PersonDeductions::work>(deductionsPlace(number));
}

Place<LICommute> commutePlace(int number) {
    const Place<LIExtras> extras = within<&TaxCase::li>(wholeCase());
    return number == 1 ? within<&LIExtras::commute1>(extras) : within<&LIExtras::commute2>(extras);
}

const PersonIncome& incomeOf(const TaxCase& taxCase, int number) noexcept {
    return number == 1 ? taxCase.income1 : taxCase.income2;
}

bool hasSalary(const TaxCase& taxCase, int number) noexcept {
    return !incomeOf(taxCase, number).salaries.empty();
}

const WorkExpenses& workOf(const TaxCase& taxCase, int number) noexcept {
    return number == 1 ? taxCase.deductions1.work : taxCase.deductions2.work;
}

AdultEntries entriesOf(const TaxCase& taxCase, int number) {
    return number == 1 ? AdultEntries{1, taxCase.person1, taxCase.income1, taxCase.deductions1}
                       : AdultEntries{2, taxCase.person2, taxCase.income2, taxCase.deductions2};
}

std::string childName(const Child& child) {
    const bool both = !isBlank(child.firstName) && !isBlank(child.lastName);
    return named(child.firstName + (both ? " " : "") + child.lastName, "Kind");
}

Section personSection(int number, std::vector<Card> cards) {
    return {.title = [number](const TaxCase& taxCase) { return personName(taxCase, number); },
            .cards = std::move(cards),
            .shown = [number](const TaxCase& taxCase) { return hasPerson(taxCase, number); }};
}

std::string plainMoney(const Decimal& francs) { return MoneyFormat::chf(francs, 0, false); }

std::string rowMoney(const Decimal& francs) {
    return francs.isZero() ? std::string() : plainMoney(francs);
}

std::string francsText(const Decimal& francs) {
    return francs.isInteger() ? MoneyFormat::fr(francs)
                              : "Fr. " + MoneyFormat::chf(francs, 2, false);
}

std::string francsOfBoth(const Decimal& canton, const Decimal& federal) {
    return francsText(canton)
           + (canton == federal ? std::string() : " (Bund " + francsText(federal) + ")");
}

std::string percentText(const Decimal& fraction) {
    return MoneyFormat::number(fraction * 100) + "%";
}

std::string dayAndMonth(const Date& date) {
    return std::to_string(date.day()) + "." + std::to_string(date.month()) + ".";
}

std::string dayText(const std::optional<Date>& date) {
    return date ? formatDate(*date) : std::string();
}

namespace {

/// As short as the days without a year that stand in the same places.
std::string withYear(const Date& date) { return dayAndMonth(date) + std::to_string(date.year()); }

} // namespace

std::string periodText(const std::optional<Date>& from, const std::optional<Date>& to) {
    if (from && to) {
        return from->year() == to->year() ? dayAndMonth(*from) + " – " + dayAndMonth(*to)
                                          : withYear(*from) + " – " + withYear(*to);
    }
    return from ? "ab " + dayAndMonth(*from) : to ? "bis " + dayAndMonth(*to) : std::string();
}

std::string amountOf(const RuleBook& rules, DeductionAmount amount) {
    const Decimal& canton = rules.cantonal.*amount;
    const Decimal& federal = rules.federal.*amount;
    return canton == federal ? MoneyFormat::fr(canton)
                             : MoneyFormat::fr(canton) + " beim Kanton und "
                                   + MoneyFormat::fr(federal) + " beim Bund";
}

std::string named(std::string_view text, std::string_view otherwise) {
    return std::string(isBlank(text) ? otherwise : text);
}

std::string sideBySide(const Decimal& canton, const std::optional<Decimal>& federal) {
    const std::string text = plainMoney(canton);
    const std::string other = federal ? plainMoney(*federal) : text;
    return text == other ? text : "Kanton " + text + " · Bund " + other;
}

std::string WorkResult::text(Decimal WorkExpenseBreakdown::*part) const {
    return sideBySide(canton.*part, federal ? std::optional((*federal).*part) : std::nullopt);
}

std::string WorkResult::total() const {
    return sideBySide(canton.total(), federal ? std::optional(federal->total()) : std::nullopt);
}

bool WorkResult::isZero(Decimal WorkExpenseBreakdown::*part) const {
    return (canton.*part).isZero() && (!federal || ((*federal).*part).isZero());
}

std::optional<WorkResult> workResultOf(const TaxResult& result, int number) {
    const auto at = static_cast<std::size_t>(number - 1);
    const auto& [canton, federal] = result.work;
    if (!canton || at >= canton->size()) {
        return std::nullopt;
    }
    return WorkResult{(*canton)[at], federal && at < federal->size() ? std::optional((*federal)[at])
                                                                     : std::nullopt};
}

Figures workFigure(int number, std::string name, Decimal WorkExpenseBreakdown::*part,
                   WorkNote note) {
    return [=, name = std::move(name), note = std::move(note)](const TaxCase& taxCase,
                                                               const TaxResult& result) {
        Figure figure{name, noFigure, {}, note != nullptr};
        if (const auto work = workResultOf(result, number)) {
            figure.note = note ? note(taxCase, result, *work) : std::string();
            if (!figure.note.empty() || !work->isZero(part)) {
                figure.text = work->text(part);
            }
        }
        return std::vector{figure};
    };
}

Figures linesOf(std::vector<LineFigure> lines) {
    return [lines = std::move(lines)](const TaxCase& taxCase, const TaxResult& result) {
        std::vector<Figure> figures;
        for (const LineFigure& wanted : lines) {
            if (const TaxLine* line = result.line(wanted.code)) {
                const std::string note = line->note.value_or("");
                figures.push_back(
                    {named(wanted.label, line->label), sideBySide(line->canton, line->federal),
                     isPersonName(taxCase, note) ? std::string() : note, wanted.keepsNoteRoom});
            } else if (!wanted.label.empty()) {
                figures.push_back({wanted.label, noFigure, {}, wanted.keepsNoteRoom});
            }
        }
        return figures;
    };
}

void addDeducted(std::vector<Figure>& figures, const TaxResult& result, const LineFigure& wanted,
                 const Decimal& entered) {
    const TaxLine* const line = result.line(wanted.code);
    if (line == nullptr && entered.isZero()) {
        figures.push_back({wanted.label, noFigure, {}});
        return;
    }
    const Decimal canton = line != nullptr ? line->canton : Decimal(0);
    const Decimal federal = line != nullptr ? line->federalOrCanton() : Decimal(0);
    const bool cut = canton < entered || federal < entered;
    figures.push_back({wanted.label, sideBySide(canton, federal),
                       cut ? "gekürzt, eingetragen sind " + plainMoney(entered) : std::string()});
}

FieldsCard fieldsCard(std::string title, std::string help, std::vector<BoundField> fields,
                      Figures figures) {
    std::vector<Condition> conditions;
    conditions.reserve(fields.size());
    for (const BoundField& field : fields) {
        conditions.push_back(field.shown);
    }
    return {.title = std::move(title),
            .help = std::move(help),
            .fields = std::move(fields),
            .figures = std::move(figures),
            .shown = [conditions = std::move(conditions)](const TaxCase& taxCase) {
                return std::ranges::any_of(conditions,
                                           [&](const Condition& holds) { return holds(taxCase); });
            }};
}

ListCard withFixedItems(ListCard list) {
    list.add = nullptr;
    list.remove = nullptr;
    list.duplicate = nullptr;
    list.move = nullptr;
    list.takeOver = nullptr;
    return list;
}

} // namespace fiscarel::pages
