#pragma once

// What the pages of pensions, deductions and wealth share: places of a person, texts that take
// their figures from the rules, figures of lines.

#include "Fiscarel_SG/forms/Page.h"
#include "TaxCore/result/AdultEntries.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel::pages {

inline bool isLiechtenstein(const forms::PageContext& context) {
    return context.region == taxcore::TaxRegion::liechtenstein;
}

// Persons, by their number 1 or 2.

/// The name; "Person 1" without one.
std::string personName(const taxcore::TaxCase& taxCase, int number);
forms::Place<taxcore::Person> personPlace(int number);
forms::Place<taxcore::PersonDeductions> deductionsPlace(int number);
/// What the case holds of a person; it refers to the case.
taxcore::AdultEntries entriesOf(const taxcore::TaxCase& taxCase, int number);
/// A section under the person's name; the second one's only in joint households.
forms::Section personSection(int number, std::vector<forms::Card> cards);

// Texts.

/// "8’000"
std::string plainMoney(const taxcore::Decimal& francs);
/// A fraction as "20%".
std::string percentText(const taxcore::Decimal& fraction);
/// "01.03.2025"; empty without a date.
std::string dayText(const std::optional<taxcore::Date>& date);
/// "8’000", empty for 0: the amount of a row.
std::string rowMoney(const taxcore::Decimal& francs);
/// The first text that is not blank.
std::string named(std::string_view text, std::string_view otherwise);

/// A sentence made of the rules, with the space before it; nothing without rules.
template <class Rules, class Text>
std::string sentence(const Rules* rules, const Text& text) {
    return rules != nullptr ? " " + text(*rules) : std::string();
}

using DeductionAmount = taxcore::Decimal taxcore::DeductionParams::*;
/// An amount of both authorities: "Fr. 13’000", or "Fr. 26’700 beim Kanton und Fr. 25’800 beim
/// Bund".
std::string amountOf(const taxcore::RuleBook& rules, DeductionAmount amount);

// Figures.

/// "3’200", or "3’200 · Bund 3’000" when the federation's is another one.
std::string sideBySide(const taxcore::Decimal& canton,
                       const std::optional<taxcore::Decimal>& federal = std::nullopt);

/// A line of the return under a name of its own, or under the line's when `label` is empty.
struct LineFigure {
    std::string code;
    std::string label;
};
/// The lines that the return has, with their notes.
forms::Figures linesOf(std::vector<LineFigure> lines);

/// What counts of an amount entered, by the line of this code; told when it is less. Nothing when
/// neither was anything entered nor deducted.
void addDeducted(std::vector<forms::Figure>& figures, const taxcore::TaxResult& result,
                 const LineFigure& line, const taxcore::Decimal& entered);

// Fields and cards.

/// A field that Liechtenstein gives no effect: there it is shown only while something stands in it,
/// so that it can be taken out.
template <class Record>
forms::Field<Record> onlyStGallen(const forms::PageContext& context, forms::Field<Record> field) {
    if (isLiechtenstein(context)) {
        field.help = "Zählt in Liechtenstein nicht. Das Feld erscheint nur, solange etwas darin "
                     "steht; bitte leeren.";
        field.shown = [get = field.get](const taxcore::TaxCase&, const Record& record) {
            return get(record) != get(Record{});
        };
    }
    return field;
}

/// The fields of several records as those of one card.
template <class... Fields>
std::vector<forms::BoundField> joined(Fields... fields) {
    std::vector<forms::BoundField> all;
    (std::move(fields.begin(), fields.end(), std::back_inserter(all)), ...);
    return all;
}

/// A card that is there while one of its fields is.
forms::FieldsCard fieldsCard(std::string title, std::string help,
                             std::vector<forms::BoundField> fields, forms::Figures figures = {});

/// A list whose items come and go on another page.
forms::ListCard withFixedItems(forms::ListCard list);

template <class Item>
taxcore::Decimal totalOf(const std::vector<Item>& items, taxcore::Decimal Item::*amount) {
    taxcore::Decimal total;
    for (const Item& item : items) {
        total += item.*amount;
    }
    return total;
}

} // namespace fiscarel::pages
