#pragma once

// Fields of the pages as data: what a field is called, how it is edited and where in the case it
// stands. A field is one line, typed by a member pointer; its path follows from the description of
// the record. Knows no widgets.

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/MemberPointer.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/rulebook/LIRules.h"
#include "TaxCore/rulebook/RuleBook.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace taxcore {
class CaseCalculator;
}

namespace fiscarel::forms {

using taxcore::Date;
using taxcore::Decimal;
using taxcore::TaxCase;

/// What stands in a field; `monostate` in an optional one that is empty. Choices stand as the raw
/// text of their value.
using Value = std::variant<std::monostate, bool, int, Decimal, std::string, Date>;

/// How a field is edited.
enum class Editor {
    amount,       ///< francs, Swiss grouping, sums allowed
    decimal,      ///< kilometres, percent, pieces: a number with a unit
    integer,      ///< days, years, rooms
    text,         ///< one line
    paragraph,    ///< several lines
    check,        ///< yes or no
    choice,       ///< one of `options`
    date,         ///< a day
    iban,         ///< grouped, check digits verified
    municipality, ///< from the list of the year and region
    parish,       ///< of the municipality entered
};

/// What may be chosen.
struct Option {
    std::string raw;     ///< as it stands in the case; empty: nothing is chosen
    std::string label;   ///< German
    std::string wording; ///< German: at length, told below the field once chosen; may be empty
};

/// The year and region a page is made for, with the rules its texts take figures from.
struct PageContext {
    int year = 0;
    taxcore::TaxRegion region = taxcore::TaxRegion::stGallen;
    const taxcore::CaseCalculator* calculator = nullptr; ///< null without rules
    const taxcore::RuleBook* stGallen = nullptr; ///< null in the other region, or without rules
    const taxcore::LIRules* liechtenstein = nullptr;
};

/// A field of a record.
template <class Record>
struct Field {
    std::string_view name; ///< of the record's field
    std::string label;     ///< German
    std::string help;      ///< German: what it is and on which document it stands; may be empty
    Editor editor = Editor::text;
    std::string unit;            ///< behind the number: "CHF", "km", "%", "Tage"
    std::vector<Option> options; ///< of a choice
    bool isOptional = false;     ///< may be left empty
    bool isSummed = false;       ///< of a table's amount: its sum stands below the column
    std::function<Value(const Record&)> get;
    std::function<void(Record&, const Value&)> set;
    /// Whether it is shown for a record of a case; absent: always.
    std::function<bool(const TaxCase&, const Record&)> shown;
    /// Whether it can be edited; absent: always. It keeps its place meanwhile.
    std::function<bool(const TaxCase&, const Record&)> usable = {};
    /// Of a table's choice: its options as a case names them; absent: `options`.
    std::function<std::vector<Option>(const TaxCase&)> optionsFor = {};
    /// What the label says of a case, as the name of a person; absent: `label`.
    std::function<std::string(const TaxCase&)> labelFor = {};
    /// What counts while the field is empty, shown faintly in it; absent: last year's value.
    std::function<Value(const Record&)> computed = {};
    /// What becomes of the entry, German, one line below it; absent or empty: nothing.
    std::function<std::string(const Record&)> note = {};

