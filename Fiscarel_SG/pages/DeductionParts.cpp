#include "Fiscarel_SG/pages/DeductionParts.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

#include <array>
#include <cstdio>

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

std::string personName(const TaxCase& taxCase, int number) {
    const Person& person = entriesOf(taxCase, number).person;
    return isBlank(person.firstName) && isBlank(person.lastName)
               ? "Person " + std::to_string(number)
               : person.displayName();
}

Place<Person> personPlace(int number) {
    return number == 1 ? within<&TaxCase::person1>(wholeCase())
                       : within<&TaxCase::person2>(wholeCase());
}

Place<PersonDeductions> deductionsPlace(int number) {
    return number == 1 ? within<&TaxCase::deductions1>(wholeCase())
                       : within<&TaxCase::deductions2>(wholeCase());
}

AdultEntries entriesOf(const TaxCase& taxCase, int number) {
    return number == 1 ? AdultEntries{1, taxCase.person1, taxCase.income1, taxCase.deductions1}
                       : AdultEntries{2, taxCase.person2, taxCase.income2, taxCase.deductions2};
}

Section personSection(int number, std::vector<Card> cards) {
    return {.title = [number](const TaxCase& taxCase) { return personName(taxCase, number); },
            .cards = std::move(cards),
            .shown = [number](const TaxCase& taxCase) { return number == 1 || taxCase.isJoint(); }};
}

std::string plainMoney(const Decimal& francs) { return MoneyFormat::chf(francs, 0, false); }

std::string percentText(const Decimal& fraction) {
    return MoneyFormat::number(fraction * 100) + "%";
}

std::string dayText(const std::optional<Date>& date) {
    if (!date) {
        return {};
    }
    std::array<char, 40> text{};
    const int length = std::snprintf(text.data(), text.size(), "%02d.%02d.%04d", date->day(),
                                     date->month(), date->year());
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string rowMoney(const Decimal& francs) {
    return francs.isZero() ? std::string() : plainMoney(francs);
}

std::string named(std::string_view text, std::string_view otherwise) {
    return std::string(isBlank(text) ? otherwise : text);
}

std::string amountOf(const RuleBook& rules, DeductionAmount amount) {
    const Decimal& canton = rules.cantonal.*amount;
    const Decimal& federal = rules.federal.*amount;
    return canton == federal ? MoneyFormat::fr(canton)
                             : MoneyFormat::fr(canton) + " beim Kanton und "
                                   + MoneyFormat::fr(federal) + " beim Bund";
}

std::string sideBySide(const Decimal& canton, const std::optional<Decimal>& federal) {
    const std::string text = plainMoney(canton);
    const std::string other = plainMoney(federal.value_or(canton));
    return text == other ? text : text + " · Bund " + other;
}

Figures linesOf(std::vector<LineFigure> lines) {
    return [lines = std::move(lines)](const TaxCase&, const TaxResult& result) {
        std::vector<Figure> figures;
        for (const LineFigure& wanted : lines) {
            if (const TaxLine* line = result.line(wanted.code)) {
                figures.push_back({named(wanted.label, line->label),
                                   sideBySide(line->canton, line->federal),
                                   line->note.value_or("")});
            }
        }
        return figures;
    };
}

void addDeducted(std::vector<Figure>& figures, const TaxResult& result, const LineFigure& wanted,
                 const Decimal& entered) {
    const TaxLine* const line = result.line(wanted.code);
    if (line == nullptr && entered.isZero()) {
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
    FieldsCard card{.title = std::move(title),
                    .help = std::move(help),
                    .fields = std::move(fields),
                    .figures = std::move(figures),
                    .shown = {}};
    card.shown = [conditions = card.fields](const TaxCase& taxCase) {
        return std::ranges::any_of(conditions,
                                   [&](const BoundField& field) { return field.shown(taxCase); });
    };
    return card;
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
