#pragma once

// Pages as data: cards of fields and lists of records. Knows no widgets.

#include "Fiscarel_SG/forms/Field.h"
#include "TaxCore/base/Uuid.h"
#include "TaxCore/result/TaxResult.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace fiscarel::forms {

/// A computed figure beside entries: "Abzug Fahrkosten", canton and federation.
struct Figure {
    std::string label;
    std::string text; ///< as it is shown: "Kanton 3’200 · Bund 3’000"
    std::string note; ///< "gekürzt auf 8’000"; may be empty
    /// A note of two lines may come while one types; there is room for it.
    bool keepsNoteRoom = false;

    bool operator==(const Figure&) const = default;
};

/// The text of a figure that there is nothing of yet; it keeps its place meanwhile.
inline constexpr const char* noFigure = "–";

/// The figures that belong to entries, from the case and its result.
using Figures = std::function<std::vector<Figure>(const TaxCase&, const taxcore::TaxResult&)>;
using Condition = std::function<bool(const TaxCase&)>;

/// Fields under a heading.
struct FieldsCard {
    std::string title;
    std::string help; ///< one line; may be empty
    std::vector<BoundField> fields;
    Figures figures; ///< absent: none
    Condition shown; ///< absent: always
};

/// What a row of a list shows without being opened.
struct RowSummary {
    std::string title;  ///< "Muster AG"
    std::string detail; ///< "Haupterwerb, Januar bis Dezember"; may be empty
    std::string amount; ///< "82’400"; may be empty
};

/// A list of records of one kind.
struct ListCard {
    std::string title;
    std::string help;
    std::string path;      ///< "income1.salaries"
    std::string itemName;  ///< "Lohnausweis"; the button says "Lohnausweis hinzufügen"
    std::string emptyText; ///< what an empty list says; a table shows an empty row
    bool isTable = false;  ///< edited as a table with keyboard entry and paste from a spreadsheet
    /// Whether an empty list offers to take over the one of the year before.
    bool offersLastYear = false;
    std::function<std::size_t(const TaxCase&)> size;
    std::function<taxcore::Uuid(const TaxCase&, std::size_t)> id;
    // Absent, all five, in a list whose items come and go on another page.
    std::function<void(TaxCase&)> add;
    std::function<void(TaxCase&, std::size_t)> remove;
    std::function<void(TaxCase&, std::size_t)> duplicate;
    std::function<void(TaxCase&, std::size_t from, std::size_t to)> move;
    /// Takes the list of another case over with fresh identities, without document links.
    std::function<void(TaxCase&, const TaxCase& from)> takeOver;
    std::function<RowSummary(const TaxCase&, std::size_t)> summary;
    std::function<std::string(const TaxCase&)> total; ///< "Total 12’300"; absent: none
    /// Of a table, by column: the sum of its amounts; absent in columns that have none.
    std::function<std::vector<std::optional<Decimal>>(const TaxCase&)> sums;
    /// The fields of an item; of a table its columns.
    std::function<std::vector<BoundField>(std::size_t)> fields;
    Figures figures;
    Condition shown;
};

using Card = std::variant<FieldsCard, ListCard>;

/// Cards of one person or of the household.
struct Section {
    /// Heading, "Anna Muster"; absent: none.
    std::function<std::string(const TaxCase&)> title;
    std::vector<Card> cards;
    Condition shown;
};

struct Page {
    std::string id;    ///< "income"
    std::string title; ///< "Einkommen"
    std::string help;  ///< one line
    std::vector<Section> sections;
    // The page that follows, to which a link at the end leads; empty: none.
    std::string nextId = {};
    std::string nextTitle = {};
};

/// What of a list is its own; the rest follows from the record's type.
struct ListTexts {
    std::string title;
    std::string help;
    std::string itemName;
    std::string emptyText;
    bool isTable = false;
    bool offersLastYear = false;
};