    /// The same field, shown only while a condition holds. For what is decided elsewhere or by a
    /// click: what lies below moves.
    Field when(std::function<bool(const TaxCase&, const Record&)> condition) && {
        shown = std::move(condition);
        return std::move(*this);
    }
    /// The same field, always shown, but to be edited only while a condition holds: for what other
    /// entries of the same card decide, so that nothing moves while one types.
    Field usableWhen(std::function<bool(const TaxCase&, const Record&)> condition) && {
        usable = std::move(condition);
        return std::move(*this);
    }
    /// The same field, with its sum below the column of a table.
    Field summed() && {
        isSummed = true;
        return std::move(*this);
    }
};

/// A record within the case.
template <class Record>
struct Place {
    std::string path; ///< "income1.salaries[0]"; empty for the case itself
    /// The record; null when it is not there, as an item that was removed.
    std::function<const Record*(const TaxCase&)> read;
    std::function<Record*(TaxCase&)> write;
};

/// A field at its place in the case.
struct BoundField {
    std::string path; ///< "income1.salaries[0].grossSalary"
    std::string label;
    std::string help;
    Editor editor = Editor::text;
    std::string unit;
    std::vector<Option> options;
    bool isOptional = false;
    std::function<Value(const TaxCase&)> get;
    std::function<void(TaxCase&, const Value&)> set;
    std::function<bool(const TaxCase&)> shown;
    std::function<bool(const TaxCase&)> usable;
    std::function<std::vector<Option>(const TaxCase&)> optionsFor = {}; ///< as of a record's field
    // As of a record's field; absent likewise.
    std::function<std::string(const TaxCase&)> labelFor = {};
    std::function<Value(const TaxCase&)> computed = {};
    std::function<std::string(const TaxCase&)> note = {};
};

namespace detail {

template <class T>
struct Plain {
    using Type = T;
};
template <class T>
struct Plain<std::optional<T>> {
    using Type = T;
};

template <class T>
Value toValue(const T& field) {
    if constexpr (taxcore::isOptional<T>) {
        return field ? toValue(*field) : Value{};
    } else if constexpr (taxcore::TabledEnum<T>) {
        return std::string(taxcore::rawValue(field));
    } else {
        return field;
    }
}

/// A value of another type than the field's changes nothing.
template <class T>
void fromValue(T& field, const Value& value) {
    if constexpr (taxcore::isOptional<T>) {
        if (std::holds_alternative<std::monostate>(value)) {
            field.reset();
        } else {
            fromValue(field ? *field : field.emplace(), value);
        }
    } else if constexpr (taxcore::TabledEnum<T>) {
        if (const auto* raw = std::get_if<std::string>(&value)) {
            field = taxcore::enumFromRaw<T>(*raw).value_or(field);
        }
    } else if (const auto* given = std::get_if<T>(&value)) {
        field = *given;
    } else if (std::holds_alternative<std::monostate>(value)) {
        field = T{};
    }
}

template <auto member>
auto field(const std::string& label, const std::string& help, Editor editor) {
    using Record = typename taxcore::MemberOf<decltype(member)>::Record;
    using Type = typename taxcore::MemberOf<decltype(member)>::Type;
    Field<Record> made;
    made.name = taxcore::nameOf(member);
    made.label = label;
    made.help = help;
    made.editor = editor;
    made.isOptional = taxcore::isOptional<Type>;
    made.get = [](const Record& record) { return toValue(record.*member); };
    made.set = [](Record& record, const Value& value) { fromValue(record.*member, value); };
    return made;
}

} // namespace detail

// The fields by how they are edited: `amount<&Debt::interest>("Schuldzinsen", "…")`.

template <auto member>
auto amount(const std::string& label, const std::string& help = {}) {
    auto made = detail::field<member>(label, help, Editor::amount);
    made.unit = "CHF";
    return made;
}
template <auto member>
auto decimal(const std::string& label, const std::string& unit, const std::string& help = {}) {
    auto made = detail::field<member>(label, help, Editor::decimal);
    made.unit = unit;
    return made;
}
template <auto member>
auto integer(const std::string& label, const std::string& unit = {}, const std::string& help = {}) {
    auto made = detail::field<member>(label, help, Editor::integer);
    made.unit = unit;
    return made;
}
template <auto member>
auto text(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::text);
}
template <auto member>
auto paragraph(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::paragraph);
}
template <auto member>
auto check(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::check);
}
template <auto member>
auto date(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::date);
}
template <auto member>
auto iban(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::iban);
}
template <auto member>
auto municipality(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::municipality);
}
template <auto member>
auto parish(const std::string& label, const std::string& help = {}) {
    return detail::field<member>(label, help, Editor::parish);
}
/// An enumeration with its German labels.
template <auto member>
auto choice(const std::string& label, const std::string& help = {}) {
    using Enum = typename detail::Plain<typename taxcore::MemberOf<decltype(member)>::Type>::Type;
    auto made = detail::field<member>(label, help, Editor::choice);
    for (const Enum value : taxcore::allValues<Enum>()) {
        made.options.push_back(
            {std::string(taxcore::rawValue(value)), std::string(taxcore::label(value)), {}});
    }
    return made;
}

