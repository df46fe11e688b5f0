#pragma once

#include "TaxCore/base/Decimal.h"

#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// Where an input stands in the case: "income1.salaries[0].grossSalary". Cheap to make; the text is
/// put together only when somebody asks.
class FieldPath {
  public:
    /// A field of the case itself: FieldPath("cash").
    constexpr explicit FieldPath(std::string_view field) : record_(field) {}
    /// A field of a record or, with `at`, of the items of a list: FieldPath("debts", "interest").
    constexpr FieldPath(std::string_view record, std::string_view field)
        : record_(record), field_(field) {}
    /// The same within a record: FieldPath("income", "salaries", "grossSalary").
    constexpr FieldPath(std::string_view record, std::string_view inner, std::string_view field)
        : record_(record), inner_(inner), field_(field) {}

    /// The record of a person: "income" becomes "income2".
    constexpr FieldPath of(int person) const {
        FieldPath path = *this;
        path.person_ = person;
        return path;
    }
    /// An item of the innermost list.
    constexpr FieldPath at(int index) const {
        FieldPath path = *this;
        path.index_ = index;
        return path;
    }

    std::string toString() const;

  private:
    std::string_view record_;
    std::string_view inner_;
    std::string_view field_;
    int person_ = 0;
    int index_ = -1;
};

/// Calls `use(item, index)` for each item of a list; the index is what its path needs.
template <class T, class Use>
void forEachItem(const std::vector<T>& items, Use&& use) {
    int index = 0;
    for (const T& item : items) {
        use(item, index);
        ++index;
    }
}

/// The sum of one amount over the items that count, each told as an input. `path` is that of the
/// amount, still without an index.
template <class Draft, class T, class Counts>
Decimal sumOf(Draft& why, std::string_view text, const std::vector<T>& items, Decimal T::*amount,
              const FieldPath& path, const Counts& counts) {
    Decimal sum;
    forEachItem(items, [&](const T& item, int index) {
        if (counts(item)) {
            sum += item.*amount;
            why.input(text, item.*amount, path.at(index));
        }
    });
    return sum;
}

/// The same over all items.
template <class Draft, class T>
Decimal sumOf(Draft& why, std::string_view text, const std::vector<T>& items, Decimal T::*amount,
              const FieldPath& path) {
    return sumOf(why, text, items, amount, path, [](const T&) { return true; });
}

} // namespace taxcore
