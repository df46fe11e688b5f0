#pragma once

// What the pages share: places of a person, texts that take their figures from the rules, figures
// of the result.

#include "Fiscarel_SG/forms/Page.h"
#include "TaxCore/result/AdultEntries.h"

#include <algorithm>
#include <functional>
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
/// Whether the person counts: the second one only in joint households.
bool hasPerson(const taxcore::TaxCase& taxCase, int number) noexcept;
/// Whether a text is no more than the name of a person of the case, as the notes of lines that each
/// person has of their own.
bool isPersonName(const taxcore::TaxCase& taxCase, std::string_view text);
forms::Place<taxcore::Person> personPlace(int number);
forms::Place<taxcore::PersonIncome> incomePlace(int number);
forms::Place<taxcore::PersonDeductions> deductionsPlace(int number);
forms::Place<taxcore::WorkExpenses> workPlace(int number);
forms::Place<taxcore::LICommute> commutePlace(int number);
const taxcore::PersonIncome& incomeOf(const taxcore::TaxCase& taxCase, int number) noexcept;
/// Whether the person has a salary certificate.
bool hasSalary(const taxcore::TaxCase& taxCase, int number) noexcept;
const taxcore::WorkExpenses& workOf(const taxcore::TaxCase& taxCase, int number) noexcept;
/// What the case holds of a person; it refers to the case.
taxcore::AdultEntries entriesOf(const taxcore::TaxCase& taxCase, int number);
/// First and last name; "Kind" without one.
std::string childName(const taxcore::Child& child);
/// A section under the person's name, there while the person counts.
forms::Section personSection(int number, std::vector<forms::Card> cards);

// Texts.

/// "8’000"
std::string plainMoney(const taxcore::Decimal& francs);
/// "8’000"; empty for 0: the amount of a row.
std::string rowMoney(const taxcore::Decimal& francs);
/// "Fr. 15", with Rappen where there are some: "Fr. 7.50".
std::string francsText(const taxcore::Decimal& francs);
/// The same for both authorities: "Fr. 8’000 (Bund Fr. 3’300)", once when they agree.
std::string francsOfBoth(const taxcore::Decimal& canton, const taxcore::Decimal& federal);
/// A fraction as "20%".
std::string percentText(const taxcore::Decimal& fraction);
/// "1.3."
std::string dayAndMonth(const taxcore::Date& date);
/// "01.03.2025", as fields show it; empty without a date.
std::string dayText(const std::optional<taxcore::Date>& date);
/// "1.1. – 31.12.", with years when the two differ; "ab 1.3." or "bis 30.9." with one of them.
std::string periodText(const std::optional<taxcore::Date>& from,
                       const std::optional<taxcore::Date>& to);
using DeductionAmount = taxcore::Decimal taxcore::DeductionParams::*;
/// An amount of both authorities: "Fr. 13’000", or "Fr. 26’700 beim Kanton und Fr. 25’800 beim
/// Bund".
std::string amountOf(const taxcore::RuleBook& rules, DeductionAmount amount);
/// The text, or another one when it is blank.
std::string named(std::string_view text, std::string_view otherwise);

/// A text made of the rules; nothing without rules.
template <class Rules, class Text>
std::string withRules(const Rules* rules, const Text& text) {
    return rules != nullptr ? text(*rules) : std::string();
}
/// The same as a sentence behind another, with the space before it.
template <class Rules, class Text>
std::string sentence(const Rules* rules, const Text& text) {
    return rules != nullptr ? " " + text(*rules) : std::string();
}

// Figures.

/// "3’200", or "Kanton 3’200 · Bund 3’000" when the federation's is another one.
std::string sideBySide(const taxcore::Decimal& canton,
                       const std::optional<taxcore::Decimal>& federal = std::nullopt);

/// One person's work expenses as they count.
struct WorkResult {
    taxcore::WorkExpenseBreakdown canton;
    std::optional<taxcore::WorkExpenseBreakdown> federal; ///< absent in Liechtenstein

    /// A part of them, side by side.
    std::string text(taxcore::Decimal taxcore::WorkExpenseBreakdown::*part) const;
    std::string total() const;
    /// Whether a part is 0 for both authorities.
    bool isZero(taxcore::Decimal taxcore::WorkExpenseBreakdown::*part) const;
};
/// Absent where the person does not count.
std::optional<WorkResult> workResultOf(const taxcore::TaxResult& result, int number);

/// What to tell of a part of a person's work expenses, in view of the entries; may be empty.
using WorkNote = std::function<std::string(const taxcore::TaxCase&, const taxcore::TaxResult&,
                                           const WorkResult&)>;
/// A part of a person's work expenses; `noFigure` when it is 0 and there is nothing to tell of it.
forms::Figures workFigure(int number, std::string name,
                          taxcore::Decimal taxcore::WorkExpenseBreakdown::*part,
                          WorkNote note = {});

/// A line of the return under a name of its own, with which it keeps its place while the return
/// does not have it; without one under the line's, as long as there is one.
struct LineFigure {
    std::string code;
    std::string label;
    bool keepsNoteRoom = false; ///< as of the figure
};
/// Lines of the return, with their notes unless these only name the person.
forms::Figures linesOf(std::vector<LineFigure> lines);
/// What counts of an amount entered, by the line of this code; told when it is less. `noFigure`
/// when neither was anything entered nor deducted.
void addDeducted(std::vector<forms::Figure>& figures, const taxcore::TaxResult& result,
                 const LineFigure& line, const taxcore::Decimal& entered);

// Fields and cards.

/// A field without effect in Liechtenstein: there it is shown only while something stands in it,
/// so that it can be taken out.
template <class Record>
forms::Field<Record> onlyStGallen(const forms::PageContext& context, forms::Field<Record> field) {
    if (isLiechtenstein(context)) {
        field.help = "Zählt in Liechtenstein nicht. Das Feld erscheint nur, solange etwas darin "
                     "steht; bitte leeren.";
        field.shown = [get = field.get, initial = field.get(Record{})](const taxcore::TaxCase&,
                                                                       const Record& record) {
            return get(record) != initial;
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

/// A list whose new records start with what the case knows of them already.
template <class Item>
void beginWith(forms::ListCard& card, const forms::Place<std::vector<Item>>& list,
               std::function<void(Item&, const taxcore::TaxCase&)> known) {
    card.add = [list, known = std::move(known)](taxcore::TaxCase& taxCase) {
        Item item;
        known(item, taxCase);
        if (auto* const items = list.write(taxCase)) {
            items->push_back(std::move(item));
        }
    };
}

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