// Places: `place().of<&TaxCase::income1>()`.

/// The case itself.
inline Place<TaxCase> wholeCase() {
    return {"", [](const TaxCase& taxCase) { return &taxCase; },
            [](TaxCase& taxCase) { return &taxCase; }};
}

/// A record within the record at a place; an optional one that is absent shows its defaults and
/// comes into being when it is written.
template <auto member, class Record>
auto within(const Place<Record>& place) {
    using Type = typename taxcore::MemberOf<decltype(member)>::Type;
    using Inner = typename detail::Plain<Type>::Type;
    const std::string name(taxcore::nameOf(member));
    return Place<Inner>{place.path.empty() ? name : place.path + "." + name,
                        [read = place.read](const TaxCase& taxCase) -> const Inner* {
                            const Record* const record = read(taxCase);
                            if (record == nullptr) {
                                return nullptr;
                            }
                            if constexpr (taxcore::isOptional<Type>) {
                                static const Inner defaults{};
                                return record->*member ? &*(record->*member) : &defaults;
                            } else {
                                return &(record->*member);
                            }
                        },
                        [write = place.write](TaxCase& taxCase) -> Inner* {
                            Record* const record = write(taxCase);
                            if (record == nullptr) {
                                return nullptr;
                            }
                            if constexpr (taxcore::isOptional<Type>) {
                                auto& inner = record->*member;
                                return inner ? &*inner : &inner.emplace();
                            } else {
                                return &(record->*member);
                            }
                        }};
}

/// An item of the list at a place.
template <class Item>
Place<Item> itemOf(const Place<std::vector<Item>>& list, std::size_t index) {
    const auto at = [index](auto* items) {
        return items != nullptr && index < items->size() ? &(*items)[index] : nullptr;
    };
    return {list.path + "[" + std::to_string(index) + "]",
            [read = list.read, at](const TaxCase& taxCase) { return at(read(taxCase)); },
            [write = list.write, at](TaxCase& taxCase) { return at(write(taxCase)); }};
}

namespace detail {

/// A function of a record as one of the case; absent where it is.
template <class Result, class Record>
std::function<Result(const TaxCase&)> ofCase(const Place<Record>& place,
                                             const std::function<Result(const Record&)>& ofRecord) {
    if (!ofRecord) {
        return {};
    }
    return [place, ofRecord](const TaxCase& taxCase) {
        const Record* const record = place.read(taxCase);
        return record != nullptr ? ofRecord(*record) : Result{};
    };
}

} // namespace detail

/// Puts a record's field at its place.
template <class Record>
BoundField bind(const Place<Record>& place, const Field<Record>& field) {
    return {.path = place.path.empty() ? std::string(field.name)
                                       : place.path + "." + std::string(field.name),
            .label = field.label,
            .help = field.help,
            .editor = field.editor,
            .unit = field.unit,
            .options = field.options,
            .isOptional = field.isOptional,
            .get =
                [place, get = field.get](const TaxCase& taxCase) {
                    const Record* const record = place.read(taxCase);
                    return record != nullptr ? get(*record) : Value{};
                },
            .set =
                [place, set = field.set](TaxCase& taxCase, const Value& value) {
                    if (Record* const record = place.write(taxCase)) {
                        set(*record, value);
                    }
                },
            .shown =
                [place, shown = field.shown](const TaxCase& taxCase) {
                    const Record* const record = place.read(taxCase);
                    return record != nullptr && (!shown || shown(taxCase, *record));
                },
            .usable =
                [place, usable = field.usable](const TaxCase& taxCase) {
                    const Record* const record = place.read(taxCase);
                    return !usable || (record != nullptr && usable(taxCase, *record));
                },
            .optionsFor = field.optionsFor,
            .labelFor = field.labelFor,
            .computed = detail::ofCase(place, field.computed),
            .note = detail::ofCase(place, field.note)};
}

template <class Record>
std::vector<BoundField> bindAll(const Place<Record>& place,
                                const std::vector<Field<Record>>& fields) {
    std::vector<BoundField> bound;
    bound.reserve(fields.size());
    for (const Field<Record>& field : fields) {
        bound.push_back(bind(place, field));
    }
    return bound;
}

} // namespace fiscarel::forms