/// The changes of a list: what `card` does with its items.
template <class Item>
void bindChanges(ListCard& card, const Place<std::vector<Item>>& list) {
    const auto edit = [write = list.write](auto change) {
        return [write, change](TaxCase& taxCase, auto... at) {
            if (auto* items = write(taxCase)) {
                change(*items, at...);
            }
        };
    };
    const auto offset = [](std::size_t at) { return static_cast<std::ptrdiff_t>(at); };
    card.add = edit([](std::vector<Item>& items) { items.emplace_back(); });
    card.remove = edit([offset](std::vector<Item>& items, std::size_t at) {
        if (at < items.size()) {
            items.erase(items.begin() + offset(at));
        }
    });
    card.duplicate = edit([offset](std::vector<Item>& items, std::size_t at) {
        if (at < items.size()) {
            Item copy = items[at];
            copy.id = taxcore::Uuid::random();
            items.insert(items.begin() + offset(at) + 1, std::move(copy));
        }
    });
    card.move = edit([offset](std::vector<Item>& items, std::size_t from, std::size_t to) {
        if (from < items.size() && to < items.size()) {
            Item moved = std::move(items[from]);
            items.erase(items.begin() + offset(from));
            items.insert(items.begin() + offset(to), std::move(moved));
        }
    });
    card.takeOver = [list](TaxCase& taxCase, const TaxCase& from) {
        const auto* old = list.read(from);
        auto* items = list.write(taxCase);
        if (old == nullptr || items == nullptr) {
            return;
        }
        for (Item item : *old) {
            item.id = taxcore::Uuid::random();
            if constexpr (requires { item.documentID; }) {
                item.documentID.reset();
            }
            items->push_back(std::move(item));
        }
    };
}

/// The sums of the columns that have one.
template <class Item>
std::vector<std::optional<Decimal>> sumsOf(const std::vector<Item>* items,
                                           const std::vector<Field<Item>>& fields) {
    std::vector<std::optional<Decimal>> sums;
    for (const Field<Item>& field : fields) {
        std::optional<Decimal>& sum = sums.emplace_back();
        if (field.isSummed && items != nullptr) {
            sum.emplace();
            for (const Item& item : *items) {
                const Value value = field.get(item);
                const auto* const amount = std::get_if<Decimal>(&value);
                *sum += amount != nullptr ? *amount : Decimal(0);
            }
        }
    }
    return sums;
}

/// A list of records as a card.
template <class Item>
ListCard listCard(const Place<std::vector<Item>>& list, ListTexts texts,
                  std::vector<Field<Item>> fields, std::function<RowSummary(const Item&)> summary) {
    ListCard card;
    card.title = std::move(texts.title);
    card.help = std::move(texts.help);
    card.path = list.path;
    card.itemName = std::move(texts.itemName);
    card.emptyText = std::move(texts.emptyText);
    card.isTable = texts.isTable;
    card.offersLastYear = texts.offersLastYear;
    card.size = [read = list.read](const TaxCase& taxCase) {
        const auto* items = read(taxCase);
        return items != nullptr ? items->size() : std::size_t{0};
    };
    card.id = [read = list.read](const TaxCase& taxCase, std::size_t at) {
        const auto* items = read(taxCase);
        return items != nullptr && at < items->size() ? (*items)[at].id : taxcore::Uuid{};
    };
    bindChanges(card, list);
    card.summary = [read = list.read, summary = std::move(summary)](const TaxCase& taxCase,
                                                                    std::size_t at) {
        const auto* items = read(taxCase);
        return items != nullptr && at < items->size() ? summary((*items)[at]) : RowSummary{};
    };
    card.sums = [read = list.read, fields](const TaxCase& taxCase) {
        return sumsOf(read(taxCase), fields);
    };
    card.fields = [list, fields = std::move(fields)](std::size_t at) {
        return bindAll(itemOf(list, at), fields);
    };
    return card;
}

} // namespace fiscarel::forms
